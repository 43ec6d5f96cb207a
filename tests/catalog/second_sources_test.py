"""Second sources: GNU units and UDUNITS-2 know the same values, from their own definitions.

A row of second-sources.tsv asks GNU units for a unit by the unit's name, in SI units, and UDUNITS-2
for what it expands an expression to. Rows that are not comparable rest on older constants there.
The names of UDUNITS-2 in the files codes.json are asked for, too: each either agrees, or its row
says why it differs. Skipped where a program is missing.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalog as lib
from code_checks import SI, rows
from catalog import PI

TABLE = pathlib.Path(__file__).with_name("second-sources.tsv")
SKIPPED = 77
TOLERANCE = 2e-14  # both programs print about 16 digits


def answers(command, asked):
    """The lines with which a program answers."""
    answer = subprocess.run(command, input=asked, capture_output=True, text=True, check=False)
    return answer.stdout.split("\n")[:-1]


def power(text):
    """(unit, exponent) of a factor such as s-1."""
    unit, exponent = re.fullmatch(r"([A-Za-z]+)(-?\d*)", text).groups()
    return unit, int(exponent or 1)


class SecondSources(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        lines = TABLE.read_text(encoding="utf-8").split("\n")[1:-1]
        cls.rows = [line.split("\t") for line in lines]
        cls.shipped = lib.Catalog()
        cls.values = {}
        cls.powers = {}
        for unit in cls.shipped.of("unit"):
            value, pi, powers = cls.shipped.reduce(unit.id)
            names = {SI[cls.shipped.by_id[one].local]: power for one, power in powers.items()}
            cls.values[unit.local] = float(value * PI**pi)
            cls.powers[unit.local] = {name: power for name, power in names.items() if power}

    def agrees(self, unit, answer):
        return abs(float(answer) / self.values[unit] - 1) <= TOLERANCE

    def test_the_table_asks_for_every_unit_in_its_own_powers(self):
        wants = {
            unit.local: {f"{name}^{power}" for name, power in self.powers[unit.local].items()}
            for unit in self.shipped.of("unit")
            if unit.base != "unit.absolute"
        }
        # there, rad is the dose
        asked = {row[0]: set(row[2].replace("radian", "rad").split()) - {"1"} for row in self.rows}
        self.assertEqual(asked, wants)

    @unittest.skipUnless(shutil.which("units"), "GNU units is not installed")
    def test_gnu_units_agrees(self):
        comparable = [row for row in self.rows if row[3] == "true"]
        self.assertLessEqual(len(self.rows) - len(comparable), 10)
        asked = "".join(f"{row[1]}\n{row[2]}\n" for row in comparable)
        command = ["units", "-1", "--strict", "-q", "-o", "%.17g", "-t"]
        found = answers(command, asked)
        self.assertEqual(len(found), len(comparable), "one is not known there")
        for row, answer in zip(comparable, found):
            with self.subTest(row[0], there=answer):
                self.assertTrue(self.agrees(row[0], answer))

    @unittest.skipUnless(shutil.which("udunits2"), "UDUNITS-2 is not installed")
    def test_udunits_agrees(self):
        asked = [(row[0], row[4], False) for row in self.rows if row[4]]
        for _, _, unit, members in rows(self.shipped):
            local = self.shipped.by_id[unit].local
            differing = members.get("differs", {})
            asked += [
                (local, name, f"udunits:{name}" in differing) for name in members.get("udunits", [])
            ]
        self.assertGreater(len(asked), 500)
        found = answers(["udunits2", "-A"], "".join(f"{name}\n\n" for _, name, _ in asked))
        found = [line.partition("want:")[2].partition(" @ ")[0].split() for line in found]
        found = [line for line in found if line]
        self.assertEqual(len(found), len(asked), "one is not known there")
        for (unit, name, differs), there in zip(asked, found):
            with self.subTest(unit, name=name, there=there):
                number = there.pop(0) if there[0][0].isdigit() else "1"
                factors = dict(power(one) for one in "".join(there).split(".") if one.strip("1"))
                ours = {one: exponent for one, exponent in self.powers[unit].items() if one != "bit"}
                self.assertEqual(factors, ours)
                self.assertNotEqual(self.agrees(unit, number), differs)


if __name__ == "__main__":
    if not shutil.which("units") and not shutil.which("udunits2"):
        print("Neither GNU units nor UDUNITS-2 is installed.")
        sys.exit(SKIPPED)
    unittest.main()
