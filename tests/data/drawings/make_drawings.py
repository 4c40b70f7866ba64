#!/usr/bin/env python3
"""Writes the drawings beside this script. Each goes through as much of one reader as a few kilobytes allow; the tests
that damage files, fail allocations and compare runs feed on them."""

import base64
import pathlib
import struct
import sys
import zlib

folder = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(folder.parents[2] / "examples"))
from make_pdf_examples import Document  # noqa: E402

# A picture of 4 by 4 pixels in three components, as an encoder wrote it without loss.
JPEG2000 = bytes.fromhex(
    "ff4fff51002f000000000004000000040000000000000000000000040000000400000000000000000003070101070101070101ff52000c"
    "00000001000004040001ff5c00044040ff640025000143726561746564206279204f70656e4a5045472076657273696f6e20322e352e30"
    "ff90000a00000000003e0001ff93df8060120f849642e1ba6df1cfbd07cfb4381183aaba89794dfa4b4ad7f9ce43df806822f55ea43b09"
    "2742bc946c3f3bffd9")


def png(width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    rows = b"".join(b"\0" + bytes((x * 40 + y * 20) % 256 for x in range(width)) for y in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def bmp(width, height):
    stride = (width * 3 + 3) // 4 * 4
    rows = b"".join(bytes((x * 30 + y) % 256 for x in range(stride)) for y in range(height))
    return (b"BM" + struct.pack("<IHHI", 54 + len(rows), 0, 0, 54) +
            struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(rows), 2835, 2835, 0, 0) + rows)


def gif():
    palette = bytes((0, 0, 0, 255, 255, 255))
    return (b"GIF89a" + struct.pack("<HHBBB", 2, 2, 0x80, 0, 0) + palette + b"\x21\xf9\x04\x01\0\0\x01\0" +
            b"," + struct.pack("<HHHHB", 0, 0, 2, 2, 0) + b"\x02\x03\x44\x02\x05\0;")


def tga():
    return bytes((0, 0, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0, 1, 0, 24, 32, 0x82, 1, 2, 3, 0, 9, 8, 7))


def pnm():
    return b"P5 3 2 255\n" + bytes((0, 50, 100, 150, 200, 250))


# ---- DXF: groups as (code, value), one line each

def dxf(*sections):
    lines = []
    for name, groups in sections:
        lines += ["0", "SECTION", "2", name]
        for code, value in groups:
            lines += [str(code), str(value)]
        lines += ["0", "ENDSEC"]
    return "\n".join(lines + ["0", "EOF", ""]).encode("latin-1")


def groups(text):
    """"0 LINE|8 A|10 1" as pairs."""
    return [(int(part.split(" ", 1)[0]), part.split(" ", 1)[1]) for part in text.split("|")]


HEADER = ("HEADER", groups("9 $ACADVER|1 AC1015|9 $INSUNITS|70 4|9 $DWGCODEPAGE|3 ANSI_936|9 $EXTMIN|10 0|20 0|30 0|"
                           "9 $TEXTSTYLE|7 STANDARD"))
TABLES = ("TABLES", groups(
    "0 TABLE|2 VPORT|70 1|0 VPORT|2 *ACTIVE|70 0|10 0|20 0|11 1|21 1|12 50|22 50|40 100|41 1.5|0 ENDTAB|"
    "0 TABLE|2 LTYPE|70 2|0 LTYPE|2 DASHED|70 0|3 dashes|72 65|73 2|40 3|49 2|74 0|49 -1|74 0|0 ENDTAB|"
    "0 TABLE|2 LAYER|70 3|0 LAYER|2 CUT|70 0|62 1|6 DASHED|0 LAYER|2 HIDDEN|70 0|62 2|290 0|"
    "0 LAYER|2 TRUE|70 0|62 5|420 1193046|0 ENDTAB|"
    "0 TABLE|2 STYLE|70 1|0 STYLE|2 STANDARD|70 0|40 0|41 1|50 0|71 0|42 2.5|3 txt.shx|4 gbcbig.shx|1000 Arial|0 ENDTAB|"
    "0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|2 STANDARD|70 0|3 x|40 1|41 2.5|147 0.6|271 2|0 ENDTAB|"
    "0 TABLE|2 APPID|70 1|0 APPID|2 ACAD|70 0|0 ENDTAB"))


def shapes_dxf():
    entities = (
        "0 LINE|5 A1|8 CUT|62 3|10 0|20 0|11 10|21 5|"
        "0 POINT|8 CUT|10 1|20 2|0 CIRCLE|8 TRUE|62 5|420 255|10 5|20 5|40 3|"
        "0 CIRCLE|8 CUT|10 5|20 5|40 3|210 0|220 0|230 -1|"
        "0 ARC|8 CUT|10 5|20 5|40 4|50 10|51 200|0 ELLIPSE|8 CUT|10 9|20 9|11 4|21 0|40 0.5|41 0|42 4.5|"
        "0 LWPOLYLINE|8 CUT|90 4|70 1|43 0|10 0|20 0|42 0.5|10 10|20 0|10 10|20 10|42 -1|10 0|20 10|"
        "0 POLYLINE|8 CUT|66 1|70 1|0 VERTEX|8 CUT|10 0|20 0|42 0.4|0 VERTEX|8 CUT|10 9|20 0|0 VERTEX|8 CUT|10 9|20 7|"
        "0 SEQEND|8 CUT|"
        "0 POLYLINE|66 1|70 4|0 VERTEX|10 0|20 0|70 16|0 VERTEX|10 1|20 1|70 8|0 VERTEX|10 2|20 3|70 8|0 SEQEND|"
        "0 SPLINE|8 CUT|70 8|71 3|72 10|73 6|74 0|42 1e-7|43 1e-7|40 0|40 0|40 0|40 0|40 1|40 2|40 3|40 3|40 3|40 3|"
        "10 0|20 0|10 2|20 8|10 4|20 0|10 6|20 8|10 8|20 0|10 10|20 4|"
        "0 SPLINE|70 12|71 2|72 7|73 4|40 0|40 0|40 0|40 1|40 2|40 2|40 2|41 1|41 0.7|41 0.7|41 1|"
        "10 1|20 0|10 1|20 1|10 0|20 1|10 -1|20 0|"
        "0 SPLINE|70 8|71 1|72 5|73 3|40 0|40 0|40 1|40 2|40 2|10 0|20 0|10 5|20 5|10 9|20 0|"
        "0 SPLINE|70 8|71 5|72 12|73 6|40 0|40 0|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1|40 1|40 1|"
        "10 0|20 0|10 1|20 3|10 2|20 -3|10 3|20 3|10 4|20 -3|10 5|20 0|"
        "0 HELIX|10 1|20 1|11 2|21 1|12 0|22 0|32 1|40 1|41 2|42 1|290 1|"
        "0 SOLID|10 0|20 0|11 5|21 0|12 0|22 5|13 5|23 5|0 VIEWPORT|10 5|20 5|40 10|41 10|68 1|69 1|"
        "0 HATCH|8 CUT|10 0|20 0|30 0|210 0|220 0|230 1|2 ANSI31|70 0|71 0|91 2|"
        "92 1|93 4|72 1|10 0|20 0|11 8|21 0|72 2|10 8|20 4|40 4|50 270|51 90|73 1|"
        "72 3|10 4|20 8|11 4|21 0|40 0.5|50 0|51 180|73 1|"
        "72 4|94 3|73 0|74 0|95 8|96 4|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1|10 0|20 8|10 1|20 5|10 -1|20 3|10 0|20 0|97 0|"
        "92 7|72 1|73 1|93 3|10 1|20 1|42 0.2|10 3|20 1|42 0|10 3|20 3|42 0|97 0|75 0|76 1|52 45|41 1|77 0|78 1|53 45|"
        "43 0|44 0|45 -2|46 2|79 2|49 1|49 -0.5|98 1|10 1|20 1|"
        "0 WIPEOUT|8 CUT|0 LINE|8 HIDDEN|10 1|20 1|11 2|21 2|0 LINE|60 1|10 1|20 1|11 2|21 2")
    return dxf(HEADER, TABLES, ("BLOCKS", []), ("ENTITIES", groups(entities)))


def blocks_dxf():
    blocks = (
        "0 BLOCK|8 0|2 HOLE|70 0|10 1|20 1|30 0|3 HOLE|1 |0 CIRCLE|5 B1|8 0|10 1|20 1|40 1|"
        "0 ARC|8 0|10 1|20 1|40 2|50 0|51 90|0 ENDBLK|8 0|"
        "0 BLOCK|8 0|2 PAIR|70 0|10 0|20 0|0 INSERT|8 0|2 HOLE|10 5|20 0|41 2|42 2|50 30|0 INSERT|8 0|2 HOLE|10 -5|20 0|"
        "0 TEXT|8 0|10 0|20 0|40 2|1 both|0 LINE|8 0|10 0|20 0|11 3|21 3|0 ENDBLK|8 0|"
        "0 BLOCK|2 LOOP|70 0|10 0|20 0|0 INSERT|2 LOOP|10 1|20 1|41 0.5|42 0.5|0 LINE|10 0|20 0|11 1|21 1|0 ENDBLK")
    entities = (
        "0 INSERT|8 CUT|2 PAIR|10 50|20 50|41 1.5|42 -1|50 45|0 INSERT|8 CUT|2 PAIR|10 1|20 2|70 3|71 2|44 10|45 10|"
        "0 INSERT|2 LOOP|10 0|20 0|41 2|42 2|0 INSERT|2 MISSING|10 0|20 0|"
        "0 INSERT|66 1|2 HOLE|10 3|20 3|210 0|220 0|230 -1|0 ATTRIB|10 0|20 0|40 1|1 a|2 TAG|0 SEQEND|"
        "0 DIMENSION|2 HOLE|10 1|20 1|11 2|21 2|70 32|1 <>|3 STANDARD|13 0|23 0|14 5|24 0|0 LINE|10 0|20 0|11 9|21 9")
    return dxf(HEADER, TABLES, ("BLOCKS", groups(blocks)), ("ENTITIES", groups(entities)))


def texts_dxf():
    gbk = "\xb5\xb6\xbe\xdf"  # two letters in the double-byte code page that the header names
    entities = (
        f"0 TEXT|8 CUT|10 1|20 2|11 5|21 2|40 2.5|1 plain {gbk} \\U+00E9 %%c12 %%d|50 30|41 0.8|51 10|72 1|73 2|7 STANDARD|"
        "0 MTEXT|8 CUT|10 1|20 9|40 2|41 30|44 1.2|71 1|72 5|3 {\\fArial|b1|i0|c0|p34;first\\P\\H2.5x;bigger} |"
        f"1 \\C1;red \\S1/2; \\T1.2;\\Q10;\\W0.8;\\A1;{{\\L under\\l \\O over\\o}} \\~ \\\\ \\{{ {gbk} \\U+4E2D\\pi2,l3,t5;x\\P|"
        "7 STANDARD|11 1|21 0|73 1|"
        "0 MLINE|2 STANDARD|40 1|70 0|71 1|72 2|73 2|10 0|20 0|11 0|21 0|12 1|22 0|13 0|23 1|74 2|41 0|41 1|75 0|"
        "74 2|41 -1|41 1|75 0|"
        "0 ACAD_TABLE|2 *T1|10 0|20 0|11 1|21 0|91 1|92 2|141 5|142 20|142 30|171 1|301 a|1 cell|171 1|1 cell two|"
        "0 TOLERANCE|10 0|20 0|1 {\\Fgdt;j}%%v0.1|"
        "0 MULTILEADER|300 CONTEXT_DATA{|40 1|10 5|20 5|41 2|290 1|304 leader text|11 0|21 0|12 6|22 6|"
        "302 LEADER{|290 1|10 3|20 3|304 LEADER_LINE{|10 0|20 0|10 1|20 1|91 0|305 }|303 }|301 }|170 1|91 -1|"
        "0 LINE|10 0|20 0|11 1|21 1")
    # "\\f...|b1" holds the bar that separates groups here, so this drawing's parts are joined by hand.
    pairs = []
    for part in entities.replace("Arial|b1|i0|c0|p34", "Arial\x01b1\x01i0\x01c0\x01p34").split("|"):
        if part:
            code, value = part.split(" ", 1)
            pairs.append((int(code), value.replace("\x01", "|")))
    objects = groups("0 DICTIONARY|5 C|3 ACAD_GROUP|350 D|0 MLINESTYLE|5 D|2 STANDARD|70 0|62 256|51 90|52 90|71 2|"
                     "49 0.5|62 256|6 BYLAYER|49 -0.5|62 256|6 BYLAYER|0 PLOTSETTINGS|1 page|2 none|40 7.5|70 0")
    return dxf(HEADER, TABLES, ("ENTITIES", pairs), ("OBJECTS", objects))


def picture_dxf():
    entities = ("0 IMAGE|8 CUT|10 10|20 20|11 0.5|21 0|12 0|22 0.5|13 6|23 5|340 E1|70 7|280 0|281 50|282 50|283 0|"
                "0 IMAGE|10 0|20 0|11 1|21 0|12 0|22 1|13 6|23 5|340 E2")
    objects = "0 IMAGEDEF|5 E1|1 picture.bmp|10 6|20 5|11 1|21 1|280 1|281 0|0 IMAGEDEF|5 E2|1 missing.png|10 1|20 1"
    return dxf(HEADER, ("ENTITIES", groups(entities)), ("OBJECTS", groups(objects)))


# ---- SVG

def shapes_svg():
    return b"""<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="10cm" height="4in" viewBox="0 0 200 100">
<style type="text/css"><![CDATA[.a{fill:red;stroke:#0f0}rect.b{stroke:rgb(1,2,3);stroke-width:2}/* note */circle.a{fill:none}]]></style>
<linearGradient id="lg" x1="0" x2="1"><stop offset="0" stop-color="red"/><stop offset="100%" stop-color="#00F" stop-opacity=".5"/></linearGradient>
<radialGradient id="rg" xlink:href="#lg" cx="5" cy="5" r="5"/>
<Param cutPower="20" cutSpeed="8"/>
<g id="parts" transform="translate(5,5) rotate(30 1 2) scale(1.5) skewX(3)" stroke="blue" cutPower="40" engDensity="500">
<rect id="r" class="b" x="1" y="2" width="30" height="20" rx="3" ry="2" fill="url(#lg)"/>
<circle class="a" cx="50" cy="50" r="10"/><ellipse cx="3" cy="4" rx="5" ry="2" style="stroke:red;fill:none"/>
<line x1="0" y1="0" x2="9" y2="9" stroke="black"/><polyline points="0,0 1,1 2-1 3.5.5"/><polygon points="0 0 5 0 5 5" fill="url(#rg)"/>
</g>
<path d="M1 1h5v5l-2 2c1 1 2 2 3 0s2-2 3 0q1 1 2 0t2 0a3 2 30 1 0 4 4A1 1 0 0 1 9 9zm5 5L1e1-2.5.5.5Z" stroke="#123"/>
<use xlink:href="#r" x="4" y="5" transform="matrix(1 0 0 1 3 4)"/><use xlink:href="#parts"/><use xlink:href="#none"/>
<defs><path id="d" d="M0 0L5 5"/></defs><symbol id="s"><rect width="2" height="2"/></symbol><use xlink:href="#s"/>
<svg x="3" y="3" width="20" height="20" viewBox="0 0 10 10"><rect width="5" height="5" stroke="red"/></svg>
<clipPath id="c"><rect width="5" height="5"/></clipPath><switch><rect width="1" height="1"/></switch>
<rect width="5" height="5" fill="none" stroke="none"/><rect width="bad" height="-5" stroke="red"/>
</svg>
"""


def texts_svg():
    return """<svg width="100" height="50" viewBox="0 0 100 50" xmlns:xlink="x">
<g font-family="DejaVu Sans" font-size="9" engraveSpeed="300" processType="2">
<text x="5" y="20">A\u00e9&amp;&#x41;&#66;<tspan x="30" dy="5" font-size="6">b <tspan>c</tspan></tspan> tail</text>
<text x="5" y="40" font-family="Nameplate" transform="scale(2 1)">Qq</text><text font-family="Broken">x</text></g></svg>
""".encode()


def pictures_svg():
    parts = []
    for kind, data in (("png", png(5, 3)), ("bmp", bmp(3, 2)), ("gif", gif()), ("tga", tga()), ("x-portable", pnm())):
        text = base64.b64encode(data).decode()
        parts.append(f'<image x="1" y="2" width="30" height="10" Reverse="1" imageType="2" engDensity="254" '
                     f'xlink:href="data:image/{kind};base64,{text}"/>')
    return ('<svg width="40mm" height="30mm" viewBox="0 0 40 30" xmlns:xlink="x">' + "\n".join(parts) +
            '<image width="5" height="5" xlink:href="other.png"/></svg>\n').encode()


# ---- PDF

def page_of(document, content, resources="", more=""):
    stream = document.add_stream(content.encode("latin-1"), packed=False)
    return document.add(f"<< /Type /Page /MediaBox [ 0 0 200 150 ] /Resources << {resources} >> "
                        f"/Contents {stream} 0 R {more}>>")


def lzw(data):
    """Nine-bit codes with a clear code before each byte: larger than the data, and every decoder reads it."""
    bits = "".join(f"{code:09b}" for byte in data for code in (256, byte)) + f"{257:09b}"
    bits += "0" * (-len(bits) % 8)
    return int(bits, 2).to_bytes(len(bits) // 8, "big")


def filters_pdf():
    """Images through every filter, and a form."""
    document = Document()
    grey = bytes(range(0, 240, 10))  # 6 by 4
    bits = bytes((0xAA, 0x55, 0xF0, 0x0F))
    image = "/Type /XObject /Subtype /Image /Width {} /Height {} /ColorSpace /{} /BitsPerComponent 8"
    streams = [
        (zlib.compress(grey), image.format(6, 4, "DeviceGray") + " /Filter /FlateDecode"),
        (zlib.compress(grey), image.format(4, 2, "DeviceRGB") + " /Filter [ /FlateDecode ]"),
        (zlib.compress(grey), image.format(3, 2, "DeviceCMYK") + " /Filter /FlateDecode"),
        (grey, image.format(6, 4, "DeviceGray")),
        (lzw(bits), image.format(8, 4, "DeviceGray") + " /Filter /LZWDecode"),
        (b"\x03" + bits + b"\xfe\x80\x80", image.format(8, 6, "DeviceGray") + " /Filter /RunLengthDecode"),
        (JPEG2000, image.format(4, 4, "DeviceRGB") + " /Filter /JPXDecode"),
        (b"\xff\xd8\xff\xd9", image.format(5, 5, "DeviceRGB") + " /Filter /DCTDecode"),
        (b"\0\1", image.format(8, 8, "DeviceGray") + " /Filter /CCITTFaxDecode"),
        (grey.hex().encode() + b">", image.format(6, 4, "DeviceGray") + " /Filter /ASCIIHexDecode"),
        (base64.a85encode(grey) + b"~>", image.format(6, 4, "DeviceGray") + " /Filter /ASCII85Decode"),
    ]
    numbers = [document.add_stream(data, keys, packed=False) for data, keys in streams]
    line = b"0 0 m\n50 50 l\nS\n"
    form = "/Type /XObject /Subtype /Form /BBox [ 0 0 9 9 ] /Matrix [ 1 0 0 1 9 9 ] /Filter /"
    numbers.append(document.add_stream(base64.a85encode(line) + b"~>", form + "ASCII85Decode", packed=False))
    names = " ".join(f"/X{i} {number} 0 R" for i, number in enumerate(numbers))
    content = "".join(f"q\n20 0 0 20 {i * 10} {i * 5} cm\n/X{i} Do\nQ\n" for i in range(len(numbers)))
    page = page_of(document, content + "0 0 m\n9 9 l\nS\n", f"/XObject << {names} >>")
    return document.with_table(document.add_pages([page]))


def fonts_pdf():
    """Simple and composite fonts, their maps, and all operators that show text."""
    document = Document()
    cmap = document.add_stream(
        b"/CIDInit /ProcSet findresource begin\nbegincmap\n1 begincodespacerange\n<0000> <ffff>\nendcodespacerange\n"
        b"2 beginbfchar\n<0003> <0041>\n<0004> <d83dde00>\nendbfchar\n2 beginbfrange\n<0010> <0014> <0061>\n"
        b"<0020> <0022> [ <0031> <0032> <0033> ]\nendbfrange\nendcmap\nend\n")
    descriptor = document.add("<< /Type /FontDescriptor /FontName /AAAAAA+DejaVuSans /Flags 4 /FontBBox [ 0 0 9 9 ] "
                              "/ItalicAngle 0 /Ascent 900 /Descent -200 /CapHeight 700 /StemV 80 >>")
    descendant = document.add(f"<< /Type /Font /Subtype /CIDFontType2 /BaseFont /AAAAAA+DejaVuSans /CIDSystemInfo << "
                              f"/Registry (Adobe) /Ordering (Identity) /Supplement 0 >> /DW 1000 /W [ 3 [ 500 600 ] 16 20 700 ] "
                              f"/FontDescriptor {descriptor} 0 R >>")
    composite = document.add(f"<< /Type /Font /Subtype /Type0 /BaseFont /AAAAAA+DejaVuSans /Encoding /Identity-H "
                             f"/DescendantFonts [ {descendant} 0 R ] /ToUnicode {cmap} 0 R >>")
    simple = document.add(f"<< /Type /Font /Subtype /TrueType /BaseFont /DejaVuSans /Encoding /WinAnsiEncoding "
                          f"/FirstChar 32 /LastChar 34 /Widths [ 300 400 500 ] /FontDescriptor {descriptor} 0 R >>")
    content = ("BT\n/F1 12 Tf\n1 0 0 1 10 20 Tm\n(Simple \\(text\\) \\101) Tj\n0 -14 Td\n[(ke) -20 (rn)] TJ\nT*\n"
               "/F2 9 Tf\n<000300040010001100200021> Tj\n2 Tr\n1 Tc\n3 Tw\n100 Tz\n12 TL\n5 Ts\n(x) '\nET\n")
    page = page_of(document, content, f"/Font << /F1 {simple} 0 R /F2 {composite} 0 R >>")
    return document.with_table(document.add_pages([page]))


def painting_pdf():
    """Path operators, colour spaces, graphics states, shadings with functions, clips and nested forms."""
    document = Document()
    first = document.add("<< /FunctionType 2 /Domain [ 0 1 ] /C0 [ 1 0 0 ] /C1 [ 0 0 1 ] /N 1 >>")
    second = document.add("<< /FunctionType 2 /Domain [ 0 1 ] /C0 [ 0 1 0 ] /C1 [ 0 0 1 ] /N 2 >>")
    stitching = document.add(f"<< /FunctionType 3 /Domain [ 0 1 ] /Functions [ {first} 0 R {second} 0 R ] "
                             f"/Bounds [ 0.5 ] /Encode [ 0 1 0 1 ] >>")
    axial = document.add(f"<< /ShadingType 2 /ColorSpace /DeviceRGB /Coords [ 0 0 9 9 ] /Function {stitching} 0 R "
                         f"/Extend [ true false ] >>")
    radial = document.add(f"<< /ShadingType 3 /ColorSpace /DeviceRGB /Coords [ 0 0 1 9 9 5 ] /Domain [ 0 1 ] "
                          f"/Function {first} 0 R >>")
    space = document.add("[ /ICCBased 99 0 R ]")
    state = document.add("<< /Type /ExtGState /LW 2 /CA 0.5 /ca 0.5 /LC 1 /LJ 1 /ML 4 /SA true >>")
    inner = document.add_stream(b"0 0 5 5 re\nS\n", "/Type /XObject /Subtype /Form /BBox [ 0 0 5 5 ]")
    outer = document.add_stream(b"q\n2 0 0 2 9 9 cm\n/In Do\nQ\n", "/Type /XObject /Subtype /Form /BBox [ 0 0 9 9 ] "
                                f"/Matrix [ 1 0 0 1 3 3 ] /Resources << /XObject << /In {inner} 0 R >> >>")
    content = ("1 w\n1 J\n1 j\n4 M\n[ 3 2 ] 0 d\n/GS gs\n/CS cs\n/CS CS\n0.1 0.2 0.3 sc\n0.3 0.2 0.1 SC\n0.5 scn\n"
               "0 1 0 0 k\n0 0 1 0 K\n0.5 g\n0.5 G\n1 0 0 rg\n0 1 0 RG\n"
               "0 0 m\n10 0 l\n10 5 12 8 10 10 c\n5 12 0 10 v\n0 5 0 0 y\nh\nB\n5 5 m\n9 9 l\n9 5 l\nf*\n"
               "q\n10 10 50 50 re\nW*\nn\n/Sh1 sh\n/Sh2 sh\nQ\n1 2 3 4 re\nb*\n/Out Do\n/MC /P BDC\n3 3 m\n4 4 l\ns\nEMC\n"
               "BI /W 2 /H 1 /CS /G /BPC 8 ID ab EI\n0 0 m\n1 1 l\nS\n")
    resources = (f"/ExtGState << /GS {state} 0 R >> /ColorSpace << /CS {space} 0 R >> "
                 f"/Shading << /Sh1 {axial} 0 R /Sh2 {radial} 0 R >> /XObject << /Out {outer} 0 R /In {inner} 0 R >>")
    pages = [page_of(document, content, resources), page_of(document, content, resources)]
    return document.with_table(document.add_pages(pages))


def updated_pdf():
    """A file that was saved again: a second table with /Prev and a new content."""
    document = Document()
    page = page_of(document, "0 0 m\n9 9 l\nS\n")
    catalog = document.add_pages([page])
    file = document.with_table(catalog)
    before = int(file.split(b"startxref\n")[-1].split(b"\n")[0])
    content = b"1 1 m\n50 20 l\n30 40 l\nh\nS\n"
    start = len(file) + 300
    body = b"1 0 obj\n<< /Length %d >>\nstream\n%s\nendstream\nendobj\n" % (len(content), content)
    table = start + len(body)
    return (file + b"%" + b"-" * 298 + b"\n" + body + b"xref\n1 1\n%010d 00000 n \ntrailer\n<< /Size %d /Root %d 0 R "
            b"/Prev %d >>\n%%%s\nstartxref\n%d\n%%%%EOF\n" % (start, len(document.objects) + 1, catalog, before,
                                                             b"-" * 256, table))


def streams_pdf():
    """The objects in an object stream behind a cross-reference stream."""
    document = Document()
    page = page_of(document, "0 0 m\n9 9 l\nS\n20 20 30 30 re\nS\n")
    return document.with_streams(document.add_pages([page]))


DRAWINGS = {
    "shapes.dxf": shapes_dxf, "blocks.dxf": blocks_dxf, "texts.dxf": texts_dxf, "picture.dxf": picture_dxf,
    "shapes.svg": shapes_svg, "texts.svg": texts_svg, "pictures.svg": pictures_svg,
    "filters.pdf": filters_pdf, "fonts.pdf": fonts_pdf, "painting.pdf": painting_pdf, "updated.pdf": updated_pdf,
    "streams.pdf": streams_pdf, "picture.bmp": lambda: bmp(6, 5),
}

if __name__ == "__main__":
    for name, make in DRAWINGS.items():
        (folder / name).write_bytes(make())
