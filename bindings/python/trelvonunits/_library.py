"""The C interface as ctypes sees it. The callers of these functions check the arguments.

They run while Python's global lock is held (`PyDLL`), so that no thread changes an engine that another
one reads. Only arrays are converted without it: a prepared conversion never changes.
"""
from __future__ import annotations

import ctypes
import os
import sys
from ctypes import POINTER, c_char_p, c_double, c_int, c_size_t, c_uint, c_void_p, py_object

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "data")
VERSION = "1.0.0"
_FILES = {"darwin": "libTrelvonUnits.dylib", "win32": "TrelvonUnits.dll"}

(OK, UNRECOGNIZED, VALIDATION, INCOMPATIBLE, PRECISION,
 PARSE, MEMORY, FILE, CALLBACK, ARGUMENT, OTHER) = range(11)


class Text(ctypes.Structure):
    """A text that is passed to C. It keeps its bytes alive."""
    _fields_ = [("data", c_char_p), ("size", c_size_t)]


class GivenText(ctypes.Structure):
    """A text of the library, which may contain NUL."""
    _fields_ = [("data", c_void_p), ("size", c_size_t)]


class Power(ctypes.Structure):
    _fields_ = [("type_id", Text), ("exponent", c_int)]


class GivenPower(ctypes.Structure):
    _fields_ = [("type_id", GivenText), ("exponent", c_int)]


class Dimension(ctypes.Structure):
    _fields_ = [("type_id", GivenText)]


class Factor(ctypes.Structure):
    _fields_ = [("type_id", GivenText), ("factor", c_double), ("parents", POINTER(GivenPower)),
                ("parent_count", c_size_t)]


class Unit(ctypes.Structure):
    _fields_ = [("type_id", GivenText), ("name", GivenText), ("system", c_int), ("kind", c_int),
                ("dimension", GivenText), ("parent", GivenText), ("offset", c_double),
                ("factor", c_double), ("parents", POINTER(GivenPower)), ("parent_count", c_size_t),
                ("parent_factors", POINTER(GivenPower)), ("parent_factor_count", c_size_t)]


class Symbol(ctypes.Structure):
    _fields_ = [("type_id", GivenText), ("unit", GivenText), ("is_composite", c_int),
                ("is_prefix", c_int), ("has_space", c_int), ("text", GivenText)]


class Quantity(ctypes.Structure):
    _fields_ = [("type_id", GivenText), ("name", GivenText), ("units", POINTER(GivenText)),
                ("unit_count", c_size_t)]


class Name(ctypes.Structure):
    _fields_ = [("text", GivenText), ("unit", GivenText), ("kind", c_int), ("is_exact", c_int)]


# Returns the text that replaces an identifier. The context is a Python object.
Resolver = ctypes.PYFUNCTYPE(c_int, py_object, GivenText, c_void_p)

_P = c_void_p  # an object of the library, or where a result goes
_RESULT = (_P, _P)  # a result and an error
_BUFFER = (_P, _P, _P)  # bytes, their number, and an error
_RESOLVER = (Resolver, py_object, *_RESULT)

