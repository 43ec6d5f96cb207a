#!/usr/bin/env python3
"""Answers the calls of cases.py by SQL, in the database that the variables of libpq name. The arguments
are folders of definitions, which the catalog of the extension has.
"""
import json
import re
import struct
import sys

import psycopg2

sys.path.insert(0, "tests/cases")
import cases  # noqa: E402

STATUSES = {"TU001": "UNRECOGNIZED", "TU002": "UNRECOGNIZED", "TU003": "INCOMPATIBLE",
            "TU004": "PRECISION", "TU005": "PARSE", "22023": "VALIDATION"}
# As a column, so that nothing is known when the statement is planned.
CONVERT = "SELECT units_convert(x, a, b) FROM (SELECT %s::float8 x, %s a, %s b OFFSET 0) v"
ARRAY = "SELECT units_convert(x, {}, {}) FROM unnest(ARRAY[0] || %s::float8[]) x OFFSET 1"
UNITS = ("SELECT type_id, name, (system = 'imperial')::int, array_position(ARRAY['primitive', "
         "'derived', 'absolute'], kind) - 1, coalesce(dimension, ''), CASE kind WHEN 'absolute' THEN "
         "(SELECT min(key) FROM jsonb_each(parents)) ELSE '' END, coalesce(\"offset\", 0), "
         "coalesce(factor, 0), CASE kind WHEN 'derived' THEN parents ELSE '{}' END, "
         "coalesce(factors, '{}') FROM units_convertible(%s)")
PREPARED = "SELECT units_convert(x, {}, {}) FROM (VALUES (0), (%s::float8)) v (x) OFFSET 1"


def variables(words):
    return json.dumps(dict(word.split("=", 1) for word in words)) if words else None


def formula(function, unit, text, words):
    """A call with the arguments that there are."""
    given = ([text] + ([] if unit is None else [unit]) + ([variables(words)] if words else []))
    types = ["text"] + ([] if unit is None else ["units_name"]) + (["jsonb"] if words else [])
    return (f"SELECT {function}({', '.join(f'%s::{kind}' for kind in types)})", given)


def display(function, value, count, symbol, *more):
    given = [value] + ([] if symbol is None else [symbol]) + [count, *more]
    types = ["float8"] + ([] if symbol is None else ["text"]) + ["int"] + ["bool"] * len(more)
    return (f"SELECT {function}({', '.join(f'%s::{kind}' for kind in types)})", given)


def quoted(word):
    return "'" + word.replace("'", "''").replace("%", "%%") + "'"


CALLS = {
    "convert": lambda value, start, end: (CONVERT, [value, start, end]),
    "prepared": lambda start, end, value: (PREPARED.format(quoted(start), quoted(end)), [value]),
    "prepared_array": lambda start, end, *values: (
        ARRAY.format(quoted(start), quoted(end)), [list(values)]),
    "convert_named": lambda value, start, end: (CONVERT, [value, start, end]),
    "can_convert": lambda start, end: ("SELECT units_can_convert(%s, %s)::int", [start, end]),
    "format_fixed": lambda value, places, symbol, trim:
        display("units_format", value, places, symbol, trim),
    "format_fractional": lambda value, precision, symbol:
        display("units_format_fraction", value, precision, symbol),
    "display_show": lambda options, value: (
        "SELECT units_show(%s::float8, %s::jsonb)", [value, options]),
    "display_read": lambda options, text: ("SELECT units_read(%s, %s::jsonb)", [text, options]),
    "evaluate": lambda unit, text, *words: formula("units_evaluate", unit, text, words),
    "evaluate_unitless": lambda text, *words: formula("units_evaluate", None, text, words),
    "explain": lambda unit, text, *words: formula("units_explain_text", unit, text, words),
    "explain_unitless": lambda text, *words: formula("units_explain_text", None, text, words),
    "find": lambda text: (
        "SELECT text, unit, array_position(ARRAY['type id', 'local id', 'name', 'symbol', 'code', "
        "'expression'], kind) - 1, is_exact::int FROM units_find(%s)", [text]),
    "convertible_units": lambda unit: (UNITS, [unit]),
    "symbols_of": lambda unit: (
        "SELECT type_id, unit, (placement = 'composite')::int, (placement = 'prefix')::int, "
        "has_space::int, text FROM units_symbols(%s)", [unit])}


def words_of(cursor):
    for row in cursor.fetchall():
        for value, column in zip(row, cursor.description):
            if column.type_code == 701:  # float8
                value = "nan" if value != value else struct.pack(">d", value).hex()
            if isinstance(value, dict):  # of type ids and exponents
                yield from (str(part) for item in sorted(value.items()) for part in item)
            else:
                yield str(value)


def answer(cursor, call, *words):
    try:
        cursor.execute(*CALLS[call](*words))
        return ["OK", *words_of(cursor)]
    except psycopg2.Error as error:
        span = re.match(r"Bytes (\d+) to (\d+) ", error.diag.message_detail or "")
        return [STATUSES.get(error.pgcode, error.pgcode), error.diag.message_primary,
                *(span.groups() if span else [])]


def main():
    connection = psycopg2.connect("")
    connection.autocommit = True
    with connection.cursor() as cursor:
        for line in sys.stdin.read().split("\n")[:-1]:
            words = [None if word == "\\N" else cases.unescaped(word) for word in line.split("\t")]
            print("\t".join(map(cases.escaped, answer(cursor, *words))))


if __name__ == "__main__":
    main()
