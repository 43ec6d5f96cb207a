#!/usr/bin/env python3
"""Compares `trelvon` with other programs: ratios of CPU times, medians of alternating rounds.

- `convert --column` with mawk, which only multiplies the column; and its peak memory for many rows
  with that for few
- `convert` of one number, the whole process, with udunits2, and with loading all of the catalog
- `lint` of the catalog with reading its files

    tool_speed.py [ROWS]    10,000,000 by default; the release preset must have been built
"""
import os
import pathlib
import random
import statistics
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
TRELVON = str(ROOT / "build/release/tools/trelvon/trelvon")
PACKS = [str(ROOT / "schemas" / pack) for pack in ("core", "symbols", "aliases", "legacy", "gauge")]
OURS = [TRELVON, "convert", "--column", "3", "--from", "ft", "--to", "m"]
THEIRS = ["mawk", "-F,", "-v", "OFS=,", "{ $3 = $3 * 0.3048; print }"]
FEW = 1000
PROCESSES = [  # what is compared, how often
    ("convert 1 ft m, of udunits2's time", [TRELVON, "convert", "1", "ft", "m"],
     ["udunits2", "-H", "ft", "-W", "m"], 51),
    ("convert 5 ft in, of the time with all definitions", [TRELVON, "convert", "5", "ft", "in"],
     [TRELVON, "convert", "(5)", "ft", "in"], 51),
    ("lint of the catalog, of the time to read it", [TRELVON, "lint", "--only", *PACKS],
     ["find", *PACKS, "-name", "*.json", "-exec", "cat", "{}", "+"], 9)]


def write_table(path, count):
    """Repeats 100,000 rows."""
    picks = random.Random(1)
    rows = [f"{row},name{row % 97},{picks.uniform(0, 1000):.3f},{picks.randrange(9999)}\n"
            for row in range(min(count, 100000))]
    with open(path, "w", encoding="ascii") as table:
        table.write("id,name,width,count\n")
        for _ in range(max(count // len(rows), 1)):
            table.writelines(rows)


def run(command, path=os.devnull):
    """CPU seconds, and the peak memory in KB."""
    with open(path, "rb") as table:
        child = subprocess.Popen(command, stdin=table, stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL)
        _, status, used = os.wait4(child.pid, 0)
    assert os.WIFEXITED(status) and os.WEXITSTATUS(status) < 2  # lint may find something
    return used.ru_utime + used.ru_stime, used.ru_maxrss


def main(count="10000000"):
    with tempfile.TemporaryDirectory() as folder:
        many, few = os.path.join(folder, "many.csv"), os.path.join(folder, "few.csv")
        write_table(many, int(count))
        write_table(few, FEW)
        rounds = [(run(OURS, many), run(THEIRS, many)) for _ in range(5)]
        time = statistics.median(ours[0] / theirs[0] for ours, theirs in rounds)
        memory = statistics.median(ours[1] for ours, _ in rounds) / run(OURS, few)[1]
    for what, ours, theirs, rounds in PROCESSES:
        ratio = statistics.median(run(ours)[0] / run(theirs)[0] for _ in range(rounds))
        print(f"{what}: {ratio:.2f}")
    print(f"{count} rows: {time:.2f} of mawk's time, {memory:.2f} of the memory for {FEW} rows")


if __name__ == "__main__":
    main(*sys.argv[1:])
