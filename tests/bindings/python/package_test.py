"""What the table of cases cannot say of the package for Python, which is installed where this runs."""
import array
import ast
import copy
import ctypes
import doctest
import fractions
import importlib
import inspect
import math
import os
import pathlib
import pickle
import pkgutil
import random
import re
import resource
import subprocess
import sys
import threading
import unittest

import trelvonunits
from trelvonunits import _library, conversions

ROOT = pathlib.Path(__file__).resolve().parents[3]
PACKAGE = pathlib.Path(trelvonunits.__file__).parent
FACTOR = '{"typeid":"%s","inherits":["vellamor.unit:factor-1.0.0"],"constants":[{"id":"factor","value":2}]}'
units = trelvonunits.Engine()
feet = units.prepare("ft", "m")
doubles = array.array("d", [1, 2, 3, 4, 5, 6])

# A call, and what its ArgumentError says.
WRONG = [
    (lambda: units.convert("5", "ft", "m"), "number or a buffer of doubles, not str"),
    (lambda: units.convert(None, "ft", "m"), "number or a buffer of doubles, not NoneType"),
    (lambda: units.convert(10**400, "ft", "m"), "too large"),
    (lambda: units.convert(1, 5, "m"), "a unit must be a str, not int"),
    (lambda: units.convert(1, "ft", "\ud800"), "half a surrogate pair"),
    (lambda: units.convert(array.array("f", [1]), "ft", "m"), "'f'.*Write array"),
    (lambda: units.convert(b"12345678", "ft", "m"), "'B'"),
    (lambda: units.convert(memoryview((ctypes.c_double.__ctype_be__ * 2)()), "ft", "m"), "'>d'"),
    (lambda: units.convert(memoryview(bytes(17))[1:].cast("d"), "ft", "m"), "odd addresses"),
    (lambda: units.convert(doubles, "ft", "m", out=doubles[:2]), r"shape \(2,\)"),
    (lambda: units.convert(doubles, "ft", "m", out=memoryview(bytes(48)).cast("d")), "written"),
    (lambda: units.convert(memoryview(doubles)[1:], "ft", "m", out=memoryview(doubles)[:-1]),
     "overlaps"),
    (lambda: units.convert(doubles, "ft", "m", out=memoryview(doubles)[::-1]), "overlaps"),
    (lambda: units.convert(1, "ft", "m", out=[0]), "not int"),
    (lambda: units.format(1, 5), "symbol must be a str"),
    (lambda: units.format(1, None, -1), "from 0"),
    (lambda: units.format(1, None, 1.5), "whole number"),
    (lambda: units.evaluate(5, "m"), "formula must be a str"),
    (lambda: units.evaluate("w", "m", "3 in"), "callable.*keyword"),
    (lambda: units.evaluate("w", "m", w=None), "variable w must be"),
    (lambda: units.evaluate("w", "m", w=math.nan), "finite"),
    (lambda: units.evaluate("w", "m", lambda name: None), "variable w must be"),
    (lambda: units.by_id.load_folders("schemas"), "list of paths"),
    (lambda: units.by_id.load_folders([5]), "each of folders must be a path"),
    (lambda: units.load(ROOT / "schemas", variable_names="w"), "list of str"),
    (lambda: units.load("a\0b"), "NUL"),
    (lambda: units.by_id.units_with_powers({"x": 2**31}), "from -2147483648"),
    (lambda: units.names(5), "each of mappings"),
    (lambda: units.names().suggest("ft", -1), "from 0"),
    (lambda: units.display("mm", places=2.5), "places must be a whole number"),
    (lambda: units.display("mm", best=["m", 5]), "symbol must be a str"),
    (lambda: units.display("mm", least=1), "least needs best"),
    (lambda: units.by_id.display({"symbol": b"x"}), "options cannot be written as JSON"),
    (lambda: units.by_id.display(5), "options must be a mapping"),
    (lambda: units.display("mm")("5"), "value must be a number"),
    (lambda: units.parameters().set("x", None), "formula must be a number"),
    (lambda: copy.deepcopy(units.parameters()), "neither copied nor pickled"),
    (lambda: pickle.dumps(units), "cannot be pickled"),
    (lambda: pickle.dumps(trelvonunits.Engine.empty().prepare("a", "b")), None)]


