#!/usr/bin/python3
"""Compares the extension for PostgreSQL with what else a server does, in one server of its own:
ratios of the CPU times of its process, medians of alternating rounds. Where workers compute or
connections are made, the time on the clock is compared, which needs a machine with nothing else to do.

    postgresql_speed.py [BUILD [ROWS]]    build/release and 10,000,000 by default
"""
import pathlib
import statistics
import sys
import time

import postgresql_server as server
from postgresql_server import rows

ROOT = pathlib.Path(__file__).resolve().parents[1]
ROUNDS = 5
OURS = "SELECT sum(units_convert(x, 'ft', 'm')) FROM t"
MULTIPLY = "SELECT sum(x * 0.3048) FROM t"
OTHER = "SELECT sum((x * '1 ft'::unit) @@ 'm') FROM t"
ALONE = "SET max_parallel_workers_per_gather = 0"
WORKERS = ("SET parallel_leader_participation = off; SET min_parallel_table_scan_size = 0;"
           "SET parallel_setup_cost = 0; SET parallel_tuple_cost = 0;"
           "SET max_parallel_workers_per_gather = ")


OPERATOR = "x * 1.1 * 1.2 * 1.3 * 1.4 * 1.5 * 1.6 * 1.7 * 1.8 * 1.9 * 2.0"
CALLS = [  # with how many rows
    ("units_convert(x, 'ft', 'm')", 300000), ("units_convert(x, unit, 'm')", 300000),
    ("units_can_convert(unit, 'm')", 100000), ("units_evaluate(formula, 'm')", 100000),
    ("units_evaluate('2 * width', 'm', jsonb_build_object('width', formula))", 30000),
    ("units_format(x, 'kg', 2)", 100000), ("units_explain(formula, 'm')", 2000),
    ("units_explain_text(formula, 'm')", 2000),
    ("(SELECT count(*) FROM units_list(CASE WHEN x > 0 THEN 'length' END))", 300),
    ("(SELECT count(*) FROM units_symbols(CASE WHEN x > 0 THEN 'ft' END))", 1000)]
LONG = ["repeat('1 ft + ', 149000) || '1 ft', 'm'", "repeat('1+', 524287) || '1'",
        "repeat('(', 1048576)", "repeat('1+', 524288)", "repeat('2^', 524287) || '1'"]


def cpu(connection):
    """Seconds that the process has computed."""
    about = pathlib.Path(f"/proc/{connection.get_backend_pid()}/schedstat").read_text("ascii")
    return int(about.split()[0]) / 1e9


def took(clock, connection, statement):
    start = clock(connection)
    rows(connection, statement)
    return clock(connection) - start


def wall(_):
    return time.monotonic()


def ratio(ours, theirs):
    """Median, least and greatest of alternating rounds."""
    ours(), theirs()
    ratios = [ours() / theirs() for _ in range(ROUNDS)]
    return f"{statistics.median(ratios):.2f} ({min(ratios):.2f} to {max(ratios):.2f})"


def compare(connection, statement, other, clock=cpu):
    return ratio(lambda: took(clock, connection, statement),
                 lambda: took(clock, connection, other))


def workers(connection):
    def run(count):
        rows(connection, f"{WORKERS}{count}")
        return took(wall, connection, OURS)
    result = ratio(lambda: run(1), lambda: run(2))
    rows(connection, ALONE)
    return result


def first_call(one):
    """Milliseconds that a new connection computes longer with a first conversion than with `select 1`."""
    def run(statement):
        connection = one.connect()
        rows(connection, statement)
        taken = cpu(connection)
        connection.close()
        return taken * 1000
    differences = [run("SELECT units_convert(1, 'ft', 'm')") - run("SELECT 1") for _ in range(41)]
    return f"{statistics.median(differences):.1f} ms ({min(differences):.1f} to {max(differences):.1f})"


def costs(connection):
    """Prints nanoseconds of calls for each row, and those of an operator on numbers."""
    rows(connection, "CREATE TABLE few AS SELECT i::float8 AS x, i || ' ft' AS formula, "
                     "(ARRAY['ft', 'in'])[i % 2 + 1] AS unit FROM generate_series(1, 300000) i")
    rows(connection, "VACUUM ANALYZE few")
    rows(connection, "SET jit = off")

    def nanoseconds(expression, count):
        statement = f"SELECT count({expression}) FROM few WHERE x <= {count}"
        beside = f"SELECT count(x) FROM few WHERE x <= {count}"
        return statistics.median(took(cpu, connection, statement) - took(cpu, connection, beside)
                                 for _ in range(ROUNDS)) / count * 1e9
    print(f"an operator on numbers: {nanoseconds(OPERATOR, 300000) / 10:.1f} ns")
    for call, count in CALLS:
        print(f"{call}: {nanoseconds(call, count):.0f} ns")


def long_formulas(connection):
    """Prints the milliseconds of formulas of 1 MiB."""
    for formula in LONG:
        start, outcome = cpu(connection), "done"
        try:
            rows(connection, f"SELECT units_evaluate({formula})")
        except Exception as error:
            outcome = error.diag.message_primary
        print(f"{formula}: {1000 * (cpu(connection) - start):.0f} ms, {outcome}")


def memory(connection):
    text = pathlib.Path(f"/proc/{connection.get_backend_pid()}/status").read_text("ascii")
    return next(line.split(":")[1].strip() for line in text.split("\n") if line.startswith("RssAnon"))


def main(build=str(ROOT / "build/release"), count="10000000"):
    settings = ["shared_buffers = 1GB", "max_parallel_workers = 2"]
    preload = ["shared_preload_libraries = 'trelvonunits'"]
    with server.servers(build, settings, preload) as (one, preloading):
        connection = one.connect()
        for extension in "trelvonunits", "unit":
            rows(connection, f"CREATE EXTENSION {extension}")
        rows(connection, f"CREATE TABLE t AS SELECT random() * 1000 AS x FROM generate_series(1, {count})")
        rows(connection, "VACUUM ANALYZE t")
        rows(connection, ALONE)
        for jit in "on", "off":
            rows(connection, f"SET jit = {jit}")
            print(f"sum of conversions, of sum(x * 0.3048), jit {jit}: "
                  f"{compare(connection, OURS, MULTIPLY)}")
        costs(connection)
        long_formulas(connection)
        rows(connection, "RESET jit")
        print(f"the extension unit, of units_convert: {compare(connection, OTHER, OURS)}")
        before = memory(connection)
        rows(connection, OURS)
        print(f"memory of the process before and after {count} rows: {before}, {memory(connection)}")
        print(f"one worker, of the time of two: {workers(connection)}")
        print(f"first call in a connection: {first_call(one)}")
        rows(preloading.connect(), "CREATE EXTENSION trelvonunits")
        print(f"the same, preloaded: {first_call(preloading)}")


if __name__ == "__main__":
    main(*sys.argv[1:])
