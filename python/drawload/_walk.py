"""Loads one drawing and copies its results out of the walk."""

import contextlib
import ctypes
import os
import sys
import threading
from dataclasses import fields
from typing import Iterator, List, Union

from ._library import FileCurve, FileDib, FileDraw, open_library
from ._results import Bitmap, Curve, Segment, Settings

_CURVE = 0
_BITMAP = 1
_CUBIC = 3
_PIXELS_AT = 1064
_one_at_a_time = threading.Lock()


def load(path: Union[str, bytes, "os.PathLike[str]"]) -> List[Union[Curve, Bitmap]]:
    """All results of the drawing at ``path``, in the order in which the machine works them.

    The extension (.dxf, .svg or .pdf) selects the reader. The list is empty where nothing could be read or nothing
    is drawn. Raises LibraryNotFound where the library is not installed.
    """
    library = open_library()
    with _one_at_a_time, _standard_output_turned_away():
        if library.DrawLoad_Z7(os.fsencode(path)) == 0:
            return []
        return [_copy(draw) for draw in _walk(library) if draw.contents.kind in (_CURVE, _BITMAP)]


def _walk(library) -> Iterator["ctypes._Pointer[FileDraw]"]:
    draw = ctypes.POINTER(FileDraw)()
    found = library.GetFirstData_Z7(ctypes.byref(draw))
    while found:
        yield draw
        found = library.GetNextData_Z7(ctypes.byref(draw))


@contextlib.contextmanager
def _standard_output_turned_away():
    """The library notes on standard output what it meets in a PDF; those notes are not the caller's output."""
    if sys.stdout is not None:  # None under a program without a console, or with a closed descriptor
        sys.stdout.flush()
    try:
        saved = os.dup(1)
    except OSError:  # standard output is closed
        yield
        return
    try:
        nowhere = os.open(os.devnull, os.O_WRONLY)
    except OSError:  # a sandbox may have no /dev
        nowhere = os.memfd_create("notes")
    os.dup2(nowhere, 1)
    os.close(nowhere)
    try:
        yield
    finally:
        ctypes.CDLL(None).fflush(None)
        os.dup2(saved, 1)
        os.close(saved)


def _copy(draw) -> Union[Curve, Bitmap]:
    if draw.contents.kind == _CURVE:
        return _copy_curve(ctypes.cast(draw, ctypes.POINTER(FileCurve)).contents)
    return _copy_bitmap(ctypes.cast(draw, ctypes.POINTER(FileDib)).contents)


def _settings(block) -> Settings:
    return Settings(**{field.name: getattr(block, field.name) for field in fields(Settings)})


def _copy_curve(curve: FileCurve) -> Curve:
    segments = []
    node = curve.segment_head.contents.next
    for _ in range(curve.segment_count):
        segment = node.contents
        start, end = tuple(segment.start), tuple(segment.end)
        if segment.type == _CUBIC:
            segments.append(Segment(start, end, tuple(segment.control1), tuple(segment.control2)))
        else:
            segments.append(Segment(start, end))
        node = segment.next
    color = (curve.color & 0xFF, curve.color >> 8 & 0xFF, curve.color >> 16 & 0xFF)
    return Curve(color, _settings(curve), segments)


def _copy_bitmap(dib: FileDib) -> Bitmap:
    matrix = (dib.a, dib.b, dib.c, dib.d, dib.e, dib.f)
    if not dib.bitmap:
        return Bitmap(0, 0, matrix, _settings(dib), b"")
    header = ctypes.string_at(dib.bitmap, 12)
    width = int.from_bytes(header[4:8], "little")
    height = int.from_bytes(header[8:12], "little")
    stride = (width + 3) // 4 * 4
    rows = ctypes.string_at(dib.bitmap + _PIXELS_AT, stride * height)
    pixels = b"".join(rows[row * stride : row * stride + width] for row in range(height))
    return Bitmap(width, height, matrix, _settings(dib), pixels)
