#!/usr/bin/env python3
"""Writes the DXF example drawings beside this script: bracket.dxf, panel.dxf, gasket.dxf, photo.dxf (with photo.png)."""

import math
import pathlib
import struct
import zlib


class Drawing:
    """Gathers group code and value pairs of a DXF file."""

    def __init__(self, layers):
        self.blocks = []
        self.entities = []
        self.objects = []
        self.comments = ["Example drawing of drawload"]
        self.layers = layers

    def text(self):
        pairs = [(999, comment) for comment in self.comments]
        pairs += section("HEADER", [(9, "$ACADVER"), (1, "AC1015"), (9, "$INSUNITS"), (70, 4)])
        table = [(0, "TABLE"), (2, "LAYER"), (70, len(self.layers))]
        for name, color in self.layers.items():
            table += [(0, "LAYER"), (2, name), (70, 0), (62, color), (6, "CONTINUOUS")]
        pairs += section("TABLES", table + [(0, "ENDTAB")])
        pairs += section("BLOCKS", self.blocks)
        pairs += section("ENTITIES", self.entities)
        if self.objects:
            pairs += section("OBJECTS", self.objects)
        pairs += [(0, "EOF")]
        return "".join(f"{code:3d}\n{value}\n" for code, value in pairs)


def section(name, pairs):
    return [(0, "SECTION"), (2, name)] + pairs + [(0, "ENDSEC")]


handles = iter(range(0x100, 0x10000))


def entity(name, layer, *pairs):
    # The handle comes first, as every CAD program writes it.
    return [(0, name), (5, f"{next(handles):X}"), (8, layer), *pairs]


def line(layer, x1, y1, x2, y2):
    return entity("LINE", layer, (10, x1), (20, y1), (11, x2), (21, y2))


def circle(layer, x, y, radius):
    return entity("CIRCLE", layer, (10, x), (20, y), (40, radius))


def arc(layer, x, y, radius, start, end):
    return entity("ARC", layer, (10, x), (20, y), (40, radius), (50, start), (51, end))


def polyline(layer, vertices, closed=True):
    """Vertices are (x, y, bulge)."""
    pairs = [(90, len(vertices)), (70, int(closed))]
    for x, y, bulge in vertices:
        pairs += [(10, x), (20, y)] + ([(42, bulge)] if bulge else [])
    return entity("LWPOLYLINE", layer, *pairs)


def insert(layer, block, x, y, angle=0.0, scale=1.0):
    return entity("INSERT", layer, (2, block), (10, x), (20, y), (41, scale), (42, scale), (50, angle))


def block(name, entities):
    return [(0, "BLOCK"), (8, "0"), (2, name), (70, 0), (10, 0.0), (20, 0.0)] + entities + [(0, "ENDBLK")]


def slot(layer, x, y, length, radius):
    """A slot along x, its middle at (x, y)."""
    left, right = x - length / 2, x + length / 2
    return (
        line(layer, left, y - radius, right, y - radius)
        + arc(layer, right, y, radius, 270, 90)
        + line(layer, right, y + radius, left, y + radius)
        + arc(layer, left, y, radius, 90, 270)
    )


def bracket():
    """A mounting bracket of 90 x 60 mm: rounded outline, four holes, two slots, engraved centre lines."""
    drawing = Drawing({"CUT": 1, "HOLES": 5, "ENGRAVE": 3})
    width, height, radius = 90.0, 60.0, 8.0
    drawing.entities += line("CUT", radius, 0, width - radius, 0)
    drawing.entities += arc("CUT", width - radius, radius, radius, 270, 0)
    drawing.entities += line("CUT", width, radius, width, height - radius)
    drawing.entities += arc("CUT", width - radius, height - radius, radius, 0, 90)
    drawing.entities += line("CUT", width - radius, height, radius, height)
    drawing.entities += arc("CUT", radius, height - radius, radius, 90, 180)
    drawing.entities += line("CUT", 0, height - radius, 0, radius)
    drawing.entities += arc("CUT", radius, radius, radius, 180, 270)
    for x in (radius, width - radius):
        for y in (radius, height - radius):
            drawing.entities += circle("HOLES", x, y, 2.25)
    drawing.entities += slot("HOLES", width / 2, 15, 30, 3)
    drawing.entities += slot("HOLES", width / 2, 45, 30, 3)
    drawing.entities += line("ENGRAVE", 20, height / 2, 70, height / 2)
    drawing.entities += line("ENGRAVE", width / 2, 24, width / 2, 36)
    return drawing


