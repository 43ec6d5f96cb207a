"""The checks find nothing in the shipped definitions, and each is able to fail."""

import json
import pathlib
import sys
import unittest
from fractions import Fraction

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalog as lib
import code_checks as codes
import definition_checks as definitions
import make_aliases
import make_reference
import text_checks as symbols

FOOT = "core/units/length/foot.json"
FOOT_PER_SECOND = "core/units/velocity/footPerSecond.json"
PSIG = "gauge/units/psiGauge.json"
LENGTH = "core/quantities/length.json"
FOOT_TEXT = "symbols/length/display/foot.json"
FEET = "aliases/length/spellings/foot.feet.json"
CODES = "core/codes.json"

# check, file, what stands there, what is put in its place (None: the file goes), the complaint
FAULTS = [
    (definitions.manifest, FOOT, "", None, " units, but "),
    (definitions.layout, FOOT, "0.3048}", "0.3048 }", "laid out"),
    (definitions.layout, FEET, '{"note": "input spelling"}', "{}", "source members"),
    (definitions.names, FOOT, ":foot-1.0.0", ":foots-1.0.0", "holds foots"),
    (definitions.names, FEET, "symbolAlias:", "symbol:", "belongs into nowhere"),
    (definitions.documents, FOOT, "IYP59", "IYP60", "unknown document IYP60"),
    (definitions.documents, FOOT, '"IYP59"', '"trade"', "foot.json: a custom of a trade"),
    (definitions.exactness, FOOT, "0.3048}", "0.3049}", "computes to 3049/10000 pi^0"),
    (definitions.exactness, PSIG, "513449}", "513447}", "not the double nearest"),
    (definitions.systems, FOOT_PER_SECOND, "Imperial", "Metric", "foot-1.0.0 is not"),
    (definitions.quantities, LENGTH, ":inch-", ":foot-", "lists a unit twice"),
    (definitions.quantities, LENGTH, ":picometer-", ":kilometer-", "out of order"),
    (symbols.form, FOOT_TEXT, '"ft"', '"f/(t*t)"', "more than three operators"),
    (symbols.form, FOOT_TEXT, '"ft"', '"f\u00a0t"', "white space"),
    (symbols.characters, FEET, '"feet"', '"f\u00e9et"', "U+00E9"),
    (symbols.twice, FOOT_TEXT, '"ft"', '"feet"', "has the same text twice"),
    (symbols.coverage, FOOT_TEXT, "", None, "foot.json: display symbols []"),
    (codes.mappings, CODES, '"rec20": ["FOT"]', '"rec21": ["FOT"]', "unknown systems"),
    (codes.mappings, CODES, '["FOT"]', '["INH"]', "rec20:INH stands in core/codes.json:"),
    (codes.mappings, CODES, "unit:foot-", "unit:feet-", "feet-1.0.0 is not a unit of the pack"),
    (codes.mappings, CODES, '"[ft_i]"', '"[ft_i]"], "udunits": ["f"', "another order"),
    (codes.mappings, CODES, '  "trelvon.unit:foot-', '"trelvon.unit:foot-', "codes.json:1:"),
    (codes.mappings, CODES, "ucum:[acr_br]", "ucum:[acr_us]", "differs, but is not there"),
    (codes.sizes, CODES, '"[ft_i]"', '"[yd_i]"', "ucum:[yd_i]: another size is not explained"),
    (codes.sizes, CODES, '"[ft_i]"', '"[ft_x]"', "ucum has no code [ft_x]"),
    (codes.sizes, CODES, '["FOT"]', '["FTK"]', "rec20:FTK: another size is not explained"),
    (codes.sizes, CODES, "ucum:[acr_br]", "ucum:[acr_us]", "ucum:[acr_br]: another size"),
    (codes.sizes, CODES, '"FT"]', '"FTT"]', "qudt has no code FTT"),
]  # fmt: skip

ALL = definitions.ALL + symbols.ALL + codes.ALL


class Checks(unittest.TestCase):
    def test_have_no_complaint(self):
        shipped = lib.Catalog()
        for check in ALL:
            self.assertEqual(check(shipped), [])

    def test_complain_of_the_fault(self):
        self.assertEqual({fault[0] for fault in FAULTS}, set(ALL))
        for check, path, old, new, complaint in FAULTS:
            with self.subTest(check=check.__name__, path=path, new=new):
                text = (lib.ROOT / path).read_text(encoding="utf-8")
                self.assertIn(old, text)
                broken = None if new is None else text.replace(old, new, 1)
                found = check(lib.Catalog(changes={path: broken}))
                self.assertTrue(any(complaint in one for one in found), found)

    def test_complain_of_codes_of_an_unknown_pack(self):
        text = (lib.ROOT / CODES).read_text(encoding="utf-8")
        found = codes.mappings(lib.Catalog(changes={"cores/codes.json": text}))
        self.assertIn("cores/codes.json:1: unknown pack or file", found)

    def test_miss_the_alias_of_a_family(self):
        path = "aliases/velocity/spellings/inchPerHour.inPerHr.json"
        rules = json.loads(make_aliases.RULES.read_text(encoding="utf-8"))
        found = make_aliases.missing(lib.Catalog(changes={path: None}), rules)
        self.assertEqual(found, {path: (lib.ROOT / path).read_text(encoding="utf-8")})

    def test_pages_round_to_ten_digits(self):
        decimals = {
            "8896443230521/1290320000": "6894.757293", "99999999999/10000000000": "10",
            "1/3": "0.3333333333", "-2/3": "-0.6666666667", "1/1000000": "1e-6",
            "1e12": "1e12", "99999999999": "100000000000", "0": "0",
        }  # fmt: skip
        for value, text in decimals.items():
            self.assertEqual(make_reference.decimal(Fraction(value)), text)


if __name__ == "__main__":
    unittest.main()
