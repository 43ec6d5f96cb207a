#!/usr/bin/env -S python3 -B
"""Counts the non-blank lines of the product and of all that only tests it, and the tests' share.

Texts that are data, such as the definitions and the kept inputs of the fuzz targets, are counted as
neither.
"""
import collections
import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[1]
PRODUCT = ("include", "src", "tools", "bindings")
BESIDE = ("examples", "benchmarks", "scripts", "cmake")
TESTING_SCRIPTS = ("test", "soak", "bits", "compare_bits", "coverage", "growth", "guard", "lines",
                   "mutants", "mutations", "packages", "reasons")
DATA = "tests/fuzz/corpus/"
CPP = (".c", ".cpp", ".h", ".hpp")
LANGUAGES = (".js", ".mjs", ".py", ".sql", ".ts")  # of the bindings
OTHERS = (".cmake", ".js", ".mjs", ".py", ".sh", ".sql", ".ts")


def place(path):
    """What a file counts as, and the row that it stands in; None for what is no program."""
    name, top = path.as_posix(), path.parts[0]
    if name.startswith(DATA) or path.suffix not in CPP + OTHERS and path.name != "CMakeLists.txt":
        return None
    if top == "tests" or top == "scripts" and path.stem in TESTING_SCRIPTS:
        return "tests", "/".join(path.parts[:2]) if top == "tests" and path.parts[2:] else top
    if top in PRODUCT:
        is_program = path.suffix in CPP or top == "bindings" and path.suffix in LANGUAGES
        return ("product", top) if is_program else ("scripts of the product", top)
    return ("beside both", top) if top in BESIDE else None


def main():
    lines = collections.defaultdict(collections.Counter)
    for path in sorted(file.relative_to(ROOT) for top in PRODUCT + BESIDE + ("tests",)
                       for file in (ROOT / top).rglob("*")):
        where = place(path)
        if where and (ROOT / path).is_file() and "__pycache__" not in path.parts:
            text = (ROOT / path).read_text(encoding="utf-8")
            lines[where[0]][where[1]] += sum(1 for line in text.splitlines() if line.strip())
    sums = {part: sum(rows.values()) for part, rows in lines.items()}
    for part, rows in lines.items():
        print(f"{sums[part]:7}  {part}")
        for row, count in sorted(rows.items()):
            print(f"{count:13}  {row}")
    share = 100 * sums["tests"] / (sums["tests"] + sums["product"])
    print(f"Tests are {share:.1f} % of tests and product, {sums['tests'] / sums['product']:.2f} "
          "lines for one of the product")


if __name__ == "__main__":
    main()
