"""What the engine serves is what the files say: every field, every literal to the bit, and every
reduced factor within two units in the last place of its exact value.

Usage: records_test.py DUMP, where DUMP prints the records of the loaded catalogue as definitions.
The doubles are judged with fractions; numbers are read by Python, which rounds them correctly.
"""

import json
import pathlib
import struct
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalogue as lib
from definition_checks import PI

MOST_ULPS = 2
DUMP = sys.argv.pop(1)


def bits(number):
    return struct.pack(">d", float(number)).hex()


def powers(of):
    return "".join(f"{name}^{power} " for name, power in sorted(of.items()))


def expected_fields(one):
    """The fields of a record, as its file has them."""
    names = [one.value("name")] if "name" in one.constants else []
    if one.kind == "dimension":
        return []
    if one.kind == "factor":
        return [bits(one.value("factor")), powers(one.powers("parentFactors"))]
    if one.kind == "symbol":
        decoration = [one.value("text"), one.value("placement"), str(one.value("space")).lower()]
        return one.units() + (decoration if one.base == "symbol.prefixOrSuffix" else [])
    if one.kind == "quantity":
        return names + one.units()
    names.append(one.value("unitSystem"))
    if one.base == "unit.absolute":
        return names + ["absolute", one.reference("parentUnit"), bits(one.value("offset"))]
    if one.base == "unit.derived":
        parents = [powers(one.powers("parentFactors")), powers(one.powers("parentUnits"))]
        return names + ["derived", bits(one.value("factor")), *parents]
    return names + ["primitive", one.reference("dimension")]


def served_fields(definition):
    """The same of a record that the engine has written."""
    base = definition["inherits"][0].split(":")[1].split("-")[0]
    kind = base.split(".")[0]
    constants = definition.get("constants", [])
    of = {one["id"]: one.get("value", one.get("typedValue")) for one in constants}
    fields = [kind, definition["typeid"]]
    if kind == "factor":
        return fields + [bits(of["factor"]), powers(of.get("parentFactors", {}))]
    if kind == "symbol":
        decoration = [of.get("text"), of.get("placement"), str(of.get("space")).lower()]
        shown = base == "symbol.prefixOrSuffix"
        return fields + [of["unit"]["typeid"]] + (decoration if shown else [])
    if kind == "quantity":
        return fields + [of["name"]] + [unit["typeid"] for unit in of["units"]]
    if kind == "unit":
        fields += [of["name"], of["unitSystem"]]
        if base == "unit.absolute":
            return fields + ["absolute", of["parentUnit"]["typeid"], bits(of["offset"])]
        if base == "unit.derived":
            parents = [powers(of.get("parentFactors", {})), powers(of["parentUnits"])]
            return fields + ["derived", bits(of["factor"]), *parents]
        return fields + ["primitive", of["dimension"]["typeid"]]
    return fields


class Served:
    def __init__(self):
        output = subprocess.run([DUMP], capture_output=True, check=True).stdout.decode("utf-8")
        lines = output.split("\n")[:-1]
        reductions = [line.split("\t") for line in lines if line.startswith("reduction\t")]
        self.reductions = {
            line[1]: [bits(line[2]), bits(line[3]), line[4]] for line in reductions
        }
        records = [served_fields(json.loads(line)) for line in lines if line.startswith("{")]
        self.records = {record[1]: record for record in records}

    def ulps(self, catalogue, unit):
        """How far the served factor is from the double nearest to its exact value."""
        value, pi, _ = catalogue.reduce(unit.id)
        served = int(self.reductions[unit.id][0], 16)
        return abs(served - int(bits(value * PI**pi), 16))

    def complaints(self, catalogue):
        found = [f"{name}: has no file" for name in self.records if name not in catalogue.by_id]
        for name, one in catalogue.by_id.items():
            record = self.records.get(name, [])
            if record != [one.kind, name, *expected_fields(one)]:
                found.append(f"{name}: is served as {record}")
        for unit in catalogue.of("unit"):
            offset = unit.value("offset", "0")
            rest = [bits(offset), powers(catalogue.reduce(unit.id)[2])]
            if self.ulps(catalogue, unit) > MOST_ULPS:
                found.append(f"{unit.id}: {self.ulps(catalogue, unit)} units in the last place off")
            if self.reductions.get(unit.id, [])[1:] != rest:
                found.append(f"{unit.id}: reduces to {self.reductions.get(unit.id)}")
        return found


class Records(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.served = Served()

    def test_are_what_the_files_say(self):
        shipped = lib.Catalogue()
        self.assertEqual(self.served.complaints(shipped), [])
        distances = [self.served.ulps(shipped, unit) for unit in shipped.of("unit")]
        worst = [u.local for u in shipped.of("unit") if self.served.ulps(shipped, u) == MOST_ULPS]
        print({n: distances.count(n) for n in range(MOST_ULPS + 1)}, worst, file=sys.stderr)

    def test_would_be_seen_to_differ(self):
        for path, old, new, complaint in [
            ("core/factors/kilo.json", "1e3", "1.0000000000000003e3", "factor:kilo-"),
            ("core/units/length/foot.json", "0.3048}", "0.30480000000000007}", "unit:foot-"),
            ("core/units/length/meter.json", "Metric", "Imperial", "unit:meter-"),
            ("core/units/mass/slug.json", "Force-1.0.0\": 1", "Force-1.0.0\": 2", "unit:slug-"),
            ("core/units/length/mil.json", "2.54e-05", "2.540000000000003e-05", "last place off"),
            ("gauge/units/barGauge.json", "1.01325}", "1.01324}", "unit:barGauge-"),
            ("symbols/length/display/foot.json", '"ft"', '"fT"', "symbol:foot-"),
            ("core/quantities/length.json", ":foot-", ":inch-", "quantity:length-"),
            ("core/quantities/length.json", "", None, "has no file"),
        ]:  # fmt: skip
            with self.subTest(path=path, new=new):
                text = (lib.ROOT / path).read_text(encoding="utf-8")
                self.assertIn(old, text)
                changed = lib.Catalogue(changes={path: new and text.replace(old, new, 1)})
                found = self.served.complaints(changed)
                self.assertTrue(any(complaint in one for one in found), found)


if __name__ == "__main__":
    unittest.main()
