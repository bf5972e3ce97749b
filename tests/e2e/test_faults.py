"""What goes wrong around the program: it is killed, the disk is full, the file goes away. It goes on and keeps what it saved.

$ZELTA_KILLS is the number of kills (5 unless told); docs/reliability.md says how often it was run, and what was lost.
"""

import contextlib
import datetime
import json
import os
import pathlib
import random
import shutil
import sqlite3
import subprocess
import threading
import time
import zoneinfo

import desktop
import program
import scenario

# Mounts the folder given first read-only, for the program alone, and becomes the program.
READ_ONLY = 'mount --bind "$1" "$1" && mount -o remount,ro,bind "$1" && shift && exec "$@"'
# Gives the program, and nobody else, the folder given first as /etc.
OWN_ETC = 'mount --bind "$1" /etc && shift && unset TZ && exec "$@"'


def may_mount():
    return os.geteuid() == 0 and subprocess.run(["unshare", "--mount", "true"], stderr=subprocess.DEVNULL).returncode == 0


def set_zone(link, zone):
    """As the desktop's settings do it: another link takes the place of the old one."""
    new = link.with_suffix(".new")
    new.symlink_to(f"/usr/share/zoneinfo/{zone}")
    new.replace(link)


def told(seconds, zone):
    """How the program tells a moment: "Tue, 10 Mar 2026 · 4:32 PM"."""
    moment = datetime.datetime.fromtimestamp(seconds, zoneinfo.ZoneInfo(zone))
    return f"{moment:%a, %d %b %Y} · {int(f'{moment:%I}')}:{moment:%M} {moment:%p}"


def rows(file):
    """Everything that a person would miss: history by id, notes by id, settings by key."""
    with contextlib.closing(sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=5)) as base:
        history = {row[0]: row[1:] for row in base.execute("SELECT id, title, detail FROM history")}
        notes = {
            row[0]: "\n".join(block["text"] for block in json.loads(row[1]))
            for row in base.execute("SELECT id, blocks FROM notes")
        }
        return history, notes, dict(base.execute("SELECT key, value FROM settings"))


def integrity(file):
    """What SQLite says of a copy, so that the program itself still has to recover the original."""
    folder = pathlib.Path(file).parent / "copy"
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    for part in [file, pathlib.Path(f"{file}-wal")]:
        if part.exists():
            shutil.copy(part, folder)
    with contextlib.closing(sqlite3.connect(folder / pathlib.Path(file).name)) as base:
        return base.execute("PRAGMA integrity_check").fetchall()


class Witness(threading.Thread):
    """Reads the database from outside, again and again: what it has seen is saved, whatever happens next."""

    def __init__(self, file):
        super().__init__(daemon=True)
        self.file = file
        self.seen = ({}, {}, {})
        self.done = threading.Event()
        self.start()

    def run(self):
        while not self.done.is_set():
            with contextlib.suppress(sqlite3.OperationalError):  # the file is being made
                self.seen = rows(self.file)

    def end(self):
        self.done.set()
        self.join()
        return self.seen


