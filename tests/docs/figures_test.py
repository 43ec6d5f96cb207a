"""Every figure of the pages has a command of the repository beside it that prints it.

A figure is a number of what is measured or counted. The page has it in a block of what a command
printed too, or says which script has written the page.
"""

import json
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "scripts"))
import figures  # noqa: E402

FIGURE = re.compile(
    r"(?<![\w.,^-])(\d[\d,.]*\d|\d) ?(?:ns|µs|ms|seconds|minutes|%|MB|times (?:faster|slower)|"
    r"allocations|instructions|operations|shapes|units|definitions)(?!\w)")
BLOCK = re.compile(r"^```.*?^```", re.M | re.S)
SPAN = re.compile(r"`[^`]*`")
WRITTEN = re.compile(r"(?:Written|made from .*) by\s+`(?:\./)?(scripts/\S+)`", re.S)
PROGRAM = re.compile(r"(?<![\w/])(?:\./)?(build/\w+/[\w/]++|scripts/\w+\.(?:sh|py))(?![.-])")


def unprinted(page):
    """The figures of a page's sentences that none of its blocks has."""
    blocks = "".join(BLOCK.findall(page))
    return [found[0] for found in FIGURE.finditer(SPAN.sub("", BLOCK.sub("", page)))
            if not re.search(rf"(?<![\d.]){found[1].replace(',', '')}(?![\d.]*\d)", blocks)]


def is_there(program):
    """Whether a script exists, or a target that is built at that place by a preset."""
    if program.startswith("scripts/"):
        return (ROOT / program).is_file()
    _, preset, *folder, name = program.split("/")
    presets = json.loads((ROOT / "CMakePresets.json").read_text())["configurePresets"]
    if preset != "benchmark" and preset not in [known["name"] for known in presets]:
        return False
    targets = ROOT.joinpath(*folder, "CMakeLists.txt")
    target = re.compile(rf"\b{name.removeprefix(folder[-1] + '_')}\b")
    return targets.is_file() and target.search(targets.read_text()) is not None


class Figures(unittest.TestCase):
    def test_are_told_from_other_numbers(self):
        page = "The 3,101 allocations of 41 operations, `5 s`, 2^20 units.\n```\n3101 of 41\n```\n"
        self.assertEqual(unprinted(page), [])
        self.assertEqual(unprinted(page.replace("of 41\n", "of 410\n")), ["41 operations"])

    def test_are_printed_by_commands_that_exist(self):
        for page in figures.PAGES:
            text = page.read_text(encoding="utf-8")
            for program in PROGRAM.findall(text):
                with self.subTest(page, program=program):
                    self.assertTrue(is_there(program))
            if not WRITTEN.search(text):
                with self.subTest(page):
                    self.assertEqual(unprinted(text), [])


if __name__ == "__main__":
    unittest.main()
