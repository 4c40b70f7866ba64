#!/usr/bin/env python3
"""Reading the SVG that the program writes gives the results of the drawing again."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)
EXAMPLES = pathlib.Path(sys.argv.pop(1))
CLOSE = 1e-6  # millimetres


def convert(drawing, output):
    done = subprocess.run(
        [PROGRAM, "convert", "--force", str(drawing), "-o", str(output)], capture_output=True, cwd=EXAMPLES.parent, timeout=60
    )
    assert done.returncode == 0, done.stderr
    return done.stderr.decode()


def results_of(drawing, folder):
    output = folder / "results.json"
    convert(drawing, output)
    return json.loads(output.read_text())["results"]


class RoundTripTest(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.folder = pathlib.Path(self.scratch.name)

    def assert_close(self, first, second, where):
        self.assertEqual(len(first), len(second), where)
        for a, b in zip(first, second):
            self.assertLessEqual(abs(a - b), CLOSE, where)

    def assert_same(self, first, second):
        self.assertEqual(len(first), len(second))
        for number, (before, after) in enumerate(zip(first, second)):
            where = f"result {number + 1}"
            self.assertEqual(before["kind"], after["kind"], where)
            self.assertEqual(before["settings"], after["settings"], where)
            if before["kind"] == "bitmap":
                self.assertEqual(before["greyBase64"], after["greyBase64"], where)
                self.assertEqual((before["width"], before["height"]), (after["width"], after["height"]), where)
                self.assert_close(before["matrix"], after["matrix"], where)
                continue
            self.assertEqual(before["color"], after["color"], where)
            self.assertEqual(len(before["segments"]), len(after["segments"]), where)
            for old, new in zip(before["segments"], after["segments"]):
                self.assert_close(old, new, where)

    def round_trip(self, drawing):
        written = self.folder / "written.svg"
        complaints = convert(drawing, written)
        return results_of(drawing, self.folder), results_of(written, self.folder), complaints

    def test_every_example_comes_back(self):
        drawings = [p for p in sorted(EXAMPLES.iterdir()) if p.suffix in (".dxf", ".svg", ".pdf")]
        self.assertGreaterEqual(len(drawings), 11)
        for drawing in drawings:
            with self.subTest(drawing=drawing.name):
                before, after, complaints = self.round_trip(drawing)
                self.assertEqual(complaints, "")
                self.assert_same(before, after)

    def test_every_setting_comes_back(self):
        drawing = self.folder / "settings.svg"
        settings = (
            'cutPower="31.5" engraveSpeed="250.25" cutSpeed="12.125" engDensity="254" highFocus="-1.5" EngMinP="5" '
            'EngMaxP="66.6" processType="2" diameter="70" machineType="3" frequency="2000"'
        )
        drawing.write_text(f'<svg width="9mm" height="9mm" viewBox="0 0 9 9"><rect width="4" height="4" {settings}/></svg>')
        before, after, complaints = self.round_trip(drawing)
        self.assertEqual(complaints, "")
        self.assertEqual(before[0]["settings"]["frequency"], 2000.0)
        self.assertAlmostEqual(before[0]["settings"]["engStep"], 0.1)
        self.assertEqual(before[0]["settings"]["cutMode"], 0)
        self.assert_same(before, after)

    def test_all_greys_come_back(self):
        # A grey picture of 16 x 16 pixels that holds every value once, as an uncompressed TGA file.
        import base64

        head = bytes([0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 16, 0, 16, 0, 8, 0x20])
        data = base64.b64encode(head + bytes(range(256))).decode()
        drawing = self.folder / "greys.svg"
        drawing.write_text(
            '<svg xmlns:xlink="x" width="50mm" height="50mm" viewBox="0 0 50 50"><image x="5" y="5" width="20" height="20" '
            f'imageType="2" Reverse="1" transform="rotate(30)" xlink:href="data:image/tga;base64,{data}"/></svg>'
        )
        before, after, _ = self.round_trip(drawing)
        self.assertEqual(before[0]["settings"]["imageType"], 2)
        self.assert_same(before, after)

    def test_what_svg_cannot_carry_is_warned_of(self):
        drawing = self.folder / "lost.dxf"
        drawing.write_text(
            "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n5\n21\n0\n"
            "0\nLWPOLYLINE\n8\n0\n90\n1\n70\n0\n10\n1\n20\n1\n0\nENDSEC\n0\nEOF\n"
        )
        before, after, complaints = self.round_trip(drawing)
        self.assertEqual((len(before), len(after)), (2, 1))
        self.assertIn("1 curve without segments is left out", complaints)

    def test_a_gap_inside_a_curve_is_warned_of(self):
        # A vertex of the control polygon parts the run of the vertices that spline fitting made.
        def vertex(x, flags):
            return f"0\nVERTEX\n8\n0\n10\n{x}\n20\n0\n70\n{flags}\n"

        vertices = vertex(0, 8) + vertex(10, 8) + vertex(15, 16) + vertex(20, 8) + vertex(30, 8)
        drawing = self.folder / "gap.dxf"
        drawing.write_text(
            f"0\nSECTION\n2\nENTITIES\n0\nPOLYLINE\n8\n0\n66\n1\n70\n4\n{vertices}0\nSEQEND\n8\n0\n0\nENDSEC\n0\nEOF\n"
        )
        before, after, complaints = self.round_trip(drawing)
        self.assertEqual([len(curve["segments"]) for curve in before], [2])
        self.assertEqual([len(curve["segments"]) for curve in after], [1, 1])
        self.assertIn("1 gap inside curves", complaints)

    def test_a_density_with_a_fraction_is_warned_of(self):
        drawing = self.folder / "density.svg"
        drawing.write_text(
            '<svg width="9mm" height="9mm" viewBox="0 0 9 9"><g engDensity="12.5"><circle cx="4" cy="4" r="2" stroke="red"/></g></svg>'
        )
        before, after, complaints = self.round_trip(drawing)
        self.assertAlmostEqual(before[0]["settings"]["engStep"], 2.032)
        self.assertAlmostEqual(after[0]["settings"]["engStep"], 0.08)
        self.assertIn("1 line spacing that no whole", complaints)


if __name__ == "__main__":
    unittest.main()
