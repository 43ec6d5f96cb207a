"""An engine that takes names of units."""
from __future__ import annotations

import ctypes
import os
from ctypes import byref, c_double, c_void_p
from typing import Any, Dict, Iterator, List, Mapping, Optional, Sequence, Tuple, Union, overload

from . import _buffers, errors
from ._arguments import encoded, number, several, text, whole
from ._by_id import ById, Resolver
from ._faults import made
from ._library import FOLDER, Functions, Text
from ._names import Names, catalog_codes, local_id
from ._objects import Explanation, Owned, Report
from .conversions import Conversion, is_number
from .displays import Display
from .parameters import Parameters
from .records import UnitRecord

_BUNDLE = os.path.join(FOLDER, "catalog.bundle")
_convert_named = Functions.convert_named
# Unusual arguments, or another thread has taken the last slot.
_UNCHECKED = (AttributeError, IndexError, TypeError, ValueError, ctypes.ArgumentError)


def _make_slot():
    """The memory that one conversion needs in C. Calls share a few of these slots."""
    result = c_double()
    return Text(), Text(), result, byref(result)


class Engine:
    """Units and symbols, and the functions that convert, evaluate and format with them.

    It has the catalog that comes with the package. You can name units as people do: by local id,
    name, symbol, code or type id. A text that names no unit, or several, raises `UnknownUnit` or
    `AmbiguousUnit` with candidates.

    >>> units = Engine()
    >>> units.convert(5, "ft", "in")
    60.0
    >>> units.evaluate("2 ft + w", "m", w="3 in")
    0.6858
    >>> units.format(5.53125, "feetAndInches", fraction=4)
    '5\\' 6 3/8"'
    >>> units.convert(1, "fot", "m")
    Traceback (most recent call last):
    trelvonunits.errors.UnknownUnit: 'fot' does not name a unit. Did you mean 'foot'?

    `Engine(folders=["my/schemas"])` loads these folders instead, in this order.
    """

    def __init__(self, *, folders: Optional[Sequence[Any]] = None) -> None:
        self._start()
        if folders is None:
            self.by_id.add_bundle_file(_BUNDLE)
            self.by_id.is_of_catalog = self.by_id.is_catalog_alone = True
            return
        report = self.by_id.load_folders(folders, lint=False)
        if report.errors:
            raise errors.LoadError(str(report), report=report)

    def _start(self) -> None:
        self._owned = Owned(made(Functions.engine_create), Functions.engine_free)
        self._pointer = self._owned.pointer
        self._slots: List[Tuple[Any, ...]] = []
        self._forget_names()
        self.by_id = ById(self._owned, self._forget_names)

    @classmethod
    def empty(cls) -> Engine:
        """An engine without definitions.

        >>> len(Engine.empty().units)
        0
        """
        engine = cls.__new__(cls)
        engine._start()
        return engine

    def __reduce__(self) -> Any:
        raise errors.ArgumentError("an engine cannot be pickled: make one where it is used")

    # Names

    def _forget_names(self) -> None:
        """Names are collected when they are first needed, and again after definitions were added."""
        self._definitions = object()  # tells what was there before from what is there now
        self._known: Optional[Names] = None
        self._known_codes: Optional[Names] = None
        self._known_symbols: Optional[_Index] = None
        self._known_quantities: Optional[_Index] = None

    def _learned(self, attribute, learn):
        """Kept until definitions are added, even if another thread adds some while this is made.

        There is no lock, since a child of `fork` might find it locked.
        """
        known = getattr(self, attribute)
        if known is None:
            definitions = self._definitions
            known = learn()
            setattr(self, attribute, known)
            if definitions is not self._definitions:
                setattr(self, attribute, None)
        return known

    def _names(self) -> Names:
        return self._learned("_known", lambda: Names(self._owned))

    def names(self, *mappings: str) -> Names:
        """The names of the units, and the codes of these mappings."""
        return Names(self._owned, mappings)

    def id_of(self, name: str) -> str:
        """The type id of the unit that a text names.

        >>> Engine().id_of("ucum:[ft_i]")
        'trelvon.unit:foot-1.0.0'
        """
        names, data = self._names(), encoded(name, "a unit")
        if b":" not in data or names.find_best(data):
            return names.only(name)
        codes = self._learned("_known_codes", lambda: self.names(catalog_codes()))
        return codes.only(name)

    def _symbol_id(self, name: str) -> str:
        index = self._learned("_known_symbols", lambda: _Index(
            "symbol", {symbol.type_id: symbol.text for symbol in self.by_id.symbols()}))
        return index.only(name)

    def _quantity_id(self, name: str) -> str:
        index = self._learned("_known_quantities", lambda: _Index(
            "quantity", {quantity.type_id: quantity.name for quantity in self.by_id.quantities()}))
        return index.only(name)

    def _best(self, best, least):
        """The units to choose from, in the form of the JSON: a quantity, or a list of symbols."""
        if isinstance(best, (str, bytes)):
            units = {"quantity": self._quantity_id(best)}
        else:
            units = {"symbols": [self._symbol_id(each) for each in several(best, "best", "symbols")]}
        return units if least is None else {**units, "least": number(least, "least")}

    # Numbers

    @overload
    def convert(self, value: float, from_unit: str, to_unit: str) -> float: ...

    @overload
    def convert(self, value: Any, from_unit: str, to_unit: str, out: Any = None) -> Any: ...

    def convert(self, value: Any, from_unit: str, to_unit: str, out: Any = None) -> Any:
        """Converts a number, or the doubles of a buffer.

        A buffer is an `array.array("d")`, a `memoryview`, an array of NumPy or anything like them, of
        any shape and strides. The result goes into `out`, which may be the buffer itself, or into a
        new array.

        >>> from array import array
        >>> values = array("d", [1, 2])
        >>> Engine().convert(values, "ft", "cm", out=values)
        array('d', [30.48, 60.96])
        """
        if out is None and (type(value) is float or type(value) is int):
            try:
                slot = self._slots.pop() if self._slots else _make_slot()
                source, target, result, reference = slot
                source.data = name = from_unit.encode()
                source.size = len(name)
                target.data = name = to_unit.encode()
                target.size = len(name)
                names = self._known  # held here, as another thread may drop it
                if not _convert_named(self._pointer, names.pointer, value, source, target,
                                      reference, None):
                    converted = result.value
                    self._slots.append(slot)
                    return converted
            except _UNCHECKED:
                pass
        return self._convert_otherwise(value, from_unit, to_unit, out)

    def _convert_otherwise(self, value, from_unit, to_unit, out):
        """Checks all arguments. Also used if names have not been collected yet or are not found."""
        if out is None and is_number(value):
            value = number(value, "value")
            return self.by_id.convert(value, self.id_of(from_unit), self.id_of(to_unit))
        return _buffers.convert(self._conversion(from_unit, to_unit), value, out)

    def _conversion(self, from_unit, to_unit):
        """Worked out by one call if the names are known; otherwise, type ids are looked up first."""
        source, target = text(from_unit, "a unit"), text(to_unit, "a unit")
        names, pointer = self._names(), c_void_p()
        if Functions.conversion_create_named(self._pointer, names.pointer, source, target,
                                             byref(pointer), None):
            return self.prepare(from_unit, to_unit)._owned
        return Owned(pointer, Functions.conversion_free)

    def can_convert(self, from_unit: str, to_unit: str) -> bool:
        """Whether `convert` converts between the units."""
        return self.by_id.can_convert(self.id_of(from_unit), self.id_of(to_unit))

    def prepare(self, from_unit: str, to_unit: str) -> Conversion:
        """A conversion that is worked out once, for many numbers."""
        return self.by_id.prepare(self.id_of(from_unit), self.id_of(to_unit))

    def format(self, value: float, symbol: Optional[str] = None, places: int = 2, *,
               trim: bool = False, fraction: Optional[int] = None) -> str:
        """Writes a number, which is not converted.

        - `symbol`: local id, type id or text of a symbol.
        - `places`: decimal places; `trim` drops zeros at the end.
        - `fraction`: writes a binary fraction instead, down to 1/2 (1), 1/4 (2), 1/8 (3) ...

        >>> Engine().format(2.5, "kg")
        '2.50 kg'
        """
        type_id = None if symbol is None else self._symbol_id(symbol)
        if fraction is not None:
            return self.by_id.format_fractional(value, fraction, type_id)
        return self.by_id.format_fixed(value, places, type_id, trim)

    def display(self, symbol: Optional[str] = None, *, unit: Optional[str] = None,
                places: Optional[int] = None, denominator: Optional[int] = None,
                significant: Optional[int] = None, trims: bool = False, groups: bool = False,
                locale: str = "en", shows_unit: bool = True, decimal_mark: Optional[str] = None,
                group_mark: Optional[str] = None, minus: str = "locale",
                no_break_spaces: bool = False, best: Union[str, Sequence[str], None] = None,
                least: Optional[float] = None) -> Display:
        """Shows and reads values as people write them, as docs/display.md describes it.

        - `symbol`: local id, type id or text of a symbol.
        - `unit`: the unit of the values, if it is not the symbol's unit.
        - `best`: symbols to choose the best unit from, or a quantity whose units to choose from.

        >>> mm = Engine().display("mm", places=1, groups=True, locale="de", best="length")
        >>> mm(376.275), mm(2500), mm.parse("1.234,5 mm")
        ('376,3 mm', '2,5 m', 1234.5)

        Options that are stored as JSON go to `by_id.display`.
        """
        if least is not None and best is None:
            raise errors.ArgumentError("least needs best")
        counts = {"places": places, "denominator": denominator, "significant": significant}
        given = {"unit": None if unit is None else self.id_of(unit),
                 "symbol": None if symbol is None else self._symbol_id(symbol),
                 **{name: None if count is None else whole(count, name, 0, 10**9 - 1)
                    for name, count in counts.items()},
                 "trims": bool(trims), "groups": bool(groups), "locale": locale,
                 "showsUnit": bool(shows_unit), "decimalMark": decimal_mark,
                 "groupMark": group_mark, "minus": minus, "noBreakSpaces": bool(no_break_spaces),
                 "best": None if best is None else self._best(best, least)}
        return self.by_id.display({name: value for name, value in given.items()
                                   if value is not None})

    # Formulas

    def evaluate(self, formula: str, unit: Optional[str] = None, resolver: Resolver = None, /,
                 **variables: Any) -> float:
        """Evaluates a formula in a unit; without one, the result is a plain number.

        Variables are formulas or numbers, by keyword. A resolver is called with the names of all
        others, and returns a formula or number. Its exceptions reach the caller unchanged.

        >>> units = Engine()
        >>> units.evaluate("2 * width", "m", {"width": "1 ft"}.__getitem__)
        0.6096
        >>> units.evaluate("2 ft + 3 kg", "m")
        Traceback (most recent call last):
        trelvonunits.errors.ParseError: Unable to parse expression.
        """
        if unit is None:
            return self.by_id.evaluate_unitless(formula, resolver, variables)
        return self.by_id.evaluate(self.id_of(unit), formula, resolver, variables)

    def explain(self, formula: str, unit: Optional[str] = None, resolver: Resolver = None, /,
                **variables: Any) -> Explanation:
        """Explains how a formula is read, or why it is refused.

        A `ParseError` that the resolver raises is explained. Without one, there are warnings about
        variables that the text of a unit hides.

        >>> print(Engine().explain("2 ft + 3", "m"), end="")
        2 ft + 3
             ^
        error: `+` needs the same units on both sides: left is a length, right is a plain number.
          write: 2 ft + 3 ft
        """
        if unit is None:
            return self.by_id.explain_unitless(formula, resolver, variables, resolver is None)
        return self.by_id.explain(self.id_of(unit), formula, resolver, variables, resolver is None)

    def parameters(self) -> Parameters:
        """An empty table of formulas that refer to each other by name.

        >>> table = Engine().parameters()
        >>> table.update(width="2 m", area="width^2")
        >>> table.value("area", "m²")
        4.0
        """
        return Parameters(self._owned, self.id_of)

    # Definitions

    def load(self, *folders: Any, lint: bool = True, leave_out: bool = False,
             keep_going: bool = True, variable_names: Optional[Sequence[str]] = None) -> Report:
        """Loads folders of schema files, and reports what is wrong in them.

        If there is an error, nothing is loaded, unless `leave_out` asks to load the rest without the
        faulty files. `keep_going=False` stops at the first error. Symbols that hide one of
        `variable_names` are findings.
        """
        return self.by_id.load_folders(folders, lint=lint, leave_out=leave_out,
                                       keep_going=keep_going, variable_names=variable_names)

    @property
    def units(self) -> Units:
        """The units by name.

        >>> foot = Engine().units["ft"]
        >>> foot.factor, foot.exact, foot.symbols[:3]
        (0.3048, '381/1250', ('ft', "'", 'feet'))
        """
        return Units(self)


