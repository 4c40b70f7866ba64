#!/usr/bin/env python3
"""Writes the seeds of the fuzz targets beside this script, one folder for each target: small inputs that use all that
the readers know. The pictures in corpus/jpeg2000/ were written with OpenJPEG's encoder and are not made here."""

import base64
import pathlib
import shutil
import struct
import sys
import zlib

FOLDER = pathlib.Path(__file__).resolve().parent
EXAMPLES = FOLDER.parent.parent / "examples"
sys.path.insert(0, str(EXAMPLES))
sys.dont_write_bytecode = True
import make_pdf_examples  # noqa: E402


def write(target, name, contents):
    path = FOLDER / target / name
    path.parent.mkdir(exist_ok=True)
    path.write_bytes(contents.encode() if isinstance(contents, str) else contents)


# --- DXF ----------------------------------------------------------------------------------------------------


def tags(text):
    return text.replace("|", "\n").strip("\n") + "\n"


def section(name, text):
    return f"0|SECTION|2|{name}|{text}0|ENDSEC|"


DXF_HEADER = "9|$ACADVER|1|AC1015|9|$DWGCODEPAGE|3|ANSI_936|9|$INSUNITS|70|4|9|$UCSORG|10|0|20|0|30|0|"
DXF_TABLES = (
    "0|TABLE|2|LTYPE|70|2|0|LTYPE|2|DASHED|3|dashes|72|65|73|2|40|3|49|2|49|-1|0|ENDTAB|"
    "0|TABLE|2|LAYER|70|2|0|LAYER|2|0|62|7|6|CONTINUOUS|0|LAYER|2|cut|70|0|62|1|6|DASHED|370|25|420|255|0|ENDTAB|"
    "0|TABLE|2|STYLE|70|1|0|STYLE|2|notes|3|plate.ttf|4|big.shx|40|2|41|0.8|50|15|71|2|1071|33554432|0|ENDTAB|"
    "0|TABLE|2|VPORT|70|1|0|VPORT|2|*ACTIVE|12|5|22|5|40|10|41|1.5|0|ENDTAB|"
    "0|TABLE|2|DIMSTYLE|70|1|0|DIMSTYLE|2|small|40|1|41|2|140|2.5|0|ENDTAB|0|TABLE|2|APPID|0|APPID|2|ACAD|0|ENDTAB|")
DXF_CURVES = (
    "0|LINE|5|A1|8|cut|10|0|20|0|30|0|11|5|21|5|31|0|0|POINT|5|A2|8|0|10|1|20|1|"
    "0|CIRCLE|5|A3|8|cut|62|3|10|5|20|5|40|2.5|210|0|220|0|230|-1|0|ARC|5|A4|8|0|10|5|20|5|40|3|50|350|51|80|"
    "0|ELLIPSE|5|A5|8|0|10|9|20|9|11|4|21|0|31|0|40|0.5|41|0|42|3.14|0|SOLID|5|A6|10|0|20|0|11|1|21|0|12|0|22|1|"
    "13|1|23|1|0|LWPOLYLINE|5|A7|8|cut|90|3|70|1|43|0.1|38|2|10|0|20|0|42|0.5|10|9|20|0|40|1|41|2|10|9|20|9|"
    "0|POLYLINE|5|A8|8|cut|66|1|70|1|0|VERTEX|8|cut|10|0|20|0|42|1|0|VERTEX|8|cut|10|5|20|0|0|VERTEX|10|5|20|5|"
    "70|16|0|SEQEND|8|cut|")
DXF_SPLINES = (
    "0|SPLINE|5|B1|8|0|70|8|71|3|72|8|73|4|74|0|42|0.001|40|0|40|0|40|0|40|0|40|1|40|1|40|1|40|1|"
    "10|0|20|0|10|3|20|6|10|6|20|-6|10|9|20|0|0|SPLINE|5|B2|70|4|71|2|72|6|73|3|40|0|40|0|40|0|40|1|40|1|40|1|"
    "41|1|41|0.7|41|1|10|0|20|0|10|5|20|0|10|5|20|5|0|SPLINE|5|B3|70|0|71|3|74|4|11|0|21|0|11|2|21|3|11|5|21|1|11|8|"
    "21|2|12|1|22|0|13|1|23|1|0|HELIX|5|B4|70|1|71|2|72|7|73|4|40|0|40|0|40|0|40|1|40|2|40|2|40|2|10|0|20|0|10|1|20|2|"
    "10|3|20|2|10|4|20|0|")
