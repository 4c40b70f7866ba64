#!/usr/bin/env python3
"""Worst files for their size: writes drawings that ask for as much work or memory as their format allows, reads each at
a size and at four times that size, and prints what it took.

    worst_files.py PROGRAM [--size BYTES] [--only TEXT] [--keep FOLDER] [--check]

PROGRAM loads the drawing that it is given and walks its results (load_drawing of this folder). With --check the answer
is 1 where a file of four times the size took out of all proportion longer, or any file too much time or memory."""

import argparse
import base64
import os
import pathlib
import resource
import struct
import subprocess
import sys
import tempfile
import zlib

PATTERNS = {}


def pattern(function):
    PATTERNS[function.__name__] = function
    return function


# ---- DXF

def dxf(entities, blocks="", objects="", tables=""):
    text = ""
    for name, body in (("TABLES", tables), ("BLOCKS", blocks), ("ENTITIES", entities), ("OBJECTS", objects)):
        text += f"0\nSECTION\n2\n{name}\n{body}0\nENDSEC\n"
    return (text + "0\nEOF\n").encode("latin-1")


def tags(text):
    return text.replace("|", "\n") + "\n"


def fill(unit, size, head="", tail=""):
    count = max(1, (size - len(head) - len(tail)) // max(1, len(unit)))
    return head + unit * count + tail


@pattern
def dxf_lines(size):
    return dxf(fill(tags("0|LINE|11|5"), size))


@pattern
def dxf_circles(size):
    return dxf(fill(tags("0|CIRCLE|40|5"), size))


@pattern
def dxf_arcs_of_many_turns(size):
    return dxf(fill(tags("0|ARC|40|5|50|0|51|359999"), size))


@pattern
def dxf_backward_arcs(size):
    return dxf(fill(tags("0|ARC|40|5|50|359999|51|0"), size))


@pattern
def dxf_flat_blocks(size):
    circles = fill(tags("0|CIRCLE|5|1|40|1"), size // 2)
    return dxf(fill(tags("0|INSERT|2|b"), size // 2), tags("0|BLOCK|2|b") + circles + tags("0|ENDBLK"))


@pattern
def dxf_blocks_of_blocks(size):
    levels = 10
    each = size // levels
    blocks = ""
    for level in range(levels):
        inner = tags(f"0|INSERT|5|1|2|b{level + 1}") if level + 1 < levels else tags("0|LINE|5|1|11|5")
        blocks += tags(f"0|BLOCK|2|b{level}") + fill(inner, each) + tags("0|ENDBLK")
    return dxf(tags("0|INSERT|2|b0") * 100, blocks)


@pattern
def dxf_block_in_itself(size):
    block = tags("0|BLOCK|2|b") + fill(tags("0|INSERT|5|1|2|b|0|LINE|5|1|11|3"), size // 2) + tags("0|ENDBLK")
    return dxf(fill(tags("0|INSERT|2|b"), size // 2), block)


@pattern
def dxf_many_blocks_of_one_name(size):
    blocks = fill(tags("0|BLOCK|2|b|0|ENDBLK"), size // 2)
    return dxf(fill(tags("0|INSERT|2|b"), size // 2), blocks)


@pattern
def dxf_many_layers(size):
    count = size // 60
    layers = "".join(tags(f"0|LAYER|2|layer{i}|62|{i % 255}") for i in range(count))
    entities = "".join(tags(f"0|LINE|8|layer{i}|11|5") for i in range(count))
    return dxf(entities, tables=tags("0|TABLE|2|LAYER") + layers + tags("0|ENDTAB"))


@pattern
def dxf_long_line_types(size):
    line_type = tags("0|LTYPE|2|d") + tags("49|1") * 1000
    table = tags("0|TABLE|2|LTYPE") + line_type + tags("0|ENDTAB")
    return dxf(fill(tags("0|LINE|6|d|11|5"), max(size - len(table), size // 4)), tables=table)


@pattern
def dxf_hatches_with_lying_counts(size):
    return dxf(fill(tags("0|HATCH|91|2000000000|92|2|93|2000000000|78|2000000000|98|2000000000"), size))


@pattern
def dxf_hatch_of_many_edges(size):
    return dxf(fill(tags("72|1|10|0|20|0|11|1|21|1"), size, tags("0|HATCH|91|1|92|1|93|1000000"), tags("75|0")))


@pattern
def dxf_hatches_of_ellipse_turns(size):
    return dxf(fill(tags("0|HATCH|2|SOLID|70|1|71|0|91|1|92|1|93|1|72|3|10|0|20|0|11|5|21|0|40|1|50|0|51|359999|73|1|97|0|75|0|76|1|98|0"), size))


@pattern
def dxf_long_splines(size):
    # The most knots that a spline may have, as often as they fit.
    points = min(12000, size // 14)
    spline = tags(f"0|SPLINE|70|8|71|3|72|{points + 4}|73|{points}") + tags("40|0") * 4
    for i in range(points):
        spline += tags(f"40|{i + 1}|10|{i % 7}|20|{i % 5}")
    return dxf(fill(spline, size))


@pattern
def dxf_rational_splines(size):
    spline = tags("0|SPLINE|70|12|71|32|72|66|73|33") + tags("40|0") * 33 + tags("40|1") * 33
    for i in range(33):
        spline += tags(f"10|{i * 1e9:g}|20|{(i % 2) * 1e9:g}|41|{i % 3 + 1}")
    return dxf(fill(spline, size))


@pattern
def dxf_small_rational_splines(size):
    return dxf(fill(tags("0|SPLINE|70|12|71|2|72|6|73|3|40|0|40|0|40|0|40|1|40|1|40|1|10|0|20|0|41|1|10|9e9|20|9e9|41|.1|10|0|20|1|41|1"),
                    size))


@pattern
def dxf_paragraph_of_braces(size):
    return dxf(fill("{", size, "0\nMTEXT\n1\n", "\n"))


@pattern
def dxf_paragraph_of_codes(size):
    return dxf(fill("\\fA;\\H1x;\\S1/2;\\P", size, "0\nMTEXT\n1\n", "\n"))


@pattern
def dxf_paragraph_in_pieces(size):
    return dxf(tags("0|MTEXT") + fill(tags("3|\\U+00E9a"), size // 2) + fill(tags("1|\\U+00E9"), size // 2))


@pattern
def dxf_one_long_line_of_text(size):
    return dxf(fill("\\U+4E2D", size, "0\nTEXT\n1\n", "\n"))


@pattern
def dxf_polyline(size):
    return dxf(fill(tags("10|1|20|2|42|1"), size, tags("0|LWPOLYLINE|90|2000000000")))


@pattern
def dxf_vertices(size):
    return dxf(fill(tags("0|VERTEX|10|1|20|2|42|1"), size, tags("0|POLYLINE|66|1"), tags("0|SEQEND")))


@pattern
def dxf_image_definitions(size):
    count = size // 50
    objects = "".join(tags(f"0|IMAGEDEF|5|{i + 16:X}|1|none{i}.png") for i in range(count))
    return dxf("".join(tags(f"0|IMAGE|340|{i + 16:X}") for i in range(count)), objects=objects)


@pattern
def dxf_leaders(size):
    return dxf(fill(tags("302|LEADER{|304|LEADER_LINE{|10|1|20|2|305|}|303|}"), size,
                    tags("0|MULTILEADER|300|CONTEXT_DATA{"), tags("301|}")))


@pattern
def dxf_long_numbers(size):
    return dxf(fill("9", size, "0\nLINE\n10\n", "\n") + tags("0|LINE|11|5"))


# ---- SVG

def svg(body, head=""):
    return (f'<svg xmlns:xlink="x" width="100" height="100" viewBox="0 0 100 100">{head}{body}</svg>').encode("latin-1")


@pattern
def svg_lines(size):
    return svg(fill('<path d="M0 0H1"/>', size))


@pattern
def svg_long_path(size):
    return svg(fill("h1v1", size, '<path stroke="red" d="M0 0', '"/>'))


@pattern
def svg_path_of_arcs(size):
    return svg(fill("a1 1 0 1 1 1 0", size, '<path stroke="red" d="M0 0', '"/>'))


@pattern
def svg_path_of_moves(size):
    return svg(fill("m1 1z", size, '<path stroke="red" d="M0 0', '"/>'))


@pattern
def svg_points(size):
    return svg(fill("1 2 ", size, '<polygon stroke="red" points="', '"/>'))


@pattern
def svg_long_number(size):
    return svg(fill("9", size, '<path stroke="red" d="M0 0L', '"/>'))


@pattern
def svg_transforms(size):
    return svg(fill("scale(1)", size, '<rect stroke="red" width="1" height="1" transform="', '"/>'))


@pattern
def svg_rules_and_classes(size):
    count = size // 60
    rules = "".join(f".c{i}{{stroke:red}}" for i in range(count))
    return svg("".join(f'<rect class="c{i}" width="1" height="1"/>' for i in range(count)), f"<style>{rules}</style>")


@pattern
def svg_rules_of_one_class(size):
    rules = fill(".c{stroke:red}", size // 2)
    return svg(fill('<rect class="c" width="1"/>', size // 2), f"<style>{rules}</style>")


@pattern
def svg_elements_of_many_classes(size):
    rules = "".join(f".c{i}{{stroke:red}}" for i in range(size // 40))
    names = " ".join(f"c{i}" for i in range(500))
    return svg(fill(f'<rect class="{names}" width="1" height="1"/>', size // 2), f"<style>{rules}</style>")


@pattern
def svg_sheets(size):
    return svg(fill("<style>.a{b:c}</style>", size // 2) + fill('<rect class="a" width="1" height="1" stroke="red"/>', size // 2))


@pattern
def svg_long_style(size):
    return svg(fill("stroke:red;", size, '<rect width="1" height="1" style="', '"/>'))


@pattern
def svg_inherited_attributes(size):
    names = " ".join(f'a{i}="{"x" * 20}"' for i in range(500))
    return svg(f"<g {names}>" + fill("<rect/>", size) + "</g>")


@pattern
def svg_groups_that_hand_on(size):
    names = " ".join(f'a{i}="1"' for i in range(500))
    return svg(fill(f'<g {names}>' + "<g><g><g><g/></g></g></g>" * 50 + "</g>", size))


@pattern
def svg_uses_of_a_long_path(size):
    path = fill("h1v1", size // 2, '<path id="p" stroke="red" d="M0 0', '"/>')
    return svg(path + fill('<use xlink:href="#p"/>', size // 2))


@pattern
def svg_uses_of_groups(size):
    inner = fill('<rect width="1" height="1" stroke="red"/>', size // 2, '<g id="g">', "</g>")
    return svg(inner + fill('<use xlink:href="#g"/>', size // 2))


@pattern
def svg_uses_of_missing(size):
    return svg("".join(f'<use xlink:href="#n{i}"/>' for i in range(size // 25)))


@pattern
def svg_many_names(size):
    count = size // 90
    return svg("".join(f'<rect id="r{i}" width="1" height="1" stroke="red"/>' for i in range(count)) +
               "".join(f'<use xlink:href="#r{count - i}"/>' for i in range(count)))


@pattern
def svg_gradient_of_many_stops(size):
    stops = fill('<stop offset="0" stop-color="red"/>', size // 2, '<linearGradient id="l">', "</linearGradient>")
    return svg(stops + fill('<rect fill="url(#l)" width="1" height="1"/>', size // 2))


@pattern
def svg_chain_of_gradients(size):
    count = size // 120
    chain = "".join(f'<linearGradient id="l{i}" xlink:href="#l{i + 1}"/>' for i in range(count))
    return svg(chain + "".join(f'<rect fill="url(#l{i})" width="1" height="1"/>' for i in range(count)))


@pattern
def svg_text(size):
    return svg(fill("W", size, '<text font-family="DejaVu Sans" font-size="9">', "</text>"))


@pattern
def svg_short_texts(size):
    return svg(fill("<text>W</text>", size))


@pattern
def svg_texts_of_many_sizes(size):
    return svg("".join(f'<text font-size="{i % 3000 + 1}">W</text>' for i in range(size // 32)))


@pattern
def svg_texts_of_many_fonts(size):
    return svg("".join(f'<text font-family="f{i}">W</text>' for i in range(size // 36)))


@pattern
def svg_texts_of_long_fonts(size):
    families = ",".join(f"f{i}" for i in range(600))
    return svg("".join(f'<text font-family="{families}{i}">W</text>' for i in range(max(1, size // 3000))))


@pattern
def svg_pieces_of_text(size):
    return svg(fill("<tspan>W</tspan>", size, "<text>", "</text>"))


def png(width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    packer = zlib.compressobj(9)
    row = bytes(1 + (width + 7) // 8)
    rows = b"".join(packer.compress(row * 64) for _ in range(height // 64)) + packer.flush()
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 1, 0, 0, 0, 0)) +
            chunk(b"IDAT", rows) + chunk(b"IEND", b""))


@pattern
def svg_large_picture(size):
    side = int((size * 0.7 * 8000) ** 0.5) // 64 * 64
    text = base64.b64encode(png(min(side, 11584), min(side, 11584))).decode()
    return svg(f'<image width="9" height="9" xlink:href="data:image/png;base64,{text}"/>')


@pattern
def svg_small_pictures(size):
    text = base64.b64encode(b"P5 1 1 255\n\x01").decode()
    return svg(fill(f'<image width="9" height="9" xlink:href="data:image/x;base64,{text}"/>', size))


@pattern
def svg_uses_of_a_picture(size):
    text = base64.b64encode(png(1024, 1024)).decode()
    image = f'<image id="i" width="9" height="9" xlink:href="data:image/png;base64,{text}"/>'
    return svg(image + fill('<use xlink:href="#i"/>', size))


@pattern
def svg_references(size):
    return svg(fill("&#65;", size, "<text>", "</text>"))


@pattern
def svg_top_level_elements(size):
    return fill("<a/>", size).encode()


# ---- PDF

class Pdf:
    def __init__(self):
        self.objects = [b""]

    def add(self, body):
        self.objects.append(body if isinstance(body, bytes) else body.encode("latin-1"))
        return len(self.objects) - 1

    def stream(self, data, keys="", packed=False):
        data = data if isinstance(data, bytes) else data.encode("latin-1")
        if packed:
            data = zlib.compress(data, 9)
            keys += " /Filter /FlateDecode"
        return self.add(f"<< {keys} /Length {len(data)} >>\nstream\n".encode() + data + b"\nendstream")

    def page(self, content, resources="", packed=False, kids=1):
        stream = self.stream(content, packed=packed)
        page = self.add(f"<< /Type /Page /MediaBox [ 0 0 200 100 ] /Resources << {resources} >> /Contents {stream} 0 R >>")
        tree = self.add("<< /Type /Pages /Kids [ " + f"{page} 0 R " * kids + f"] /Count {kids} >>")
        return self.file(self.add(f"<< /Type /Catalog /Pages {tree} 0 R >>"))

    def file(self, catalog):
        parts = [b"%PDF-1.4\n%" + b"-" * 300 + b"\n"]
        length = len(parts[0])
        offsets = []
        for number, body in enumerate(self.objects[1:], 1):
            offsets.append(length)
            parts.append(b"%d 0 obj\n%s\nendobj\n" % (number, body))
            length += len(parts[-1])
        parts.append(b"xref\n0 %d\n0000000000 65535 f \n" % len(self.objects))
        parts += [b"%010d 00000 n \n" % offset for offset in offsets]
        parts.append(b"trailer\n<< /Size %d /Root %d 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (len(self.objects), catalog, length))
        return b"".join(parts)


@pattern
def pdf_lines(size):
    return Pdf().page(fill("0 0 m\n9 9 l\nS\n", size))


@pattern
def pdf_packed_lines(size):
    return Pdf().page(fill("0 0 m\n9 9 l\nS\n", size * 40), packed=True)


@pattern
def pdf_one_line_of_content(size):
    return Pdf().page(fill("0 0 m 9 9 l S ", size))


@pattern
def pdf_rectangles(size):
    return Pdf().page(fill("0 0 5 5 re\n", size) + "S\n")


@pattern
def pdf_paths_painted_again(size):
    return Pdf().page(fill("0 0 m\n5 5 l\nB\nW\n", size))


@pattern
def pdf_saved_states(size):
    return Pdf().page(fill("q\n", size // 2) + fill("Q\n", size // 2) + "0 0 m\n5 5 l\nS\n")


@pattern
def pdf_saved_long_paths(size):
    return Pdf().page(fill("0 0 5 5 re\n", size // 2) + fill("q\n", size // 2) + "S\n")


@pattern
def pdf_long_string(size):
    return Pdf().page(fill("A", size, "BT\n/F1 9 Tf\n(", ") Tj\nET\n"), "/Font << /F1 << /BaseFont /Sans >> >>")


@pattern
def pdf_string_of_brackets(size):
    return Pdf().page(fill("\\)", size, "BT\n/F1 9 Tf\n(", ") Tj\nET\n"))


@pattern
def pdf_short_strings(size):
    document = Pdf()
    font = document.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>")
    return document.page(fill("(A) Tj\n", size, "BT\n/F1 9 Tf\n", "ET\n"), f"/Font << /F1 {font} 0 R >>")


@pattern
def pdf_array_of_strings(size):
    document = Pdf()
    font = document.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>")
    return document.page(fill("(A)-5 ", size, "BT\n/F1 9 Tf\n[", "] TJ\nET\n"), f"/Font << /F1 {font} 0 R >>")


@pattern
def pdf_forms_of_forms(size):
    document = Pdf()
    count = 12
    each = size // count
    inner = document.stream(fill("0 0 m\n9 9 l\nS\n", each), "/Type /XObject /Subtype /Form")
    for _ in range(count - 1):
        inner = document.stream(fill("/X Do\n", each), "/Type /XObject /Subtype /Form "
                                f"/Resources << /XObject << /X {inner} 0 R >> >>")
    return document.page("/X Do\n", f"/XObject << /X {inner} 0 R >>")


@pattern
def pdf_form_drawn_often(size):
    document = Pdf()
    form = document.stream(fill("0 0 m\n9 9 l\nS\n", size // 2), "/Type /XObject /Subtype /Form")
    return document.page(fill("/X Do\n", size // 2), f"/XObject << /X {form} 0 R >>")


@pattern
def pdf_image_drawn_often(size):
    document = Pdf()
    image = document.stream(b"\x01", "/Type /XObject /Subtype /Image /Width 1 /Height 1 /ColorSpace /DeviceGray")
    return document.page(fill("/X Do\n", size), f"/XObject << /X {image} 0 R >>")


@pattern
def pdf_large_image_drawn_often(size):
    document = Pdf()
    image = document.stream(bytes(4000 * 4000), "/Type /XObject /Subtype /Image /Width 4000 /Height 4000 "
                            "/ColorSpace /DeviceGray", packed=True)
    return document.page(fill("/X Do\n", size), f"/XObject << /X {image} 0 R >>")


@pattern
def pdf_white_images(size):
    document = Pdf()
    names = ""
    for i in range(max(1, size // 300)):
        image = document.stream(b"", "/Type /XObject /Subtype /Image /Width 5000 /Height 5000 /Filter /DCTDecode")
        names += f"/X{i} {image} 0 R "
    return document.page("".join(f"/X{i} Do\n" for i in range(max(1, size // 300))), f"/XObject << {names} >>")


@pattern
def pdf_packed_bomb(size):
    return Pdf().page(b" " * (size * 1000), packed=True)


@pattern
def pdf_pages_of_one_content(size):
    return Pdf().page(fill("0 0 m\n9 9 l\nS\n", size // 2), kids=size // 16)


@pattern
def pdf_pages_with_many_resources(size):
    document = Pdf()
    count = size // 400
    fonts = [document.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>") for _ in range(count)]
    resources = document.add("<< /Font << " + " ".join(f"/F{i} {font} 0 R" for i, font in enumerate(fonts)) + " >> >>")
    content = document.stream("0 0 m\n9 9 l\nS\n")
    pages = [document.add(f"<< /Type /Page /MediaBox [ 0 0 9 9 ] /Resources {resources} 0 R /Contents {content} 0 R >>")
             for _ in range(count)]
    tree = document.add("<< /Type /Pages /Kids [ " + " ".join(f"{page} 0 R" for page in pages) + " ] >>")
    return document.file(document.add(f"<< /Type /Catalog /Pages {tree} 0 R >>"))


@pattern
def pdf_many_contents(size):
    document = Pdf()
    content = document.stream("0 0 m\n9 9 l\nS\n")
    page = document.add(f"<< /Type /Page /MediaBox [ 0 0 9 9 ] /Resources << >> /Contents [ {fill(f'{content} 0 R ', size)} ] >>")
    tree = document.add(f"<< /Type /Pages /Kids [ {page} 0 R ] >>")
    return document.file(document.add(f"<< /Type /Catalog /Pages {tree} 0 R >>"))


@pattern
def pdf_map_of_ranges(size):
    document = Pdf()
    cmap = document.stream(fill("<0000> <ffff> <0041>\n", size, "9 beginbfrange\n", "endbfrange\n"))
    font = document.add(f"<< /Type /Font /Subtype /Type0 /BaseFont /Sans /ToUnicode {cmap} 0 R >>")
    return document.page("BT\n/F1 9 Tf\n<00410042> Tj\nET\n", f"/Font << /F1 {font} 0 R >>")


@pattern
def pdf_nested_arrays(size):
    document = Pdf()
    font = document.add(fill("[", size // 2, "<< /BaseFont /A /W ", "") + fill("]", size // 2) + " >>")
    return document.page("0 0 m\n9 9 l\nS\n", f"/Font << /F1 {font} 0 R >>")


@pattern
def pdf_updates(size):
    file = Pdf().page("0 0 m\n9 9 l\nS\n")
    last = int(file.split(b"startxref\n")[-1].split(b"\n")[0])
    root = file.split(b"/Root ")[1].split(b" ")[0]
    parts = [file]
    length = len(file)
    while length < size:
        body = b"xref\n0 1\n0000000000 65535 f \ntrailer\n<< /Size 9 /Root %s 0 R /Prev %d >>\n" % (root, last)
        last = length
        parts.append(body)
        length += len(body)
    parts.append(b"%" + b"-" * 300 + b"\nstartxref\n%d\n%%%%EOF\n" % last)
    return b"".join(parts)


@pattern
def pdf_empty_sections(size):
    file = Pdf().page("0 0 m\n9 9 l\nS\n")
    head, tail = file.split(b"xref\n", 1)
    return head + b"xref\n" + fill("0 0\n", size).encode() + tail


@pattern
def pdf_stitched_functions(size):
    document = Pdf()
    inner = document.add("<< /FunctionType 2 /Domain [ 0 1 ] /C0 [ 0 ] /C1 [ 1 ] /N 1 >>")
    for _ in range(12):
        inner = document.add("<< /FunctionType 3 /Domain [ 0 1 ] /Functions [ " + fill(f"{inner} 0 R ", size // 12) + "] >>")
    shading = document.add(f"<< /ShadingType 2 /ColorSpace /DeviceRGB /Coords [ 0 0 1 1 ] /Function {inner} 0 R >>")
    return document.page("0 0 9 9 re\nW\nn\n/S sh\n", f"/Shading << /S {shading} 0 R >>")


@pattern
def pdf_objects_in_a_stream(size):
    count = size // 30
    document = Pdf()
    heads = ""
    bodies = ""
    for i in range(count):
        heads += f"{i + 1} {len(bodies)} "
        bodies += "<< /Type /Font /BaseFont /A >> "
    names = "".join(f"/F{i} {i + 1} 0 R " for i in range(count))
    kid, tree, catalog, content, container, table = (count + k for k in range(1, 7))
    plain = {kid: f"<< /Type /Page /MediaBox [ 0 0 9 9 ] /Resources << /Font << {names} >> >> /Contents {content} 0 R >>",
             tree: f"<< /Type /Pages /Kids [ {kid} 0 R ] >>", catalog: f"<< /Type /Catalog /Pages {tree} 0 R >>",
             content: "<< /Length 14 >>\nstream\n0 0 m\n9 9 l\nS\n\nendstream"}
    data = zlib.compress((heads + bodies).encode(), 9)
    out = b"%PDF-1.5\n%" + b"-" * 300 + b"\n"
    offsets = {}
    for number, body in plain.items():
        offsets[number] = len(out)
        out += b"%d 0 obj\n%s\nendobj\n" % (number, body.encode())
    offsets[container] = len(out)
    out += (f"{container} 0 obj\n<< /Type /ObjStm /N {count} /First {len(heads)} /Filter /FlateDecode /Length {len(data)} >>\n"
            "stream\n").encode() + data + b"\nendstream\nendobj\n"
    offsets[table] = start = len(out)
    above = bytes(7)
    rows = [b"\x02" + above]
    for number in range(1, table + 1):
        kind, place, extra = (1, offsets[number], 0) if number in offsets else (2, container, number - 1)
        row = bytes([kind]) + place.to_bytes(4, "big") + min(extra, 65535).to_bytes(2, "big")
        rows.append(b"\x02" + bytes((a - b) % 256 for a, b in zip(row, above)))
        above = row
    data = zlib.compress(b"".join(rows), 9)
    out += (f"{table} 0 obj\n<< /Type /XRef /Size {table + 1} /Root {catalog} 0 R /W [ 1 4 2 ] /Filter /FlateDecode "
            f"/DecodeParms << /Predictor 12 /Columns 7 >> /Length {len(data)} >>\nstream\n").encode() + data + b"\nendstream\nendobj\n"
    return out + b"startxref\n%d\n%%%%EOF\n" % start


# ---- measuring

LIMIT_SECONDS = 120

# These do grow with the square of their size, up to a bound of src/support/limits.h that ends them within seconds.
BOUNDED = {"pdf_pages_with_many_resources"}


def measure(program, path):
    """Processor seconds (None where it was stopped), peak MiB and the number of results of one read."""
    limit = (LIMIT_SECONDS, LIMIT_SECONDS)
    process = subprocess.Popen([program, str(path)], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                               preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, limit))
    answer = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = status
    if os.WIFSIGNALED(status):
        return None, usage.ru_maxrss / 1024, 0
    results = int(answer.split()[0]) if answer else 0
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, results


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--size", type=int, default=250_000)
    parser.add_argument("--only", default="")
    parser.add_argument("--keep", type=pathlib.Path)
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()
    folder = options.keep or pathlib.Path(tempfile.mkdtemp(prefix="drawload_"))
    folder.mkdir(exist_ok=True)
    failures = []
    print(f"{'file':36} {'KB':>7} {'s':>7} {'MiB':>7} {'KB':>7} {'s':>7} {'MiB':>7} {'times':>6} {'results':>9}")
    for name, make in PATTERNS.items():
        if options.only not in name:
            continue
        figures = []
        for size in (options.size, 4 * options.size):
            path = folder / f"{name}.{name[:3]}"
            path.write_bytes(make(size))
            figures.append((path.stat().st_size / 1000, *measure(options.program, path)))
            if options.keep is None:
                path.unlink()
        (kb1, s1, mib1, _), (kb4, s4, mib4, results) = figures
        growth = None if s1 is None or s4 is None else s4 / max(s1, 0.01)
        shown = [f"{value:7.2f}" if value is not None else "stopped" for value in (s1, s4, growth)]
        print(f"{name:36} {kb1:7.0f} {shown[0]} {mib1:7.0f} {kb4:7.0f} {shown[1]} {mib4:7.0f} {shown[2][1:]} {results:9}", flush=True)
        if s4 is None:
            failures.append(f"{name} was stopped")
        elif growth > 8 and s4 > 0.5 and name not in BOUNDED:
            failures.append(f"{name} took {growth:.0f} times as long at four times the size")
        elif s4 > 30:
            failures.append(f"{name} took {s4:.0f} s")
        if mib4 > 4096:
            failures.append(f"{name} took {mib4:.0f} MiB")
    if options.keep is None:
        folder.rmdir()
    print("\n".join(failures), file=sys.stderr)
    return 1 if options.check and failures else 0


if __name__ == "__main__":
    sys.exit(main())
