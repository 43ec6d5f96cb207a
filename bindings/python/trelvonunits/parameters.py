"""Named formulas that refer to each other."""
from __future__ import annotations

from ctypes import byref, c_double, c_size_t
from typing import Any, Callable, Iterator, List, MutableMapping, Optional

from ._arguments import optional_text, text, written
from ._faults import call, made
from ._library import Functions, Text
from ._objects import Owned
from ._resolution import formula_of
from .records import listed


class Parameters(MutableMapping[str, str]):
    """A table of parameters, such as those of a drawing. See docs/parameters.md for its rules.

    `Engine.parameters` makes an empty one. It is a mapping from names to formulas.

    >>> from trelvonunits import Engine
    >>> table = Engine().parameters()
    >>> table["area"] = "width * height"
    >>> table["width"] = "2 m"
    >>> table.problems()
    ['Parameter area refers to height, which is not defined.']
    >>> table.set("height", 150, "cm")
    >>> table.value("area", "m²"), table.value("height")
    (3.0, 150.0)
    """

    def __init__(self, engine: Owned, id_of: Callable[[str], str]) -> None:
        self._owned = Owned(made(Functions.parameters_create, engine.pointer),
                            Functions.parameters_free)
        self._pointer = self._owned.pointer
        self._id_of = id_of

    def __repr__(self) -> str:
        return f"<Parameters: {len(self)}>"

    def _id(self, unit):
        return None if unit is None else self._id_of(unit)

    # Changes

    def set(self, name: str, formula: Any, unit: Optional[str] = None) -> None:
        """Defines a parameter, or replaces its formula and its unit.

        - `formula`: a text or a number.
        - `unit`: the unit of the value. Without it, the formula decides.
        """
        self._set(name, formula, self._id(unit))

    def _set(self, name, formula, type_id):
        data = formula_of(formula, "formula")
        call(Functions.parameters_set, self._pointer, text(name, "name"), Text(data, len(data)),
             optional_text(type_id, "unit"))

    def __setitem__(self, name: str, formula: Any) -> None:
        """Defines a parameter, or replaces its formula and keeps its unit."""
        self._set(name, formula, self.unit(name) if name in self else None)

    def rename(self, name: str, new_name: str) -> None:
        """Renames a parameter, also in the formulas that refer to it."""
        call(Functions.parameters_rename, self._pointer, text(name, "name"),
             text(new_name, "new_name"))

    def remove(self, name: str) -> None:
        call(Functions.parameters_remove, self._pointer, text(name, "name"))

    __delitem__ = remove

    def reevaluate(self) -> None:
        """Reads all formulas again, with the definitions that the engine has now."""
        call(Functions.parameters_reevaluate, self._pointer)

    # Values

    def value(self, name: str, unit: Optional[str] = None) -> float:
        """The value in a unit, in the parameter's own unit, or else as a plain number."""
        result = c_double()
        call(Functions.parameters_value, self._pointer, text(name, "name"),
             optional_text(self._id(unit), "unit"), byref(result))
        return result.value

    def evaluate(self) -> int:
        """Evaluates all formulas that need it, and returns their number."""
        count = c_size_t()
        call(Functions.parameters_evaluate, self._pointer, byref(count))
        return count.value

    def problems(self) -> List[str]:
        """Why parameters have no value: a message for each cause."""
        return listed("text", Functions.parameters_problems, self._pointer)

    def explain(self, name: str) -> str:
        """How a parameter and everything that it depends on was evaluated, as text for people."""
        return written(Functions.parameters_explain_text, self._pointer, text(name, "name"))

    def explain_json(self, name: str) -> str:
        """The same as JSON, as docs/parameters.md describes it. Spans count bytes."""
        return written(Functions.parameters_explain_json, self._pointer, text(name, "name"))

    # What is in the table

    def formula(self, name: str) -> str:
        """The formula, with the names that parameters have now."""
        return written(Functions.parameters_formula, self._pointer, text(name, "name"))

    __getitem__ = formula

    def unit(self, name: str) -> Optional[str]:
        """Type id of the parameter's own unit, if it has one."""
        return written(Functions.parameters_unit, self._pointer, text(name, "name")) or None

    def references(self, name: str) -> List[str]:
        """The names that its formula refers to."""
        return listed("text", Functions.parameters_references, self._pointer, text(name, "name"))

    def dependents(self, name: str) -> List[str]:
        """The parameters whose formulas refer to it."""
        return listed("text", Functions.parameters_dependents, self._pointer, text(name, "name"))

    def __iter__(self) -> Iterator[str]:
        return iter(listed("text", Functions.parameters_names, self._pointer))

    def __len__(self) -> int:
        return sum(1 for _ in self)

    # Two tables are equal if they are the same one: mappings compare formulas, not units.
    __eq__ = object.__eq__
    __hash__ = object.__hash__
