"""Conversions that are worked out once."""
from __future__ import annotations

import ctypes
import os
from ctypes import byref
from typing import Any, Callable, Tuple, overload

from . import _buffers
from ._arguments import number
from ._library import FOLDER, Functions
from ._objects import Owned
from .errors import ArgumentError, VersionError


def catalog_version() -> str:
    """Identifies the definitions of this package: differs for those of another version."""
    import hashlib  # late, as it takes long
    with open(os.path.join(FOLDER, "catalog.bundle"), "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()[:16]


class Conversion:
    """A conversion that is worked out once, for many numbers.

    It does not refer to the engine that made it, and any number of threads may use it.

    >>> from trelvonunits import Engine
    >>> meters = Engine().prepare("ft", "m")
    >>> meters(100)
    30.48
    >>> from array import array
    >>> meters(array("d", [10, 20]))
    array('d', [3.048, 6.096])
    """

    __slots__ = ("_owned", "_from", "_to", "_is_of_catalog")

    def __init__(self, owned: Owned, from_unit: str, to_unit: str, is_of_catalog: bool) -> None:
        self._owned, self._from, self._to = owned, from_unit, to_unit
        self._is_of_catalog = is_of_catalog

    @property
    def from_unit(self) -> str:
        """Type id of the unit that is converted from."""
        return self._from

    @property
    def to_unit(self) -> str:
        """Type id of the unit that is converted to."""
        return self._to

    def __repr__(self) -> str:
        return f"<Conversion from {self._from} to {self._to}>"

    @overload
    def __call__(self, values: float) -> float: ...

    @overload
    def __call__(self, values: Any, out: Any = None) -> Any: ...

    def __call__(self, values: Any, out: Any = None) -> Any:
        """Converts a number, or all doubles of a buffer into `out`."""
        if out is None and is_number(values):
            source, result = ctypes.c_double(number(values, "values")), ctypes.c_double()
            Functions.conversion_apply(self._owned.pointer, byref(source), 1, byref(result), 1, 1)
            return result.value
        return _buffers.convert(self._owned, values, out)

    def __reduce__(self) -> Tuple[Callable[..., Any], Tuple[str, str, str]]:
        """Pickles the type ids, and the version of the catalog that defines both units."""
        # An engine with the catalog may have other units, too.
        if not self._is_of_catalog or not all(
                engine_of_process().by_id.is_registered(unit) for unit in (self._from, self._to)):
            raise ArgumentError("only conversions of the catalog can be pickled: make one of other "
                                "definitions where it is used")
        return _unpickled, (self._from, self._to, catalog_version())


def is_number(value: Any) -> bool:
    """Whether it is a number rather than a buffer. Numbers of NumPy are both."""
    if isinstance(value, (int, float)):
        return True
    try:
        return memoryview(value).ndim == 0
    except (BufferError, TypeError, ValueError):
        return hasattr(type(value), "__float__") or hasattr(type(value), "__index__")


_engine: Any = None


def engine_of_process() -> Any:
    """The engine for objects that are unpickled in this process, with only the catalog."""
    global _engine
    if _engine is None:
        from ._engine import Engine
        _engine = Engine()
    return _engine


def engine_of_version(version: str, what: str) -> Any:
    """The same, if its catalog has this version."""
    if version != catalog_version():
        raise VersionError(f"{what} was pickled with version {version} of the catalog; this is "
                           f"{catalog_version()}: install the same version of trelvonunits in all "
                           "processes")
    return engine_of_process()


def _unpickled(from_unit: str, to_unit: str, version: str) -> Conversion:
    engine = engine_of_version(version, f"a conversion from {from_unit} to {to_unit}")
    return engine.by_id.prepare(from_unit, to_unit)