# The arguments of functions. All of these functions return a status.
_STATUSES = {
    "engine_create": _RESULT,
    "convert": (_P, c_double, Text, Text, *_RESULT),
    "convert_named": (_P, _P, c_double, Text, Text, *_RESULT),
    "can_convert": (_P, Text, Text, *_RESULT),
    "format_fixed": (_P, c_double, c_uint, _P, c_int, *_BUFFER),
    "format_fractional": (_P, c_double, c_uint, _P, *_BUFFER),
    "display_create": (_P, Text, *_RESULT),
    "display_show": (_P, c_double, *_BUFFER),
    "display_read": (_P, Text, *_RESULT),
    "display_read_json": (_P, Text, *_BUFFER),
    "display_json": (_P, *_BUFFER),
    "display_unit": (_P, *_BUFFER),
    "display_locales": _RESULT,
    "answer_text": (_P, Text),
    "evaluate": (_P, Text, Text, *_RESOLVER),
    "evaluate_unitless": (_P, Text, *_RESOLVER),
    "explain": (_P, _P, Text, *_RESOLVER),
    "explain_hidden": (_P, _P, Text, *_RESOLVER),
    "explain_unitless": (_P, Text, *_RESOLVER),
    "explain_unitless_hidden": (_P, Text, *_RESOLVER),
    "explain_json": (_P, *_BUFFER),
    "explain_text": (_P, *_BUFFER),
    "explain_tree": (_P, *_BUFFER),
    "parameters_create": (_P, *_RESULT),
    "parameters_set": (_P, Text, Text, _P, _P),
    "parameters_rename": (_P, Text, Text, _P),
    "parameters_remove": (_P, Text, _P),
    "parameters_reevaluate": (_P, _P),
    "parameters_evaluate": (_P, *_RESULT),
    "parameters_value": (_P, Text, _P, *_RESULT),
    "parameters_names": (_P, *_RESULT),
    "parameters_formula": (_P, Text, *_BUFFER),
    "parameters_unit": (_P, Text, *_BUFFER),
    "parameters_references": (_P, Text, *_RESULT),
    "parameters_dependents": (_P, Text, *_RESULT),
    "parameters_problems": (_P, *_RESULT),
    "parameters_explain_json": (_P, Text, *_BUFFER),
    "parameters_explain_text": (_P, Text, *_BUFFER),
    "add_definition": (_P, Text, *_RESULT),
    "build_schemas": (_P, _P),
    "definition": (_P, Text, *_BUFFER),
    "dependencies": (_P, Text, *_RESULT),
    "is_registered": (_P, Text, *_RESULT),
    "add_folder": (_P, Text, _P),
    "add_bundle": (_P, Text, _P),
    "add_bundle_file": (_P, Text, _P),
    "load_folders_for": (_P, _P, c_size_t, _P, c_size_t, c_uint, *_RESULT),
    "load_texts_for": (_P, _P, c_size_t, _P, _P, c_size_t, c_uint, *_RESULT),
    "load_bundle_for": (_P, _P, c_size_t, Text, Text, c_uint, *_RESULT),
    "check_text": (_P, Text, Text, *_RESULT),
    "load_report_json": (_P, *_BUFFER),
    "load_report_text": (_P, *_BUFFER),
    "load_report_sarif": (_P, *_BUFFER),
    "conversion_create": (_P, Text, Text, *_RESULT),
    "conversion_create_named": (_P, _P, Text, Text, *_RESULT),
    "record": (_P, c_int, Text, *_RESULT),
    "records": (_P, c_int, *_RESULT),
    "primitive_units": (_P, *_RESULT),
    "primitive_units_of": (_P, _P, *_RESULT),
    "convertible_units": (_P, Text, *_RESULT),
    "units_with_powers": (_P, _P, c_size_t, *_RESULT),
    "symbols_of": (_P, Text, *_RESULT),
    "quantities_of": (_P, Text, *_RESULT),
    "names_create": (_P, _P, c_size_t, *_RESULT),
    "names_find": (_P, Text, *_RESULT),
    "names_find_best": (_P, Text, *_RESULT),
    "names_find_code": (_P, Text, Text, *_RESULT),
    "names_suggest": (_P, Text, c_size_t, *_RESULT),
    "names_completions": (_P, Text, c_size_t, *_RESULT),
    "names_of": (_P, Text, *_RESULT),
    "names_why_not": (_P, Text, *_BUFFER),
    "names_unambiguous": (_P, Text, *_BUFFER),
    "local_id": (Text, *_BUFFER),
    "names_systems": (_P, *_RESULT),
    "names_codes": (_P, Text, Text, *_RESULT),
    "list_text": (_P, c_size_t, *_RESULT),
    "list_dimension": (_P, c_size_t, *_RESULT),
    "list_factor": (_P, c_size_t, *_RESULT),
    "list_unit": (_P, c_size_t, *_RESULT),
    "list_symbol": (_P, c_size_t, *_RESULT),
    "list_quantity": (_P, c_size_t, *_RESULT),
    "list_name": (_P, c_size_t, *_RESULT)}

_OTHERS = {
    "version": (c_char_p,),
    "error_message": (GivenText, _P),
    "error_span": (c_int, _P, _P, _P),
    "error_free": (None, _P),
    "engine_free": (None, _P),
    "display_free": (None, _P),
    "parameters_free": (None, _P),
    "explanation_free": (None, _P),
    "load_report_errors": (c_size_t, _P),
    "load_report_warnings": (c_size_t, _P),
    "load_report_free": (None, _P),
    "conversion_free": (None, _P),
    "names_free": (None, _P),
    "list_count": (c_size_t, _P),
    "list_free": (None, _P)}


def _declared(name, result, *arguments):
    function = getattr(_library, "trelvon_" + name)
    function.restype = result
    function.argtypes = arguments
    return function


class Functions:
    """The functions by their names without the prefix."""


_path = os.path.join(FOLDER, _FILES.get(sys.platform, "libTrelvonUnits.so"))
_library = ctypes.PyDLL(_path)
for _name, _arguments in _STATUSES.items():
    setattr(Functions, _name, _declared(_name, c_int, *_arguments))
for _name, _types in _OTHERS.items():
    setattr(Functions, _name, _declared(_name, *_types))

Functions.conversion_apply = ctypes.CDLL(_path).trelvon_conversion_apply
Functions.conversion_apply.restype = c_int
Functions.conversion_apply.argtypes = (_P, _P, c_size_t, _P, c_size_t, c_size_t)

if Functions.version().decode() != VERSION:
    raise ImportError(f"trelvonunits {VERSION} found a library of version "
                      f"{Functions.version().decode()} in {_path}")
