"""Formulas made from the rules of docs/grammar.md are read: grammar_test.py PROGRAM."""
import json
import pathlib
import random
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "scripts"))
import railroad  # noqa: E402

COUNT = 2000
# A reason of the evaluation: the formula was read.
READ = {"done", "units-differ", "units-do-not-fit", "divisor-near-zero", "undefined-power",
        "exponent-has-units", "power-of-no-units", "outside-domain", "out-of-range",
        "input-has-units", "symbol-after-units", "has-units"}


def formulas(page):
    rules = {name: rule for block in railroad.blocks_of(page) for name, rule in block.items()}
    number = rules["number"]
    rules |= {"number": lambda chance: railroad.sentence(rules, number, chance).replace(" ", ""),
              "digits": lambda chance: str(chance.randrange(1, 100)),
              "suffix": lambda chance: chance.choice(["ft", "m", "kg", "°C", "m/s", "%"]),
              "prefix": lambda chance: "$", "variable": lambda chance: "width"}
    chance = random.Random(1)
    return [railroad.sentence(rules, rules["formula"], chance) for _ in range(COUNT)]


def main(program):
    texts = formulas((ROOT / "docs" / "grammar.md").read_text(encoding="utf-8"))
    page = (ROOT / "docs" / "value-text.md").read_text(encoding="utf-8")
    with tempfile.TemporaryDirectory() as folder:
        for number, dollar in enumerate(re.findall(r"^```json\n(.*?)^```", page, re.M | re.S)):
            pathlib.Path(folder, "own").mkdir(exist_ok=True)
            pathlib.Path(folder, "own", f"{number}.json").write_text(dollar, encoding="utf-8")
        lines = "".join(f"explain --json --set width=3 -- {shlex.quote(text)}\n" for text in texts)
        done = subprocess.run([program, "--load", folder], input=lines, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=False, encoding="utf-8")
    reasons = [json.loads(line)["reason"] for line in done.stdout.splitlines()]
    unread = [(text, reason) for text, reason in zip(texts, reasons) if reason not in READ]
    print(f"{len(reasons)} formulas, {reasons.count('done')} with a value", *unread, sep="\n")
    return len(reasons) != COUNT or bool(unread)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
