#!/usr/bin/env python3
"""Compares `trelvon convert --column` with mawk, which only multiplies the column: the ratio of CPU
times, the median of five rounds, and the peak memory for many rows and for few.

    table_speed.py [ROWS]    10,000,000 by default; the release preset must have been built
"""
import os
import pathlib
import random
import statistics
import subprocess
import sys
import tempfile

TRELVON = str(pathlib.Path(__file__).resolve().parents[1] / "build/release/tools/trelvon/trelvon")
OURS = [TRELVON, "convert", "--column", "3", "--from", "ft", "--to", "m"]
THEIRS = ["mawk", "-F,", "-v", "OFS=,", "{ $3 = $3 * 0.3048; print }"]
FEW = 1000


def write_table(path, count):
    """Repeats 100,000 rows."""
    picks = random.Random(1)
    rows = [f"{row},name{row % 97},{picks.uniform(0, 1000):.3f},{picks.randrange(9999)}\n"
            for row in range(min(count, 100000))]
    with open(path, "w", encoding="ascii") as table:
        table.write("id,name,width,count\n")
        for _ in range(max(count // len(rows), 1)):
            table.writelines(rows)


def run(command, path):
    """CPU seconds, and the peak memory in KB."""
    with open(path, "rb") as table:
        child = subprocess.Popen(command, stdin=table, stdout=subprocess.DEVNULL)
        _, status, used = os.wait4(child.pid, 0)
    assert status == 0
    return used.ru_utime + used.ru_stime, used.ru_maxrss


def main(count="10000000"):
    with tempfile.TemporaryDirectory() as folder:
        many, few = os.path.join(folder, "many.csv"), os.path.join(folder, "few.csv")
        write_table(many, int(count))
        write_table(few, FEW)
        rounds = [(run(OURS, many), run(THEIRS, many)) for _ in range(5)]
        time = statistics.median(ours[0] / theirs[0] for ours, theirs in rounds)
        memory = statistics.median(ours[1] for ours, _ in rounds) / run(OURS, few)[1]
    print(f"{count} rows: {time:.2f} of mawk's time, {memory:.2f} of the memory for {FEW} rows")


if __name__ == "__main__":
    main(*sys.argv[1:])
