"""Checks which symbols a library exports: check-exports.py LIBRARY LIST

The list has one symbol a line, demangled and in order. A symbol that is missing there became part of the
interface without anybody deciding so. One that is missing in the library breaks programs that use it.
"""

import difflib
import pathlib
import subprocess
import sys


def exported_symbols(library):
    listing = subprocess.run(
        ["nm", "--dynamic", "--defined-only", "--demangle", "--format=posix", library],
        check=True, capture_output=True, text=True).stdout
    # A name is followed by its kind, address and size. Constructors come twice under one name.
    return sorted({line.rsplit(maxsplit=3)[0] for line in listing.splitlines()})


def main(library, kept):
    expected = pathlib.Path(kept).read_text(encoding="utf-8").splitlines()
    difference = difflib.unified_diff(expected, exported_symbols(library), kept, library,
                                      lineterm="", n=0)
    found = list(difference)
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


sys.exit(main(*sys.argv[1:]))
