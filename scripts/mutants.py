#!/usr/bin/env -S python3 -B
"""Mutation test: changes the library at random places and checks whether its tests detect it.

    mutants.py [--samples 300] [--seed N] [--of PATH]

Each mutant changes one condition, constant or operator of a module. It is compiled in a copy of the
tree, build/mutants, without optimization and with the assertions of the standard library. Then the
tests of its module run, followed by the other unit tests, the tests of the catalog, a host that uses
the shared library, and the fuzz targets with their kept inputs and a few random ones. The script fails unless the tests detect SHARE percent of the mutants that
compile. Lines marked as tuning are exempt (mutations.py). Other equivalent mutants, which no test can
detect, are listed in tests/mutants/equivalent.txt with a reason, by file and by the words around
them.
--of restricts the mutants to files whose path starts with PATH.
"""
import argparse
import atexit
import collections
import concurrent.futures
import glob
import json
import os
import queue
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile

import mutations
import reasons

SHARE = 90.0  # percent
ROOMS = ("model", "registry", "json", "text", "formula", "schema", "engine", "explaining", "reporting",
         "loading", "prepared", "naming", "display", "parameters")
ROOT = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
WORK = os.path.join(ROOT, "build", "mutants")
TREE = os.path.join(WORK, "tree")
BUILD = os.path.join(WORK, "build")
EQUIVALENT = os.path.join(ROOT, "tests", "mutants", "equivalent.txt")
LIBRARY = "CMakeFiles/trelvon_objects.dir/"
UNITS, CATALOG, DUMP = "tests/units_tests", "tests/catalog/catalog_tests", \
    "tests/catalog/catalog_dump"
SHARED = "libTrelvonUnits.so"
CORPUS = os.path.join(TREE, "tests", "fuzz", "corpus")
RANDOM_INPUTS = 200  # for each fuzz target
SLOW = 500  # milliseconds; slower tests run last
MOST_MEMORY = 4 << 30

Mutant = collections.namedtuple("Mutant", "file begin end new name")


def run(command, cwd, cpu_seconds=600, **more):
    """Runs a command in its own process group. Returns its exit code and output."""
    def limit():
        resource.setrlimit(resource.RLIMIT_CPU, (cpu_seconds, cpu_seconds))
        resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    process = subprocess.Popen(command, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               start_new_session=True, preexec_fn=limit, **more)
    try:  # the timeout is longer than the CPU limit, for processes that sleep
        output = process.communicate(timeout=20 * cpu_seconds)[0]
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        output = process.communicate()[0]
        return -signal.SIGXCPU, output.decode(errors="replace")
    return process.returncode, output.decode(errors="replace")


def must(command, cwd):
    code, output = run(command, cwd)
    if code != 0:
        sys.exit(f"{shlex.join(command)}\n{output[-3000:]}")
    return output


def copy_tree():
    """Copies only files that differ, so that a second run rebuilds little."""
    names = must(["git", "ls-files", "-co", "--exclude-standard"], ROOT).splitlines()
    names = [name for name in names if os.path.isfile(os.path.join(ROOT, name))]
    for folder, _, files in os.walk(TREE):
        for file in files:
            path = os.path.join(folder, file)
            if os.path.relpath(path, TREE) not in names:
                os.remove(path)
    for name in names:
        source, copy = os.path.join(ROOT, name), os.path.join(TREE, name)
        with open(source, "rb") as file:
            text = file.read()
        if os.path.exists(copy):
            with open(copy, "rb") as file:
                if file.read() == text:
                    continue
        os.makedirs(os.path.dirname(copy), exist_ok=True)
        shutil.copyfile(source, copy)
        shutil.copymode(source, copy)


