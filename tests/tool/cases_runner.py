#!/usr/bin/env -S python3 -B
"""Answers the calls of cases.py by the program $TRELVON, which reads all of them as lines. The
arguments are folders of definitions. It has messages and no statuses, so refusals are "REFUSED"; those
of formulas are told by `explain`.
"""
import json
import os
import pathlib
import shlex
import struct
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "cases"))
from cases import escaped, unescaped  # noqa: E402 (after the path)

TEXTS = ("format_fixed", "format_fractional", "display_show")
STATUSES = {"ParseException": "PARSE", "UnrecognizedIdentifierException": "UNRECOGNIZED"}


def formatted(value, option, number, symbol):
    return ["format", value, option, number] + (["--as", symbol] if symbol else [])


def formula(command, unit, text, *variables):
    named = [word for variable in variables for word in ("--set", variable)]
    return [command, text] + (["--to", unit] if unit else []) + named


def displayed(options, text, *more):
    """The options lie in a file, as a stored display does."""
    file = pathlib.Path(FOLDER.name, f"{abs(hash(options))}.json")
    file.write_text(options, encoding="utf-8")
    return ["format", text, "--display", str(file), *more]


FOLDER = tempfile.TemporaryDirectory()
COMMANDS = {
    "convert": lambda value, source, target: ["convert", value, source, target],
    "convert_named": lambda value, source, target: ["convert", value, source, target],
    "prepared": lambda source, target, value: ["convert", value, source, target],
    "format_fixed": lambda value, places, symbol, _: formatted(value, "--places", places, symbol),
    "format_fractional": lambda value, power, symbol: formatted(value, "--fraction", power, symbol),
    "convert_named": lambda value, source, target: ["convert", value, source, target],
    "display_show": displayed,
    "display_read": lambda options, text: displayed(options, text, "--read"),
    "evaluate": lambda *words: formula("eval", *words),
    "evaluate_unitless": lambda *words: formula("eval", None, *words),
    "explain_json": lambda *words: formula("explain", *words)}


def bits(value):
    return struct.pack(">d", float(value)).hex()


def span(told):
    """The place of a refusal; in what a variable was replaced by, that of the variable."""
    place = told["span"]
    while place["text"] != 0:
        place = told["texts"][place["text"]]["identifier"]
    return [str(place["begin"]), str(place["end"])]


def answer(call, printed, explained):
    told = json.loads(printed)
    if "error" not in told:
        value = told["readings"][0]["value"] if "readings" in told else told.get("value")
        return ["OK", printed if call == "explain_json" else
                told["text"] if call in TEXTS else bits(value)]
    reason = json.loads(explained)
    if "exception" in reason:
        return [STATUSES[reason["exception"]], reason["message"], *span(reason)]
    message = told["error"]["message"]
    return ["REFUSED", message.split("\n")[-1] if call == "display_read" else message]


def main():
    calls = [[None if word == "\\N" else unescaped(word) for word in line.split("\t")]
             for line in sys.stdin.read().split("\n")[:-1]]
    lines = []
    for call, *words in calls:
        lines.append(COMMANDS[call](*words))
        lines.append(["explain", *lines[-1][1:]] if lines[-1][0] == "eval" else ["explain", "1"])
    folders = [word for folder in sys.argv[1:] for word in ("--load", folder)]
    done = subprocess.run([os.environ["TRELVON"], "--json", "--only", *folders], check=False,
                          input="".join(shlex.join(line) + "\n" for line in lines), text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    printed = iter(done.stdout.split("\n"))
    for call, *_ in calls:
        print("\t".join(map(escaped, answer(call, next(printed), next(printed)))))


main()