class _Index:
    """Finds records by type id, else by local id, else by text."""

    def __init__(self, what, texts):
        self._what, self._type_ids = what, frozenset(texts)
        self._by_local_id: Dict[str, List[str]] = {}
        self._by_text: Dict[str, List[str]] = {}
        for type_id, text_of_it in texts.items():
            self._by_local_id.setdefault(local_id(type_id), []).append(type_id)
            if text_of_it:
                self._by_text.setdefault(text_of_it, []).append(type_id)

    def only(self, name):
        encoded(name, self._what)
        if name in self._type_ids:
            return name
        found = tuple(self._by_local_id.get(name) or self._by_text.get(name) or ())
        if len(found) == 1:
            return found[0]
        if found:
            raise errors.AmbiguousUnit(f"{name!r} names more than one {self._what}. Write one of: "
                                       + ", ".join(found), candidates=found)
        raise errors.UnrecognizedIdentifier(f"{name!r} does not name a {self._what}.")


class Unit(UnitRecord):
    """A unit of an engine. Its fields are those of its record. It is pickled as its record."""

    _engine: Engine

    def __reduce__(self) -> Any:
        return UnitRecord, tuple(self)

    @property
    def symbols(self) -> Tuple[str, ...]:
        """The texts of its symbols, in order of their type ids."""
        symbols = self._engine.by_id.symbols_of(self.type_id)
        return tuple(symbol.text for symbol in symbols if symbol.text)

    @property
    def exact(self) -> Optional[str]:
        """The exact size in primitive units, if the catalog has it, such as "381/1250"."""
        return _exact_sizes().get(self.type_id) if self._engine.by_id.is_of_catalog else None

    @property
    def quantities(self) -> Tuple[str, ...]:
        """The names of the quantities that list it."""
        return tuple(each.name for each in self._engine.by_id.quantities_of(self.type_id))


