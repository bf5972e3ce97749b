"""A picture of every page, in both appearances and at two sizes, from the real window: screenshots.py FOLDER.

The clock stands at a Tuesday in March 2026, so that two runs give the same pictures.
"""

import contextlib
import json
import pathlib
import sqlite3
import sys
import time
import uuid

import desktop
import program

SIZES = {"": (1120, 760), "-narrow": (940, 620)}
NOW = "2026-03-10 16:40:00"
# The preload library keeps the monotonic clock, so that the program's delays last as long as ever.
CLOCK = {
    "LD_PRELOAD": "/usr/$LIB/faketime/libfaketimeMT.so.1",
    "FAKETIME": f"@{NOW}",
    "FAKETIME_DONT_FAKE_MONOTONIC": "1",
    "TZ": "Europe/Paris",
}
COMPARED = "X is this much of Y: 66.6667%\nY is this much of X: 150%\nChange X → Y: +50%  (increase)\nDifference (Y − X): 25"
HISTORY = [
    ("2026-03-10 16:32", "percent", "50 compared with 75", "X is this much of Y: 66.6667%", COMPARED),
    ("2026-03-10 16:10", "duration", "Mon, 02 Mar 2026 → Wed, 15 Apr 2026", "Total days: 44", "Total days: 44"),
    ("2026-03-10 11:48", "calculator", "1,200 × 3", "Result: 3,600", "Result: 3,600"),
    ("2026-03-09 09:05", "percent", "200 ± 15%", "Increased by 15%: 230", "Increased by 15%: 230"),
    ("2026-03-08 12:00", "calculator", "86,400 × 365", "Result: 31,536,000", "Result: 31,536,000"),
    ("2026-03-07 20:21", "duration", "Sat, 07 Mar 2026 → Fri, 05 Jun 2026", "Total days: 90", "Total days: 90"),
]
PICNIC = "Picnic on Saturday\nBring the blue blanket, two flasks of tea and the folding table. We meet at the north gate at ten."
NOTES = [
    ("2026-03-10 16:00", [
        PICNIC,
        "نلتقي عند البوابة الشمالية في الساعة العاشرة صباحًا. أحضروا الماء والفاكهة والخبز الطازج.",
        "ניפגש בשער הצפוני בשעה עשר בבוקר. נא להביא מים, פירות ולחם טרי.",
    ]),
    ("2026-03-10 09:00", ["Hall measurements\n2.40 m by 1.15 m, ceiling 2.65 m"]),
    ("2026-03-09 18:00", ["רשימת קניות\nחלב, ביצים, קמח, שמן זית"]),
    ("2026-03-05 18:00", ["Reading list"]),
    ("2026-01-28 18:00", [""]),
]


def seconds(text):
    return time.mktime(time.strptime(text, "%Y-%m-%d %H:%M"))


def fill(file):
    """Puts the sample history and notes into a database that the program has made."""
    with contextlib.closing(sqlite3.connect(file)) as base, base:
        for when, *rest in HISTORY:
            base.execute(
                "INSERT INTO history (created_at, module, title, summary, detail) VALUES (?, ?, ?, ?, ?)", (seconds(when), *rest)
            )
        for when, texts in NOTES:
            blocks = json.dumps([{"id": str(uuid.uuid4()).upper(), "text": text} for text in texts], ensure_ascii=False)
            base.execute(
                "INSERT INTO notes (created_at, updated_at, blocks, search) VALUES (?, ?, ?, ?)",
                (seconds(when), seconds(when), blocks, "\n".join(texts).lower()),
            )


def calculator(app):
    app.type("86400*365=12+3=1/3=*3=200+20=1200*3=-1234.50")
    app.wait_text("1,234.50")


def percent(app):
    app.fill("Value X", "50")
    app.fill("Value Y", "75")
    app.wait("X is this much of Y: 66.6667%")


def percent_change(app):
    app.click("Increase / decrease")
    app.fill("Value", "200")
    app.fill("Percentage", "15")
    app.wait("Increased by 15%: 230 (+30)")


def converter(app):
    app.click("Length")
    app.fill("Amount", "5")
    app.wait("5 mi in kilometre: 8.04672 km")


def converter_temperature(app):
    app.click("Temperature")
    app.fill("Amount", "20")
    app.wait("20 °C in fahrenheit: 68 °F")


def calendar(app):
    app.click("Saturday, 7 March 2026 — weekend")


def duration(app):
    for which, parts in {"Start date": ("02", "03", "2026"), "End date": ("15", "04", "2026")}.items():
        for part, text in zip(("day", "month", "year"), parts):
            app.fill(f"{which}, {part}", text)
    app.wait("Total days: 44 (end date not included)")


def history(app):
    app.click("Show details")
    app.wait("Hide details")


def nothing(_app):
    """The page as it opens."""


# File name: page, and what a person does there first.
PICTURES = {
    "calculator": ("Calculator", calculator),
    "percent": ("Percentage", percent),
    "percent-change": ("Percentage", percent_change),
    "converter": ("Converter", converter),
    "converter-temperature": ("Converter", converter_temperature),
    "calendar": ("Calendar", calendar),
    "notes": ("Notes", nothing),
    "duration": ("Days Between", duration),
    "history": ("History", history),
    "settings": ("Settings", nothing),
}


def take(screen, folder, appearance):
    """Every picture in one appearance, in one run of the program."""
    home = screen.folder / appearance
    home.mkdir()
    screen.environment["HOME"] = str(home)
    program.Program(screen, **CLOCK).end()
    fill(program.database(screen))
    app = program.Program(screen, **CLOCK)
    window = screen.run(["xdotool", "search", "--onlyvisible", "--pid", str(app.process.pid)]).split()[0]
    for name, (page, prepare) in PICTURES.items():
        app.go(page)
        prepare(app)
        for suffix, (width, height) in SIZES.items():
            resize(screen, app, window, width, height)
            settle(screen)
            screen.screenshot(folder / f"{name}{suffix}-{appearance}.png", window)
            print(folder / f"{name}{suffix}-{appearance}.png", flush=True)
        resize(screen, app, window, *SIZES[""])
    app.end()


def resize(screen, app, window, width, height):
    """Gives the window that size before scaling, and moves the pointer off it."""
    size = [str(round(part * screen.scale)) for part in (width, height)]
    corner = [str(part - 10) for part in screen.size]
    screen.run(["xdotool", "windowsize", window, *size, "mousemove", *corner])
    desktop.wait_for(lambda: [str(part) for part in app.root().frame[2:]] == size, f"a window of {size}")


def settle(screen):
    """Waits until two looks at the screen a quarter of a second apart see the same, but for a caret that blinks."""
    caret_bits = 24 * 2 * 30 * screen.scale**2

    def still():
        before = int.from_bytes(screen.pixels(), "little")
        time.sleep(0.25)
        return (before ^ int.from_bytes(screen.pixels(), "little")).bit_count() <= caret_bits

    desktop.wait_for(still, "a window that stands still")


def main():
    folder = pathlib.Path(sys.argv[1])
    screen = desktop.Desktop()
    screen.environment["TZ"] = CLOCK["TZ"]
    program.load(screen.environment)
    for appearance in ["light", "dark"]:
        with screen.portal(appearance):
            take(screen, folder, appearance)
    screen.close()


if __name__ == "__main__":
    main()
