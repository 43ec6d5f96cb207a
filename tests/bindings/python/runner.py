"""Answers the calls of cases.py by the package for Python. The arguments are folders of definitions."""
import array
import pathlib
import struct
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "cases"))
import cases  # noqa: E402
import trelvonunits  # noqa: E402
from trelvonunits import records  # noqa: E402

STATUSES = {
    "UNRECOGNIZED": trelvonunits.UnrecognizedIdentifier, "VALIDATION": trelvonunits.ValidationError,
    "INCOMPATIBLE": trelvonunits.IncompatibleUnits, "PRECISION": trelvonunits.PrecisionError,
    "PARSE": trelvonunits.ParseError, "FILE": trelvonunits.FileError,
    "CALLBACK": trelvonunits.CallbackError, "ARGUMENT": trelvonunits.ArgumentError,
    "OTHER": trelvonunits.OtherError, "MEMORY": MemoryError}
CODES = {word: code for words in (records.SYSTEMS, records.UNIT_KINDS, records.NAME_KINDS)
         for code, word in enumerate(words)}

engine = trelvonunits.Engine.empty()
units = engine.by_id
for folder in sys.argv[1:]:
    units.add_folder(folder)
names = engine.names()


def number(value):
    if value != value:
        return "nan"
    return struct.pack(">d", value).hex()


def flat(value):
    """What was returned, as words."""
    if value is None:
        return []
    if isinstance(value, (bool, int)):
        return [str(int(value))]
    if isinstance(value, float):
        return [number(value)]
    if isinstance(value, (str, trelvonunits.Explanation)):
        return [str(value)]
    if isinstance(value, trelvonunits.Report):
        return [str(value.errors), str(value.warnings), str(value)]
    if isinstance(value, dict):
        return [word for key, exponent in value.items() for word in (key, str(exponent))]
    if isinstance(value, trelvonunits.UnitRecord):
        value = value._replace(system=CODES[value.system], kind=CODES[value.kind])
    if isinstance(value, trelvonunits.Name):
        value = value._replace(kind=CODES[value.kind])
    return [word for item in value for word in flat(item)]


def resolver(*variables):
    """Variables are NAME=TEXT, or NAME=!STATUS MESSAGE for a resolver that fails."""
    def resolve(name):
        for variable in variables:
            if not variable.startswith(name + "="):
                continue
            value = variable[len(name) + 1:]
            if value.startswith("!"):
                status, _, message = value[1:].partition(" ")
                raise STATUSES[status](message)
            return value
        raise trelvonunits.CallbackError("no such variable")
    return resolve if variables else None


def options(bits):
    return {"lint": not int(bits) & 1, "leave_out": bool(int(bits) & 2),
            "keep_going": not int(bits) & 4}


def prepared(source, target, value):
    """One number of an array with gaps, again and again."""
    values = memoryview(struct.pack("dddd", float(value), 0, float(value), 0)).cast("d")
    return units.prepare(source, target)(values[::2])[1]


def prepared_array(source, target, *words):
    """In place, from the last number on."""
    values = array.array("d", map(float, words))
    backward = memoryview(values)[::-1]
    units.prepare(source, target)(backward, out=backward)
    return list(values)


def powers(*words):
    return dict(zip(words[::2], map(int, words[1::2])))


def load_text(name, schema, bits, *variables):
    return units.load_texts({name: schema}, variable_names=variables or None, **options(bits))


def learn_names(mapping):
    global names
    names = engine.names(mapping)


def table_of(words):
    """Filled by words: "set|NAME|FORMULA|UNIT", "rename|NAME|NAME" or "remove|NAME"."""
    table = units.parameters()
    for word in words:
        change, *rest = word.split("|")
        getattr(table, change)(*rest)
    return table


def of_table(name):
    """The words are a parameter, a unit and what fills the table, and null where there is none."""
    return lambda parameter, unit, *words: getattr(table_of(words), name)(
        *(word for word in (parameter, unit) if word is not None))


def of_display(name, kind=str):
    return lambda options, *words: getattr(units.display(options), name)(*map(kind, words))


def in_bytes(text):
    return text.encode("utf-8", "surrogateescape")


