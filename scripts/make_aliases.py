#!/usr/bin/env python3
"""Writes the aliases that follow from the display texts by the rules of alias_rules.json.

A family of spellings is whole or absent: every unit whose text a rule applies to gets the
spelling, unless it breaks a rule of texts or another unit has it. Aliases that are there stay,
because ids are permanent. With --check it writes nothing and fails if a spelling is missing.
"""

import argparse
import json
import pathlib
import re
import sys

import catalog as lib

RULES = pathlib.Path(__file__).with_name("alias_rules.json")
SUPERSCRIPTS = "⁰¹²³⁴⁵⁶⁷⁸⁹"
OPERATORS = "+-*/^()"
FUNCTIONS = "sin cos tan asin acos atan exp log sqrt abs pi round roundup rounddown ln".split()
RESERVED = FUNCTIONS + "e E x inf nan ''".split()
NAMES = {"*": "Times", "-": "Hyphen", "^-": "PowMinus", "^": "Pow", "/": "Per", " ": "_"}
NAMES["%"] = "Percent"
LETTERS = {
    "²": "Sup2", "³": "Sup3", "ε": "Epsilon",
    "µ": "micro", "\u03bc": "mu", "Ω": "Ohm", "\u2126": "OhmSign",
}  # fmt: skip


def is_short(text):
    """Formulas read so many operators: see schemas/README.md."""
    return sum(c in OPERATORS for c in text) <= 3


def is_fit(text):
    return (
        text.isascii()
        and is_short(text)
        and text not in RESERVED
        and re.match(r"[A-Za-z%]", text)
    )


def local_name(text):
    """The text as a name: m^2/s becomes mPow2PerS."""
    for letter, word in LETTERS.items():
        text = text.replace(letter, word)
    name = ""
    for part in re.findall(r"\^-|[*^/ %-]|\w+|\W", text):
        word = NAMES.get(part, part.replace("_", "") if re.match(r"\w", part) else "")
        after_sign = name and re.search(r"(Times|Hyphen|Minus|Pow|Per)$", name)
        name += word[0].upper() + word[1:] if word and after_sign else word
    return name.replace("Per_", "Per").strip("_")


class Speller:
    def __init__(self, rules):
        self.rules = rules

    def ascii(self, text):
        for old, new in self.rules["ascii"].items():
            text = text.replace(old, new)
        return text

    def products(self, text):
        """Signs of products: a space where parentheses use up the operators."""
        return text.replace("·", " " if "(" in text else "*")

    def powers(self, text, sign):
        """Superscripts as digits after a sign; without one, negative powers have no spelling."""

        def raised(found):
            digits = "".join("-" if c == "⁻" else str(SUPERSCRIPTS.index(c)) for c in found[0])
            return sign + digits

        return re.sub(f"[⁻{SUPERSCRIPTS}]+", raised, text) if sign or "⁻" not in text else "²"

    def chain(self, text):
        """a/(b·c) as a/b/c."""
        found = re.fullmatch(r"([^()]*)/\(([^()]*)\)", text)
        return f"{found[1].replace('·', ' ')}/{found[2].replace('·', '/')}" if found else text

    def joined(self, text):
        """kW·h as kWh; parentheses around it go."""
        for product in self.rules["joined"]:
            text = re.sub(product + r"(?![A-Za-z])", product.replace("·", ""), text)
        return re.sub(r"\(([^()·]*)\)", r"\1", text)

    def hyphenated(self, text):
        """lbf·ft as lbf-ft."""
        forces, lengths = ("|".join(self.rules["hyphens"][one]) for one in ("forces", "lengths"))
        return re.sub(rf"(?<![\w·])({forces})·({lengths})(?![\w·{SUPERSCRIPTS}])", r"\1-\2", text)

    def divided(self, text):
        """m³/hr for m³/h: other spellings of atoms below the line."""
        above, line, below = text.partition("/")
        for atom, spelling in self.rules["below the line"].items():
            yield above + line + re.sub(rf"(?<![\w°]){atom}(?!\w)", spelling, below)

    def lowered(self, text):
        """ml for mL."""
        return re.sub(r"(?<![A-Za-z_])([cdhkmnpµ]?)L(?!\w)", r"\1l", text)

    def look_alikes(self, text):
        """The text with U+03BC for the micro sign, as Greek keyboards and normalized texts have it,
        and the like. Letters without an ASCII spelling keep their powers: µm^2 for µm²."""
        for letter, other in self.rules["look-alikes"].items():
            if letter in text:
                plain = [self.powers(self.products(text), sign) for sign in ("", "^")]
                for shape in [text] + (plain if set(text) & set(SUPERSCRIPTS) else []):
                    yield shape
                    yield shape.replace(letter, other)

    def spellings(self, text):
        """All ASCII spellings of a display text, in the order of the rules."""
        joined = self.joined(text)
        shapes = [text, joined, self.hyphenated(text), self.chain(joined)]
        shapes += [other for shape in (joined, self.chain(joined)) for other in self.divided(shape)]
        shapes += [self.lowered(text), self.lowered(self.chain(joined))]
        for shape in dict.fromkeys(shapes):
            plain = self.ascii(self.products(shape))
            yield self.powers(plain, "")
            if shape == text:
                yield self.powers(plain, "^")


