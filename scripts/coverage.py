#!/usr/bin/env -S python3 -B
"""Checks the coverage of the library, as measured by clang's counters, against the targets.

    coverage.py EXCEPTIONS PROFILE PROGRAM...

Every line must be executed, except those listed in EXCEPTIONS, which must not be executed. BRANCHES
percent of the branch outcomes must be covered. An outcome is covered if any instance of a template
covers it. Constant conditions, such as `while (true)`, have no outcomes.
"""
import collections
import json
import os
import re
import subprocess
import sys

import reasons

BRANCHES = 98.0  # percent
ROOT = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
OURS = ("include", "src")


def own_name(path):
    """The path relative to the root of the tree; empty for files outside of the library."""
    name = os.path.relpath(os.path.realpath(path), ROOT)
    return name if name.split(os.sep)[0] in OURS else ""


def source(name):
    with open(os.path.join(ROOT, name), encoding="utf-8") as text:
        return text.read().splitlines()


def export(profile, programs, *form):
    command = ["llvm-cov", "export", programs[0], f"--instr-profile={profile}", *form]
    command += [f"--object={program}" for program in programs[1:]]
    # Its warnings concern the `main` of the programs: the profile has only one of that name.
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    return run.stdout if run.returncode == 0 else sys.exit(run.stderr)


def line_counts(lcov):
    """How often each line was executed, by file and line number."""
    counts = {}
    for record in lcov.splitlines():
        if record.startswith("SF:"):
            name = own_name(record[3:])
        elif record.startswith("DA:") and name:
            number, count = map(int, record[3:].split(",")[:2])
            counts[name, number] = max(count, counts.get((name, number), 0))
    return counts


def branch_counts(report):
    """How often each condition was true and false, by file and position."""
    counts = collections.defaultdict(lambda: [0, 0])
    for file in json.loads(report)["data"][0]["files"]:
        name = own_name(file["filename"])
        for line, column, last_line, last_column, *met in file["branches"] if name else ():
            both = counts[name, line, column, last_line, last_column]
            both[0] += met[0]
            both[1] += met[1]
    return counts


def missed_branches(counts, lines):
    """The outcomes that were not covered, and the number of all outcomes."""
    missed, number = [], 0
    for (name, line, column, last_line, last_column), met in sorted(counts.items()):
        text = source(name)[line - 1]
        if line == last_line:
            text = text[column - 1:last_column - 1]
        if text == "true" or lines.get((name, line)) == 0:  # constant, or already missed as a line
            continue
        number += 2
        missed += [f"{name}:{line}: {text} is never {outcome}"
                   for outcome, count in zip(("true", "false"), met) if count == 0]
    return missed, number


def main(exceptions, profile, *programs):
    excepted = reasons.read(exceptions)
    lines = line_counts(export(profile, programs, "--format=lcov"))
    missed = collections.defaultdict(list)
    for (name, number), count in sorted(lines.items()):
        if count == 0 and re.search(r"\w", source(name)[number - 1]):  # not for a lone brace
            missed[f"{name}: {source(name)[number - 1].strip()}"].append(number)
    unnamed = [f"{entry} (line {number})" for entry, numbers in missed.items()
               if entry not in excepted for number in numbers]
    stale = [entry for entry in excepted if entry not in missed]
    branches, number = missed_branches(
        branch_counts(export(profile, programs, "--skip-functions")), lines)
    share = 100 * (number - len(branches)) / number

    for title, rows in (("Outcomes that no test covers", branches),
                        ("FINDINGS: lines that no test executes", unnamed),
                        ("FINDINGS: exceptions that are executed or do not exist", stale)):
        if rows:
            print(f"{title}:", *rows, sep="\n  ")
    missing = sum(map(len, missed.values()))
    print(f"{len(lines)} lines, {missing} not executed, {missing - len(unnamed)} of them excepted")
    print(f"{number} branch outcomes, {len(branches)} not covered: {share:.2f} % covered, "
          f"target {BRANCHES} %")
    return 1 if unnamed or stale or share < BRANCHES else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
