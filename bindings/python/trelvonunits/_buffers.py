"""Doubles in other objects' buffers, in place, without a copy and without NumPy."""
from __future__ import annotations

import ctypes
import itertools
import sys
from array import array
from ctypes import POINTER, c_char_p, c_int, c_ssize_t, c_void_p, py_object

from ._arguments import kind_of
from ._library import Functions
from .errors import ArgumentError

_SIZE = ctypes.sizeof(ctypes.c_double)
_WRITABLE, _RECORDS_RO = 0x1, 0x1C  # a format, a shape and strides
_OUR_ORDER = "<" if sys.byteorder == "little" else ">"
_DOUBLES = {"d", "@d", "=d", _OUR_ORDER + "d"}
_NAMES = {"f": "float", "e": "half", "g": "long double", "?": "bool", "O": "object", "c": "char",
          **dict.fromkeys("bBhHiIlLqQnN", "integer"), "Zd": "complex"}


class _View(ctypes.Structure):
    """Py_buffer, which is the same in all versions of Python."""
    _fields_ = [("buf", c_void_p), ("obj", py_object), ("len", c_ssize_t),
                ("itemsize", c_ssize_t), ("readonly", c_int), ("ndim", c_int),
                ("format", c_char_p), ("shape", POINTER(c_ssize_t)),
                ("strides", POINTER(c_ssize_t)), ("suboffsets", POINTER(c_ssize_t)),
                ("internal", c_void_p)]


_get = ctypes.pythonapi.PyObject_GetBuffer
_get.argtypes = (py_object, POINTER(_View), c_int)
_release = ctypes.pythonapi.PyBuffer_Release
_release.argtypes = (POINTER(_View),)
_release.restype = None


class Doubles:
    """A view of doubles that their owner neither moves nor frees until the end of a `with`.

    An exception keeps the objects of its frames alive, so `__del__` alone would not release the view.
    """

    def __init__(self, owner, what, writable=False):
        self._view = _View()
        try:
            _get(owner, self._view, _RECORDS_RO | (_WRITABLE if writable else 0))
        except TypeError:
            raise ArgumentError(
                f"{what} must be a number or a buffer of doubles, not {kind_of(owner)}. Write a number, "
                f'or array.array("d", {what})') from None
        except (BufferError, ValueError) as error:
            raise ArgumentError(f"{what} cannot be {'written' if writable else 'read'} in place: "
                                f"{error}") from None
        try:
            view = self._view
            self.address = view.buf or 0
            self.shape = tuple(view.shape[:view.ndim])
            self.strides = tuple(view.strides[:view.ndim] if view.strides else _gapless(self.shape))
            self._check((view.format or b"B").decode("latin-1"), what)
        except BaseException:
            _release(self._view)
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        _release(self._view)

    def _check(self, form, what):
        if form not in _DOUBLES:
            name = _NAMES.get(form.lstrip("@=<>!"), "something else")
            raise ArgumentError(
                f"{what} must hold doubles; its format is {form!r} ({name}). "
                'Write array.array("d", values) or values.astype(float)')
        if self.count and (self.address % _SIZE or any(each % _SIZE for each in self.strides)):
            raise ArgumentError(f"{what} has doubles at odd addresses. Write numpy.array(values) or "
                                'array.array("d", values)')

    @property
    def count(self):
        count = 1
        for size in self.shape:
            count *= size
        return count

    def bounds(self):
        """The first byte and the one after the last."""
        ends = [(size - 1) * stride for size, stride in zip(self.shape, self.strides)]
        return (self.address + sum(end for end in ends if end < 0),
                self.address + sum(end for end in ends if end > 0) + _SIZE)


def _gapless(shape):
    """The strides of an array without gaps, which ctypes arrays do not report."""
    strides, step = [], _SIZE
    for size in reversed(shape):
        strides.insert(0, step)
        step *= size
    return strides


def new_like(doubles):
    """An array of as many doubles, with the same shape if there is more than one dimension."""
    result = array("d", bytes(_SIZE * doubles.count))
    if len(doubles.shape) == 1 or not result:
        return result
    return memoryview(result).cast("B").cast("d", list(doubles.shape))


def _may_share(source, target):
    """Whether an element of one may overlap a different element of the other."""
    (low, high), (begin, end) = source.bounds(), target.bounds()
    if high <= begin or end <= low:
        return False
    if source.strides != target.strides:
        return True
    return not _steps_differ(source, target.address - source.address)


def _steps_differ(source, distance):
    """Whether arrays with the same strides are in each other's gaps, like columns of a table."""
    rest, reach = {distance}, None
    for size, stride in sorted(zip(source.shape, map(abs, source.strides)), key=lambda s: -s[1]):
        if size > 1 and (stride == 0 or reach is not None and size * stride > reach):
            return False  # its own elements may be shared
        steps = ((left, left // stride + more) for left in rest for more in (0, 1) if stride)
        rest = {left - step * stride for left, step in steps if abs(step) < size} if stride else rest
        reach = stride
    return 0 not in rest


def _dimensions(source, target):
    """Sizes with the strides of both, longest last; contiguous dimensions are merged."""
    sizes = [list(each) for each in zip(source.shape, source.strides, target.strides)
             if each[0] != 1]
    merged = []
    for size, step, step_to in sizes:
        if merged and merged[-1][1:] == [size * step, size * step_to]:
            merged[-1] = [merged[-1][0] * size, step, step_to]
        else:
            merged.append([size, step, step_to])
    merged.sort(key=lambda each: (_direction(each) != 0, each[0]))
    return merged


def _direction(dimension):
    """1 or -1 if one call of C can do it: strides in C have no sign."""
    _, step, step_to = dimension
    return 0 if step_to == 0 or step * step_to < 0 else -1 if step < 0 or step_to < 0 else 1


def _apply(conversion, source, target, dimension):
    """Converts along one dimension, from these addresses."""
    size, step, step_to = dimension
    direction = _direction(dimension)
    if size > 1 and direction == 0:  # one by one: the signs of the strides differ
        for index in range(size):
            _apply(conversion, source + index * step, target + index * step_to, (1, _SIZE, _SIZE))
        return
    if direction < 0:
        source, target = source + (size - 1) * step, target + (size - 1) * step_to
    Functions.conversion_apply(conversion, source, abs(step) // _SIZE, target,
                               abs(step_to) // _SIZE, size)


def convert(owned, values, out, what="values"):
    """Converts doubles into `out`, into themselves if that is `values`, or into a new array."""
    with Doubles(values, what) as source:
        if out is None:
            out = new_like(source)
            if source.count == 0:
                return out
        with Doubles(out, "out", writable=True) as target:
            _convert(owned.pointer, source, target, what)
    return out


def _convert(conversion, source, target, what):
    if target.shape != source.shape:
        raise ArgumentError(f"out has the shape {target.shape}, and {what} {source.shape}")
    if source.count == 0:
        return
    same = (source.address, source.strides) == (target.address, target.strides)
    if not same and _may_share(source, target):
        raise ArgumentError(f"out overlaps {what}: convert in place, or into another buffer")
    *outer, inner = _dimensions(source, target) or [(1, _SIZE, _SIZE)]
    for index in itertools.product(*(range(size) for size, _, _ in outer)):
        _apply(conversion,
               source.address + sum(i * each[1] for i, each in zip(index, outer)),
               target.address + sum(i * each[2] for i, each in zip(index, outer)), inner)
