"""Checks where programs and libraries look for the libraries that they need: check-runpath.py FOLDER...

An empty entry of a run path means the working directory, and a relative one starts there. Whoever can
put a library into a folder could have it loaded by a program that is started in that folder.
"""

import pathlib
import re
import subprocess
import sys

ENTRIES = re.compile(r"\((?:RUNPATH|RPATH)\)\s+[^\[]*\[(.*)\]$", re.MULTILINE)
FIXED = re.compile(r"/|\$ORIGIN(/|$)|\$\{ORIGIN\}(/|$)")


def linked_files(folder):
    """The programs and libraries below the folder; object files are not linked yet."""
    for path in sorted(pathlib.Path(folder).rglob("*")):
        if path.is_symlink() or not path.is_file() or path.suffix in (".o", ".a"):
            continue
        with path.open("rb") as file:
            if file.read(4) == b"\x7fELF":
                yield path


def faults(path):
    listing = subprocess.run(["readelf", "--dynamic", "--wide", path],
                             check=True, capture_output=True, text=True).stdout
    for run_path in ENTRIES.findall(listing):
        for entry in run_path.split(":"):
            if not FIXED.match(entry):
                yield f'{path}: the entry "{entry}" of its run path "{run_path}" is not absolute'


def main(folders):
    found = []
    for folder in folders:
        files = list(linked_files(folder))
        if not files:
            found.append(f"{folder}: no program and no library")
        found += [fault for path in files for fault in faults(path)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


sys.exit(main(sys.argv[1:]))
