"""Runs the sessions of some pages and compares what the program prints: in blocks of sh-session,
"$ COMMAND", with lines that begin with "> " going on, then the output of both streams, then "[N]"
if the status is not 0. The sessions of a page share a folder.

    pages.py PROGRAM [--update] PAGE...    --update writes what is printed into the pages
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"(?<=^```sh-session\n).*?(?=^```)", re.M | re.S)
STEP = re.compile(r"^\$ .*\n(?:> .*\n)*", re.M)


def run(command, program, folder):
    """What a shell prints, with the status as the pages have it."""
    path = f"{pathlib.Path(program).resolve().parent}:{os.environ['PATH']}"
    done = subprocess.run(["bash", "-c", command], cwd=folder, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, timeout=300,
                          env={**os.environ, "PATH": path, "LC_ALL": "C"})
    printed = done.stdout.decode("utf-8", "backslashreplace")
    if printed and not printed.endswith("\n"):
        printed += "\n"
    return printed + (f"[{done.returncode}]\n" if done.returncode else "")


def run_block(block, program, folder):
    """The block as it would be written now."""
    commands = STEP.findall(block)
    return "".join(step + run(re.sub(r"^[$>] ", "", step, flags=re.M), program, folder)
                   for step in commands)


def main(program, *pages):
    update, failed = "--update" in pages, False
    for page in (pathlib.Path(name) for name in pages if name != "--update"):
        text = page.read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as folder:
            for block in BLOCK.findall(text):
                now = run_block(block, program, folder)
                if now != block:
                    failed = True
                    print(f"{page} has\n{block}and now it is\n{now}")
                    text = text.replace(block, now)
        if update:
            page.write_text(text, encoding="utf-8")
    return failed and not update


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
