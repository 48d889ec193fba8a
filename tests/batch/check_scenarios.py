#!/usr/bin/env python3
"""Plays the scenarios, and computes every calculation that they finish once more by velta-batch: the same haléř.

  check_scenarios.py VELTA-SCENARIO VELTA-BATCH

What a calculation is made of is read from the window's own report, after each step of the scenario.
"""

import ast
import collections
import csv
import decimal
import io
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SCENARIOS = ROOT / "tests" / "scenarios"
ROUNDINGS = {"NE": "ne", "halere": "halere", "koruny": "koruny"}
KINDS = ["% denně", "% ročně", "‰ denně", "‰ ročně", "částka Kč denně", "částka Kč ročně"]
STEPS = ("click", "type", "typedate", "set", "date", "pick", "focus", "menu", "close", "wait")
LOOK = [
    "state RoundingMode",
    "get frmJednotlivy.txtReport",
    "get frmPostupny.List1.items",
    "get frmPostupny.List4.items",
    "get frmPostupny.cboDruhSazby.text",
    "get frmPostupny.txtPostup",
]
FIELDS = ["faktura", "splatnost", "dluh", "zaplaceno", "castka", "druh", "sazba"]

# One payment: what goes in, and what has to come out. None: it is not looked at.
Row = collections.namedtuple("Row", "due paid amount kind rate days interest total")


class Reader:
    """Takes the values of a report, which are in the form of the scenario's locale."""

    def __init__(self, english):
        self.english = english

    def number(self, text):
        text = re.sub(r"[^\d,.-]", "", text)
        text = text.replace(",", "") if self.english else text.replace(",", ".")
        return decimal.Decimal(text)

    def day(self, text):
        parts = text.split("/" if self.english else ".")
        if self.english:
            parts = [parts[1], parts[0], parts[2]]
        return ".".join(part.strip() for part in parts)

    def blocks(self, report):
        """The values by their labels, for each "ode dne" one dictionary; what comes last is in the last one."""
        blocks = []
        for line in report.split("\r\n"):
            label, _, value = line.strip().partition("\t")
            label = label.strip(" :")
            if label.endswith("ode dne"):
                blocks.append({})
            if blocks and value:
                blocks[-1][label] = value.strip()
        return blocks


def kind_and_rate(text, reader):
    """Of "8,5 % ročně" the kind and the rate; the rate of a bank's kind is not typed."""
    number, _, unit = text.partition(" ")
    if unit.strip() == "%":
        return "diskont", ""
    return unit, str(reader.number(number)).replace(".", ",")


def single_row(report, reader):
    blocks = reader.blocks(report)
    last = blocks[-1]
    if len(blocks) > 1 or "Úrok z prodlení celkem" in last:
        kind, rate = "repo", ""
        interest = last["Úrok z prodlení celkem"]
    else:
        kind, rate = kind_and_rate(last["Úroková sazba"], reader)
        interest = last["Úrok z prodlení"]
    return Row(
        reader.day(blocks[0]["Úrok z prodlení ode dne"]),
        reader.day(last["Úrok z prodlení ke dni"]),
        reader.number(blocks[0]["Dlužná částka"]),
        kind,
        rate,
        sum(int(block["Počet dnů prodlení"]) for block in blocks),
        reader.number(interest),
        reader.number(last["Úrok z prodlení + dlužná částka"]),
    )


def progressive_rows(report, kind_text, amounts, interests, reader):
    """The payments of a finished invoice. In the repo regime each has an interest for each half-year."""
    blocks = reader.blocks(report)
    due = blocks[0]["Úrok z prodlení ode dne"]
    total = reader.number(blocks[-1]["Úrok z prodlení celkem"])
    repo = kind_text.startswith("Dle Repo")
    payments = []  # the blocks of each
    for block in blocks:
        if not repo or block["Úrok z prodlení ode dne"] == due:
            payments.append([])
        payments[-1].append(block)
    interests = [reader.number(text) for text in interests]
    rows = []
    for amount, payment in zip(amounts, payments, strict=True):
        last = payment[-1]
        own = [interests.pop(0) for _ in payment]
        kind, rate = ("repo", "") if repo else kind_and_rate(last["Úroková sazba"], reader)
        interest = total if len(blocks) == 1 else sum(own)
        rows.append(
            Row(
                reader.day(due),
                reader.day(last["Úrok z prodlení ke dni"]),
                reader.number(amount),
                kind,
                rate,
                sum(int(block["Počet dnů prodlení"]) for block in payment),
                interest.quantize(decimal.Decimal("0.01"), decimal.ROUND_HALF_UP),
                None,
            )
        )
    return rows


def watched(scenario):
    lines = []
    for line in scenario.read_text(encoding="utf-8").splitlines():
        lines.append(line)
        if line.split(" ")[0] in STEPS:
            lines += LOOK
    return "\n".join(lines) + "\n"


