#!/usr/bin/env -S python3 -B
"""Compares the library in other languages with what is there: ratios of CPU time, medians of
alternating rounds.

A row is what is compared, with what, what must and should be reached, and what makes two timers; each
of those returns seconds for the same work. Rows whose packages are not installed are passed over.

    bindings_speed.py [ROW...]    rows whose names contain one of these; all by default
"""
import compileall
import importlib.util
import os
import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
TREE = ROOT / "build" / "release" / "bindings" / "python" / "tree"
sys.path.insert(0, str(TREE))
ROUNDS = 51
COUNT = 1000000


class Missing(Exception):
    pass


def need(*modules):
    for module in modules:
        if importlib.util.find_spec(module) is None:
            raise Missing(module)


def timed(work, times):
    start = time.thread_time()
    for _ in range(times):
        work()
    return (time.thread_time() - start) / times


def alternating(ours, theirs):
    """The median of theirs / ours, and the ends of the middle four fifths."""
    ours(), theirs()
    ratios = sorted(theirs() / ours() for _ in range(ROUNDS))
    return statistics.median(ratios), ratios[ROUNDS // 10], ratios[-1 - ROUNDS // 10]


def one_number(call):
    """One number by names, in both libraries from text."""
    need("trelvonunits", "pint")
    import pint
    import trelvonunits
    units, registry = trelvonunits.Engine(), pint.UnitRegistry()
    theirs = {"quantity": lambda: registry.Quantity(5, "ft").to("in").magnitude,
              "convert": lambda: registry.convert(5, "ft", "in")}[call]
    assert abs(theirs() - units.convert(5, "ft", "in")) < 1e-9
    return lambda: timed(lambda: units.convert(5, "ft", "in"), 1000), lambda: timed(theirs, 200)


def array_of_doubles(source, target, factor, is_in_place):
    """Each round begins with the same numbers."""
    need("trelvonunits", "numpy")
    import numpy
    import trelvonunits
    units = trelvonunits.Engine()
    values = numpy.linspace(0, 1000, COUNT)
    assert numpy.allclose(units.convert(values, source, target), values * factor, 1e-15)

    def timer(work):
        out = values.copy()

        def run():
            numpy.copyto(out, values)
            return timed(lambda: work(out if is_in_place else values, out), 1)
        return run
    return (timer(lambda numbers, out: units.convert(numbers, source, target, out=out)),
            timer(lambda numbers, out: numpy.multiply(numbers, factor, out=out)))


def column():
    """Into a new column, as NumPy into a new array."""
    need("trelvonunits", "numpy", "pandas")
    import numpy
    import pandas
    import trelvonunits.pandas
    widths = pandas.Series(numpy.linspace(0, 1000, 10 * COUNT))
    values = widths.to_numpy()
    assert numpy.array_equal(widths.units.convert("ft", "m"), values * 0.3048)
    return (lambda: timed(lambda: widths.units.convert("ft", "m"), 1),
            lambda: timed(lambda: values * 0.3048, 1))


def process(code):
    need("trelvonunits", "pint")
    compileall.compile_dir(TREE / "trelvonunits", quiet=1)  # as pip does
    environment = {**os.environ, "PYTHONPATH": str(TREE)}

    def run():
        child = subprocess.Popen([sys.executable, "-c", code], env=environment)
        _, status, used = os.wait4(child.pid, 0)
        assert status == 0
        return used.ru_utime + used.ru_stime
    return run


def first_conversion():
    return (process("import trelvonunits; trelvonunits.Engine().convert(5, 'ft', 'in')"),
            process("import pint; pint.UnitRegistry().Quantity(5, 'ft').to('in')"))


# What is compared, with what, whether "times faster" (or the part of their time), must and aim.
ROWS = [
    ("Python, one number", "Pint, a quantity", "faster", 5, 10, lambda: one_number("quantity")),
    ("Python, one number", "Pint, `convert`", "faster", 5, 10, lambda: one_number("convert")),
    ("Python, 1,000,000 doubles in place, ft to m", "NumPy multiplying", "part", 1.3, 1.1,
     lambda: array_of_doubles("ft", "m", 0.3048, True)),
    ("Python, 1,000,000 doubles into `out=`, ft to m", "NumPy multiplying", "part", 1.3, 1.1,
     lambda: array_of_doubles("ft", "m", 0.3048, False)),
    ("Python, 1,000,000 doubles in place, m to ft", "NumPy multiplying", "part", 1.3, 1.1,
     lambda: array_of_doubles("m", "ft", 1 / 0.3048, True)),
    ("pandas, a column of 10,000,000", "NumPy multiplying", "part", 1.3, 1.1, column),
    ("Python, the process of the first conversion", "Pint and a registry", "faster", 10, 20,
     first_conversion)]


def line(name, against, kind, must, aim, timers):
    try:
        ratio, least, greatest = alternating(*timers())
    except Missing as missing:
        return f"| {name} | {against} | passed over: no {missing} |"
    if kind == "faster":
        result, span = f"{ratio:.1f} times faster", f"{least:.1f} to {greatest:.1f}"
        reached = "aim" if ratio >= aim else "must" if ratio >= must else "neither"
    else:
        result, span = f"{1 / ratio:.2f}", f"{1 / greatest:.2f} to {1 / least:.2f}"
        reached = "aim" if 1 / ratio <= aim else "must" if 1 / ratio <= must else "neither"
    return f"| {name} | {against} | {result} | {span} | {must} / {aim} | {reached} |"


def main(*names):
    print("| work | against | result | range | must / aim | reached |\n|---|---|---|---|---|---|")
    for row in ROWS:
        if not names or any(name in row[0] for name in names):
            print(line(*row), flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
