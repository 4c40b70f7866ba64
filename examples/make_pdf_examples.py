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

    def with_table(self, catalog, **options):
        """The file, with a cross-reference table."""
        return file_with_table(dict(enumerate(self.objects, 1)), catalog, **options)

    def with_streams(self, catalog):
        """The file, with all objects that are no streams in an object stream, and a cross-reference stream."""
        objects = dict(enumerate(self.objects, 1))
        return file_with_streams(objects, catalog, {number for number, body in objects.items() if b"stream\n" not in body})


HEAD = b"% An example drawing of drawload\n"


def body_of(head, objects):
    """The first part of a file, and where in it each object begins."""
    parts = [head]
    length = len(head)
    offsets = {}
    for number, body in objects.items():
        offsets[number] = length
        parts.append(b"%d 0 obj\n%s\nendobj\n" % (number, body))
        length += len(parts[-1])
    return b"".join(parts), offsets


def file_with_table(objects, catalog, head=b"%PDF-1.4\n" + HEAD, keys=b" ", sections=0):
    """A file of numbered objects with a cross-reference table. The trailer has these keys too. Each further section
    is one that a save without changes adds."""
    body, offsets = body_of(head, objects)
    count = max(objects) + 1
    rows = b"".join(b"%010d 00000 n \n" % offsets[number] if number in offsets else b"0000000000 65535 f \n"
                    for number in range(1, count))
    trailer = b"/Size %d /Root %d 0 R%s" % (count, catalog, keys)
    out = [body, b"xref\n0 %d\n0000000000 65535 f \n%strailer\n<< %s>>\n" % (count, rows, trailer)]
    start, end = len(body), len(body) + len(out[1])
    for _ in range(sections):
        out.append(b"xref\n0 1\n0000000000 65535 f \ntrailer\n<< %s/Prev %d >>\n" % (trailer, start))
        start, end = end, end + len(out[-1])
    if sections:
        out.append(b"%" + b"-" * 256 + b"\n")  # the last bytes name one section only
    return b"".join(out) + b"startxref\n%d\n%%%%EOF\n" % start


def file_with_streams(objects, catalog, packed, head=b"%PDF-1.5\n" + HEAD, table_keys=b" /Type /XRef ",
                      container_keys=b" /Type /ObjStm ", pairs=b"", rows=0):
    """A file of numbered objects with a cross-reference stream, and those in `packed` in an object stream. Further
    pairs of number and offset in the object stream's head, and further rows of zeros, are announced as if they were
    objects."""
    packed = {number: index for index, number in enumerate(number for number in objects if number in packed)}
    container = max(objects) + 1
    table = container + 1
    places = {}
    length = 0
    for number in packed:
        places[number] = length
        length += len(objects[number]) + 1
    names = b"".join(b"%d %d " % (number, place) for number, place in places.items()) + pairs
    data = zlib.compress(names + b"".join(objects[number] + b" " for number in packed), 9)
    plain = {number: body for number, body in objects.items() if number not in places}
    plain[container] = (b"<<%s/N %d /First %d /Filter /FlateDecode /Length %d >>\nstream\n%s\nendstream" % (
        container_keys, len(packed) + pairs.count(b" ") // 2, len(names), len(data), data))
    body, offsets = body_of(head, plain)
    offsets[table] = start = len(body)
    entries = [(0, 0, 65535)]
    for index in range(1, table + 1):
        if index in places:
            entries.append((2, container, min(packed[index], 65535)))
        else:
            entries.append((1, offsets[index], 0) if index in offsets else (0, 0, 65535))
    entries = [bytes([kind]) + place.to_bytes(3, "big") + extra.to_bytes(2, "big") for kind, place, extra in entries]
    data = zlib.compress(predicted(entries) + bytes(7 * rows), 9)
    keys = b"<<%s/Size %d /Root %d 0 R /W [ 1 3 2 ] /Filter /FlateDecode " % (table_keys, table + 1 + rows, catalog)
    keys += b"/DecodeParms << /Predictor 12 /Columns 6 >> /Length %d >>" % len(data)
    body += b"%d 0 obj\n%s\nstream\n%s\nendstream\nendobj\n" % (table, keys, data)
    return body + b"startxref\n%d\n%%%%EOF\n" % start


def predicted(rows):
    """Each row as its difference from the one above, behind the tag of that prediction."""
    above = bytes(len(rows[0]))
    out = []
    for row in rows:
        out.append(b"\x02" + bytes((a - b) % 256 for a, b in zip(row, above)))
        above = row
    return b"".join(out)


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