# Anything goes: only own exceptions may come.
ANY = [None, True, 5, -1, 2**70, 1.5, math.nan, "ft", "m", "", "\0", "\ud800", "\udcff", b"\xff", [], [1],
       ["a"], {}, {"a": 1}, {"trelvon.unit:meter-1.0.0": 2}, object(), doubles[:2], array.array("f", [1]),
       array.array("d"), memoryview(b"12345678"), fractions.Fraction(1, 3), lambda name: "1 ft", len,
       lambda name: 1 / 0, "1 ft + q", "trelvon.unit:foot-1.0.0", "unit", "ucum:m", type, 1j,
       '{"typeid":"a"}', bytearray(16), "/none", memoryview(doubles)[::-2]]
KEYWORDS = ["out", "hidden", "q", "variable_names", "leave_out", "fraction", "places", "variables"]


class Arguments(unittest.TestCase):
    def test_wrong_ones(self):
        for call, message in WRONG[:-1]:
            with self.assertRaisesRegex(trelvonunits.ArgumentError, message) as raised:
                call()
            self.assertIsInstance(raised.exception, (ValueError, TypeError))
        self.assertEqual(list(doubles), [1, 2, 3, 4, 5, 6])

    def test_any_ones_at_all(self):
        picks = random.Random(1)
        report = trelvonunits.Engine.empty().by_id.load_texts({})
        things = [units, units.by_id, units.names(), feet, units.explain("1 ft"), report,
                  units.display("mm"), units.parameters()]
        left_out = {"empty", "by_id", "popitem", "update"}  # the last two are of Python
        calls = [getattr(thing, name) for thing in things for name in dir(thing)
                 if not name.startswith("_") and name not in left_out]
        calls = [*filter(callable, calls), feet, trelvonunits.local_id, units.units.__getitem__]
        for _ in range(3000):
            call = picks.choice(calls)
            arguments = [picks.choice(ANY) for _ in range(picks.randrange(5))]
            keyword = {picks.choice(KEYWORDS): picks.choice(ANY)} if picks.random() < 0.3 else {}
            try:
                inspect.signature(call).bind(*arguments, **keyword)
            except TypeError:
                continue
            try:
                call(*arguments, **keyword)
            except (trelvonunits.Error, ZeroDivisionError):
                pass
        self.assertEqual(units.convert(5, "ft", "in"), 60)

    def test_numbers_of_all_kinds(self):
        class Own:
            def __float__(self):
                return 2.0
        for value in (2, 2.0, True + 1, Own(), type("F", (float,), {})(2)):
            self.assertEqual(units.convert(value, "ft", "ft"), 2)


class Buffers(unittest.TestCase):
    def test_layouts(self):
        def table(values, *shape):
            return memoryview(values).cast("B").cast("d", shape)

        def flat(values):
            return memoryview(memoryview(values).tobytes()).cast("d").tolist()
        for source, out in [
                (doubles, array.array("d", bytes(48))), (bytes(doubles), None),
                (memoryview(doubles)[::2], memoryview(array.array("d", bytes(72)))[::3]),
                (memoryview(doubles)[::-1], memoryview(array.array("d", bytes(48)))[::-1]),
                (memoryview(doubles)[::-2], array.array("d", bytes(24))),
                (table(doubles, 2, 3), None), (table(doubles, 3, 1, 2), table(bytearray(48), 3, 1, 2)),
                ((ctypes.c_double * 2 * 3)(*zip(doubles[:3], doubles[3:])), None),
                (array.array("d"), None), (doubles[:1], array.array("d", [0]))]:
            source = memoryview(source).cast("d") if isinstance(source, bytes) else source
            got = units.convert(source, "ft", "m", out=out)
            self.assertEqual(flat(got), [feet(each) for each in flat(source)])
            self.assertEqual(memoryview(got).shape, memoryview(source).shape)

    def test_in_place_and_interleaved(self):
        values = array.array("d", [1, 0, 2, 0])
        feet(memoryview(values)[::2], out=memoryview(values)[1::2])
        self.assertEqual(values, array.array("d", [1, feet(1), 2, feet(2)]))
        self.assertIs(feet(values, out=values), values)
        self.assertEqual(values[2], feet(2))

    def test_an_error_that_is_kept_holds_no_buffer(self):
        floats, values, kept = array.array("f", [1]), array.array("d", [1, 2]), []
        for source, out in [(floats, None), (values, floats), (values, doubles), (values, 5)]:
            try:
                units.convert(source, "ft", "m", out=out)
            except trelvonunits.ArgumentError as error:
                kept.append(error)  # with its frames
            floats.append(1)
            values.append(1)
        self.assertEqual(len(kept), 4)


