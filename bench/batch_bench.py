#!/usr/bin/env python3
"""How long velta-batch takes for a file of debts, beside what else people would take for it: CSV in, CSV out.

  batch_bench.py VELTA-BATCH [ROWS]

The others compute the simplest case, a typed yearly rate rounded up to 10 haléř, and nothing is checked in their
rows; their results are compared with velta-batch's. What is not installed is left out.
"""

import csv
import os
import pathlib
import random
import resource
import shutil
import subprocess
import sys
import tempfile
import time

HEADER = "cislo;odberatel;splatnost;zaplaceno;castka;druh;sazba\n"
PYTHON = "/usr/bin/python3" if os.access("/usr/bin/python3", os.X_OK) else sys.executable  # the one with Debian's pandas

PANDAS = """
import sys
import numpy, pandas
table = pandas.read_csv(sys.argv[1], sep=";", decimal=",")
due = pandas.to_datetime(table["splatnost"], format="%d.%m.%Y")
paid = pandas.to_datetime(table["zaplaceno"], format="%d.%m.%Y")
table["dny"] = (paid - due).dt.days
table["regim"] = table["druh"]
table["sazba_pouzita"] = table["sazba"]
interest = numpy.floor(table["castka"] * table["sazba"] / 100 * table["dny"] / 365 * 10 + 0.99) / 10
table["urok"] = interest
table["celkem"] = table["castka"] + interest
table["chyba"] = ""
table.to_csv(sys.argv[2], sep=";", decimal=",", index=False, float_format="%.2f")
"""

SQL_DAY = (
    "julianday(substr({0}, -4) || '-' || substr('0' || substr({0}, instr({0}, '.') + 1, length({0}) - 5 - "
    "instr({0}, '.')), -2) || '-' || substr('0' || substr({0}, 1, instr({0}, '.') - 1), -2))"
)
SQL = f"""
.mode csv
.separator ";" "\\n"
.import {{source}} debts
.headers on
.once {{target}}
with numbers as (
  select *, cast({SQL_DAY.format("zaplaceno")} - {SQL_DAY.format("splatnost")} as integer) as dny,
    cast(replace(castka, ',', '.') as real) as amount, cast(replace(sazba, ',', '.') as real) as rate
  from debts),
interests as (
  select *, cast(amount * rate / 100 * dny / 365 * 10 + 0.99 as integer) / 10.0 as interest from numbers)
select cislo, odberatel, splatnost, zaplaceno, castka, druh, sazba, dny, druh as regim, sazba as sazba_pouzita,
  replace(printf('%.2f', interest), '.', ',') as urok, replace(printf('%.2f', amount + interest), '.', ',') as celkem,
  '' as chyba
from interests;
"""


def comma(number):
    return f"{number:.2f}".replace(".", ",")


def write_typed(path, rows, formulas=False):
    """Rows of a typed rate; with `formulas` a spreadsheet's own stand in the columns of the result."""
    dice = random.Random(1)
    with open(path, "w", encoding="utf-8") as file:
        file.write(HEADER if not formulas else HEADER.rstrip() + ";dny;regim;sazba_pouzita;urok;celkem\n")
        for i in range(rows):
            due = (dice.randrange(1, 29), dice.randrange(1, 13), dice.randrange(2014, 2022))
            paid = (dice.randrange(1, 29), dice.randrange(1, 13), due[2] + dice.randrange(1, 4))
            days = ";".join("{}.{}.{}".format(*day) for day in (due, paid))
            amount, rate = comma(dice.randrange(100, 100000000) / 100), comma(dice.randrange(20, 80) / 4)
            file.write(f"FV{i:07};Odběratel {dice.randrange(10000)} s.r.o.;{days};{amount};% ročně;{rate}")
            row = i + 2
            if formulas:
                interest = f"INT(E{row}*G{row}/100*H{row}/365*10+0.99)/10"
                file.write(f";=D{row}-C{row};=F{row};=G{row};={interest};=E{row}+K{row}")
            file.write("\n")


def write_repo(path, rows):
    """Rows of forty half-years each."""
    dice = random.Random(2)
    with open(path, "w", encoding="utf-8") as file:
        file.write(HEADER)
        for i in range(rows):
            due = f"{dice.randrange(1, 29)}.{dice.randrange(1, 7)}.2006"
            paid = f"{dice.randrange(1, 29)}.{dice.randrange(7, 13)}.2025"
            amount = comma(dice.randrange(100, 100000000) / 100)
            file.write(f"FV{i:07};Odběratel {dice.randrange(10000)} s.r.o.;{due};{paid};{amount};repo;\n")


class Seconds:
    """How long something took: by the clock, and of the processors' time. A busy machine shows in the former alone."""

    def __init__(self, clock, processors):
        self.clock = clock
        self.processors = processors

    def each(self, other, count):
        """A share of what it took longer than another."""
        return Seconds((self.clock - other.clock) / count, (self.processors - other.processors) / count)


NOTHING = Seconds(0, 0)


