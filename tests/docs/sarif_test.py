"""The kept log of tests/data/faults is a valid SARIF log, as far as the kept subset of its rules goes.

Skipped where the package jsonschema is missing.
"""

import json
import pathlib
import sys
import unittest

try:
    import jsonschema
except ImportError:
    print("The Python package jsonschema is not installed.")
    sys.exit(77)

DATA = pathlib.Path(__file__).resolve().parents[1] / "data"

# what stands in the log, what is put in its place
FAULTS = [
    ('"version":"2.1.0"', '"version":"2.1"'),
    ('"columnKind":"unicodeCodePoints"', '"columnKind":"bytes"'),
    ('"startLine":1', '"startLine":0'),
    ('"level":"error"', '"level":"fatal"'),
    ('"uri":"', '"uri":" '),
    ('"message":{"text":', '"message":{"words":'),
]


class Log(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        schema = json.loads((DATA / "sarif-2.1.0-subset.json").read_text(encoding="utf-8"))
        jsonschema.Draft202012Validator.check_schema(schema)
        cls.validator = jsonschema.Draft202012Validator(schema)
        cls.text = (DATA / "faults.sarif").read_text(encoding="utf-8")

    def test_is_valid(self):
        log = json.loads(self.text)
        self.assertEqual([one.message for one in self.validator.iter_errors(log)], [])
        for run in log["runs"]:
            rules = [rule["id"] for rule in run["tool"]["driver"]["rules"]]
            for result in run["results"]:
                self.assertEqual(rules[result["ruleIndex"]], result["ruleId"])

    def test_is_not_valid_with_a_fault(self):
        for old, new in FAULTS:
            with self.subTest(new):
                self.assertIn(old, self.text)
                faulty = json.loads(self.text.replace(old, new, 1))
                self.assertFalse(self.validator.is_valid(faulty))


if __name__ == "__main__":
    unittest.main()