DXF_HATCH = (
    "0|HATCH|5|C1|8|0|2|ANSI31|70|0|71|1|91|3|92|1|93|4|72|1|10|0|20|0|11|5|21|0|72|2|10|5|20|5|40|2|50|0|51|90|73|1|"
    "72|3|10|1|20|2|11|0|21|4|40|0.5|50|30|51|120|73|0|72|4|94|1|73|1|74|0|95|4|96|2|40|0|40|0|40|1|40|1|10|1|20|1|42|1|"
    "10|3|20|4|42|0.5|97|0|92|3|72|1|73|1|93|3|10|1|20|2|42|0.5|10|3|20|4|10|5|20|0|97|1|330|A7|75|1|76|1|52|45|41|2|"
    "77|0|78|1|53|30|43|1|44|2|45|3|46|4|79|2|49|5|49|-6|47|0.5|98|1|10|2|20|2|450|1|453|2|463|0|421|255|470|LINEAR|")
DXF_TEXTS = (
    "0|TEXT|5|D1|8|0|10|1|20|2|40|3|1|M\\U+00B0 abc|50|45|7|notes|72|1|73|2|11|4|21|4|"
    "0|MTEXT|5|D2|8|0|10|1|20|9|40|2|41|50|71|5|72|1|7|notes|3|{\\fArial|b1;Bold} \\H2x;big\\P|1|\\S1/2; \\C1;red|"
    "44|1.5|73|2|0|ATTDEF|5|D3|10|0|20|0|40|1|1|x|2|TAG|0|DIMENSION|5|D4|2|part|10|1|20|1|11|2|21|2|70|0|1|<>|3|small|"
    "0|TOLERANCE|5|D5|10|0|20|0|1|{\\Fgdt;j}%%v0.1|0|LEADER|5|D6|76|2|10|0|20|0|10|5|20|5|")
DXF_OTHERS = (
    "0|MULTILEADER|5|E1|8|0|300|CONTEXT_DATA{|40|1|10|0|20|0|41|2|290|1|304|text|302|LEADER{|290|1|291|1|10|5|20|5|"
    "304|LEADER_LINE{|10|1|20|1|305|}|303|}|301|}|340|0|170|2|0|MLINE|5|E2|2|STANDARD|40|1|70|1|71|0|72|2|73|2|10|0|20|0|"
    "11|0|21|0|12|1|22|0|13|0|23|1|74|2|41|0|41|1|75|0|74|2|41|0|41|1|75|0|11|5|21|0|12|1|22|0|13|0|23|1|"
    "0|ACAD_TABLE|5|E3|2|part|10|0|20|0|90|22|91|1|92|2|141|5|142|9|142|9|171|1|1|cell|301|CELL_VALUE|304|ACVALUE_END|"
    "0|VIEWPORT|5|E4|10|5|20|5|40|9|41|6|68|1|69|1|12|0|22|0|0|IMAGE|5|E5|10|1|20|2|11|0.5|21|0|12|0|22|0.5|13|4|23|4|"
    "340|F1|0|RAY|5|E6|10|0|20|0|11|1|21|0|999|comment|")
DXF_BLOCKS = (
    "0|BLOCK|8|0|2|part|70|0|10|1|20|1|30|0|0|LINE|5|10|8|0|62|0|10|0|20|0|11|4|21|4|0|CIRCLE|5|11|8|0|10|2|20|2|40|1|"
    "0|ENDBLK|0|BLOCK|2|pair|10|0|20|0|0|INSERT|5|12|2|part|10|0|20|0|0|INSERT|5|13|2|part|10|9|20|0|41|-2|42|1|50|30|"
    "0|TEXT|5|14|1|in|40|1|0|LINE|5|15|10|0|20|0|11|1|21|1|0|ENDBLK|")
DXF_INSERTS = "0|INSERT|5|16|8|cut|2|pair|10|20|20|20|41|2|42|2|50|90|70|2|71|3|44|30|45|30|210|0|220|0|230|-1|"
DXF_NESTED_TABLES = (
    "0|BLOCK|2|cells|10|0|20|0|0|LINE|8|cut|10|0|20|0|11|4|21|4|0|TEXT|8|cut|10|1|20|2|40|3|1|cell|7|notes|0|ENDBLK|"
    "0|BLOCK|2|rows|10|0|20|0|0|ACAD_TABLE|8|cut|2|cells|10|0|20|0|91|1|92|1|141|5|142|9|171|1|1|cell|0|ENDBLK|")
DXF_TABLES_ON_DASHES = (
    "0|ACAD_TABLE|8|cut|2|rows|10|0|20|0|91|1|92|1|141|5|142|9|171|1|1|cell|0|ACAD_TABLE|8|cut|2|cells|10|9|20|0|"
    "0|HATCH|8|cut|2|SOLID|70|1|71|0|91|1|92|1|93|4|72|1|10|0|20|0|11|5|21|0|72|1|10|5|20|0|11|5|21|5|"
    "72|1|10|5|20|5|11|0|21|0|75|0|76|1|98|0|0|MTEXT|8|cut|10|1|20|9|40|2|7|notes|1|{\\fA;}x|")
