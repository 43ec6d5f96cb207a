"""Replays the table of cases in a server of its own: cases_test.py BUILD [--update]"""
import os
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path[:0] = [str(ROOT / "tests/cases"), str(ROOT / "scripts")]
import cases  # noqa: E402
import postgresql_server as server  # noqa: E402


def main(build, *options):
    with server.servers(build, []) as (one,):
        server.rows(one.connect(), "CREATE EXTENSION trelvonunits")
        os.environ.update(one.environment())
        os.environ["PATH"] = f"{os.path.dirname(sys.executable)}:{os.environ['PATH']}"
        runner = ROOT / "tests/bindings/postgresql/cases_runner.py"
        return cases.main("postgresql", runner, *options)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
