"""Finds units by what people call them."""
from __future__ import annotations

import os
from typing import List, Sequence

from ._arguments import text, texts, whole, written
from ._faults import made
from ._library import FOLDER, Functions
from ._objects import Owned
from .errors import AmbiguousUnit, UnknownUnit
from .records import Name, listed

_MOST = 2**31


def catalog_codes() -> str:
    """The mapping of the catalog's units to codes of other systems."""
    with open(os.path.join(FOLDER, "catalog.codes.json"), encoding="utf-8") as file:
        return file.read()


class Names:
    """The names that an engine's units had when this object was made.

    >>> from trelvonunits import Engine
    >>> names = Engine().names()
    >>> [name.unit for name in names.find("Square-Foot")]
    ['trelvon.unit:squareFoot-1.0.0']
    >>> [name.text for name in names.completions("kilom", 2)]
    ['kilometer', 'kilometer per hour']
    """

    def __init__(self, engine: Owned, mappings: Sequence[str] = ()) -> None:
        array = texts(mappings, "mappings")
        self._owned = Owned(made(Functions.names_create, engine.pointer, array, len(array)),
                            Functions.names_free)
        self.pointer = self._owned.pointer

    def find(self, name: str) -> List[Name]:
        """All units that a text names, best matches first."""
        return listed("name", Functions.names_find, self.pointer, text(name, "name"))

    def find_best(self, name: str) -> List[Name]:
        """Only the best matches: a single one if the text is unambiguous."""
        return listed("name", Functions.names_find_best, self.pointer, text(name, "name"))

    def find_code(self, system: str, code: str) -> List[Name]:
        """The units that a code of another system stands for."""
        return listed("name", Functions.names_find_code, self.pointer, text(system, "system"),
                      text(code, "code"))

    def suggest(self, name: str, count: int = 3) -> List[Name]:
        """Units with names similar to a text."""
        return listed("name", Functions.names_suggest, self.pointer, text(name, "name"),
                      whole(count, "count", 0, _MOST))

    def completions(self, prefix: str, count: int = 10) -> List[Name]:
        """Names that begin with a text."""
        return listed("name", Functions.names_completions, self.pointer, text(prefix, "prefix"),
                      whole(count, "count", 0, _MOST))

    def names_of(self, type_id: str) -> List[Name]:
        """All names of a unit."""
        return listed("name", Functions.names_of, self.pointer, text(type_id, "type_id"))

    def why_not(self, name: str) -> str:
        """Explains why `find` finds nothing."""
        return written(Functions.names_why_not, self.pointer, text(name, "name"))

    def unambiguous(self, type_id: str) -> str:
        """A text for which `find_best` finds only this unit."""
        return written(Functions.names_unambiguous, self.pointer, text(type_id, "type_id"))

    def systems(self) -> List[str]:
        """The systems that have codes."""
        return listed("text", Functions.names_systems, self.pointer)

    def codes(self, type_id: str, system: str) -> List[str]:
        """The codes of a unit in a system, the one to write first."""
        return listed("text", Functions.names_codes, self.pointer, text(type_id, "type_id"),
                      text(system, "system"))

    def only(self, name: str) -> str:
        """The type id of the one unit that a text names.

        Raises `UnknownUnit` or `AmbiguousUnit`, with candidates.
        """
        best = self.find_best(name)
        if len(best) == 1:
            return best[0].unit
        if not best:
            raise self._unknown(name)
        candidates = tuple(self.unambiguous(found.unit) for found in best)
        raise AmbiguousUnit(f"{name!r} names more than one unit. Write one of: "
                            + ", ".join(candidates), candidates=candidates)

    def _unknown(self, name: str) -> UnknownUnit:
        candidates = tuple(found.text for found in self.suggest(name))
        hint = f" Did you mean {' or '.join(map(repr, candidates))}?" if candidates else ""
        if not hint and ":" in str(name):
            hint = " " + self.why_not(name)
        return UnknownUnit(f"{name!r} does not name a unit.{hint}", candidates=candidates)


def local_id(type_id: str) -> str:
    """The local id of a type id of any kind.

    >>> local_id("trelvon.unit:foot-1.0.0")
    'foot'
    """
    return written(Functions.local_id, text(type_id, "type_id"))
