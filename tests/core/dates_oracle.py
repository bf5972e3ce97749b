"""Dates as Python's datetime and zoneinfo see them. One question per line, one answer per line:

zones                              every zone of the system's database
grid ZONE YEAR MONTH TODAY RULE    the month's rows, "WEEK:KEY[pwt],..." separated by blanks
span ZONE FROM TO INCLUDE RULE     total, years, months, days, total months, weekend days, elapsed seconds
changes ZONE FROMYEAR TOYEAR       days around each change of the clocks with their first moment, "KEY=SECONDS"
text ZONE SECONDS                  day key, full date, long date, 24-hour clock, 12-hour clock, separated by "|"

Days are written 2026-03-07, rules as the weekend's weekday numbers (1 = Sunday), "-" for none.
"""
import calendar
import sys
from datetime import date, datetime, timedelta, timezone
from functools import lru_cache
from zoneinfo import ZoneInfo, available_timezones

UTC = timezone.utc
EPOCH = datetime(1970, 1, 1, tzinfo=UTC)
SECOND = timedelta(seconds=1)
CYCLE_YEARS, CYCLE_DAYS = 400, 146097  # the Gregorian calendar repeats itself after this


@lru_cache(None)
def zone(name):
    return ZoneInfo(name)


def seconds(moment):
    return (moment - EPOCH) // SECOND


def moment(naive, tz, fold=0):
    return naive.replace(tzinfo=tz, fold=fold).astimezone(UTC)


def shows(instant, tz):
    return instant.astimezone(tz).replace(tzinfo=None)


def first_of(day, tz):
    """First moment of a civil day, or None where the zone skipped the whole day."""
    midnight = datetime(day.year, day.month, day.day)
    after = moment(midnight, tz)
    if shows(after, tz) == midnight:
        return after
    before = moment(midnight, tz, fold=1)
    offset = before.astimezone(tz).utcoffset()
    low, high = seconds(before), seconds(after)
    while high - low > 1:
        middle = (low + high) // 2
        if (EPOCH + middle * SECOND).astimezone(tz).utcoffset() == offset:
            low = middle
        else:
            high = middle
    jump = EPOCH + high * SECOND
    return jump if shows(jump, tz).date() == day else None


@lru_cache(None)
def skipped_days(name):
    """The whole days that a zone left out; they all fell between 1840 and 2020."""
    tz = zone(name)
    skipped = set()
    day = date(1840, 1, 1)
    while day.year < 2020:
        noon = datetime(day.year, day.month, day.day, 12)
        if shows(moment(noon, tz), tz).date() != day:
            skipped.add(day)
        day += timedelta(1)
    return skipped


def weekday(day):
    return day.isoweekday() % 7 + 1


def key(day, cycles):
    return f"{day.year + cycles * CYCLE_YEARS:04d}-{day.month:02d}-{day.day:02d}"


def rule_of(text):
    return set() if text == "-" else {int(digit) for digit in text}


def grid(name, year, month, today, rule):
    cycles = 1 if year == 9999 else 0  # December 9999 ends in a week of the year 10000
    weekend = rule_of(rule)
    skipped = skipped_days(name)
    rows = []
    for week in calendar.Calendar(0).monthdatescalendar(year - cycles * CYCLE_YEARS, month):
        cells = []
        for day in week:
            if cycles == 0 and day in skipped:
                continue
            text = key(day, cycles)
            marks = ("p" if day.month == month else "") + ("w" if weekday(day) in weekend else "")
            cells.append(text + marks + ("t" if text == today else ""))
        rows.append(f"{week[0].isocalendar()[1]}:" + ",".join(cells))
    return " ".join(rows)


def plus_months(day, count):
    index = day.year * 12 + day.month - 1 + count
    year, month = index // 12, index % 12 + 1
    return date(year, month, min(day.day, calendar.monthrange(year, month)[1]))


def parse(text):
    return date(*map(int, text.split("-")))


def span(name, start, end, include, rule):
    tz = zone(name)
    start, end = sorted((parse(start), parse(end)))
    first, last = first_of(start, tz), first_of(end, tz)
    if include == "1":
        # The same time on the wall a day later; a jump may have moved the day's start, and may move this.
        naive = shows(last, tz) + timedelta(1)
        later = moment(naive, tz)
        if shows(later, tz) != naive:
            later = first_of(naive.date(), tz)
        if later is not None:
            last, end = later, end + timedelta(1)
    months = (end.year - start.year) * 12 + end.month - start.month
    while plus_months(start, months) > end:
        months -= 1
    weekend = 0
    for number in rule_of(rule):
        # Ordinal 1 was a Monday, so a day's ordinal modulo 7 is its weekday number less 1.
        weekend += (end.toordinal() - number) // 7 - (start.toordinal() - number) // 7
    rest = (end - plus_months(start, months)).days
    return " ".join(map(str, ((end - start).days, months // 12, months % 12, rest, months, weekend,
                              (last - first) // SECOND)))


def changes(name, from_year, to_year):
    tz = zone(name)
    week = timedelta(7)
    answers = []
    instant, stop = datetime(from_year, 1, 1, tzinfo=UTC), datetime(to_year, 1, 1, tzinfo=UTC)
    offset = instant.astimezone(tz).utcoffset()
    while instant < stop:
        after = instant + week
        new_offset = after.astimezone(tz).utcoffset()
        if new_offset != offset:
            low, high = instant, after
            while high - low > timedelta(days=1):
                middle = low + (high - low) / 2
                low, high = (middle, high) if middle.astimezone(tz).utcoffset() == offset else (low, middle)
            for days in range(-1, 4):
                day = shows(low, tz).date() + timedelta(days)
                begin = first_of(day, tz)
                answers.append(f"{day}={'none' if begin is None else seconds(begin)}")
        instant, offset = after, new_offset
    return " ".join(answers)


def text(name, count):
    local = (EPOCH + count * SECOND).astimezone(zone(name))
    long_date = f"{local:%A}, {local.day} {local:%B} {local.year}"
    full_date = f"{local:%a}, {local.day:02d} {local:%b} {local.year:04d}"
    clock12 = f"{(local.hour + 11) % 12 + 1}:{local:%M:%S} {'AM' if local.hour < 12 else 'PM'}"
    return "|".join((key(local, 0), full_date, long_date, f"{local:%H:%M:%S}", clock12))


def answer(words):
    if words[0] == "zones":
        return " ".join(sorted(available_timezones()))
    if words[0] == "grid":
        return grid(words[1], int(words[2]), int(words[3]), words[4], words[5])
    if words[0] == "span":
        return span(*words[1:])
    if words[0] == "changes":
        return changes(words[1], int(words[2]), int(words[3]))
    return text(words[1], int(words[2]))


for line in sys.stdin:
    print(answer(line.split()))
