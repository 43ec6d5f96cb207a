"""Holds the program to what no page shows: examples of --help, random tables, and broken worlds."""
import csv
import io
import json
import os
import pathlib
import pty
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import pages

PROGRAM = sys.argv.pop(1)


def run(*arguments, data=b"", **others):
    return subprocess.run([PROGRAM, *arguments], input=data, capture_output=True, check=False,
                          timeout=120, **others)


def command_names():
    rows = run("--help").stdout.decode().split("Commands:\n")[1].split("\n\n")[0]
    return re.findall(r"^  (\w+)", rows, re.M)


# Arguments with which each command prints something; FOLDER holds a definition. "--strict" alone
# reads lines.
CALLS = {
    "bundle": ["FOLDER", "--out", "out.bundle"], "convert": ["5", "ft", "in"],
    "diff": ["FOLDER", "EMPTY"], "eval": ["2 ft"], "explain": ["2 ft"], "format": ["2"],
    "lint": ["FOLDER"], "list": ["units"], "names": ["width"],
    "new": ["factor", "two", "--value", "2", "--in", "NEW"], "show": ["mile"],
    "--strict": [], "completion": ["zsh"], "manual": ["eval"]}
WITHOUT_DEFINITIONS = {"bundle", "completion", "diff", "manual"}
READ_FOLDERS = {"bundle": ["NOWHERE", "--out", "x"], "diff": ["NOWHERE", "FOLDER"],
                "lint": ["NOWHERE"]}


