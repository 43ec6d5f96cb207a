"""Each check is able to fail: a copy of the catalogue with one fault in it, and the complaint."""

import json
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalogue as lib
import definition_checks as definitions
import text_checks as symbols

FOOT = "core/units/length/foot.json"
SLUG = "core/units/mass/slug.json"
KILO = "core/factors/kilo.json"
LENGTH = "core/quantities/length.json"
CELSIUS = "core/units/temperature/degreeCelsius.json"
PSIG = "gauge/units/psiGauge.json"
PERCENT = "core/units/ratio/percent.json"
FOOT_TEXT = "symbols/length/display/foot.json"
MICRO_TEXT = "symbols/length/display/micrometer.json"
FEET = "aliases/length/spellings/foot.feet.json"
LAYOUT = "symbols/composite/display/feetAndInches.json"

# check, file, what stands there, what is put in its place (None: the file goes), the complaint
FAULTS = [
    (definitions.manifest, FOOT, "", None, "core: 656 units, but 657 are promised"),
    (definitions.layout, FOOT, "0.3048}", "0.3048 }", "laid out"),
    (definitions.layout, KILO, "{\n", "{\r\n", "laid out"),
    (definitions.layout, MICRO_TEXT, "\u00b5m", "\\u00b5m", "laid out"),
    (definitions.layout, FOOT, '"typeid"', '"name": "foot",\n  "typeid"', "members"),
    (definitions.layout, FOOT, '"unitSystem"', '"system"', "constants"),
    (definitions.layout, SLUG, '"factor", "value": 1}', '"offset", "value": 1}', "constants"),
    (definitions.layout, KILO, '"piPower": 0, ', "", "source members"),
    (definitions.layout, FEET, '{"note": "input spelling"}', "{}", "source members"),
    (definitions.names, FOOT, ":foot-1.0.0", ":foots-1.0.0", "holds foots"),
    (definitions.names, FOOT, ":foot-1.0.0", ":foot-1.0.1", "type id"),
    (definitions.names, FOOT, ".unit:foot-1", ".factor:foot-1", "belongs into"),
    (definitions.names, FOOT, ".unit:foot-1", ".unit:inch-1", "taken by another file"),
    (definitions.names, FEET, "symbolAlias:", "symbol:", "belongs into nowhere"),
    (definitions.names, FOOT, '"foot"}', '"inch"}', "two units are called inch"),
    (definitions.names, SLUG, "unit.derived", "quantity", "a quantity in the namespace unit"),
    (definitions.references, SLUG, ":pound-", ":pond-", "trelvon.unit:pond-1.0.0 is not in"),
    (definitions.references, FEET, "unit:foot-", "symbol:foot-", "is not in ['core']"),
    (definitions.references, LENGTH, ":mil-", ":surveyFoot-", "is not in ['core']"),
    (definitions.documents, FOOT, "IYP59", "IYP60", "unknown document IYP60"),
    (definitions.documents, "core/units/amountOfSubstance/enzymeUnit.json", "", None,
     "nothing names NC-IUB 1978"),
    (definitions.exactness, FOOT, "0.3048}", "0.3049}", "computes to 3049/10000 pi^0"),
    (definitions.exactness, FOOT, "381/1250", "382/1250", "computes to 381/1250 pi^0"),
    (definitions.exactness, SLUG, "Foot-1.0.0\": -1", "Foot-1.0.0\": -2", "computes to"),
    (definitions.exactness, "core/units/angle/degree.json", '"piPower": 1', '"piPower": 0',
     "computes to 1/180 pi^1"),
    (definitions.exactness, "core/factors/pi.json", "589793}", "589792}", "not the double nearest"),
    (definitions.exactness, CELSIUS, "273.15}", "273.16}", "computes to 6829/25 pi^0"),
    (definitions.exactness, PSIG, "513449}", "513447}", "not the double nearest"),
    (definitions.exactness, PSIG, "18677382000000", "18677382000001", "computes to"),
    (definitions.exactness, FOOT, '"exactness": "exact"', '"exactness": "measured"', "is measured"),
    (definitions.cancelled_powers, FOOT, '"trelvon.unit:meter-1.0.0": 1',
     '"trelvon.unit:kilogram-1.0.0": 1, "trelvon.unit:cubicMeterPerKilogram-1.0.0": 1',
     "foot.json: a power cancels"),
    (definitions.cancelled_powers, PERCENT, '"trelvon.unit:reciprocalMeter-1.0.0": 1',
     '"trelvon.unit:second-1.0.0": 1', "percent.json: reduces to"),
    (definitions.quantities, LENGTH, ":inch-", ":second-", "second-1.0.0 has other powers"),
    (definitions.quantities, LENGTH, ":inch-", ":foot-", "lists a unit twice"),
    (definitions.quantities, "core/quantities/temperature.json", ":kelvinAbsolute-", ":kelvin-",
     "mixes absolute and relative"),
    (definitions.quantities, "core/quantities/wavenumber.json", ":reciprocalMeter-", ":meter-",
     "has other powers"),
    (definitions.quantities, LENGTH, '      {"typeid": "trelvon.unit:inch-1.0.0"},\n', "",
     "inch.json: is in no quantity"),
    (symbols.form, FOOT_TEXT, '"ft"', '"f/(t*"', ""),
    (symbols.form, FOOT_TEXT, '"ft"', '"f/(t*t)"', "more than three operators"),
    (symbols.form, FOOT_TEXT, '"ft"', '"ft "', "a space at an end"),
    (symbols.form, FOOT_TEXT, '"ft"', '"f\u00a0t"', "white space"),
    (symbols.form, FOOT_TEXT, '"ft"', '"f  t"', "white space"),
    (symbols.form, FOOT_TEXT, '"ft"', '"2ft"', "begins as a number"),
    (symbols.form, FOOT_TEXT, '"ft"', '"ln"', "reserved"),
    (symbols.form, FOOT_TEXT, '"ft"', '""', "empty"),
    (symbols.form, FOOT_TEXT, '"Suffix"', '"Prefix"', "a prefix"),
    (symbols.form, FOOT_TEXT, "true", "false", "the space before it"),
    (symbols.characters, MICRO_TEXT, "\u00b5m", "\\u03BCm", "U+03BC"),
    (symbols.characters, FEET, '"feet"', '"f\u00e9et"', "U+00E9"),
    (symbols.twice, FOOT_TEXT, '"ft"', '"in"', "has the same text"),
    (symbols.coverage, FOOT_TEXT, "", None, "foot.json: display symbols []"),
    (symbols.coverage, FOOT_TEXT, ":foot-1.0.0\"}}", ":inch-1.0.0\"}}", "display symbols"),
    (symbols.coverage, FOOT_TEXT, "IYP59", "derived", "is not that of its unit"),
    (symbols.coverage, FEET, "unit:foot-", "unit:inch-", "is an alias of trelvon.unit:inch"),
    (symbols.coverage, "aliases/length/spellings/micrometer.um.json", "", None,
     "micrometer.json: cannot be typed"),
]  # fmt: skip


