#!/usr/bin/env python3
"""Counts the instructions for each shape at a size and at twice that size, with callgrind.

    growth.py PROGRAM SIZE [--proportions | SHAPE...]

PROGRAM is robustness_Growth. Prints a table, and fails if a text twice as long costs more than 2.3
times the instructions. Without SHAPE it measures all shapes, except those of small definitions with
two dimensions blown up, which --proportions measures.
"""
import concurrent.futures
import os
import re
import subprocess
import sys

BUDGET = 2.3


def measure(program, shape, size):
    """The instructions, and the bytes of the texts."""
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", "--collect-atstart=no",
         "--toggle-collect=measured", program, shape, str(size)],
        capture_output=True, text=True, check=False)
    count = re.search(r"Collected *: *(\d+)", run.stderr)
    if run.returncode != 0 or not count or int(count[1]) == 0:
        sys.exit(f"{shape}: no instructions were counted\n{run.stdout}{run.stderr}")
    return int(count[1]), int(run.stdout.split()[0])


def main(program, size, shapes):
    if not shapes or shapes == ["--proportions"]:
        shapes = subprocess.run([program, *shapes], capture_output=True, text=True,
                                check=True).stdout.splitlines()
    size = int(size)
    # Each count is a process of its own, so all cores are busy.
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = [[pool.submit(measure, program, shape, many) for many in (size, 2 * size)]
                  for shape in shapes]
    print(f"{'shape':42} {'n = ' + str(size):>15} {'2n':>15}  ratio")
    findings = greatest = 0
    for shape, (single, double) in zip(shapes, counts):
        (once, bytes_once), (twice, bytes_twice) = single.result(), double.result()
        ratio = twice / once
        if bytes_once:
            ratio /= max(bytes_twice / bytes_once / 2, 1)
        finding = ratio > BUDGET
        findings += finding
        greatest = max(greatest, ratio)
        print(f"{shape:42} {once:15,} {twice:15,} {ratio:6.3f}"
              + ("  FINDING" if finding else ""))
    print(f"{len(shapes)} shapes, at most {greatest:.2f}, {findings} findings")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3:]))
