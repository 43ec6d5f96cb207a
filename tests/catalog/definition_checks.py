"""What the files of the catalog must satisfy besides the lints of docs/reports.md. Each check takes a catalog, returns complaints.

Values are compared as fractions and powers of pi, so nothing here depends on how a double rounds.
"""

import json
import re
from collections import Counter
from fractions import Fraction

import catalog as lib
from catalog import PI

# Units without an exact definition.
INEXACT = {"dalton": "measured", "horsepowerBoiler": "rounded"}

# Where files lie, by pack and namespace; * is the group.
FOLDERS = {
    ("core", "dimension"): "core/dimensions",
    ("core", "factor"): "core/factors",
    ("core", "unit"): "core/units/*",
    ("core", "quantity"): "core/quantities",
    ("symbols", "symbol"): "symbols/*/display",
    ("aliases", "symbolAlias"): "aliases/*/spellings",
    ("legacy", "unit"): "legacy/units",
    ("legacy", "symbol"): "legacy/symbols",
    ("legacy", "symbolAlias"): "legacy/aliases",
    ("legacy", "quantity"): "legacy/quantities",
    ("gauge", "unit"): "gauge/units",
    ("gauge", "symbol"): "gauge/symbols",
    ("gauge", "symbolAlias"): "gauge/aliases",
    ("gauge", "quantity"): "gauge/quantities",
    ("cgs", "unit"): "cgs/units",
    ("cgs", "symbol"): "cgs/symbols",
    ("cgs", "symbolAlias"): "cgs/aliases",
    ("cgs", "quantity"): "cgs/quantities",
}

# Members of the provenance, in order; units and quantities may go without the note.
SOURCES = {
    "dimension": ["document", "note"],
    "factor": ["document", "exact", "piPower", "note"],
    "unit": ["document", "exact", "piPower", "exactness", "note"],
    "symbol": ["document"],
    "symbolAlias": ["note"],
    "quantity": ["document", "note"],
}

PLURALS = {kind: kind + "s" for kind in "dimension factor unit symbol".split()}
PLURALS["quantity"] = "quantities"


def manifest(catalog):
    """The records that are there are those that the manifest promises."""
    counts = json.loads((catalog.root / "manifest.json").read_text(encoding="utf-8"))
    promised = {
        (row["pack"], plural): row[plural] for row in counts["packs"] for plural in PLURALS.values()
    }
    found = Counter((one.pack, PLURALS[one.kind]) for one in catalog.files.values())
    return [
        f"{pack}: {found[pack, kind]} {kind}, but {promised.get((pack, kind), 0)} are promised"
        for pack, kind in sorted(set(found) | set(promised))
        if found[pack, kind] != promised.get((pack, kind), 0)
    ]


def layout(catalog):
    """Same members, same order, same formatting in all files."""
    complaints = []
    for path, one in catalog.files.items():
        if lib.render(one.document) != one.text:
            complaints.append(f"{path}: is not laid out as the others are")
        allowed = ["allow", "comment"] if "allow" in one.document else []
        if list(one.document) != ["typeid", "inherits", "constants", "source"] + allowed:
            complaints.append(f"{path}: members {list(one.document)}")
        members = list(one.source)
        expected = ["note"] if one.base == "symbol" else SOURCES[one.namespace]
        if one.kind in ("unit", "quantity") and "note" not in members:
            expected = expected[:-1]
        if members != expected:
            complaints.append(f"{path}: source members {members}")
    return complaints


def names(catalog):
    """Type ids, file names and folders agree; one version of each; no name is taken twice."""
    complaints = []
    ids = Counter(one.id for one in catalog.files.values())
    folded = Counter(path.lower() for path in catalog.files)
    units = Counter(unit.value("name") for unit in catalog.of("unit"))
    for path, one in catalog.files.items():
        folder, file = path.rsplit("/", 1)
        expected = FOLDERS.get((one.pack, one.namespace), "nowhere")
        if not re.fullmatch(expected.replace("*", "[A-Za-z]+"), folder):
            complaints.append(f"{path}: belongs into {expected}")
        if file != one.local + ".json":
            complaints.append(f"{path}: holds {one.local}")
        if not re.fullmatch(r"trelvon\.[A-Za-z]+:[A-Za-z0-9_.]+-1\.0\.0", one.id):
            complaints.append(f"{path}: type id {one.id}")
        if one.namespace.removesuffix("Alias") != one.kind:
            complaints.append(f"{path}: a {one.kind} in the namespace {one.namespace}")
        if ids[one.id] > 1 or folded[path.lower()] > 1:
            complaints.append(f"{path}: its name is taken by another file")
        if one.kind == "unit" and units[one.value("name")] > 1:
            complaints.append(f"{path}: two units are called {one.value('name')}")
    return complaints


def documents(catalog):
    """Every document that a definition names is described, and the other way round."""
    known = json.loads((catalog.root / "sources.json").read_text(encoding="utf-8"))
    named = {
        (key, path)
        for path, one in catalog.files.items()
        if one.kind != "symbol"  # whose documents are those of its unit
        for key in one.source["document"]
    }
    unused = set(known) - {key for key, _ in named}
    complaints = [f"sources.json: nothing names {key}" for key in sorted(unused)]
    complaints += [
        f"{one.path}: a custom of a trade has no note"
        for one in catalog.of("unit")
        if "trade" in one.source["document"] and "note" not in one.source
    ]
    return complaints + [
        f"{path}: unknown document {key}" for key, path in sorted(named) if key not in known
    ]


def exactness(catalog):
    """Each definition, computed with fractions, gives the value that its source states."""
    complaints = []
    for one in catalog.of("factor") + catalog.of("unit"):
        stated = one.stated_value()
        if one.kind == "factor":
            computed = catalog.exact_factor(one)
            literal = one.value("factor")
        elif one.base == "unit.absolute":
            literal = one.value("offset")
            parent = catalog.reduce(one.id)[0]
            computed = (literal.exact(), 0)
            if one.local.endswith("Gauge"):  # above one standard atmosphere
                computed = (101325 / parent, 0)
        else:
            computed = catalog.reduce(one.id)[:2]
            literal = None
        if computed != stated:
            complaints.append(f"{one.path}: computes to {computed[0]} pi^{computed[1]}")
        if literal and float(literal) != float(stated[0] * PI ** stated[1]):
            complaints.append(f"{one.path}: {literal} is not the double nearest to its value")
        if one.kind == "unit" and one.source["exactness"] != INEXACT.get(one.local, "exact"):
            complaints.append(f"{one.path}: is {one.source['exactness']}")
    return complaints


def systems(catalog):
    """A unit that is made of units that are not metric is not metric."""
    return [
        f"{one.path}: is metric, but {parent} is not"
        for one in catalog.of("unit")
        for parent in one.value("parentUnits") or {}
        if one.value("unitSystem") == "Metric"
        and catalog.by_id[parent].value("unitSystem") != "Metric"
    ]


def quantities(catalog):
    """Behind the default, a quantity lists its metric units, then the others: each by size, then by
    name. It lists no unit twice."""

    def place(unit):
        value, pi, _ = catalog.reduce(unit)
        return catalog.by_id[unit].value("unitSystem") != "Metric", value * PI**pi, unit

    complaints = []
    for quantity in catalog.of("quantity"):
        units = quantity.units()
        if len(set(units)) != len(units):
            complaints.append(f"{quantity.path}: lists a unit twice")
        if units[1:] != sorted(units[1:], key=place):
            complaints.append(f"{quantity.path}: its units are out of order")
    return complaints


ALL = [manifest, layout, names, documents, exactness, systems, quantities]
