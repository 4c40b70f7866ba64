#!/usr/bin/env python3
"""What docs/formats.md says, on the smallest drawings that show it."""

import base64
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)

MILLIMETRES_PER_POINT = 25.4 / 72


def dxf(entities):
    tags = f"0|SECTION|2|ENTITIES|{entities}|0|ENDSEC|0|EOF|"
    return tags.replace("|", "\n").encode()


def svg(content):
    return f"<svg width='100mm' height='100mm' viewBox='0 0 100 100'>{content}</svg>".encode()


def svg_text(characters):
    return f"<text font-family='DejaVu Sans' font-size='9'>{characters}</text>"


def pdf(content, page="", image=""):
    objects = [
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [ 3 0 R ] /Count 1 >>",
        f"<< /Type /Page /Parent 2 0 R /MediaBox [ 0 0 720 720 ] /Contents 4 0 R /Resources 5 0 R {page} >>",
        f"<< /Length {len(content)} >>\nstream\n{content}\nendstream",
        "<< /Font << /F1 6 0 R >> /XObject << /I1 7 0 R >> >>",
        "<< /Type /Font /Subtype /TrueType /BaseFont /DejaVuSans >>",
        image or "<< >>",
    ]
    text = "%PDF-1.4\n"
    places = []
    for number, body in enumerate(objects, 1):
        places.append(len(text))
        text += f"{number} 0 obj\n{body}\nendobj\n"
    table = f"xref\n0 {len(objects) + 1}\n0000000000 65535 f \n"
    table += "".join(f"{place:010} 00000 n \n" for place in places)
    trailer = f"trailer\n<< /Size {len(objects) + 1} /Root 1 0 R >>\nstartxref\n{len(text)}\n%%EOF\n"
    return (text + table + trailer).encode("latin-1")


def pdf_of_image(filters, data, width=2, height=2):
    image = (f"<< /Type /XObject /Subtype /Image /Width {width} /Height {height} /BitsPerComponent 8 "
             f"/ColorSpace /DeviceGray {filters} /Length {len(data)} >>\nstream\n{data}\nendstream")
    return pdf("q\n20 0 0 20 50 50 cm\n/I1 Do\nQ", image=image)


class FormatsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def results(self, kind, drawing):
        """What the program reads of a drawing; an empty list where that is nothing."""
        file, output = self.folder / f"drawing.{kind}", self.folder / "results.json"
        file.write_bytes(drawing)
        output.unlink(missing_ok=True)
        done = subprocess.run([PROGRAM, "convert", file, "-o", output], capture_output=True, text=True, timeout=60)
        if done.returncode:
            self.assertIn("nothing to cut or engrave", done.stderr)
            return []
        return json.loads(output.read_text())["results"]

    def only_curve(self, kind, drawing):
        (curve,) = self.results(kind, drawing)
        self.assertEqual(curve["kind"], "curve")
        return curve["segments"]

    def pixels(self, filters, data, **size):
        (bitmap,) = self.results("pdf", pdf_of_image(filters, data, **size))
        return base64.b64decode(bitmap["greyBase64"])

    def check_points(self, segments, expected):
        """The end points of the segments, to a rounding error."""
        points = [segments[0][:2], *(segment[-2:] for segment in segments)]
        self.assertEqual(len(points), len(expected), points)
        for point, (x, y) in zip(points, expected):
            self.assertAlmostEqual(point[0], x, places=9)
            self.assertAlmostEqual(point[1], y, places=9)