DXF_OBJECTS = "0|DICTIONARY|5|9|0|IMAGEDEF|5|F1|1|/nowhere.png|10|4|20|4|280|1|281|2|0|MLINESTYLE|5|F2|2|STANDARD|71|2|49|0|49|1|"


def dxf(entities, blocks="", objects=""):
    return tags(section("HEADER", DXF_HEADER) + section("CLASSES", "") + section("TABLES", DXF_TABLES)
                + section("BLOCKS", blocks) + section("ENTITIES", entities) + section("OBJECTS", objects) + "0|EOF|")


def dxf_seeds():
    for name, text in (("curves", DXF_CURVES), ("splines", DXF_SPLINES), ("hatch", DXF_HATCH), ("texts", DXF_TEXTS)):
        write("dxf", f"{name}.dxf", dxf(text))
    write("dxf", "others.dxf", dxf(DXF_OTHERS, DXF_BLOCKS, DXF_OBJECTS))
    write("dxf", "inserts.dxf", dxf(DXF_INSERTS, DXF_BLOCKS))
    write("dxf", "tables.dxf", dxf(DXF_TABLES_ON_DASHES, DXF_NESTED_TABLES))
    write("dxf", "short.dxf", tags("0|SECTION|2|ENTITIES|0|LINE|10|1|11|2|0|ENDSEC|0|EOF|"))
    write("dxf", "windows.dxf", dxf(DXF_CURVES).replace("\n", "\r\n"))
    write("dxf_tags", "all", dxf(DXF_CURVES + DXF_HATCH))
    write("dxf_tags", "odd", "999\ncomment\n  10 \n 1.5e3\n1071\n99999999999\n5\nFFG\n290\n1\n160\n-1\n0\nEOF")
    write("dxf_text", "page", b"\x01ANSI_936\nabc \\U+4E2D \xd6\xd0\xce\xc4 \\M+1D6D0")
    write("dxf_text", "utf8", "\x05utf-8\n中文 ° \\U+00B0\\U+ZZZZ\\U+12")
    write("dxf_text", "latin", b"\x00ANSI_1252\n\xe4\xf6\xfc\x80 plain")
    for name, text in (
            ("formats", "{\\fArial|b1|i0|c0|p34;Bold} \\H2.5x;big \\W0.8;w \\Q15;q \\T1.2;t \\A1;a"),
            ("colors", "\\C1;red\\c255;true\\L under \\l\\O over\\o\\K strike\\k"),
            ("stacks", "\\S1/2; \\S+0.1^-0.1; \\S3#4;\\~nbsp"),
            ("paragraphs", "one\\Ptwo\\pi1,l2,r3,t4,5;three\\pxqc,sm1.5;\\N{deep {er} }\\\\ \\{ \\}"),
            ("symbols", "%%d%%c%%p^I^J\\U+2205 \\M+18163"),
            ("names", "{\\fA;}{\\fB|b1;}\\fC;}x"),
            ("broken", "\\fNo end")):
        write("mtext", name, text)


# --- SVG ----------------------------------------------------------------------------------------------------


def png(width, height, colour_type=0):
    channels = {0: 1, 2: 3, 4: 2, 6: 4}[colour_type]

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + bytes((x * 40 + y) % 256 for x in range(width * channels)) for y in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, colour_type, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def jpeg():
    """A grey picture of two blocks with a restart between them, in tables of one code each."""

    def segment(marker, data):
        return bytes((0xFF, marker)) + struct.pack(">H", len(data) + 2) + data

    tables = segment(0xC4, b"\0\1" + bytes(16)) + segment(0xC4, b"\x10\1" + bytes(16))
    return (b"\xff\xd8" + segment(0xE1, b"note\xff\xda") + segment(0xDB, b"\0" + b"\1" * 64) + segment(0xDD, b"\0\1")
            + segment(0xC0, b"\x08" + struct.pack(">HH", 8, 16) + b"\1\1\x11\0") + tables
            + segment(0xDA, b"\1\1\0\0\x3f\0") + b"\x3f\xff\xd0\x3f\xff\xd9")


def svg(content, head='width="20mm" height="10mm" viewBox="0 0 200 100"'):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" {head}>'
            f"{content}</svg>")


