#!/usr/bin/env python3
"""Checks that a folder uses only the folders that it may, and Qt only where it belongs.

The linker watches over functions; a header used across the layers it would not see.
"""

import pathlib
import re
import sys

CORE = ["values", "engine", "calc"]
WINDOWS = CORE + ["ui", "app", "windows/settings", "windows/calculation"]

# What each folder may include beside itself, from the ground up. What stands beside main.cpp and the folder
# tests/ put everything together and are not bound.
MAY_USE = {
    "values": [],
    "engine": ["values"],
    "calc": ["values", "engine"],
    "batch": CORE,
    "ui": ["values"],
    "ui/memory": ["values", "ui"],
    "app": ["values", "ui"],
    "ui/qt": ["values", "ui", "app"],
    "windows/settings": CORE + ["ui", "app"],
    "windows/calculation": CORE + ["ui", "app", "windows/settings"],
    "windows/single": WINDOWS,
    "windows/progressive": WINDOWS,
    "windows/invoice": WINDOWS,
    "shell": WINDOWS + ["windows/single", "windows/progressive", "windows/invoice"],
}
# These may use other libraries than C++'s own.
WITH_LIBRARIES = {"ui/qt", "batch"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def folder_of(path):
    """The folder of the table that a path lies in, the innermost one, or None."""
    fitting = [folder for folder in MAY_USE if path.startswith(folder + "/")]
    return max(fitting, key=len, default=None)


def may_include(folder, quote, header, in_test):
    if quote == "<":
        standard = re.fullmatch(r"[a-z_0-9]+", header)
        return standard or folder in WITH_LIBRARIES or (in_test and header.startswith(("gtest/", "gmock/")))
    of_header = folder_of(header)
    if of_header is None:  # made by the build, or the tests' own
        return folder in WITH_LIBRARIES or (in_test and header.startswith("tests/"))
    if of_header == folder or of_header in MAY_USE[folder]:
        return True
    # A test may stand its subject on the platform in memory and beside other windows.
    return in_test and (of_header == "ui/memory" or folder.startswith(("windows/", "ui/qt")))


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    checked = 0
    wrong = []
    for source in sorted(root.rglob("*.h")) + sorted(root.rglob("*.cpp")):
        path = source.relative_to(root).as_posix()
        folder = folder_of(path)
        if folder is None:
            continue
        checked += 1
        in_test = source.stem.endswith("_test")
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            include = INCLUDE.match(line)
            if include and not may_include(folder, include[1], include[2], in_test):
                wrong.append(f"{path}:{number}: {line.strip()}")
    for line in wrong:
        print(f"{line}  <- {folder_of(line)} may not use this")
    print(f"{checked} files, {len(wrong)} includes against the layers")
    return 1 if wrong or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
