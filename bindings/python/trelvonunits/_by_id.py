"""The operations of an engine, the same in all languages: by type id, with the same messages."""
from __future__ import annotations

from ctypes import byref, c_double, c_void_p
from typing import Any, Callable, List, Mapping, Optional, Sequence

from . import _library
from ._arguments import (digits, encoded, flag, json_of, mapping, number, optional_text, path,
                         several, text, texts, whole, written)
from ._faults import call, made
from ._library import Functions, Text
from ._objects import Explanation, Owned, Report
from ._resolution import Resolution, resolved
from .conversions import Conversion
from .displays import Display
from .errors import ArgumentError
from .parameters import Parameters
from .records import Dimension, Factor, KINDS, Quantity, Symbol, UnitRecord, listed

Resolver = Optional[Callable[[str], Any]]
_NO_LINTS, _LEAVE_OUT, _STOP_AT_ERROR = 1, 2, 4
_LEAST, _MOST = -2**31, 2**31 - 1


def _options(lint, leave_out, keep_going):
    return (0 if lint else _NO_LINTS) | (_LEAVE_OUT if leave_out else 0) | (
        0 if keep_going else _STOP_AT_ERROR)


def _kind(kind):
    if kind not in KINDS:
        raise ArgumentError("There is no such kind of record.")
    return KINDS.index(kind)


def _variables(names):
    """Names of variables and their number; null means the library's own list."""
    if names is None:
        return None, 0
    array = texts(names, "variable_names")
    return (array, len(array)) if len(array) else ((Text * 1)(), 0)


