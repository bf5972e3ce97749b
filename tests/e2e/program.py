"""The program as a person has it: found on the accessibility bus by its words, driven by keys and mouse."""

import contextlib
import os
import pathlib
import signal
import subprocess
import time

import desktop

Role = None  # pyatspi may be loaded only once a desktop's environment is in force, see load()
_atspi = None
_listeners = []
_last_focused = None
_heard = []  # what a screen reader would have said by itself: ("focus" or "notification", name)
_scale = 1


def load(environment):
    """Connects this process to the desktop's accessibility bus. Nothing is cached: what is read is what is shown."""
    global Role, _atspi, _scale
    os.environ.update(environment)
    _scale = float(environment.get("QT_SCALE_FACTOR", 1))
    time.tzset()
    import pyatspi
    from gi.repository import Atspi

    Role, _atspi = Atspi.Role, Atspi
    pyatspi.Registry.getDesktop(0).set_cache_mask(Atspi.Cache.NONE)
    for listener, event in [(_remember_focus, "focused"), (_hear_notification, "showing")]:
        _listeners.append(Atspi.EventListener.new(listener))
        _listeners[-1].register(f"object:state-changed:{event}")


def _remember_focus(event):
    global _last_focused
    if event.detail1:
        _last_focused = event.source
        with contextlib.suppress(Exception):  # a thing that is gone says nothing
            _heard.append(("focus", event.source.get_name()))


def _hear_notification(event):
    """Of what comes into view away from the focus, readers speak notifications and nothing else."""
    with contextlib.suppress(Exception):
        if event.detail1 and event.source.get_role() == Role.NOTIFICATION:
            _heard.append(("notification", event.source.get_name()))


def _hear_events():
    from gi.repository import GLib

    while GLib.MainContext.default().iteration(False):
        pass


class Item:
    """One thing on the screen."""

    def __init__(self, accessible):
        self._accessible = accessible

    @property
    def name(self):
        return self._accessible.get_name() or ""

    @property
    def description(self):
        return self._accessible.get_description() or ""

    @property
    def role(self):
        return self._accessible.get_role_name()

    @property
    def text(self):
        """What a text field or text view holds."""
        content = self._accessible.get_text_iface()
        return content.get_text(0, content.get_character_count()) if content else ""

    @property
    def children(self):
        accessibles = (self._accessible.get_child_at_index(i) for i in range(self._accessible.get_child_count()))
        return [Item(accessible) for accessible in accessibles if accessible]

    @property
    def frame(self):
        """Left, top, width and height in pixels of the screen. Qt tells them before they are scaled."""
        box = self._accessible.get_extents(_atspi.CoordType.SCREEN)
        return tuple(round(part * _scale) for part in (box.x, box.y, box.width, box.height))

    @property
    def centre(self):
        left, top, width, height = self.frame
        return left + width // 2, top + height // 2

    @property
    def states(self):
        return {state.value_nick for state in self._accessible.get_state_set().get_states()}

    def has(self, state):
        return state in self.states

    def walk(self):
        """Itself and everything below it that is showing, in the order of the screen reader."""
        if self.has("showing"):
            yield self
            for child in self.children:
                yield from child.walk()

    def __eq__(self, other):
        return isinstance(other, Item) and self._accessible == other._accessible

    def __repr__(self):
        return f"{self.role} “{self.name}”"


