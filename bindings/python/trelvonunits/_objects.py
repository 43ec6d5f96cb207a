"""Objects that the library makes and Python frees."""
from __future__ import annotations

from ctypes import c_void_p
from typing import Any, Dict, List, Optional, Tuple

from ._arguments import read_json, written
from ._faults import span_in
from ._library import Functions
from .errors import ArgumentError, Span


class Owned:
    """An object of the library. It is freed with the Python object that owns it."""

    __slots__ = ("pointer", "_free")

    def __init__(self, pointer: c_void_p, free: Any) -> None:
        self.pointer = pointer
        self._free = free

    def __del__(self) -> None:
        self._free(self.pointer)

    def __reduce__(self) -> Any:
        raise ArgumentError("this object of the library can be neither copied nor pickled: make it "
                            "where it is used")


class Explanation:
    """How a formula was read, and the result.

    >>> from trelvonunits import Engine
    >>> units = Engine()
    >>> explained = units.explain("2 ft + 3 kg", "m")
    >>> print(explained.sentence)
    `+` needs the same units on both sides: left is a length, right is a mass.
    >>> units.explain("10 m - 35 cm", "m").warnings
    ['`10 m - 35 cm` is one value: `-` only separates its parts, and subtracts nothing.']
    """

    def __init__(self, pointer: c_void_p, formula: bytes) -> None:
        self._owned = Owned(pointer, Functions.explanation_free)
        self._formula = formula

    def __str__(self) -> str:
        """The formula with marks beneath, and sentences."""
        return written(Functions.explain_text, self._owned.pointer)

    @property
    def tree(self) -> str:
        """A line for each node, with its value."""
        return written(Functions.explain_tree, self._owned.pointer)

    @property
    def json(self) -> str:
        """Everything, as docs/explain.md describes it. Spans count bytes."""
        return written(Functions.explain_json, self._owned.pointer)

    @property
    def data(self) -> Dict[str, Any]:
        """The same, as Python objects."""
        return read_json(self.json)

    @property
    def value(self) -> Optional[float]:
        """None if the formula was refused."""
        return self.data.get("value")

    @property
    def message(self) -> str:
        """The engine's, if the formula was refused."""
        return self.data.get("message", "")

    @property
    def sentence(self) -> str:
        """Tells what is wrong; empty if nothing is."""
        return self.data.get("sentence", "")

    @property
    def spellings(self) -> List[str]:
        """Formulas that may be what was meant."""
        return self.data.get("spellings", [])

    @property
    def warnings(self) -> List[str]:
        """Sentences about what may surprise you."""
        return [warning["sentence"] for warning in self.data["warnings"]]

    @property
    def span(self) -> Optional[Span]:
        """The characters that were refused, if any were."""
        data = self.data
        span = data.get("span")
        while span and span["text"] != 0:
            span = data["texts"][span["text"]]["identifier"]
        return span and span_in(self._formula, (span["begin"], span["end"]))


class Report:
    """What was found when definitions were loaded.

    If there were errors, nothing was loaded, unless `leave_out` was set.
    """

    def __init__(self, pointer: c_void_p) -> None:
        self._owned = Owned(pointer, Functions.load_report_free)
        self.errors: int = Functions.load_report_errors(pointer)
        self.warnings: int = Functions.load_report_warnings(pointer)

    def __repr__(self) -> str:
        return f"<Report: {self.errors} errors, {self.warnings} warnings>"

    def __str__(self) -> str:
        """A line for each finding, in the style of compilers."""
        return written(Functions.load_report_text, self._owned.pointer)

    @property
    def json(self) -> str:
        """Everything, as docs/reports.md describes it."""
        return written(Functions.load_report_json, self._owned.pointer)

    @property
    def sarif(self) -> str:
        """A SARIF 2.1.0 log."""
        return written(Functions.load_report_sarif, self._owned.pointer)

    @property
    def findings(self) -> Tuple[Dict[str, Any], ...]:
        """The findings of `json`."""
        return tuple(read_json(self.json)["findings"])