class Checks(unittest.TestCase):
    def test_complain_of_the_fault_and_of_nothing_else(self):
        for check, path, old, new, complaint in FAULTS:
            with self.subTest(check=check.__name__, path=path, new=new):
                text = (lib.ROOT / path).read_text(encoding="utf-8")
                self.assertIn(old, text)
                broken = None if new is None else text.replace(old, new, 1)
                found = check(lib.Catalogue(changes={path: broken}))
                self.assertEqual(bool(found), bool(complaint), found)
                self.assertTrue(any(complaint in one for one in found) or not complaint, found)

    def test_every_check_has_a_fault(self):
        self.assertEqual({fault[0] for fault in FAULTS}, {*definitions.ALL, *symbols.ALL})

    def test_the_manifest_is_compared_both_ways(self):
        counts = json.loads((lib.ROOT / "manifest.json").read_text(encoding="utf-8"))
        counts["packs"].append({**counts["packs"][0], "pack": "more"})
        self.assertIn(
            "more: 0 units, but 657 are promised", definitions.manifest(lib.Catalogue(), counts)
        )

    def test_a_member_given_twice_is_an_error(self):
        with self.assertRaises(ValueError):
            lib.parse('{"a": 1, "a": 2}')


if __name__ == "__main__":
    unittest.main()
