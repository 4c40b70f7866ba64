#!/usr/bin/env python3
"""Writes the PDF example drawings beside this script: plate.pdf, sheet.pdf, packed.pdf."""

import math
import pathlib
import zlib

KAPPA = 0.5523  # a quarter of a circle as one cubic curve


class Document:
    """Gathers the objects of a PDF file. Numbers start at 1."""

    def __init__(self):
        self.objects = []

    def add(self, body):
        self.objects.append(body if isinstance(body, bytes) else body.encode("latin-1"))
        return len(self.objects)

    def add_stream(self, data, keys="", packed=True):
        if packed:
            data = zlib.compress(data, 9)
            keys += " /Filter /FlateDecode"
        head = f"<< {keys} /Length {len(data)} >>\nstream\n".encode("latin-1")
        return self.add(head + data + b"\nendstream")

    def add_pages(self, pages):
        """Adds the page tree and the catalog; returns the catalog's number."""
        kids = " ".join(f"{page} 0 R" for page in pages)
        tree = self.add(f"<< /Type /Pages /Kids [ {kids} ] /Count {len(pages)} >>")
        return self.add(f"<< /Type /Catalog /Pages {tree} 0 R >>")

    def with_table(self, catalog):
        """The file, with a cross-reference table."""
        parts = [b"%PDF-1.4\n% An example drawing of drawload\n"]
        offsets = []
        for number, body in enumerate(self.objects, 1):
            offsets.append(sum(map(len, parts)))
            parts.append(b"%d 0 obj\n%s\nendobj\n" % (number, body))
        start = sum(map(len, parts))
        count = len(self.objects) + 1
        parts.append(b"xref\n0 %d\n0000000000 65535 f \n" % count)
        parts += [b"%010d 00000 n \n" % offset for offset in offsets]
        parts.append(b"trailer\n<< /Size %d /Root %d 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (count, catalog, start))
        return b"".join(parts)

    def with_streams(self, catalog):
        """The file, with all objects that are no streams in an object stream, and a cross-reference stream."""
        packed = [number for number, body in enumerate(self.objects, 1) if b"stream\n" not in body]
        container = len(self.objects) + 1
        table = container + 1
        bodies = [self.objects[number - 1] + b" " for number in packed]
        places = [sum(map(len, bodies[:i])) for i in range(len(bodies))]
        head = " ".join(f"{number} {place}" for number, place in zip(packed, places)).encode() + b" "
        data = zlib.compress(head + b"".join(bodies), 9)
        keys = f"<< /Type /ObjStm /N {len(packed)} /First {len(head)} /Filter /FlateDecode /Length {len(data)} >>"
        objects = dict(enumerate(self.objects, 1))
        objects[container] = keys.encode() + b"\nstream\n" + data + b"\nendstream"
        parts = [b"%PDF-1.5\n% An example drawing of drawload\n"]
        offsets = {}
        for number, body in objects.items():
            if number in packed:
                continue
            offsets[number] = sum(map(len, parts))
            parts.append(b"%d 0 obj\n%s\nendobj\n" % (number, body))
        start = sum(map(len, parts))
        offsets[table] = start
        rows = [(0, 0, 65535)]
        for number in range(1, table + 1):
            in_stream = number in packed
            rows.append((2, container, packed.index(number)) if in_stream else (1, offsets[number], 0))
        rows = [bytes([kind]) + place.to_bytes(3, "big") + extra.to_bytes(2, "big") for kind, place, extra in rows]
        data = zlib.compress(predicted(rows), 9)
        keys = (f"<< /Type /XRef /Size {table + 1} /Root {catalog} 0 R /W [ 1 3 2 ] /Filter /FlateDecode "
                f"/DecodeParms << /Predictor 12 /Columns 6 >> /Length {len(data)} >>")
        parts.append(b"%d 0 obj\n%s\nstream\n%s\nendstream\nendobj\n" % (table, keys.encode(), data))
        parts.append(b"startxref\n%d\n%%%%EOF\n" % start)
        return b"".join(parts)


def predicted(rows):
    """Each row as its difference from the one above, behind the tag of that prediction."""
    above = bytes(len(rows[0]))
    out = b""
    for row in rows:
        out += b"\x02" + bytes((a - b) % 256 for a, b in zip(row, above))
        above = row
    return out


def circle(x, y, r):
    c = r * KAPPA
    return (f"{x + r:g} {y:g} m\n"
            f"{x + r:g} {y + c:g} {x + c:g} {y + r:g} {x:g} {y + r:g} c\n"
            f"{x - c:g} {y + r:g} {x - r:g} {y + c:g} {x - r:g} {y:g} c\n"
            f"{x - r:g} {y - c:g} {x - c:g} {y - r:g} {x:g} {y - r:g} c\n"
            f"{x + c:g} {y - r:g} {x + r:g} {y - c:g} {x + r:g} {y:g} c\n"
            "h\n")


def plate():
    """Paths, curves and a clip: a plate with rounded corners, four holes and hatching behind a round window."""
    content = "1 w\n1 0 0 RG\n"
    content += ("30 10 m\n270 10 l\n281 10 290 19 290 30 c\n290 170 l\n290 181 281 190 270 190 c\n30 190 l\n"
                "19 190 10 181 10 170 c\n10 30 l\n10 19 19 10 30 10 c\nh\nS\n0 0 1 RG\n")
    for x, y in ((30, 30), (270, 30), (30, 170), (270, 170)):
        content += circle(x, y, 6) + "S\n"
    content += "q\n" + circle(150, 100, 50) + "W n\n0 0.5 0 RG\n"
    for step in range(9):
        content += f"{100 + step * 12:g} 50 m\n{100 + step * 12:g} 150 l\nS\n"
    content += "Q\n0 0.5 0 rg\n" + circle(150, 100, 50) + "f\n200 60 40 80 re\ns\n"
    document = Document()
    stream = document.add_stream(content.encode(), packed=False)
    page = document.add(f"<< /Type /Page /MediaBox [ 0 0 300 200 ] /Contents {stream} 0 R >>")
    return document.with_table(document.add_pages([page]))


def sheet():
    """Two pages with text and an image: a plate with a grey picture, and one without."""
    document = Document()
    font = document.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /Encoding /WinAnsiEncoding >>")
    pixels = bytes(min(255, (x * 8 + y * 8) % 256) for y in range(32) for x in range(32))
    image = document.add_stream(pixels, "/Type /XObject /Subtype /Image /Width 32 /Height 32 "
                                "/ColorSpace /DeviceGray /BitsPerComponent 8")
    resources = f"<< /Font << /F1 {font} 0 R >> /XObject << /Im1 {image} 0 R >> >>"
    # Pictures belong on the first page: those of later pages are not moved down with their page.
    first = (b"10 10 180 80 re\nS\nq\n60 0 0 60 20 20 cm\n/Im1 Do\nQ\nBT\n/F1 18 Tf\n1 0 0 1 95 55 Tm\n"
             b"(drawload) Tj\n0 -24 Td\n[(Page) -250 ( one)] TJ\nET\n")
    second = b"10 10 180 80 re\nS\nBT\n/F1 18 Tf\n1 0 0 1 60 45 Tm\n(Page two) Tj\nET\n"
    pages = []
    for content in (first, second):
        stream = document.add_stream(content)
        pages.append(document.add(f"<< /Type /Page /MediaBox [ 0 0 200 100 ] /Resources {resources} "
                                  f"/Contents {stream} 0 R >>"))
    return document.with_table(document.add_pages(pages))


def packed():
    """A cross-reference stream and an object stream: a gear that a form draws twice."""
    document = Document()
    points = []
    for tooth in range(12):
        for offset, radius in ((0, 40), (8, 40), (11, 48), (19, 48), (22, 40)):
            angle = math.radians(tooth * 30 + offset)
            points.append((radius * math.cos(angle), radius * math.sin(angle)))
    gear = "".join(f"{x:.3f} {y:.3f} {'l' if i else 'm'}\n" for i, (x, y) in enumerate(points))
    gear += "h\nS\n" + circle(0, 0, 9) + "S\n"
    keys = "/Type /XObject /Subtype /Form /BBox [ -50 -50 50 50 ] /Matrix [ 1 0 0 1 {} 60 ]"
    forms = [document.add_stream(gear.encode(), keys.format(x)) for x in (60, 180)]
    resources = document.add(f"<< /XObject << /Fm1 {forms[0]} 0 R /Fm2 {forms[1]} 0 R >> >>")
    stream = document.add_stream(b"/Fm1 Do\n/Fm2 Do\n")
    page = document.add(f"<< /Type /Page /MediaBox [ 0 0 240 120 ] /Resources {resources} 0 R "
                        f"/Contents {stream} 0 R >>")
    return document.with_streams(document.add_pages([page]))


if __name__ == "__main__":
    folder = pathlib.Path(__file__).resolve().parent
    for name, make in (("plate", plate), ("sheet", sheet), ("packed", packed)):
        (folder / f"{name}.pdf").write_bytes(make())
