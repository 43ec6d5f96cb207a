"""What the codes of other systems must satisfy, in the files codes.json of the packs.

foreign-codes.tsv holds the size that a system states for each code: a decimal number as printed,
and a unit. For UCUM it holds the atoms and prefixes of which its codes are composed. UDUNITS-2 is
asked as a program, see second_sources_test.py.
"""

import json
import pathlib
import re
from collections import Counter
from fractions import Fraction

from catalog import PI

TABLE = pathlib.Path(__file__).with_name("foreign-codes.tsv")
SYSTEMS = ["ucum", "rec20", "qudt", "udunits"]
SI = {
    "meter": "m", "kilogram": "kg", "second": "s", "ampere": "A", "kelvin": "K", "mole": "mol",
    "candela": "cd", "radian": "rad", "bit": "bit",
}  # fmt: skip


class Size:
    """A number times powers of SI units."""

    def __init__(self, number, powers):
        self.number = number
        self.powers = {unit: power for unit, power in powers.items() if power}

    def times(self, other, power=1):
        powers = Counter(self.powers)
        for unit, exponent in other.powers.items():
            powers[unit] += exponent * power
        return Size(self.number * other.number**power, powers)


class Ucum:
    """Reads codes of UCUM: products and quotients, from left to right, of atoms with prefixes and
    powers. Arbitrary units, annotations and parentheses are not needed."""

    def __init__(self, rows):
        self.prefixes = {code: Fraction(number) for code, number, unit in rows if unit == "prefix"}
        self.atoms = {code: (number, unit) for code, number, unit in rows if unit != "prefix"}
        self.sizes = {base: Size(Fraction(1), {base: 1}) for base in "m s rad K cd mol bit".split()}
        self.sizes["g"] = Size(Fraction(1, 1000), {"kg": 1})
        self.sizes["C"] = Size(Fraction(1), {"A": 1, "s": 1})
        self.sizes["[pi]"] = Size(PI, {})

    def atom(self, code):
        if code not in self.sizes:
            number, unit = self.atoms[code]
            self.sizes[code] = Size(Fraction(number), {}).times(self.size(unit.lstrip("*")))
        return self.sizes[code]

    def is_metric(self, code):
        return code in self.sizes and code != "[pi]" or self.atoms.get(code, "  ")[1][0:1] == "*"

    def term(self, text):
        if re.fullmatch(r"\d*", text):
            return Size(Fraction(text or 1), {})
        if text.startswith("10*"):
            return Size(Fraction(10) ** int(text[3:]), {})
        if text in self.atoms or text in self.sizes:
            return self.atom(text)
        for length in (1, 2):
            if text[:length] in self.prefixes and self.is_metric(text[length:]):
                return Size(self.prefixes[text[:length]], {}).times(self.atom(text[length:]))
        base, power = re.fullmatch(r"(.*?)([+-]?\d+)", text).groups()
        return Size(Fraction(1), {}).times(self.term(base), int(power))

    def size(self, text):
        total = Size(Fraction(1), {})
        for sign, term in re.findall(r"([./]?)((?:\[[^]]*\]|[^./[])*)", text)[:-1]:
            total = total.times(self.term(term), -1 if sign == "/" else 1)
        return total


def stated_size(number, unit):
    """The size in a row of the table, and by how much it may be off."""
    powers = dict(power.split("^") for power in unit.split())
    digits, _, exponent = number.partition("e")
    decimals = len(digits.partition(".")[2])
    size = Fraction(number)
    rounded = Fraction(10) ** (int(exponent or 0) - decimals) / 2 if decimals else Fraction(0)
    # numbers that were computed with 34 digits are off in the last of them
    slack = max(rounded, abs(size) / 10**31 if len(digits) > 30 else 0)
    return Size(size, {unit: int(power) for unit, power in powers.items()}), slack


