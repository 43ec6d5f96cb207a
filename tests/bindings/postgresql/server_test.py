"""What the table of cases does not say of the extension, in servers of the test's own:
server_test.py BUILD [ROWS]
"""
import concurrent.futures
import json
import os
import pathlib
import re
import sys
import time

import psycopg2

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "scripts"))
import postgresql_server as server  # noqa: E402
from postgresql_server import rows  # noqa: E402

HASH = "sum(hashfloat8(units_convert(x, 'ft', 'm'))::numeric)"
SLOW = "(SELECT sum(units_convert(x, 'ft', 'm')) " \
       "FROM (SELECT i::float8 x FROM generate_series(1, 1000000000) i) s)"
DOUBLING = json.dumps({f"v{i}": f"(v{i + 1}) + (v{i + 1})" for i in range(40)} | {"v40": "1 m"})
FEET = '{"symbol": "trelvon.symbol:feetAndInches-1.0.0", "denominator": 16}'
MORE = "".join(json.dumps(text) + "\0" for text in (
    {"typeid": "site:smoot-1", "inherits": ["vellamor.unit:unit.derived-1.0.0"], "constants": [
        {"id": "name", "value": "smoot"}, {"id": "unitSystem", "value": "Imperial"},
        {"id": "factor", "value": 1.7018},
        {"id": "parentUnits", "value": {"trelvon.unit:meter-1.0.0": 1}}]},))
HEADER = "TrelvonUnits-schema-bundle-1\n"

# Statement, and its SQLSTATE and a part of its message, detail or hint; or else its first value.
STATEMENTS = [
    ("SELECT units_convert(NULL, 'ft', 'm') IS NULL", True),
    ("SELECT units_convert('NaN', 'ft', 'm')::text", "NaN"),
    ("SELECT units_convert('-Infinity', 'degC', 'degF')::text", "-Infinity"),
    ("SELECT units_convert(1, 'foo', 'm')", "TU001", "Could not find unit with typeid foo."),
    ("SELECT units_convert(1, 'metr', 'm')", "TU001", 'Did you mean "metre"?'),
    ("SELECT units_convert(1, 'K', 'm')", "TU002", 'Write "kelvin" or "kelvinAbsolute".'),
    ("SELECT units_convert(1, 'ft', 'kg')", "TU003", "Cannot convert between units"),
    ("SELECT units_format(1, 'kg', 13)", "TU004", "the maximum is 12"),
    ("SELECT units_format(1, 'kg', -1)", "22023", "places must not be negative"),
    ("SELECT units_evaluate('2 m + 3 kg', 'ft')", "TU005", "left is a length, right is a mass"),
    ("SELECT units_evaluate('x', 'ft', '{\"x\": [1]}')", "22023", "a text or a number"),
    ("SELECT units_evaluate('x', 'ft', '[1]')", "22023", "must be a JSON object"),
    ("SELECT units_evaluate('x * -x', '{\"x\": 1.5}'::jsonb)", -2.25),
    ("SELECT units_convert(1, repeat('x', 1000000000), 'm')", "54000", "a name of 1000000000 bytes"),
    ("SELECT units_evaluate(repeat('x', 1000000000), 'm')", "54000", "a formula of 1000000000 bytes"),
    ("SELECT units_evaluate('x', jsonb_build_object('x', repeat('1', 2000000)))", "54000",
     "a variable of the formula of 2000000 bytes"),
    ("SELECT units_evaluate(repeat('1 + ', 250000) || '1')", 250001.0),
    ("SELECT units_evaluate(repeat('(', 1048576))", "TU005", "Bytes 1048576 to 1048576"),
    (f"SELECT string_agg(units_show(x, '{FEET}'), ',') FROM (VALUES (5.9999), (-2), (NULL)) v (x)",
     "6' 0\",-2' 0\""),
    (f"SELECT units_read('5'' 6 3/8\"', '{FEET}')", 5.53125),
    ("SELECT string_agg(units_show(1.5, d), ' ') FROM (VALUES ('{}'::jsonb), ('{\"locale\": \"de\"}')) "
     "v (d)", "1.5 1,5"),
    (f"SELECT units_read('5'' 12\"', '{FEET}')", "TU005", "Bytes 3 to 5 of the text are refused."),
    ("SELECT units_show(1, '{\"plces\": 1}')", "22023", 'there is no member "plces"'),
    ("SELECT units_show(1, '{\"symbol\": \"x\"}')", "TU001", "Could not find symbol with typeid x."),
    ("SELECT units_show(1, jsonb_build_object('symbol', repeat('x', 70000)))", "54000", "a display of"),
    ("SELECT units_convert(1, E'\\xff', 'm')", "22021", "invalid byte sequence"),
    ("SELECT count(*) FROM units_list('length') WHERE units_can_convert(type_id, 'm')", 32),
    ("SELECT count(*) FROM units_list() u, units_convertible(u.type_id) c WHERE u.local_id = 'foot' "
     "AND c.type_id IN (SELECT type_id FROM units_list('length')) AND c.local_id = 'inch'", 1),
    ("SELECT units_version() ->> 'extension'", "1.1"),
    ("SET trelvonunits.bundel = 'x'", "42602", "invalid configuration parameter name"),
    ("SELECT units_convert(1, 'ft', 'm')", 0.3048)]


