"""What interface.py says of changes to the public headers: each is made, compiled and compared."""

import pathlib
import subprocess
import tempfile
import unittest

import interface

INCLUDE = pathlib.Path(__file__).resolve().parents[2] / "include"
BODIES = """#include <TrelvonUnits/TrelvonUnits.h>
namespace Units {
UnitsEngine::~UnitsEngine() = default;
UnitsEngine* CreateUnitsEngine() { return nullptr; }
"""
DIMENSION = "  virtual Dimension getDimension(std::string typeId) const = 0;\n"
FACTOR = "  virtual Factor getFactor(std::string typeId) const = 0;\n"
LAST = "  virtual bool isRegistered(std::string typeId) const = 0;\n"
MORE = "  virtual int more() const;\n"
MORE_BODY = "int UnitsEngine::more() const { return 1; }\n"
CREATE = "TRELVONUNITS_API UnitsEngine* CreateUnitsEngine();\n"

# header, what stands there, what it becomes, a body, whether hosts break, whether the list changes
CHANGES = {
    "slots swapped": ("UnitsEngine.h", DIMENSION + FACTOR, FACTOR + DIMENSION, "", True, True),
    "a slot between": ("UnitsEngine.h", DIMENSION, MORE + DIMENSION, MORE_BODY, True, True),
    "a slot removed": ("UnitsEngine.h", LAST, "", "", True, True),
    "a slot appended": ("UnitsEngine.h", LAST, LAST + MORE, MORE_BODY, False, True),
    "another result": ("UnitsEngine.h", LAST, LAST.replace("bool", "int"), "", True, False),
    "another parameter": ("UnitsEngine.h", LAST, LAST.replace("std::string", "const char*"), "",
                          True, True),
    "a field": ("Dimension.h", "  const std::string typeId_;\n",
                "  const std::string typeId_;\n  int more_ = 0;\n", "", True, True),
    "a function": ("UnitsEngine.h", CREATE, CREATE + "TRELVONUNITS_API int more();\n",
                   "int more() { return 1; }\n", False, True),
}


def build(folder, header="", before="", after="", body=""):
    """A library of the headers, changed, with the bodies that bring their types in."""
    include = pathlib.Path(folder) / "TrelvonUnits"
    include.mkdir()
    for path in (INCLUDE / "TrelvonUnits").glob("*.h"):
        text = path.read_text(encoding="utf-8")
        if path.name == header:
            assert before in text, before
            text = text.replace(before, after)
        (include / path.name).write_text(text, encoding="utf-8")
    source, library = include / "bodies.cpp", include / "library.so"
    source.write_text(BODIES + body + "}\n", encoding="utf-8")
    subprocess.run(["g++", "-std=c++17", "-g", "-shared", "-fPIC", "-fvisibility=hidden",
                    "-I", folder, source, "-o", library], check=True)
    return str(library)


class Changes(unittest.TestCase):
    def test_are_told_apart(self):
        with tempfile.TemporaryDirectory() as before_folder:
            before = build(before_folder)
            self.assertEqual(interface.breaks(before, before), [])
            for name, (*change, breaks, lists) in CHANGES.items():
                with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                    after = build(folder, *change)
                    found = interface.breaks(before, after)
                    self.assertEqual(bool(found), breaks, found)
                    listed = interface.interface(before) != interface.interface(after)
                    self.assertEqual(listed, lists)


if __name__ == "__main__":
    unittest.main()
