"""Answers decimal questions, one a line: "+ A B", "- A B", "* A B", "/ A B", "c A B" compares,
"t TEXT" reads, and "plain PLACES A" (or down, up, bankers) rounds. Numbers come as "-12e-3", answers are
plain digits, "NaN" for what is out of range."""
import decimal
import operator
import os

# 38 digits and exponents of -128 to 127 as seen from the last digit, in the terms of this module.
context = decimal.Context(prec=38, rounding=decimal.ROUND_HALF_UP, Emin=-91, Emax=164, traps=[])
decimal.setcontext(context)
wide = decimal.Context(prec=1000, traps=[])
operators = {"+": operator.add, "-": operator.sub, "*": operator.mul, "/": operator.truediv}
modes = {"plain": decimal.ROUND_HALF_UP, "down": decimal.ROUND_FLOOR, "up": decimal.ROUND_CEILING,
         "bankers": decimal.ROUND_HALF_EVEN}
exact = decimal.Decimal


def plain(value):
    if not value.is_finite():
        return "NaN"
    text = f"{value:f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def answer(question):
    words = question.split()
    kind = words[0]
    if kind in operators:
        return plain(operators[kind](exact(words[1]), exact(words[2])))
    if kind == "c":
        return str(exact(words[1]).compare(exact(words[2]), wide))
    if kind == "t":
        return plain(context.create_decimal(words[1]))
    value, places = exact(words[2]), int(words[1])
    if places >= -value.as_tuple().exponent:
        return plain(value)
    return plain(value.quantize(exact((0, (1,), -places)), modes[kind], wide))


pending = b""
while chunk := os.read(0, 1 << 16):
    *lines, pending = (pending + chunk).split(b"\n")
    answers = memoryview("".join(answer(line.decode()) + "\n" for line in lines).encode())
    while answers:
        answers = answers[os.write(1, answers):]
