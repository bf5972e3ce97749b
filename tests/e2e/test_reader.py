"""What a screen reader says by itself: where the focus goes, and what comes into view elsewhere."""

import scenario


class Reader(scenario.Scenario):
    def test_the_calculator(self):
        app = self.start()
        for keys, words in [("12+3=", "15"), ("=", "18"), ("n", "-18"), ("/0=", "Cannot divide by zero")]:
            heard = self.hears(lambda: app.type(keys), words)
            self.assertEqual(heard, [("notification", words)], f"{keys}: digits are repeated by the reader itself")
        self.hears(lambda: app.key("ctrl+c"), "Copied")
        self.hears(lambda: app.key("ctrl+c"), "Copied")
        self.hears(lambda: app.click("Save to history"), "Saved to history")

    def test_the_month(self):
        app = self.start(TZ="Europe/Paris")
        app.go("Calendar")
        title = next(item.name for item in app.shown() if item.role == "notification" and item.name[-4:].isdigit())
        app.key("Right")
        self.wait_for(lambda: title not in [item.name for item in app.shown()], "another month")
        self.hears(lambda: app.key("Left"), title)

    def test_a_warning(self):
        app = self.start()
        app.go("Percentage")
        self.hears(lambda: app.fill("Value X", "many"), "Not a number")
        app.go("Days Between")
        self.hears(lambda: app.fill("Start date, month", "13"), "Not a real date")

    def test_a_search_is_typed_in_peace(self):
        """The list selects another note with each letter, but it has not got the focus."""
        app = self.start()
        app.go("Notes")
        for text in ["plum", "pear"]:
            app.click("New note")
            app.type(text)
        app.click("Search notes", "text")
        self.wait_for(lambda: app.find("Search notes", "text").has("focused"), "the field to have the focus")
        heard = self.hears(lambda: app.type("plx"), "No matches")
        self.assertEqual([name for kind, name in heard if kind == "focus"], [])


if __name__ == "__main__":
    scenario.main()
