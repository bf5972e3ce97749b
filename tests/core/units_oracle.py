"""Answers, one a line: "convert length 5 mi km" with the exact digits, "figure 0.05" with the shown text."""

import sys
from fractions import Fraction

from exact import plain, shown, step

FIVE_NINTHS = "0.5555555555555555555555555556"
UNITS = {
    "length": {
        "km": ("1000", "0"), "m": ("1", "0"), "cm": ("0.01", "0"), "mm": ("0.001", "0"),
        "um": ("0.000001", "0"), "nm": ("0.000000001", "0"), "mi": ("1609.344", "0"),
        "yd": ("0.9144", "0"), "ft": ("0.3048", "0"), "in": ("0.0254", "0"), "nmi": ("1852", "0"),
    },
    "mass": {
        "t": ("1000", "0"), "kg": ("1", "0"), "g": ("0.001", "0"), "mg": ("0.000001", "0"),
        "lb": ("0.45359237", "0"), "oz": ("0.028349523125", "0"), "st": ("6.35029318", "0"),
        "ton_us": ("907.18474", "0"), "ton_uk": ("1016.0469088", "0"), "ct": ("0.0002", "0"),
    },
    "temperature": {
        "celsius": ("1", "273.15"), "kelvin": ("1", "0"),
        "fahrenheit": (FIVE_NINTHS, "459.67"), "rankine": (FIVE_NINTHS, "0"),
    },
}


def convert(kind, value, source, target):
    from_factor, from_offset = map(Fraction, UNITS[kind][source])
    to_factor, to_offset = map(Fraction, UNITS[kind][target])
    if kind != "temperature":
        return step(step(value * from_factor) / to_factor)
    base = step(step(value + from_offset) * from_factor)
    return step(step(base / to_factor) - to_offset)


def figure(value):
    size, places = abs(value), 6
    while 0 < size < 1 and places < 24:
        size, places = size * 10, places + 1
    return shown(value, places)


for line in sys.stdin:
    command, *words = line.split()
    if command == "convert":
        kind, value, source, target = words
        print(plain(convert(kind, Fraction(value), source, target)))
    else:
        print(figure(Fraction(words[0])))