class Foreign:
    """The sizes that the systems state."""

    def __init__(self):
        lines = TABLE.read_text(encoding="utf-8").split("\n")[1:-1]
        rows = [line.split("\t") for line in lines]
        self.ucum = Ucum([row[1:] for row in rows if row[0] == "ucum"])
        self.stated = {(row[0], row[1]): row[2:] for row in rows}

    def disagrees(self, system, code, ours):
        """Whether the system states another size. Angles have no unit in some systems."""
        if system == "ucum":
            size, slack = self.ucum.size(code), 0
        elif self.stated[system, code][0]:
            size, slack = stated_size(*self.stated[system, code])
        else:
            return False
        lost = {"rad", "bit"} if system != "ucum" else set()
        powers = {one: power for one, power in ours.powers.items() if one not in lost}
        size.powers = {one: power for one, power in size.powers.items() if one not in lost}
        return size.powers != powers or abs(size.number - ours.number) > slack


def rows(catalog):
    """(path, line, type id, members) of each row; a row stands in a line of its own."""
    for path, text in sorted(catalog.codes.items()):
        for number, line in enumerate(text.split("\n"), 1):
            found = re.fullmatch(r'    "([^"]+)": (\{.*\}),?', line)
            if found:
                yield path, number, found[1], json.loads(found[2])


def mappings(catalog):
    """Files and rows are where they belong, and no code stands in two rows."""
    manifest = json.loads((catalog.root / "manifest.json").read_text(encoding="utf-8"))
    packs = {row["pack"] for row in manifest["packs"]}
    complaints = []
    places = {}
    read = Counter(path for path, *_ in rows(catalog))
    for path, text in sorted(catalog.codes.items()):
        if path.split("/")[0] not in packs or not path.endswith("/codes.json"):
            complaints.append(f"{path}:1: unknown pack or file")
        if not len(json.loads(text)["codes"]) == read[path] == text.count("\n") - 5:
            complaints.append(f"{path}:1: two rows for one unit, or a row is no line of its own")
    last = ("", "")
    for path, line, unit, members in rows(catalog):
        place = f"{path}:{line}"
        known = catalog.by_id.get(unit)
        if not known or known.kind != "unit" or known.pack != path.split("/")[0]:
            complaints.append(f"{place}: {unit} is not a unit of the pack")
        if (path, unit) <= last:
            complaints.append(f"{place}: {unit} is out of order")
        last = (path, unit)
        order = [member for member in SYSTEMS + ["differs"] if member in members]
        if list(members) != order:
            complaints.append(f"{place}: unknown systems or another order: {list(members)}")
        codes = [(system, code) for system in SYSTEMS for code in members.get(system, [])]
        for system, code in codes:
            if (system, code) in places:
                complaints.append(f"{place}: {system}:{code} stands in {places[system, code]}, too")
            places[system, code] = place
        complaints += [
            f"{place}: {code} differs, but is not there"
            for code in members.get("differs", {})
            if tuple(code.split(":", 1)) not in codes
        ]
    return complaints


def sizes(catalog):
    """Each system states the size that the definition has, or the row says why not."""
    foreign = Foreign()
    complaints = []
    for path, line, unit, members in rows(catalog):
        if unit not in catalog.by_id:
            continue
        value, pi, powers = catalog.reduce(unit)
        ours = Size(
            value * PI**pi, {SI[catalog.by_id[one].local]: power for one, power in powers.items()}
        )
        for system in SYSTEMS[:3]:
            for code in members.get(system, []):
                try:
                    differs = foreign.disagrees(system, code, ours)
                except (KeyError, AttributeError):
                    complaints.append(f"{path}:{line}: {system} has no code {code}")
                    continue
                if differs != (f"{system}:{code}" in members.get("differs", {})):
                    why = "another size is not explained" if differs else "the size is the same"
                    complaints.append(f"{path}:{line}: {system}:{code}: {why}")
    return complaints


ALL = [mappings, sizes]
