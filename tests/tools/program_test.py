#!/usr/bin/env python3
"""The program drawload as a user meets it: its output, its messages, its exit statuses."""

import json
import math
import os
import pathlib
import re
import stat
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
import xml.etree.ElementTree as ElementTree

PROGRAM = sys.argv.pop(1)
EXAMPLES = pathlib.Path(sys.argv.pop(1))
SVG = "{http://www.w3.org/2000/svg}"

# A line of 30 mm, a circle of radius 10 mm on a red layer, and a line that is dropped by its layer.
DRAWING = """0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nRED\n62\n1\n0\nENDTAB\n0\nENDSEC
0\nSECTION\n2\nENTITIES
0\nLINE\n8\n0\n10\n0\n20\n0\n11\n30\n21\n0
0\nCIRCLE\n8\nRED\n10\n50\n20\n20\n40\n10
0\nENDSEC\n0\nEOF\n"""


def run(*arguments, **options):
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, timeout=60, **options)


def read_png(data):
    """Width, height and rows of (red, green, blue) of a PNG with 8 bits a channel and no interlacing (ISO 15948)."""
    at, compressed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at : at + 8])
        body = data[at + 8 : at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, color_type, _, _, interlace = struct.unpack(">IIBBBBB", body)
        if kind == b"IDAT":
            compressed += body
        at += length + 12
    if (depth, interlace) != (8, 0) or color_type not in (2, 6):
        raise ValueError("a PNG of another kind")
    size = 3 if color_type == 2 else 4
    raw, stride, rows, above = zlib.decompress(compressed), width * size, [], bytes(width * size)
    for y in range(height):
        method, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1 : (y + 1) * (stride + 1)])
        for i in range(stride):
            left, up = (line[i - size] if i >= size else 0), above[i]
            corner = above[i - size] if i >= size else 0
            nearest = min((abs(up - corner), 0, left), (abs(left - corner), 1, up), (abs(left + up - 2 * corner), 2, corner))[2]
            line[i] = (line[i] + (0, left, up, (left + up) // 2, nearest)[method]) & 0xFF
        rows.append([tuple(line[x * size : x * size + 3]) for x in range(width)])
        above = bytes(line)
    return width, height, rows


class ProgramTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.here = pathlib.Path(self.folder.name)
        self.drawing = self.here / "a drawing.dxf"
        self.drawing.write_text(DRAWING)

    def test_info_counts_measures_and_sorts_by_color(self):
        done = run("info", self.drawing)
        text = done.stdout.decode()
        self.assertEqual(done.returncode, 0)
        self.assertIn("a drawing.dxf: DXF", text)
        self.assertRegex(text, r"results +2: 2 curves, 0 bitmaps")
        self.assertRegex(text, r"segments +1 lines, 4 cubic curves")
        self.assertRegex(text, r"bounds +\(0\.000, 0\.000\) to \(60\.00\d, 30\.00\d\) mm, size 60\.00\d x 30\.00\d mm")
        self.assertRegex(text, r"#ffffff 30\.000 mm")
        red = float(re.search(r"color +#ff0000 ([\d.]+) mm", text).group(1))
        self.assertAlmostEqual(red, 20 * math.pi, delta=0.03)

    def test_info_tells_pixels_millimetres_and_density_of_a_bitmap(self):
        text = run("info", EXAMPLES / "nameplate.svg").stdout.decode()
        self.assertRegex(text, r"results +29: 28 curves, 1 bitmap\n")
        # 120 pixels over 28 mm: 120 * 25.4 / 28 = 108.9 an inch
        self.assertIn("bitmap     120 x 120 pixels, 28.000 x 28.000 mm, 109 x 109 dpi\n", text)
        self.assertRegex(text, r"group +#000000, 1 bitmap\n(.*\n){2} +imageType 1, Reverse 1\n")

    def test_info_gives_groups_of_equal_settings_with_their_lengths(self):
        drawing = self.here / "groups.svg"
        drawing.write_text(
            '<svg width="90mm" viewBox="0 0 90 90"><path stroke="red" d="M0 0L10 0"/><path stroke="red" d="M0 0L0 20"/>'
            '<path stroke="red" cutSpeed="7" d="M0 0L40 0"/><path stroke="blue" d="M0 0L0 80"/></svg>'
        )
        text = run("info", drawing).stdout.decode()
        groups = re.findall(r"group +(#\w+), (\d) curves?, ([\d.]+) mm\n +processType 0, cutSpeed (\d+)", text)
        self.assertEqual(groups, [("#ff0000", "2", "30.000", "100"), ("#ff0000", "1", "40.000", "7"), ("#0000ff", "1", "80.000", "100")])

    def test_info_of_several_files_ends_in_a_table_with_a_row_for_each(self):
        text = run("info", self.drawing, self.here / "missing.dxf", EXAMPLES / "nameplate.svg").stdout.decode()
        table = text.split("\n\n")[-1].splitlines()
        self.assertEqual(table[0].split()[:6], ["format", "results", "curves", "lines", "cubics", "bitmaps"])
        self.assertEqual(len(table), 3)
        self.assertRegex(table[1], r"^DXF +2 +2 +1 +4 +0 +60\.\d\d x 30\.\d\d +92\.\d\d +[\d.]+  .*/a drawing\.dxf$")
        self.assertRegex(table[2], r"^SVG +29 +28 .*/nameplate\.svg$")
        self.assertNotIn("travel mm", run("info", self.drawing).stdout.decode())

    def test_convert_writes_millimetres_true_to_scale_with_y_up(self):
        out = self.here / "out.svg"
        self.assertEqual(run("convert", self.drawing, "-o", out).returncode, 0)
        root = ElementTree.parse(out).getroot()
        self.assertTrue(root.get("width").endswith("mm"))
        left, top, width, height = map(float, root.get("viewBox").split())
        self.assertAlmostEqual(float(root.get("width")[:-2]), width)
        self.assertAlmostEqual(width, 60, delta=0.01)
        self.assertAlmostEqual(height, 30, delta=0.01)
        line, circle = root.findall(SVG + "path")
        x1, y1, x2, y2 = map(float, re.match(r"M(\S+) (\S+)L(\S+) (\S+)$", line.get("d")).groups())
        self.assertEqual((x1, x2), (0, 30))
        self.assertAlmostEqual(y1 - top, height)  # y = 0 is the lower edge of the page
        self.assertAlmostEqual(y2 - top, height)
        self.assertEqual(line.get("stroke"), "#ffffff")
        self.assertEqual(circle.get("stroke"), "#ff0000")
        self.assertEqual(circle.get("fill"), "none")
        self.assertEqual(circle.get("d").count("C"), 4)

    def picture(self, elements, *options):
        """Width, height and rows of the PNG of an SVG drawing of 40 x 20 mm, each pixel as (red, green, blue)."""
        drawing, out = self.here / "picture.svg", self.here / "picture.png"
        drawing.write_text(f'<svg width="40mm" height="20mm" viewBox="0 0 40 20">{elements}</svg>')
        done = run("convert", "--force", drawing, "-o", out, *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return read_png(out.read_bytes())

    def test_a_picture_has_the_density_or_the_width_that_is_asked_for(self):
        outline = '<rect width="40" height="20" stroke="red"/>'
        # 254 pixels an inch are 10 a millimetre; 8 more on each side are the margin.
        self.assertEqual(self.picture(outline, "--dpi", "254")[:2], (416, 216))
        # 384 pixels for 40 mm are 9.6 a millimetre: 192 pixels for 20 mm.
        self.assertEqual(self.picture(outline, "--width", "400")[:2], (400, 208))
        # 96 pixels an inch: 40 mm are 151.18 of them.
        self.assertEqual(self.picture(outline)[:2], (168, 92))

    def test_a_picture_has_its_curves_where_they_lie_in_their_colors(self):
        line = '<path d="M0 0L40 0" stroke="red"/><path d="M0 0L0 20" stroke="blue"/><path d="M0 20L40 20" stroke="black"/>'
        width, height, rows = self.picture(line, "--dpi", "254")
        self.assertEqual((width, height), (416, 216))
        self.assertEqual(rows[108][208], (255, 255, 255))
        for x, y, color in ((208, 8, (255, 0, 0)), (8, 108, (0, 0, 255)), (208, 208, (0, 0, 0))):
            found = min((rows[y + d][x + e] for d in (-1, 0, 1) for e in (-1, 0, 1)), key=sum)
            # A line of one pixel may lie across two, each with half of its colour.
            self.assertTrue(all(abs(have - want) <= 130 for have, want in zip(found, color)), (found, color))
            self.assertNotEqual(found, (255, 255, 255))

    def test_a_picture_that_would_be_too_large_is_refused_by_name(self):
        done = run("convert", self.drawing, "-o", self.here / "out.png", "--dpi", "99999")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"a drawing.dxf'", done.stderr)
        self.assertIn(b"--width", done.stderr)

    def test_json_keeps_every_number_in_full_precision(self):
        number = 29.999999999999996  # the double next below 30
        self.drawing.write_text(DRAWING.replace("11\n30\n", f"11\n{number!r}\n"))
        out = self.here / "out.json"
        self.assertEqual(run("convert", self.drawing, "-o", out).returncode, 0)
        line = json.loads(out.read_text())["results"][0]
        self.assertEqual(line["segments"], [[0.0, 0.0, number, 0.0]])

    def test_results_that_are_not_finite_are_left_out_and_told(self):
        self.drawing.write_text(DRAWING.replace("11\n30\n", "11\n1e999\n"))
        self.assertRegex(run("info", self.drawing).stdout.decode(), r"left out +1 result ")
        self.assertEqual(json.loads(run("info", "--json", self.drawing).stdout)["files"][0]["notFinite"], 1)
        done = run("convert", self.drawing, "-o", self.here / "out.svg")
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stderr.decode(), r"warning: '.*a drawing.dxf': 1 result with coordinates that are not finite is left out")
        done = run("batch", self.drawing, "--out", self.here / "out", "--to", "svg")
        self.assertEqual(done.returncode, 0)
        self.assertIn("not finite", json.loads((self.here / "out/report.json").read_text())["files"][0]["message"])

    def test_info_without_a_readable_file_fails_with_a_message_that_names_it(self):
        done = run("info", self.here / "missing.dxf")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"missing.dxf", done.stderr)
        self.assertEqual(done.stdout, b"")

    def test_info_goes_on_with_the_next_file_behind_one_that_fails(self):
        done = run("info", self.here / "missing.dxf", self.drawing)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"a drawing.dxf: DXF", done.stdout)

    def test_an_empty_drawing_and_a_folder_are_told_apart_from_a_missing_file(self):
        empty = self.here / "empty.svg"
        empty.touch()
        self.assertIn(b"nothing to cut", run("info", empty).stderr)
        self.assertIn(b"folder", run("info", self.here).stderr)

    def test_convert_of_nothing_writes_nothing(self):
        out = self.here / "out.svg"
        self.assertEqual(run("convert", self.here / "missing.dxf", "-o", out).returncode, 1)
        self.assertFalse(out.exists())

    def test_an_existing_output_is_kept_unless_forced(self):
        out = self.here / "out.svg"
        out.write_text("mine")
        done = run("convert", self.drawing, "-o", out)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"--force", done.stderr)
        self.assertEqual(out.read_text(), "mine")
        self.assertEqual(run("convert", "--force", self.drawing, "-o", out).returncode, 0)
        self.assertIn("<svg", out.read_text())

    def test_an_output_folder_that_is_missing_fails_and_leaves_nothing(self):
        done = run("convert", self.drawing, "-o", self.here / "no" / "out.svg")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"out.svg", done.stderr)
        self.assertEqual(sorted(p.name for p in self.here.iterdir()), ["a drawing.dxf"])

    def test_outputs_are_readable_by_others_as_the_umask_allows(self):
        out = self.here / "out.svg"
        run("convert", self.drawing, "-o", out, preexec_fn=lambda: os.umask(0o022))
        self.assertEqual(stat.S_IMODE(out.stat().st_mode), 0o644)

    def test_wrong_usage_has_status_two(self):
        self.assertEqual(run().returncode, 2)
        self.assertEqual(run("info").returncode, 2)
        self.assertEqual(run("shred", self.drawing).returncode, 2)
        self.assertEqual(run("convert", self.drawing).returncode, 2)
        self.assertEqual(run("convert", self.drawing, "-o", self.here / "out.tiff").returncode, 2)

    def test_a_word_that_is_no_command_is_named(self):
        for word in ("shred", str(self.drawing)):
            done = run(word)
            self.assertEqual(done.returncode, 2)
            self.assertIn(f"drawload: '{word}' is not a command".encode(), done.stderr)
            self.assertIn(b"info, check, convert, view or batch", done.stderr)
        self.assertIn(b"info, check, convert, view or batch", run().stderr)

    def test_every_complaint_about_usage_says_who_complains(self):
        for arguments in ([], ["shred"], ["info"], ["convert", self.drawing], ["info", "--jsn", self.drawing]):
            with self.subTest(arguments=arguments):
                self.assertTrue(run(*arguments).stderr.startswith(b"drawload: "))

    def test_notes_may_be_asked_for_before_and_behind_the_command(self):
        plate = EXAMPLES / "plate.pdf"
        outputs = [self.here / "a.svg", self.here / "b.svg"]
        for arguments in (["-v", "info", plate], ["info", "-v", plate], ["info", plate, "--verbose"],
                          ["convert", "-v", plate, "-o", outputs[0]], ["-v", "convert", plate, "-o", outputs[1]],
                          ["batch", "-v", plate, "--out", self.here / "out", "--to", "svg"]):
            with self.subTest(arguments=arguments):
                done = run(*arguments)
                self.assertEqual(done.returncode, 0, done.stderr)
                self.assertIn(b"Version:1.", done.stderr)
                self.assertNotIn(b"Version:1.", done.stdout)
        self.assertEqual(outputs[0].read_bytes(), outputs[1].read_bytes())

    def test_the_extension_of_an_output_may_have_capitals(self):
        out = self.here / "OUT.SVG"
        self.assertEqual(run("convert", self.drawing, "-o", out).returncode, 0)
        self.assertIn("<svg", out.read_text())
        self.assertEqual(run("batch", self.drawing, "--out", self.here / "out", "--to", "PNG").returncode, 0)

    def test_help_and_version_succeed(self):
        self.assertIn(b"convert", run("--help").stdout)
        version = run("--version").stdout.decode()
        self.assertRegex(version, r"^drawload \d+\.\d+\.\d+\nbuilt with FreeType 2\..*, cairo 1\..*, libpng 1\..*\n")
        used = version.splitlines()[2].removeprefix("running with ").split(", ")
        loaded = subprocess.run(["ldd", PROGRAM], capture_output=True, check=True, text=True).stdout
        for library in ("libdrawload", "libfreetype", "libfontconfig", "libz", "libtinyxml2", "libopenjp2", "libcairo", "libpng16"):
            path = re.search(rf"=> (.*/{library}\.so\S*)", loaded)[1]  # a folder's name may hold blanks
            self.assertIn(os.path.basename(os.path.realpath(path)), used)
        self.assertEqual(run("--help").returncode, 0)

    def test_info_in_json_of_every_example_is_json_alone(self):
        for drawing in sorted(p for p in EXAMPLES.iterdir() if p.suffix in (".dxf", ".svg", ".pdf")):
            for options in ([], ["--verbose"]):
                with self.subTest(drawing=drawing.name, options=options):
                    done = run(*options, "info", "--json", drawing)
                    facts = json.loads(done.stdout)
                    self.assertEqual(facts["schema"], 1)
                    self.assertEqual(facts["files"][0]["format"], drawing.suffix[1:].upper())
                    self.assertEqual(b"Version:1." in done.stderr, bool(options) and drawing.suffix == ".pdf")

    def test_every_example_has_something_to_cut(self):
        drawings = [p for p in sorted(EXAMPLES.iterdir()) if p.suffix in (".dxf", ".svg", ".pdf")]
        self.assertGreaterEqual(len(drawings), 3)
        for drawing in drawings:
            with self.subTest(drawing=drawing.name):
                done = run("info", drawing)
                self.assertEqual(done.returncode, 0, done.stderr)

    def test_a_name_that_is_not_utf8_is_read(self):
        odd = os.path.join(os.fsencode(self.here), b"caf\xe9 \"a\"\n.dxf")
        with open(odd, "w", encoding="ascii") as file:
            file.write(DRAWING)
        done = subprocess.run([PROGRAM, "info", odd], capture_output=True, timeout=60)
        self.assertEqual(done.returncode, 0)


if __name__ == "__main__":
    unittest.main()