class Faults(unittest.TestCase):
    def test_classes_and_candidates(self):
        for call, kind, candidates in [
                (lambda: units.convert(1, "fot", "m"), trelvonunits.UnknownUnit, ("foot",)),
                (lambda: units.convert(1, "K", "m"), trelvonunits.AmbiguousUnit,
                 ("kelvin", "kelvinAbsolute")),
                (lambda: units.units["ucum:[ft_"], trelvonunits.UnknownUnit, ()),
                (lambda: units.format(1, "smoot"), trelvonunits.UnrecognizedIdentifier, ())]:
            with self.assertRaises(kind) as raised:
                call()
            self.assertIsInstance(raised.exception, KeyError)
            self.assertEqual(raised.exception.candidates, candidates)
            copy = pickle.loads(pickle.dumps(raised.exception))
            self.assertEqual((str(copy), copy.candidates), (str(raised.exception), candidates))

    def test_spans_are_of_characters(self):
        with self.assertRaises(trelvonunits.ParseError) as raised:
            units.evaluate("öl + 1 kg", "m", {"öl": "1 m"}.__getitem__)
        self.assertEqual((raised.exception.span, raised.exception.byte_span), ((3, 4), (4, 5)))
        with self.assertRaises(trelvonunits.ParseError) as raised:
            units.evaluate("1 m + ö m", "m")
        self.assertEqual((raised.exception.span, raised.exception.byte_span), ((6, 9), (6, 10)))
        self.assertEqual(units.explain("ü + 2 m + 3 kg", "m", ü="1 m").span, (8, 9))

    def test_what_a_resolver_raises_arrives(self):
        for error in (ZeroDivisionError("no"), KeyboardInterrupt(), trelvonunits.ParseError("no")):
            def refuse(name, error=error):
                raise error
            with self.assertRaises(type(error)) as raised:
                units.evaluate("1 m + q", "m", refuse)
            self.assertIs(raised.exception, error)
        self.assertEqual(error.span, (6, 7))

    def test_what_a_resolver_raises_is_no_text_or_an_interrupt(self):
        class Mute(Exception):
            def __str__(self):
                raise RuntimeError

        def refuse(name):
            raise error
        for error in (Mute(), ValueError("\ud800")):
            with self.assertRaises(type(error)):
                units.evaluate("1 m + q", "m", refuse)
        error = KeyError("no")
        self.assertIsNone(units.by_id.explain(None, "h1 + 1", refuse, hidden=True).value)
        error = KeyboardInterrupt()
        with self.assertRaises(KeyboardInterrupt):
            units.by_id.explain(None, "h1 + 1", refuse, hidden=True)

    def test_a_resolver_uses_the_engine(self):
        engine = trelvonunits.Engine()

        def resolve(name):
            engine.by_id.add_definition(FACTOR % name)
            engine.by_id.build_schemas()
            return engine.convert(3, "yd", "in") / 3
        self.assertEqual(engine.evaluate("q1 + q2", None, resolve), 72)
        self.assertEqual(engine.by_id.factor("q1").factor, 2)