def panel():
    """A round panel of six equal sectors: one block, turned in steps, that holds a scaled inner block."""
    drawing = Drawing({"CUT": 1, "ENGRAVE": 3})
    hole = circle("CUT", 0, 0, 6) + line("ENGRAVE", -9, 0, 9, 0) + line("ENGRAVE", 0, -9, 0, 9)
    sector = (
        insert("CUT", "HOLE", 40, 0, scale=0.5)
        + slot("CUT", 25, 0, 10, 2)
        + arc("ENGRAVE", 0, 0, 46, -20, 20)
    )
    drawing.blocks += block("HOLE", hole) + block("SECTOR", sector)
    for step in range(6):
        drawing.entities += insert("CUT", "SECTOR", 0, 0, angle=60.0 * step)
    drawing.entities += circle("CUT", 0, 0, 55) + circle("CUT", 0, 0, 12)
    return drawing


def gasket():
    """A flange gasket: bulged outline with two ears, bolt holes, and a hatch whose boundary is the seal."""
    drawing = Drawing({"CUT": 1, "SEAL": 6})
    ear, body = math.tan(math.pi / 4), math.tan(math.radians(100) / 4)
    drawing.entities += polyline(
        "CUT",
        [(-50, 12, ear), (-50, -12, 0), (-30, -24, body), (30, -24, 0), (50, -12, ear), (50, 12, 0), (30, 24, body), (-30, 24, 0)],
    )
    for x in (-50, 50):
        drawing.entities += circle("CUT", x, 0, 5)
    ring = [(20.0, 0.0, 1.0), (-20.0, 0.0, 1.0)]
    boundary = [(91, 2), (92, 2), (72, 1), (73, 1), (93, len(ring))]
    for x, y, bulge in ring:
        boundary += [(10, x), (20, y), (42, bulge)]
    boundary += [(97, 0), (92, 1), (93, 1), (72, 3), (10, 0.0), (20, 0.0), (11, 16.0), (21, 0.0), (40, 0.75)]
    boundary += [(50, 0.0), (51, 360.0), (73, 1), (97, 0)]
    drawing.entities += entity("HATCH", "SEAL", (10, 0.0), (20, 0.0), (30, 0.0), (2, "ANSI31"), (70, 0), (71, 0), *boundary)
    return drawing


def photo():
    """A tag of 60 x 40 mm with a picture of 48 x 32 mm to engrave."""
    drawing = Drawing({"CUT": 1, "PICTURE": 8})
    # An IMAGE names its file as it stands, relative to the folder from which the program is run.
    drawing.comments.append("Read it from the folder above examples/: drawload info examples/photo.dxf")
    drawing.entities += polyline("CUT", [(0, 0, 0), (60, 0, 0), (60, 40, 0), (0, 40, 0)])
    drawing.entities += circle("CUT", 4, 36, 1.5)
    drawing.entities += entity(
        "IMAGE", "PICTURE", (10, 6.0), (20, 4.0), (11, 0.5), (21, 0.0), (12, 0.0), (22, 0.5), (13, 48), (23, 32), (340, "F0")
    )
    drawing.objects = [(0, "IMAGEDEF"), (5, "F0"), (1, "examples/photo.png"), (10, 96), (20, 64), (280, 1)]
    return drawing


def write_photo(path):
    """A picture of 96 x 64 grey pixels: hills under a low sun.

    The first row of a picture lies at the lower edge of a DXF IMAGE, so the picture is stored on its head.
    """
    width, height = 96, 64
    rows = bytearray()
    for y in reversed(range(height)):
        rows.append(0)  # no filter
        for x in range(width):
            sky = 255 - y
            sun = math.hypot(x - 70, y - 22) < 9
            far = y > 40 - 8 * math.sin(x / 11)
            near = y > 52 - 6 * math.cos(x / 17)
            rows.append(60 if near else 120 if far else 250 if sun else int(sky * 0.8))

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    head = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    path.write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b"")
    )


if __name__ == "__main__":
    here = pathlib.Path(__file__).resolve().parent
    write_photo(here / "photo.png")
    for make in (bracket, panel, gasket, photo):
        (here / f"{make.__name__}.dxf").write_text(make().text(), encoding="ascii")
