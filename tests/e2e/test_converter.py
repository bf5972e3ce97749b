"""Units: an amount, two pickers, and a value for the clipboard."""

import scenario


class Converter(scenario.Scenario):
    def test_five_miles_are_converted_and_copied(self):
        app = self.start()
        app.go("Converter")
        app.wait("Type an amount to convert it.")
        app.fill("Amount", "5")
        app.wait("1 mi =: 1.609344 km")
        app.wait("1 km =: 0.6213712 mi")
        app.click("5 mi in kilometre: 8.04672 km")
        self.wait_for(lambda: self.screen.clipboard() == "8.04672 km", "the value on the clipboard")

        app.click("Swap the two units")
        app.wait("5 km in mile: 3.106856 mi")
        app.click("1 ft = 0.3048 m")
        self.wait_for(lambda: self.screen.clipboard() == "1 ft = 0.3048 m", "the reference line on the clipboard")

    def test_the_category_is_found_again(self):
        app = self.start()
        app.go("Converter")
        app.click("Temperature")
        app.wait("37 °C = 98.6 °F")
        app.fill("Amount", "-40")
        app.wait("-40 °C in fahrenheit: -40 °F")
        app.end()

        app = self.start()
        app.wait("37 °C = 98.6 °F")
        with self.database() as file:
            self.assertEqual(file.execute("SELECT count(*) FROM history").fetchone()[0], 0)

    def test_another_unit_is_picked_with_the_keyboard(self):
        app = self.start()
        app.go("Converter")
        app.fill("Amount", "2")
        app.key("Tab", "End")
        app.wait_gone("1 mi =: 1.609344 km")
        app.key("Home")
        app.wait("2 km in kilometre: 2 km")


if __name__ == "__main__":
    scenario.main()