CALLS = {
    "convert": lambda value, *ids: units.convert(float(value), *ids),
    "prepared": prepared,
    "prepared_array": prepared_array,
    "can_convert": units.can_convert,
    "format_fixed": lambda value, places, symbol, trim: units.format_fixed(
        float(value), int(places), symbol, trim != "0"),
    "format_fractional": lambda value, precision, symbol: units.format_fractional(
        float(value), int(precision), symbol),
    "display_show": of_display("show", float),
    "display_read": of_display("parse"),
    "display_read_json": of_display("read_json"),
    "display_json": lambda options: units.display(options).json,
    "display_unit": lambda options: units.display(options).unit or "",
    "display_locales": trelvonunits.Display.locales,
    **{"parameters_" + call: of_table(name) for call, name in [
        ("value", "value"), ("evaluate", "evaluate"), ("formula", "formula"), ("names", "__iter__"),
        ("references", "references"), ("dependents", "dependents"), ("problems", "problems"),
        ("explain_text", "explain"), ("explain_json", "explain_json")]},
    "parameters_unit": lambda *words: of_table("unit")(*words) or "",
    "evaluate": lambda unit, formula, *rest: units.evaluate(unit, formula, resolver(*rest)),
    "evaluate_unitless": lambda formula, *rest: units.evaluate_unitless(formula, resolver(*rest)),
    "explain": lambda unit, formula, *rest: units.explain(unit, formula, resolver(*rest)),
    "explain_hidden": lambda unit, formula, *rest: units.explain(unit, formula, resolver(*rest),
                                                                 hidden=True),
    "explain_unitless_hidden": lambda formula, *rest: units.explain_unitless(
        formula, resolver(*rest), hidden=True),
    "explain_tree": lambda unit, formula, *rest: units.explain(unit, formula, resolver(*rest)).tree,
    "explain_json": lambda unit, formula, *rest: units.explain(unit, formula, resolver(*rest)).json,
    "explain_unitless": lambda formula, *rest: units.explain_unitless(formula, resolver(*rest)),
    "add_definition": units.add_definition,
    "build_schemas": units.build_schemas,
    "definition": units.definition,
    "dependencies": units.dependencies,
    "is_registered": units.is_registered,
    "add_folder": units.add_folder,
    "add_bundle": lambda bundle: units.add_bundle(in_bytes(bundle)),
    "add_bundle_file": units.add_bundle_file,
    "load_folder": lambda folder, bits, *variables: units.load_folders(
        [folder], variable_names=variables or None, **options(bits)),
    "load_text": load_text,
    "load_report_json": lambda *words: load_text(*words).json,
    "load_report_sarif": lambda *words: load_text(*words).sarif,
    "load_bundle": lambda bundle, name, bits, *variables: units.load_bundle(
        in_bytes(bundle), name, variable_names=variables or None, **options(bits)),
    "check_text": units.check_text,
    "record": units.record,
    "records": units.records,
    "primitive_units": units.primitive_units,
    "primitive_units_of": units.primitive_units_of,
    "convertible_units": units.convertible_units,
    "units_with_powers": lambda *words: units.units_with_powers(powers(*words)),
    "symbols_of": units.symbols_of,
    "quantities_of": units.quantities_of,
    "learn_names": learn_names,
    "convert_named": lambda value, *texts: engine.convert(float(value), *texts),
    "find": lambda text: names.find(text),
    "find_best": lambda text: names.find_best(text),
    "find_code": lambda *words: names.find_code(*words),
    "suggest": lambda text, count: names.suggest(text, int(count)),
    "completions": lambda text, count: names.completions(text, int(count)),
    "names_of": lambda unit: names.names_of(unit),
    "why_not": lambda text: names.why_not(text),
    "unambiguous": lambda unit: names.unambiguous(unit),
    "local_id": trelvonunits.local_id,
    "systems": lambda: names.systems(),
    "codes": lambda *words: names.codes(*words)}


def answer(call, *words):
    try:
        return ["OK", *flat(CALLS[call](*words))]
    except (trelvonunits.Error, MemoryError) as error:
        status = next(name for name, kind in STATUSES.items() if isinstance(error, kind))
        return [status, str(error), *map(str, getattr(error, "byte_span", None) or ())]


for line in sys.stdin.buffer:
    request = [None if word == "\\N" else cases.unescaped(word)
               for word in line.decode("utf-8", "surrogateescape").rstrip("\n").split("\t")]
    response = "\t".join(map(cases.escaped, answer(*request)))
    sys.stdout.buffer.write(in_bytes(response) + b"\n")
