"""Columns of pandas and arrays of NumPy. Skipped where those are not installed."""
import doctest
import pathlib
import sys
import unittest

try:
    import numpy
    import pandas
except ImportError:
    sys.exit(77)
import trelvonunits
import trelvonunits.pandas

ROOT = pathlib.Path(__file__).resolve().parents[3]
units = trelvonunits.Engine()
feet = units.prepare("ft", "m")


class Frames(unittest.TestCase):
    def test_columns_keep_index_name_and_what_is_missing(self):
        for values, kind, expected in [
                ([1.0, None, 3.0], None, "float64"), ([1, 2, 3], "int8", "float64"),
                ([1, None, 3], "Int64", "Float64"), ([1.5, None, 2], "Float32", "Float64"),
                ([1, 2, 3], "float32", "float64"), ([], "float64", "float64")]:
            column = pandas.Series(values, dtype=kind, name="w", index=range(7, 7 + len(values)))
            converted = column.units.convert("ft", "m")
            self.assertEqual((converted.name, str(converted.dtype)), ("w", expected))
            self.assertTrue(converted.index.equals(column.index))
            self.assertEqual(converted.isna().tolist(), column.isna().tolist())
            self.assertEqual(converted.dropna().tolist(), [feet(x) for x in column.dropna()])

    def test_other_columns_are_refused(self):
        for values in (["5 ft"], [True], pandas.to_datetime(["2020-01-01"]), [1 + 2j]):
            with self.assertRaisesRegex(trelvonunits.ArgumentError, "column 'w' holds .*astype"):
                pandas.Series(values, name="w").units.convert("ft", "m")
        with self.assertRaises(trelvonunits.UnknownUnit):
            pandas.Series([1.0]).units.convert("fot", "m")

    def test_arrays_of_all_layouts(self):
        base = numpy.arange(1.0, 241.0).reshape(4, 5, 12)
        for array in (base, base.T, base[::-1, ::2, ::-3], base[:, 0], base[1:1], base[..., :1],
                      numpy.broadcast_to(base[0], (3, 5, 12)), numpy.asfortranarray(base), base[2, 3, 4],
                      base[0, 0, ::-1]):
            expected = numpy.vectorize(feet, otypes=[float])(array)
            for out in (numpy.empty(array.shape), numpy.empty(array.shape)[..., ::-1] if array.ndim
                        else numpy.empty(()), numpy.empty(array.shape, order="F")):
                self.assertIs(units.convert(array, "ft", "m", out=out), out)
                self.assertTrue(numpy.array_equal(out, expected))
            made = numpy.asarray(units.convert(array, "ft", "m"))
            self.assertTrue(numpy.array_equal(made.reshape(array.shape), expected))

    def test_parts_of_one_table(self):
        table = numpy.arange(24.0).reshape(4, 6)
        units.convert(table[:, 0:2], "ft", "m", out=table[:, 2:4])
        self.assertTrue(numpy.array_equal(table[:, 2], [feet(x) for x in table[:, 0]]))
        with self.assertRaisesRegex(trelvonunits.ArgumentError, "overlaps"):
            units.convert(table[:, 0:2], "ft", "m", out=table[:, 1:3])
        for array, says in [(table.astype("float32"), "'f'"), (table.astype(">f8"), "'>d'"),
                            (table.astype(complex), "'Zd'"), (table.astype(int), "integer"),
                            (numpy.zeros(3, [("a", "i1"), ("b", "f8")])["b"], "odd addresses")]:
            with self.assertRaisesRegex(trelvonunits.ArgumentError, says):
                units.convert(array, "ft", "m")

    def test_numbers_of_numpy(self):
        for kind in (numpy.float64, numpy.float32, numpy.int64, numpy.array):
            self.assertEqual(units.convert(kind(3), "ft", "ft"), 3)

    def test_examples(self):
        self.assertEqual(doctest.testmod(trelvonunits.pandas).failed, 0)
        self.assertEqual(doctest.testfile(str(ROOT / "docs" / "data-frames.md"),
                                          module_relative=False).failed, 0)


if __name__ == "__main__":
    unittest.main()
