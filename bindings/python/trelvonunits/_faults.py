"""Converts statuses to exceptions and back."""
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
    """The status that a resolver returns for this exception."""
    return next((status for status, kind in CLASSES.items() if isinstance(exception, kind)), CALLBACK)


def shown(given):
    """A text of the library. Bytes that are not UTF-8 become lone surrogates."""
    return string_at(given.data, given.size).decode("utf-8", "surrogateescape") if given.size else ""


def byte_span(error):
    begin, end = c_size_t(), c_size_t()
    if Functions.error_span(error, byref(begin), byref(end)):
        return begin.value, end.value
    return None


def span_in(formula, span):
    """A range of bytes of a formula, as a range of its characters."""
    return tuple(len(formula[:place].decode("utf-8", "surrogateescape")) for place in span)


def exception_of(status, error, formula=b""):
    """Makes an exception from an error, and frees the error."""
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
    """Calls a function that may set an error, and raises that."""
    error = c_void_p()
    status = function(*arguments, byref(error))
    if status:
        raise exception_of(status, error)


def made(function, *arguments):
    """Calls a function that makes an object, and returns the object."""
    result = c_void_p()
    call(function, *arguments, byref(result))
    return result
