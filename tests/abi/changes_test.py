"""What interface.py says of changes to a public header: each is made, compiled and compared."""

import pathlib
import subprocess
import tempfile
import unittest

import interface

# As the public headers are: one of them bears this name, so that what it declares counts.
NAME = "UnitsEngine.h"
HEADER = """#include <string>
#define API __attribute__((visibility("default")))
namespace Units {
class API Record {
  std::string typeId_;
};
class API UnitsEngine {
 public:
  virtual ~UnitsEngine();
  virtual Record first(std::string typeId) const = 0;
  virtual int second(std::string typeId) const = 0;
  virtual bool last(std::string typeId) const = 0;
};
API UnitsEngine* CreateUnitsEngine();
}
extern "C" {
typedef struct {
  const char* data;
} trelvon_text;
API trelvon_text trelvon_string(const char* text);
}
"""
BODIES = """trelvon_text trelvon_string(const char* text) { return {text}; }
namespace Units {
UnitsEngine::~UnitsEngine() = default;
UnitsEngine* CreateUnitsEngine() { return nullptr; }
"""
FIRST = "  virtual Record first(std::string typeId) const = 0;\n"
SECOND = "  virtual int second(std::string typeId) const = 0;\n"
LAST = "  virtual bool last(std::string typeId) const = 0;\n"
MORE = "  virtual int more() const;\n"
MORE_BODY = "int UnitsEngine::more() const { return 1; }\n"
CREATE = "API UnitsEngine* CreateUnitsEngine();\n"

# what stands there, what it becomes, a body, whether hosts break, whether the list changes
CHANGES = {
    "slots swapped": (FIRST + SECOND, SECOND + FIRST, "", True, True),
    "a slot between": (FIRST, MORE + FIRST, MORE_BODY, True, True),
    "a slot removed": (LAST, "", "", True, True),
    "a slot appended": (LAST, LAST + MORE, MORE_BODY, False, True),
    "another result": (LAST, LAST.replace("bool", "int"), "", True, False),
    "another parameter": (LAST, LAST.replace("std::string", "const char*"), "", True, True),
    "a field": ("  std::string typeId_;\n", "  std::string typeId_;\n  int more_;\n", "",
                True, True),
    "a member in C": ("  const char* data;\n", "  const char* data;\n  int more;\n", "", True, True),
    "a function": (CREATE, CREATE + "API int more();\n", "int more() { return 1; }\n", False, True),
}


def build(folder, before="", after="", body=""):
    """A library of the header, changed, with the bodies that bring its types in."""
    header, source = pathlib.Path(folder, NAME), pathlib.Path(folder, "bodies.cpp")
    assert before in HEADER, before
    header.write_text(HEADER.replace(before, after, 1), encoding="utf-8")
    source.write_text(f'#include "{NAME}"\n' + BODIES + body + "}\n", encoding="utf-8")
    library = pathlib.Path(folder, "library.so")
    subprocess.run(["g++", "-std=c++17", "-g", "-shared", "-fPIC", "-fvisibility=hidden",
                    source, "-o", library], check=True)
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
