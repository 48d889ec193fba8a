#!/usr/bin/env python3
"""Checks that the messages which the help explains are those that the program shows, and that none is left out.

In the pages they are marked with the class "zprava". In the sources a message is one string, or several one
after the other; its line breaks count as blanks. What users are shown is what the transcripts of the scenarios
have: hlaseni.html marks some part of each.
"""

import html.parser
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
EXPLAINED = "hlaseni.html"
# message ICON "TITLE" "TEXT", or TEXT in lines of their own below
SHOWN = re.compile(r'^message \w+ "[^"]*"((?:\s+".*"$)+)', re.MULTILINE)


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
    """A text of the sources or of a page in one line."""
    return " ".join(text.replace(r"\r", " ").replace(r"\n", " ").split())


def program_texts():
    """All strings of the logic, with what stands between them."""
    texts = []
    for folder in ("values", "engine", "calc", "app", "windows", "shell"):
        for source in (ROOT / folder).rglob("*"):
            if source.suffix in (".cpp", ".h") and not source.stem.endswith("_test"):
                texts.append(source.read_text(encoding="utf-8"))
    return plain(re.sub(r'"\s*"', "", "\n".join(texts)))


def shown_texts():
    """All messages of the transcripts."""
    texts = set()
    for transcript in (ROOT / "tests" / "scenarios").glob("*.expected"):
        for quoted in SHOWN.findall(transcript.read_text(encoding="utf-8")):
            texts.add(plain("".join(re.findall(r'"(.*)"', quoted))))
    return texts


def main():
    known = program_texts()
    shown = shown_texts()
    explained = []
    checked = 0
    wrong = []
    for page in sorted((ROOT / "help").glob("*.html")):
        for text in map(plain, Messages(page).texts):
            checked += 1
            if text not in known:
                wrong.append(f'{page.name}: the program does not say "{text}"')
            if page.name == EXPLAINED:
                explained.append(text)
    for message in sorted(shown):
        if not any(text in message for text in explained):
            wrong.append(f"{EXPLAINED} does not explain: {message}")
    for line in wrong:
        print(line)
    print(f"{checked} messages in the help, {len(shown)} in the scenarios, {len(wrong)} mistakes")
    return 1 if wrong or not checked or not shown else 0


if __name__ == "__main__":
    sys.exit(main())