def seconds(command, times=3, **how):
    """The shortest of several runs."""
    runs = []
    for _ in range(times):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        begin = time.monotonic()
        subprocess.run(command, check=True, stderr=subprocess.DEVNULL, **how)
        clock = time.monotonic() - begin
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        runs.append(Seconds(clock, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime))
    return Seconds(min(run.clock for run in runs), min(run.processors for run in runs))


def batch_seconds(program, threads, source, target):
    with open(target, "wb") as output:

        def once():
            output.seek(0)
            return seconds([program, "--vlaken", str(threads), source], times=1, stdout=output)

        runs = [once() for _ in range(5)]
    return Seconds(min(run.clock for run in runs), min(run.processors for run in runs))


def interests(path):
    with open(path, encoding="utf-8", newline="") as file:
        return [float(row["urok"].replace(",", ".")) for row in csv.DictReader(file, delimiter=";")]


def calc_seconds(folder, rows):
    """For each row, without the start of the program."""
    options = "59,34,76,1,,1029,false,true,false,false,false,0,true"
    times = []
    for count in (1, rows):
        source = folder / f"calc{count}.csv"
        write_typed(source, count, formulas=True)
        command = ["soffice", "--headless", f"-env:UserInstallation=file://{folder}/office", f"--infilter=CSV:{options}",
                   "--convert-to", f"csv:Text - txt - csv (StarCalc):{options}", "--outdir", str(folder / "calc"),
                   str(source)]
        times.append(seconds(command, times=2, stdout=subprocess.DEVNULL))
    return times[1].each(times[0], rows - 1)


def main(arguments):
    if len(arguments) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    program = arguments[0]
    rows = int(arguments[1]) if len(arguments) == 2 else 1000000
    cores = len(os.sched_getaffinity(0))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        typed, repo, own = folder / "typed.csv", folder / "repo.csv", folder / "own.csv"
        write_typed(typed, rows)
        write_repo(repo, rows // 5)

        per_row = {}
        print(f"{'µs a row':34} {'clock':>9} {'CPU':>9}")

        def tell(what, each):
            per_row[what] = each
            print(f"{what:34} {each.clock * 1e6:9.2f} {each.processors * 1e6:9.2f}", flush=True)

        tell("velta-batch, 1 thread", batch_seconds(program, 1, typed, own).each(NOTHING, rows))
        if cores > 1:
            tell("velta-batch, 2 threads", batch_seconds(program, 2, typed, own).each(NOTHING, rows))
        if cores > 2:
            tell(f"velta-batch, {cores} threads", batch_seconds(program, cores, typed, own).each(NOTHING, rows))
        tell("40 half-years, 1 thread", batch_seconds(program, 1, repo, os.devnull).each(NOTHING, rows // 5))
        expected = interests(own)

        def compare(what, found):
            differ = sum(a != b for a, b in zip(expected, found)) + abs(len(expected) - len(found))
            if differ:
                print(f"{what}: {differ} rows differ from velta-batch")
            return differ

        differ = 0
        if subprocess.run([PYTHON, "-c", "import pandas"], stderr=subprocess.DEVNULL, check=False).returncode == 0:
            target = folder / "pandas.csv"
            tell("pandas", seconds([PYTHON, "-c", PANDAS, str(typed), str(target)]).each(NOTHING, rows))
            differ += compare("pandas", interests(target))
        else:
            print("pandas: not installed")
        if shutil.which("sqlite3"):
            target = folder / "sqlite.csv"
            tell("sqlite3", seconds(["sqlite3"], input=SQL.format(source=typed, target=target).encode()).each(NOTHING, rows))
            differ += compare("sqlite3", interests(target))
        else:
            print("sqlite3: not installed")
        if shutil.which("soffice"):
            count = min(rows, 100000)
            tell("LibreOffice Calc", calc_seconds(folder, count))
            expected = expected[:count]
            # Its INT takes a number that is nearly whole for whole: now and then a row differs.
            compare("LibreOffice Calc", interests(folder / "calc" / f"calc{count}.csv"))
        else:
            print("LibreOffice Calc: not installed")

    print(f"\n{'':50} {'clock':>7} {'CPU':>7} {'aim':>5}")
    best = per_row.get(f"velta-batch, {cores} threads", per_row["velta-batch, 1 thread"])

    def ratio(what, slower, faster, aim):
        if slower is not None and faster is not None:
            clock, processors = slower.clock / faster.clock, slower.processors / faster.processors
            print(f"{what:50} {clock:7.2f} {processors:7.2f} {aim:>5}")

    for other, aim in (("pandas", "3"), ("sqlite3", "3"), ("LibreOffice Calc", "100")):
        ratio(f"faster than {other}, {cores} threads", per_row.get(other), best, aim)
        ratio(f"faster than {other}, 1 thread", per_row.get(other), per_row["velta-batch, 1 thread"], "")
    ratio("two threads faster than one", per_row["velta-batch, 1 thread"], per_row.get("velta-batch, 2 threads"), "1.7")
    ratio("40 half-years slower than a typed rate (at most)", per_row["40 half-years, 1 thread"],
          per_row["velta-batch, 1 thread"], "5")
    return 1 if differ else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
