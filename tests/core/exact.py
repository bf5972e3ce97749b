"""Arithmetic for the oracles: exact rationals, rounded once per step to 38 digits, halves away from zero."""

from fractions import Fraction

DIGITS = 38


def rounded_to(value, unit):
    """The multiple of `unit` nearest to `value`; halves go away from zero."""
    quotient = abs(value) / unit
    whole = quotient.numerator // quotient.denominator
    if 2 * (quotient - whole) >= 1:
        whole += 1
    return (whole if value >= 0 else -whole) * unit


def step(value):
    """The result of one operation: `value` to 38 significant digits."""
    value = Fraction(value)
    if value == 0:
        return value
    size = abs(value)
    # The exponent of the leading digit, from the lengths of both terms and then put right.
    exponent = len(str(size.numerator)) - len(str(size.denominator))
    while Fraction(10) ** exponent > size:
        exponent -= 1
    while Fraction(10) ** (exponent + 1) <= size:
        exponent += 1
    return rounded_to(value, Fraction(10) ** (exponent - DIGITS + 1))


def plain(value):
    """All digits of a value whose decimal expansion ends: "-0.025"."""
    places = 0
    while (value * 10**places).denominator != 1:
        places += 1
    digits = str(abs(int(value * 10**places))).rjust(places + 1, "0")
    text = digits if places == 0 else digits[:-places] + "." + digits[-places:]
    return "-" + text if value < 0 else text


def shown(value, places):
    """`value` as a person sees it: at most `places` decimal places, thousands grouped, never "-0"."""
    text = plain(rounded_to(value, Fraction(1, 10**places)))
    sign = "-" if text.startswith("-") else ""
    whole, point, fraction = text.lstrip("-").partition(".")
    return sign + f"{int(whole):,}" + point + fraction
