#!/usr/bin/env python3
"""Generates the pages about the shipped units from their definitions: docs/units.md, the pages in
docs/units and docs/unit-sources.md.

With --check it writes nothing and fails if a page is out of date.
"""

import argparse
import json
import sys
from fractions import Fraction

import catalog as lib

DOCS = lib.ROOT.parent / "docs"
RAISED = str.maketrans("-0123456789", "⁻⁰¹²³⁴⁵⁶⁷⁸⁹")

# Pages, and the groups of units whose quantities are on them; other packs have one each.
AREAS = {
    "space": ("Length, area, volume and angle", "length area volume angle inertia legacy"),
    "motion": ("Time and motion", "time frequency velocity acceleration angularMotion"),
    "mass": ("Mass and density", "mass density linearAndAreaDensity"),
    "mechanics": (
        "Force, pressure and viscosity",
        "force forcePerLength torque pressure viscosity permeability gauge",
    ),
    "flow": ("Flow", "massFlow volumeFlow gas"),
    "energy": ("Energy, power and fuel", "energy power fuel"),
    "heat": ("Temperature and heat", "temperature thermal"),
    "electricity": ("Electricity and magnetism", "electrical magnetic cgs"),
    "chemistry": ("Amount of substance", "amountOfSubstance"),
    "light": ("Light and radiation", "photometric radiation"),
    "numbers": ("Ratios and information", "ratio information"),
}

SYSTEMS = {"ucum": "UCUM", "rec20": "Rec. 20", "qudt": "QUDT", "udunits": "UDUNITS"}

UNITS = """# Units and quantities

The catalog has {units} units in {quantities} quantities. Choose a topic here, or a quantity
below:

{areas}
- [Units that look alike](units/look-alikes.md): tons, gallons, calories and horsepower compared
- [Units by name](units/by-name.md), [by text](units/by-text.md) and [by code](units/by-code.md)
- [Sources of the catalog](unit-sources.md)

How to read the tables:

- **Ids.** To get a type id, put `trelvon.unit:` or `trelvon.quantity:` before the id and `-1.0.0`
  after it. The type id of a symbol is `trelvon.symbol:`, the id of its unit, and `-1.0.0`.
- **Order.** The tables sort units by size. The definition of a quantity lists its default first,
  then its metric units by size, then the others.
- **Values** are exact, in {primitives}, followed by a decimal
  number of ten digits. Values marked "measured" or "rounded" have no exact definition. For an
  absolute unit, such as a temperature scale, x is the reading on the scale.
- **Codes** come from the Unified Code for Units of Measure (UCUM), UN/CEFACT Recommendation 20,
  QUDT (CC BY 4.0) and UDUNITS-2. A code marked with * has another size there;
  [by-code.md](units/by-code.md) says why.

Units convert into each other if their powers are equal or reciprocal, even in different quantities:
the engine converts torque into energy. The catalog cannot represent logarithmic units (dB, Np, pH),
half powers, calendar months or currencies. You can add other units in a pack of your own.

These pages are made from the files in `schemas/` by `scripts/make_reference.py`.

| quantity | units | page |
|---|---|---|
"""

SOURCES = """# Sources of the catalog

The `source` member of each definition names one or more of these documents. If a document rounds a
value, the catalog has the unrounded value of the definition that the entry names. The documents
under [Not seen](#not-seen) are cited from memory and have not been checked.

This page is made from `schemas/sources.json` by `scripts/make_reference.py`.

"""

