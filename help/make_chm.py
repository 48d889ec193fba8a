#!/usr/bin/env python3
"""Makes VELTA.CHM, the compiled help, from the pages and pictures beside this script and pictures drawn elsewhere.

  make_chm.py OUTPUT [PICTURE.png]...

The file is of version 3 of its format and holds everything uncompressed, in its section 0. The same sources
give the same file, byte by byte: instead of the time its head bears a stamp of the content, by which Velta
knows a damaged file.

A page says in its head what it is called (<title>) and under which number windows open it (<meta
name="context">). The contents tree is what obsah.html, the first page, lists: its headings and the links below them.
"""

import hashlib
import html
import html.parser
import pathlib
import struct
import sys
import uuid

FOLDER = pathlib.Path(__file__).resolve().parent
HOME = "obsah.html"
CONTENTS = "obsah.hhc"
TITLE = "Nápověda programu Velta"
CZECH = 0x0405
CODE_PAGE = "cp1250"  # of the contents and the tables; a page names its own

FILE_HEAD = 0x60
STAMP = slice(0x10, 0x14)
SECTION_0_HEAD = 0x18
DIRECTORY_HEAD = 0x54
CHUNK = 0x1000
CHUNK_HEAD = 0x14
REFERENCE_STEP = 5  # each fifth entry of a chunk is in its quick reference
NONE = 0xFFFFFFFF


class Page(html.parser.HTMLParser):
    """What a page says of itself, and its headings and the links below them in their order."""

    def __init__(self, path):
        super().__init__()
        self.title = ""
        self.contexts = []
        self.outline = []  # [text, linked page or None for a heading]
        self._inside = ""
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag == "title":
            self._inside = tag
        elif tag == "h2" or (tag == "a" and self.outline):
            self._inside = tag
            self.outline.append(["", attributes.get("href")])
        if attributes.get("name") == "context":
            self.contexts.append(int(attributes["content"]))

    def handle_data(self, data):
        if self._inside == "title":
            self.title += data
        elif self._inside:
            self.outline[-1][0] += data

    def handle_endtag(self, tag):
        if tag == self._inside:
            self._inside = ""


def contents(home):
    """The tree that viewers show beside the page."""

    def item(text, page):
        local = f'<param name="Local" value="{page}">' if page else ""
        return f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{html.escape(text)}">{local}</OBJECT>'

    lines = ["<HTML><BODY>", "<UL>", item(home.title, HOME)]
    below_heading = False
    for text, page in home.outline:
        if page is None and below_heading:
            lines.append("</UL>")
        lines.append(item(text, page))
        if page is None:
            lines.append("<UL>")
            below_heading = True
    lines += ["</UL>", "</UL>", "</BODY></HTML>"]
    return "".join(line + "\r\n" for line in lines).encode(CODE_PAGE)


def system_table():
    """Entries of number, length and value: the compiler, language and capabilities, first page, title,
    name, contents."""
    table = struct.pack("<I", 3)
    for number, value in (
        (9, "make_chm.py"),
        (4, struct.pack("<9I", CZECH, *[0] * 8)),
        (2, HOME),
        (3, TITLE),
        (6, "velta"),
        (0, CONTENTS),
    ):
        data = value if isinstance(value, bytes) else value.encode(CODE_PAGE) + b"\0"
        table += struct.pack("<HH", number, len(data)) + data
    return table


def context_tables(pages):
    """#STRINGS with the names of pages, and #IVB with pairs of a context number and a place in #STRINGS."""
    strings = b"\0"
    numbers = {}
    for name, page in sorted(pages.items()):
        for number in page.contexts:
            if number in numbers:
                raise ValueError(f"two pages have the context number {number}")
            numbers[number] = len(strings)
        if page.contexts:
            strings += name.encode("ascii") + b"\0"
    pairs = b"".join(struct.pack("<2I", *pair) for pair in sorted(numbers.items()))
    return strings, struct.pack("<I", len(pairs)) + pairs


