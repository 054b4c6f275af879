"""Checks that files have at most 400 lines and functions 40."""

import re
import sys

MAX_FILE = 400
MAX_FUNCTION = 40

# With the project's format the body of a function at file or class level opens with a brace alone
# on its line, and closes with one at the same indent.
OPEN = re.compile(r"^( {0,4})\{$")
SCOPE = re.compile(r"^\s*(class|struct|enum|namespace|union|extern)\b")


def long_functions(lines):
    start, indent = None, ""
    for number, line in enumerate(lines):
        opening = OPEN.match(line)
        if start is None and opening and not SCOPE.match(head_of(lines, number)):
            start, indent = number, opening.group(1)
        elif start is not None and line.startswith(indent + "}"):
            if number - start - 1 > MAX_FUNCTION:
                yield start + 1, number - start - 1
            start = None


def head_of(lines, number):
    """The first line of the declaration whose brace stands at `number`."""
    while number > 0 and lines[number - 1].strip() and not lines[number - 1].lstrip().startswith("//"):
        number -= 1
    return lines[number]


def main(paths):
    found = []
    for path in paths:
        with open(path, encoding="utf-8") as file:
            lines = file.read().splitlines()
        if len(lines) > MAX_FILE:
            found.append(f"{path}: {len(lines)} lines, more than {MAX_FILE}")
        found += [f"{path}:{at}: function of {length} lines, more than {MAX_FUNCTION}"
                  for at, length in long_functions(lines)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


sys.exit(main(sys.argv[1:]))
