#!/usr/bin/env python3
"""Checks that the help's chart follows from the sources of the rate tables: its lines are read off by the axes' labels
and compared with the rows, those of the data and those of a copy with other rates.
"""

import csv
import datetime
import pathlib
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
LABEL_BELOW_LINE = 4  # the letters of a label of the rates stand so much below their line


def rows(data, name):
    """Day and rate of each row of a source."""
    with (data / f"{name}.csv").open(encoding="ascii", newline="") as file:
        return [(datetime.date.fromisoformat(row[0]), float(row[1])) for row in list(csv.reader(file))[1:]]


class Chart:
    def __init__(self, data, scratch):
        output = scratch / "rates.svg"
        subprocess.run([sys.executable, ROOT / "help" / "make_chart.py", data, output], check=True)
        self.bytes = output.read_bytes()
        self.root = xml.etree.ElementTree.fromstring(self.bytes)
        self.labels = {label.text: (float(label.get("x")), float(label.get("y")))
                       for label in self.root.iter("{http://www.w3.org/2000/svg}text")}

    def line(self, name):
        points = self.root.find(f".//*[@id='{name}']").get("points")
        return [tuple(float(number) for number in point.split(",")) for point in points.split()]

    def place(self, day, rate):
        """Where the axes' labels put it; what is higher than the plot lies at its top, the label of 20 %."""
        along = (day - datetime.date(1990, 1, 1)) / (datetime.date(2020, 1, 1) - datetime.date(1990, 1, 1))
        left, right = self.labels["1990"][0], self.labels["2020"][0]
        bottom, top = (self.labels[rate][1] - LABEL_BELOW_LINE for rate in ("0", "20"))
        return left + along * (right - left), bottom + min(rate, 20) / 20 * (top - bottom)


def differences(chart, data):
    last = max(rows(data, "discount") + rows(data, "repo") + rows(data, "repo_halfyear"))[0]
    for name in ("discount", "repo"):
        table = rows(data, name)
        wanted = []
        for (day, rate), end in zip(table, [day for day, _ in table[1:]] + [last]):
            wanted += [chart.place(day, rate), chart.place(end, rate)]
        line = chart.line(name)
        if len(line) != len(wanted):
            yield f"{name}: {len(line)} points instead of {len(wanted)}"
        for found, place in zip(line, wanted):
            if max(abs(found[0] - place[0]), abs(found[1] - place[1])) > 0.1:
                yield f"{name}: the point {found} instead of {place}"


def problems(scratch):
    data = ROOT / "data"
    chart = Chart(data, scratch)
    yield from differences(chart, data)
    if Chart(data, scratch).bytes != chart.bytes:
        yield "the same rows gave another chart"
    if chart.line("discount")[0] != chart.place(datetime.date(1990, 1, 1), 4):
        yield "the discount rate does not begin at 4 % in 1990"
    if "4. 6. 1997: 39 %" not in chart.labels:
        yield "the peak of the repo rate, which is higher than the chart, is not told"

    other = scratch / "other"
    shutil.copytree(data, other)
    repo = (other / "repo.csv").read_text(encoding="ascii")
    (other / "repo.csv").write_text(repo.replace("2008-02-08,3.75", "2008-02-08,4.75"), encoding="ascii")
    with (other / "discount.csv").open("a", encoding="ascii") as file:
        file.write("2027-02-12,3.25,V1\n")
    if len(list(differences(chart, other))) < 2:
        yield "this test does not notice other rates"
    changed = Chart(other, scratch)
    yield from differences(changed, other)
    if "3,25 %" not in changed.labels:
        yield "the last rate is not the one that was added"


def main():
    with tempfile.TemporaryDirectory() as scratch:
        found = list(problems(pathlib.Path(scratch)))
    print("\n".join(found) or "the chart shows the rates")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