def svg_seeds():
    picture = base64.b64encode(png(3, 2, 2)).decode()
    write("svg", "shapes.svg", svg(
        '<g transform="translate(5,5) scale(2)" stroke="red" cutPower="50"><rect x="1" y="2" width="30" height="20" rx="3"/>'
        '<circle cx="5" cy="5" r="4"/><ellipse cx="9" cy="9" rx="5" ry="2" fill="#123"/><line x1="0" y1="0" x2="9" y2="9"/>'
        '<polyline points="0,0 5,5 9,1" style="stroke:blue;fill:none"/><polygon points="0 0 5 5 9 1"/></g>'))
    write("svg", "paths.svg", svg(
        '<path d="M10 10h5v5l-3,3Q1 1 2 2T5 5C1 2 3 4 5 6S7 8 9 9A5 3 30 1 0 20 20z"/>'
        '<path d="m1,1 2-2a1 1 0 016 6" stroke-width="2" stroke-dasharray="1 2" stroke-linecap="round" opacity=".5"/>'))
    write("svg", "uses.svg", svg(
        '<defs><symbol id="s"><rect width="5" height="5"/></symbol><g id="a"><circle r="2"/><use xlink:href="#s"/></g>'
        '<clipPath id="c"><rect width="9" height="9"/></clipPath></defs><use href="#a" x="5" y="5"/>'
        '<use xlink:href="#a" transform="rotate(45 5 5)"/><switch><g><path d="M0 0L1 1"/></g></switch>'))
    write("svg", "styles.svg", svg(
        "<style><![CDATA[.a{fill:red;stroke:#0f0}rect.b{display:none}c{stroke-width:2px}]]></style>"
        '<rect class="a b" width="5" height="5"/><g class="c" style="fill:url(#l);cutSpeed:10"><rect class="a" width="9" height="9"/></g>'
        '<linearGradient id="l" x1="0" x2="1"><stop offset="0%" stop-color="red"/><stop offset="1" style="stop-color:blue"/>'
        '</linearGradient><radialGradient id="r" href="#l" r="50%"/><circle r="5" fill="url(#r)"/>'))
    write("svg", "gradients.svg", svg(
        '<linearGradient id="a" style="stop-color:red;stop-opacity:1" x1="0"><stop offset="0" stop-color="red"/></linearGradient>'
        '<linearGradient id="b" xlink:href="#a" class="k"/><style>.k{fill:red;stroke:blue}</style>'
        '<rect fill="url(#a)" width="5" height="5"/><circle r="5" style="fill:url(#b);stroke:red"/><a/>'
        '<linearGradient id="c" style="a:b;"/><rect fill="url(#c)"/>'))
    write("svg", "texts.svg", svg(
        '<text x="5" y="20" font-family="Plate" font-size="10" text-anchor="middle" rotate="5">Ab<tspan dx="2" dy="1" '
        'font-weight="bold">c</tspan> &amp; &#65;</text><flowRoot><flowRegion><rect width="9" height="9"/></flowRegion>flow</flowRoot>'))
    write("svg", "image.svg", svg(
        f'<image x="1" y="1" width="30" height="20" imageType="1" Reverse="1" engDensity="254" '
        f'xlink:href="data:image/png;base64,{picture}"/><foreignObject><p>x</p></foreignObject>'))
    write("svg", "machine.svg", '<?xml version="1.0"?><!-- c --><Param machineType="1" machineModel="x" diameter="50" AutoFocus="1" '
          'Distance="2"/>' + svg('<g processType="1" engraveSpeed="300" EngMinP="1" EngMaxP="90" frequency="20" highFocus="1">'
                                 '<rect width="50%" height="1in"/></g>', 'width="100%" height="5cm"'))
    for name, text in (("all", "M10 10h5v5l-3,3Q1 1 2 2T5 5C1 2 3 4 5 6S7 8 9 9A5 3 30 1 0 20 20z"),
                       ("tight", "m.5.5-1-1a1 1 0 016 6e5-2t1-1s2 2-3 3"), ("broken", "M1 1 L 2 2 3 X 4 4"),
                       ("points", "0,0 5,5 9,1 7 8 9")):
        write("path_data", name, text)
    write("transform_list", "all", "translate(1,2) rotate(45 1 1)scale(2)\nskewX(10) , skewY(-5) matrix(1 0 0 1 5 5)")
    write("transform_list", "broken", "rotate(1 2 3 4) scale(")
    write("xml_source", "plain", "<?xml version='1.0'?>\n<!-- <svg a='no'/> -->\n<svg a='1' b=\"2\"><g c = '' d='it\"s'/></svg>")
    write("xml_source", "changed", "\ufeff<!DOCTYPE svg><svg a='&lt;&#65;' b='x\r\ny' c='x\n\ry'>t<b d='&amp'/></svg>")
    write("css", "rules", ".a{fill:red;stroke:#0f0}rect.b{display : none}\nc{stroke-width:2px;:x;y}.a{fill:blue}")
    write("css", "odd", "a.b.c{x:y}{z:1}}{ .a { b } d{e:f{g:h}} rect a")
    for name, text in (("hex", "#1a2B3c 0.5"), ("short", "#fff"), ("rgb", "rgb(1, 20%, 300) 50%"), ("name", "red 1"),
                       ("long", "#112233445566"), ("inherit", "currentColor"), ("length", "12.5mm")):
        write("color", name, text)
    for name, text in (("plain", "12"), ("real", " -1.5e3x"), ("hex", "0x1.8p3"), ("nan", "nan(12)"), ("inf", "-infinity"),
                       ("long", "9" * 40 + "." + "1" * 40 + "e-50"), ("edge", "4.9406564584124654e-324")):
        write("numbers", name, text)
    write("base64", "padded", base64.b64encode(b"drawload"))
    write("base64", "broken", "QUJD\r\nR==E!x")
    for colour_type in (0, 2, 4, 6):
        write("picture", f"png{colour_type}.png", png(3, 2, colour_type))
    write("picture", "grey.pgm", b"P5 3 2 255\nabcdef")
    write("picture", "color.ppm", b"P6 1 2 255\nabcdef")
    write("picture", "no_width.pgm", b"P5 0 3 255\n")
    write("picture", "two_blocks.jpg", jpeg() + b"\xff\xc4\xff\xda")
    write("picture", "bitmap.bmp", b"BM" + struct.pack("<IHHIIiiHHIIiiII", 62, 0, 0, 54, 40, 2, 1, 1, 24, 0, 8, 1, 1, 0, 0)
          + b"abcdef\0\0")
    write("picture", "one.gif", b"GIF89a\x01\0\x01\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\x01\0\x01\0\0\x02\x02D\x01\0;")
    write("picture", "two.tga", bytes([0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 1, 0, 24, 0]) + b"abcdef")


