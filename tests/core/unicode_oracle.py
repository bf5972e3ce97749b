"""Unicode by Python's own tables. One question a line, code points as numbers:
`lower HEX`, `space HEX`, `titles N N … -1 N … -1` (a note's paragraphs, each ended by -1)."""

import re
import sys

BLANKS = "\t \u00a0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200a\u202f\u205f\u3000"
LINE_ENDS = "\n\v\f\r\x85\u2028\u2029"


def lower(word):
    return " ".join(f"{ord(c):x}" for c in chr(int(word, 16)).lower())


def space(word):
    # Python also counts the four information separators, which are not White_Space.
    return str(int(chr(int(word, 16)).isspace() and not 0x1C <= int(word, 16) <= 0x1F))


def titles(*words):
    paragraphs = [""]
    for word in words:
        if word == "-1":
            paragraphs.append("")
        else:
            paragraphs[-1] += chr(int(word))
    lines = [line.strip(BLANKS) for p in paragraphs for line in re.split(f"[{LINE_ENDS}]", p)]
    filled = [line for line in lines if line] + [None] * 2
    count = len([piece for p in paragraphs for piece in re.split(f"[{BLANKS}{LINE_ENDS}]", p) if piece])
    return f"{filled[0] or 'New Note'}|{filled[1] or 'No additional text'}|{count}"


for question in sys.stdin:
    kind, *arguments = question.split()
    print({"lower": lower, "space": space, "titles": titles}[kind](*arguments))
