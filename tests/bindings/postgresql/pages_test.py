"""Runs the sessions of the page about the extension, and the ten queries, each in a server of its own:
pages_test.py BUILD [--update]
"""
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path[:0] = [str(ROOT / "tests/tool"), str(ROOT / "scripts")]
import pages  # noqa: E402
import postgresql_server as server  # noqa: E402


def main(build, *options):
    shown = subprocess.run([sys.executable, "-B", ROOT / "scripts/postgresql_demo.py", build],
                           check=True, stdout=subprocess.PIPE).stdout
    assert shown == (ROOT / "examples/postgresql.txt").read_bytes(), shown.decode()
    with server.servers(build, []) as (one,):
        os.environ.update(one.environment())
        return pages.main(one.installation.bin / "psql", *options,
                          str(ROOT / "docs/postgresql.md"))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
