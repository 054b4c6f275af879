"""Checks that the translation files are complete and in step with the texts in the sources."""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

FOLDER = pathlib.Path("translations")


def names():
    languages = (FOLDER / "languages.txt").read_text().split()
    for line in (FOLDER / "catalogues.txt").read_text().splitlines():
        if not line.startswith("#"):
            yield from (f"{line.split()[0]}_{language}.ts" for language in languages)


def fixed_parts(text):
    """What has to be the same in every language: placeholders, tags, line breaks, numbers, outer blanks."""
    return sorted(re.findall(r"%L?\d|%n|</?\w[^>]*>|\n|^\d+\. |^ +| +$", text))


def message_faults(path):
    for message in xml.etree.ElementTree.parse(path).iter("message"):
        source = message.findtext("source")
        translation = message.find("translation")
        text = "".join(translation.itertext())
        if translation.get("type") == "unfinished" or not text.strip():
            yield f'"{source}" is not translated'
        elif fixed_parts(source) != fixed_parts(text):
            yield f'"{source}" differs in placeholders, tags, line breaks, numbers or outer blanks from "{text}"'


def faults(updated):
    update = subprocess.run(["scripts/update-translations", updated], capture_output=True, text=True)
    yield from (update.stdout + update.stderr).splitlines()
    expected = set(names())
    for name in sorted(expected | {path.name for path in FOLDER.glob("*.ts")}):
        if name not in expected:
            yield f"{name}: belongs to no catalogue"
        elif not (FOLDER / name).exists():
            yield f"{name}: is missing"
        else:
            yield from (f"{name}: {fault}" for fault in message_faults(pathlib.Path(updated) / name))
            if (FOLDER / name).read_bytes() != (pathlib.Path(updated) / name).read_bytes():
                yield f"{name}: is not in step with the sources; run scripts/update-translations"


def main():
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(FOLDER, folder, dirs_exist_ok=True)
        found = list(faults(folder))
    for fault in found:
        print(fault)
    return 1 if found else 0


sys.exit(main())
