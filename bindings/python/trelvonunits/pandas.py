"""Columns of pandas: `import trelvonunits.pandas` adds `.units` to them.

>>> import pandas, trelvonunits.pandas
>>> widths = pandas.Series([10, None, 30], name="width")
>>> widths.units.convert("ft", "m").tolist()
[3.048, nan, 9.144]

Missing values stay missing. `convert_columns` is for Dask: it makes the workers import
this module.
"""
from __future__ import annotations

from typing import Any, Mapping, Optional

import numpy
import pandas

from .conversions import Conversion, engine_of_process
from .errors import ArgumentError


def _doubles(column: Any) -> Any:
    """The numbers of a column as doubles, missing ones as NaN. Doubles are not copied."""
    kind = getattr(column.dtype, "kind", "O")
    if kind not in "fiu":
        raise ArgumentError(f"the column {column.name!r} holds {column.dtype}, which is not a "
                            "number. Write column.astype(float)")
    if isinstance(column.dtype, numpy.dtype):
        return column.to_numpy(dtype="float64")
    return column.to_numpy(dtype="float64", na_value=numpy.nan)


def _like(values: Any, column: Any) -> Any:
    """A column of these values, with missing ones represented as in the other column."""
    if not isinstance(column.dtype, numpy.dtype):
        values = pandas.arrays.FloatingArray(values, column.isna().to_numpy())
    return pandas.Series(values, index=column.index, name=column.name, copy=False)


@pandas.api.extensions.register_series_accessor("units")
class Units:
    """The class of `.units` of a column."""

    def __init__(self, column: Any) -> None:
        self._column = column

    def apply(self, conversion: Conversion) -> Any:
        """Converts by a prepared conversion, into a new column of doubles."""
        values = _doubles(self._column)
        return _like(conversion(values, out=numpy.empty(values.shape)), self._column)

    def convert(self, from_unit: str, to_unit: str, engine: Optional[Any] = None) -> Any:
        """Converts between units of the catalog or of an engine."""
        return self.apply((engine or engine_of_process()).prepare(from_unit, to_unit))


def convert_columns(frame: Any, conversions: Mapping[str, Conversion]) -> Any:
    """A frame with these columns converted, for `map_partitions` of Dask.

    >>> from trelvonunits import Engine
    >>> frame = pandas.DataFrame({"width": [10.0], "name": ["a"]})
    >>> convert_columns(frame, {"width": Engine().prepare("ft", "m")}).width.tolist()
    [3.048]
    """
    return frame.assign(**{name: frame[name].units.apply(conversion)
                           for name, conversion in conversions.items()})