# --- PDF ----------------------------------------------------------------------------------------------------

PAGE = (b"q\n1 0 0 1 5 5 cm\n1 w\n2 J\n1 j\n4 M\n[3 2] 0 d\n1 0 0 RG\n0.5 g\n/GS0 gs\n0 0 m\n10 0 l\n10 10 20 10 20 0 c\n"
        b"5 5 9 9 v\n1 1 2 2 y\nh\nS\n5 5 20 20 re\nW n\n/Cs1 cs\n0.5 scn\n/Sh1 sh\nf*\nB\nb*\nQ\n/Im1 Do\n/Fm1 Do\n"
        b"BT\n/F1 12 Tf\n1 0 0 1 5 50 Tm\n14 TL\n100 Tz\n(A \\(b\\) \\101) Tj\n[(c) -120 (d)] TJ\n0 -14 Td\n5 5 TD\n"
        b"/F2 10 Tf\n<00010002> Tj\nET\n")


def pdf_document():
    """All kinds of objects that a page can name, in plain bytes."""
    document = make_pdf_examples.Document()
    cmap = document.add_stream(b"2 beginbfchar\n<0001> <0041>\n<0002> <4E2D>\nendbfchar\n", packed=False)
    descriptor = document.add("<< /Type /FontDescriptor /FontName /Plate /Flags 4 /FontBBox [ 0 0 9 9 ] /ItalicAngle 0 "
                              "/Ascent 9 /Descent -2 /StemV 80 >>")
    cid = document.add(f"<< /Type /Font /Subtype /CIDFontType2 /BaseFont /Plate /CIDSystemInfo << /Registry (Adobe) "
                       f"/Ordering (GB1) /Supplement 0 >> /DW 1000 /W [ 1 [ 500 600 ] 5 9 700 ] /FontDescriptor {descriptor} 0 R >>")
    fonts = (document.add("<< /Type /Font /Subtype /TrueType /BaseFont /ABCDEF+Plate /Encoding /WinAnsiEncoding >>"),
             document.add(f"<< /Type /Font /Subtype /Type0 /BaseFont /Plate /Encoding /Identity-H "
                          f"/DescendantFonts [ {cid} 0 R ] /ToUnicode {cmap} 0 R >>"))
    image = document.add_stream(bytes(range(12)), "/Type /XObject /Subtype /Image /Width 2 /Height 2 /ColorSpace /DeviceRGB "
                                "/BitsPerComponent 8", packed=False)
    form = document.add_stream(b"0 0 m 9 9 l S\n/Im1 Do\n", "/Type /XObject /Subtype /Form /BBox [ 0 0 9 9 ] /Matrix [ 1 0 0 1 2 3 ] "
                               f"/Resources << /XObject << /Im1 {image} 0 R >> >>", packed=False)
    part = document.add("<< /FunctionType 2 /Domain [ 0 1 ] /C0 [ 1 0 0 ] /C1 [ 0 0 1 ] /N 1 >>")
    function = document.add(f"<< /FunctionType 3 /Domain [ 0 1 ] /Functions [ {part} 0 R {part} 0 R ] /Bounds [ 0.5 ] "
                            "/Encode [ 0 1 0 1 ] >>")
    shading = document.add(f"<< /ShadingType 2 /ColorSpace /DeviceRGB /Coords [ 0 0 9 9 ] /Function {function} 0 R "
                           "/Extend [ true false ] >>")
    state = document.add("<< /Type /ExtGState /LW 2 /CA 0.5 >>")
    resources = document.add(
        f"<< /ProcSet [ /PDF /Text ] /Font << /F1 {fonts[0]} 0 R /F2 {fonts[1]} 0 R >> /XObject << /Im1 {image} 0 R "
        f"/Fm1 {form} 0 R >> /ExtGState << /GS0 {state} 0 R >> /ColorSpace << /Cs1 /DeviceRGB >> "
        f"/Shading << /Sh1 {shading} 0 R >> /Properties << /P1 {state} 0 R >> >>")
    contents = (document.add_stream(PAGE, packed=False), document.add_stream(PAGE.replace(b"\n", b" ")))
    pages = [document.add(f"<< /Type /Page /MediaBox [ 0 0 200 100 ] /Resources {resources} 0 R "
                          f"/Contents {contents[0]} 0 R >>"),
             document.add(f"<< /Type /Page /MediaBox [ 0 0 100 50 ] /Resources << /Font << /F1 {fonts[0]} 0 R >> >> "
                          f"/Contents [ {contents[0]} 0 R {contents[1]} 0 R ] >>")]
    return document, document.add_pages(pages)


