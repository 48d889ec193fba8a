#!/usr/bin/env python3
"""Checks VELTA.CHM as others see it: the same sources always give it, and it holds them, what is drawn from them, and
nothing strange.

  check_help_file.py VELTA.CHM VELTA-RENDER
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
MADE = {"#IVB", "#STRINGS", "#SYSTEM", "obsah.hhc"}  # by make_chm.py, besides the sources


def run(*command, cwd):
    subprocess.run(command, check=True, cwd=cwd)


def drawn(help_folder, render, scratch):
    """The pictures that are drawn from a copy of the sources: the chart and the drawings."""
    chart = scratch / "rates.svg"
    run(sys.executable, help_folder / "make_chart.py", help_folder.parent / "data", chart, cwd=scratch)
    for drawing in [chart, *help_folder.glob("pictures/*.svg")]:
        run(render, drawing, scratch / "drawn", "1x", "2x", cwd=scratch)
    return sorted((scratch / "drawn").iterdir())


def made_elsewhere(render, scratch):
    """The help file that a copy of the sources gives, from another folder and at another time, and what has to be in
    it, by its name there."""
    copy = scratch / "jinde"
    for folder in ("data", "help"):
        shutil.copytree(ROOT / folder, copy / folder)
    pictures = drawn(copy / "help", render, scratch)
    run(sys.executable, copy / "help" / "make_chm.py", scratch / "jina.chm", *pictures, cwd=scratch)
    found = [path for pattern in ("*.html", "*.css", "pictures/*.png") for path in (copy / "help").glob(pattern)]
    wanted = {path.relative_to(copy / "help").as_posix(): path.read_bytes() for path in found}
    wanted |= {f"pictures/{path.name}": path.read_bytes() for path in pictures}
    return (scratch / "jina.chm").read_bytes(), wanted


def unpacked(seven_zip, help_file, folder):
    subprocess.run([seven_zip, "x", f"-o{folder}", help_file], check=True, stdout=subprocess.DEVNULL)
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def problems(help_file, render, seven_zip, scratch):
    built = help_file.read_bytes()
    other, wanted = made_elsewhere(render, scratch)
    if other != built:
        yield "the same sources gave another file"
    for trace in (ROOT, pathlib.Path.home(), help_file.parent):
        if str(trace).encode() in built:
            yield f"the file holds a path of this machine: {trace}"
    found = unpacked(seven_zip, help_file, scratch / "unpacked")
    for name in sorted(wanted.keys() | found.keys() - MADE):
        if wanted.get(name) != found.get(name):
            yield f"{name} is not in the file as it is in the sources"
    for name in sorted(MADE - found.keys()):
        yield f"{name} is missing"


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    seven_zip = shutil.which("7zz") or shutil.which("7z")
    if seven_zip is None:
        print("Skipped: 7-Zip is not installed (./dev test installs it).")
        return 77
    with tempfile.TemporaryDirectory() as scratch:
        help_file, render = [pathlib.Path(argument).resolve() for argument in arguments]
        found = list(problems(help_file, render, seven_zip, pathlib.Path(scratch)))
    print("\n".join(found) or "the help file is in order")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
