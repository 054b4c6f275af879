"""Checks that dependencies between the folders point one way, and how the plugin connects."""

import pathlib
import re
import subprocess
import sys

# For each folder, the folders whose headers it may include.
ALLOWED = {
    "features": {"features"},
    "widgets": {"widgets", "features"},
    "trigger": {"trigger", "widgets", "features"},
    "ui": {"ui", "trigger", "widgets", "features"},
    "plugin": {"plugin", "ui", "trigger", "widgets", "features"},
    "sdk/include": set(),
    "sdk/bridge": {"sdk/bridge"},
    "sdk/simulator": {"sdk/simulator"},
    "sdk/cameras": {"sdk/cameras", "sdk/simulator"},
    "host": {"host", "sdk/cameras", "sdk/simulator"},
    "tools/presetcheck": {"tools/presetcheck", "features", "sdk/cameras", "sdk/simulator"},
}
# Leaves that may be included from below their folders as well, each with the folders that it may
# include itself. Only those above these may include the leaf, or dependencies would go round.
LEAVES = {
    "plugin/TabExtensionException": set(),
    "plugin/TABMessageHandler": set(),
    "ui/SettingsTreeModel": {"features"},
}
# The engine is built on parts in its own folder, which know nothing of it, nor of the overview.
ENGINE = "trigger/AdvTriggerBase"
KNOWN_TO_ENGINE = {ENGINE + ".h", "ui/SettingsTreeModel.h"}
# What the host shares with the plugin, what lets the checker read presets as the plugin does, and
# where a refusal has its code from.
EXTRA = {
    "plugin/TabExtensionException": {"plugin/TabExtensionInterface.h"},
    "host": {"plugin/TabExtensionInterface.h"},
    "tools/presetcheck": {"trigger/PresetFile.h"},
}
# The one connection that is not by SIGNAL and SLOT: a class without slots listens to itself.
FUNCTOR_CONNECTS = {"widgets/CollapsingButton.cpp": 1}
PLUGIN_FOLDERS = {"features", "widgets", "trigger", "ui", "plugin"}
# What the plugin needs of an SDK: features. Somebody else opens the camera.
PLUGIN_SDK = {"EnumEntry.h", "Feature.h", "IFeatureObserver.h", "ZalTypes.h"}

FUNCTOR_CONNECT = re.compile(r"\bconnect\([^;]*?&\s*\w+(?:::\w+)+\s*,")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def folder_of(path):
    return next((f for f in ALLOWED if path.startswith(f + "/")), None)


def leaf_of(path):
    stem = path.rpartition(".")[0]
    return stem if stem in LEAVES else None


def is_above_leaf(folder, leaf):
    return folder in PLUGIN_FOLDERS and LEAVES[leaf] <= ALLOWED[folder] - {folder}


def may_include(path, target):
    folder, leaf = folder_of(path), leaf_of(path)
    if leaf and leaf_of(target) != leaf:
        return folder_of(target) in LEAVES[leaf] or target in EXTRA.get(leaf, set())
    if folder == "trigger" and target in KNOWN_TO_ENGINE:
        return path == ENGINE + ".cpp"
    if folder_of(target) in ALLOWED[folder] or target in EXTRA.get(folder, set()):
        return True
    return target.endswith(".h") and bool(leaf_of(target)) and is_above_leaf(folder, leaf_of(target))


def violations(path):
    folder = folder_of(path)
    if folder in PLUGIN_FOLDERS:
        source = pathlib.Path(path).read_text(encoding="utf-8")
        if len(FUNCTOR_CONNECT.findall(source)) != FUNCTOR_CONNECTS.get(path, 0):
            yield f"{path}: connects other than by SIGNAL and SLOT"
    for style, target in INCLUDE.findall(pathlib.Path(path).read_text(encoding="utf-8")):
        if style == "<":
            if folder in PLUGIN_FOLDERS and re.match(r"arv|glib|gio", target):
                yield f"{path}: includes <{target}>; the plugin knows nothing of the transport"
            if folder in PLUGIN_FOLDERS and target.startswith("ZalCPP/"):
                if target.removeprefix("ZalCPP/") not in PLUGIN_SDK:
                    yield f"{path}: includes <{target}>; the plugin knows features, not cameras"
            continue
        if target.startswith("ui_") or target.endswith(".moc") or may_include(path, target):
            continue
        yield f'{path}: includes "{target}", which it must not know'


def main():
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.h", "*.cpp"],
        check=True, capture_output=True, text=True).stdout.split()
    found = [v for path in listed if folder_of(path) for v in violations(path)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


sys.exit(main())
