#!/usr/bin/env python3
"""Writes the SVG example drawings beside this script: box.svg, gears.svg, coaster.svg, nameplate.svg."""

import base64
import math
import pathlib
import struct
import zlib

HEADER = '<?xml version="1.0" encoding="UTF-8"?>\n<!-- Example drawing of drawload: {about} -->\n'
NAMESPACES = 'xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"'


def document(width, height, about, content):
    """A page of `width` by `height` millimetres, in user units of a tenth of a millimetre."""
    return (
        HEADER.format(about=about)
        + f'<svg {NAMESPACES} width="{width}mm" height="{height}mm" viewBox="0 0 {width * 10} {height * 10}">\n'
        + "".join(f"  {line}\n" for line in content)
        + "</svg>\n"
    )


def path(points):
    return "M" + " L".join(f"{x:g} {y:g}" for x, y in points) + " Z"


# --- A box with finger joints -------------------------------------------------------------------------------


def panel(x, y, width, height, fingers_x, fingers_y, depth, outward_x, outward_y):
    """A clockwise outline. Every other piece of an edge lies `depth` inside; edges that are `outward` begin and
    end with a finger, the others with a gap, so that the two kinds fit into each other."""
    corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]
    directions = [(1, 0), (0, 1), (-1, 0), (0, -1)]
    points = []
    for side, ((cx, cy), (ux, uy)) in enumerate(zip(corners, directions)):
        along_x = side % 2 == 0
        length, fingers = (width, fingers_x) if along_x else (height, fingers_y)
        outward, next_to = (outward_x, outward_y) if along_x else (outward_y, outward_x)
        end_inset, corner_inset = (0 if outward else depth), (0 if next_to else depth)
        points.append((cx + ux * corner_inset - uy * end_inset, cy + uy * corner_inset + ux * end_inset))
        for piece in range(1, 2 * fingers + 1):
            at = piece * length / (2 * fingers + 1)
            for inset in (piece - 1, piece):
                inward = depth if (inset % 2 == 0) != outward else 0
                points.append((round(cx + ux * at - uy * inward, 4), round(cy + uy * at + ux * inward, 4)))
    return points


def box():
    """80 by 60 by 40 millimetres, of 3 millimetre plywood: bottom, two long and two short walls."""
    width, depth, height, sheet, gap = 800, 600, 400, 30, 50
    panels = {
        "bottom": panel(gap, gap, width, depth, 4, 3, sheet, False, False),
        "front": panel(gap, 2 * gap + depth, width, height, 4, 2, sheet, True, True),
        "back": panel(gap, 3 * gap + depth + height, width, height, 4, 2, sheet, True, True),
        "left": panel(2 * gap + width, gap, depth, height, 3, 2, sheet, True, False),
        "right": panel(2 * gap + width, 2 * gap + height, depth, height, 3, 2, sheet, True, False),
    }
    lines = ['<g fill="none" stroke="#ff0000" stroke-width="1">']
    lines += [f'  <path id="{name}" d="{path(points)}"/>' for name, points in panels.items()]
    lines += ["</g>"]
    return document(155, 160, "a box with finger joints, 80 by 60 by 40 mm, of 3 mm sheet", lines)


# --- A gear set ---------------------------------------------------------------------------------------------


def gear_outline(teeth, module):
    """A gear with straight flanks about the origin: enough to turn, quick to cut."""
    pitch = teeth * module / 2
    outer, root = pitch + module, pitch - 1.25 * module
    points = []
    for tooth in range(teeth):
        for radius, share in ((root, -0.35), (outer, -0.15), (outer, 0.15), (root, 0.35)):
            angle = 2 * math.pi * (tooth + share) / teeth
            points.append((round(radius * math.cos(angle), 3), round(radius * math.sin(angle), 3)))
    return path(points)


def window(inner, outer, spokes):
    """One opening between two spokes."""
    half = math.pi / spokes - 0.22
    corners = [(radius * math.cos(angle), radius * math.sin(angle))
               for radius, angle in ((inner, -half), (outer, -half), (outer, half), (inner, half))]
    (ax, ay), (bx, by), (cx, cy), (dx, dy) = [(round(x, 3), round(y, 3)) for x, y in corners]
    return (f"M{ax:g} {ay:g} L{bx:g} {by:g} A{outer:g} {outer:g} 0 0 1 {cx:g} {cy:g} L{dx:g} {dy:g} "
            f"A{inner:g} {inner:g} 0 0 0 {ax:g} {ay:g} Z")