class ById:
    """The operations of an engine, with type ids such as "trelvon.unit:foot-1.0.0".

    Get it from `Engine.by_id`. Its methods do what the methods of the same name in C++ do, with the
    same bits and messages. They do not accept other names, which suits programs that use type ids.

    >>> from trelvonunits import Engine
    >>> Engine().by_id.convert(6, "trelvon.unit:foot-1.0.0", "trelvon.unit:meter-1.0.0")
    1.8288000000000002
    """

    def __init__(self, owned: Owned, changed: Callable[[], None]) -> None:
        self._owned = owned
        self._engine = owned.pointer
        self._changed = changed
        self.is_of_catalog = self.is_catalog_alone = False

    # Numbers

    def convert(self, value: float, from_unit: str, to_unit: str) -> float:
        result = c_double()
        call(Functions.convert, self._engine, number(value, "value"), text(from_unit, "from_unit"),
             text(to_unit, "to_unit"), byref(result))
        return result.value

    def can_convert(self, from_unit: str, to_unit: str) -> bool:
        return flag(Functions.can_convert, self._engine, text(from_unit, "from_unit"),
                    text(to_unit, "to_unit"))

    def prepare(self, from_unit: str, to_unit: str) -> Conversion:
        ids = [encoded(each, "a unit") for each in (from_unit, to_unit)]
        made_of = made(Functions.conversion_create, self._engine,
                       *(Text(each, len(each)) for each in ids))
        return Conversion(Owned(made_of, Functions.conversion_free),
                          *(each.decode("utf-8", "surrogateescape") for each in ids),
                          self.is_of_catalog)

    def format_fixed(self, value: float, places: int, symbol: Optional[str] = None,
                     trim: bool = False) -> str:
        return written(Functions.format_fixed, self._engine, number(value, "value"),
                       digits(places, "places"), optional_text(symbol, "symbol"), bool(trim))

    def format_fractional(self, value: float, precision: int, symbol: Optional[str] = None) -> str:
        return written(Functions.format_fractional, self._engine, number(value, "value"),
                       digits(precision, "precision"), optional_text(symbol, "symbol"))

    def display(self, options: Any = {}) -> Display:
        """`options`: JSON as docs/display.md describes it, or a mapping of that form."""
        return Display(Owned(made(Functions.display_create, self._engine,
                                  json_of(options, "options")), Functions.display_free),
                       self.is_catalog_alone)

    # Formulas

    def evaluate(self, unit: str, formula: str, resolver: Resolver = None,
                 variables: Mapping[str, Any] = {}) -> float:
        data = encoded(formula, "formula")
        arguments = (self._engine, text(unit, "unit"), Text(data, len(data)))
        return resolved(Functions.evaluate, arguments, data, Resolution(resolver, variables),
                        c_double()).value

    def evaluate_unitless(self, formula: str, resolver: Resolver = None,
                          variables: Mapping[str, Any] = {}) -> float:
        data = encoded(formula, "formula")
        arguments = (self._engine, Text(data, len(data)))
        return resolved(Functions.evaluate_unitless, arguments, data,
                        Resolution(resolver, variables), c_double()).value

    def explain(self, unit: Optional[str], formula: str, resolver: Resolver = None,
                variables: Mapping[str, Any] = {}, hidden: bool = False) -> Explanation:
        """`unit`: None for the value in primitive units.

        `hidden`: whether the resolver is also asked for names that the text of a unit hides.
        """
        data = encoded(formula, "formula")
        arguments = (self._engine, optional_text(unit, "unit"), Text(data, len(data)))
        function = Functions.explain_hidden if hidden else Functions.explain
        return Explanation(resolved(function, arguments, data, Resolution(resolver, variables),
                                    c_void_p()), data)

    def explain_unitless(self, formula: str, resolver: Resolver = None,
                         variables: Mapping[str, Any] = {}, hidden: bool = False) -> Explanation:
        data = encoded(formula, "formula")
        function = Functions.explain_unitless_hidden if hidden else Functions.explain_unitless
        return Explanation(resolved(function, (self._engine, Text(data, len(data))), data,
                                    Resolution(resolver, variables), c_void_p()), data)

    def parameters(self) -> Parameters:
        """An empty table."""
        return Parameters(self._owned, lambda unit: unit)

    # Definitions

    def add_definition(self, schema: str) -> List[str]:
        """Returns the type ids that it refers to but that do not exist yet."""
        return listed("text", Functions.add_definition, self._engine, text(schema, "schema"))

    def build_schemas(self) -> None:
        self._change(Functions.build_schemas)

    def definition(self, type_id: str) -> str:
        return written(Functions.definition, self._engine, text(type_id, "type_id"))

    def dependencies(self, type_id: str) -> List[str]:
        return listed("text", Functions.dependencies, self._engine, text(type_id, "type_id"))

    def is_registered(self, type_id: str) -> bool:
        return flag(Functions.is_registered, self._engine, text(type_id, "type_id"))

    def add_folder(self, folder: Any) -> None:
        data = path(folder, "folder")
        self._change(Functions.add_folder, Text(data, len(data)))

    def add_bundle(self, bundle: bytes) -> None:
        self._change(Functions.add_bundle, text(bundle, "bundle"))

    def add_bundle_file(self, file: Any) -> None:
        data = path(file, "file")
        self._change(Functions.add_bundle_file, Text(data, len(data)))

    def _change(self, function, *arguments, then=call) -> Any:
        try:
            return then(function, self._engine, *arguments)
        finally:
            self.is_catalog_alone = False
            self._changed()  # not before, as another thread may learn the names in between

    # Loading with a report

    def load_folders(self, folders: Sequence[Any], *, lint: bool = True, leave_out: bool = False,
                     keep_going: bool = True,
                     variable_names: Optional[Sequence[str]] = None) -> Report:
        paths = several(folders, "folders", "paths")
        array = texts([path(folder, "each of folders") for folder in paths], "folders")
        return self._reported(Functions.load_folders_for, *_variables(variable_names), array,
                              len(array), _options(lint, leave_out, keep_going))

    def load_texts(self, named: Mapping[str, str], *, lint: bool = True, leave_out: bool = False,
                   keep_going: bool = True,
                   variable_names: Optional[Sequence[str]] = None) -> Report:
        """`named`: schema texts by the names that the report shows for them."""
        named = mapping(named, "named")
        names, schemas = texts(named, "names"), texts(named.values(), "schemas")
        return self._reported(Functions.load_texts_for, *_variables(variable_names), names, schemas,
                              len(names), _options(lint, leave_out, keep_going))

    def load_bundle(self, bundle: bytes, shown_name: str, *, lint: bool = True,
                    leave_out: bool = False, keep_going: bool = True,
                    variable_names: Optional[Sequence[str]] = None) -> Report:
        return self._reported(Functions.load_bundle_for, *_variables(variable_names),
                              text(bundle, "bundle"), text(shown_name, "shown_name"),
                              _options(lint, leave_out, keep_going))

    def check_text(self, schema: str, shown_name: str) -> Report:
        return Report(made(Functions.check_text, self._engine, text(schema, "schema"),
                           text(shown_name, "shown_name")))

    def _reported(self, function, *arguments) -> Report:
        return Report(self._change(function, *arguments, then=made))

    # Records

    def record(self, kind: str, type_id: str) -> Any:
        """`kind`: "dimension", "factor", "unit", "symbol" or "quantity"."""
        return listed(kind, Functions.record, self._engine, _kind(kind),
                      text(type_id, "type_id"))[0]

    def records(self, kind: str) -> List[Any]:
        return listed(kind, Functions.records, self._engine, _kind(kind))

    def dimension(self, type_id: str) -> Dimension:
        return self.record("dimension", type_id)

    def factor(self, type_id: str) -> Factor:
        return self.record("factor", type_id)

    def unit(self, type_id: str) -> UnitRecord:
        return self.record("unit", type_id)

    def symbol(self, type_id: str) -> Symbol:
        return self.record("symbol", type_id)

    def quantity(self, type_id: str) -> Quantity:
        return self.record("quantity", type_id)

    def dimensions(self) -> List[Dimension]:
        return self.records("dimension")

    def factors(self) -> List[Factor]:
        return self.records("factor")

    def units(self) -> List[UnitRecord]:
        return self.records("unit")

    def symbols(self) -> List[Symbol]:
        return self.records("symbol")

    def quantities(self) -> List[Quantity]:
        return self.records("quantity")

    def primitive_units(self) -> List[UnitRecord]:
        return listed("unit", Functions.primitive_units, self._engine)

    def primitive_units_of(self, dimension: Optional[str]) -> List[UnitRecord]:
        """`dimension`: None for the units without one."""
        return listed("unit", Functions.primitive_units_of, self._engine,
                      optional_text(dimension, "dimension"))

    def convertible_units(self, unit: str) -> List[UnitRecord]:
        return listed("unit", Functions.convertible_units, self._engine, text(unit, "unit"))

    def units_with_powers(self, powers: Mapping[str, int]) -> List[UnitRecord]:
        """`powers`: exponents of primitive units by their type ids."""
        items = [(text(unit, "a unit"), whole(exponent, "an exponent", _LEAST, _MOST))
                 for unit, exponent in mapping(powers, "powers").items()]
        array = (_library.Power * len(items))(*items)
        return listed("unit", Functions.units_with_powers, self._engine, array, len(array))

    def symbols_of(self, unit: str) -> List[Symbol]:
        return listed("symbol", Functions.symbols_of, self._engine, text(unit, "unit"))

    def quantities_of(self, unit: str) -> List[Quantity]:
        return listed("quantity", Functions.quantities_of, self._engine, text(unit, "unit"))
