"""With the keyboard alone: every control is reached by Tab in reading order, shows that it has the focus, and has words."""

import datetime
import re

import scenario

KEYS = (
    "Delete the last digit|Clear everything and start again|Percent|Divide|7|8|9|Multiply|4|5|6|Subtract|1|2|3|Add|"
    "Change the sign|0|Decimal point|Equals"
).split("|")
TODAY = "today"  # stands for how the name of that day begins
# The stops of each page as it opens in an empty home, in order. A stop is named by how its name begins.
STOPS = {
    "Calculator": ["Display", *KEYS, "Save to history"],
    "Percentage": ["X is what % of Y", "Value X", "Value Y", "Swap X and Y"],
    "Converter": [
        "Length", "Amount", "Mile", "Swap the two units", "Kilometre",
        "1 mi = 1.609344 km", "1 ft = 0.3048 m", "1 in = 2.54 cm", "1 nmi = 1.852 km", "1 yd = 0.9144 m",
    ],
    "Calendar": ["Previous month", "Today", "Next month", TODAY, TODAY],
    "Notes": ["New note", "Search notes"],
    "History": [],
    "Days Between": [
        "Start date, day", "Start date, month", "Start date, year", "Pick from a calendar", "Today", TODAY,
        "End date, day", "End date, month", "End date, year", "Pick from a calendar", "Today", TODAY,
        "Include the end date", "Swap the start and end dates", "Today", "7 days", "30 days", "90 days", "1 year",
        "Total days", "Calendar breakdown", "Workdays", "From", "To", "Weeks and days", "Total weeks", "Total months",
        "Weekend days", "Hours", "Minutes", "Seconds", "Copy all results", "Save to history",
    ],
    "Settings": ["Saturday & Sunday", "Show times in 24-hour format"],
}


