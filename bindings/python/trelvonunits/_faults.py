"""From statuses to exceptions and back."""
from __future__ import annotations

from ctypes import byref, c_size_t, c_void_p, string_at

from . import errors
from ._library import FILE, Functions, MEMORY, UNRECOGNIZED, VALIDATION, INCOMPATIBLE, PRECISION
from ._library import ARGUMENT, CALLBACK, OTHER, PARSE

CLASSES = {UNRECOGNIZED: errors.UnrecognizedIdentifier, VALIDATION: errors.ValidationError,
           INCOMPATIBLE: errors.IncompatibleUnits, PRECISION: errors.PrecisionError,
           PARSE: errors.ParseError, FILE: errors.FileError, CALLBACK: errors.CallbackError,
           ARGUMENT: errors.ArgumentError, OTHER: errors.OtherError}


def status_of(exception):
    """The status by which a resolver refuses with this exception."""
    return next((status for status, kind in CLASSES.items() if isinstance(exception, kind)), CALLBACK)


def shown(given):
    """What the library says. Bytes that are no UTF-8 come as lone surrogates."""
    return string_at(given.data, given.size).decode("utf-8", "surrogateescape") if given.size else ""


def byte_span(error):
    begin, end = c_size_t(), c_size_t()
    if Functions.error_span(error, byref(begin), byref(end)):
        return begin.value, end.value
    return None


def span_in(formula, span):
    """Bytes of a formula as characters of it."""
    return tuple(len(formula[:place].decode("utf-8", "surrogateescape")) for place in span)


def exception_of(status, error, formula=b""):
    """Makes an exception of an error, and frees that."""
    message, span = shown(Functions.error_message(error)), byte_span(error)
    Functions.error_free(error)
    if status == MEMORY:
        return MemoryError(message)
    made = CLASSES.get(status, errors.OtherError)(message)
    place(made, span, formula)
    return made


def place(exception, span, formula):
    if span is not None:
        exception.byte_span = span
        exception.span = span_in(formula, span)


def call(function, *arguments):
    """Calls a function that takes an error; raises it."""
    error = c_void_p()
    status = function(*arguments, byref(error))
    if status:
        raise exception_of(status, error)


def made(function, *arguments):
    """Calls one that makes an object, and returns that."""
    result = c_void_p()
    call(function, *arguments, byref(result))
    return result
