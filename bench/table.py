"""Turns benchmark results (JSON) into the Markdown table of docs/performance.md."""

import argparse
import json
import pathlib
import re
import sys

OPERATIONS = {
    "FirstShow": "`get()` and first show",
    "Dialog": "Opening the dialog",
    "Tick_0": "Tick, nothing changed",
    "Tick_1": "Tick, one feature changed",
    "Tick_all": "Tick, all features changed",
    "Edit_combo_box": "Edit, combo box",
    "Edit_spin_box": "Edit, spin box",
}
HEAD = ("| Operation | Camera | Time | Floor | SDK calls | Distinct reads "
        "| Wire reads / writes | Floor's |")
MEASURED = {"features", "fastest_us", "sdk_calls", "distinct_reads", "wire_reads", "wire_writes"}
NAME = re.compile(r"^BM_(Floor_)?(\w+)/([a-z]+)")
TABLE = re.compile(r"(<!-- table -->\n).*?(<!-- end of table -->)", re.DOTALL)


def smallest(results):
    """The smallest numbers of all repetitions by (operation, camera kind, number of features), of
    the tab (False) and of the floor (True): whatever else goes on can only add to them."""
    found = {}
    for run in results["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        if run.get("error_occurred"):
            sys.exit(f"{run['run_name']}: {run['error_message']}")
        floor, operation, kind = NAME.match(run["run_name"]).groups()
        both = found.setdefault((operation, kind, int(run["features"])), {})
        known = both.setdefault(bool(floor), run)
        both[bool(floor)] = {field: min(known[field], run[field]) for field in MEASURED & run.keys()}
    return found


def duration(microseconds):
    for limit, divisor, unit in ((1, 1e-3, "ns"), (1e3, 1, "µs"), (1e6, 1e3, "ms")):
        if microseconds < limit:
            return f"{microseconds / divisor:.3g} {unit}"
    return f"{microseconds / 1e6:.3g} s"


def row(key, tab, floor):
    operation, kind, count = key
    idle = tab["sdk_calls"] == 0
    cells = [
        OPERATIONS[operation],
        f"{kind}, {count:,} features",
        duration(tab["fastest_us"]),
        "nothing to do" if idle else duration(floor["fastest_us"]),
        f"{tab['sdk_calls']:,.0f}",
        f"{floor['distinct_reads']:,.0f}",
        wire(kind, tab),
        wire(kind, floor),
    ]
    return "| " + " | ".join(cells) + " |"


def wire(kind, run):
    return f"{run['wire_reads']:.0f} / {run['wire_writes']:.0f}" if kind == "simulated" else "–"


def table(results):
    found = smallest(results)
    order = list(OPERATIONS)
    keys = sorted(found, key=lambda key: (order.index(key[0]), key[1], key[2]))
    rows = [row(key, found[key][False], found[key][True]) for key in keys if len(found[key]) == 2]
    columns = HEAD.count("|") - 1
    return "\n".join([HEAD, "|---|---|" + "---:|" * (columns - 2)] + rows) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("results", type=pathlib.Path)
    parser.add_argument("--update", type=pathlib.Path, help="document whose table is replaced")
    arguments = parser.parse_args()

    text = table(json.loads(arguments.results.read_text(encoding="utf-8")))
    print(text, end="")
    if arguments.update:
        document = arguments.update.read_text(encoding="utf-8")
        replaced = TABLE.sub(lambda marks: f"{marks[1]}\n{text}\n{marks[2]}", document)
        arguments.update.write_text(replaced, encoding="utf-8")


main()