def quoted(text):
    # The transcript escapes as Python does, and leaves all else as it is.
    return ast.literal_eval(text)


def calculations(scenario, runner):
    """(rounding, rows) for each calculation that a scenario finishes; one with several rows is an invoice."""
    played = subprocess.run(
        [runner, "-"], input=watched(scenario), capture_output=True, encoding="utf-8", check=False, cwd=SCENARIOS
    )
    if played.returncode == 2:
        sys.exit(f"{scenario.name} cannot be played: {played.stderr}")
    reader = Reader("locale en" in scenario.read_text(encoding="utf-8").splitlines())
    single = progressive = ""
    rounding = ""
    kind_text = ""
    lists = {"List1": [], "List4": []}
    filling = None
    for line in played.stdout.splitlines():
        if filling is not None and line.startswith('  "'):
            filling.append(quoted(line.strip()))
            continue
        filling = None
        name, _, value = line.partition(" = ")
        if match := re.fullmatch(r"frmPostupny\.(List[14])\.items", name):
            filling = lists[match[1]] = []
        elif name == "RoundingMode":
            rounding = quoted(value)
        elif name == "frmPostupny.cboDruhSazby.text" and value.startswith('"'):
            kind_text = quoted(value)
        elif name == "frmJednotlivy.txtReport.text" and value.startswith('"'):
            report = quoted(value)
            if report not in ("", single):
                yield rounding, [single_row(report, reader)], False
            single = report
        elif name == "frmPostupny.txtPostup.text" and value.startswith('"'):
            report = quoted(value)
            if "celkem" in report and report != progressive:
                yield rounding, progressive_rows(report, kind_text, lists["List1"], lists["List4"], reader), True
            progressive = report


def why_not(rounding, rows, folder):
    """Why velta-batch cannot express a calculation, or None."""
    if rounding not in ROUNDINGS:
        return f'there is no rounding "{rounding}"'
    if not all((folder / table).is_file() for table in ("cnb.dat", "repo.dat")):
        return "a table is missing"
    for row in rows:
        if row.kind not in KINDS + ["diskont", "repo"]:
            return f'there is no kind "{row.kind}"'
    return None


def computed(batch, folder, rounding, cases):
    """What velta-batch says of the cases, which are pairs of rows and whether they are an invoice."""
    text = io.StringIO()
    table = csv.writer(text, delimiter=";")
    table.writerow(FIELDS)
    for number, (rows, invoice) in enumerate(cases):
        debt = sum(row.amount for row in rows)
        for row in rows:
            name, owed = (number, str(debt).replace(".", ",")) if invoice else ("", "")
            amount = str(row.amount).replace(".", ",")
            table.writerow([name, row.due, owed, row.paid, amount, row.kind, row.rate])
    done = subprocess.run(
        [batch, "--sazby", str(folder), "--zaokrouhlit", ROUNDINGS[rounding]],
        input=text.getvalue(),
        capture_output=True,
        encoding="utf-8",
        check=False,
    )
    if done.returncode == 2 and "tabulky sazeb nelze přečíst" in done.stderr:
        return None
    return list(csv.DictReader(io.StringIO(done.stdout), delimiter=";"))


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    runner, batch = arguments
    cases = collections.defaultdict(list)  # by folder and rounding: (scenario, rows, is an invoice)
    left_out = collections.Counter()
    for scenario in sorted(SCENARIOS.glob("*.txt")):
        world = re.search(r"^data (.*)$", scenario.read_text(encoding="utf-8"), re.MULTILINE)
        folder = SCENARIOS / world[1] if world else ROOT / "data"
        for rounding, rows, invoice in calculations(scenario, runner):
            reason = why_not(rounding, rows, folder)
            if reason:
                left_out[reason] += 1
            else:
                cases[folder, rounding].append((scenario.name, rows, invoice))
    compared = 0
    wrong = 0
    scenarios = set()
    for (folder, rounding), group in cases.items():
        table = computed(batch, folder, rounding, [(rows, invoice) for _, rows, invoice in group])
        if table is None:
            left_out["a table is broken: the windows go on with a part of it"] += len(group)
            continue
        got = iter(table)
        for name, rows, _ in group:
            scenarios.add(name)
            for row in rows:
                out = next(got)
                compared += 1
                days, interest, total = out["dny"], out["urok"].replace(",", "."), out["celkem"].replace(",", ".")
                same = days == str(row.days) and interest == f"{row.interest:.2f}"
                if row.total is not None:
                    same = same and total == f"{row.total:.2f}"
                if not same:
                    wrong += 1
                    print(f"{name}: {row}, velta-batch: {days} {interest} {total} {out['chyba']}")
    for reason, count in left_out.items():
        print(f"left out: {count}, {reason}")
    print(f"{compared} payments of {len(scenarios)} scenarios compared, {wrong} differ")
    return 1 if wrong or compared < 100 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
