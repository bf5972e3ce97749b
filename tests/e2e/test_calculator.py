"""The main job: calculate, save, and find it again after the power went."""

import time

import scenario


class Calculator(scenario.Scenario):
    def test_a_saved_result_survives_a_kill(self):
        app = self.start()
        app.type("12+3")
        app.key("Return")
        app.wait_text("15")
        app.wait("12 + 3 = 15")

        before = time.monotonic()
        self.hears(lambda: app.click("Save to history", "push button"), "Saved to history")
        self.assertEqual(self.rows(), [("calculator", "12 + 3", "Result: 15", "Result: 15")])
        app.wait_gone("Saved to history")
        self.assertGreater(time.monotonic() - before, 1.5)

        app.go("History")
        app.wait("1 saved")
        app.wait("12 + 3")
        app.kill()

        app = self.start()
        app.wait("1 saved")
        app.wait("12 + 3")
        app.wait("Result: 15")
        self.assertEqual(len(self.rows()), 1)

    def rows(self):
        with self.database() as file:
            return file.execute("SELECT module, title, summary, detail FROM history").fetchall()


if __name__ == "__main__":
    scenario.main()
