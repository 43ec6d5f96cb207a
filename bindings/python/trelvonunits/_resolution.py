"""Variables of formulas: by keyword, by a callable, or by both."""
from __future__ import annotations

import math
from ctypes import byref, c_void_p

from ._arguments import encoded, kind_of, mapping, number
from ._faults import byte_span, exception_of, place, shown, status_of
from ._library import Functions, OK, PARSE, Resolver, Text
from .errors import ArgumentError, Error, ParseError


def formula_of(value, what):
    """A formula, or a number as one."""
    if isinstance(value, (str, bytes)):
        return encoded(value, what)
    value = number(value, what)
    if math.isfinite(value):
        return repr(value).encode()
    raise ArgumentError(f"{what} must be a formula or a finite number, not {value}")


def _answer_of(value, name):
    """What replaces a variable."""
    return formula_of(value, f"the variable {name}")


class Resolution:
    """What one evaluation asks for. An exception is kept until C has returned."""

    def __init__(self, resolver, variables):
        if resolver is not None and not callable(resolver):
            raise ArgumentError(f"a resolver must be callable, not {kind_of(resolver)}; "
                                "variables are passed by keyword")
        self._resolver = resolver
        self._variables = {name: _answer_of(value, name)
                           for name, value in mapping(variables, "variables").items()}
        self.raised = None

    def function(self):
        """Null where there are no variables, as the engine then has its own message."""
        return _RESOLVE if self._variables or self._resolver is not None else _NO_RESOLVER

    def answer(self, name):
        if name in self._variables:
            return self._variables[name]
        if self._resolver is None:
            raise ParseError(f"Unrecognized identifier: {name}.")
        return _answer_of(self._resolver(name), name)


def _said(raised):
    """What an explanation shows of an exception."""
    try:
        return str(raised).encode("utf-8", "surrogateescape")
    except Exception:  # of its own `__str__`, or half a surrogate pair
        return b"the resolver refused"


def _is_interrupt(raised):
    """Whether it must arrive even where a refusal is no failure, as for names that a unit hides."""
    return raised is not None and not isinstance(raised, Exception)


def _resolve(resolution, name, answer):
    try:
        status, reply = OK, resolution.answer(shown(name))
    except BaseException as raised:  # must not end in C
        if not _is_interrupt(resolution.raised):
            resolution.raised = raised
        status, reply = status_of(raised), _said(raised)
    return Functions.answer_text(answer, Text(reply, len(reply))) or status


_RESOLVE = Resolver(_resolve)
_NO_RESOLVER = Resolver()


def resolved(function, arguments, formula, resolution, result):
    """Calls a function that takes a resolver. What the resolver raised reaches the caller."""
    error = c_void_p()
    status = function(*arguments, resolution.function(), resolution, byref(result), byref(error))
    raised = resolution.raised
    if not status and not _is_interrupt(raised):
        return result
    if raised is None:
        raise exception_of(status, error, formula)
    if isinstance(raised, Error):
        place(raised, byte_span(error), formula)
    Functions.error_free(error)
    try:
        raise raised
    finally:
        resolution.raised = raised = None  # no circle of an exception and its frames
