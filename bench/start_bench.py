"""Start, memory and idle wake-ups, measured from outside beside a bare window: start_bench.py FOLDER-OF-PROGRAMS.

The clock runs from just before exec to the first damage of the window that has left pixels in it. Each page is started
as the restored one, on an empty database and on one with 500 saved calculations and 1,000 notes. Starts of the bare
window and of the pages take turns, so that a busy moment of the machine falls on all alike; medians are compared.
"""

import contextlib
import json
import os
import pathlib
import select
import sqlite3
import statistics
import sys
import time
import uuid

from Xlib import X, display
from Xlib.ext import damage

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tests/e2e"))
import desktop  # noqa: E402

PAGES = ["calculator", "percent", "converter", "calendar", "notes", "duration", "history", "settings"]
ROUNDS = 21
IDLE_SECONDS = 2
START_BUDGET, MEMORY_BUDGET = 1.35, 1.3


class Watcher:
    """An X client that sees windows being made, and the first picture in them."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.display.damage_query_version()
        self.display.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()

    def first_picture(self, process):
        """Waits for the next large window, that of the process, to show something. Gives the moment."""
        deadline = time.monotonic() + 30
        while True:
            while not self.display.pending_events():  # which sends what is still to be sent
                if process.poll() is not None or time.monotonic() > deadline:
                    raise AssertionError(f"no picture of {process.args}, exit status {process.poll()}")
                select.select([self.display], [], [], 1)
            event = self.display.next_event()
            if event.type == X.CreateNotify and event.width > 200 and event.height > 200:
                event.window.damage_create(damage.DamageReportRawRectangles)
            elif event.type == self.display.extension_event.DamageNotify and self._painted(event.drawable):
                return time.monotonic()

    def _painted(self, window):
        """Whether there are pixels: what the window manager puts there before the first paint is black."""
        with contextlib.suppress(Exception):
            box = window.get_geometry()
            picture = window.get_image(box.width // 2, box.height // 2, 8, 8, X.ZPixmap, 0xFFFFFF)
            return any(picture.data)
        return False

    def forget(self):
        """Drops what is left of windows that are gone."""
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()


class Subject:
    """One program with its arguments, and what was measured of it."""

    def __init__(self, name, command, environment):
        self.name, self.command, self.environment = name, command, environment
        self.starts, self.memory, self.wakeups, self.memory_ratio = [], 0, 0, 0

    def start(self, watcher):
        watcher.forget()
        begin = time.monotonic()
        process = desktop.start(self.command, env=self.environment)
        moment = watcher.first_picture(process)
        self.starts.append(1000 * (moment - begin))
        return process

    def measure_memory(self, watcher):
        """Lets one copy settle and reads its proportional memory, in MiB."""
        process = self.start(watcher)
        settle(process.pid)
        self.memory = number_in(f"/proc/{process.pid}/smaps_rollup", "Pss:") / 1024
        return process

    def measure_idling(self, process):
        """How often it wakes with nobody touching it."""
        before = wakeups(process.pid)
        time.sleep(IDLE_SECONDS)  # idling is what is measured
        self.wakeups = wakeups(process.pid) - before


def number_in(path, label):
    with open(path) as lines:
        return next(int(line.split()[1]) for line in lines if line.startswith(label))


def wakeups(pid):
    threads = pathlib.Path(f"/proc/{pid}/task").iterdir()
    return sum(number_in(thread / "status", "voluntary_ctxt_switches:") for thread in threads)


def settle(pid):
    """Waits until the process has used no processor time for a fifth of a second."""
    used, since = None, time.monotonic()
    while time.monotonic() - since < 0.2:
        fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
        now = fields[11], fields[12]
        if now != used:
            used, since = now, time.monotonic()
        time.sleep(0.02)


def end(process):
    process.kill()
    process.wait()


def fill(file):
    """500 saved calculations and 1,000 notes of 2 kB, a minute apart."""
    now, text = time.time(), "The quick brown fox jumps over the lazy dog. " * 11
    with contextlib.closing(sqlite3.connect(file)) as base, base:
        base.executemany(
            "INSERT INTO history (created_at, module, title, summary, detail) VALUES (?, ?, ?, ?, ?)",
            ((now - 60 * i, PAGES[i % 6], f"{i} + 1", f"Result: {i + 1}", f"Result: {i + 1}") for i in range(500)),
        )
        blocks = [json.dumps([{"id": str(uuid.uuid4()).upper(), "text": f"Note {i} {text}"} for _ in range(4)]) for i in range(1000)]
        base.executemany(
            "INSERT INTO notes (created_at, updated_at, blocks, search) VALUES (?, ?, ?, ?)",
            ((now - 60 * i, now - 60 * i, blocks[i], f"note {i}") for i in range(1000)),
        )


def subjects(programs, environment, folder, watcher):
    """The bare window, then each page on both databases."""
    yield Subject("bare", [programs / "bare_window"], environment)
    for kind in ["empty", "full"]:
        for page in PAGES:
            file = folder / f"{kind}-{page}.sqlite"
            subject = Subject(f"{page}/{kind}", [programs / "zelta-basic", "-ZeltaBasicDatabase", file], environment)
            process = subject.start(watcher)
            settle(process.pid)
            end(process)
            subject.starts.clear()  # that one only made the file
            with contextlib.closing(sqlite3.connect(file)) as base, base:
                base.execute("INSERT OR REPLACE INTO settings (key, value) VALUES ('module', ?)", (page,))
            if kind == "full":
                fill(file)
            yield subject


def report(bare, pages):
    ours = [(subject, statistics.median(subject.starts)) for subject in pages]
    theirs = statistics.median(bare.starts)
    print(f"bare window: start {theirs:.1f} ms, memory {bare.memory:.1f} MiB")
    for subject, start in ours:
        print(f"{subject.name}: start {start:.1f} ms, memory {subject.memory:.1f} MiB, {subject.wakeups} wake-ups in {IDLE_SECONDS} s")
    for subject, start in ours:
        print(f"ratio start/{subject.name} {start / theirs:.2f} budget {START_BUDGET}")
        print(f"ratio memory/{subject.name} {subject.memory_ratio:.2f} budget {MEMORY_BUDGET}")


def main():
    programs = pathlib.Path(sys.argv[1])
    screen = desktop.Desktop()
    try:
        environment = screen.environment.copy()
        del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        os.environ.update(environment)
        watcher = Watcher(environment["DISPLAY"])
        bare, *pages = subjects(programs, environment, screen.folder, watcher)
        for subject in pages:
            # Side by side in time: what is shared with other programs of the machine counts less in both.
            end(bare.measure_memory(watcher))
            process = subject.measure_memory(watcher)
            subject.memory_ratio = subject.memory / bare.memory
            subject.measure_idling(process)
            end(process)
        for _ in range(ROUNDS):
            for subject in [bare, *pages]:
                end(subject.start(watcher))
        report(bare, pages)
    finally:
        screen.close()


if __name__ == "__main__":
    main()