class Faults(scenario.Scenario):
    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.screen.environment, check=False, capture_output=True)

    def start_quickly(self, *arguments):
        """Without a look at the accessibility bus, which takes longer than the program's start."""
        process = desktop.start([os.environ["ZELTA_PROGRAM"], *arguments], env=self.screen.environment)
        search = ["xdotool", "search", "--onlyvisible", "--pid", str(process.pid)]

        def window():
            return subprocess.run(search, env=self.screen.environment, capture_output=True, check=False).stdout

        self.wait_for(window, "the window", 30)
        return process

    def compare(self, app, x, y):
        """Types two numbers into the percentage page."""
        app.go("Percentage")
        app.fill("Value X", str(x))
        app.fill("Value Y", str(y))

    def save(self, app, x, y):
        self.compare(app, x, y)
        app.click("Save to history")

    def titles(self):
        """What is in the file, each once: a calculation saved by hand is saved by itself as well."""
        return {title for title, _detail in rows(program.database(self.screen))[0].values()}

    # A session that is cut short

    def places(self):
        """Where a person would click, found once; the window opens at the same place each time."""
        app = self.start()
        self.compare(app, 1, 2)
        found = {name: app.wait(name).centre for name in ["Value X", "Value Y", "Save to history"]}
        app.go("Notes")
        found["New note"] = app.wait("New note").centre
        app.kill()
        self.app = None
        return found

    def session(self, place, dice, stop):
        """Saves, notes and changes of page, one after another, until there is nobody to answer any more."""
        for number in range(1, 1000):
            if stop.is_set():
                return
            fields = []
            for name, value in (("Value X", number), ("Value Y", dice.randrange(1, 10**6))):
                fields += ["mousemove", *place[name], "click", 1, "key", "--delay", 8, "ctrl+a", *str(value)]
            self.xdotool("key", "ctrl+2", *fields, "mousemove", *place["Save to history"], "click", 1)
            self.xdotool("key", "ctrl+5", "mousemove", *place["New note"], "click", 1)
            self.xdotool("type", "--delay", 8, f"note {number}")
            self.xdotool("key", f"ctrl+{dice.randrange(1, 9)}")

    def assert_kept(self, before, after):
        for number, entry in before[0].items():
            self.assertEqual(after[0].get(number), entry, "a saved calculation")
        for number, text in before[1].items():
            # More may have been written after the last look; what was there may only grow.
            self.assertTrue(after[1].get(number, "lost").startswith(text), f"a saved note: “{text}”")
        self.assertLessEqual(before[2].keys(), after[2].keys(), "settings")

    def test_a_kill_at_any_moment_loses_nothing_that_was_saved(self):
        kills = int(os.environ.get("ZELTA_KILLS", "5"))
        seed = int(os.environ.get("ZELTA_SEED", time.time_ns() % 10**6))
        dice = random.Random(seed)
        place = self.places()
        file = program.database(self.screen)
        for number in range(kills):
            with self.subTest(kill=number, seed=seed):
                process = self.start_quickly()
                witness = Witness(file)
                stop = threading.Event()
                person = threading.Thread(target=self.session, args=(place, dice, stop))
                person.start()
                time.sleep(dice.uniform(0, 3))  # the moment of the kill: the one thing that is not waited for
                process.kill()
                process.wait()
                before = witness.end()
                stop.set()
                person.join()
                self.assertEqual(integrity(file), [("ok",)])
                restarted = self.start_quickly()
                self.assert_kept(before, rows(file))
                restarted.kill()
                restarted.wait()
        history, notes, _settings = rows(file)
        print(f"{kills} kills (seed {seed}): {len(history)} calculations, {len(notes)} notes, all there")
        self.assertGreater(len(history) + len(notes), kills // 2, "a session that saved something")

    # A disk that takes nothing

    def test_a_full_disk_stops_saving_and_nothing_else(self):
        app = self.start()
        self.save(app, 1, 2)
        self.wait_for(lambda: "1 compared with 2" in self.titles(), "the first save")
        app.kill()
        file = program.database(self.screen)
        limit = file.stat().st_size + 60_000
        app = self.start_with("prlimit", f"--fsize={limit}")
        for number in range(3, 40):
            app.go("Percentage" if number % 2 else "Calendar")
        self.save(app, 3, 4)
        app.wait("X is this much of Y: 75%")
        app.kill()
        self.assertEqual(integrity(file), [("ok",)])
        self.assertIn("1 compared with 2", self.titles())
        self.assertNotIn("3 compared with 4", self.titles(), "the disk was not full")
        app = self.start()
        self.save(app, 5, 6)
        self.wait_for(lambda: "5 compared with 6" in self.titles(), "a save once there is room again")

    def test_a_file_that_must_not_be_written_is_left_alone(self):
        app = self.start()
        self.save(app, 1, 2)
        self.wait_for(lambda: "1 compared with 2" in self.titles(), "the first save")
        self.assertEqual(app.end(), 0)
        file = program.database(self.screen)
        kept = file.read_bytes()
        if may_mount():
            app = self.start_with("unshare", "--mount", "sh", "-c", READ_ONLY, "sh", str(file.parent))
        else:
            # A container's root may mount nothing; without this capability a file's mode stops it like anybody else.
            file.chmod(0o444)
            app = self.start() if os.geteuid() else self.start_with("setpriv", "--bounding-set=-dac_override")
        self.save(app, 3, 4)
        app.wait("X is this much of Y: 75%")
        app.go("History")
        app.wait("3 compared with 4")
        self.assertIsNone(app.find("1 compared with 2"), "only what is in memory")
        app.kill()
        self.assertEqual(file.read_bytes(), kept)

    # A file that somebody else touches

    def test_the_file_is_removed_while_it_is_open(self):
        app = self.start()
        self.save(app, 1, 2)
        self.wait_for(lambda: "1 compared with 2" in self.titles(), "the first save")
        file = program.database(self.screen)
        for part in file.parent.glob("zelta-basic.sqlite*"):
            part.unlink()
        self.save(app, 3, 4)
        app.go("History")
        app.wait("1 compared with 2")
        app.wait("3 compared with 4")
        app.kill()
        app = self.start()
        self.save(app, 5, 6)
        self.wait_for(lambda: "5 compared with 6" in self.titles(), "a save in the new file")
        self.assertNotIn("1 compared with 2", self.titles(), "what was removed is gone")
        self.assertEqual(integrity(file), [("ok",)])

    def test_the_file_is_replaced_while_it_is_open(self):
        app = self.start()
        self.save(app, 1, 2)
        self.wait_for(lambda: "1 compared with 2" in self.titles(), "the first save")
        self.assertEqual(app.end(), 0)
        file = program.database(self.screen)
        backup = file.read_bytes()
        app = self.start()
        self.save(app, 3, 4)
        self.wait_for(lambda: "3 compared with 4" in self.titles(), "the second save")
        for part in file.parent.glob("zelta-basic.sqlite*"):
            part.unlink()
        file.write_bytes(backup)
        self.save(app, 5, 6)
        app.go("History")
        app.wait("5 compared with 6")
        app.kill()
        self.assertIn("1 compared with 2", self.titles())
        self.assertNotIn("3 compared with 4", self.titles())
        self.assertEqual(integrity(file), [("ok",)])
        app = self.start()
        self.save(app, 7, 8)
        self.wait_for(lambda: "7 compared with 8" in self.titles(), "a save in the file that was put there")

    def test_two_copies_at_once_both_save(self):
        first = self.start()
        self.save(first, 1, 2)
        second = self.start()
        self.save(second, 3, 4)
        self.wait_for(lambda: self.titles() >= {"1 compared with 2", "3 compared with 4"}, "both saves")
        second.go("History")
        second.wait("1 compared with 2")
        first.close()
        self.save(second, 5, 6)
        self.wait_for(lambda: "5 compared with 6" in self.titles(), "a save after the other copy was killed")
        self.assertEqual(integrity(program.database(self.screen)), [("ok",)])

    # A display that goes

    def test_words_outlive_the_display(self):
        display = desktop.Desktop()
        self.addCleanup(display.close)
        display.run(["xprop", "-root", "-remove", "AT_SPI_BUS"])  # the program is to be found on our bus
        self.addCleanup(self.screen.environment.update, DISPLAY=self.screen.environment["DISPLAY"])
        self.screen.environment["DISPLAY"] = display.environment["DISPLAY"]
        app = self.start()
        app.go("Notes")
        app.click("New note")
        app.type("last words")
        self.wait_for(lambda: any(item.text == "last words" for item in app.shown()), "the words on the screen")
        display.end_display()
        self.assertEqual(app.process.wait(10), 1)
        with contextlib.closing(self.database()) as base:
            self.assertIn("last words", base.execute("SELECT search FROM notes").fetchone()[0])

    # A clock that is set

    def test_a_clock_that_jumps_back_delays_no_save(self):
        clock = self.screen.folder / "clock"
        clock.write_text("@2026-03-10 16:40:00")
        app = self.start(
            LD_PRELOAD="/usr/$LIB/faketime/libfaketimeMT.so.1",
            FAKETIME_TIMESTAMP_FILE=str(clock), FAKETIME_NO_CACHE="1", FAKETIME_DONT_FAKE_MONOTONIC="1",
        )
        self.compare(app, 1, 2)
        self.wait_for(lambda: "1 compared with 2" in self.titles(), "the save by itself")
        clock.write_text("@2020-01-01 12:00:00")
        self.compare(app, 3, 4)
        self.wait_for(lambda: "3 compared with 4" in self.titles(), "the save by itself, six years earlier")
        app.go("History")
        app.wait("3 compared with 4")

    # A zone that is changed

    def test_times_are_told_in_the_zone_that_the_desktop_has_now(self):
        if not may_mount():
            self.skipTest("only who may mount can have an /etc for one program")
        etc = self.screen.folder / "etc"
        subprocess.run(["cp", "--archive", "/etc", etc], check=True)
        link = etc / "localtime"
        set_zone(link, "Europe/Paris")
        app = self.start_with("unshare", "--mount", "sh", "-c", OWN_ETC, "sh", str(etc))
        self.save(app, 1, 2)
        self.wait_for(lambda: "1 compared with 2" in self.titles(), "the save")
        with contextlib.closing(self.database()) as base:
            saved = base.execute("SELECT created_at FROM history").fetchone()[0]

        def see_zone(zone):
            app.go("Settings")
            app.go("History")
            app.wait(told(saved, zone))

        for zone in ["Europe/Paris", "Pacific/Apia", "America/St_Johns"]:
            set_zone(link, zone)
            see_zone(zone)
        # Where /etc cannot be written to, its link leads to another one.
        other = etc / "writable" / "localtime"
        other.parent.mkdir()
        set_zone(other, "Asia/Tokyo")
        link.unlink()
        link.symlink_to("writable/localtime")
        see_zone("Asia/Tokyo")
        set_zone(other, "Europe/Paris")
        see_zone("Europe/Paris")


if __name__ == "__main__":
    scenario.main()
