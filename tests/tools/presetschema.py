"""The schema for editors accepts the shipped presets and refuses broken ones."""

import json
import pathlib
import sys
import unittest

from jsonschema import Draft7Validator

PRESETS = pathlib.Path(sys.argv.pop(1))
SCHEMA = json.loads((PRESETS / "AdvTrigger_Presets.schema.json").read_text(encoding="utf-8"))
VALIDATOR = Draft7Validator(SCHEMA)

GOOD = {
    "nothing offered": {"#presets": []},
    "schema named": {"$schema": "x", "#presets": []},
    "preset that is not listed": {"#presets": [], "A": {}},
    "nameless preset": {"#presets": [""], "": {}},
    "values": {"#presets": [], "A": {"B": {"#value": "x", "C": 1, "D": False, "E": "<min>"}}},
    "every entry": {"#presets": [], "A": {"B": {"#value": "<all>_Line_0"}, "C": {"#value": "<all>"}}},
    "list": {"#presets": [], "A": {"B": [{"#value": 1}, {"#value": "<max>", "C": ""}]}},
    "text with brackets": {"#presets": [], "A": {"B": {"#value": "a<b>"}}},
}


def preset(members):
    return {"#presets": ["A"], "A": members}


# Each with the place of the mistake.
BROKEN = {
    "list at the root": ([], ""),
    "no list": ({"A": {}}, ""),
    "list no list": ({"#presets": "A"}, "#presets"),
    "number listed": ({"#presets": [1]}, "#presets/0"),
    "listed twice": ({"#presets": ["A", "A"]}, "#presets"),
    "key at the root": ({"#presets": [], "#preset": []}, ""),
    "preset no object": ({"#presets": ["A"], "A": 1}, "A"),
    "tooltip no text": (preset({"#tooltip": 1}), "A/#tooltip"),
    "command no text": (preset({"#execute": True}), "A/#execute"),
    "command empty": (preset({"#execute": ""}), "A/#execute"),
    "key in a preset": (preset({"#value": 1}), "A"),
    "plain setting": (preset({"B": "On"}), "A/B"),
    "null setting": (preset({"B": None}), "A/B"),
    "empty list": (preset({"B": []}), "A/B"),
    "plain element": (preset({"B": ["Line0"]}), "A/B"),
    "every entry in a list": (preset({"B": [{"#value": "<all>"}]}), "A/B"),
    "no value": (preset({"B": {"C": 1}}), "A/B"),
    "key in a setting": (preset({"B": {"#value": 1, "#tooltip": ""}}), "A/B"),
    "list as value": (preset({"B": {"#value": ["x"]}}), "A/B"),
    "null as value": (preset({"B": {"#value": None}}), "A/B"),
    "no entry after all": (preset({"B": {"#value": "<all>_"}}), "A/B"),
    "text after all": (preset({"B": {"#value": "<all>Line0"}}), "A/B"),
    "unknown placeholder": (preset({"B": {"#value": "<ALL>"}}), "A/B"),
    "nested object": (preset({"B": {"#value": 1, "C": {}}}), "A/B"),
    "dependent every entry": (preset({"B": {"#value": 1, "C": "<all>"}}), "A/B"),
}


class PresetSchema(unittest.TestCase):
    def test_is_a_schema(self):
        Draft7Validator.check_schema(SCHEMA)

    def test_accepts_what_is_shipped(self):
        files = sorted(PRESETS.glob("*_Presets.json"))
        self.assertIn("AdvTrigger_Presets.json", [file.name for file in files])
        for file in files:
            with self.subTest(file.name):
                VALIDATOR.validate(json.loads(file.read_text(encoding="utf-8")))

    def test_accepts_what_is_right(self):
        for name, content in GOOD.items():
            with self.subTest(name):
                VALIDATOR.validate(content)

    def test_refuses_what_is_broken_and_says_where(self):
        for name, (content, place) in BROKEN.items():
            with self.subTest(name):
                places = ["/".join(map(str, error.absolute_path))
                          for error in VALIDATOR.iter_errors(content)]
                self.assertEqual([place], places)

    def test_explains_what_editors_complete(self):
        step = SCHEMA["definitions"]["step"]["properties"]
        preset_keys = SCHEMA["definitions"]["preset"]["properties"]
        for key, node in {**SCHEMA["properties"], **preset_keys, **step}.items():
            with self.subTest(key):
                self.assertTrue(node["description"])
        self.assertEqual(["<all>", "<min>", "<max>"], step["#value"]["anyOf"][0]["enum"])


unittest.main()
