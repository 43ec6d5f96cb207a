"""Holds the prompt to what a terminal shows: its recordings on pages, keys, signals and history.

    prompt_test.py PROGRAM [--update] PAGE...    --update writes what is shown into the pages
"""
import fcntl
import os
import pathlib
import pty
import re
import select
import signal
import struct
import sys
import tempfile
import termios
import time
import unittest

RECORDING = re.compile(r"(?<=^```text\n)> .*?(?=^```)", re.M | re.S)
UPDATE = "--update" in sys.argv
PROGRAM, *PAGES = [os.path.abspath(word) for word in sys.argv[1:] if word != "--update"]


def screen(text):
    """The lines that a terminal shows."""
    lines, column = [""], 0
    for c in re.sub(r"\x1b\[\d*[AJ]", "", text):
        if c == "\n":
            lines.append("")
        elif c in "\r\b":
            column = 0 if c == "\r" else column - 1
        elif c != "\a":
            lines[-1] = lines[-1][:column].ljust(column) + c + lines[-1][column + 1:]
            column += 1
    return [line.rstrip() for line in lines]


class Terminal:
    def __init__(self, home, *arguments, **variables):
        self.text = ""
        files = pty.openpty()
        self.before = termios.tcgetattr(files[1])
        for file in files:
            os.close(file)
        self.pid, self.file = pty.fork()
        if self.pid == 0:
            self.file = 0
            os.chdir(home)
            self.resize(100)
            os.execve(PROGRAM, [PROGRAM, *arguments], {
                "HOME": home, "TERM": "dumb", "NO_COLOR": "1", "LC_ALL": "C", **variables})
        self.wait(r"> \Z")

    def resize(self, columns):
        fcntl.ioctl(self.file, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))

    def wait(self, pattern):
        """Reads until what came since the last keys has the pattern. None: until the end."""
        end = time.monotonic() + 30
        while pattern is None or not re.search(pattern, self.text):
            assert select.select([self.file], [], [], end - time.monotonic())[0], self.text
            try:
                self.text += os.read(self.file, 9999).decode()
            except OSError:  # the terminal is closed
                break
        return screen(self.text)

    def type(self, keys, pattern=r"\n> \Z"):
        self.text = ""
        os.write(self.file, keys.encode())
        return self.wait(pattern)

    def end(self, keys="\x04"):
        """The status, with the terminal as it was before."""
        if keys:
            self.type(keys, None)
        assert termios.tcgetattr(self.file) == self.before
        status = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
        os.close(self.file)
        return status