class Built:
    """The build of the unchanged copy, and the commands that build its parts."""

    def __init__(self):
        copy_tree()
        must(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-D", "CMAKE_CXX_COMPILER=clang++",
              "-D", "CMAKE_BUILD_TYPE=Debug",
              "-D", "CMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS",
              "-D", "CMAKE_EXPORT_COMPILE_COMMANDS=ON", "-D", "TRELVONUNITS_EXAMPLES=OFF"], WORK)
        targets = [UNITS, CATALOG, DUMP, "tests/abi/abi_host", SHARED,
                   *(f"tests/fuzz/fuzz_{name}" for name in os.listdir(CORPUS))]
        must(["ninja", f"-j{os.cpu_count()}", *targets], BUILD)
        with open(os.path.join(BUILD, "compile_commands.json"), encoding="utf-8") as file:
            commands = [shlex.split(entry["command"]) for entry in json.load(file)]
        self.compilers = {command[command.index("-o") + 1]: command for command in commands}
        self.linkers = {target: self.linker(target) for target in targets}
        self.users = collections.defaultdict(list)  # included file to object files
        for line in must(["ninja", "-t", "deps"], BUILD).splitlines():
            if line.startswith("    "):
                path = os.path.realpath(os.path.join(BUILD, line.strip()))
                self.users[os.path.relpath(path, TREE)].append(user)
            elif line:
                user = line.split(":")[0]
        self.suites = {room: self.suites_of(room) for room in ROOMS}

    @staticmethod
    def linker(target):
        for line in must(["ninja", "-t", "commands", target], BUILD).splitlines():
            for command in line.split(" && "):
                words = shlex.split(command)
                if "-c" not in words and "-o" in words and target in words[words.index("-o") + 1]:
                    return words + ["-fuse-ld=gold"]
        return sys.exit(f"{target} is not linked")

    @staticmethod
    def suites_of(room):
        suites = set()
        for path in glob.glob(os.path.join(TREE, "tests", "unit", room, "*.cpp")):
            with open(path, encoding="utf-8") as file:
                suites.update(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+)", file.read(), re.M))
        return ":".join(form for suite in sorted(suites)
                        for form in (f"{suite}.*", f"*/{suite}.*", f"{suite}/*"))


class Lane:
    """The sources and output folder of one worker."""

    def __init__(self, number, built):
        self.built = built
        self.folder = os.path.join(WORK, f"lane{number}")
        self.tree = os.path.join(self.folder, "tree")
        shutil.rmtree(self.folder, ignore_errors=True)
        for part in ("src", "include"):
            shutil.copytree(os.path.join(TREE, part), os.path.join(self.tree, part))
        self.temporary = tempfile.mkdtemp(prefix="mutants")
        os.chmod(self.temporary, 0o755)  # some tests access it without privileges
        atexit.register(shutil.rmtree, self.temporary, ignore_errors=True)

    def path(self, *parts):
        path = os.path.join(self.folder, *parts)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        return path

    def compile(self, objects):
        """Compiles objects into this lane. Returns whether all compile."""
        for name in objects:
            command = [word.replace(TREE, self.tree)
                       if word.startswith("-I") or name.startswith(LIBRARY) else word
                       for word in self.built.compilers[name] if not word.endswith("ccache")]
            command[command.index("-o") + 1] = self.path("objects", name)
            if run(command + ["-w", f"-I{TREE}"], BUILD)[0] != 0:
                return False
        return True

    def link(self, target, objects, output):
        """Links a target. The linker keeps the first copy of an inline function: ours come first."""
        command = [word for word in self.built.linkers[target] if word not in objects]
        output = self.path(output)
        command[command.index("-o") + 1] = output
        command[1:1] = [self.path("objects", name) for name in objects
                        if name in self.built.linkers[target]]
        return output if run(command, BUILD)[0] == 0 else None

    def phases(self, objects, room, slow):
        """Yields the test phases in order: name, command."""
        def linked(target, output):
            return self.link(target, objects, output) or "/bin/false"
        units = self.path("units_tests")
        own = self.built.suites[room]
        late = ":".join(slow)
        yield "room", [units, f"--gtest_filter={own}-{late}"]
        yield "units", [units, f"--gtest_filter=*-{own}:{late}"]
        yield "catalog", [linked(CATALOG, "catalog_tests")]
        linked(SHARED, "libTrelvonUnits.so.1")
        yield "host", [os.path.join(BUILD, "tests/abi/abi_host"), os.path.join(TREE, "schemas")]
        if late:
            yield "slow", [units, f"--gtest_filter={late}"]
        yield "records", [sys.executable, "-B", os.path.join(TREE, "tests/catalog/records_test.py"),
                          linked(DUMP, "catalog_dump")]
        for name in sorted(os.listdir(CORPUS)):
            yield f"fuzz {name}", [linked(f"tests/fuzz/fuzz_{name}", f"fuzz_{name}"),
                                   os.path.join(CORPUS, name), str(RANDOM_INPUTS)]

    def test(self, objects, room, slow, limits):
        """The phase that fails, or "", and the time of each phase; None if linking fails."""
        times = {}
        if not self.link(UNITS, objects, "units_tests"):
            return None, times
        environment = dict(os.environ, TMPDIR=self.temporary, LD_LIBRARY_PATH=self.folder,
                           GTEST_FAIL_FAST="1")
        for name, command in self.phases(objects, room, slow):
            for left in os.listdir(self.temporary):
                shutil.rmtree(os.path.join(self.temporary, left), ignore_errors=True)
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            code, output = run(command, self.folder, limits.get(name, 300), env=environment)
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            times[name] = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
            self.output = output
            if code != 0:
                return ("time" if code in (-signal.SIGXCPU, -signal.SIGKILL) else name), times
        return "", times

    def judge(self, mutant, slow, limits):
        """The phase that detects the mutant; "" if none does, None if it does not compile."""
        path = os.path.join(self.tree, mutant.file)
        with open(path, encoding="utf-8") as file:
            text = file.read()
        with open(path, "w", encoding="utf-8") as file:
            file.write(text[:mutant.begin] + mutant.new + text[mutant.end:])
        try:
            users = self.built.users[mutant.file]
            library = [name for name in users if name.startswith(LIBRARY)]
            if not library or not self.compile(library):
                return None
            noticed = self.test(library, mutant.file.split("/")[1], slow, limits)[0]
            if noticed == "" and len(users) > len(library):  # what only tests instantiate
                noticed = self.test(users, mutant.file.split("/")[1], slow, limits)[0] \
                    if self.compile(users) else None
            return noticed
        finally:
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
            shutil.rmtree(self.path("objects"), ignore_errors=True)


