#!/usr/bin/env python3
"""Runs the commands in the ```console blocks of the pages again: "$ COMMAND", then its output.

    figures.py           writes the current output into the pages
    figures.py --check   fails if the output differs from the page
    figures.py --list    prints the commands

The programs must have been built with the release preset.
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
PAGES = [ROOT / "README.md", ROOT / "schemas" / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
BLOCK = re.compile(r"(?<=^```console\n)\$ (?P<command>.*)\n(?P<printed>(?:(?!```).*\n)*)", re.M)


def main(mode=""):
    stale = failed = 0
    for page in PAGES:
        text = page.read_text(encoding="utf-8")
        for block in BLOCK.finditer(text):
            print(f"{page.relative_to(ROOT)}: {block['command']}", flush=True)
            if mode == "--list":
                continue
            done = subprocess.run(["bash", "-o", "pipefail", "-c", block["command"]], cwd=ROOT,
                                  stdout=subprocess.PIPE, text=True, check=False)
            if done.returncode != 0:
                failed += 1
                subprocess.run(["bash", "-c", block["command"].partition(" | ")[0]], cwd=ROOT,
                               check=False)
                continue
            print(done.stdout, flush=True)
            if done.stdout != block["printed"]:
                stale += 1
                print(f"The page had:\n{block['printed']}")
                text = text.replace(block[0], f"$ {block['command']}\n{done.stdout}")
        if mode == "":
            page.write_text(text, encoding="utf-8")
    return 1 if failed or (stale and mode == "--check") else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
