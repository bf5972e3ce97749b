"""Answers "compare X Y" and "change VALUE PERCENT" with the rows: text, weight and tone, joined by tabs."""

import sys
from fractions import Fraction

from exact import shown, step


def row(label, value, note, weight, tone):
    note = f"  ({note})" if note else ""
    return f"{label}: {value}{note} {weight} {tone}"


def tone_of(value):
    return "up" if value > 0 else "down" if value < 0 else "neutral"


def compare(x, y):
    share = "X is this much of Y"
    if y != 0:
        yield row(share, shown(step(step(x * 100) / y), 4) + "%", None, "headline", "neutral")
    else:
        yield row(share, "undefined", "Y is zero", "headline", "neutral")
    if x != 0:
        yield row("Y is this much of X", shown(step(step(y * 100) / x), 4) + "%", None, "primary", "neutral")
        change = step(step(step(y - x) * 100) / abs(x))
        text = ("+" if change > 0 else "") + shown(change, 4) + "%"
        yield row("Change X → Y", text, "decrease" if change < 0 else "increase", "primary", tone_of(change))
    difference = step(y - x)
    yield row("Difference (Y − X)", shown(difference, 6), None, "primary", tone_of(difference))


def before(value, percent):
    factor = step(1 + step(percent / 100))
    return "—" if factor == 0 else shown(step(value / factor), 6)


def change(value, percent):
    share = shown(percent, 4)
    delta = step(step(value * percent) / 100)
    amount = shown(delta, 6)
    yield row(f"Increased by {share}%", shown(step(value + delta), 6), "+" + amount, "headline", "up")
    yield row(f"Decreased by {share}%", shown(step(value - delta), 6), "−" + amount, "headline", "down")
    yield row("Amount of the change", amount, None, "primary", "neutral")
    yield row(f"Before a {share}% increase", before(value, percent),
              "reverse: original was this before the rise", "detail", "neutral")
    yield row(f"Before a {share}% decrease", before(value, -percent),
              "reverse: original was this before the drop", "detail", "neutral")


sys.stdin.reconfigure(encoding="utf-8")
sys.stdout.reconfigure(encoding="utf-8")
for line in sys.stdin:
    command, first, second = line.split()
    answer = compare if command == "compare" else change
    print("\t".join(answer(Fraction(first), Fraction(second))))
