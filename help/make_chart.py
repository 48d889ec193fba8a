#!/usr/bin/env python3
"""Draws the help's chart of both bank rates from the sources of the rate tables.

  make_chart.py DATA OUTPUT.svg

DATA is the folder with discount.csv, repo.csv and repo_halfyear.csv. The same rows give the same file. A rate holds
until the next one; the last of each holds at least until the last half-year's first day.
"""

import csv
import datetime
import pathlib
import sys

DISCOUNT = "#e08a1e"
REPO = "#1f4e79"  # much darker: both differ in grey too
INK = "#1d2935"
PALE_INK = "#5b6b7a"
GRID = "#dde6ee"
AXIS = "#8796a5"

WIDTH, HEIGHT = 620, 340
LEFT, RIGHT, TOP, BOTTOM = 30, 566, 60, 312  # of the plot
RULES_LEFT = 164
ROW = 15  # from a line of text to the next
RATE_STEP = 5  # from a line of the grid to the next, in percentage points
YEAR_STEP = 5
LASTING = 30  # days; a rate that held for less may run out of the plot, all others would be flat below it

# The lawful rate: from which first day of delay on, and what it is; what it was before.
RULES_HEADING = "Zákonná sazba podle dne, kdy prodlení začalo:"
RULE_BEFORE = ["do 27. 4. 2005", "dvojnásobek", "diskontní sazby"]
RULES = [
    (datetime.date(2005, 4, 28), ["repo + 7,", "pohyblivá"]),
    (datetime.date(2010, 7, 1), ["repo + 7, od 1. 7. 2013 repo + 8,", "po celé prodlení stejná"]),
]


def read(path):
    """The day from which it holds and the rate in per cent, for each row."""
    with path.open(encoding="ascii", newline="") as file:
        rows = list(csv.reader(file))[1:]
    return [(datetime.date.fromisoformat(row[0]), float(row[1])) for row in rows]


def periods(table, last):
    """First day, rate, and the next period's first day."""
    ends = [day for day, _ in table[1:]] + [last]
    return [(day, rate, end) for (day, rate), end in zip(table, ends)]


def day_text(day):
    return f"{day.day}. {day.month}. {day.year}"


def rate_text(rate):
    return f"{rate:.2f}".rstrip("0").rstrip(".").replace(".", ",") + " %"


class Chart:
    def __init__(self, discount, repo, last):
        self.first = datetime.date(min(discount + repo)[0].year, 1, 1)
        self.last = last
        self.discount = periods(discount, last)
        self.repo = periods(repo, last)
        lasting = max(rate for day, rate, end in self.discount + self.repo if (end - day).days >= LASTING)
        self.limit = int(lasting // RATE_STEP + 1) * RATE_STEP
        self.parts = []

    def x(self, day):
        return LEFT + (RIGHT - LEFT) * (day - self.first).days / (self.last - self.first).days

    def y(self, rate):
        return BOTTOM - (BOTTOM - TOP) * min(rate, self.limit) / self.limit

    def line(self, points, colour, width, name=""):
        places = " ".join(f"{x:.2f},{y:.2f}" for x, y in points)
        style = f'fill="none" stroke="{colour}" stroke-width="{width}" stroke-linejoin="round"'
        identity = f'id="{name}" ' if name else ""
        self.parts.append(f'<polyline {identity}points="{places}" {style}/>')

    def text(self, x, y, text, colour, anchor="start", weight="normal"):
        style = f'fill="{colour}" text-anchor="{anchor}" font-weight="{weight}"'
        self.parts.append(f'<text x="{x:.2f}" y="{y:.2f}" {style}>{text}</text>')

    def draw_axes(self):
        for rate in range(0, self.limit + 1, RATE_STEP):
            self.line([(LEFT, self.y(rate)), (RIGHT, self.y(rate))], GRID if rate else AXIS, 1)
            self.text(LEFT - 7, self.y(rate) + 4, rate, PALE_INK, "end")
        self.text(2, TOP - 14, "% ročně", PALE_INK)
        for year in range(self.first.year, self.last.year + 1, YEAR_STEP):
            x = self.x(datetime.date(year, 1, 1))
            self.line([(x, BOTTOM), (x, BOTTOM + 5)], AXIS, 1)
            self.text(x, BOTTOM + 19, year, PALE_INK, "middle")

    def draw_rules(self):
        self.text(RULES_LEFT, TOP - 14, RULES_HEADING, INK)
        self.rule(self.x(RULES[0][0]) - 6, RULE_BEFORE, "end")
        for day, rule in RULES:
            place = self.x(day)
            self.line([(place, TOP - 4), (place, BOTTOM)], AXIS, 0.8)
            self.rule(place + 6, [day_text(day), *rule], "start")

    def rule(self, place, words, anchor):
        for row, text in enumerate(words):
            colour, weight = (PALE_INK, "normal") if row else (INK, "bold")
            self.text(place, TOP + (row + 0.7) * ROW, text, colour, anchor, weight)

    def draw_rates(self):
        for name, table, colour in (("discount", self.discount, DISCOUNT), ("repo", self.repo, REPO)):
            points = []
            for day, rate, end in table:
                points += [(self.x(day), self.y(rate)), (self.x(end), self.y(rate))]
            self.line(points, colour, 1.8, name)

    def draw_peak(self):
        """How high the highest rate was, where it runs out of the plot."""
        day, rate, _ = max(self.repo, key=lambda period: period[1])
        if rate > self.limit:
            self.parts.append(f'<path d="M{self.x(day) - 4:.2f} {TOP} h9 l-4.5 -8 z" fill="{REPO}"/>')
            self.text(self.x(day) - 8, TOP + 0.7 * ROW, f"{day_text(day)}: {rate_text(rate)}", REPO, "end")

    def draw_last_rates(self):
        apart = max(ROW - abs(self.y(self.repo[-1][1]) - self.y(self.discount[-1][1])), 0) / 2
        higher = max(self.discount, self.repo, key=lambda table: table[-1][1])
        for table, colour in ((self.discount, DISCOUNT), (self.repo, REPO)):
            y = self.y(table[-1][1]) + (-apart if table is higher else apart)
            self.text(RIGHT + 6, y + 4, rate_text(table[-1][1]), colour, weight="bold")

    def draw_legend(self):
        for x, words, colour in ((RULES_LEFT, "diskontní sazba", DISCOUNT), (RULES_LEFT + 145, "dvoutýdenní repo sazba", REPO)):
            self.line([(x, 14), (x + 24, 14)], colour, 3)
            self.text(x + 31, 18, words, INK)

    def svg(self):
        self.draw_axes()
        self.draw_rules()
        self.draw_rates()
        self.draw_peak()
        self.draw_last_rates()
        self.draw_legend()
        size = f'width="{WIDTH}" height="{HEIGHT}"'
        head = f'<svg xmlns="http://www.w3.org/2000/svg" {size} viewBox="0 0 {WIDTH} {HEIGHT}">'
        ground = f'<rect {size} fill="#ffffff"/>'
        lines = [head, ground, '<g font-family="Liberation Sans" font-size="12">', *self.parts, "</g>", "</svg>"]
        return "".join(line + "\n" for line in lines)


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    data = pathlib.Path(arguments[0])
    discount, repo, half_years = (read(data / f"{name}.csv") for name in ("discount", "repo", "repo_halfyear"))
    last = max(discount + repo + half_years)[0]
    pathlib.Path(arguments[1]).write_text(Chart(discount, repo, last).svg(), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