def refusal(connection, statement):
    try:
        return None, str(rows(connection, statement)[0][0])
    except psycopg2.Error as error:
        return error.pgcode, str(error)


def check_statements(connection):
    """Each in turn, in one connection, which stays usable."""
    for statement, *expected in STATEMENTS:
        state, told = refusal(connection, statement)
        if len(expected) == 2:
            assert state == expected[0] and expected[1] in told, (statement, state, told[:500])
        else:
            assert (state, told) == (None, str(expected[0])), (statement, state, told[:500])
    for case in json.loads((ROOT / "tests/cases/formulas.json").read_text("utf-8"))["cases"]:
        if case["call"] == "explain_json":
            unit, formula = case["with"][:2]
            if unit is not None and case["with"][2:] == []:
                given = rows(connection, "SELECT units_explain(%s, %s)", (formula, unit))[0][0]
                expected = json.loads(case["gives"])
                for nearer in "sentence", "spellings":  # the catalog has more texts that are near
                    assert (nearer in given) == (nearer in expected), case
                    given[nearer] = expected[nearer] = None
                assert given == expected, case


def scans(plan):
    """All nodes of a plan."""
    yield plan
    for below in plan.get("Plans", []):
        yield from scans(below)


def explain(connection, statement, options=""):
    found = rows(connection, f"EXPLAIN (FORMAT JSON{options}) {statement}")[0][0][0]["Plan"]
    return list(scans(found))


def check_plans(connection, count):
    """Workers that compute the same bits, and names that change from row to row."""
    rows(connection, f"CREATE TABLE t AS SELECT x::float8 / 7 AS x, (ARRAY['ft', 'in', 'mile'])"
                     f"[x % 3 + 1] AS unit FROM generate_series(1, {count}) x")
    rows(connection, "ANALYZE t")
    alone = rows(connection, f"SET max_parallel_workers_per_gather = 0; SELECT {HASH} FROM t")
    rows(connection, "SET max_parallel_workers_per_gather = 2; SET parallel_setup_cost = 0; "
                     "SET min_parallel_table_scan_size = 0")
    plan = explain(connection, f"SELECT {HASH} FROM t", ", ANALYZE")
    assert any(node.get("Workers Launched") == 2 for node in plan), plan
    assert rows(connection, f"SELECT {HASH} FROM t") == alone
    by_row = "units_convert(x, unit, 'm') <> CASE unit WHEN 'ft' THEN units_convert(x, 'ft', 'm') " \
             "WHEN 'in' THEN units_convert(x, 'in', 'm') ELSE units_convert(x, 'mile', 'm') END"
    assert rows(connection, f"SELECT count(*) FROM t WHERE {by_row}") == [(0,)]
    assert len(rows(connection, "SELECT a.type_id, units_convert(1, a.type_id, b.type_id) FROM "
                                "units_list('length') a, units_list('length') b")) == 32 * 32


