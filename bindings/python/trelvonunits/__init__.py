"""Units of measure: conversions, formulas and display text, by the library TrelvonUnits.

>>> import trelvonunits
>>> units = trelvonunits.Engine()
>>> units.convert(5, "ft", "in")
60.0
>>> units.evaluate("2 ft + w", "m", w="3 in")
0.6858

The package contains the library and its catalog of a thousand units. See docs/python.md.

Threads: any number of threads may use one engine. Calls run one at a time, under Python's global
lock; only conversions of arrays run in parallel. Processes: a child of `fork` has complete copies of
all engines of its parent, which are independent from then on.
"""
from ._by_id import ById
from ._engine import Engine, Unit, Units
from ._library import VERSION as __version__
from ._names import Names, local_id
from ._objects import Explanation, Report
from .conversions import Conversion, catalog_version
from .displays import Display, Piece, Reading
from .errors import (AmbiguousUnit, ArgumentError, CallbackError, Error, FileError,
                     IncompatibleUnits, LoadError, OtherError, ParseError, PrecisionError,
                     UnknownUnit, UnrecognizedIdentifier, ValidationError, VersionError)
from .parameters import Parameters
from .records import Dimension, Factor, Name, Quantity, Symbol, UnitRecord

__all__ = [
    "AmbiguousUnit", "ArgumentError", "ById", "CallbackError", "Conversion", "Dimension", "Display",
    "Engine", "Error", "Explanation", "Factor", "FileError", "IncompatibleUnits", "LoadError",
    "Name", "Names", "OtherError", "Parameters", "ParseError", "Piece", "PrecisionError",
    "Quantity", "Reading", "Report", "Symbol", "Unit", "UnitRecord", "Units", "UnknownUnit",
    "UnrecognizedIdentifier", "ValidationError", "VersionError", "__version__", "catalog_version",
    "local_id"]