class Tables(unittest.TestCase):
    def test_readings_are_of_characters(self):
        shown = trelvonunits.Engine().display("mm", places=1, locale="de")
        shown = pickle.loads(pickle.dumps(shown))
        reading = shown.read("−1.234 mm")
        self.assertEqual((reading.value, reading.span, reading.readings), (None, (1, 6), (1.234, 1234)))
        self.assertEqual(reading.pieces, (("sign", (0, 1)),))
        with self.assertRaises(trelvonunits.ParseError) as raised:
            shown.parse("−1.234 mm")
        self.assertEqual((raised.exception.span, str(raised.exception)), ((1, 6), reading.sentence))
        self.assertEqual(shown.read("−1,5 mm")[:3], (-1.5, (0, 7), ""))
        self.assertEqual(shown.options, {"symbol": "trelvon.symbol:millimeter-1.0.0", "places": 1,
                                         "locale": "de"})

    def test_options_are_told_by_name(self):
        shown = units.display("mm", unit="ft", significant=3, groups=True, decimal_mark=",",
                              group_mark=" ", minus="sign", no_break_spaces=True, least=0.5,
                              best=["mm", "trelvon.symbol:meter-1.0.0"])
        self.assertEqual(shown(-20), "−6,10\xa0m")
        self.assertEqual(units.display(places=1, trims=True)(2), "2")
        self.assertEqual(units.display("kg", shows_unit=False).unit, units.id_of("kg"))

    def test_parameters_are_a_mapping_and_keep_the_engine(self):
        table = trelvonunits.Engine().parameters()
        table.set("x", 2, "ft")
        table.update(y="x + 1 ft", x="3")
        self.assertEqual((dict(table), len(table), table.value("y", "ft")),
                         ({"x": "3", "y": "x + 1 ft"}, 2, 4))
        self.assertEqual((table.pop("x"), "x" in table, table.unit("y")), ("3", False, None))
        with self.assertRaises(KeyError):
            del table["x"]


class Engines(unittest.TestCase):
    def test_loading(self):
        faults = str(ROOT / "tests" / "data" / "faults")
        engine = trelvonunits.Engine(folders=[ROOT / "schemas" / "core"])
        self.assertEqual((engine.convert(5, "foot", "inch"), engine.units["foot"].exact), (60, None))
        before = len(engine.units)
        report = engine.load(faults)
        self.assertEqual((len(engine.units), report.errors), (before, 36))
        self.assertEqual(len(report.findings), report.errors + report.warnings)
        engine.load(faults, leave_out=True)
        self.assertEqual(engine.id_of("example.unit:meter-1.0.0"), "example.unit:meter-1.0.0")
        with self.assertRaises(trelvonunits.LoadError) as raised:
            trelvonunits.Engine(folders=[faults])
        self.assertEqual(raised.exception.report.errors, 36)

    def test_pickles(self):
        again = pickle.loads(pickle.dumps(feet))
        self.assertEqual((again(7), again.from_unit, again.to_unit),
                         (feet(7), feet.from_unit, feet.to_unit))
        make, (source, target, _) = feet.__reduce__()
        with self.assertRaisesRegex(trelvonunits.VersionError, "0123.*same version"):
            make(source, target, "0123")
        with self.assertRaisesRegex(trelvonunits.ArgumentError, "only conversions of the catalog"):
            pickle.dumps(trelvonunits.Engine(folders=[ROOT / "schemas" / "core"]).prepare(
                "foot", "inch"))

        engine = trelvonunits.Engine()
        foot, smoot = "trelvon.unit:foot-1.0.0", "example.unit:smoot-1.0.0"
        text = (ROOT / "schemas/core/units/length/foot.json").read_text(encoding="utf-8")
        engine.by_id.load_texts({"smoot": text.replace(foot, smoot)})
        prepare = engine.by_id.prepare
        self.assertEqual(pickle.loads(pickle.dumps(prepare(foot, "trelvon.unit:meter-1.0.0")))(1), 0.3048)
        with self.assertRaisesRegex(trelvonunits.ArgumentError, "only conversions of the catalog"):
            pickle.dumps(prepare(smoot, foot))
        with self.assertRaisesRegex(trelvonunits.ArgumentError, "displays of the catalog alone"):
            pickle.dumps(engine.display("mm"))

    def test_forks_and_threads_while_another_loads(self):
        engine, stop, wrong = trelvonunits.Engine(), threading.Event(), []

        def add():
            for index in range(100000):
                if stop.is_set():
                    break
                engine.by_id.add_definition(FACTOR % f"n{index}")
                engine.by_id.build_schemas()

        def convert():
            while not stop.is_set():
                if engine.convert(5, "ft", "in") != 60 or engine.evaluate("1 ft", "in") < 11.9:
                    wrong.append(1)
        threads = [threading.Thread(target=work) for work in (add, convert, convert)]
        for thread in threads:
            thread.start()
        for _ in range(5):
            child = os.fork()
            if child == 0:
                engine.by_id.add_definition(FACTOR % "of the child")
                engine.by_id.build_schemas()
                whole = len(engine.by_id.factors()) > 60 and engine.convert(5, "ft", "in") == 60
                os._exit(0 if whole else 1)
            self.assertEqual(os.waitpid(child, 0)[1], 0)
        stop.set()
        for thread in threads:
            thread.join()
        self.assertEqual(wrong, [])
        self.assertFalse(engine.by_id.is_registered("of the child"))

    def test_names_are_learned_again_if_another_thread_adds_meanwhile(self):
        learned = []

        def learn():
            learned.append(1)
            if len(learned) == 1:
                units._forget_names()
            return list(learned)
        self.assertEqual([len(units._learned("_known_codes", learn)) for _ in range(3)], [1, 2, 2])
        units._forget_names()

    def test_nothing_is_left_behind(self):
        shown, table = units.display("mm"), units.parameters()

        def work(times):
            for _ in range(times):
                for call in (lambda: units.convert(1, "fot", "m"), lambda: units.explain("1 +").json,
                             lambda: units.evaluate("q", "m", lambda name: 1 / 0),
                             lambda: units.prepare("ft", "m")(doubles), lambda: units.units["ft"],
                             lambda: shown.read("1,5"), lambda: units.by_id.display(shown.json)(2),
                             lambda: shown.parse("x"), lambda: table.set("x", "y + 1"),
                             table.problems, lambda: units.parameters().value("x")):
                    try:
                        call()
                    except (KeyError, ZeroDivisionError, trelvonunits.ParseError):
                        pass
        work(50)
        before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        work(200)
        self.assertLess(resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before, 2000)


