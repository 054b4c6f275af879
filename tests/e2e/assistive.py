"""What a screen reader finds in the viewer's trigger tab and its dialog: assistive.py VIEWER.

Runs the viewer on its own simulated camera and looks at it through AT-SPI, as assistive technology
does.
"""

import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60  # seconds
LINES = ("Line0", "Line1", "Line2", "Line3")
BASIC = ("I/O Mode", "Invert", "I/O Line Source")
DEBOUNCE = ("Debounce Mode", "Debounce Duration (µs)")


def hear():
    """Takes in what the bus has told meanwhile: names are remembered until they are said to change."""
    context = GLib.MainContext.default()
    while context.pending():
        context.iteration(False)


def awaited(what, look):
    """What `look` finds, as soon as it finds something."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except GLib.Error:  # What was looked at is gone by now.
            found = None
        if found:
            return found
        hear()
        time.sleep(0.1)
    sys.exit(f"{what}: not found")


def below(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child
            yield from below(child)


def children(node):
    return [node.get_child_at_index(index) for index in range(node.get_child_count())]


def viewer(process):
    """The program that was started, among all that the bus knows."""
    for program in children(Atspi.get_desktop(0)):
        if program is not None and program.get_process_id() == process.pid:
            return program
    return None


def window(program, title):
    return next((child for child in children(program) if title in child.get_name()), None)


def table(root):
    found = (node for node in below(root) if node.get_role() == Atspi.Role.TABLE)
    return next((node for node in found if node.get_name() == "I/O lines"), None)


def cells(root):
    return [
        node.get_name() for node in children(table(root)) if node.get_role() == Atspi.Role.TABLE_CELL
    ]


def check_cells(root, headers):
    """Every cell says where it stands, and the lamps their levels."""
    names = awaited("the table's cells", lambda: cells(root))
    settings = [name for name in names if ", " in name]
    expected = [f"{line}, {header}" for line in LINES for header in headers]
    if sorted(settings) != sorted(expected):
        sys.exit(f"cells are called {settings} instead of {expected}")
    lamps = [name for name in names if name not in settings]
    if [name.split(": ")[0] for name in lamps] != list(LINES):
        sys.exit(f"lamps are called {lamps}")
    if {name.split(": ")[1] for name in lamps} - {"high", "low"}:
        sys.exit(f"lamps are called {lamps}")


def press(cell):
    """Clicks into the middle of the cell."""
    place = cell.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
    middle = (place.x + place.width // 2, place.y + place.height // 2)
    subprocess.run(["xdotool", "mousemove", *map(str, middle), "click", "1"], check=True)


def check_lamp_follows(root):
    """Who inverts an output that is off, hears of its new level from the lamp's name."""
    for level in ("high", "low"):
        press(next(cell for cell in children(table(root)) if cell.get_name() == "Line3, Invert"))
        awaited(f"Line3: {level}", lambda: f"Line3: {level}" in cells(root))


def check_overview(root):
    roles = (Atspi.Role.TREE, Atspi.Role.TREE_TABLE)
    names = [node.get_name() for node in below(root) if node.get_role() in roles]
    if not names or not all(names):
        sys.exit(f"overviews are called {names}")


def open_dialog(root):
    button = next(node for node in below(root) if node.get_name() == "Open dialog")
    Atspi.Action.do_action(button.get_action_iface(), 0)


def check(process):
    program = awaited("the viewer", lambda: viewer(process))
    main = awaited("the window", lambda: window(program, "ZalViewer"))
    awaited("the tab's table", lambda: table(main))
    check_cells(main, BASIC)
    check_lamp_follows(main)
    check_overview(main)
    open_dialog(main)
    dialog = awaited("the dialog", lambda: window(program, "Advanced Trigger IO"))
    check_cells(dialog, BASIC + DEBOUNCE)
    check_overview(dialog)


def main():
    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    with subprocess.Popen([sys.argv[1]], env=environment) as process:
        try:
            # A program joins the bus of assistive technology when that appears, not before.
            search = ["xdotool", "search", "--sync", "--onlyvisible", "--name", "ZalViewer"]
            subprocess.run(search, check=True, timeout=PATIENCE, stdout=subprocess.DEVNULL)
            check(process)
        finally:
            process.terminate()


main()