def image_pdf(keys, data):
    document = make_pdf_examples.Document()
    image = document.add_stream(data, "/Type /XObject /Subtype /Image /Width 2 /Height 2 /BitsPerComponent 8 " + keys,
                                packed=False)
    content = document.add_stream(b"q 20 0 0 20 5 5 cm /Im1 Do Q\n", packed=False)
    page = document.add(f"<< /Type /Page /MediaBox [ 0 0 50 50 ] /Resources << /XObject << /Im1 {image} 0 R >> >> "
                        f"/Contents {content} 0 R >>")
    return document.with_table(document.add_pages([page]))


def composite_pdf():
    """Fonts whose widths are an object of its own, heights, and a stream whose length is an object."""
    document = make_pdf_examples.Document()
    cmap = document.add_stream(b"1 beginbfchar\n<0001> <0041>\nendbfchar\n1 beginbfrange\n<0002> <0009> <0042>\nendbfrange\n",
                               packed=False)
    descriptor = document.add("<< /Type /FontDescriptor /FontName /Plate /Flags 4 /FontBBox [ 0 0 9 9 ] >>")
    widths = document.add("[ 1 [ 500 600 ] 5 9 700 ]")
    cid = document.add(f"<< /Type /Font /Subtype /CIDFontType2 /BaseFont /Plate /CIDSystemInfo << /Registry (Adobe) /Ordering (GB1) "
                       f"/Supplement 0 >> /DW 1000 /W {widths} 0 R /DW2 [ 880 -1000 ] /W2 [ 1 [ -500 250 800 ] 5 9 -900 500 880 ] /FontDescriptor {descriptor} 0 R >>")
    fonts = [document.add(f"<< /Type /Font /Subtype /Type0 /BaseFont /Plate /Encoding /Identity-V /DescendantFonts [ {cid} 0 R ] "
                          f"/ToUnicode {cmap} 0 R >>") for _ in range(2)]
    text = b"BT\n/F1 12 Tf\n<00010002> Tj\n/F2 9 Tf\n<0003> Tj\nET\n0 0 m\n9 9 l\nS\n"
    length = document.add(str(len(text)))
    content = document.add(b"<< /Length %d 0 R >>\nstream\n%s\nendstream" % (length, text))
    page = document.add(f"<< /Type /Page /MediaBox [ 0 0 50 50 ] /Resources << /Font << /F1 {fonts[0]} 0 R /F2 {fonts[1]} 0 R >> >> "
                        f"/Contents {content} 0 R >>")
    return document.with_table(document.add_pages([page]))