class DxfTest(FormatsTest):
    def test_numbers_come_out_as_they_stand_in_inches_and_in_metres(self):
        for units in (1, 6):
            header = f"0|SECTION|2|HEADER|9|$INSUNITS|70|{units}|0|ENDSEC|".replace("|", "\n").encode()
            with self.subTest(units=units):
                segments = self.only_curve("dxf", header + dxf("0|LINE|5|1|10|1|20|2|11|3|21|4"))
                self.check_points(segments, [(1, 2), (3, 4)])

    def test_a_unit_is_a_millimetre_of_svg_whatever_it_is_in_the_drawing(self):
        inches = "0|SECTION|2|HEADER|9|$INSUNITS|70|1|0|ENDSEC|".replace("|", "\n").encode()
        file, output = self.folder / "drawing.dxf", self.folder / "drawing.svg"
        file.write_bytes(inches + dxf("0|LINE|5|1|11|30|21|40"))
        subprocess.run([PROGRAM, "convert", file, "-o", output], check=True, timeout=60)
        self.assertIn('width="30mm" height="40mm" viewBox="0 0 30 40"', output.read_text())

    def polyline(self, vertices, head=""):
        return dxf(f"0|POLYLINE|5|1|{head}" + "".join(f"0|VERTEX|{vertex}|" for vertex in vertices) + "0|SEQEND")

    def test_a_closed_polyline_gets_a_closing_segment(self):
        vertices = ("10|0|20|0", "10|10|20|0", "10|10|20|10")
        corners = [(0, 0), (10, 0), (10, 10), (0, 0)]
        self.check_points(self.only_curve("dxf", self.polyline(vertices, "70|1|")), corners)
        self.check_points(self.only_curve("dxf", dxf("0|LWPOLYLINE|5|1|70|1|" + "|".join(vertices))), corners)

    def test_only_a_lwpolyline_closes_onto_a_vertex_that_is_its_first(self):
        vertices = ("10|0|20|0", "10|10|20|0", "10|0|20|0")
        corners = [(0, 0), (10, 0), (0, 0)]
        self.check_points(self.only_curve("dxf", self.polyline(vertices, "70|1|")), corners)
        light = self.only_curve("dxf", dxf("0|LWPOLYLINE|5|1|70|1|" + "|".join(vertices)))
        self.check_points(light, [*corners, (0, 0)])

    # A bulge of 1 from (0, 0) to (10, 0) is a half circle below the chord, one of -1 above it.
    def test_a_normal_negates_the_bulges_of_a_lwpolyline(self):
        half = "10|0|20|0|42|1|10|10|20|0"
        self.check_points(self.only_curve("dxf", dxf(f"0|LWPOLYLINE|5|1|{half}")), [(0, 0), (5, -5), (10, 0)])
        up = self.only_curve("dxf", dxf(f"0|LWPOLYLINE|5|1|{half}|210|0|220|0|230|1"))
        self.check_points(up, [(0, 0), (5, 5), (10, 0)])

    def test_a_normal_leaves_the_bulges_of_a_polyline(self):
        half = ("10|0|20|0|42|1", "10|10|20|0")
        segments = self.only_curve("dxf", self.polyline(half, "210|0|220|0|230|1|"))
        self.check_points(segments, [(0, 0), (5, -5), (10, 0)])

    # A normal of (0, 0, -1) maps (x, y) to (-x, y).
    def test_a_normal_maps_the_center_of_a_circle_and_not_of_an_ellipse(self):
        down = "210|0|220|0|230|-1"
        circle = self.only_curve("dxf", dxf(f"0|CIRCLE|5|1|10|10|20|5|40|1|{down}"))
        self.assertEqual({(round(s[0], 6), round(s[1], 6)) for s in circle}, {(-9, 5), (-10, 6), (-11, 5), (-10, 4)})
        ellipse = self.only_curve("dxf", dxf(f"0|ELLIPSE|5|1|10|10|20|5|11|4|21|0|40|0.5|41|0|42|6.283185307179586|{down}"))
        self.assertEqual({(round(s[0], 6), round(s[1], 6)) for s in ellipse}, {(14, 5), (10, 7), (6, 5), (10, 3)})

    # A normal of (1, 0, 0) maps (4, 0) to (0, 4).
    def test_a_normal_maps_the_major_axis_of_an_ellipse(self):
        aside = "210|1|220|0|230|0"
        ellipse = self.only_curve("dxf", dxf(f"0|ELLIPSE|5|1|10|10|20|5|11|4|21|0|40|0.5|41|0|42|6.283185307179586|{aside}"))
        self.assertEqual({(round(s[0], 6), round(s[1], 6)) for s in ellipse}, {(10, 9), (8, 5), (10, 1), (12, 5)})

    def test_curves_of_splines_have_the_color_0(self):
        knots = "".join(f"40|{k}|" for k in (0, 0, 0, 0, 1, 1, 1, 1))
        points = "10|0|20|0|10|1|20|1|10|2|20|1|10|3|20|0"
        red = "62|1|"
        (spline,) = self.results("dxf", dxf(f"0|SPLINE|5|1|{red}70|8|71|3|72|8|73|4|{knots}{points}"))
        (line,) = self.results("dxf", dxf(f"0|LINE|5|1|{red}11|1"))
        self.assertEqual((spline["color"], line["color"]), ("#000000", "#ff0000"))


