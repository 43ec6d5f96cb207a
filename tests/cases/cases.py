"""Replays the calls of the JSON files beside it by a runner, and compares what came of them.

    cases.py LANGUAGE RUNNER...             fails on a difference
    cases.py LANGUAGE RUNNER... --update    writes what came of the calls into the files
    cases.py --page [--update]              compares or writes the tables of docs/languages.md

A file is {"folders": [...], "cases": [...]}: the folders of schemas/ that an engine is filled with,
and calls in order. A case has a "call", its arguments "with", and what it "gives": a text, bits of a
double, or a list of them; or else the "status" and "message" of its refusal, and in a formula the
"span". "not" tells why a language cannot say it.
"""
import collections
import json
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
LANGUAGES = ("c++", "c", "python", "sql", "trelvon", "wasm", "postgresql")
SHOWN = LANGUAGES[:3]  # those that have a runner
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
            for path in sorted(HERE.glob("*.json"))}


def unfounded(files):
    """What is left out without a reason, or for a language that is none."""
    return [f"{path.name}: {json.dumps(without(case))}: {language!r}: {reason!r}"
            for path, file in files.items() for case in file["cases"]
            for language, reason in case.get("not", {}).items()
            if language not in LANGUAGES or not reason.strip()]


def summary(files):
    """How many cases each language replays, and which it leaves out, as tables of a page."""
    lines = ["| cases | " + " | ".join(SHOWN) + " |", "|---" * (len(SHOWN) + 1) + "|"]
    reasons = collections.Counter()
    for path, file in files.items():
        counts = collections.Counter(language for case in file["cases"] for language in SHOWN
                                     if language not in case.get("not", {}))
        lines.append(f"| {path.stem}, {len(file['cases'])} | "
                     + " | ".join(str(counts[language]) for language in SHOWN) + " |")
        reasons.update(left for case in file["cases"] for left in case.get("not", {}).items())
    lines += ["", "| language | left out | because it |", "|---|---|---|"]
    lines += [f"| {language} | {count} | {reason} |"
              for (language, reason), count in
              sorted(reasons.items(), key=lambda row: (LANGUAGES.index(row[0][0]), -row[1], row[0]))
              if language in SHOWN]
    return "\n".join(lines) + "\n"


def check_page(page, files, update):
    """Whether a page has the summary between its marks."""
    head, mark, rest = page.read_text(encoding="utf-8").partition("<!-- cases -->\n")
    old, end, tail = rest.partition("<!-- end of cases -->")
    new = "\n" + summary(files) + "\n"
    if update:
        page.write_text(head + mark + new + end + tail, encoding="utf-8")
    elif new != old:
        print(f"{page} is out of date: tests/cases/cases.py --page --update")
        return 1
    return 0


def main(language, *words):
    files = read_files()
    wrong = unfounded(files)
    if wrong:
        raise SystemExit("left out without a reason:\n" + "\n".join(wrong))
    if language == "--page":
        return check_page(ROOT / "docs" / "languages.md", files, "--update" in words)
    return replay_all(language, files, [word for word in words if word != "--update"],
                      "--update" in words)


def replay_all(language, files, runner, update):
    count, left_out, differences = 0, collections.Counter(), []
    for path, file in files.items():
        cases = [case for case in file["cases"] if language not in case.get("not", {})]
        left_out.update(case["not"][language] for case in file["cases"]
                        if language in case.get("not", {}))
        for case, got in zip(cases, replay(runner, file["folders"], cases)):
            count += 1
            if got != {key: value for key, value in case.items() if key not in without(case)}:
                differences.append(f"{path.name}: {json.dumps(without(case))}\n  gives {got}")
                if update:
                    bare = without(case)
                    case.clear()
                    case.update({**bare, **got})
        if update:
            path.write_text(spelled(file), encoding="utf-8")
    print("\n".join(map(shortened, differences[:20])))
    print(f"{language}: {count} cases, {len(differences)} differ")
    for reason, number in left_out.items():
        print(f"  left out: {number}, {reason}")
    return 1 if differences or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
