"""Answers one question a line: `lower HEX…`, `space HEX`, `lines HEX…` with code points in hexadecimal."""

import sys


def text(words):
    return "".join(chr(int(word, 16)) for word in words)


def answer(question):
    kind, *words = question.split()
    if kind == "lower":
        return " ".join(f"{ord(c):x}" for word in words for c in chr(int(word, 16)).lower())
    if kind == "space":
        # Python also counts the four information separators, which are not White_Space.
        c = text(words)
        return str(int(c.isspace() and c not in "\x1c\x1d\x1e\x1f"))
    if kind == "lines":
        import re

        lines = re.split("[\n\v\f\r\x85\u2028\u2029]", text(words))
        return "|".join(" ".join(f"{ord(c):x}" for c in line.strip("\t " + BLANKS)) for line in lines)
    raise ValueError(question)


BLANKS = "\u00a0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200a\u202f\u205f\u3000"

for line in sys.stdin:
    print(answer(line))
