"""A second source: GNU units knows the same values, from its own definitions.

Each row of gnu-units.tsv asks it for a unit by the unit's name, in SI units. Rows that are not
comparable rest on older constants there. Skipped where the program is missing.
"""

import pathlib
import shutil
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalogue as lib
from definition_checks import PI

TABLE = pathlib.Path(__file__).with_name("gnu-units.tsv")
SKIPPED = 77
TOLERANCE = 2e-14
SI = {
    "meter": "m", "kilogram": "kg", "second": "s", "ampere": "A", "kelvin": "K", "mole": "mol",
    "candela": "cd", "radian": "radian", "bit": "bit",
}  # fmt: skip


def ask(pairs):
    """The values of (have, want) pairs, all from one process."""
    asked = "".join(f"{have}\n{want}\n" for have, want in pairs)
    command = ["units", "-1", "--strict", "-q", "-o", "%.17g", "-t"]
    answer = subprocess.run(command, input=asked, capture_output=True, text=True, check=False)
    return answer.stdout.split("\n")[:-1]


class GnuUnits(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        lines = TABLE.read_text(encoding="utf-8").split("\n")[1:-1]
        cls.rows = [line.split("\t") for line in lines]
        cls.shipped = lib.Catalogue()
        cls.values = {}
        cls.wants = {}
        for unit in cls.shipped.of("unit"):
            if unit.base != "unit.absolute" and unit.pack != "gauge":
                value, pi, powers = cls.shipped.reduce(unit.id)
                cls.values[unit.local] = float(value * PI**pi)
                names = {SI[cls.shipped.by_id[one].local]: power for one, power in powers.items()}
                wants = {f"{name}^{power}" for name, power in names.items() if power}
                cls.wants[unit.local] = wants or {"1"}

    def test_the_table_asks_for_every_unit_in_its_own_powers(self):
        self.assertEqual({row[0]: set(row[2].split(" ")) for row in self.rows}, self.wants)

    def test_agrees(self):
        comparable = [row for row in self.rows if row[3] == "true"]
        self.assertEqual(len(comparable), len(self.rows) - 1)
        answers = ask([row[1:3] for row in comparable])
        self.assertEqual(len(answers), len(comparable), "one is not known there")
        for row, answer in zip(comparable, answers):
            with self.subTest(row[0], there=answer):
                self.assertLessEqual(abs(float(answer) / self.values[row[0]] - 1), TOLERANCE)


if __name__ == "__main__":
    if shutil.which("units") is None:
        print("GNU units is not installed.")
        sys.exit(SKIPPED)
    unittest.main()
