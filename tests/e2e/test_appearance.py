"""Light and dark as the desktop's settings portal says, while the program runs."""

import scenario


class Appearance(scenario.Scenario):
    def lightness(self, app):
        """The mean of what the window's lower right corner shows, where pages have nothing but paper: 0 to 255."""
        left, top, width, height = app.root().frame
        pixels = self.screen.pixels(left + width - 15, top + height - 15, 8, 8)
        return sum(pixels[0::4]) / len(pixels[0::4])

    def test_the_portal_is_heard_at_the_start_and_later(self):
        with self.screen.portal("dark") as change:
            app = self.start()
            self.wait_for(lambda: self.lightness(app) < 60, "a dark page")
            change("light")
            self.wait_for(lambda: self.lightness(app) > 200, "a light page")
            change("dark")
            self.wait_for(lambda: self.lightness(app) < 60, "a dark page again")

    def test_it_is_light_where_nobody_says_anything(self):
        app = self.start()
        self.wait_for(lambda: self.lightness(app) > 200, "a light page")


if __name__ == "__main__":
    scenario.main()