class SvgTest(FormatsTest):
    def test_a_text_that_ends_in_a_blank_waits_for_a_path_or_text_and_is_lost_without_one(self):
        letter = self.results("svg", svg(svg_text("l")))
        path, line = "<path stroke='red' d='M0 0L5 5'/>", "<line stroke='red' x2='5' y2='5'/>"
        for behind, count in ((path, 2), ("<rect width='1' height='1' fill='red'/>", 2), (svg_text("l"), 2), ("", 0), (line, 1)):
            with self.subTest(behind=behind):
                results = self.results("svg", svg(svg_text("l ") + behind))
                self.assertEqual(len(results), count)
                self.assertEqual(results[:1] == letter, count == 2)

    def test_in_a_group_it_does_not_wait(self):
        self.assertEqual(len(self.results("svg", svg("<g transform='scale(2)'>" + svg_text("l ") + "</g>"))), 1)

    def test_curves_of_texts_have_the_color_0(self):
        (letter,) = self.results("svg", svg("<text fill='red' font-family='DejaVu Sans' font-size='9'>l</text>"))
        self.assertEqual(letter["color"], "#000000")


class PdfTest(FormatsTest):
    PATH = "100 100 m 200 200 l S"
    POINTS = [(100 * MILLIMETRES_PER_POINT,) * 2, (200 * MILLIMETRES_PER_POINT,) * 2]

    def test_operators_that_are_split_off_may_stand_before_others(self):
        for before in ("2 w", "1 J", "1 j", "4 M", "q", "1 0 0 1 0 0 cm", "/DeviceRGB cs", "1 0 0 scn", "/G gs", "/F1 12 Tf",
                       "1 0 0 1 0 0 Tm", "/P sh", "BT", "ET", "BX", "EX", "n", "W n", "h"):
            with self.subTest(before=before):
                self.check_points(self.only_curve("pdf", pdf(f"{before} {self.PATH}")), self.POINTS)

    def test_other_operators_cost_what_follows_on_their_line(self):
        for before in ("0.5 g", "0.5 G", "0 0 0 1 k", "0 0 0 1 K", "1 0 0 rg", "1 0 0 RG", "1 SC", "1 SCN", "[ ] 0 d", "0 i", "/P ri",
                       "Q", "5 5 Td", "5 5 TD", "1 Tr", "/A BMC", "/A << >> BDC", "EMC"):
            with self.subTest(before=before):
                self.assertEqual(self.results("pdf", pdf(f"{before} {self.PATH}")), [])
                self.check_points(self.only_curve("pdf", pdf(f"{before}\n{self.PATH}")), self.POINTS)

    def test_other_operators_are_lost_before_one_that_is_split_off(self):
        for content, color in ((f"1 0 0 RG\n{self.PATH}", "#ff0000"), (f"1 0 0 RG 1 J\n{self.PATH}", "#000000")):
            (curve,) = self.results("pdf", pdf(content))
            self.assertEqual(curve["color"], color)

    def test_a_text_that_ends_in_a_blank_waits_for_the_next_and_is_lost_without_one(self):
        def shown(characters):
            return f"BT\n/F1 12 Tf\n1 0 0 1 10 10 Tm\n({characters}) Tj\nET\n"

        letter = self.results("pdf", pdf(shown("l")))
        self.assertEqual(len(letter), 1)
        self.assertEqual(self.results("pdf", pdf(shown("l "))), [])
        self.assertEqual(self.results("pdf", pdf(shown("l ") + self.PATH))[:1], letter)
        self.assertEqual(self.results("pdf", pdf(shown("l ") + shown("l"))), letter * 2)

    def test_rotate_user_unit_and_crop_box_have_no_effect(self):
        for entry in ("/Rotate 90", "/UserUnit 2", "/CropBox [ 50 50 100 100 ]"):
            with self.subTest(entry=entry):
                self.check_points(self.only_curve("pdf", pdf(self.PATH, page=entry)), self.POINTS)

    def test_images_in_ascii_hex_and_ascii_85_are_zero_bytes(self):
        self.assertEqual(self.pixels("", "\xff" * 4), b"\xff" * 4)
        self.assertEqual(self.pixels("/Filter /ASCIIHexDecode", "FFFFFFFF>"), bytes(4))
        self.assertEqual(self.pixels("/Filter /ASCII85Decode", "s8W-!~>"), bytes(4))

    # Two rows of eight pixels, F0 and 0F; the first one at the lower edge is the last one of the bitmap.
    def test_run_length_is_one_bit_a_pixel(self):
        rows = self.pixels("/Filter /RunLengthDecode", "\x01\xf0\x0f\x80", width=8)
        self.assertEqual(sorted(rows), [0] * 8 + [255] * 8)

    def test_jpeg_jbig2_and_fax_images_are_white(self):
        for name in ("DCT", "JBIG2", "CCITTFax"):
            with self.subTest(name=name):
                self.assertEqual(self.pixels(f"/Filter /{name}Decode", "abc"), b"\xff" * 4)


if __name__ == "__main__":
    unittest.main()