class Tool(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("FOLDER", "EMPTY"):
            pathlib.Path(self.folder, name, "units").mkdir(parents=True)
        pathlib.Path(self.folder, "FOLDER/units/a.json").write_text(
            '{"typeid":"a.dimension:a-1.0.0","inherits":["v:dimension-1.0.0"]}')

    def calls(self, *extra, program=PROGRAM, **others):
        """Runs every command."""
        self.assertLess(set(command_names()), set(CALLS))
        for name, call in CALLS.items():
            with self.subTest(name):
                yield name, subprocess.run([program, name, *call, *extra], cwd=self.folder,
                                           input=b"2 ft\n", stderr=subprocess.PIPE, check=False,
                                           **others)
            shutil.rmtree(os.path.join(self.folder, "NEW"), ignore_errors=True)

    def test_every_command_has_two_examples_that_print_what_they_say(self):
        for name in [*command_names(), "completion", "manual"]:
            text = run(name, "--help").stdout.decode().split("Examples")[1].split("\n", 1)[1]
            block = re.sub(r"^  ", "", text, flags=re.M)
            with self.subTest(name):
                self.assertEqual(len(pages.STEP.findall(block)), 2)
                self.assertEqual(pages.run_block(block, PROGRAM, self.folder), block)

    def test_units_that_the_index_loads_are_those_of_the_catalog(self):
        index = pathlib.Path(PROGRAM).with_name("catalog.index").read_text(encoding="utf-8")
        names = re.findall(r"^name\t(.*)\t(.*)$", index, re.M)
        for name, unit in random.Random(1).sample(names, 12):
            by_index = run("convert", "1.5", "--json", "--", name, unit).stdout
            self.assertIn(unit.encode(), by_index, name)
            self.assertEqual(run("convert", "(1.5)", "--json", "--", name, unit).stdout, by_index)

    def test_a_closed_output_and_a_full_disk_are_told(self):
        with open("/dev/full", "wb") as full:
            for out in ({"stdout": full}, {"preexec_fn": lambda: os.close(1)}):
                for name, done in self.calls(**out):
                    self.assertEqual((name, done.returncode), (name, 3))
                    self.assertIn(b"cannot write to standard output", done.stderr)

    def test_every_command_prints_one_object_if_asked(self):
        for others in ((), ("--help",), ("--version",)):
            for _, done in self.calls("--json", *others, stdout=subprocess.PIPE):
                self.assertIsInstance(json.loads(done.stdout), dict)

    def test_a_closed_pipe_ends_it_as_shells_have_it(self):
        command = f"'{PROGRAM}' list units --json; echo $? >&2"
        done = subprocess.Popen(["bash", "-c", command], stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)
        done.stdout.close()
        self.assertEqual(done.stderr.read(), b"141\n")
        done.wait()
        done.stderr.close()

    def test_colors_are_for_terminals(self):
        for variables, has_colors in (({}, True), ({"NO_COLOR": ""}, True), ({"NO_COLOR": "1"}, False)):
            try:
                ours, terminal = pty.openpty()
            except OSError as error:  # as in containers
                self.skipTest(str(error))
            subprocess.run([PROGRAM, "explain", "3 *"], stdout=terminal, check=False,
                           env={**os.environ, **variables})
            self.assertEqual(b"\x1b[" in os.read(ours, 9999), has_colors)
            os.close(ours)
            os.close(terminal)

    def test_a_watched_folder_is_reported_on_each_save(self):
        command = [PROGRAM, "lint", "FOLDER", "--watch", "--errors-only"]
        with subprocess.Popen(command, cwd=self.folder, stdout=subprocess.PIPE) as watching:
            self.assertTrue(watching.stdout.readline().startswith(b"0 errors"))
            pathlib.Path(self.folder, "FOLDER/units/a.json").write_text("{")
            self.assertIn(b"a.json:1:2: error: ", watching.stdout.readline())
            watching.kill()

    def test_a_program_without_its_catalog_says_where_it_looked(self):
        alone = shutil.copy(PROGRAM, self.folder)
        for name, done in self.calls(program=alone, stdout=subprocess.PIPE):
            needs = name not in WITHOUT_DEFINITIONS
            self.assertEqual((done.returncode, b"catalog.bundle" in done.stderr),
                             (3, True) if needs else (int(name == "diff"), False))
        for name, done in self.calls("--only", program=alone, stdout=subprocess.PIPE):
            refuses = name in ("convert", "eval", "explain", "show", "--strict", "diff")
            self.assertEqual((name, done.returncode), (name, int(refuses)))
            self.assertTrue(done.stderr or done.stdout or name == "list")

    def test_a_folder_that_is_none_is_named(self):
        for name, call in {**CALLS, **READ_FOLDERS}.items():
            if name in WITHOUT_DEFINITIONS - set(READ_FOLDERS):
                continue
            call = call + ([] if name in READ_FOLDERS else ["--load", "NOWHERE"])
            with self.subTest(name):
                done = run(name, *call, cwd=self.folder)
                self.assertEqual((done.returncode, done.stdout), (3, b""))
                self.assertIn(b'"NOWHERE"', done.stderr)

    def test_files_appear_whole_or_not_at_all(self):
        texts = [f'{{"typeid":"a.unit:u{number}-1.0.0"}}' * 99 for number in range(300)]
        for number, text in enumerate(texts):
            pathlib.Path(self.folder, f"FOLDER/units/{number:03}.json").write_text(text)
        run("bundle", "FOLDER", "--out", "whole", cwd=self.folder)
        whole = pathlib.Path(self.folder, "whole").read_bytes()
        for stop in range(40):
            with subprocess.Popen([PROGRAM, "bundle", "FOLDER", "--out", "new/out"],
                                  cwd=self.folder, stdout=subprocess.DEVNULL) as writing:
                time.sleep(stop / 2000)
                writing.send_signal(signal.SIGINT)
            for path in pathlib.Path(self.folder, "new").glob("*"):
                self.assertEqual((path.name, path.read_bytes() == whole), ("out", True))
                path.unlink()
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (99, 99))  # as if it were full
        done = run("bundle", "FOLDER", "--out", "new/out", cwd=self.folder, preexec_fn=limit)
        self.assertEqual((done.returncode, os.listdir(self.folder + "/new")), (3, []))
        self.assertIn(b'cannot write "new/out"', done.stderr)

    def test_shells_and_man_read_what_is_written_for_them(self):
        done = run("manual", "--out", self.folder)
        files = [path for path in pathlib.Path(self.folder).rglob("*trelvon*")]
        self.assertEqual((done.returncode, len(files)), (0, len(command_names()) + 4))
        for command in (["bash", "-n"], ["zsh", "-n"], ["fish", "-n"], ["groff", "-man", "-ww", "-z"]):
            for path in files if shutil.which(command[0]) else []:
                if command[0] in path.parts[-3] + path.parts[-2].replace("man1", "groff"):
                    read = subprocess.run([*command, path], capture_output=True, check=False)
                    self.assertEqual((path, read.returncode, read.stderr), (path, 0, b""))
        script = run("completion", "bash").stdout.decode() + \
            '_words() { COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)); _trelvon; echo "${COMPREPLY[*]}"; }\n'
        path = f"{os.path.dirname(PROGRAM)}:{os.environ['PATH']}"
        for line, words in (("co", "convert"), ("convert --on-error ''", "stop keep empty"),
                            ("list qu", "quantities"), ("list units --of kilometerPerH", "kilometerPerHour"),
                            ("lint F", "FOLDER"), ("--color al", "always"),
                            ("--color = al", "always"), ("--color =", "auto always never"), ("diff F", "FOLDER"),
                            ("eval --fr", "--fraction"), ("eval 1 --load F", "FOLDER"), ("explain ''", "")):
            done = subprocess.run(["bash", "-c", script + "_words trelvon " + line], check=False,
                                  capture_output=True, cwd=self.folder, env={**os.environ, "PATH": path})
            self.assertEqual((line, done.stdout.decode().strip()), (line, words))

    def test_zsh_completes_options_before_operands(self):
        if not shutil.which("zsh"):
            self.skipTest("zsh is not installed")
        script = """zmodload zsh/zpty; zpty z zsh -f -i
            zpty -w z 'autoload -U compinit; compinit -u -D; source <(trelvon completion zsh)'
            zpty -w -n z $'trelvon eval --fr\t'; zpty -r -m z shown '*eval --fraction*'"""
        path = f"{os.path.dirname(PROGRAM)}:{os.environ['PATH']}"
        subprocess.run(["zsh", "-fc", script], check=True, timeout=60,
                       env={"PATH": path, "HOME": self.folder, "TERM": "dumb"})

    def test_any_bytes_reach_a_terminal_as_text(self):
        picks = random.Random(5)
        for _ in range(150):
            texts = [bytes(picks.choice((27, 10, 127, 155, 194, 45, 34, 92, picks.randrange(1, 256)))
                           for _ in range(picks.randrange(1, 12))) for _ in range(3)]
            name = picks.choice([name for name in command_names() if name not in ("new", "bundle")])
            done = run(name, *texts, cwd=self.folder) if picks.randrange(4) else run(
                data=b"\n".join(texts).replace(b"new", b""), cwd=self.folder)
            with self.subTest(name, texts=texts):
                self.assertIn(done.returncode, (0, 1, 2, 3))
                for text in (done.stdout, done.stderr):
                    self.assertFalse([c for c in text.decode() if c != "\n" and not c.isprintable()
                                      and (ord(c) < 32 or 127 <= ord(c) < 160)])


