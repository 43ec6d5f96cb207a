"""Replays the calls of the JSON files beside it by a runner, and compares what came of them.

    cases.py LANGUAGE RUNNER             fails on a difference
    cases.py LANGUAGE RUNNER --update    writes what came of the calls into the files

A file is {"folders": [...], "cases": [...]}: the folders of schemas/ that an engine is filled with,
and calls in order. A case has a "call", its arguments "with", and what it "gives": a text, bits of a
double, or a list of them; or else the "status" and "message" of its refusal, and in a formula the
"span". "not" tells why a language cannot say it; left_out.json tells it by rules, which have a
"reason" and regular expressions for the "file", the "call", its arguments "with", the "status" or the
"message". A runner of a language that has messages alone says that a call is "REFUSED".
"""
import json
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
RULES = HERE / "left_out.json"
ESCAPES = (("\\", "\\\\"), ("\t", "\\t"), ("\n", "\\n"), ("\0", "\\0"))


def escaped(text):
    if text is None:
        return "\\N"
    for byte, escape in ESCAPES:
        text = text.replace(byte, escape)
    return text


def unescaped(word):
    parts = word.split("\\\\")
    for byte, escape in ESCAPES[1:]:
        parts = [part.replace(escape, byte) for part in parts]
    return "\\".join(parts)


def outcome(line):
    status, *words = line.split("\t")
    words = [unescaped(word) for word in words]
    if status == "OK":
        return {"gives": words[0] if len(words) == 1 else words} if words else {}
    told = {"status": status, "message": words[0]}
    return {**told, "span": [int(word) for word in words[1:]]} if len(words) > 1 else told


def replay(runner, folders, cases):
    lines = "".join("\t".join(map(escaped, [case["call"], *case.get("with", [])])) + "\n"
                    for case in cases)
    folders = [str(ROOT / "schemas" / folder) for folder in folders]
    done = subprocess.run([runner, *folders], input=lines.encode(), cwd=ROOT, check=False,
                          stdout=subprocess.PIPE)
    outcomes = [outcome(line) for line in done.stdout.decode().split("\n")[:-1]]
    if done.returncode != 0 or len(outcomes) != len(cases):
        raise SystemExit(f"{runner} ended with {done.returncode} after {len(outcomes)} calls")
    return outcomes


def without(case):
    return {key: value for key, value in case.items()
            if key not in ("gives", "status", "message", "span")}


def spelled(file):
    """One case a line."""
    cases = ",\n ".join(json.dumps(case, ensure_ascii=False) for case in file["cases"])
    return f'{{"folders": {json.dumps(file["folders"])}, "cases": [\n {cases}\n]}}\n'


def reason_to_leave_out(case, file, language, rules):
    """Why the language cannot say the case, or None."""
    if language in case.get("not", {}):
        return case["not"][language]
    of_case = {"file": file, "call": case["call"], "status": case.get("status", "OK"),
               "message": case.get("message", ""),
               "with": "\t".join(map(escaped, case.get("with", [])))}
    for rule in rules.get(language, []):
        if all(re.search(pattern, of_case[key]) for key, pattern in rule.items()
               if key != "reason"):
            return rule["reason"]
    return None


def agree(got, case):
    if got.get("status") == "REFUSED":
        return got["message"] == case.get("message")
    return got == {key: value for key, value in case.items() if key not in without(case)}


def main(language, runner, *options):
    count, left_out, differences = 0, {}, []
    rules = json.loads(RULES.read_text(encoding="utf-8"))
    for path in sorted(set(HERE.glob("*.json")) - {RULES}):
        file = json.loads(path.read_text(encoding="utf-8"))
        cases = []
        for case in file["cases"]:
            reason = reason_to_leave_out(case, path.name, language, rules)
            if reason is None:
                cases.append(case)
            else:
                left_out[reason] = left_out.get(reason, 0) + 1
        for case, got in zip(cases, replay(runner, file["folders"], cases)):
            count += 1
            if not agree(got, case):
                differences.append(f"{path.name}: {json.dumps(without(case))}\n  gives {got}")
                if options:
                    bare = without(case)
                    case.clear()
                    case.update({**bare, **got})
        if options:
            path.write_text(spelled(file), encoding="utf-8")
    print("\n".join(differences[:20]))
    print(f"{language}: {count} cases, {len(differences)} differ")
    for reason, number in left_out.items():
        print(f"  left out: {number}, {reason}")
    return 1 if differences or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
