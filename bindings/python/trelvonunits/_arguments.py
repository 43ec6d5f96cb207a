"""Checks arguments and turns them into what C takes. Nothing reaches C unchecked."""
from __future__ import annotations

import operator
import os
from collections.abc import Mapping
from ctypes import byref, c_int, c_size_t, c_void_p, create_string_buffer, string_at

from ._faults import call, exception_of
from ._library import Functions, Text
from .errors import ArgumentError


def kind_of(value):
    return type(value).__name__


def encoded(text, what):
    """A text as bytes. Bytes are taken as they are."""
    if isinstance(text, bytes):
        return bytes(text)
    if not isinstance(text, str):
        raise ArgumentError(f"{what} must be a str, not {kind_of(text)}")
    try:
        return text.encode("utf-8", "surrogateescape")
    except UnicodeEncodeError:
        raise ArgumentError(f"{what} is not a valid text: {text!r} has half a surrogate pair") from None


def text(value, what):
    data = encoded(value, what)
    return Text(data, len(data))


def optional_text(value, what):
    """A pointer, and null for None."""
    return None if value is None else byref(text(value, what))


def several(values, what, of):
    """A list of them. A single text is not treated as a list of its letters."""
    try:
        if not isinstance(values, (str, bytes, bytearray)):
            return list(values)
    except TypeError:
        pass
    raise ArgumentError(f"{what} must be a list of {of}, not {kind_of(values)}")


def read_json(text):
    import json  # late, as it takes long
    return json.loads(text)


def json_of(value, what):
    """A JSON text as it is, or a mapping as a JSON text."""
    if isinstance(value, (str, bytes)):
        return text(value, what)
    import json
    members = dict(mapping(value, what))
    try:
        return text(json.dumps(members), what)
    except (TypeError, ValueError, RecursionError) as error:
        raise ArgumentError(f"{what} cannot be written as JSON: {error}") from None


def mapping(value, what):
    if isinstance(value, Mapping):
        return value
    raise ArgumentError(f"{what} must be a mapping, not {kind_of(value)}")


def texts(values, what):
    """An array of texts."""
    every = [text(value, f"each of {what}") for value in several(values, what, "str")]
    return (Text * len(every))(*every)


def path(value, what):
    """A path as bytes, by the rules of the file system's names."""
    try:
        return os.fsencode(value)
    except (TypeError, UnicodeEncodeError):
        raise ArgumentError(f"{what} must be a path, not {kind_of(value)}") from None


def number(value, what):
    """A double. Texts are not numbers: `evaluate` reads them."""
    if type(value) is float:
        return value
    kind = type(value)
    if not (hasattr(kind, "__float__") or hasattr(kind, "__index__")):
        raise ArgumentError(f"{what} must be a number, not {kind_of(value)}")
    try:
        return float(value)
    except (TypeError, ValueError, OverflowError) as error:
        raise ArgumentError(f"{what} is not a double: {error}") from None


def whole(value, what, least, most):
    try:
        value = operator.index(value)
    except TypeError:
        raise ArgumentError(f"{what} must be a whole number, not {kind_of(value)}") from None
    if not least <= value <= most:
        raise ArgumentError(f"{what} must be from {least} to {most}, not {value}")
    return value


def digits(value, what):
    """C takes an unsigned int. All counts beyond a byte are equally too large."""
    return min(whole(value, what, 0, 2**63), 255)


def written(function, *arguments):
    """The text that a function writes into a buffer."""
    size = c_size_t(256)
    while True:
        capacity, error = size.value, c_void_p()
        buffer = create_string_buffer(capacity)
        status = function(*arguments, buffer, byref(size), byref(error))
        if not status:
            return string_at(buffer, size.value).decode("utf-8", "surrogateescape")
        if size.value <= capacity:
            raise exception_of(status, error)
        Functions.error_free(error)


def flag(function, *arguments):
    """The Boolean result of a function."""
    result = c_int()
    call(function, *arguments, byref(result))
    return bool(result.value)