# Families of units whose names or texts people mix up. Each is compared with the first.
FAMILIES = {
    "Tons": "tonne tonShort tonLong",
    "Tons of other things": "tonOfRefrigeration tonOfTnt registerTon assayTonShort tonForceShort",
    "Pounds": "pound poundTroy",
    "Ounces": "ounce ounceTroy",
    "Fluid ounces": "fluidOunceUs fluidOunceImperial",
    "Hundredweights": "hundredweightShort hundredweightLong",
    "Feet": "foot surveyFoot clarkeFoot searsFoot indianFoot1975",
    "Miles": "mile surveyMile nauticalMile",
    "Chains": "chain surveyChain",
    "Acres": "acre acreUsSurvey",
    "Points": "point printersPoint",
    "Gallons": "gallonUs gallonImperial dryGallonUs",
    "Quarts": "quartUs quartImperial dryQuartUs",
    "Pints": "pintUs pintImperial dryPintUs",
    "Gills": "gillUs gillImperial",
    "Bushels": "bushelUs bushelImperial",
    "Barrels": "barrelOil liquidBarrelUs beerBarrel dryBarrelUs",
    "Cups and spoons": "cupUs cupMetric tablespoonUs tablespoonMetric teaspoonUs teaspoonMetric",
    "Calories": "calorieThermochemical calorieIT",
    "British thermal units": "britishThermalUnitIT britishThermalUnitThermochemical",
    "Therms": "therm thermUs",
    "Horsepowers": "horsepower horsepowerMetric horsepowerElectric horsepowerBoiler",
    "Atmospheres": "atmosphere technicalAtmosphere bar",
    "Millimeters of mercury": "millimeterOfMercury torr",
    "Years": "year365 yearJulian",
    "Angles": "gradian degree milliradian angularMil",
    "Bytes": "kilobyte kibibyte megabyte mebibyte gigabyte gibibyte",
    "Cubic meters of gas": "normalCubicMeter standardCubicMeter",
}

LOOK_ALIKES = """# Units that look alike

Some names and texts stand for more than one unit. The tables compare their sizes.

Gauge pressures count from one standard atmosphere, 101325 Pa: 0 psig is {psiGauge} psia, and
0 barg is {barGauge} bara. They convert only into other gauge and absolute pressures of their pack,
never into `psi` or `bar`.

"""


def raised(base, power):
    return base if power == 1 else base + str(power).translate(RAISED)


def digits_of(value, count):
    """(digits, exponent) of a positive number rounded to a count of digits: d.ddd times a power of
    ten."""
    exponent = len(str(value.numerator)) - len(str(value.denominator))
    while value >= Fraction(10) ** (exponent + 1):
        exponent += 1
    while value < Fraction(10) ** exponent:
        exponent -= 1
    digits = str(round(value / Fraction(10) ** (exponent - count + 1)))
    return (digits[:count], exponent) if len(digits) == count else (digits[:count], exponent + 1)


def decimal(value, count=10):
    """A number rounded to a count of digits, in plain notation unless that is long."""
    if not value:
        return "0"
    digits, exponent = digits_of(abs(value), count)
    digits = digits.rstrip("0")
    sign = "-" if value < 0 else ""
    if not -5 <= exponent < 12:
        return f"{sign}{digits[0]}{'.' if digits[1:] else ''}{digits[1:]}e{exponent}"
    if exponent < 0:
        return f"{sign}0.{'0' * (-exponent - 1)}{digits}"
    whole, rest = digits[: exponent + 1].ljust(exponent + 1, "0"), digits[exponent + 1 :]
    return sign + whole + ("." + rest if rest else "")


def exact(value):
    """The number as a decimal if that ends early, else as a fraction."""
    text = decimal(value, 18)
    return text if Fraction(text) == value else f"{value.numerator}/{value.denominator}"


def product(*parts):
    kept = [part for part in parts if part and part != "1"]
    return " · ".join(kept) or "1"


def table(head, rows):
    """A table of Markdown; `head` is its first row, with bars between the cells."""
    columns = head.count("|") + 1
    lines = [f"| {head} |", "|---" * columns + "|"]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def code(text):
    return f"`{text}`" if text else ""


def anchor(heading):
    """The fragment that code hosts give a heading."""
    kept = (c for c in heading.lower() if c.isalnum() or c in " -_")
    return "".join(kept).replace(" ", "-")


