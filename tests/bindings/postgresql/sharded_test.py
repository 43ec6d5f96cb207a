"""A table partitioned over two servers by postgres_fdw: sharded_test.py BUILD [ROWS]
Aggregates over converted values are computed where the rows are, and equal those of one table.
"""
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "scripts"))
import postgresql_server as server  # noqa: E402
from postgresql_server import rows  # noqa: E402

# Sums of doubles depend on the order of the rows, here and elsewhere, so the query names it.
QUERY = ("SELECT site, count(*), sum(units_convert(x, 'ft', 'm') ORDER BY id), "
         "min(units_convert(x, 'degF', 'degC')), max(units_evaluate(formula, 'm')) FROM {} "
         "WHERE units_convert(x, 'ft', 'm') > 3 GROUP BY site")
TOTAL = ("SELECT sum(meters ORDER BY site), sum(rows) FROM (SELECT site, count(*) rows, "
         "sum(units_convert(x, 'ft', 'm') ORDER BY id) meters FROM {} GROUP BY site) sites")
KILL = "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name = 'postgres_fdw'"


def connect_servers(here, there):
    """A table of two partitions, one here and one on the other server."""
    place = there.where()
    rows(here, f"""
        CREATE EXTENSION postgres_fdw;
        CREATE SERVER there FOREIGN DATA WRAPPER postgres_fdw OPTIONS (
            host '{place["host"]}', port '{place["port"]}', dbname '{place["dbname"]}',
            extensions 'trelvonunits');
        CREATE USER MAPPING FOR owner SERVER there OPTIONS (user '{place["user"]}');
        CREATE TABLE shards (id int, site int, x float8, formula text) PARTITION BY LIST (site);
        CREATE TABLE shard_0 PARTITION OF shards FOR VALUES IN (0, 2, 4);
        CREATE FOREIGN TABLE shard_1 PARTITION OF shards FOR VALUES IN (1, 3)
            SERVER there OPTIONS (table_name 'shard');
        SET enable_partitionwise_aggregate = on""")


def main(build, count="100000"):
    with server.servers(build, [], []) as (near, far):
        here, there = near.connect(), far.connect()
        for connection in here, there:
            rows(connection, "CREATE EXTENSION trelvonunits")
        rows(there, "CREATE TABLE shard (id int, site int, x float8, formula text)")
        connect_servers(here, far)
        rows(here, f"CREATE TABLE one AS SELECT i AS id, i % 5 AS site, i / 7::float8 AS x, "
                   f"i || ' ft + 1 in' AS formula FROM generate_series(1, {count}) i;"
                   "INSERT INTO shards SELECT * FROM one; ANALYZE one; ANALYZE shards")
        far_count = rows(there, "SELECT count(*) FROM shard")[0][0]
        assert 0 < far_count < int(count)
        plan = "\n".join(row[0] for row in rows(here, "EXPLAIN (VERBOSE) " + QUERY.format("shards")))
        print(plan)
        remote = next(line for line in plan.split("\n") if "Remote SQL" in line)
        assert "sum(public.units_convert(x, 'ft'" in remote and "GROUP BY 1" in remote, remote
        assert "WHERE ((public.units_convert(x" in remote, remote
        for query in QUERY, TOTAL:
            assert rows(there, KILL) == [(True,)]  # the next query connects again
            assert (sorted(rows(here, query.format("shards"))) ==
                    sorted(rows(here, query.format("one")))), query
        try:
            rows(here, "SELECT site, max(units_convert(x, formula, 'm')) FROM shards GROUP BY site")
        except Exception as error:
            assert error.pgcode == "TU001", error
        else:
            raise AssertionError("a refusal of the other server was lost")


if __name__ == "__main__":
    main(*sys.argv[1:])
