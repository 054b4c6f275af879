"""Checks that the SDK's headers say what they declare: check-documentation.py [--list]

It counts what a user of a header can see: types, functions, constructors, data members, constants and
enumerators that are not private. It leaves out what needs no words: destructors, operators, what is
deleted or defaulted, overrides (the base documents them), friends and forward declarations. Documented
is what has a comment of its own: `///` right above, or `///<` behind.
"""

import pathlib
import re
import sys

# At least this share of the declarations is documented.
SHARES = {"sdk/include/ZalCPP": 0.90, "sdk/bridge": 0.75}

ACCESS = re.compile(r"(public|protected|private):$")
NAMESPACE = re.compile(r"(inline )?namespace\b")
TYPE = re.compile(r"(template <.*> )?(class|struct|enum|union)\b[^(]*$")
SELF_EVIDENT = re.compile(r"~|\boperator\b|= delete;|= default;|\boverride\b|^friend\b"
                          r"|^(class|struct) [\w:]+;$")


class Header:
    """The declarations of one header in the project's format."""

    def __init__(self, path):
        self.declarations = []  # Line, text, and whether it is documented.
        self.scopes = []  # For each open brace: what it opens, and whether what follows is private.
        self.begin()
        for self.line, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            code, _, comment = (part.strip() for part in line.partition("//"))
            self.take(code, comment)

    def begin(self, documented=False):
        self.start, self.statement, self.documented = 0, "", documented

    def take(self, code, comment):
        if not code:
            if not self.statement:
                self.documented = comment.startswith("/") or (self.documented and bool(comment))
        elif ACCESS.match(code):
            self.scopes[-1][1] = code != "public:"
        elif not code.startswith("#"):
            self.documented = self.documented or comment.startswith("/<")
            self.read(code)

    def read(self, code):
        self.start = self.start or self.line
        self.statement = f"{self.statement} {code}".strip()
        for brace in re.findall(r"[{}]", code):
            self.open() if brace == "{" else self.scopes.pop()
        inside = self.scopes[-1][0] if self.scopes else "namespace"
        if inside != "body" and code.endswith((";", "{", "}", ",") if inside == "enum" else (";", "{", "}")):
            if not code.endswith("{"):
                self.declare(inside)
            self.begin()

    def open(self):
        head = self.statement.split("{")[0].strip()
        is_private = bool(self.scopes) and self.scopes[-1][1]
        kind = "body"
        if NAMESPACE.match(head):
            kind = "namespace"
        elif TYPE.match(head):
            kind = "enum" if "enum " in head else "type"
            self.declare()
        self.scopes.append([kind, is_private or head.startswith("class ")])

    def declare(self, inside="type"):
        is_private = bool(self.scopes) and self.scopes[-1][1]
        hides = self.statement.startswith("}") or SELF_EVIDENT.search(self.statement)
        if not is_private and not hides:
            self.declarations.append((self.start, self.statement, self.documented))


def main(options):
    status = 0
    for folder, share in SHARES.items():
        found = [(path, *declaration) for path in sorted(pathlib.Path(folder).glob("*.h"))
                 for declaration in Header(path).declarations]
        documented = sum(entry[3] for entry in found)
        print(f"{folder}: {documented} of {len(found)} declarations documented, "
              f"{documented / len(found):.0%}; at least {share:.0%}")
        if "--list" in options:
            print(*(f"  {'    ' if known else 'NOT '}{path}:{line}: {text[:90]}"
                    for path, line, text, known in found), sep="\n")
        status |= documented < share * len(found)
    return int(status)


sys.exit(main(sys.argv[1:]))