class Reference:
    """What the pages show of units, from a catalog."""

    def __init__(self, catalog):
        self.catalog = catalog
        self.units = sorted(catalog.of("unit"), key=lambda unit: unit.value("name").lower())
        self.quantities = sorted(catalog.of("quantity"), key=lambda one: one.value("name"))
        self.display = {}
        self.aliases = {}
        for symbol in catalog.of("symbol"):
            if symbol.base == "symbol.prefixOrSuffix":
                texts = self.display if symbol.namespace == "symbol" else self.aliases
                texts.setdefault(symbol.units()[0], []).append(symbol.value("text"))
        self.codes = {}
        for text in catalog.codes.values():
            self.codes.update(json.loads(text)["codes"])

    def powers(self, unit):
        primitives = self.catalog.reduce(unit.id)[2]
        kept = sorted((one, power) for one, power in primitives.items() if power)
        return "·".join(raised(self.display[one][0], power) for one, power in kept)

    def size(self, unit):
        value, pi, _ = self.catalog.reduce(unit.id)
        return value * lib.PI**pi

    def exact(self, unit):
        value, pi, _ = self.catalog.reduce(unit.id)
        text = product(exact(value), raised("π", pi) if pi else "", self.powers(unit))
        if unit.base == "unit.absolute":
            offset = Fraction(unit.source["exact"])
            return product(f"(x + {exact(offset)})" if offset else "x", text)
        mark = unit.source["exactness"]
        return text if mark == "exact" else f"{text} ({mark})"

    def codes_of(self, unit):
        row = self.codes.get(unit.id, {})
        shown = []
        for system, name in SYSTEMS.items():
            marked = [
                code(one) + ("*" if f"{system}:{one}" in row.get("differs", {}) else "")
                for one in row.get(system, [])
            ]
            if marked:
                shown.append(f"{name} {' '.join(marked)}")
        return ", ".join(shown)

    def row(self, unit):
        note = unit.source.get("note", "")
        source = ", ".join(unit.source["document"])
        return [
            unit.value("name"),
            code(unit.local),
            code(self.display[unit.id][0]),
            " ".join(code(text) for text in sorted(self.aliases.get(unit.id, []))),
            self.exact(unit),
            decimal(self.size(unit)),
            f"{source}: {note}" if note else source,
            self.codes_of(unit),
        ]

    def section(self, quantity):
        units = [self.catalog.by_id[unit] for unit in quantity.units()]
        note = quantity.source.get("note")
        text = f"## {quantity.value('name')}\n\nId {code(quantity.local)}, pack {code(quantity.pack)}. "
        text += f"Default: {units[0].value('name')}. Source: {', '.join(quantity.source['document'])}"
        text += f"; {note}.\n\n" if note else ".\n\n"
        rows = [self.row(unit) for unit in sorted(units, key=self.size)]
        head = "unit | id | text | also read | exact value | decimal | source | codes"
        return text + table(head, rows) + "\n"

    def area(self, quantity):
        """The page of a quantity: that of its first unit's group, or of its pack."""
        path = self.catalog.by_id[quantity.units()[0]].path.split("/")
        group = path[2] if path[0] == "core" else path[0]
        return next(page for page, (_, groups) in AREAS.items() if group in groups.split())

    def area_page(self, area):
        sections = [self.section(one) for one in self.quantities if self.area(one) == area]
        introduction = "[Units and quantities](../units.md) explains the tables."
        composites = self.composites() if area == "space" else ""
        return f"# {AREAS[area][0]}\n\n{introduction}\n\n" + "".join(sections) + composites

    def composites(self):
        rows = [
            [code(one.local), code(self.catalog.by_id[one.units()[0]].local)]
            for one in self.catalog.of("symbol")
            if one.base == "symbol"
        ]
        return "## Composite texts\n\n" + table("symbol | unit", rows)

    def link(self, quantity, folder):
        fragment = anchor(quantity.value("name"))
        return f"[{quantity.value('name')}]({folder}{self.area(quantity)}.md#{fragment})"

    def first_page(self):
        primitives = [one for one in self.units if one.base.startswith("unit.primitive")]
        names = sorted(self.display[one.id][0] for one in primitives)
        areas = [f"- [{title}](units/{page}.md)" for page, (title, _) in AREAS.items()]
        rows = [
            [self.link(one, "units/"), str(len(one.units())), AREAS[self.area(one)][0]]
            for one in self.quantities
        ]
        text = UNITS.format(
            units=len(self.units),
            quantities=len(self.quantities),
            areas="\n".join(areas),
            primitives=", ".join(names[:-1]) + " and " + names[-1],
        )
        return text + "".join("| " + " | ".join(row) + " |\n" for row in rows)

    def quantities_of(self):
        """Links to the quantities that list each unit."""
        found = {}
        for quantity in self.quantities:
            for unit in quantity.units():
                found.setdefault(unit, []).append(self.link(quantity, ""))
        return found

    def by_name(self):
        quantities = self.quantities_of()
        rows = [
            [one.value("name"), code(self.display[one.id][0]), ", ".join(quantities[one.id])]
            for one in self.units
        ]
        return "# Units by name\n\n" + table("unit | text | quantities", rows)

    def texts(self):
        """(text, unit) of all texts, the shown one of a unit first."""
        for texts in (self.display, self.aliases):
            for unit, found in texts.items():
                yield from ((text, unit) for text in found if text)

    def by_text(self):
        found = {}
        for text, unit in self.texts():
            found.setdefault(text, []).append(self.catalog.by_id[unit].value("name"))
        rows = [[code(text), ", ".join(found[text])] for text in sorted(found, key=str.lower)]
        return "# Units by text\n\n" + table("text | unit", rows)

    def by_code(self):
        text = "# Units by code\n\nWhat other systems call the units of the catalog. If a system "
        text += "states another size, the\nlast column says why.\n"
        for system, name in SYSTEMS.items():
            rows = [
                [
                    code(one),
                    self.catalog.by_id[unit].value("name"),
                    row.get("differs", {}).get(f"{system}:{one}", ""),
                ]
                for unit, row in self.codes.items()
                for one in row.get(system, [])
            ]
            text += f"\n## {name}\n\n" + table("code | unit | another size", sorted(rows))
        return text

    def family(self, heading, locals_):
        units = [self.catalog.by_id[f"trelvon.unit:{local}-1.0.0"] for local in locals_.split()]
        rows = []
        for unit in units:
            row = [unit.value("name"), code(self.display[unit.id][0]), decimal(self.size(unit))]
            row.append(self.powers(unit))
            if self.powers(unit) == self.powers(units[0]):
                ratio = self.size(unit) / self.size(units[0])
                row += [decimal(ratio), decimal(100 * (ratio - 1), 4) + " %"]
            rows.append(row + [""] * (6 - len(row)))
        head = "unit | text | value | in | times the first | difference"
        return f"## {heading}\n\n" + table(head, rows) + "\n"

    def look_alikes(self):
        families = "".join(self.family(*family) for family in FAMILIES.items())
        found = {}
        for text, unit in self.texts():
            if set(text) & set(lib.LOOK_ALIKES):
                continue
            found.setdefault(text.lower(), {}).setdefault(text, self.catalog.by_id[unit])
        rows = [
            [f"{code(text)} {unit.value('name')}" for text, unit in sorted(texts.items())]
            for _, texts in sorted(found.items())
            if len({unit.id for unit in texts.values()}) > 1
        ]
        width = max(len(row) for row in rows)
        head = " | ".join(["text"] + ["other"] * (width - 1))
        rows = [row + [""] * (width - len(row)) for row in rows]
        scales = ("psiGauge", "barGauge")
        unit = self.catalog.by_id
        offsets = {one: unit[f"trelvon.unit:{one}-1.0.0"].value("offset") for one in scales}
        text = LOOK_ALIKES.format(**offsets) + families
        return text + "## Texts that differ in case only\n\n" + table(head, rows)


