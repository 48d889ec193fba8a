#!/usr/bin/env python3
"""Checks VELTA.CHM as others see it: the same sources always give it, and it holds them and nothing strange.

  check_help_file.py VELTA.CHM
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
HELP = ROOT / "help"
MADE = {"#IVB", "#STRINGS", "#SYSTEM", "obsah.hhc"}  # by make_chm.py, besides the sources


def sources(folder):
    """What goes into the help file, by its name there."""
    found = [path for pattern in ("*.html", "*.css", "pictures/*.png") for path in folder.glob(pattern)]
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in found}


def made_elsewhere(scratch):
    """The help file that a copy of the sources gives, from another folder and at another time."""
    copy = scratch / "jinde"
    shutil.copytree(HELP, copy)
    subprocess.run([sys.executable, copy / "make_chm.py", scratch / "jina.chm"], check=True, cwd=scratch)
    return (scratch / "jina.chm").read_bytes()


def unpacked(seven_zip, help_file, folder):
    subprocess.run([seven_zip, "x", f"-o{folder}", help_file], check=True, stdout=subprocess.DEVNULL)
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def problems(help_file, seven_zip, scratch):
    built = help_file.read_bytes()
    if made_elsewhere(scratch) != built:
        yield "the same sources gave another file"
    for trace in (ROOT, pathlib.Path.home(), help_file.parent):
        if str(trace).encode() in built:
            yield f"the file holds a path of this machine: {trace}"
    found = unpacked(seven_zip, help_file, scratch / "unpacked")
    wanted = sources(HELP)
    for name in sorted(wanted.keys() | found.keys() - MADE):
        if wanted.get(name) != found.get(name):
            yield f"{name} is not in the file as it is in the sources"
    for name in sorted(MADE - found.keys()):
        yield f"{name} is missing"


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    seven_zip = shutil.which("7zz") or shutil.which("7z")
    if seven_zip is None:
        print("Skipped: 7-Zip is not installed (./dev test installs it).")
        return 77
    with tempfile.TemporaryDirectory() as scratch:
        found = list(problems(pathlib.Path(arguments[0]).resolve(), seven_zip, pathlib.Path(scratch)))
    print("\n".join(found) or "the help file is in order")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
