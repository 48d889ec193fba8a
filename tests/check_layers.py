#!/usr/bin/env python3
"""Checks that a folder of the logic uses only the folders below it, and no Qt.

The linker watches over functions; a header used across the layers it would not see.
"""

import pathlib
import re
import sys

# From the ground up. ui/qt and what stands beside main.cpp may use everything.
LAYERS = ["ui", "shell/common", "engine", "settings", "calc", "invoice", "shell"]
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def layer_of(path):
    """The layer that a path of the project lies in, or None; shell/common/x.h is not of shell."""
    fitting = [layer for layer in LAYERS if path.startswith(layer + "/")]
    return max(fitting, key=len, default=None)


def may_include(layer, quote, header, in_test):
    if quote == "<":
        standard = re.fullmatch(r"[a-z_0-9]+", header)
        return standard or (in_test and header.startswith(("gtest/", "gmock/")))
    if header.startswith("ui/qt/"):
        return False
    if header.startswith("tests/"):
        return in_test
    of_header = layer_of(header)
    return of_header is not None and LAYERS.index(of_header) <= LAYERS.index(layer)


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    checked = 0
    wrong = []
    for source in sorted(root.rglob("*.h")) + sorted(root.rglob("*.cpp")):
        path = source.relative_to(root).as_posix()
        layer = layer_of(path)
        if layer is None or path.startswith("ui/qt/"):
            continue
        checked += 1
        in_test = source.stem.endswith("_test")
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            include = INCLUDE.match(line)
            if include and not may_include(layer, include[1], include[2], in_test):
                wrong.append(f"{path}:{number}: {line.strip()}")
    for line in wrong:
        print(f"{line}  <- not below this folder")
    print(f"{checked} files of the logic, {len(wrong)} includes against the layers")
    return 1 if wrong or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