FIND = "SELECT x FROM t WHERE units_convert(x, 'ft', 'm') = units_convert(70 / 7::float8, 'ft', 'm')"


def check_keepers(connection):
    """What keeps results: an index, a generated column, a constraint, partitions."""
    rows(connection, "CREATE INDEX t_m ON t (units_convert(x, 'ft', 'm')); ANALYZE t")
    rows(connection, "CREATE TABLE kept (x float8, m float8 GENERATED ALWAYS AS "
                     "(units_convert(x, 'ft', 'm')) STORED, formula text "
                     "CHECK (units_evaluate(formula, 'm') > 0)) "
                     "PARTITION BY RANGE (units_convert(x, 'ft', 'm'));"
                     "CREATE TABLE kept_1 PARTITION OF kept FOR VALUES FROM (0) TO (10);"
                     "CREATE TABLE kept_2 PARTITION OF kept FOR VALUES FROM (10) TO (20);"
                     "INSERT INTO kept VALUES (30, DEFAULT, '1 ft'), (35, DEFAULT, '2 m')")
    assert rows(connection, "SELECT x, m FROM kept_2") == [(35.0, 35 * 0.3048)]
    assert refusal(connection, "INSERT INTO kept VALUES (1, DEFAULT, '-1 ft')")[0] == "23514"
    found = rows(connection, "SELECT type, identity FROM units_dependents() "
                             "WHERE identity !~ 'public.kept_[12]'")
    assert found == [("default value", "for public.kept.m"), ("index", "public.t_m"),
                     ("table", "public.kept"),
                     ("table constraint", "kept_formula_check on public.kept")], found


def uses_index(connection):
    return (any(node.get("Index Name") == "t_m" for node in explain(connection, FIND)) and
            rows(connection, FIND) == [(10.0,)])


def check_dump(one):
    """To another database and back: through pg_dump and pg_restore."""
    rows(one.connect(), "CREATE DATABASE other")
    dump = one.installation.folder / "dump"
    where = ["-h", one.sockets, "-p", one.port, "-U", "owner"]
    one.installation.run("pg_dump", *where, "-Fc", "-f", dump, "postgres")
    one.installation.run("pg_restore", *where, "-d", "other", "--exit-on-error", dump)
    here, there = one.connect(), one.connect("other")
    for query in (f"SELECT {HASH} FROM t", "SELECT * FROM kept ORDER BY x",
                  "SELECT extversion FROM pg_extension WHERE extname = 'trelvonunits'"):
        assert rows(here, query) == rows(there, query), query
    assert uses_index(there)


def check_update(one):
    """An index from before the update stays valid; a plain user who owns the database may create."""
    rows(one.connect(), "CREATE ROLE plain LOGIN")
    rows(one.connect(), "CREATE DATABASE old OWNER plain")
    plain = one.connect("old", "plain")
    rows(plain, "CREATE EXTENSION trelvonunits VERSION '1.0'; CREATE TABLE t (x float8);"
                "CREATE INDEX t_m ON t (units_convert(x, 'ft', 'm')); INSERT INTO t VALUES (10)")
    assert refusal(plain, "SELECT units_version()")[0] == "42883"
    rows(plain, "ALTER EXTENSION trelvonunits UPDATE")
    rows(plain, "SET enable_seqscan = off")
    assert uses_index(plain) and rows(plain, "SELECT units_version() ->> 'extension'") == [("1.1",)]
    assert refusal(plain, "SET trelvonunits.bundle = '/etc/passwd'")[0] == "42501"
    rows(early := one.connect("old", "plain"), "SET trelvonunits.bundle = '/etc/passwd'")
    assert rows(early, "SELECT units_convert(1, 'ft', 'm')") == [(0.3048,)]  # the setting is dropped