class Prompt(unittest.TestCase):
    def setUp(self):
        try:
            for file in pty.openpty():
                os.close(file)
        except OSError as error:  # as in containers
            self.skipTest(str(error))
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = folder.name

    def test_recordings_on_pages_are_what_a_terminal_shows(self):
        for page in map(pathlib.Path, PAGES):
            text = page.read_text(encoding="utf-8")
            for block in RECORDING.findall(text):
                terminal = Terminal(self.home)
                shown = [line for keys in re.findall("^> (.*)\n", block, re.M)
                         for line in ["> " + terminal.type(keys + "\r")[0],
                                      *screen(terminal.text)[1:-1]]]
                terminal.end()
                now = "\n".join(shown) + "\n"
                if UPDATE:
                    page.write_text(text := text.replace(block, now), encoding="utf-8")
                else:
                    self.assertEqual(now, block)

    def test_tab_completes(self):
        terminal = Terminal(self.home)
        terminal.type("room height = 2 ft\r")
        for typed, completed in (
                ("con", "convert "), ("li", "li"), ("qui", "quit "), ("5 kiloge", "5 kiloge"),
                ("2*(roo", "2*(room height "), ("5 kilomolePerH", "5 kmol/h "), ("3ft/s^", "3ft/s^2 "),
                ("1 ft + 3*acr", "1 ft + 3*acres "), ("= kilometer per h", "= kilometer per hour "),
                ("convert 5 ft kilometerPerHo", "convert 5 ft kilometerPerHour "),
                ("convert 5 ft in --pl", "convert 5 ft in --places "),
                ("convert 1 KILOMETERPERHO", "convert 1 kilometerPerHour "),
                ("lint --format s", "lint --format sarif "), ("list q", "list quantities "),
                ('eval "3*roo', 'eval "3*room height '),
                ("format 5 --as feetAndI", "format 5 --as feetAndInches "),
                ("lint .lo", "lint .local/"),
                ("diff .local/state/trelvon/h", "diff .local/state/trelvon/history "),
                ("explain --to m roo", "explain --to m roo"),
                ("explain 2*kilomolePerH", "explain 2*kmol/h "),
                ("new unit x --fro", "new unit x --from "), ("frob '\"x", "frob '\"x")):
            with self.subTest(typed):
                shown = terminal.type(typed + "\t|", r"\|\Z")
                terminal.type("\x03")
                self.assertEqual(shown[-1].removeprefix("> "), completed + "|")
        self.assertEqual(terminal.type("list \t|", r"\|\Z")[1:],
                         ["dimensions  factors     quantities  symbols     units", "> list |"])
        terminal.type("\x03")
        self.assertEqual(terminal.end(), 0)

    def test_lines_are_remembered_and_nobody_else_reads_them(self):
        for variables, name in (({}, ".local/state"), ({"XDG_STATE_HOME": self.home + "/mine"}, "mine")):
            first = Terminal(self.home, **variables)
            first.type("2 µm\r")
            first.type("frob\r")
            self.assertEqual(first.end(), 0)
            file = pathlib.Path(self.home, name, "trelvon/history")
            self.assertEqual(file.read_text("utf-8"), "2 µm\nfrob\n")
            self.assertEqual([path.stat().st_mode & 0o777 for path in (file, file.parent)], [0o600, 0o700])
            file.write_text("a\n" * 2500 + "b\n3 µm\nc\n", "utf-8")
            second = Terminal(self.home, **variables)
            self.assertEqual(second.type("\x10\x10\r")[-3:-1][0], "3e-06 meter  (length)")
            second.end()
            lines = file.read_text("utf-8").splitlines()
            self.assertEqual((len(lines), lines[-3:]), (1001, ["3 µm", "c", "3 µm"]))
            self.assertEqual(file.stat().st_mode & 0o777, 0o600)

    def test_a_history_that_cannot_be_written_is_told_once(self):
        pathlib.Path(self.home, ".local").touch()
        terminal = Terminal(self.home)
        self.assertIn("cannot write the history", "".join(terminal.type("1\r")))
        self.assertEqual(terminal.type("2\r"), ["2", "2", ">"])
        terminal.end()

    def test_ctrl_c_drops_the_line_and_a_signal_leaves_the_terminal_as_it_was(self):
        for keys, status in (("\x04", 0), ("quit\r", 0), (signal.SIGTERM, -15), (signal.SIGHUP, -1)):
            terminal = Terminal(self.home)
            terminal.type("2 f", "2 f")
            self.assertEqual(terminal.type("\x03"), ["^C", ">"])
            self.assertEqual(terminal.type("3 °C\r")[1], "276.15 kelvin (temperature)  (temperature)")
            if isinstance(keys, int):
                os.kill(terminal.pid, keys)
                terminal.wait(None)
                keys = ""
            self.assertEqual(terminal.end(keys), status)

    def test_a_resized_window_shows_the_line_again(self):
        terminal = Terminal(self.home)
        terminal.type("1 ft + 2 ft + 3 ft", "3 ft")
        terminal.text = ""
        terminal.resize(12)
        self.assertEqual("".join(terminal.wait(r"3 ft\Z")), "> 1 ft + 2 ft + 3 ft")
        self.assertIn("1.8288", terminal.type("\r")[1])
        terminal.end()

    def test_a_stopped_program_goes_on(self):
        terminal = Terminal(self.home)
        terminal.type("2 f", "2 f")
        os.kill(terminal.pid, signal.SIGSTOP)
        termios.tcsetattr(terminal.file, termios.TCSANOW, terminal.before)  # as shells do
        terminal.text = ""
        os.kill(terminal.pid, signal.SIGCONT)
        terminal.wait("> 2 f")
        self.assertIn("0.6096", terminal.type("t\r")[1])
        terminal.end()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
