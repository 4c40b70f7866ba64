"""Finds the shared library and tells its binary layout (the same as docs/abi.md of the library)."""

import ctypes
import os
from ctypes import c_char_p, c_double, c_int16, c_int32, c_uint8, c_uint16, c_uint32, c_void_p


class LibraryNotFound(OSError):
    """The shared library is not installed where the system's loader looks for it."""


def _fields(*pairs):
    return [(name, kind) for name, kind in pairs]


_BLOCK = _fields(
    ("vtable", c_void_p),
    ("rect", c_double * 4),
    ("kind", c_uint16),
    ("padding1", c_uint16),
    ("color", c_uint32),
    ("flag0", c_uint16),
    ("padding2", c_uint16),
    ("cut_mode", c_int32),
    ("cut_speed", c_double),
    ("cut_power", c_double),
    ("high_focus", c_double),
    ("reserved_int1", c_int32),
    ("padding3", c_int32),
    ("reserved_float1", c_double),
    ("frequency", c_double),
    ("reserved_float2", c_double),
    ("reserved_float3", c_double),
    ("reserved_int2", c_int32),
    ("padding4", c_int32),
    ("reserved_float4", c_double),
    ("reserved_short1", c_int16),
    ("padding5", c_int16),
    ("process_type", c_int32),
    ("engrave_speed", c_double),
    ("eng_max_power", c_double),
    ("eng_step", c_double),
    ("reserved_float5", c_double),
    ("high_focus2", c_double),
    ("image_type", c_int16),
    ("padding6", c_int16 * 3),
    ("eng_min_power", c_double),
    ("reserved_int3", c_int32),
    ("reverse", c_int32),
    ("reserved_short2", c_int16),
    ("machine_type", c_int16),
    ("padding7", c_int32),
    ("diameter", c_double),
)


class FileSegment(ctypes.Structure):
    pass


FileSegment._fields_ = [
    ("type", c_uint16),
    ("padding1", c_uint16 * 3),
    ("start", c_double * 2),
    ("end", c_double * 2),
    ("control1", c_double * 2),
    ("control2", c_double * 2),
    ("tail", c_uint8 * 14),
    ("padding2", c_uint8 * 2),
    ("previous", ctypes.POINTER(FileSegment)),
    ("next", ctypes.POINTER(FileSegment)),
]


class FileDraw(ctypes.Structure):
    _fields_ = _BLOCK


class FileCurve(ctypes.Structure):
    _fields_ = _BLOCK + [
        ("segment_head", ctypes.POINTER(FileSegment)),
        ("segment_cursor", ctypes.POINTER(FileSegment)),
        ("segment_count", c_int32),
        ("trailing_word", c_uint32),
    ]


class FileDib(ctypes.Structure):
    _fields_ = _BLOCK + [
        ("bitmap", c_void_p),
        ("a", c_double),
        ("c", c_double),
        ("b", c_double),
        ("d", c_double),
        ("e", c_double),
        ("f", c_double),
    ]


def open_library():
    """The library with its three functions declared. Raises LibraryNotFound."""
    name = os.environ.get("DRAWLOAD_LIBRARY", "libdrawload.so.0")
    try:
        library = ctypes.CDLL(name)
    except OSError as error:
        raise LibraryNotFound(
            f"cannot load {name}: {error}; install drawload, or name the file in DRAWLOAD_LIBRARY"
        ) from error
    library.DrawLoad_Z7.argtypes = [c_char_p]
    library.DrawLoad_Z7.restype = c_int32
    for function in (library.GetFirstData_Z7, library.GetNextData_Z7):
        function.argtypes = [ctypes.POINTER(ctypes.POINTER(FileDraw))]
        function.restype = c_int32
    return library
