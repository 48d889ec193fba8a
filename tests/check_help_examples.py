#!/usr/bin/env python3
"""Plays the worked examples of the help's pages on the program and compares the figures.

  check_help_examples.py VELTA-SCENARIO

An example is a table of the class "priklad". Each row is a label and what is entered there or comes out. In a
single calculation every column is a case of its own; in a progressive one ("Celková částka") every column is a
payment. A cell over several columns counts for each of them. Inputs are entered in the order of the rows.

The program takes every payment off the debt. What the interest is where each settles the interest first, a text of
the class "zakonne-poradi" says of its page's first progressive example with a typed yearly rate; that is worked out
here, and README.md has the same.
"""

import datetime
import decimal
import fractions
import html.parser
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HELP = ROOT / "help"
KINDS = ["% denně", "% ročně", "‰ denně", "‰ ročně", "Dle Diskontní sazby ČNB", "Dle Repo sazby ČNB"]
ROUNDINGS = {"Nezaokrouhlovat": "NE", "Na 10 hal nahoru": "halere", "Na korunu nahoru": "koruny"}
ROUNDING = "Zaokrouhlení částky penále"
MESSAGE = "Program oznámí"

# What a row enters, {} standing for the cell, and what it reads. {} in a place read is the payment's number.
SINGLE_INPUTS = {
    "Datum splatnosti": "date frmJednotlivy.dtpSplatnost {}",
    "Datum zaplacení": "date frmJednotlivy.dtpZaplaceni {}",
    "Dlužná částka": "set frmJednotlivy.txtDluznaCastka {}",
    "Druh sazby": "pick frmJednotlivy.cboDruhSazby {}",
    "Výše sazby": "set frmJednotlivy.txtVyseSazby {}",
}
SINGLE_RESULTS = {
    "Sazba z tabulky": "frmJednotlivy.txtVyseSazby",
    "Trvání dluhu ve dnech": "frmJednotlivy.lblPocetDnu",
    "Penále za zadané období": "frmJednotlivy.lblPenale",
    "Penále + dlužná částka": "frmJednotlivy.lblPenaleDluh",
}
INVOICE_INPUTS = {
    "Celková částka": "set frmPostupny.txtData(0) {}",
    "Datum splatnosti": "date frmPostupny.dtpSplatnost {}",
    "Druh sazby": "pick frmPostupny.cboDruhSazby {}",
    "Výše sazby": "set frmPostupny.txtData(2) {}",
}
PAYMENT_INPUTS = {
    "Datum částečné úhrady": "date frmPostupny.dtpZaplaceni {}",
    "Výše částečné úhrady": "set frmPostupny.txtData(1) {}",
}
PAYMENT_RESULTS = {
    "Zůstatek dluhu": "frmPostupny.List3.item({})",
    "Úrok z prodlení": "frmPostupny.List4.item({})",
}
TOTAL = "Úrok z prodlení celkem"
STATUTORY_ORDER = re.compile(r'class="zakonne-poradi">([^<]*)')