def section_names():
    """The names of the sections: of the one that there is. Lengths are in units of 16 bits."""
    name = "Uncompressed"
    names = struct.pack("<2H", 1, len(name)) + (name + "\0").encode("utf-16-le")
    return struct.pack("<H", len(names) // 2 + 1) + names


def stored_files(drawn):
    """The content of everything in the help file by its name there; that of folders is empty."""
    pages = {path.name: Page(path) for path in FOLDER.glob("*.html")}
    strings, numbers = context_tables(pages)
    files = {
        "/": b"",
        "/#IVB": numbers,
        "/#STRINGS": strings,
        "/#SYSTEM": system_table(),
        f"/{CONTENTS}": contents(pages[HOME]),
        "/pictures/": b"",
        "::DataSpace/NameList": section_names(),
    }
    for pattern in ("*.html", "*.css", "pictures/*.png"):
        for path in FOLDER.glob(pattern):
            files[f"/{path.relative_to(FOLDER).as_posix()}"] = path.read_bytes()
    for path in drawn:
        files[f"/pictures/{path.name}"] = path.read_bytes()
    return files


def packed(number):
    """A number in bytes of seven bits, the highest first; all but the last have their top bit set."""
    result = bytes([number & 0x7F])
    while number := number >> 7:
        result = bytes([number & 0x7F | 0x80]) + result
    return result


def directory(places):
    """Where in section 0 each file lies: a head and one chunk of entries (name, offset, length)."""
    entries = b""
    reference = []
    for index, (name, offset, length) in enumerate(places):
        if index and index % REFERENCE_STEP == 0:
            reference.insert(0, len(entries))
        path = name.encode("ascii")
        entries += packed(len(path)) + path + packed(0) + packed(offset) + packed(length)
    tail = struct.pack(f"<{len(reference) + 1}H", *reference, len(places))
    free = CHUNK - CHUNK_HEAD - len(entries)
    if free < len(tail):
        raise ValueError("the directory needs a second chunk, and with it an index: not written so far")
    chunk = struct.pack("<4s4I", b"PMGL", free, 0, NONE, NONE) + entries + tail.rjust(free, b"\0")
    # Depth 1 and no root: there is no index, only the chunks from the first to the last, 0.
    head = struct.pack("<4s5I", b"ITSP", 1, DIRECTORY_HEAD, 10, CHUNK, 2)
    head += struct.pack("<7I", 1, NONE, 0, 0, NONE, 1, CZECH)
    head += uuid.UUID("5D02926A-212E-11D0-9DF9-00A0C922E6EC").bytes_le
    head += struct.pack("<4I", DIRECTORY_HEAD, NONE, NONE, NONE)
    return head + chunk


def chm(files):
    """The whole help file."""
    places = []
    content = b""
    for name in sorted(files, key=str.lower):
        places.append((name, len(content), len(files[name])))
        content += files[name]
    listing = directory(places)
    directory_start = FILE_HEAD + SECTION_0_HEAD
    content_start = directory_start + len(listing)

    head = struct.pack("<4s5I", b"ITSF", 3, FILE_HEAD, 1, 0, CZECH)
    head += uuid.UUID("7C01FD10-7BAA-11D0-9E0C-00A0C922E6EC").bytes_le
    head += uuid.UUID("7C01FD11-7BAA-11D0-9E0C-00A0C922E6EC").bytes_le
    head += struct.pack("<4Q", FILE_HEAD, SECTION_0_HEAD, directory_start, len(listing))
    head += struct.pack("<Q", content_start)
    head += struct.pack("<2IQ2I", 0x1FE, 0, content_start + len(content), 0, 0)
    whole = bytearray(head + listing + content)
    whole[STAMP] = hashlib.sha256(whole).digest()[:4]
    return bytes(whole)


def main(arguments):
    if not arguments:
        print(__doc__, file=sys.stderr)
        return 2
    output, *drawn = [pathlib.Path(argument) for argument in arguments]
    output.write_bytes(chm(stored_files(drawn)))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
