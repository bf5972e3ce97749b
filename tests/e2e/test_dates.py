"""Calendar, days between and settings, where the clocks change."""

import datetime

import scenario

SPAN = [
    "Total days: 44 (end date not included)",
    "Calendar breakdown: 1 month, 13 days",
    "Workdays: 32 (weekend: Sun + Sat)",
    "From: Monday, 2 March 2026",
    "To: Wednesday, 15 April 2026",
    "Weeks and days: 6 weeks 2 days",
    "Total weeks: 6.2857",
    "Total months: 1 (whole calendar months)",
    "Weekend days: 12",
    "Hours: 1,056",
    "Minutes: 63,360",
    "Seconds: 3,801,600",
    "Daylight-saving shift: −1h 00m 00s (real elapsed time is 43 days, 23h 00m 00s in Europe/Paris)",
]
DETAIL = "\n".join(SPAN).replace(" (", "  (")


class Dates(scenario.Scenario):
    zone = "Europe/Paris"

    def enter(self, app, which, day, month, year):
        for part, text in [("day", day), ("month", month), ("year", year)]:
            app.fill(f"{which}, {part}", text)

    def test_a_span_across_the_clock_change_is_counted_and_saved(self):
        app = self.start()
        app.go("Days Between")
        self.enter(app, "Start date", "02", "03", "2026")
        self.enter(app, "End date", "15", "04", "2026")
        app.wait_all(SPAN)
        self.wait_for(lambda: self.saved() == [("Mon, 02 Mar 2026 → Wed, 15 Apr 2026", DETAIL)], "the save")
        app.go("History")
        app.wait("Mon, 02 Mar 2026 → Wed, 15 Apr 2026")

    def test_the_weekend_rule_counts_at_once(self):
        app = self.start()
        app.go("Days Between")
        self.enter(app, "Start date", "02", "03", "2026")
        self.enter(app, "End date", "15", "04", "2026")
        app.wait(SPAN[2])
        app.go("Settings")
        app.click("Saturday & Sunday", "combo box")
        app.click("No weekend (7-day week)", "list item")
        app.go("Days Between")
        app.wait("Workdays: 44 (weekend: No weekend)")

    def test_a_day_that_does_not_exist_leaves_the_date_in_force(self):
        app = self.start()
        app.go("Days Between")
        self.enter(app, "Start date", "02", "03", "2026")
        self.enter(app, "End date", "31", "04", "2026")
        app.wait("Not a real date")
        app.fill("End date, day", "30")
        app.wait_gone("Not a real date")
        app.wait("To: Thursday, 30 April 2026")
        app.click("Swap the start and end dates")
        app.wait("Direction: End date is before start date (counts are shown as magnitudes)")

    def test_a_date_is_picked_from_the_calendar(self):
        app = self.start()
        app.go("Days Between")
        self.enter(app, "Start date", "15", "12", "2026")
        self.enter(app, "End date", "31", "12", "2027")
        app.click("Pick from a calendar")
        app.wait("December 2026")
        app.click("Next month")
        app.wait("January 2027")
        app.key("Right")  # from the first of the month
        app.wait("From: Saturday, 2 January 2027")
        app.click("Friday, 15 January 2027")
        app.wait("From: Friday, 15 January 2027")
        app.wait_gone("Next month")

    def test_paging_the_month_selects_its_first_day(self):
        app = self.start()
        app.go("Calendar")
        today = datetime.date.today()
        app.wait(f"{today:%B %Y}")
        app.click("Previous month")
        first = (today.replace(day=1) - datetime.timedelta(days=1)).replace(day=1)
        app.wait(f"{first:%B %Y}")
        app.wait(f"{first:%A}, {first.day} {first:%B %Y}")
        app.key("Left")
        earlier = (first - datetime.timedelta(days=1)).replace(day=1)
        app.wait(f"{earlier:%A}, {earlier.day} {earlier:%B %Y}")
        app.key("t")
        app.wait(f"{today:%B %Y}")
        app.wait(f"{today:%A}, {today.day} {today:%B %Y}")

    def saved(self):
        with self.database() as file:
            return file.execute("SELECT title, detail FROM history ORDER BY id DESC LIMIT 1").fetchall()


if __name__ == "__main__":
    scenario.main()
