"""Values as people write them."""
from __future__ import annotations

from ctypes import byref, c_double, c_void_p
from typing import Any, Callable, Dict, List, NamedTuple, Optional, Tuple

from ._arguments import encoded, number, read_json, written
from ._faults import exception_of, span_in
from ._library import Functions, Text
from ._objects import Owned
from .conversions import catalog_version, engine_of_version
from .errors import ArgumentError, Span
from .records import listed


class Piece(NamedTuple):
    """A part of a text. `kind` is "sign", "number", "fraction" or "unit"."""
    kind: str
    span: Span


class Reading(NamedTuple):
    """How a display reads a text: as a value, or with a refusal.

    After a refusal, `value` is None, `span` tells which characters are refused, `sentence` explains why,
    and `readings` has the two numbers that may be meant, if there are two.
    """
    value: Optional[float]
    span: Span
    sentence: str
    readings: Tuple[float, ...]
    pieces: Tuple[Piece, ...]


class Display:
    """Shows values of a unit as people write them, and reads such texts. See docs/display.md.

    `Engine.display` makes one. It never changes and does not refer to the engine.

    >>> from trelvonunits import Engine
    >>> shown = Engine().display("feetAndInches", denominator=16)
    >>> shown(5.9999)
    '6\\' 0"'
    >>> shown.parse("5' 6 3/8\\"")
    5.53125
    >>> shown.read("5' 12\\"").sentence
    '`12` must be less than 12.'
    """

    __slots__ = ("_owned", "_is_of_catalog_alone")

    def __init__(self, owned: Owned, is_of_catalog_alone: bool) -> None:
        self._owned, self._is_of_catalog_alone = owned, is_of_catalog_alone

    def __repr__(self) -> str:
        return f"<Display {self.json}>"

    def show(self, value: float) -> str:
        """Writes a value. A display can also be called."""
        return written(Functions.display_show, self._owned.pointer, number(value, "value"))

    __call__ = show

    def parse(self, text: str) -> float:
        """The value of a text. Raises `ParseError`, with a span, if `read` has a refusal."""
        data = encoded(text, "text")
        value, error = c_double(), c_void_p()
        status = Functions.display_read(self._owned.pointer, Text(data, len(data)), byref(value),
                                        byref(error))
        if status:
            raise exception_of(status, error, data)
        return value.value

    def read(self, text: str) -> Reading:
        """Explains how a text is read, or why it is refused."""
        data = encoded(text, "text")
        told = read_json(self.read_json(text))

        def span(of):
            return span_in(data, (of.get("begin", 0), of.get("end", len(data))))
        pieces = tuple(Piece(piece["kind"], span(piece)) for piece in told["pieces"])
        return Reading(told.get("value"), span(told), told.get("sentence", ""),
                       tuple(told.get("readings", ())), pieces)

    def read_json(self, text: str) -> str:
        """The same as JSON, where spans count bytes."""
        data = encoded(text, "text")
        return written(Functions.display_read_json, self._owned.pointer, Text(data, len(data)))

    @property
    def json(self) -> str:
        """The options that are not the defaults, for `ById.display`."""
        return written(Functions.display_json, self._owned.pointer)

    @property
    def options(self) -> Dict[str, Any]:
        """The same, as Python objects."""
        return read_json(self.json)

    @property
    def unit(self) -> Optional[str]:
        """Type id of the unit of the values, if any."""
        return written(Functions.display_unit, self._owned.pointer) or None

    @staticmethod
    def locales() -> List[str]:
        """The names of all locales."""
        return listed("text", Functions.display_locales)

    def __reduce__(self) -> Tuple[Callable[..., Any], Tuple[str, str]]:
        """Pickles the options and the version of the catalog."""
        if not self._is_of_catalog_alone:
            # With more definitions, the symbol or the best units may be different.
            raise ArgumentError("only displays of the catalog alone can be pickled: make one of other "
                                "definitions where it is used")
        return _unpickled, (self.json, catalog_version())


def _unpickled(json: str, version: str) -> Display:
    return engine_of_version(version, f"a display {json}").by_id.display(json)
