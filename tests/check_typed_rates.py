#!/usr/bin/env python3
"""Checks README.md's table of rates to type for delays that the bank regimes do not cover.

Government regulations 33/2010, 180/2013 and 351/2013 Sb.: the repo rate of the last day before the
half-year in which the delay began and 7 points, from the 2nd half of 2013 on and 8; from 2014 on the rate
of the half-year's first day and 8 points.
"""

import csv
import datetime
import decimal
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HALF = r"(1st|2nd) half (\d{4})"
ROW = re.compile(rf"{HALF}(?: – {HALF})? \| (\d+,\d\d) ")


def repo_rate(changes, day):
    return [rate for valid_from, rate in changes if valid_from <= day][-1]


def lawful_rate(changes, year, half):
    first = datetime.date(year, 1 if half == 1 else 7, 1)
    if year >= 2014:
        return repo_rate(changes, first) + 8
    points = 8 if (year, half) == (2013, 2) else 7
    return repo_rate(changes, first - datetime.timedelta(days=1)) + points


def main():
    with open(ROOT / "data" / "repo.csv", encoding="ascii") as file:
        changes = [
            (datetime.date.fromisoformat(row["effective_from"]), decimal.Decimal(row["repo_rate"]))
            for row in csv.DictReader(file)
        ]
    seen = []
    wrong = []
    for match in ROW.finditer((ROOT / "README.md").read_text(encoding="utf-8")):
        first_half, first_year, last_half, last_year, text = match.groups()
        begin = int(first_year) * 2 + (first_half == "2nd")
        end = int(last_year) * 2 + (last_half == "2nd") if last_year else begin
        stated = decimal.Decimal(text.replace(",", "."))
        for number in range(begin, end + 1):
            year, half = divmod(number, 2)
            seen.append(number)
            rate = lawful_rate(changes, year, half + 1)
            if rate != stated:
                wrong.append(f"{year}, half {half + 1}: README says {stated}, the law {rate}")
    if sorted(seen) != list(range(2010 * 2 + 1, 2026 * 2 + 2)):
        wrong.append("the table does not hold every half-year from the 2nd of 2010 to the 2nd of 2026")
    for line in wrong:
        print(line)
    print(f"{len(seen)} half-years, {len(wrong)} mistakes")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