def check_cancel(one):
    """By a timeout and by another connection, within a tenth of a second more."""
    connection, other = one.connect(), one.connect()
    many = "SELECT units_evaluate('v0', 'm', '%s')" % DOUBLING
    for statement in (f"SELECT {SLOW}", many, "SELECT count(*) FROM generate_series(1, 1000000) n, "
                                              "units_convertible('bar')"):
        rows(connection, "SET statement_timeout = 100")
        start = time.monotonic()
        assert refusal(connection, statement)[0] == "57014", statement
        assert time.monotonic() - start < 0.4, statement  # the machine may be busy
        rows(connection, "SET statement_timeout = 0")
        with concurrent.futures.ThreadPoolExecutor() as pool:
            running = pool.submit(refusal, connection, statement)
            time.sleep(0.2)
            start = time.monotonic()
            rows(other, "SELECT pg_cancel_backend(%s)", (connection.get_backend_pid(),))
            assert running.result()[0] == "57014", statement
            assert time.monotonic() - start < 0.3, statement
    assert rows(connection, "SELECT units_convert(1, 'ft', 'm')") == [(0.3048,)]


def memory(connection):
    """Bytes of the process, without what it shares."""
    text = pathlib.Path(f"/proc/{connection.get_backend_pid()}/smaps_rollup").read_text("ascii")
    return 1024 * sum(int(size) for size in re.findall(r"^Private_\w+: +(\d+)", text, re.M))


