#!/usr/bin/env python3
"""Makes cnb.dat and repo.dat, the rate tables that Velta reads, from the published rates beside it.

  make_rate_files.py           writes both files into this folder
  make_rate_files.py --check   writes nothing; tells whether both files are what it would write, and
                               whether the half-years follow from the single changes of the repo rate
"""

import csv
import sys
from datetime import date, timedelta
from decimal import Decimal
from pathlib import Path

FOLDER = Path(__file__).resolve().parent


def read(name):
    """The rows of a source file as (day, rate in per cent)."""
    with open(FOLDER / name, newline="", encoding="ascii") as source:
        rows = [row for row in csv.reader(source)][1:]
    return [(date.fromisoformat(row[0]), Decimal(row[1])) for row in rows]


def rate_text(rate):
    return f"{rate:.2f}".replace(".", ",")


def cnb_lines():
    """Valid from in column 1, to in 20, discount rate in 40, twice of it in 61; the last row is open."""
    rows = read("discount.csv")
    ends = [start - timedelta(days=1) for start, _ in rows[1:]]
    valid_to = [f"{end:%d.%m.%Y}" for end in ends] + [""]
    for (start, rate), end in zip(rows, valid_to, strict=True):
        yield f"{start:%d.%m.%Y}".ljust(19) + end.ljust(20) + rate_text(rate).ljust(21) + rate_text(
            2 * rate
        )


def repo_lines():
    for start, rate in read("repo_halfyear.csv"):
        yield f"{start:%d%m%Y}" + rate_text(rate)


def files():
    for name, lines in (("cnb.dat", cnb_lines()), ("repo.dat", repo_lines())):
        yield FOLDER / name, "".join(line + "\r\n" for line in lines).encode("ascii")


def problems():
    for path, content in files():
        if not path.exists() or path.read_bytes() != content:
            yield f"{path.name} is not what make_rate_files.py writes"
    changes = read("repo.csv")
    for half_year, rate in read("repo_halfyear.csv"):
        in_force = [changed_to for day, changed_to in changes if day <= half_year][-1]
        if in_force != rate:
            yield f"repo_halfyear.csv says {rate} for {half_year}, by repo.csv it is {in_force}"


def main(arguments):
    if arguments == ["--check"]:
        found = list(problems())
        print("\n".join(found) or "cnb.dat and repo.dat follow from the published rates")
        return 1 if found else 0
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    for path, content in files():
        path.write_bytes(content)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
