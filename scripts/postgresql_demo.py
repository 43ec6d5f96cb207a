#!/usr/bin/python3
"""Shows examples/postgresql.sql in a server of its own, which is gone afterward:
postgresql_demo.py BUILD
"""
import os
import pathlib
import subprocess
import sys

import postgresql_server as server

ROOT = pathlib.Path(__file__).resolve().parents[1]


def main(build):
    with server.servers(build, []) as (one,):
        subprocess.run([one.installation.bin / "psql", "-X", "-a", "-q", "-f",
                        "examples/postgresql.sql"], check=True, stderr=subprocess.STDOUT, cwd=ROOT,
                       env={**os.environ, **one.environment()})


if __name__ == "__main__":
    main(*sys.argv[1:])