def wanted(catalog, rules):
    """(display symbol, text) of every alias that the rules ask for and that can be."""
    speller = Speller(rules)
    texts = [one for one in catalog.of("symbol") if one.base == "symbol.prefixOrSuffix"]
    owners = {}
    for symbol in texts:
        owners.setdefault(symbol.value("text"), symbol.units()[0])
    shown = (one for one in texts if one.namespace == "symbol")
    for symbol in sorted(shown, key=lambda one: one.local):
        if catalog.by_id[symbol.units()[0]].base == "unit.absolute":
            continue
        named = rules["texts"].get(symbol.local, []) + rules["words"].get(symbol.local, [])
        found = [one for text in [symbol.value("text")] + named for one in speller.spellings(text)]
        others = list(filter(is_short, speller.look_alikes(symbol.value("text"))))
        for text in dict.fromkeys(named + found + others):
            fit = is_fit(text) or (text in named + others and not text.isascii())
            if fit and owners.setdefault(text, symbol.units()[0]) == symbol.units()[0]:
                yield symbol, text


def place(symbol):
    """The folder of the aliases of a display symbol."""
    pack, group = symbol.path.split("/")[:2]
    return f"aliases/{group}/spellings" if pack == "symbols" else f"{pack}/aliases"


def document(unit, local, text):
    constants = [
        {"id": "unit", "typedValue": {"typeid": unit}},
        {"id": "text", "value": text},
        {"id": "placement", "value": "Suffix"},
        {"id": "space", "value": True},
    ]
    return {
        "typeid": f"trelvon.symbolAlias:{local}-1.0.0",
        "inherits": ["vellamor.unit:symbol.prefixOrSuffix-1.0.0"],
        "constants": constants,
        "source": {"note": "input spelling"},
    }


def missing(catalog, rules):
    """path -> text of the files that the rules ask for and that are not there."""
    texts = {(one.units()[0], one.value("text")) for one in catalog.of("symbol")}
    taken = {one.local.lower() for one in catalog.files.values()}
    files = {}
    for symbol, text in wanted(catalog, rules):
        unit = symbol.units()[0]
        if (unit, text) in texts:
            continue
        texts.add((unit, text))
        local = f"{symbol.local}.{local_name(text)}"
        while local.lower() in taken:
            local = local.replace(".", ".lower", 1) if ".lower" not in local else local + "2"
        taken.add(local.lower())
        files[f"{place(symbol)}/{local}.json"] = lib.render(document(unit, local, text))
    return files


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="fail if a spelling is missing")
    checking = parser.parse_args().check
    files = missing(lib.Catalog(), json.loads(RULES.read_text(encoding="utf-8")))
    for path, text in files.items():
        fate = "is missing: run scripts/make_aliases.py" if checking else "written"
        print(f"schemas/{path} {fate}")
        if not checking:
            (lib.ROOT / path).parent.mkdir(parents=True, exist_ok=True)
            (lib.ROOT / path).write_text(text, encoding="utf-8")
    return 1 if checking and files else 0


if __name__ == "__main__":
    sys.exit(main())
