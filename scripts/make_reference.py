#!/usr/bin/env python3
"""Generates docs/units.md and docs/unit-sources.md from the shipped definitions.

With --check it writes nothing and fails if a page is out of date.
"""

import argparse
import json
import sys
from fractions import Fraction

import catalogue as lib

DOCS = lib.ROOT.parent / "docs"
RAISED = str.maketrans("-0123456789", "⁻⁰¹²³⁴⁵⁶⁷⁸⁹")

INTRODUCTION = """# Units and quantities

This page lists {units} units in {quantities} quantities. It is made from the files in `schemas/` by
`scripts/make_reference.py`. A type id is `trelvon.unit:` or `trelvon.quantity:`, followed by the
name given here and by `-1.0.0`. The type id of a symbol is `trelvon.symbol:`, followed by the name
of its unit and by `-1.0.0`. The first unit of a quantity is its default.

Values are exact and given in {primitives}. For an absolute unit, such
as a temperature scale, x is the reading on the scale. Values marked "measured" or "rounded" have no
exact definition. [unit-sources.md](unit-sources.md) explains the sources.

Units with equal powers convert into each other, whichever quantities they belong to, and so do
reciprocal units: a quantity distinguishes torque from energy, but the engine does not. Logarithmic
units (dB, Np, pH) and half powers cannot be represented. A host can add other units in a pack of
its own.

"""

SOURCES = """# Sources of the catalog

This page lists the documents that the `source` member of a definition names. It is made from
`schemas/sources.json` by `scripts/make_reference.py`. If a document rounds a value, the value in the
catalog comes from the definition that its entry names.

| key | document | where | address |
|---|---|---|---|
"""


def raised(base, power):
    return base if power == 1 else base + str(power).translate(RAISED)


def decimal(value):
    """The number in its most readable form: an integer or decimal if short, else a fraction."""
    for places in range(45):
        scaled = value * 10**places
        if scaled.denominator == 1:
            digits = str(scaled.numerator)
            if len(digits) > 18:
                break
            if places == 0:
                return digits
            if places - len(digits) > 4:
                return digits[0] + ("." + digits[1:] if digits[1:] else "") + (
                    f"e-{places - len(digits) + 1}"
                )
            digits = digits.rjust(places + 1, "0")
            return digits[:-places] + "." + digits[-places:]
    return f"{value.numerator}/{value.denominator}"


def product(*parts):
    kept = [part for part in parts if part and part != "1"]
    return " · ".join(kept) or "1"


class Page:
    def __init__(self, catalogue):
        self.catalogue = catalogue
        self.display = {}
        self.aliases = {}
        for symbol in catalogue.of("symbol"):
            if symbol.base == "symbol.prefixOrSuffix":
                shown = symbol.namespace == "symbol"
                texts = self.display if shown else self.aliases
                texts.setdefault(symbol.units()[0], []).append(symbol.value("text"))

    def value(self, unit):
        value, pi, powers = self.catalogue.reduce(unit.id)
        primitives = [
            raised(self.display[primitive][0], power)
            for primitive, power in sorted(powers.items())
            if power
        ]
        text = product(decimal(value), raised("π", pi) if pi else "", "·".join(primitives))
        if unit.base == "unit.absolute":
            offset = Fraction(unit.source["exact"])
            return product(f"(x + {decimal(offset)})" if offset else "x", text)
        mark = unit.source["exactness"]
        return text if mark == "exact" else f"{text} ({mark})"

    def row(self, unit):
        code = "` `".join(sorted(self.aliases.get(unit.id, []))).join("``")
        text = self.display[unit.id][0]
        cells = [
            unit.value("name"),
            f"`{unit.local}`",
            f"`{text}`" if text else "",
            code if code != "``" else "",
            self.value(unit),
            ", ".join(unit.source["document"]),
            unit.source.get("note", ""),
        ]
        return "| " + " | ".join(cells) + " |\n"

    def section(self, quantity):
        heading = f"## {quantity.value('name')}\n\n`{quantity.local}`, pack `{quantity.pack}`, "
        heading += ", ".join(quantity.source["document"])
        note = quantity.source.get("note")
        table = "| unit | id | text | also read | value | source | note |\n" + "|---" * 7 + "|\n"
        rows = "".join(self.row(self.catalogue.by_id[unit]) for unit in quantity.units())
        return f"{heading}{': ' + note if note else ''}.\n\n{table}{rows}\n"

    def text(self):
        quantities = self.catalogue.of("quantity")
        primitives = [one for one in self.catalogue.of("unit") if one.base.startswith("unit.prim")]
        names = sorted(self.display[one.id][0] for one in primitives)
        introduction = INTRODUCTION.format(
            units=len(self.catalogue.of("unit")),
            quantities=len(quantities),
            primitives=", ".join(names[:-1]) + " and " + names[-1],
        )
        sections = "".join(self.section(one) for one in quantities)
        return introduction + sections + self.composites()

    def composites(self):
        rows = "".join(
            f"| `{one.local}` | `{self.catalogue.by_id[one.units()[0]].local}` |\n"
            for one in self.catalogue.of("symbol")
            if one.base == "symbol"
        )
        return f"## Composite texts\n\n| symbol | unit |\n|---|---|\n{rows}"


def sources(catalogue):
    known = json.loads((catalogue.root / "sources.json").read_text(encoding="utf-8"))
    rows = (
        f"| {key} | {one['document']} | {one['locator']} | {one.get('address', '')} |\n"
        for key, one in known.items()
    )
    return SOURCES + "".join(rows)


def pages(catalogue):
    return {"units.md": Page(catalogue).text(), "unit-sources.md": sources(catalogue)}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="fail if a page is out of date")
    checking = parser.parse_args().check
    stale = 0
    for name, text in pages(lib.Catalogue()).items():
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
