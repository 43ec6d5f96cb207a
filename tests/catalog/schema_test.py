"""The JSON Schemas for editors accept every shipped file and refuse the usual slips of the pen.

Skipped where the package jsonschema is missing.
"""

import json
import pathlib
import re
import sys
import unittest

try:
    import jsonschema
except ImportError:
    print("The Python package jsonschema is not installed.")
    sys.exit(77)

SCHEMAS = pathlib.Path(__file__).resolve().parents[2] / "schemas"

DIMENSION = "core/dimensions/length.json"
FACTOR = "core/factors/kilo.json"
PRIMITIVE = "core/units/length/meter.json"
DERIVED = "core/units/mass/slug.json"
ABSOLUTE = "core/units/temperature/degreeCelsius.json"
COMPOSITE = "symbols/composite/display/feetAndInches.json"
SUFFIX = "symbols/length/display/foot.json"
QUANTITY = "core/quantities/solidAngle.json"

# file, what stands there, what is put in its place
FAULTS = [
    (DERIVED, '"typeid": "trelvon.unit:slug-1.0.0",\n', ""),
    (DERIVED, '"trelvon.unit:slug-1.0.0"', '""'),
    (DERIVED, '"trelvon.unit:slug-1.0.0"', "5"),
    (DERIVED, '"inherits"', '"inherit"'),
    (DERIVED, '["vellamor.unit:unit.derived-1.0.0"]', "[]"),
    (DERIVED, '["vellamor.unit:unit.derived-1.0.0"]', '"vellamor.unit:unit.derived-1.0.0"'),
    (DERIVED, "-1.0.0\"]", "-1.0.0\", \"vellamor.unit:unit.derived-1.0.0\"]"),
    (DERIVED, "unit.derived-1.0.0", "unit.derived-2.0.0"),
    (DERIVED, "unit:unit.derived-", "unit:unit.deriven-"),
    (DERIVED, '"id": "name", ', ""),
    (DERIVED, '"value": "slug"', '"value": ""'),
    (DERIVED, '"value": "slug"', '"value": 5'),
    (DERIVED, '"value": "slug"', '"text": "slug"'),
    (DERIVED, '"value": "slug"', '"value": "slug", "typedValue": {"typeid": "a"}'),
    (DERIVED, '"Imperial"', '"imperial"'),
    (DERIVED, '"factor", "value": 1', '"factor", "value": "1"'),
    (DERIVED, '"id": "parentUnits"', '"id": "parentFactors"'),
    (DERIVED, '"id": "factor", "value": 1', '"id": "name", "value": "again"'),
    (DERIVED, '{"trelvon.unit:pound-1.0.0": 1}', "{}"),
    (DERIVED, '"trelvon.unit:pound-1.0.0": 1', '"trelvon.unit:pound-1.0.0": 0'),
    (DERIVED, '"trelvon.unit:pound-1.0.0": 1', '"trelvon.unit:pound-1.0.0": 0.5'),
    (DERIVED, '"trelvon.unit:pound-1.0.0": 1', '"trelvon.unit:pound-1.0.0": 3000000000'),
    (DERIVED, '{"trelvon.unit:pound-1.0.0": 1}', '"trelvon.unit:pound-1.0.0"'),
    (DERIVED, '["811 B.8"]', '"811 B.8"'),
    (DERIVED, '["811 B.8"]', "[]"),
    (DERIVED, '["811 B.8"]', '["811 B.8", "811 B.8"]'),
    (DERIVED, "8896443230521/609600000000", "14.59"),
    (DERIVED, '"piPower": 0, ', ""),
    (DERIVED, '"exactness": "exact"', '"exactness": "roughly"'),
    (PRIMITIVE, '{"typeid": "trelvon.dimension:length-1.0.0"}', '"trelvon.dimension:length-1.0.0"'),
    (PRIMITIVE, '{"typeid": "trelvon.dimension:length-1.0.0"}', '{"typeid": ""}'),
    (PRIMITIVE, '{"typeid": "trelvon.dimension:length-1.0.0"}', "{}"),
    (PRIMITIVE, '{"typeid": "trelvon.dimension:length-1.0.0"}', '{"typeid": "a", "power": "1"}'),
    (PRIMITIVE, "unit.primitive.dimensional", "unit.primitive"),
    (ABSOLUTE, '"typedValue"', '"value"'),
    (ABSOLUTE, '"parentUnit"', '"parentUnits"'),
    (ABSOLUTE, "273.15", "[273.15]"),
    (FACTOR, '"id": "factor"', '"id": "value"'),
    (FACTOR, '{"id": "factor", "value": 1e3}',
     '{"id": "factor", "value": 1e3}, {"id": "factor", "value": 1e2}'),
    (DIMENSION, '"constants": []', '"constants": [{"id": "name", "value": "length"}]'),
    (DIMENSION, '"constants": []', '"constants": {}'),
    (COMPOSITE, "symbol:feetAndInches-1", "symbol:feetAndYards-1"),
    (COMPOSITE, '"id": "unit"', '"id": "units"'),
    (SUFFIX, '"value": "ft"', '"value": null'),
    (SUFFIX, '"Suffix"', '"suffix"'),
    (SUFFIX, '"value": true', '"value": "true"'),
    (SUFFIX, '"id": "space"', '"id": "text"'),
    (QUANTITY, '"solid angle"', '""'),
    (QUANTITY, '{"typeid": "trelvon.unit:steradian-1.0.0"}', '"trelvon.unit:steradian-1.0.0"'),
]  # fmt: skip

