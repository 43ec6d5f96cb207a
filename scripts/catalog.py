"""Reads the shipped definitions, for scripts and tests.

Numbers are kept as the text in the file, because a round trip through a double would lose the
spellings that every JSON parser reads correctly. Values are exact: a unit is a fraction times an
integer power of pi, with integer powers of primitive units.
"""

import functools
import json
import pathlib
from fractions import Fraction

ROOT = pathlib.Path(__file__).resolve().parent.parent / "schemas"

# Characters that look like another one. They are written as escapes, so that no editor replaces
# them.
LOOK_ALIKES = "\u212a\u212b\u2126\u03bc\u2103\u2109"

# Base type ids and the namespaces of their kinds.
KINDS = {
    "dimension": "dimension",
    "factor": "factor",
    "factor.derived": "factor",
    "unit.primitive": "unit",
    "unit.primitive.dimensional": "unit",
    "unit.derived": "unit",
    "unit.absolute": "unit",
    "symbol": "symbol",
    "symbol.prefixOrSuffix": "symbol",
    "quantity": "quantity",
}

# pi to 80 decimals: far more than it takes to find the nearest double.
PI = Fraction(
    314159265358979323846264338327950288419716939937510582097494459230781640628620899, 10**80
)


class Number(str):
    """A number as spelled in a file."""

    def exact(self):
        return Fraction(str(self))


def parse(text):
    """Parses JSON with numbers as text; a duplicate member is an error."""

    def members(pairs):
        found = dict(pairs)
        if len(found) != len(pairs):
            raise ValueError("duplicate member")
        return found

    return json.loads(text, parse_float=Number, parse_int=Number, object_pairs_hook=members)


def inline(value):
    if isinstance(value, Number):
        return str(value)
    if isinstance(value, str):
        text = json.dumps(value, ensure_ascii=False)
        return "".join(f"\\u{ord(c):04X}" if c in LOOK_ALIKES else c for c in text)
    if isinstance(value, dict):
        return "{" + ", ".join(f"{inline(k)}: {inline(v)}" for k, v in value.items()) + "}"
    if isinstance(value, list):
        return "[" + ", ".join(inline(item) for item in value) + "]"
    return json.dumps(value)


def lines(items, indent):
    space = "\n" + " " * indent
    return "[" + space + "  " + ("," + space + "  ").join(items) + space + "]" if items else "[]"


def render_constant(constant):
    """One line; but one line per unit in a list of units, so that a diff shows what was added."""
    if not isinstance(constant.get("typedValue"), list):
        return inline(constant)
    units = lines([inline(unit) for unit in constant["typedValue"]], 4)
    return f'{{"id": {inline(constant["id"])}, "typedValue": {units}}}'


def render(document):
    """Formats a definition file. There is only one layout."""
    constants = lines([render_constant(c) for c in document["constants"]], 2)
    members = [
        (name, constants if name == "constants" else inline(value))
        for name, value in document.items()
    ]
    return "{\n" + ",\n".join(f'  "{name}": {text}' for name, text in members) + "\n}\n"


class Definition:
    """One definition file."""

    def __init__(self, path, text):
        self.path = path  # relative to the schema folder, with slashes
        self.pack = path.split("/")[0]
        self.text = text
        self.document = parse(text)
        self.id = self.document["typeid"]
        self.base = self.document["inherits"][0].removeprefix("vellamor.unit:").rsplit("-", 1)[0]
        self.kind = KINDS[self.base]
        self.source = self.document["source"]
        self.constants = {c["id"]: c for c in self.document["constants"]}

        self.namespace = self.id.split(":", 1)[0].removeprefix("trelvon.")
        self.local = self.id.split(":", 1)[1].rsplit("-", 1)[0]

    def value(self, constant, default=None):
        return self.constants.get(constant, {}).get("value", default)

    def reference(self, constant):
        return self.constants[constant]["typedValue"]["typeid"]

    def powers(self, constant):
        return {parent: int(power) for parent, power in self.value(constant, {}).items()}

    def units(self):
        """The unit of a symbol, the units of a quantity."""
        if self.kind == "symbol":
            return [self.reference("unit")]
        return [unit["typeid"] for unit in self.constants["units"]["typedValue"]]

    def references(self):
        """Every type id that this definition names."""
        named = list(self.value("parentFactors", {})) + list(self.value("parentUnits", {}))
        for constant in self.constants.values():
            typed = constant.get("typedValue", [])
            named += [one["typeid"] for one in (typed if isinstance(typed, list) else [typed])]
        return named

    def stated_value(self):
        return Fraction(self.source["exact"]), int(self.source["piPower"])


# A file is parsed once, however many catalogs hold it.
definition = functools.lru_cache(maxsize=None)(Definition)


@functools.lru_cache(maxsize=None)
def texts_in(root):
    return {
        path.relative_to(root).as_posix(): path.read_bytes().decode("utf-8")
        for path in sorted(root.glob("*/**/*.json"))
    }


class Catalog:
    """All definitions in a schema folder. `changes` replaces the text of files, or omits them if it
    is None, so that tests can make a check fail."""

    def __init__(self, root=ROOT, changes=None):
        texts = {**texts_in(root), **(changes or {})}
        self.root = root
        # the codes of other systems, which lie directly in the folder of a pack
        self.codes = {path: text for path, text in texts.items() if path.count("/") == 1 and text}
        self.files = {
            path: definition(path, text)
            for path, text in texts.items()
            if path not in self.codes and text
        }
        self.by_id = {one.id: one for one in self.files.values()}
        self.reductions = {}

    def of(self, kind):
        return [one for one in self.files.values() if one.kind == kind]

    def exact_factor(self, definition):
        """(fraction, power of pi) of a factor, or of the numeric factor of a derived unit."""
        value = definition.value("factor", Number("1")).exact()
        if definition.id == "trelvon.factor:pi-1.0.0":  # its number is the double nearest to pi
            return Fraction(1), 1
        pi = 0
        for parent, power in definition.powers("parentFactors").items():
            parent_value, parent_pi = self.exact_factor(self.by_id[parent])
            value *= parent_value**power
            pi += parent_pi * power
        return value, pi

    def reduce(self, unit_id):
        """(fraction, power of pi, powers of primitive units) of a unit. A power that cancels stays
        as 0, as in the engine. An absolute unit reduces like its parent."""
        if unit_id not in self.reductions:
            self.reductions[unit_id] = self.reduce_afresh(self.by_id[unit_id])
        return self.reductions[unit_id]

    def reduce_afresh(self, unit):
        if unit.base == "unit.absolute":
            return self.reduce(unit.reference("parentUnit"))
        if unit.base.startswith("unit.primitive"):
            return Fraction(1), 0, {unit.id: 1}
        value, pi = self.exact_factor(unit)
        powers = {}
        for parent, power in unit.powers("parentUnits").items():
            parent_value, parent_pi, parent_powers = self.reduce(parent)
            value *= parent_value**power
            pi += parent_pi * power
            for primitive, exponent in parent_powers.items():
                if exponent:
                    powers[primitive] = powers.get(primitive, 0) + exponent * power
        return value, pi, powers
