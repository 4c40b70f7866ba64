"""Reads DXF, SVG and PDF drawings for laser cutters and engravers.

    import drawload

    for result in drawload.load("bracket.dxf"):
        if isinstance(result, drawload.Curve):
            print(result.color, len(result.segments), result.settings.cut_speed)

Coordinates are millimetres, y up; those of a DXF drawing come out as they stand in the file. The module stands on the
installed library ``libdrawload.so.0``; the environment variable ``DRAWLOAD_LIBRARY`` names another file. One load at a
time in a process: the library keeps one parse.
"""

from ._library import LibraryNotFound
from ._results import Bitmap, Curve, Segment, Settings
from ._walk import load

__all__ = ["Bitmap", "Curve", "LibraryNotFound", "Segment", "Settings", "load"]