class Units(Mapping[str, Unit]):
    """The units of an engine. Keys are type ids; any name finds a unit, too."""

    def __init__(self, engine: Engine) -> None:
        self._engine = engine

    def _of(self, record: UnitRecord) -> Unit:
        unit = Unit(*record)
        unit._engine = self._engine
        return unit

    def __getitem__(self, name: str) -> Unit:
        return self._of(self._engine.by_id.unit(self._engine.id_of(name)))

    def __iter__(self) -> Iterator[str]:
        return (record.type_id for record in self._engine.by_id.units())

    def __len__(self) -> int:
        return len(self._engine.by_id.units())


_exact: Dict[str, str] = {}


def _exact_sizes() -> Dict[str, str]:
    """The exact sizes that the catalog's definitions give in addition to their doubles."""
    global _exact
    if not _exact:
        import json
        with open(_BUNDLE, "rb") as file:
            schemas = file.read().split(b"\n", 1)[1].split(b"\0")[:-1]
        found = map(json.loads, (schema for schema in schemas if b'"exact"' in schema))
        _exact = {schema["typeid"]: _spelled(schema["source"]) for schema in found}
    return _exact


def _spelled(source: Dict[str, Any]) -> str:
    power = source.get("piPower", 0)
    return source["exact"] + (f" * pi^{power}" if power not in (0, 1) else " * pi" * power)