class Keyboard(scenario.Scenario):
    def walk(self, app, page):
        """Tab by Tab once around the window. Gives the stops' names, beginning after the sidebar's row of the page."""
        names, seen = [], []
        app.key("Tab")  # showing the page may have moved the focus; from here on only Tab does
        self.moved(app, None)
        while True:
            before = self.screen.pixels()
            last = app.focused()
            app.key("Tab")
            item = self.moved(app, last)
            if item in seen:
                break
            seen.append(item)
            names.append(item.name)
            if item != last:
                self.wait_for(lambda: self.changed(before, item.frame), f"{item} to show that it has the focus")
            self.assertLess(len(seen), 100)
        self.assertIn(page, names, "the sidebar is a stop")
        sidebar = names.index(page)
        return names[sidebar + 1 :] + names[:sidebar]

    def moved(self, app, last):
        """What has the focus after Tab. On a page with a single stop that is the same as before."""

        def other():
            item = app.focused()
            return item if item and item != last else None

        try:
            return self.wait_for(other, "the focus to move on", 2)
        except AssertionError:
            return last

    def changed(self, before, frame):
        """Whether the picture differs inside the frame."""
        after, (left, top, width, height) = self.screen.pixels(), frame
        rows = range(max(top, 0), min(top + height, 1000))
        return any(
            before[4 * (1400 * row + left) : 4 * (1400 * row + left + width)]
            != after[4 * (1400 * row + left) : 4 * (1400 * row + left + width)]
            for row in rows
        )

    def walks(self):
        """The stops of all pages as they open on one day; a walk that midnight comes into begins again."""
        while True:
            day, app, walks = datetime.date.today(), self.start(), {}
            for page in STOPS:
                app.go(page)
                walks[page] = self.walk(app, page)
            if datetime.date.today() == day:
                return walks, f"{day:%A}, {day.day} "
            app.close()

    def test_every_stop_in_order(self):
        walks, today = self.walks()
        for page, stops in STOPS.items():
            names = walks[page]
            with self.subTest(page=page):
                self.assertEqual(len(names), len(stops), names)
                for name, stop in zip(names, stops):
                    self.assertTrue(name.startswith(today if stop is TODAY else stop), f"{name} in place of {stop}: {names}")

    def test_every_control_has_a_role_and_words(self):
        app = self.start()
        for page in STOPS:
            app.go(page)
            for item in app.shown():
                if item.has("focusable"):
                    with self.subTest(page=page, item=repr(item), frame=item.frame):
                        self.assertNotIn(item.role, ["unknown", "invalid", "filler", "panel"])
                        self.assertRegex(item.name, re.compile(r"\w"))

    def test_a_keyboard_whose_digits_take_shift(self):
        app = self.start()
        self.addCleanup(self.screen.run, ["setxkbmap", "us"])
        self.screen.run(["setxkbmap", "fr"])
        for key, page in [("eacute", "Percentage"), ("underscore", "Settings"), ("ampersand", "Calculator")]:
            app.key(f"ctrl+{key}")
            self.wait_for(lambda: page in app.root().name, f"{page} by Ctrl+{key}")

    def tab_to(self, app, name):
        """Presses Tab until something called `name` has the focus."""
        for _ in range(60):
            last = app.focused()
            if last and last.name.startswith(name):
                return
            app.key("Tab")
            self.moved(app, last)
        self.fail(f"Tab never comes to “{name}”")

    def test_the_calculator_by_tab_and_space(self):
        app = self.start()
        app.type("12+3")
        self.tab_to(app, "Equals")
        app.key("space")
        app.wait("12 + 3 = 15")
        self.tab_to(app, "Save to history")
        self.hears(lambda: app.key("space"), "Saved to history")
        self.tab_to(app, "Calculator")
        app.key("Down")
        app.wait("Type two numbers to compare them.")

    def test_percentages_and_units_by_tab_and_space(self):
        app = self.start()
        app.go("Percentage")
        self.tab_to(app, "Value X")
        app.type("50")
        app.key("Tab")
        app.type("75")
        self.tab_to(app, "X is this much of Y: 66.6667%")
        app.key("Return")
        self.wait_for(lambda: self.screen.clipboard() == "66.6667%", "the value on the clipboard")
        self.tab_to(app, "Save to history")
        self.hears(lambda: app.key("space"), "Saved to history")
        self.tab_to(app, "X is what % of Y")
        app.key("Right")
        app.wait("Enter a value and a percentage.")

        app.go("Converter")
        self.tab_to(app, "Amount")
        app.type("5")
        self.tab_to(app, "Swap the two units")
        app.key("space")
        app.wait("5 km in mile: 3.106856 mi")

    def test_dates_by_tab_and_space(self):
        app = self.start()
        app.go("Calendar")
        today = datetime.date.today()
        self.tab_to(app, f"{today:%A}, {today.day} ")
        app.key("ctrl+Right")
        morrow = today + datetime.timedelta(days=1)
        words = f"{morrow:%A}, {morrow.day} {morrow:%B %Y}"
        app.wait(words)
        app.key("Tab", "space")
        self.wait_for(lambda: self.screen.clipboard() == words, "the date on the clipboard")

        app.go("Days Between")
        self.tab_to(app, "7 days")
        app.key("space")
        app.wait("Total days: 7 (end date not included)")
        self.tab_to(app, "Include the end date")
        app.key("space")
        app.wait("Total days: 8 (end date included)")

        app.go("Settings")
        self.tab_to(app, "Saturday & Sunday")
        app.key("End")
        app.wait("No weekend (7-day week), 12-hour clock")
        self.tab_to(app, "Show times in 24-hour format")
        app.key("space")
        app.wait("No weekend (7-day week), 24-hour clock")

    def test_history_by_tab_and_space(self):
        app = self.start()
        app.type("1+1=")
        self.tab_to(app, "Save to history")
        self.hears(lambda: app.key("space"), "Saved to history")
        app.go("History")
        self.tab_to(app, "Show details")
        app.key("space")
        app.wait("Hide details")
        self.tab_to(app, "Copy the full result")
        app.key("space")
        self.wait_for(lambda: self.screen.clipboard().startswith("Result: 2"), "the result on the clipboard")
        self.tab_to(app, "Clear history")
        app.key("space")
        app.wait("Clear the whole history?")
        app.key("Return")  # the default is Cancel: Return never destroys
        app.wait_gone("Clear the whole history?")
        app.wait("1 saved")
        self.tab_to(app, "Delete this entry")
        app.key("space")
        app.wait("Nothing saved yet")

    def test_notes_by_tab_and_space(self):
        app = self.start()
        app.go("Notes")
        self.tab_to(app, "New note")
        app.key("space")
        self.tab_to(app, "Add paragraph")
        app.key("space")
        self.tab_to(app, "Undo the last change to this note")
        self.hears(lambda: app.key("space"), "Undone")


if __name__ == "__main__":
    scenario.main()
