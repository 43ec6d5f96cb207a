"""Replays the calls of the JSON files beside it by a runner, and compares what came of them.

    cases.py LANGUAGE RUNNER...             fails on a difference
    cases.py LANGUAGE RUNNER... --update    writes what came of the calls into the files
    cases.py --page [--update]              compares or writes the tables of docs/languages.md
    cases.py --json LANGUAGE                prints the files, without what the language leaves out

A file is {"folders": [...], "cases": [...]}: the folders of schemas/ that an engine is filled with,
and calls in order. A case has a "call", its arguments "with", and what it "gives": a text, bits of a
double, or a list of them; or else the "status" and "message" of its refusal, and in a formula the
"span". "not" tells why a language cannot say it; left_out.json tells it by rules, which have a
"reason" and regular expressions for the "file", the "call", its arguments "with", the "status" or the
"message". A runner of a language that has messages alone says that a call is "REFUSED".
"""
import collections
import json
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
RULES = HERE / "left_out.json"
LANGUAGES = ("c++", "c", "python", "sql", "postgresql", "trelvon", "wasm")
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
    done = subprocess.run([*runner, *folders], input=lines.encode(), cwd=ROOT, check=False,
                          stdout=subprocess.PIPE)
    outcomes = [outcome(line) for line in done.stdout.decode().split("\n")[:-1]]
    if done.returncode != 0 or len(outcomes) != len(cases):
        raise SystemExit(f"{runner[0]} ended with {done.returncode} after {len(outcomes)} calls")
    return outcomes


def without(case):
    return {key: value for key, value in case.items()
            if key not in ("gives", "status", "message", "span")}


def spelled(file):
    """One case a line."""
    cases = ",\n ".join(json.dumps(case, ensure_ascii=False) for case in file["cases"])
    return f'{{"folders": {json.dumps(file["folders"])}, "cases": [\n {cases}\n]}}\n'


def shortened(text):
    return text if len(text) < 1000 else text[:1000] + " ..."


def read_files():
    return {path: json.loads(path.read_text(encoding="utf-8"))
            for path in sorted(set(HERE.glob("*.json")) - {RULES})}


class LeftOut:
    """Tells why languages cannot say cases."""

    def __init__(self):
        self.rules = json.loads(RULES.read_text(encoding="utf-8"))

    def reason(self, language, path, case):
        """Or None, if the language can."""
        if language in case.get("not", {}):
            return case["not"][language]
        of_case = {"file": path.name, "call": case["call"], "status": case.get("status", "OK"),
                   "message": case.get("message", ""),
                   "with": "\t".join(map(escaped, case.get("with", [])))}
        for rule in self.rules.get(language, []):
            if all(re.search(pattern, of_case[key]) for key, pattern in rule.items()
                   if key != "reason"):
                return rule["reason"]
        return None

    def sayable(self, language, path, file):
        return [case for case in file["cases"] if self.reason(language, path, case) is None]

    def unfounded(self, files):
        """What is left out without a reason, or for a language that is none."""
        told = [(f"{path.name}: {json.dumps(without(case))}", *left)
                for path, file in files.items() for case in file["cases"]
                for left in case.get("not", {}).items()]
        told += [(RULES.name, language, rule.get("reason", ""))
                 for language, rules in self.rules.items() for rule in rules]
        return [f"{where}: {language!r}: {reason!r}" for where, language, reason in told
                if language not in LANGUAGES or not reason.strip()]


def agree(got, case):
    if got.get("status") == "REFUSED":
        return got["message"] == case.get("message")
    return got == {key: value for key, value in case.items() if key not in without(case)}


def summary(files, left_out):
    """How many cases each language replays, and which it leaves out, as tables of a page."""
    lines = ["| cases | " + " | ".join(LANGUAGES) + " |", "|---" * (len(LANGUAGES) + 1) + "|"]
    reasons = collections.Counter()
    for path, file in files.items():
        left = [(language, reason) for case in file["cases"] for language in LANGUAGES
                if (reason := left_out.reason(language, path, case)) is not None]
        counts = collections.Counter(language for language, _ in left)
        lines.append(f"| {path.stem}, {len(file['cases'])} | "
                     + " | ".join(str(len(file["cases"]) - counts[language]) for language in LANGUAGES)
                     + " |")
        reasons.update(left)
    lines += ["", "| language | left out | because it |", "|---|---|---|"]
    lines += [f"| {language} | {count} | {reason} |"
              for (language, reason), count in
              sorted(reasons.items(), key=lambda row: (LANGUAGES.index(row[0][0]), -row[1], row[0]))]
    return "\n".join(lines) + "\n"


def check_page(page, files, left_out, update):
    """Whether a page has the summary between its marks."""
    head, mark, rest = page.read_text(encoding="utf-8").partition("<!-- cases -->\n")
    old, end, tail = rest.partition("<!-- end of cases -->")
    new = "\n" + summary(files, left_out) + "\n"
    if update:
        page.write_text(head + mark + new + end + tail, encoding="utf-8")
    elif new != old:
        print(f"{page} is out of date: tests/cases/cases.py --page --update")
        return 1
    return 0


def main(language, *words):
    files, left_out = read_files(), LeftOut()
    wrong = left_out.unfounded(files)
    if wrong:
        raise SystemExit("left out without a reason:\n" + "\n".join(wrong))
    if language == "--json":
        print(json.dumps({path.name: {**file, "cases": left_out.sayable(words[0], path, file)}
                          for path, file in files.items()}))
        return 0
    if language == "--page":
        return check_page(ROOT / "docs" / "languages.md", files, left_out, "--update" in words)
    return replay_all(language, files, left_out, [word for word in words if word != "--update"],
                      "--update" in words)


def replay_all(language, files, left_out, runner, update):
    count, reasons, differences = 0, collections.Counter(), []
    for path, file in files.items():
        cases = []
        for case in file["cases"]:
            reason = left_out.reason(language, path, case)
            if reason is None:
                cases.append(case)
            else:
                reasons[reason] += 1
        for case, got in zip(cases, replay(runner, file["folders"], cases)):
            count += 1
            if not agree(got, case):
                differences.append(f"{path.name}: {json.dumps(without(case))}\n  gives {got}")
                if update:
                    bare = without(case)
                    case.clear()
                    case.update({**bare, **got})
        if update:
            path.write_text(spelled(file), encoding="utf-8")
    print("\n".join(map(shortened, differences[:20])))
    print(f"{language}: {count} cases, {len(differences)} differ")
    for reason, number in reasons.items():
        print(f"  left out: {number}, {reason}")
    return 1 if differences or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
