"""What the texts of symbols must satisfy besides the lints of docs/reports.md."""

import re
from collections import Counter

# A text that is one of these would begin as numbers do, or be an inch mark.
RESERVED = "e E x inf nan ''".split()

# All that a display text may hold beyond ASCII. Characters that look like these are for input.
BEYOND_ASCII = "\u00b0\u00b2\u00b3\u00b5\u00b7\u00b9\u00c5\u0394\u03a9\u03b5\u2030\u2032\u2033"
BEYOND_ASCII += "\u2074\u2076\u207b\u2080\u2082\u2099"
LOOK_ALIKES = {
    "\u212a": "K", "\u212b": "\u00c5", "\u2126": "\u03a9", "\u03bc": "\u00b5",
    "\u2103": "\u00b0C", "\u2109": "\u00b0F",
}  # fmt: skip

# Texts without a space before them; the empty text of the unit one is among them.
TIGHT = ["\u00b0", "\u2032", "\u2033", "'", '"', ""]

# Literals are cut after the fifth of these; the sign of an exponent is one, and the fifth ends it.
OPERATORS = "+-*/^()"


def texts(catalog):
    return [one for one in catalog.of("symbol") if one.base == "symbol.prefixOrSuffix"]


def form(catalog):
    """What the formula reader asks of a single text."""
    complaints = []
    for symbol in texts(catalog):
        text = symbol.value("text")
        local = catalog.by_id[symbol.units()[0]].local
        faults = {
            "more than three operators": sum(c in OPERATORS for c in text) > 3,
            "white space other than single spaces": re.search(r"[^\S ]|  |\u00a0", text),
            "reserved": text in RESERVED,
            "empty": not text and local != "unity",
            "a prefix": symbol.value("placement") != "Suffix",
            "the space before it": symbol.value("space") != (text not in TIGHT),
        }
        complaints += [f"{symbol.path}: {fault}" for fault, found in faults.items() if found]
    return complaints


def characters(catalog):
    """Display texts keep to one spelling of each character; aliases may hold the others."""
    complaints = []
    for symbol in texts(catalog):
        odd = [c for c in symbol.value("text") if not c.isascii() and c not in BEYOND_ASCII]
        if symbol.namespace == "symbolAlias":
            odd = [c for c in odd if c not in LOOK_ALIKES]
        if odd:
            complaints.append(f"{symbol.path}: U+{ord(odd[0]):04X}")
    return complaints


def twice(catalog):
    """No text is there twice for one unit."""
    texts_of = Counter((one.units()[0], one.value("text")) for one in texts(catalog))
    return [f"{unit}: has the same text twice" for (unit, _), count in texts_of.items() if count > 1]


def coverage(catalog):
    """Every unit has one display text, and aliases are named after their unit."""
    complaints = []
    display = {}
    for symbol in texts(catalog):
        unit = symbol.units()[0]
        if symbol.namespace == "symbol":
            display.setdefault(unit, []).append(symbol)
        elif catalog.by_id[unit].local != symbol.local.split(".")[0]:
            complaints.append(f"{symbol.path}: is an alias of {unit}")
    for unit in catalog.of("unit"):
        shown = [symbol.local for symbol in display.get(unit.id, [])]
        if shown != [unit.local]:
            complaints.append(f"{unit.path}: display symbols {shown}")
        for symbol in display.get(unit.id, []):
            if symbol.source.get("document") != unit.source["document"]:
                complaints.append(f"{symbol.path}: its source is not that of its unit")
    return complaints


ALL = [form, characters, twice, coverage]
