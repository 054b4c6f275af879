"""Checks presets files against a JSON schema: check-presets.py SCHEMA FILE..."""

import json
import sys

from jsonschema import Draft7Validator


def faults(validator, path):
    with open(path, encoding="utf-8") as file:
        content = json.load(file)
    for error in validator.iter_errors(content):
        place = "/".join(str(part) for part in error.absolute_path)
        yield f"{path}: {place or 'the file'}: {error.message}"


def main(schema_path, *paths):
    with open(schema_path, encoding="utf-8") as file:
        schema = json.load(file)
    Draft7Validator.check_schema(schema)
    found = [fault for path in paths for fault in faults(Draft7Validator(schema), path)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


sys.exit(main(*sys.argv[1:]))
