"""Holds the binary interface to tests/abi/interface.txt, and to what hosts of 1.0.0 rely on.

    interface.py LIBRARY SHIPPED    fails on a difference from the list or between the libraries'
                                    names, and on whatever would break a host of 1.0.0
    interface.py LIBRARY --update   writes the list, and adds new names to the symbols of the
                                    Debian package
    interface.py LIBRARY --baseline writes what 1.0.0/ keeps of the library and its headers, until
                                    that version is released

LIBRARY is built with -g by g++ for 64-bit Linux, SHIPPED as it is shipped. The list has the sizes
of the exported classes and of C's structures, the slots of virtual functions and the exported names.
abidiff compares the rest: what types are made of, and what functions return.
"""

import difflib
import gzip
import pathlib
import re
import subprocess
import sys
import tarfile
import xml.etree.ElementTree

HERE = pathlib.Path(__file__).resolve().parent
LIST = HERE / "interface.txt"
BASELINE = HERE / "1.0.0" / "library.abi"
PUBLIC = HERE.parents[1] / "include" / "TrelvonUnits"
PROJECT = HERE.parents[1] / "CMakeLists.txt"
SYMBOLS = HERE.parents[1] / "debian" / "libtrelvonunits1.symbols"
ABIDW = """abidw --exported-interfaces-only --drop-private-types --drop-undefined-syms
    --no-show-locs --no-corpus-path --no-comp-dir-path --no-elf-needed --no-parameter-names
    --no-write-default-sizes --headers-dir""".split() + [str(PUBLIC.parent)]
SHORT = {
    r"\[abi:cxx11\]": "",
    r"std::__cxx11::basic_string<char, [^<]*<char>, [^<]*<char> >": "string",
    r"std::basic_string_view<char, [^<]*<char> >": "string_view",
    r"std::map<string, int, .*?> > >": "map<string, int>",
    r"std::vector<Units::Unit, .*?> >": "vector<Units::Unit>",
    r"std::function<string \(string const&\)>": "VariableResolver",
    r"std::optional<": "optional<"}


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def demangled(names):
    """Names as C++ spells them, the standard library's short."""
    text = run("c++filt", input="\n".join(names))
    for pattern, short in SHORT.items():
        text = re.sub(pattern, short, text)
    return text.splitlines()


def exported(library):
    return {line.split()[-1] for line in run("nm", "-D", "--defined-only", library).splitlines()}


def description(file):
    """abidw's of a library, without what the building machine adds, or one that is kept."""
    if str(file).endswith(".abi"):
        return pathlib.Path(file).read_text(encoding="utf-8")
    return re.sub(r" path='[^']*?(\w+/\w+\.cpp)'", r" path='\1'", run(*ABIDW, file))


def classes(scope, prefix=""):
    for space in scope.findall("namespace-decl"):
        yield from classes(space, prefix + space.get("name") + "::")
    for record in scope.findall("class-decl"):
        ours = prefix in ("Units::", "Schemas::") or record.get("name").startswith("trelvon_")
        if ours and record.get("is-declaration-only") != "yes":
            yield prefix + record.get("name"), record


def layout(file):
    """The size of each class, and the function in each slot of each class."""
    sizes, slots = {}, {}
    for unit in xml.etree.ElementTree.fromstring(description(file)).iter("abi-instr"):
        for name, record in classes(unit):
            sizes[name] = int(record.get("size-in-bits") or 8) // 8
            for member in record.findall("member-function"):
                slot = int(member.get("vtable-offset", -1))
                if slot >= 0:
                    slots[name, slot] = member.find("function-decl").get("mangled-name")
    return sizes, slots


def interface(library):
    sizes, slots = layout(library)
    texts = demangled([function for _, function in sorted(slots.items())])
    lines = ["# Written by tests/abi/interface.py. Sizes of the exported classes and of C's "
             "structures, in bytes.", ""]
    lines += [f"{size:4} {name}" for name, size in sorted(sizes.items())]
    lines += ["", "# Slots of their virtual functions, after the two of a destructor, 0 and 1.", ""]
    lines += [f"{slot:4} {text}" for (_, slot), text in zip(sorted(slots), texts)]
    lines += ["", "# Exported names.", ""]
    lines += sorted({f"     {text}" for text in demangled(exported(library))})
    return "\n".join(lines) + "\n"


