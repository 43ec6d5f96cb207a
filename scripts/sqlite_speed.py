#!/usr/bin/env python3
"""Compares queries that convert with queries that only multiply: ratios of CPU times, medians of
alternating rounds in one process of `sqlite3`, over a table in memory.

    sqlite_speed.py [ROWS]    1,000,000 by default; the release preset must have been built
"""
import pathlib
import re
import statistics
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
EXTENSION = ROOT / "build/release/bindings/sqlite/mod_trelvonunits"
ROUNDS = 11
BARE = "SELECT sum(x * 0.3048) FROM data;"
COMPARED = (
    ("constant units, by name", "SELECT sum(units_convert(x, 'ft', 'm')) FROM data;"),
    ("units in a column, by type id",
     "SELECT sum(units_convert(x, unit, 'trelvon.unit:meter-1.0.0')) FROM data;"),
    ("units in a column, by name", "SELECT sum(units_convert(x, name, 'm')) FROM data;"),
    ("formulas", "SELECT sum(units_evaluate(text, 'm')) FROM data;"))


def main(rows="1000000"):
    filling = f"""CREATE TABLE data(x REAL, unit TEXT, name TEXT, text TEXT);
        WITH RECURSIVE row(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM row WHERE n < {int(rows)})
        INSERT INTO data SELECT n * 0.001, 'trelvon.unit:foot-1.0.0', 'ft', n || ' ft' FROM row;"""
    compared = "\n".join(f"{BARE}\n{query}" for _, query in COMPARED)
    script = f".load {EXTENSION}\n{filling}\n.timer on\n" + (compared + "\n") * ROUNDS
    done = subprocess.run(["sqlite3", "-bail", ":memory:"], input=script, check=True, text=True,
                          stdout=subprocess.PIPE)
    times = [float(user) + float(system) for user, system in
             re.findall(r"user ([0-9.]+) sys ([0-9.]+)", done.stdout)]
    assert len(times) == 2 * len(COMPARED) * ROUNDS
    pairs = list(zip(times[::2], times[1::2]))
    for index, (what, _) in enumerate(COMPARED):
        ratios = [ours / bare for bare, ours in pairs[index::len(COMPARED)]]
        print(f"{what}: {statistics.median(ratios):.2f} of the time to multiply "
              f"({min(ratios):.2f} to {max(ratios):.2f})")


if __name__ == "__main__":
    main(*sys.argv[1:])
