#!/usr/bin/env python3
"""Checks the tables of rates to type: README.md's, and those of the help's page on the lawful rate.

Government regulations 33/2010, 180/2013 and 351/2013 Sb.: the repo rate of the last day before the half-year in
which the delay began and 7 points, from the 2nd half of 2013 on and 8; from 2014 on the rate of the half-year's
first day and 8 points. Regulation 142/1994 Sb., up to 27 April 2005: twice the discount rate of the first day of
delay, where Velta takes that of the due date, the day before.
"""

import csv
import datetime
import decimal
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LAW_PAGE = ROOT / "help" / "zakonna-sazba.html"
FIRST_HALF = 2010 * 2 + 1  # the 2nd of 2010; half-years are counted from the year 0
DISCOUNT_DAYS = (datetime.date(1994, 7, 15), datetime.date(2005, 4, 27))
DAY = datetime.timedelta(days=1)

README_HALF = r"(1st|2nd) half (\d{4})"
README_ROW = re.compile(rf"{README_HALF}(?: – {README_HALF})? \| (\d+,\d\d) ")
DATE = r"(\d+\.\d+\.\d{4})"
RATE = r'<td class="cislo">([\d,]+)</td>'
HELP_ROW = re.compile(rf"<tr><td>{DATE} – {DATE}</td><td>{DATE} – {DATE}</td>{RATE}</tr>")
EVE_ROW = re.compile(rf"<tr><td>{DATE}</td>{RATE}{RATE}</tr>")


def read_changes(name):
    with open(ROOT / "data" / name, encoding="ascii") as file:
        rows = list(csv.reader(file))[1:]
    return [(datetime.date.fromisoformat(row[0]), decimal.Decimal(row[1])) for row in rows]


def rate_on(changes, day):
    return [rate for valid_from, rate in changes if valid_from <= day][-1]


def number(text):
    return decimal.Decimal(text.replace(",", "."))


def date(text):
    day, month, year = map(int, text.split("."))
    return datetime.date(year, month, day)


def half_of(day):
    return day.year * 2 + (day.month > 6)


def first_day(half):
    return datetime.date(half // 2, 1 if half % 2 == 0 else 7, 1)


def lawful_rate(repo, half):
    first = first_day(half)
    if first.year >= 2014:
        return rate_on(repo, first) + 8
    return rate_on(repo, first - DAY) + (8 if first == datetime.date(2013, 7, 1) else 7)


def readme_rates():
    """(first half-year, last half-year, rate) of each row of the README's table"""
    for match in README_ROW.finditer((ROOT / "README.md").read_text(encoding="utf-8")):
        first_half, first_year, last_half, last_year, rate = match.groups()
        begin = int(first_year) * 2 + (first_half == "2nd")
        yield begin, int(last_year) * 2 + (last_half == "2nd") if last_year else begin, number(rate)


def help_rates(wrong):
    """The same of the help's table, whose rows name first and last day, of delay and of due dates"""
    for match in HELP_ROW.finditer(LAW_PAGE.read_text(encoding="utf-8")):
        due_from, due_to, begin, end = map(date, match.groups()[:4])
        first, last = half_of(begin), half_of(end)
        if begin != first_day(first) or end != first_day(last + 1) - DAY:
            wrong.append(f"{LAW_PAGE.name}: {begin} - {end} are not whole half-years")
        if (due_from, due_to) != (begin - DAY, end - DAY):
            wrong.append(f"{LAW_PAGE.name}: due dates {due_from} - {due_to} do not lead to {begin} - {end}")
        yield first, last, number(match[5])


def check_rates(where, rows, repo, wrong):
    last_half = half_of(read_changes("repo_halfyear.csv")[-1][0])
    seen = []
    for begin, end, stated in rows:
        for half in range(begin, end + 1):
            seen.append(half)
            rate = lawful_rate(repo, half)
            if rate != stated:
                wrong.append(f"{where}, half-year from {first_day(half)}: {stated}, the law says {rate}")
    if sorted(seen) != list(range(FIRST_HALF, last_half + 1)):
        wanted = f"from {first_day(FIRST_HALF)} to {first_day(last_half)}"
        wrong.append(f"{where}: the table does not hold every half-year {wanted}")
    return len(seen)


def check_eves(discount, wrong):
    """Due dates on the eve of a change, with the program's rate and the lawful one"""
    wanted = {
        changed - DAY: (2 * before, 2 * rate)
        for (_, before), (changed, rate) in zip(discount, discount[1:])
        if DISCOUNT_DAYS[0] <= changed <= DISCOUNT_DAYS[1]
    }
    stated = {
        date(due): (number(program), number(law))
        for due, program, law in EVE_ROW.findall(LAW_PAGE.read_text(encoding="utf-8"))
    }
    for due in sorted(wanted.keys() | stated.keys()):
        if wanted.get(due) != stated.get(due):
            wrong.append(f"{LAW_PAGE.name}, due {due}: {stated.get(due)}, it should be {wanted.get(due)}")
    return len(stated)


def main():
    repo = read_changes("repo.csv")
    wrong = []
    in_readme = check_rates("README.md", readme_rates(), repo, wrong)
    in_help = check_rates(LAW_PAGE.name, help_rates(wrong), repo, wrong)
    eves = check_eves(read_changes("discount.csv"), wrong)
    for line in wrong:
        print(line)
    print(f"{in_readme} half-years in the README, {in_help} and {eves} eves in the help, {len(wrong)} mistakes")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
