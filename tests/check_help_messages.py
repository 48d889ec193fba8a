#!/usr/bin/env python3
"""Checks that the messages which the help explains are those that the program shows.

In the pages they are marked with the class "zprava". In the sources a message is one string, or several one
after the other; its line breaks count as blanks.
"""

import html.parser
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


class Messages(html.parser.HTMLParser):
    """The marked texts of a page."""

    def __init__(self, page):
        super().__init__()
        self.texts = []
        self._inside = None
        self.feed(page.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        if dict(attrs).get("class") == "zprava":
            self._inside = tag
            self.texts.append("")

    def handle_data(self, data):
        if self._inside:
            self.texts[-1] += data

    def handle_endtag(self, tag):
        if tag == self._inside:
            self._inside = None


def plain(text):
    return " ".join(text.split())


def program_texts():
    """All strings of the logic, with what stands between them."""
    texts = []
    for folder in ("values", "engine", "calc", "app", "windows", "shell"):
        for source in (ROOT / folder).rglob("*"):
            if source.suffix in (".cpp", ".h") and not source.stem.endswith("_test"):
                texts.append(source.read_text(encoding="utf-8"))
    joined = re.sub(r'"\s*"', "", "\n".join(texts))
    return plain(joined.replace(r"\r", " ").replace(r"\n", " "))


def main():
    known = program_texts()
    checked = 0
    wrong = []
    for page in sorted((ROOT / "help").glob("*.html")):
        for text in map(plain, Messages(page).texts):
            checked += 1
            if text not in known:
                wrong.append(f'{page.name}: the program does not say "{text}"')
    for line in wrong:
        print(line)
    print(f"{checked} messages, {len(wrong)} unknown")
    return 1 if wrong or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
