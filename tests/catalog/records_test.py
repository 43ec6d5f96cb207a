"""What the engine serves is what the files say: every constant, in the engine's order, every literal
to the bit, and every reduced factor within two units in the last place of its exact value.

Usage: records_test.py DUMP, where DUMP prints the records of the loaded catalog as definitions.
The doubles are judged with fractions; numbers are read by Python, which rounds them correctly.
"""

import json
import pathlib
import struct
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalog as lib
from catalog import PI

MOST_ULPS = 2
DUMP = sys.argv.pop(1)


def bits(number):
    return int.from_bytes(struct.pack(">d", float(number)), "big")


class Records(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        output = subprocess.run([DUMP], capture_output=True, check=True).stdout.decode("utf-8")
        lines = output.split("\n")[:-1]
        cls.stored = [json.loads(line) for line in lines if line.startswith("{")]
        cls.reductions = [line.split("\t")[1:] for line in lines if line.startswith("reduction\t")]
        cls.shipped = lib.Catalog()

    def test_are_what_the_files_say(self):
        self.assertEqual({record["typeid"] for record in self.stored}, set(self.shipped.by_id))
        for record in self.stored:
            file = json.loads(self.shipped.by_id[record["typeid"]].text)
            for name in {"source", "allow", "comment"} & set(file):
                del file[name]
            self.assertEqual({"constants": [], **record}, file)

    def test_reduce_to_their_exact_values(self):
        distances = []
        for name, factor, offset, powers in self.reductions:
            value, pi, exact_powers = self.shipped.reduce(name)
            distances.append(abs(bits(factor) - bits(value * PI**pi)))
            self.assertLessEqual(distances[-1], MOST_ULPS, name)
            self.assertEqual(float(offset), float(self.shipped.by_id[name].value("offset", "0")))
            expected = [f"{one}^{power}" for one, power in sorted(exact_powers.items())]
            self.assertEqual(powers.split(), expected, name)
        self.assertEqual(len(distances), len(self.shipped.of("unit")))
        print({n: distances.count(n) for n in range(MOST_ULPS + 1)}, file=sys.stderr)


if __name__ == "__main__":
    unittest.main()
