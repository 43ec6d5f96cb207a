"""Each installed file belongs to one component, and debian/ puts it into the package of that one;
the header for C goes with those for C++.
Hosts are told which components they have, and refused with a sentence if one is missing.

    components_test.py CMAKE BUILD LIBDIR LIBRARY FOLDER
"""
import pathlib
import re
import shutil
import subprocess
import sys

CMAKE, BUILD, LIBDIR, LIBRARY, FOLDER = sys.argv[1:]
ROOT = pathlib.Path(__file__).resolve().parents[2]
VERSION = LIBRARY.rpartition(".so.")[2]
VERSIONED = (("debian/changelog", f"trelvonunits ({VERSION}) "),
             ("packaging/conan/conanfile.py", f'version = "{VERSION}"'),
             ("packaging/vcpkg/vcpkg.json", f'"version": "{VERSION}"'))
PACKAGES = {"libtrelvonunits1": ["Runtime"], "libtrelvonunits-dev": ["Development", "C"],
            "trelvonunits-definitions": ["Definitions"], "trelvon": ["Tool"],
            "libsqlite3-mod-trelvonunits": ["SQLite"]}
# What is missing, what a host asks for, and what it is told.
ASKED = (
    ("", "COMPONENTS Tool", "has: TrelvonUnits trelvon schemas."),
    ("bin/trelvon", "", "has: TrelvonUnits schemas."),
    ("bin/trelvon", "COMPONENTS Runtime Tool", "/bin/trelvon is missing."),
    ("share/TrelvonUnits", "", "The component Definitions of TrelvonUnits is not installed: "),
    ("share/TrelvonUnits", "COMPONENTS Development Runtime", "has: TrelvonUnits trelvon."),
    (f"{LIBDIR}/{LIBRARY}", "", f"/{LIBRARY} is missing."),
    (f"{LIBDIR}/{LIBRARY}", "COMPONENTS Definitions OPTIONAL_COMPONENTS Runtime Paint",
     "has: trelvon schemas."),
    ("", "COMPONENTS Definitions Paint",
     "no component Paint. It has Runtime, Development, C, Definitions, Tool and SQLite."),
    ("include/TrelvonUnits/trelvon.h", "COMPONENTS Runtime C", "/trelvon.h is missing."))
HOST = """cmake_minimum_required(VERSION 3.25)
project(Host LANGUAGES NONE)
find_package(TrelvonUnits 1.0 CONFIG REQUIRED {})
foreach(name IN ITEMS TrelvonUnits trelvon)
  if(TARGET TrelvonUnits::${{name}})
    string(APPEND has " ${{name}}")
  endif()
endforeach()
if(EXISTS "${{TrelvonUnits_SCHEMAS_DIR}}/core")
  string(APPEND has " schemas")
endif()
message(STATUS "has:${{has}}.")
"""


def install(prefix, *options):
    """The files of the component that the options name, or all."""
    done = subprocess.run([CMAKE, "--install", BUILD, "--prefix", prefix, *options], check=True,
                          capture_output=True, text=True)
    paths = map(pathlib.Path, re.findall("^-- (?:Installing|Up-to-date): (.*)", done.stdout, re.M))
    return {path.relative_to(prefix).as_posix() for path in paths if not path.is_dir()}


def packaged(package, files):
    """The files that a list of debian/ names: usr/lib/* is the folder of a machine's libraries."""
    lines = (ROOT / "debian" / package).read_text(encoding="utf-8").splitlines()
    patterns = [line.split()[0] for line in lines]  # of a second word, the folder in the package
    names = {file: pathlib.Path("usr", re.sub(f"^{LIBDIR}/", "lib/machine/", file))
             for file in files}
    return {file for file, name in names.items()
            if any(path.match(pattern) for path in (name, *name.parents) for pattern in patterns)}


def test_packages(prefix):
    whole = install(prefix)
    beside = packaged("not-installed", whole)
    for package, components in PACKAGES.items():
        files = set().union(*(install(prefix, "--component", name) for name in components))
        listed = packaged(package + ".install", whole | files)
        if not files or files - beside != listed:
            yield f"{components} or {package}.install alone has {sorted((files - beside) ^ listed)}"
        whole -= files
    if whole:
        yield f"No component has {sorted(whole)}"


def test_hosts(prefix, host):
    for missing, asked, told in ASKED:
        (host / "CMakeLists.txt").write_text(HOST.format(asked), encoding="utf-8")
        if missing:
            (prefix / missing).rename(prefix / "missing")
        done = subprocess.run([CMAKE, "--fresh", "-S", host, "-B", host / "build",
                               f"-DTrelvonUnits_DIR={prefix}/{LIBDIR}/cmake/TrelvonUnits"],
                              capture_output=True, text=True)
        if missing:
            (prefix / "missing").rename(prefix / missing)
        text = " ".join((done.stdout + done.stderr).split())
        if told not in text or (done.returncode == 0) != told.startswith("has:"):
            yield f"Without {missing or 'nothing'}, {asked or 'no component'} gave: {text}"


def main():
    host = pathlib.Path(FOLDER)
    shutil.rmtree(host, ignore_errors=True)
    host.mkdir()
    faults = [f"{file} has not {text}" for file, text in VERSIONED
              if text not in (ROOT / file).read_text(encoding="utf-8")]
    faults += [*test_packages(host / "prefix"), *test_hosts(host / "prefix", host)]
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