def symbols(library):
    """The symbols of the package: each name with the version that had it first."""
    head, *lines = SYMBOLS.read_text().partition("\n ")
    known = dict(re.findall(r"(\S+)@Base (\S+)", "".join(lines)))
    version = re.search(r"\n  VERSION (\S+)", PROJECT.read_text())[1]
    return head + "".join(f"\n {name}@Base {known.get(name, version)}"
                          for name in sorted(exported(library))) + "\n"


ADDS = [re.compile(pattern) for pattern in (
    r"Functions changes summary: 0 Removed, .*", r"Variables changes summary: 0 Removed, .*",
    r"\d+ Added (functions?|variables?):", r"\[A\] .*", r"note that this adds a new entry to .*",
    r"\d+ functions? with some indirect sub-type changes?:",
    r"\[C\] .* has some indirect sub-type changes:", r"return type changed:",
    r"(implicit )?parameter \d+ of type .* (has|changed).*",
    r"in (pointed to|referenced|unqualified underlying) type .*:", r"type size hasn't changed",
    r"\d+ member function insertions?:", r"no member function changes \(.*\);")]
INSERTED = re.compile(r"'method .* (\w+::\w+)::~?\w+\(.*', virtual at voffset (\d+)/.*")
NOT_VIRTUAL = re.compile(r"'(method|function) (?!virtual).*'    \{.*\}")


def breaks(old, new):
    """What breaks hosts of a library or description in a newer one. abidiff's exit code is the same
    for a slot behind the others and for two that have changed places, so its text is read; and it
    does not see what a pure virtual function takes."""
    (_, slots), (_, new_slots) = layout(old), layout(new)
    found = [f"{name}, slot {slot}: no longer {function}"
             for (name, slot), function in slots.items() if new_slots.get((name, slot)) != function]
    done = subprocess.run(["abidiff", "--exported-interfaces-only", "--no-show-locs", old, new],
                          capture_output=True, text=True)
    if done.returncode & 3:
        raise SystemExit(done.stderr)
    for line in map(str.strip, done.stdout.splitlines()):
        inserted = INSERTED.fullmatch(line)
        if inserted and (inserted[1], int(inserted[2])) not in slots:
            continue
        if line and not NOT_VIRTUAL.fullmatch(line) and not any(p.fullmatch(line) for p in ADDS):
            found.append(line)
    return found


def archive_headers(path):
    """The same headers always make the same bytes: no names of files, owners or times go in."""
    def anonymous(entry):
        entry.uid = entry.gid = entry.mtime = 0
        entry.uname = entry.gname = ""
        entry.mode = 0o644
        return entry
    with path.open("wb") as file, gzip.GzipFile("", "wb", 9, file, 0) as zipped, \
            tarfile.open(fileobj=zipped, mode="w", format=tarfile.USTAR_FORMAT) as archive:
        for header in sorted(PUBLIC.glob("*.h")):
            archive.add(header, f"{PUBLIC.name}/{header.name}", filter=anonymous)


def main(library, other):
    if other == "--baseline":
        BASELINE.write_text(description(library), encoding="utf-8")
        archive_headers(BASELINE.with_name("headers.tar.gz"))
        return 0
    now = interface(library)
    if other == "--update":
        LIST.write_text(now)
        SYMBOLS.write_text(symbols(library))
        return 0
    differences = [*difflib.unified_diff(LIST.read_text().splitlines(), now.splitlines(),
                                         LIST.name, library, lineterm="")]
    if differences:
        differences.append("Where that is meant, docs/compatibility.md says what it asks for.")
    differences += ["Not in both libraries: " + name
                    for name in demangled(exported(library) ^ exported(other))]
    if symbols(library) != SYMBOLS.read_text():
        differences.append(f"{SYMBOLS.name} lists other names.")
    differences += ["Breaks hosts of 1.0.0: " + line for line in breaks(BASELINE, library)]
    print("\n".join(differences) or "The binary interface is as listed.")
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