def scanned_pdf():
    """Two scanned pages of a size as scanners have it, whose pixels this library leaves white."""
    document = make_pdf_examples.Document()
    content = document.add_stream(b"q\n500 0 0 700 5 5 cm\n/Im1 Do\nQ\n", packed=False)
    pages = []
    for _ in range(2):
        image = document.add_stream(b"\0\1", "/Type /XObject /Subtype /Image /Width 2480 /Height 3508 /BitsPerComponent 1 "
                                    "/ColorSpace /DeviceGray /Filter /CCITTFaxDecode", packed=False)
        pages.append(document.add(f"<< /Type /Page /MediaBox [ 0 0 595 842 ] /Resources << /XObject << /Im1 {image} 0 R >> >> "
                                  f"/Contents {content} 0 R >>"))
    return document.with_table(document.add_pages(pages))


def indexed_pdf():
    """A cross-reference stream that says which objects its rows are of."""
    document, catalog = pdf_document()
    objects = dict(enumerate(document.objects, 1))
    packed = {number for number, body in objects.items() if b"stream\n" not in body}
    return make_pdf_examples.file_with_streams(objects, catalog, packed, table_keys=b" /Type /XRef /Index [ 0 %d ] " % (len(objects) + 3))


def streamed_pdf():
    """An object stream and a cross-reference stream, both in plain bytes."""
    objects = {1: b"<< /Type /Catalog /Pages 2 0 R >> ", 2: b"<< /Type /Pages /Kids [ 3 0 R ] /Count 1 >> ",
               3: b"<< /Type /Page /MediaBox [ 0 0 50 50 ] /Contents 4 0 R >> "}
    head, body = b"", b""
    for number, text in objects.items():
        head += b"%d %d " % (number, len(body))
        body += text
    content = b"0 0 m 9 9 l S\n"
    texts = {4: b"<< /Length %d >>\nstream\n%s\nendstream" % (len(content), content),
             5: b"<< /Type /ObjStm /N 3 /First %d /Length %d >>\nstream\n%s\nendstream" % (len(head), len(head + body), head + body)}
    file = b"%PDF-1.5\n%" + b"-" * 256 + b"\n"
    rows = [(1, 0)] + [(2, 5)] * 3
    for number, text in texts.items():
        rows.append((1, len(file)))
        file += b"%d 0 obj\n%s\nendobj\n" % (number, text)
    rows.append((1, len(file)))
    table = make_pdf_examples.predicted([bytes([kind]) + place.to_bytes(3, "big") for kind, place in rows])
    start = len(file)
    file += (b"6 0 obj\n<< /Type /XRef /Size 7 /Root 1 0 R /W [ 1 3 0 ] /Length %d >>\nstream\n%s\nendstream\nendobj\n"
             % (len(table), table))
    return file + b"startxref\n%d\n%%%%EOF\n" % start


def lzw(data):
    """Each byte as a code of nine bits, with a clear code before the width would grow."""
    codes = []
    for index, byte in enumerate(data):
        if index % 200 == 0:
            codes.append(256)
        codes.append(byte)
    bits = "".join(f"{code:09b}" for code in codes + [257])
    bits += "0" * (-len(bits) % 8)
    return bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8))


def run_length(data):
    return bytes([len(data) - 1]) + data + b"\xfe\x41\x80"