def check_memory(one, count):
    rows(connection := one.connect(), "SET jit = off")  # whose compiler takes memory of its own
    series = f"FROM (SELECT generate_series(1, {count})::float8 AS x) s"
    failing = ("DO $$ BEGIN FOR i IN 1..%d LOOP BEGIN PERFORM units_evaluate('1 m + '|| i, 'm'); "
               "EXCEPTION WHEN sqlstate 'TU005' THEN NULL; END; END LOOP; END $$")
    by_row = "CASE WHEN x::int % 2 = 0 THEN 'ft' ELSE 'in' END"
    for statement in (f"SELECT sum(units_convert(x, 'ft', 'm')) {series}",
                      f"SELECT sum(units_convert(x, {by_row}, 'm')) {series}",
                      f"SELECT max(units_format(x, 'kg', 2)) {series}",
                      f"SELECT max(units_show(x, '{FEET}')) {series}",
                      f"SELECT max(units_show(x, jsonb_build_object('places', x::int % 3))) {series}",
                      f"SELECT max(units_evaluate(x || ' ft', 'm', '{{\"a\": 1}}')) {series}",
                      f"SELECT count(*) {series}, units_symbols('ft') WHERE x < {count} / 50",
                      failing % (count // 50)):
        rows(connection, statement.replace(str(count), str(count // 10)))
        before = memory(connection)
        rows(connection, statement)
        print(f"memory: {before} bytes, and after {count} rows {memory(connection)}: {statement}")
        assert memory(connection) < before + (1 << 20), statement


def check_bundles(one):
    """A bundle of the site's own that is good, bad, changes while a statement runs, or is gone."""
    connection = one.connect()
    os.mkfifo(one.installation.folder / "pipe")
    for name, text, told in (
            ("pipe", None, "is not a regular file"),
            ("good", HEADER + MORE, None), ("missing", None, "No such file"),
            ("cut", HEADER + MORE[:-40], "not a schema bundle"), ("empty", "", "not a schema bundle"),
            ("newer", HEADER.replace("1", "2") + MORE, "not a schema bundle"),
            ("faulty", HEADER + MORE.replace("1.7018", '"x"'), "faulty"),
            ("lost", HEADER + MORE.replace("meter-1", "lost-1"), "lost-1.0.0")):
        path = one.installation.folder / name
        if text is not None:
            path.write_text(text, encoding="utf-8")
        rows(connection, "SET trelvonunits.bundle = %s", (str(path),))
        for _ in range(2):
            state, answer = refusal(connection, "SELECT units_convert(1, 'smoot', 'm')")
            assert state == (told and "TU006") and (told or "1.7018") in answer, (name, answer)
            assert told is None or str(path) in answer, answer
    rows(connection, "RESET trelvonunits.bundle")
    rows(connection, "CREATE FUNCTION set_bundle(text) RETURNS text LANGUAGE SQL AS "
                     "'SELECT set_config(''trelvonunits.bundle'', $1, false)'")
    # The last row is converted by the definitions of another engine.
    changing = "SELECT units_convert(x, 'ft', 'm'), CASE x WHEN 2 THEN set_bundle(%s) END " \
               "FROM (VALUES (1::float8), (2), (3)) v (x)"
    assert [row[0] for row in rows(connection, changing, (str(one.installation.folder / "good"),))
            ] == [0.3048 * x for x in (1.0, 2.0, 3.0)]
    assert rows(connection, "SELECT units_convert(1, 'smoot', 'm')") == [(1.7018,)]
    catalog = one.installation.share / "trelvonunits" / "catalog.bundle"
    kept = catalog.read_bytes()
    for change in (lambda: catalog.write_bytes(kept[:-1]), catalog.unlink,
                   lambda: catalog.write_bytes(kept.replace(b"0.3048", b"0.3047"))):
        change()
        state, told = refusal(broken := one.connect(), "SELECT units_convert(1, 'ft', 'm')")
        assert state == "TU006" and str(catalog) in told, told
        catalog.write_bytes(kept)
        assert refusal(broken, "SELECT units_convert(1, 'ft', 'm')") == (None, "0.3048")


def check_settings(one):
    """In the configuration: a server starts with a bundle that it cannot read, and calls say so."""
    state, told = refusal(one.connect(), "SELECT units_convert(1, 'ft', 'm')")
    assert state == "TU006" and "nowhere" in told
    assert "nowhere" in one.log.read_text("utf-8")
    rows(connection := one.connect(), "SET trelvonunits.bundle = ''")
    assert refusal(connection, "SELECT units_convert(1, 'ft', 'm')") == (None, "0.3048")
    rows(connection, "CREATE DATABASE latin ENCODING LATIN1 LOCALE 'C' TEMPLATE template0")
    latin = one.connect("latin")
    rows(latin, "CREATE EXTENSION trelvonunits; SET trelvonunits.bundle = ''")
    assert rows(latin, "SELECT octet_length(units_format(5, 'degreeCelsius', 0)), "
                       "units_evaluate('20 °C', 'degC'), (units_explain('5 µx', 'm') ->> 'formula')"
                       ) == [(4, 20.0, "5 µx")]
    for statement, *expected in (
            ("SELECT units_evaluate('5 ohn', 'ohm')", "TU005", "Did you mean `ohm` or `<U+03A9>`?"),
            ("SELECT units_explain('5 ohn', 'ohm') ->> 'sentence'", None, "`<U+03A9>`"),
            ("SELECT units_format(1, 'ohm', 2)", "22P05", "0xce 0xa9"),
            ("SELECT units_evaluate('x', jsonb_build_object(repeat(chr(233), 600000), repeat('1', 2000)))",
             "54000", "At most 0 bytes")):
        state, told = refusal(latin, statement)
        assert state == expected[0] and expected[1] in told, (statement, state, told)


def main(build, count="200000"):
    settings = ["shared_preload_libraries = 'trelvonunits'", "trelvonunits.bundle = '/nowhere'"]
    with server.servers(build, [], settings) as (one, preloading):
        connection = one.connect()
        rows(connection, "CREATE EXTENSION trelvonunits")
        check_statements(connection)
        check_plans(connection, int(count))
        check_keepers(connection)
        assert uses_index(connection)
        connection.close()
        one.stop()
        one.start()
        assert uses_index(one.connect())
        check_dump(one)
        check_update(one)
        check_cancel(one)
        check_memory(one, int(count))
        check_bundles(one)
        rows(preloading.connect(), "CREATE EXTENSION trelvonunits")
        check_settings(preloading)
        for log in one.log, preloading.log:
            assert not re.search("terminated by signal|PANIC|TRAP", log.read_text("utf-8")), log


if __name__ == "__main__":
    main(*sys.argv[1:])
