"""Percentages: typed, answered, saved by themselves, found again."""

import scenario

ANSWERS = [
    "X is this much of Y: 66.6667%",
    "Y is this much of X: 150%",
    "Change X → Y: +50% (increase)",
    "Difference (Y − X): 25",
]
# As they are copied and kept: two blanks before a note.
COPIED = "\n".join(ANSWERS).replace(" (increase)", "  (increase)")


class Percent(scenario.Scenario):
    def test_two_numbers_are_compared_and_saved_by_themselves(self):
        app = self.start()
        app.go("Percentage")
        app.wait("Type two numbers to compare them.")
        app.fill("Value X", "50")
        app.fill("Value Y", "75")
        for answer in ANSWERS:
            app.wait(answer)

        self.wait_for(lambda: self.saved() == 1, "the automatic save")
        app.go("History")
        app.wait("50 compared with 75")
        app.click("Show details")
        app.wait("Hide details")
        app.wait_text(COPIED)

    def test_a_line_is_copied_by_a_click_and_by_the_keyboard(self):
        app = self.start()
        app.go("Percentage")
        app.fill("Value X", "50")
        app.fill("Value Y", "75")
        app.click(ANSWERS[0])
        self.wait_for(lambda: self.screen.clipboard() == "66.6667%", "the value alone on the clipboard")
        button = app.click("Copy all results")
        # Asked of the button itself: half a second is too short for a walk over the whole screen.
        self.wait_for(lambda: button.name == "Copied", "the button that says so")
        self.wait_for(lambda: self.screen.clipboard() == COPIED, "all lines on the clipboard")
        self.wait_for(lambda: button.name == "Copy all results", "the button that can be pressed again")

        app.click("Swap X and Y")
        app.wait("X is this much of Y: 150%")

    def test_nonsense_is_named_and_disturbs_nothing(self):
        app = self.start()
        app.go("Percentage")
        app.fill("Value X", "fifty")
        app.fill("Value Y", "75")
        app.wait("Not a number")
        app.wait("Type two numbers to compare them.")
        app.fill("Value X", "1,5")
        app.wait_gone("Not a number")
        app.wait("X is this much of Y: 2%")

    def test_the_chosen_tab_is_found_again(self):
        app = self.start()
        app.go("Percentage")
        app.click("Increase / decrease")
        app.fill("Value", "200")
        app.fill("Percentage", "15")
        app.wait("Increased by 15%: 230 (+30)")
        app.end()

        app = self.start()
        app.wait("Enter a value and a percentage.")

    def saved(self):
        with self.database() as file:
            return file.execute("SELECT count(*) FROM history").fetchone()[0]


if __name__ == "__main__":
    scenario.main()