def pdf_seeds():
    document, catalog = pdf_document()
    write("pdf", "objects.pdf", document.with_table(catalog))
    write("pdf", "packed.pdf", document.with_streams(catalog))
    write("pdf", "streamed.pdf", streamed_pdf())
    write("pdf", "composite.pdf", composite_pdf())
    write("pdf", "scanned.pdf", scanned_pdf())
    write("pdf", "indexed.pdf", indexed_pdf())
    pixels = bytes(range(4))
    write("pdf", "flate.pdf", image_pdf("/ColorSpace /DeviceGray /Filter /FlateDecode", zlib.compress(pixels)))
    write("pdf", "cmyk.pdf", image_pdf("/ColorSpace /DeviceCMYK /Filter /FlateDecode", zlib.compress(pixels * 4)))
    write("pdf", "hex.pdf", image_pdf("/ColorSpace /DeviceGray /Filter /ASCIIHexDecode", pixels.hex().encode() + b">"))
    write("pdf", "a85.pdf", image_pdf("/ColorSpace /DeviceGray /Filter /ASCII85Decode", base64.a85encode(pixels) + b"~>"))
    write("pdf", "lzw.pdf", image_pdf("/ImageMask true /Filter /LZWDecode", lzw(b"\xa0\x40")))
    write("pdf", "runs.pdf", image_pdf("/ImageMask true /Filter /RunLengthDecode", run_length(b"\xa0\x40")))
    write("pdf", "fax.pdf", image_pdf("/Filter /CCITTFaxDecode", b"\0\1"))
    write("pdf", "chain.pdf", image_pdf("/Filter [ /ASCIIHexDecode /FlateDecode ]", zlib.compress(pixels).hex().encode()))
    jpeg2000 = FOLDER / "jpeg2000" / "small.j2k"
    if jpeg2000.exists():
        write("pdf", "jpx.pdf", image_pdf("/ColorSpace /DeviceRGB /Filter /JPXDecode", jpeg2000.read_bytes()))
        write("filters", "jpx", b"\x01\x08\x01\x02\x02" + jpeg2000.read_bytes())
    write("page_content", "all", PAGE)
    write("page_content", "one_line", PAGE.replace(b"\n", b" "))
    write("page_content", "strings", b"BT /F1 9 Tf 5 5 Td (a(b)c\\)\\\\) Tj [(x y) 5 <41 42>] TJ T* (l m re ) ' ET")
    write("content_text", "all", PAGE)
    write("content_text", "one_line", PAGE.replace(b"\n", b" "))
    write("content_text", "odd", b"q Q\rQ q\n l  \n\n l( m ]l [ c )cs scnTDo TL W* n f* b*")
    write("object_text", "dictionary", b"5 0 obj<</Type/Page/Kids[1 0 R 2 0 R](a (b) c)<0041><</A/B>>>>\r\nendobj")
    write("object_text", "runs", b"\n\n\n\n\n <<<<[ ]>><><> ((\r\r/ //\0\t)")
    write("xref_table", "plain", "xref\n0 3\n0000000000 65535 f \n0000000123 00007 n \n0000000456 00000 n\n")
    write("xref_table", "parts", "xref3 1\r\n0000000030 00000 n\r\n8 1xref9 2\n0000000080 00000 n \n12 \n")
    rows = make_pdf_examples.predicted([bytes([1, 0, 0, 0]), bytes([2, 0, 1, 0]), bytes([1, 0, 9, 0])])
    stream = b"1 0 obj<</N 2/First 8/Length 11>>stream\n2 0 3 1 5 6 \nendobj"
    write("xref_stream", "plain", bytes([1, 2, 1, 1, 0, 3, 1, len(rows)]) + rows + stream)
    write("xref_stream", "pairs", bytes([1, 2, 1, 2, 4, 2, 9, 1, 1, len(rows)]) + rows + stream)
    packed = zlib.compress(PAGE)
    for number, data in enumerate((b"48 65 6C6c6F>", base64.a85encode(b"drawload") + b"~>", lzw(b"drawload"), packed,
                                   run_length(b"drawload"), b"\0\1", b"\0\1", b"\0\1")):
        for kind in (0, 1, 14):
            write("filters", f"filter{number}_{kind}", bytes([1, number, kind, 2, 1]) + data)
    write("filters", "two", bytes([2, 0, 3, 14, 2, 1]) + b"4142>")
    write("ascii_hex", "text", b"48 65 6C6c6F>4")
    write("ascii85", "text", base64.a85encode(b"drawload and more") + b"~>")
    write("ascii85", "high", b"uuuuu!!!!!zs8W-!s8W~>")
    write("lzw", "text", lzw(b"drawload and more"))
    write("lzw", "repeats", bytes.fromhex("800B6050220C0C8501"))
    write("run_length", "text", run_length(b"drawload"))
    write("flate", "page", packed)
    write("flate", "stored", zlib.compress(b"drawload", 0))
    write("cmap", "chars", "2 beginbfchar\n<0001> <0041>\n<0002><4E2D>\nendbfchar 1 beginbfrange <01> <02> <03> endbfrange 0001")
    write("cmap", "broken", "beginbfchar <0001> <41> <00")


# --- Curves -------------------------------------------------------------------------------------------------


def kernel_seeds():
    clamped = [0.0] * 4 + [0.5] + [1.0] * 4
    points = [0.0, 0.0, 1.0, 2.0, 3.0, 2.0, 4.0, 0.0, 5.0, 1.0]
    write("kernel", "clamped", bytes([3, 5, 2, 1]) + struct.pack("<19d", *clamped, *points))
    write("kernel", "stepped", bytes([2, 6, 2, 0]) + bytes([0, 0, 100, 0, 99, 90, 0, 0, 101]) + struct.pack("<12d", *range(12)))
    write("kernel", "close", bytes([1, 4, 3, 0]) + bytes([0, 66, 67, 68, 100, 0]) + struct.pack("<12d", *range(12)))


def main():
    for folder in FOLDER.iterdir():
        if folder.is_dir() and folder.name != "jpeg2000":
            shutil.rmtree(folder)
    dxf_seeds()
    svg_seeds()
    pdf_seeds()
    kernel_seeds()


if __name__ == "__main__":
    main()
