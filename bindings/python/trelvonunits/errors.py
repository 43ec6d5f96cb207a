"""Why a call failed. All classes derive from `Error`, and each is also a `ValueError` or a `KeyError`."""
from __future__ import annotations

from typing import Any, Optional, Tuple

Span = Tuple[int, int]


class Error(Exception):
    """A call failed.

    `message` is exactly the library's. If a formula was refused, `span` tells which part of it:
    `formula[slice(*error.span)]`. `byte_span` counts bytes of UTF-8 instead.
    """

    span: Optional[Span] = None
    byte_span: Optional[Span] = None

    def __init__(self, message: str = "", **details: Any) -> None:
        super().__init__(message)
        self.message = message
        self.__dict__.update(details)

    def __str__(self) -> str:
        return self.message


class UnrecognizedIdentifier(Error, KeyError):
    """No definition has this type id or name. `candidates` are names that may be meant."""

    candidates: Tuple[str, ...] = ()


class UnknownUnit(UnrecognizedIdentifier):
    """A text names no unit. `candidates` are similar names."""


class AmbiguousUnit(UnrecognizedIdentifier):
    """A text names several units. Each of `candidates` names one of them."""


class ValidationError(Error, ValueError):
    """A definition is not valid."""


class LoadError(ValidationError):
    """Folders could not be loaded. `report` says why."""

    report: Any = None

    def __reduce__(self) -> Any:
        return LoadError, (self.message,)  # without the report, which is the library's


class IncompatibleUnits(Error, ValueError):
    """The units do not convert to each other."""


class PrecisionError(Error, ValueError):
    """More decimal places or finer fractions were requested than are supported."""


class ParseError(Error, ValueError):
    """A formula is refused."""


class FileError(Error, OSError, ValueError):
    """A folder, file or bundle cannot be found or read."""


class ArgumentError(Error, TypeError, ValueError):
    """An argument has the wrong type or is out of range."""


class VersionError(Error, ValueError):
    """A pickled object belongs to another version of the catalog."""


class CallbackError(Error, ValueError):
    """A resolver failed. Raised only by resolvers: their exceptions are passed on unchanged."""


class OtherError(Error, ValueError):
    """Anything else."""