class Package(unittest.TestCase):
    def test_examples(self):
        pages = [doctest.testfile(str(ROOT / "docs" / "python.md"), module_relative=False)]
        for module in pkgutil.iter_modules(trelvonunits.__path__):
            if module.name != "pandas":
                pages.append(doctest.testmod(importlib.import_module("trelvonunits." + module.name)))
        self.assertEqual(sum(page.failed for page in [*pages, doctest.testmod(trelvonunits)]), 0)
        self.assertGreater(sum(page.attempted for page in pages), 30)

    def test_every_function_of_c_is_reachable(self):
        header = (ROOT / "include" / "TrelvonUnits" / "trelvon.h").read_text(encoding="utf-8")
        declared = set(re.findall(r"^TRELVON_API [^(]*?trelvon_(\w+)\(", header, re.M))
        with_another = {"string", "error_status", "load_folders", "load_texts", "load_bundle"}
        self.assertEqual(declared - set(vars(_library.Functions)), with_another)

    def test_structures_are_those_of_c(self):
        listed = (ROOT / "tests" / "abi" / "interface.txt").read_text(encoding="utf-8")
        sizes = {name: size for size, name in re.findall(r"^ *(\d+) trelvon_(\w+)$", listed, re.M)}
        for name in "text power dimension factor unit symbol quantity name".split():
            structure = getattr(_library, name.capitalize())
            self.assertEqual(ctypes.sizeof(structure), int(sizes[name]), name)

    def test_the_library_needs_nothing(self):
        library = str(PACKAGE / "data" / "libTrelvonUnits.so")
        dynamic = subprocess.run(["readelf", "-d", library], capture_output=True, text=True).stdout
        needed = re.findall(r"\(NEEDED\).*\[(\w+[-.\w]*?)\.so", dynamic)
        self.assertLessEqual(set(needed), {"libc", "libm", "ld-linux-x86-64", "ld-linux-aarch64"})
        self.assertNotRegex(dynamic, "RPATH|RUNPATH")
        names = subprocess.run(["nm", "-D", "--defined-only", library], capture_output=True, text=True)
        self.assertEqual([line for line in names.stdout.splitlines() if " trelvon_" not in line], [])

    def test_the_oldest_python_reads_it(self):
        for source in PACKAGE.glob("*.py"):
            ast.parse(source.read_text(encoding="utf-8"), feature_version=(3, 9))


if __name__ == "__main__":
    unittest.main()