class RandomTables(unittest.TestCase):
    """Tables whose bytes are known in pieces, so that those around a converted cell are, too."""

    @staticmethod
    def number(picks):
        return picks.choice((
            repr(picks.uniform(-1e4, 1e4)), f"{picks.uniform(0, 99):.{picks.randrange(9)}f}",
            repr(picks.uniform(-1, 1) * 10.0 ** picks.randrange(-290, 290)), "0", "-0",
            str(picks.randrange(10**18)), f" {picks.randrange(99)} ", f"{picks.randrange(999)}E-3"))

    @staticmethod
    def cell(picks, text, separator):
        if picks.random() < 0.3 or any(c in text for c in '"\r\n' + separator):
            return '"' + text.replace('"', '""') + '"'
        return text

    def table(self, picks, separator):
        """The bytes, and the same with converted values between NULs in columns 1 and 3."""
        before, after, end = "", "", picks.choice(("\n", "\r\n"))
        for row in range(picks.randrange(1, 9)):
            cells, converted = [], []
            for column in range(5):
                is_number = column in (1, 3)
                text = self.number(picks) if is_number else "".join(
                    picks.choice('ab "\n\r,;\t5\xb5') for _ in range(picks.randrange(6)))
                cells.append(self.cell(picks, text, separator))
                quote = '"' if cells[-1].startswith('"') else ""
                converted.append(f"{quote}\0{0.0 + float(text) * 0.3048!r}\0{quote}" if is_number
                                 else cells[-1])
            is_last = row > 6 and picks.random() < 0.5
            before += separator.join(cells) + ("" if is_last else end)
            after += separator.join(converted) + ("" if is_last else end)
            if is_last:
                break
        return before, after

    def test_are_converted_and_otherwise_kept(self):
        picks = random.Random(7)
        for _ in range(120):
            separator = picks.choice((",", ";", "\t", "|"))
            before, after = self.table(picks, separator)
            done = run("convert", "--no-header", "--column", "4", "--column", "2", "--from", "ft",
                       "--to", "m", "--separator", separator, data=before.encode())
            printed = done.stdout.decode()
            with self.subTest(before):
                self.assertEqual((done.returncode, done.stderr), (0, b""))
                pieces = re.split(r"\0(.*?)\0", after)
                self.assertRegex(printed, "^" + "([^,;|\t\"\r\n]*)".join(
                    re.escape(piece) for piece in pieces[::2]) + r"\Z")
                rows = list(csv.reader(io.StringIO(printed, newline=""), delimiter=separator))
                wanted = csv.reader(io.StringIO(after, newline=""), delimiter=separator)
                for row, want in zip(rows, wanted, strict=True):
                    for cell, value in zip(row, want, strict=True):
                        if "\0" in value:
                            self.assertEqual(float(cell).hex(), float(value.strip("\0")).hex())
                        else:
                            self.assertEqual(cell, value)

    def test_come_back_as_by_the_engine(self):
        numbers = [repr(random.Random(3).uniform(-1e6, 1e6)) for _ in range(500)]
        there = run("convert", "--no-header", "--column", "1", "--from", "mi", "--to", "km",
                    data="\n".join(numbers).encode()).stdout
        back = run("convert", "--no-header", "--column", "1", "--from", "km", "--to", "mi",
                   data=there).stdout.split()
        self.assertEqual([float(n) * 1609.344 / 1000 * 1000 / 1609.344 for n in numbers],
                         [float(n) for n in back])

    def test_cells_are_read_as_the_engine_reads_values(self):
        cells = ["5' 6\"", "-5' 6 1/2\"", "0x1.8p1", "5 m", "1e-7 km", "123456789012345678901",
                 "0.1e1", "9007199254740993", "3.", ".5", "4.9e-324"]
        done = run("convert", "--no-header", "--column", "1", "--from", "ft", "--to", "mm",
                   data="\n".join(cells).encode())
        single = [run("convert", cell, "ft", "mm").stdout for cell in cells]
        self.assertEqual(done.stdout.splitlines(), [text.rstrip() for text in single])

    def test_a_row_may_be_long_but_not_endless(self):
        call = ("convert", "--no-header", "--column", "2", "--from", "ft", "--to", "ft")
        done = run(*call, data=b'"' + b"a\n" * (9 << 20) + b'",1')
        self.assertEqual((done.returncode, done.stdout[-4:]), (0, b'\n",1'))
        done = run(*call, data=b'x,1\n"' + b"a\n" * (33 << 20))
        self.assertEqual((done.returncode, done.stdout), (1, b"x,1\n"))
        self.assertIn(b"line 2: the row has more than 64 MiB", done.stderr)


if __name__ == "__main__":
    unittest.main()
