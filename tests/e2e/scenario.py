"""The frame of a scenario: one desktop for the file, an empty home folder and a fresh program for each test."""

import os
import pathlib
import shutil
import sqlite3
import unittest

import desktop
import program


class Scenario(unittest.TestCase):
    """A test as a person would tell it. On failure the screen is kept as a PNG in $ZELTA_SHOTS."""

    zone = "Pacific/Apia"

    @classmethod
    def setUpClass(cls):
        cls.screen = desktop.Desktop()
        cls.addClassCleanup(cls.screen.close)
        cls.screen.environment["TZ"] = cls.zone
        program.load(cls.screen.environment)

    def setUp(self):
        home = self.screen.folder / self._testMethodName
        home.mkdir()
        self.screen.environment["HOME"] = str(home)
        self.app = None

    def tearDown(self):
        if self.app:
            self.app.close()

    def keep_evidence(self):
        """Keeps the screen, what the program wrote, and what a screen reader would have found."""
        shots = pathlib.Path(os.environ.get("ZELTA_SHOTS", "/tmp"))
        self.screen.screenshot(shots / f"{self.id()}.png")
        if self.app:
            shutil.copy(self.app.log.name, shots / f"{self.id()}.log")
            if self.app.process.poll() is None:
                (shots / f"{self.id()}.txt").write_text("\n".join(map(repr, self.app.shown())) + "\n")
        print(f"the screen is kept in {shots}/{self.id()}.png")

    def start(self, *arguments, **environment):
        """Starts the program; a program that still runs is left to end by itself."""
        self.app = program.Program(self.screen, arguments, **environment)
        return self.app

    def start_with(self, *command):
        """Starts the program through another that restricts it and then becomes it."""
        own = os.environ["ZELTA_PROGRAM"]
        try:
            os.environ["ZELTA_PROGRAM"] = command[0]
            return self.start(*command[1:], own)
        finally:
            os.environ["ZELTA_PROGRAM"] = own

    def hears(self, act, words):
        """Does something, and waits for a screen reader to say the words, however short they stand. Gives all that was
        said until then."""
        self.app.heard()
        heard = []
        act()

        def complete():
            heard.extend(self.app.heard())
            return ("notification", words) in heard

        self.wait_for(complete, f"“{words}” to be said; heard {heard}")
        return heard

    def database(self):
        """A read-only look into the database file, past the program."""
        return sqlite3.connect(f"file:{program.database(self.screen)}?mode=ro", uri=True)

    def wait_for(self, condition, what, seconds=10.0):
        return desktop.wait_for(condition, what, seconds)


class _Result(unittest.TextTestResult):
    """Looks at the screen the moment something goes wrong, before the program is ended."""

    def addError(self, test, err):
        self._keep(test)
        super().addError(test, err)

    def addFailure(self, test, err):
        self._keep(test)
        super().addFailure(test, err)

    @staticmethod
    def _keep(test):
        if isinstance(test, Scenario):
            try:
                test.keep_evidence()
            except Exception as trouble:  # the first failure is the one to report
                print(f"no evidence kept: {trouble}")


def main():
    unittest.main(testRunner=unittest.TextTestRunner(resultclass=_Result, verbosity=2))
