"""The command line: what it takes, and what it says to what it does not."""

import os
import pathlib
import re
import subprocess

import desktop
import program
import scenario


class Launch(scenario.Scenario):
    def answer(self, *arguments):
        """Runs the program to its end. Gives exit status, standard output and standard error."""
        command = [os.environ["ZELTA_PROGRAM"], *arguments]
        done = subprocess.run(command, env=self.screen.environment, capture_output=True, text=True, timeout=20)
        return done.returncode, done.stdout, done.stderr

    def test_an_unknown_option_is_one_line_and_exit_status_2(self):
        for option in ["--no-such-thing", "-x", "stray"]:
            status, output, error = self.answer(option)
            self.assertEqual((status, output), (2, ""), option)
            self.assertEqual(len(error.splitlines()), 1, error)
            self.assertIn(option, error)
        self.assertFalse(program.database(self.screen).exists())

    def test_version_is_one_line(self):
        status, output, error = self.answer("--version")
        self.assertEqual((status, error), (0, ""))
        self.assertRegex(output, r"^zelta-basic \d+\.\d+\.\d+\n$")

    def test_help_names_every_option(self):
        status, output, error = self.answer("--help")
        self.assertEqual((status, error), (0, ""))
        for option in ["-ZeltaBasicDatabase", "--version", "--help"]:
            self.assertIn(option, output)

    def test_a_database_argument_without_value_is_one_line_and_the_default_place(self):
        app = self.start("-ZeltaBasicDatabase")
        app.wait("Calculator")
        self.assertTrue(program.database(self.screen).exists())
        complaints = pathlib.Path(app.log.name).read_text().splitlines()
        self.assertEqual(len(complaints), 1, complaints)
        self.assertIn("-ZeltaBasicDatabase", complaints[0])

    def test_the_last_database_argument_wins_and_a_tilde_is_the_home_folder(self):
        home = pathlib.Path(self.screen.environment["HOME"])
        app = self.start("-ZeltaBasicDatabase", str(home / "one.sqlite"), "-ZeltaBasicDatabase", "~/two.sqlite")
        app.go("Settings")
        self.assertTrue((home / "two.sqlite").exists())
        self.assertFalse((home / "one.sqlite").exists())
        self.assertFalse(program.database(self.screen).exists())

    def test_missing_standard_streams_are_nobodys(self):
        """Their numbers would go to the next connections, and each message into one of them."""
        self.start_with("sh", "-c", 'exec "$@" <&- >&- 2>&-', "sh")
        for stream in range(3):
            self.assertEqual(os.readlink(f"/proc/{self.app.process.pid}/fd/{stream}"), "/dev/null")
            # The database's library fills them too, for reading only, where nothing else has come first.
            facts = pathlib.Path(f"/proc/{self.app.process.pid}/fdinfo/{stream}").read_text().split()
            self.assertEqual(int(facts[facts.index("flags:") + 1], 8) & os.O_ACCMODE, os.O_RDWR)

    def test_a_message_that_nobody_reads_does_not_end_the_program(self):
        # Qt warns of a missing folder for what belongs to the running session.
        shell = 'exec 2> >(exit); wait $!; unset XDG_RUNTIME_DIR; exec "$@"'
        self.start_with("bash", "-c", shell, "bash")
        self.app.go("Settings")
        self.assertEqual(self.app.end(), 0)

    def test_the_data_folder_is_for_its_owner_only(self):
        self.start()
        folder = program.database(self.screen).parent
        self.assertEqual(folder.stat().st_mode & 0o777, 0o700)

    def test_the_desktop_is_given_the_icon(self):
        """It is drawn behind the first picture, when the window has come onto the screen."""
        self.start()
        [window] = self.screen.run(["xprop", "-root", "-notype", "_NET_CLIENT_LIST"]).split("#")[1].split()
        icon = lambda: self.screen.run(["xprop", "-id", window, "-len", "40", "-notype", "32c", "_NET_WM_ICON"])
        desktop.wait_for(lambda: re.search(r"= \d+, \d+", icon()), "an icon of some size")

    def test_qt_draws_with_the_fonts_that_it_names(self):
        """Two of the program's functions stand before the font library's; who calls whom is the dynamic linker's word."""
        self.start(LD_DEBUG="bindings", LD_DEBUG_OUTPUT=str(self.screen.folder / "bindings"))
        [said] = self.screen.folder.glob(f"bindings.{self.app.process.pid}")
        bindings = said.read_text(errors="replace").splitlines()
        for function in ("FcFontList", "FcFontMatch"):
            bound = [line for line in bindings if f"symbol `{function}'" in line]
            ours = [line for line in bound if "libQt6" in line.partition(" to ")[0] and "zelta-basic [0]" in line.partition(" to ")[2]]
            self.assertTrue(ours and ours == bound, bound)


if __name__ == "__main__":
    scenario.main()
