"""Records of the library. They do not refer to an engine."""
from __future__ import annotations

from ctypes import byref
from typing import Dict, NamedTuple, Tuple

from . import _library
from ._faults import call, made, shown
from ._library import Functions

SYSTEMS = ("Metric", "Imperial")
UNIT_KINDS = ("primitive", "derived", "absolute")
NAME_KINDS = ("type id", "local id", "name", "symbol", "code", "code expression")
KINDS = ("dimension", "factor", "unit", "symbol", "quantity")


class Dimension(NamedTuple):
    type_id: str


class Factor(NamedTuple):
    """`factor` is without the `parents`, which are exponents by type id."""
    type_id: str
    factor: float
    parents: Dict[str, int]


class UnitRecord(NamedTuple):
    """A unit. `kind` is "primitive", "derived" or "absolute"; fields of other kinds are empty.

    `factor` is without the `parents` and `parent_factors`, which are exponents by type id.
    """
    type_id: str
    name: str
    system: str
    kind: str
    dimension: str
    parent: str
    offset: float
    factor: float
    parents: Dict[str, int]
    parent_factors: Dict[str, int]


class Symbol(NamedTuple):
    """How numbers of a unit are written. A composite one, such as feet and inches, has no text."""
    type_id: str
    unit: str
    is_composite: bool
    is_prefix: bool
    has_space: bool
    text: str


class Quantity(NamedTuple):
    type_id: str
    name: str
    units: Tuple[str, ...]


class Name(NamedTuple):
    """A text that names a unit; `kind` tells how."""
    text: str
    unit: str
    kind: str
    is_exact: bool


def _powers(array, count):
    return {shown(array[i].type_id): array[i].exponent for i in range(count)}


def _unit(item):
    return UnitRecord(
        shown(item.type_id), shown(item.name), SYSTEMS[item.system], UNIT_KINDS[item.kind],
        shown(item.dimension), shown(item.parent), item.offset, item.factor,
        _powers(item.parents, item.parent_count),
        _powers(item.parent_factors, item.parent_factor_count))


def _symbol(item):
    return Symbol(shown(item.type_id), shown(item.unit), bool(item.is_composite),
                  bool(item.is_prefix), bool(item.has_space), shown(item.text))


def _factor(item):
    return Factor(shown(item.type_id), item.factor, _powers(item.parents, item.parent_count))


def _quantity(item):
    units = tuple(shown(item.units[i]) for i in range(item.unit_count))
    return Quantity(shown(item.type_id), shown(item.name), units)


def _name(item):
    return Name(shown(item.text), shown(item.unit), NAME_KINDS[item.kind], bool(item.is_exact))


# How the items of a list are read, by their kind.
_READERS = {
    "text": (Functions.list_text, _library.GivenText, shown),
    "dimension": (Functions.list_dimension, _library.Dimension,
                  lambda item: Dimension(shown(item.type_id))),
    "factor": (Functions.list_factor, _library.Factor, _factor),
    "unit": (Functions.list_unit, _library.Unit, _unit),
    "symbol": (Functions.list_symbol, _library.Symbol, _symbol),
    "quantity": (Functions.list_quantity, _library.Quantity, _quantity),
    "name": (Functions.list_name, _library.Name, _name)}


def listed(kind, function, *arguments):
    """The items of the list that a function makes."""
    items = made(function, *arguments)
    read, structure, value_of = _READERS[kind]
    try:
        values, item = [], structure()
        for index in range(Functions.list_count(items)):
            call(read, items, index, byref(item))
            values.append(value_of(item))
        return values
    finally:
        Functions.list_free(items)