def gears():
    """Symbols inside a group are drawn in their place as well, so each part's first copy is the part itself."""
    module = 20
    lines = ['<g stroke="black" fill="none">', '  <g transform="translate(380 380)">']
    lines += [f'    <path d="{gear_outline(30, module)}"/>', '    <circle r="40"/>', '    <g id="windows">',
              f'      <path id="window" d="{window(90, 230, 5)}"/>', "    </g>"]
    lines += [f'    <use xlink:href="#window" transform="rotate({72 * i})"/>' for i in range(1, 5)]
    lines += ["  </g>", "</g>", '<g stroke="black" fill="none" transform="translate(880 200)">',
              '  <g id="pinion">', f'    <path d="{gear_outline(12, module)}"/>', '    <circle r="30"/>', "  </g>",
              "</g>", '<g stroke="black" fill="none">']
    lines += [f'  <use xlink:href="#pinion" transform="translate(880 {y}) rotate(15)"/>' for y in (520,)]
    lines += ["</g>"]
    return document(106, 76, "a gear of 30 teeth and two of 12, with nested groups and copies", lines)


# --- A coaster with settings for each object ----------------------------------------------------------------


def coaster():
    petals = []
    for i in range(12):
        a = 2 * math.pi * i / 12
        left, right, tip = a - 0.24, a + 0.24, 330
        points = [(150 * math.cos(left), 150 * math.sin(left)), (tip * math.cos(a), tip * math.sin(a)),
                  (150 * math.cos(right), 150 * math.sin(right))]
        (x0, y0), (x1, y1), (x2, y2) = [(round(500 + x, 2), round(500 + y, 2)) for x, y in points]
        bulge = 260
        qx, qy = round(500 + bulge * math.cos(left), 2), round(500 + bulge * math.sin(left), 2)
        rx, ry = round(500 + bulge * math.cos(right), 2), round(500 + bulge * math.sin(right), 2)
        petals.append(f"M{x0:g} {y0:g} Q{qx:g} {qy:g} {x1:g} {y1:g} Q{rx:g} {ry:g} {x2:g} {y2:g}")
    lines = [
        '<Param machineType="1" AutoFocus="1" frequency="20"/>',
        "<!-- scored lightly -->",
        '<g stroke="blue" fill="none" cutPower="18" cutSpeed="120" processType="1">',
        f'  <path d="{" ".join(petals)}"/>',
        '  <circle cx="500" cy="500" r="380"/>',
        "</g>",
        "<!-- deeper: in the group the circle would take the group's settings, whatever its own -->",
        '<circle cx="500" cy="500" r="395" stroke="blue" fill="none" cutPower="25" cutSpeed="120" processType="1"/>',
        "<!-- cut through, slowly; the hole before the rim, so that nothing moves -->",
        '<circle cx="500" cy="77" r="14" stroke="red" fill="none" cutPower="85" cutSpeed="12" processType="0"/>',
        '<circle cx="500" cy="500" r="450" stroke="red" fill="none" cutPower="90" cutSpeed="10" processType="0"/>',
    ]
    return document(100, 100, "a coaster whose objects carry their own speeds and powers", lines)


# --- A nameplate with two sizes of text and a photo ---------------------------------------------------------


def png(width, height, pixel):
    """A grey PNG file of the values that `pixel(x, y)` gives."""

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + bytes(pixel(x, y) for x in range(width)) for y in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9))
            + chunk(b"IEND", b""))


def hills(x, y):
    """A sun over three ranges of hills, seen as a photo of 120 by 120 pixels."""
    if math.hypot(x - 84, y - 30) < 13:
        return 255
    for tone, base, swing, turn in ((60, 92, 8, 17.0), (105, 74, 12, 23.0), (150, 58, 9, 31.0)):
        if y > base + swing * math.sin(x / turn * 2 + tone):
            return tone + (y * 7 + x * 3) % 11
    return 235 - y // 2


def nameplate():
    photo = base64.b64encode(png(120, 120, hills)).decode()
    lines = [
        '<rect x="10" y="10" width="980" height="380" rx="40" ry="40" fill="none" stroke="red" cutPower="85" '
        'cutSpeed="12"/>',
        '<circle cx="50" cy="200" r="16" fill="none" stroke="red" cutPower="85" cutSpeed="12"/>',
        '<circle cx="950" cy="200" r="16" fill="none" stroke="red" cutPower="85" cutSpeed="12"/>',
        '<g font-family="DejaVu Sans" engraveSpeed="300">',
        '  <text x="400" y="190" font-size="110">HOLT</text>',
        '  <text x="400" y="290" font-size="48">Third floor, left</text>',
        "</g>",
        '<image x="90" y="60" width="280" height="280" imageType="1" Reverse="1" engraveSpeed="250" '
        'engDensity="254"',
        f'       xlink:href="data:image/png;base64,{photo}"/>',
    ]
    return document(100, 40, "a nameplate with text in two sizes and an engraved photo", lines)


def main():
    folder = pathlib.Path(__file__).parent
    for name, make in (("box", box), ("gears", gears), ("coaster", coaster), ("nameplate", nameplate)):
        (folder / f"{name}.svg").write_text(make(), encoding="utf-8")


if __name__ == "__main__":
    main()