def sources(catalog):
    known = json.loads((catalog.root / "sources.json").read_text(encoding="utf-8"))
    head = "key | document | where | address"

    def rows(seen):
        return [
            [key, one["document"], one["locator"], one.get("address", "")]
            for key, one in known.items()
            if one.get("seen", True) == seen
        ]

    return SOURCES + table(head, rows(True)) + "\n## Not seen\n\n" + table(head, rows(False))


def pages(catalog):
    reference = Reference(catalog)
    made = {f"units/{area}.md": reference.area_page(area) for area in AREAS}
    made["units.md"] = reference.first_page()
    made["units/by-name.md"] = reference.by_name()
    made["units/by-text.md"] = reference.by_text()
    made["units/by-code.md"] = reference.by_code()
    made["units/look-alikes.md"] = reference.look_alikes()
    made["unit-sources.md"] = sources(catalog)
    return made


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="fail if a page is out of date")
    checking = parser.parse_args().check
    stale = 0
    for name, text in pages(lib.Catalog()).items():
        path = DOCS / name
        if path.exists() and path.read_text(encoding="utf-8") == text:
            continue
        stale += 1
        fate = "is out of date: run scripts/make_reference.py" if checking else "written"
        print(f"docs/{name} {fate}")
        if not checking:
            path.parent.mkdir(exist_ok=True)
            path.write_text(text, encoding="utf-8")
    return 1 if checking and stale else 0


if __name__ == "__main__":
    sys.exit(main())