# What the engine reads and a host may write, though no shipped file does.
ALLOWED = [
    (DERIVED, '{\n  "typeid"', '{\n  "$schema": "definition.schema.json",\n  "typeid"'),
    (DERIVED, '    {"id": "factor", "value": 1},\n', ""),
    (DERIVED, "vellamor.unit:unit.derived-1.0.0", "a:unit.derived-1.9"),
    (ABSOLUTE, ',\n    {"id": "offset", "value": 273.15}', ""),
    (SUFFIX, '"Suffix"', '"Prefix"'),
    (QUANTITY, '"constants"', '"properties": [{"id": "p"}],\n  "constants"'),
    (DIMENSION, '  "constants": [],\n', ""),
]

CODES = "core/codes.json"
FAULTY_CODES = [
    (CODES, '"version": 1', '"version": 2'),
    (CODES, '"version": 1', '"version": 1, "note": ""'),
    (CODES, '"rec20": ["FOT"]', '"rec21": ["FOT"]'),
    (CODES, '["FOT"]', '"FOT"'),
    (CODES, '["FOT"]', "[]"),
    (CODES, '["FOT"]', '["FOT", "FOT"]'),
    (CODES, '["FOT"]', '["fot"]'),
    (CODES, '"differs": {"ucum:', '"differs": {"rec21:'),
]

DISPLAYS = [  # and whether they are sound
    ({}, True),
    ({"symbol": "a", "places": 12, "groupMark": "\u202f", "best": {"quantity": "q", "least": 0.5}}, True),
    ({"symbol": "a", "denominator": 512, "locale": "de_CH", "minus": "sign"}, True),
    ({"places": 13}, False),
    ({"places": 1, "significant": 1}, False),
    ({"denominator": 3}, False),
    ({"locale": "German"}, False),
    ({"symbol": ""}, False),
    ({"trim": True}, False),
    ({"best": {"quantity": "q"}}, False),
    ({"unit": "a", "best": {"quantity": "q", "symbols": ["s"]}}, False),
]

# What tells one sound file from another: names and texts. Files that differ in nothing else, digits
# apart, need no second look.
VARYING = re.compile(
    r'(?<="text", "value": ")[^"]+|(?<="name", "value": ")[^"]+|(?<="note": ")[^"]+'
    r'|(?<=[.:])\w[\w.]*(?=-1\.0\.0")'
)


def validator(name):
    schema = json.loads((SCHEMAS / name).read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


class DefinitionSchema(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.definitions = validator("definition.schema.json")
        cls.codes = validator("codes.schema.json")

    def complaints(self, text):
        document = json.loads(text)
        schema = self.codes if "codes" in document else self.definitions
        return [error.message for error in schema.iter_errors(document)]

    def changed(self, path, old, new):
        text = (SCHEMAS / path).read_text(encoding="utf-8")
        self.assertIn(old, text)
        return text.replace(old, new, 1)

    def test_accepts_every_shipped_file(self):
        paths = sorted(SCHEMAS.glob("*/**/*.json"))
        self.assertGreater(len(paths), 3000)
        seen = set()
        for path in paths:
            text = path.read_text(encoding="utf-8")
            shape = re.sub(r"\d+", "1", VARYING.sub("", text))
            if shape not in seen:
                self.assertEqual(self.complaints(text), [], path)
            seen.add(shape)

    def test_tells_displays_that_can_be(self):
        displays = validator("display.schema.json")
        for display, is_sound in DISPLAYS:
            with self.subTest(display=display):
                self.assertEqual(displays.is_valid(display), is_sound)

    def test_refuses_slips_of_the_pen(self):
        for fault in FAULTS + FAULTY_CODES:
            with self.subTest(fault=fault):
                self.assertNotEqual(self.complaints(self.changed(*fault)), [])

    def test_accepts_what_hosts_may_write(self):
        for change in ALLOWED:
            with self.subTest(change=change):
                self.assertEqual(self.complaints(self.changed(*change)), [])


if __name__ == "__main__":
    unittest.main()
