"""A desktop of the test's own: X server, window manager, session bus with accessibility, and an empty home folder."""

import contextlib
import ctypes
import os
import pathlib
import signal
import subprocess
import tempfile
import time

PR_SET_PDEATHSIG = 1


def wait_for(condition, what, seconds=10.0):
    """Asks again and again until `condition` gives something true; that is the result."""
    deadline = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {seconds} s: {what}")
        time.sleep(0.02)


def _end_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def start(command, **options):
    """Starts a process that ends with this one, however this one ends."""
    return subprocess.Popen(command, preexec_fn=_end_with_parent, **options)


class Desktop:
    """One screen for one test program: the accessibility library holds a single bus connection for each process."""

    def __init__(self, width=1400, height=1000):
        self.scale = float(os.environ.get("QT_SCALE_FACTOR", 1))
        self.size = round(width * self.scale), round(height * self.scale)
        self._folder = tempfile.TemporaryDirectory(prefix="zelta-e2e-")
        self.folder = pathlib.Path(self._folder.name)
        self._processes = []
        self._display = None
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        kept = {name: os.environ[name] for name in ("PATH", "LD_LIBRARY_PATH", "QT_SCALE_FACTOR") if name in os.environ}
        sanitizers = {name: text for name, text in os.environ.items() if name.endswith("SAN_OPTIONS")}
        self.environment = kept | sanitizers | {
            "HOME": str(self.folder),
            "XDG_RUNTIME_DIR": str(runtime),
            "LC_ALL": "C.UTF-8",
            "TZ": "Pacific/Apia",
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        number = self._answer(["Xvfb", "-displayfd", "{fd}", "-screen", "0", f"{self.size[0]}x{self.size[1]}x24", "-nolisten", "tcp", "-noreset"])
        self.environment["DISPLAY"] = f":{number}"
        bus = f"--address=unix:path={runtime}/bus"  # below our folder, which a changed root can be given
        address = self._answer(["dbus-daemon", "--session", "--nofork", "--print-address={fd}", bus])
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        bus = ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus"]
        self.run(bus + ["org.a11y.Bus.GetAddress"])
        self._start(["openbox", "--sm-disable"])
        wait_for(lambda: "_NET_NUMBER_OF_DESKTOPS(CARDINAL)" in self.run(["xprop", "-root"]), "the window manager")
        wait_for(self._is_managed, "the window manager's answer")

    def _is_managed(self):
        """Asks for a single desktop, and whether that is so. What reaches openbox before its main loop runs lies in its
        queue until the next event comes, a window that wants to be shown too: only an answer says that it listens."""
        self.run(["xdotool", "set_num_desktops", "1"])
        return self.run(["xdotool", "get_num_desktops"]).strip() == "1"

    def _start(self, command, **options):
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, "env": self.environment}
        process = start(command, **(quiet | options))
        self._processes.append(process)
        return process

    def end_display(self):
        """Kills the X server, as a crash of it would."""
        self._processes[0].kill()

    def _answer(self, command):
        """Starts a server that writes one line, its name, to the file descriptor given in place of {fd}."""
        reading, writing = os.pipe()
        self._start([part.replace("{fd}", str(writing)) for part in command], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            return pipe.readline().strip()

    def run(self, command, **options):
        """Runs a small tool on this desktop and gives what it printed."""
        done = subprocess.run(command, env=self.environment, check=True, capture_output=True, text=True, timeout=20, **options)
        return done.stdout

    def clipboard(self):
        """The plain text that the clipboard's owner hands out; empty without an owner."""
        done = subprocess.run(
            ["xclip", "-selection", "clipboard", "-out"], env=self.environment, capture_output=True, text=True, timeout=20
        )
        return done.stdout

    def set_clipboard(self, text):
        """Offers a text to paste. xclip stays behind as its owner and must not hold our pipes open."""
        subprocess.run(
            ["xclip", "-selection", "clipboard", "-in"],
            env=self.environment, check=True, input=text, text=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )

    def screenshot(self, path, window="root"):
        """Writes a PNG of a window, or of the whole screen."""
        pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
        self.run(["import", "-window", str(window), f"png:{path}"])

    def pixels(self, left=0, top=0, width=None, height=None):
        """What a part of the screen shows, as raw bytes to compare; the whole screen unless told otherwise."""
        from Xlib import X, display

        if not self._display:
            self._display = display.Display(self.environment["DISPLAY"])
        root = self._display.screen().root
        return root.get_image(left, top, width or self.size[0], height or self.size[1], X.ZPixmap, 0xFFFFFF).data

    @contextlib.contextmanager
    def portal(self, appearance):
        """A settings portal that prefers "dark" or "light". Gives a function that changes its mind."""
        command = ["/usr/bin/python3", pathlib.Path(__file__).parent / "portal.py", appearance]
        process = self._start(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        assert process.stdout.readline() == "ready\n"

        def change(other):
            process.stdin.write(other + "\n")
            process.stdin.flush()

        try:
            yield change
        finally:
            process.kill()
            process.communicate()
            self._processes.remove(process)

    def close(self):
        """Ends every server, the newest first."""
        for process in reversed(self._processes):
            process.terminate()
            process.wait()
        self._folder.cleanup()