def all_mutants(prefix):
    for room in ROOMS:
        for path in sorted(glob.glob(os.path.join(ROOT, "src", room, "*.cpp"))
                           + glob.glob(os.path.join(ROOT, "src", room, "*.h"))):
            name = os.path.relpath(path, ROOT)
            if not name.startswith(prefix):
                continue
            with open(path, encoding="utf-8") as file:
                text = file.read()
            for begin, end, new in mutations.changes(text):
                place = mutations.context(text, begin, end, new)
                yield Mutant(name, begin, end, new, f"{os.path.basename(name)}: {place}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--samples", type=int, default=300)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10 ** 6))
    parser.add_argument("--of", default="")
    options = parser.parse_args()

    equivalent = reasons.read(EQUIVALENT)
    mutants = list(all_mutants(options.of))
    names = {mutant.name for mutant in all_mutants("")}
    stale = [name for name in equivalent if name not in names]
    sample = random.Random(options.seed).sample(mutants, min(options.samples, len(mutants)))
    print(f"seed {options.seed}: {len(sample)} of {len(mutants)} mutants", flush=True)

    built = Built()
    lanes = queue.Queue()
    for number in range(os.cpu_count()):
        lanes.put(Lane(number, built))
    slow, limits = measure(lanes.queue[0])

    def judge(mutant):
        lane = lanes.get()
        try:
            return mutant, lane.judge(mutant, slow, limits)
        finally:
            lanes.put(lane)

    verdicts = collections.defaultdict(list)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool, \
            open(os.path.join(WORK, "verdicts.txt"), "w", encoding="utf-8") as log:
        for mutant, verdict in pool.map(judge, sample):
            verdicts[verdict].append(mutant.name)
            print({"": "SURVIVES", None: "no mutant"}.get(verdict, verdict), mutant.name, sep="\t",
                  file=log, flush=True)
            if verdict == "" and mutant.name not in equivalent:
                print("survives:", mutant.name, flush=True)
    return report(verdicts, equivalent, stale)


def measure(lane):
    """The slow tests, and ten times the seconds that each phase takes with unchanged sources."""
    noticed, times = lane.test([], ROOMS[0], [], {})
    if noticed != "":
        sys.exit(f"The tests fail on unchanged sources, in phase {noticed}:\n{lane.output[-3000:]}")
    output = must([lane.path("units_tests")], lane.folder)
    slow = [name for name, took in re.findall(r"OK \] (\S+) \((\d+) ms\)", output)
            if int(took) > SLOW]
    limits = {name: int(10 * seconds) + 10 for name, seconds in times.items()}
    limits["room"] = limits["slow"] = limits["units"]
    return slow, limits


def report(verdicts, equivalent, stale):
    survivors = verdicts.pop("", [])
    broken = len(verdicts.pop(None, []))
    noticed = sum(map(len, verdicts.values()))
    wrong = [name for names in verdicts.values() for name in names if name in equivalent]
    kept = [name for name in survivors if name in equivalent]
    judged = noticed + len(survivors) - len(kept)
    share = 100 * noticed / judged if judged else 100.0
    print(f"{broken} do not compile, {noticed + len(survivors)} do")
    print(f"{noticed} detected:", ", ".join(f"{len(names)} by {phase}"
                                           for phase, names in sorted(verdicts.items())))
    print(f"{len(kept)} survivors are equivalent, {len(survivors) - len(kept)} are not: "
          f"{share:.1f} % detected, target {SHARE} %")
    for title, rows in (("FINDINGS: detected, though listed as equivalent", wrong),
                        ("Listed as equivalent, but not a mutant of any line: delete them", stale)):
        if rows:
            print(f"{title}:", *rows, sep="\n  ")
    return 1 if wrong or share < SHARE else 0


if __name__ == "__main__":
    sys.exit(main())