class Program:
    """One run of the program. `words` are looked for in names first, then in what text fields hold."""

    def __init__(self, screen, arguments=(), **environment):
        self.screen = screen
        self.log = open(screen.folder / "program.log", "a+")
        command = [os.environ["ZELTA_PROGRAM"], *arguments]
        self.process = desktop.start(
            command, env=screen.environment | environment, stdout=self.log, stderr=self.log, stdin=subprocess.DEVNULL
        )
        try:
            desktop.wait_for(self.root, "the program's window on the accessibility bus", 30)
            self.wait_until_focused()
        except AssertionError as trouble:
            status, tree = self.process.poll(), screen.run(["xwininfo", "-root", "-tree"])
            self.process.kill()
            said = pathlib.Path(self.log.name).read_text()
            raise AssertionError(f"{trouble}; exit status {status}, it said “{said}”, the X server has\n{tree}") from None

    def wait_until_focused(self):
        """Keys sent before the window manager has given us the focus would go nowhere."""
        desktop.wait_for(lambda: self.root() and self.root().has("active"), "the window in front", 30)

    def heard(self):
        """What a screen reader would have said by itself since the last time that this was asked."""
        _hear_events()
        words = _heard[:]
        _heard.clear()
        return words

    # What is there

    def _application(self):
        everything = _atspi.get_desktop(0)
        for index in range(everything.get_child_count()):
            application = everything.get_child_at_index(index)
            if application and application.get_process_id() == self.process.pid:
                return Item(application)
        return None

    def windows(self):
        """Every window that shows, dialogs among them; the newest last. Menus that open at the pointer are none to Qt."""
        application = self._application()
        return [window for window in application.children if window.has("showing")] if application else []

    def root(self):
        """The main window."""
        return next((window for window in self.windows() if window.role == "frame"), None)

    def shown(self):
        """Everything on the screen, of all windows."""
        return [item for window in self.windows() for item in window.walk()]

    def find(self, words, role=None, within=None):
        """The first thing that shows and is called `words`, or nothing."""
        for item in within.walk() if within else self.shown():
            if item.name == words and role in (None, item.role):
                return item
        return None

    def texts(self, within=None):
        """Every word on the screen: names of things, and what text fields hold."""
        items = within.walk() if within else self.shown()
        return [text for item in items for text in dict.fromkeys((item.name, item.text)) if text]

    def focused(self):
        """What the keyboard talks to: what said so last, or else what a search finds."""
        _hear_events()
        if _last_focused:
            item = Item(_last_focused)
            try:
                if item.has("focused") and _last_focused.get_process_id() == self.process.pid:
                    return item
            except Exception:  # a thing that is gone says nothing
                pass
        return next((item for item in self.shown() if item.has("focused")), None)

    # Waiting

    def wait(self, words, role=None, seconds=10, within=None):
        """Waits until something called `words` shows."""
        return desktop.wait_for(lambda: self.find(words, role, within), f"“{words}” on the screen", seconds)

    def wait_all(self, names, seconds=10):
        """Waits until things of all these names show at once."""
        missing = set(names)

        def there():
            missing.clear()
            missing.update(set(names) - {item.name for item in self.shown()})
            return not missing

        desktop.wait_for(there, f"on the screen: {missing}", seconds)

    def wait_gone(self, words, role=None, seconds=10):
        desktop.wait_for(lambda: not self.find(words, role), f"“{words}” gone from the screen", seconds)

    def wait_text(self, words, seconds=10):
        """Waits until `words` can be read anywhere, in a text field too."""
        desktop.wait_for(lambda: words in self.texts(), f"“{words}” to read", seconds)

    # Doing

    def key(self, *names):
        """Presses keys by their X names: "Return", "ctrl+1"."""
        self.screen.run(["xdotool", "key", "--delay", "15", *names])

    def type(self, text):
        """Types Latin text. Other scripts are pasted, see `paste`: the test's keyboard has no keys for them."""
        self.screen.run(["xdotool", "type", "--delay", "15", "--", text])

    def paste(self, text):
        self.screen.set_clipboard(text)
        desktop.wait_for(lambda: self.screen.clipboard() == text, "the text to paste")
        self.key("ctrl+v")

    def click(self, thing, role=None, button=1, within=None):
        """Clicks in the middle of something, given by its words or found already."""
        item = thing if isinstance(thing, Item) else self.wait(thing, role, within=within)
        self.reveal(item)
        x, y = item.centre
        self.screen.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)])
        return item

    def reveal(self, item):
        """Turns the wheel over the page until something further down or up lies in the window."""
        left, top, width, height = self.root().frame
        while not top <= item.centre[1] <= top + height:
            before, wheel = item.centre, "5" if item.centre[1] > top else "4"
            self.screen.run(["xdotool", "mousemove", str(left + width - 100), str(top + height // 2), "click", wheel])
            desktop.wait_for(lambda: item.centre != before, f"the page to scroll towards {item}")

    def fill(self, name, text):
        """Clicks a text field, empties it and types into it."""
        self.click(name, "text")
        desktop.wait_for(lambda: self.find(name, "text").has("focused"), f"the focus in “{name}”")
        self.key("ctrl+a", "BackSpace")
        self.type(text)
        desktop.wait_for(lambda: self.find(name, "text").text == text, f"“{text}” in “{name}”")

    def go(self, title):
        """Shows a page by its menu shortcut, as the "Go" menu lists them."""
        pages = ["Calculator", "Percentage", "Converter", "Calendar", "Notes", "Days Between", "History", "Settings"]
        self.key(f"ctrl+{pages.index(title) + 1}")
        desktop.wait_for(lambda: title in self.root().name, f"the window called “{title}”")

    # Ending

    def kill(self):
        """Pulls the plug: SIGKILL, nothing can be saved any more."""
        self.process.kill()
        self.process.wait()

    def end(self, how=signal.SIGTERM):
        """Asks politely, and gives the exit status."""
        self.process.send_signal(how)
        return self.process.wait(10)

    def close(self):
        if self.process.poll() is None:
            self.kill()
        self.log.close()


def database(screen):
    """Where the program keeps everything unless told otherwise."""
    return pathlib.Path(screen.environment["HOME"]) / ".local/share/Zelta Basic/zelta-basic.sqlite"
