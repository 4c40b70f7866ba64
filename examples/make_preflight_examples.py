#!/usr/bin/env python3
"""Writes drawings with faults into preflight/ beside this script, for docs/preflight.md."""

import base64
import math
import pathlib
import struct
import zlib


def line(x1, y1, x2, y2):
    return f"0\nLINE\n8\n0\n10\n{x1:g}\n20\n{y1:g}\n11\n{x2:g}\n21\n{y2:g}\n"


def arc(x, y, radius, start, end):
    return f"0\nARC\n8\n0\n10\n{x:g}\n20\n{y:g}\n40\n{radius:g}\n50\n{start:g}\n51\n{end:g}\n"


def circle(x, y, radius):
    return f"0\nCIRCLE\n8\n0\n10\n{x:g}\n20\n{y:g}\n40\n{radius:g}\n"


def polyline(points, closed=True):
    text = f"0\nLWPOLYLINE\n8\n0\n90\n{len(points)}\n70\n{int(closed)}\n"
    return text + "".join(f"10\n{x:g}\n20\n{y:g}\n" for x, y in points)


def rectangle(x, y, width, height):
    return polyline([(x, y), (x + width, y), (x + width, y + height), (x, y + height)])


def dxf(*entities):
    return "0\nSECTION\n2\nENTITIES\n" + "".join(entities) + "0\nENDSEC\n0\nEOF\n"


def lids():
    """Four lids side by side, to save cuts: each edge between two of them is drawn twice, and the wide lid's upper
    edge along three others."""
    small = [rectangle(40 * i, 30, 40, 30) + circle(40 * i + 20, 45, 6) for i in range(3)]
    return dxf(*small, rectangle(0, 0, 120, 30), circle(60, 15, 8))


def plate():
    """A rounded plate as many programs export it: lines and arcs in no order, the holes last, one corner not met."""
    sides = [line(10, 0, 110, 0), line(120, 60, 120, 10), line(10, 70, 110, 70), line(0, 60, 0, 10.4)]
    corners = [arc(110, 10, 10, 270, 360), arc(110, 60, 10, 0, 90), arc(10, 60, 10, 90, 180), arc(10, 10, 10, 180, 270)]
    other = [line(150, 0, 190, 0), line(190, 70, 150, 70), line(190, 0, 190, 70), line(150, 70, 150, 0)]
    holes = [circle(20, 20, 4), circle(100, 20, 4), circle(20, 50, 4), circle(100, 50, 4), circle(60, 35, 15), circle(170, 35, 10)]
    return dxf(*sides, *corners, *other, *holes)


def comb():
    """A comb whose teeth end in spikes that run out and back along one line, and a bow tie that is no fault."""
    points = [(0, 0)]
    for i in range(6):
        x = 4 + 16 * i
        points += [(x, 0), (x + 4, 25), (x + 4, 35), (x + 4, 25), (x + 8, 0)]
    points += [(100, 0), (100, -12), (0, -12)]
    dots = [polyline([(110 + 0.004 * i, 10), (110 + 0.004 * (i + 1), 10)], closed=False) for i in range(3)]
    return dxf(polyline(points), *dots, polyline([(110, 20), (130, 32), (130, 20), (110, 32)]))


def png(side):
    """A grey picture of so many pixels a side: rings around its middle."""
    middle = (side - 1) / 2
    grey = lambda x, y: int(127 + 120 * math.cos(math.hypot(x - middle, y - middle) * 24 / side))
    rows = b"".join(b"\0" + bytes(grey(x, y) for x in range(side)) for y in range(side))
    chunk = lambda kind, data: struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    head = struct.pack(">IIBBBBB", side, side, 8, 0, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


def sign():
    """A sign that reaches over the edge of a bed of 200 by 120 mm, with a coarse picture and a power of 140 percent."""
    picture = base64.b64encode(png(60)).decode()
    return (
        '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="240mm" height="110mm" '
        'viewBox="0 0 240 110">\n'
        f'  <image x="20" y="25" width="60" height="60" xlink:href="data:image/png;base64,{picture}"/>\n'
        '  <circle cx="130" cy="55" r="30" stroke="blue" cutPower="140" cutSpeed="20"/>\n'
        '  <circle cx="190" cy="55" r="20" stroke="blue"/>\n'
        '  <rect x="5" y="5" width="230" height="100" stroke="red"/>\n</svg>\n'
    )


folder = pathlib.Path(__file__).resolve().parent / "preflight"
folder.mkdir(exist_ok=True)
for name, text in {"lids.dxf": lids(), "plate.dxf": plate(), "comb.dxf": comb(), "sign.svg": sign()}.items():
    (folder / name).write_text(text)