class Examples(html.parser.HTMLParser):
    """The example tables of a page: for each a dictionary from label to its cells."""

    def __init__(self, page):
        super().__init__()
        self.tables = []
        self._inside = False  # a table of examples
        self._row = None  # texts of the row's cells, the label first
        self._repeat = 0  # how many columns the open cell is for
        self.feed(page.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag == "table":
            self._inside = attributes.get("class") == "priklad"
            if self._inside:
                self.tables.append({})
        elif self._inside and tag == "tr":
            self._row = []
        elif self._inside and tag in ("th", "td"):
            self._repeat = int(attributes.get("colspan", 1))
            self._row += [""] * self._repeat

    def handle_data(self, data):
        for column in range(1, self._repeat + 1):
            self._row[-column] += data

    def handle_endtag(self, tag):
        if tag in ("th", "td"):
            self._repeat = 0
        elif tag == "tr" and self._inside:
            label, *cells = [" ".join(cell.split()) for cell in self._row]
            self.tables[-1][label] = cells
        elif tag == "table":
            self._inside = False


def number(text):
    """The number in a text: of "10 069,90 Kč" 10069.90."""
    return decimal.Decimal(re.sub(r"[^\d,-]", "", text).replace(",", "."))


def entered(label, command, cell):
    return command.format(KINDS.index(cell) if label == "Druh sazby" else cell)


class Case:
    """A scenario, and what its transcript has to say."""

    def __init__(self, table, column, menu):
        rounding = table.get(ROUNDING, ["Na 10 hal nahoru"] * (column + 1))[column]
        self.lines = ["store Hotovo=Ano", f"store Zaokrouhlit={ROUNDINGS[rounding]}", "start", f"menu {menu}"]
        self.wanted = []
        self.messages = [table[MESSAGE][column]] if MESSAGE in table else []
        if self.messages == ["–"]:
            self.messages = []

    def enter(self, label, command, cell):
        self.lines.append(entered(label, command, cell))

    def expect(self, label, place, cell):
        self.lines.append(f"get {place}")
        self.wanted.append((label, cell))

    def mistakes(self, runner):
        played = subprocess.run(
            [runner, "-"], input="\n".join(self.lines), capture_output=True, encoding="utf-8", check=False
        )
        if played.returncode != 0:
            return [f"cannot be played: {played.stderr.strip()}"]
        shown = re.findall(r'^message \w+ "[^"]*" "(.*)"$', played.stdout, re.MULTILINE)
        got = re.findall(r'^\S+ = "(.*)"$', played.stdout, re.MULTILINE)
        mistakes = [f"{MESSAGE}: {shown} instead of {self.messages}"] if shown != self.messages else []
        for (label, wanted), value in zip(self.wanted, got, strict=True):
            if number(wanted) != number(value):
                mistakes.append(f"{label}: the help says {wanted}, the program {value}")
        return mistakes


def single_cases(table):
    for column in range(len(table["Datum splatnosti"])):
        case = Case(table, column, "mnuJednotlivyVypocet")
        for label, cells in table.items():
            if label in SINGLE_INPUTS and cells[column] != "–":
                case.enter(label, SINGLE_INPUTS[label], cells[column])
        for label, cells in table.items():
            if label in SINGLE_RESULTS:
                case.expect(label, SINGLE_RESULTS[label], cells[column])
        yield case


def progressive_case(table):
    case = Case(table, 0, "mnuPostupnyVypocet")
    for label, cells in table.items():
        if label in INVOICE_INPUTS:
            case.enter(label, INVOICE_INPUTS[label], cells[0])
    for column in range(len(table["Datum částečné úhrady"])):
        for label, command in PAYMENT_INPUTS.items():
            case.enter(label, command, table[label][column])
        case.lines.append("click frmPostupny.cmdPridat")
    for label, cells in table.items():
        for column, cell in enumerate(cells):
            if label in PAYMENT_RESULTS:
                case.expect(label, PAYMENT_RESULTS[label].format(column), cell)
    case.expect(TOTAL, "frmPostupny.List5.item(0)", table[TOTAL][0])
    return case


def day(text):
    return datetime.datetime.strptime(text, "%d.%m.%Y")


def interest_settled_first(table):
    """The interest on an invoice at a yearly rate in per cent, of which each payment settles first the interest due
    until then and then the debt; the last one pays what is left. No interest bears interest, 365 days are a year."""
    daily = fractions.Fraction(number(table["Výše sazby"][0])) / 100 / 365
    debt = fractions.Fraction(number(table["Celková částka"][0]))
    since = day(table["Datum splatnosti"][0])
    interest = owed = 0
    for paid, amount in zip(table["Datum částečné úhrady"], table["Výše částečné úhrady"], strict=True):
        accrued = debt * daily * (day(paid) - since).days
        interest += accrued
        settled = min(owed + accrued, fractions.Fraction(number(amount)))
        owed += accrued - settled
        debt -= fractions.Fraction(number(amount)) - settled
        since = day(paid)
    return interest


def statutory_order_mistakes(pages):
    """Of all pages that tell the figure; that none does is a mistake too."""
    readme = " ".join((ROOT / "README.md").read_text(encoding="utf-8").split())
    told = 0
    for page in pages:
        for text in STATUTORY_ORDER.findall(page.read_text(encoding="utf-8")):
            told += 1
            table = next(table for table in Examples(page).tables if {"Celková částka", "Výše sazby"} <= table.keys())
            right = round(interest_settled_first(table), 2)
            if fractions.Fraction(number(text)) != right:
                yield f"{page.name}: {text} in the statutory order instead of {float(right):.2f}"
            if " ".join(text.split()) not in readme:
                yield f"README.md does not have the {text} of {page.name}"
    if not told:
        yield "no page tells the interest in the statutory order"


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    known = {ROUNDING, MESSAGE, TOTAL}
    known.update(SINGLE_INPUTS, SINGLE_RESULTS, INVOICE_INPUTS, PAYMENT_INPUTS, PAYMENT_RESULTS)
    played = 0
    wrong = 0
    pages = sorted(HELP.glob("*.html"))
    for page in pages:
        for position, table in enumerate(Examples(page).tables, 1):
            cases = [progressive_case(table)] if "Celková částka" in table else single_cases(table)
            mistakes = [f'unknown row "{label}"' for label in table if label not in known]
            for case in cases:
                played += 1
                mistakes += case.mistakes(arguments[0])
            wrong += bool(mistakes)
            for mistake in mistakes:
                print(f"{page.name}, example {position}: {mistake}")
    print(f"{played} examples, {wrong} tables with mistakes")
    in_prose = list(statutory_order_mistakes(pages))
    for mistake in in_prose:
        print(mistake)
    return 1 if wrong or in_prose or not played else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
