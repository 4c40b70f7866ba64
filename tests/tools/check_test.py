#!/usr/bin/env python3
"""`drawload check` and the mending options as a user meets them: reports, exit statuses, outputs."""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)
EXAMPLES = pathlib.Path(sys.argv.pop(1))


def line(x1, y1, x2, y2):
    return f"0\nLINE\n8\n0\n10\n{x1}\n20\n{y1}\n11\n{x2}\n21\n{y2}\n"


def circle(x, y, radius):
    return f"0\nCIRCLE\n8\n0\n10\n{x}\n20\n{y}\n40\n{radius}\n"


def square(x, y, side):
    corners = [(x, y), (x + side, y), (x + side, y + side), (x, y + side)]
    return "".join(line(*a, *b) for a, b in zip(corners, corners[1:] + corners[:1]))


def dxf(*entities):
    return "0\nSECTION\n2\nENTITIES\n" + "".join(entities) + "0\nENDSEC\n0\nEOF\n"


class CheckTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.here = pathlib.Path(folder.name)
        self.drawing = self.here / "part.dxf"

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=120)

    def draw(self, *entities):
        self.drawing.write_text(dxf(*entities))

    def findings(self, *options):
        done = self.run_program("check", "--json", self.drawing, *options)
        (file,) = json.loads(done.stdout)["files"]
        return {entry["code"]: entry for entry in file["findings"]}

    def results(self, *options):
        out = self.here / "out.json"
        done = self.run_program("convert", "--force", self.drawing, "-o", out, *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(out.read_text())["results"], done.stderr

    def test_a_sound_drawing_has_status_zero(self):
        self.draw(circle(0, 0, 5), circle(0, 0, 10))
        done = self.run_program("check", self.drawing)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stdout, f"{self.drawing}: 2 contours closed, 0 open; nothing found\n")

    def test_a_duplicate_has_status_one_and_is_told_with_its_length_and_place(self):
        self.draw(line(0, 0, 30, 40), line(30, 40, 0, 0))
        done = self.run_program("check", self.drawing)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stdout, r"duplicate +1 segment drawn before, 50 mm; first at \(30\.000, 40\.000\) mm, result 2, segment 1\n")

    def test_an_open_line_may_be_meant(self):
        self.draw(line(0, 0, 30, 40))
        done = self.run_program("check", self.drawing)
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stdout, r"open +1 open contour; .*, ends 50 mm apart \(may be meant\)\n")

    def test_what_is_ignored_has_no_weight(self):
        self.draw(line(0, 0, 30, 40), line(30, 40, 0, 0))
        for options in (["--ignore", "duplicate"], ["--ignore", "open,duplicate"], ["--ignore", "open", "--ignore", "duplicate"]):
            self.assertEqual(self.run_program("check", self.drawing, *options).returncode, 0)
        self.assertEqual(self.run_program("check", self.drawing, "--ignore", "open").returncode, 1)

    def test_an_unknown_code_is_wrong_usage_and_the_codes_are_told(self):
        self.draw(line(0, 0, 30, 40))
        done = self.run_program("check", self.drawing, "--ignore", "dupes")
        self.assertEqual(done.returncode, 2)
        self.assertIn("'dupes' is not a code", done.stderr)
        self.assertIn("turn-back", done.stderr)

    def test_json_tells_every_finding_with_its_places(self):
        self.draw(line(0, 0, 30, 40), line(30, 40, 0, 0))
        found = self.findings()
        self.assertEqual(set(found), {"duplicate", "open"})
        self.assertEqual((found["duplicate"]["count"], found["duplicate"]["ofWeight"]), (1, True))
        self.assertEqual(found["duplicate"]["places"], [{"x": 30.0, "y": 40.0, "result": 2, "segment": 1, "lengthMm": 50.0}])
        self.assertEqual(found["open"]["places"], [{"x": 0.0, "y": 0.0, "result": 1, "gapMm": 50.0}])

    def test_several_files_are_reported_and_a_missing_one_too(self):
        self.draw(circle(0, 0, 5))
        done = self.run_program("check", "--json", self.drawing, self.here / "missing.dxf")
        self.assertEqual(done.returncode, 1)
        self.assertIn("missing.dxf", done.stderr)
        self.assertEqual([file["read"] for file in json.loads(done.stdout)["files"]], [True, False])

    def test_the_tolerance_decides_what_a_duplicate_is(self):
        self.draw(line(0, 0, 30, 40), line(0, 0.05, 30, 40.05))
        self.assertNotIn("duplicate", self.findings())
        self.assertEqual(self.findings("--tolerance", "0.1")["duplicate"]["count"], 1)

    def test_results_outside_the_bed_are_found(self):
        self.draw(circle(50, 50, 40), circle(150, 50, 40))
        self.assertEqual(self.findings("--bed", "200,100").get("outside"), None)
        self.assertEqual(self.findings("--bed", "150,100")["outside"]["count"], 1)
        self.assertEqual(self.run_program("check", self.drawing, "--bed", "150").returncode, 2)

    def test_settings_that_no_machine_takes_are_found(self):
        drawing = self.here / "settings.svg"
        for fault in ('cutPower="120"', 'cutSpeed="0"', 'engDensity="0"', 'cutSpeed="nan"'):
            drawing.write_text(f'<svg width="9mm" height="9mm" viewBox="0 0 9 9"><rect width="4" height="4" {fault}/></svg>')
            done = self.run_program("check", drawing)
            self.assertEqual(done.returncode, 1, fault)
            self.assertIn("settings", done.stdout)

    def test_results_that_are_not_finite_or_far_away_are_reports(self):
        self.draw(line(0, 0, "1e999", 0), line(0, 0, "1e300", "-1e300"), circle(0, 0, 5))
        found = self.findings()
        self.assertEqual((found["not-finite"]["count"], found["far"]["count"]), (1, 1))

    def test_a_million_copies_of_one_line_are_a_report(self):
        self.drawing.write_text(dxf(line(0, 0, 30, 0) * 1_000_000))
        self.assertEqual(self.findings()["duplicate"]["count"], 999_999)

    def test_reports_are_written_as_page_and_as_picture(self):
        self.draw(line(0, 0, 30, 40), line(30, 40, 0, 0))
        for name, start in (("report.html", b"<!DOCTYPE html>"), ("report.png", b"\x89PNG")):
            done = self.run_program("check", self.drawing, "-o", self.here / name)
            self.assertEqual(done.returncode, 1)
            self.assertTrue((self.here / name).read_bytes().startswith(start))
            self.assertIn("--force", self.run_program("check", self.drawing, "-o", self.here / name).stderr)
        self.assertIn("1 segment drawn before, 50 mm", (self.here / "report.html").read_text())
        self.assertEqual(self.run_program("check", self.drawing, "-o", self.here / "report.svg").returncode, 2)
        self.assertEqual(self.run_program("check", self.drawing, self.drawing, "-o", self.here / "two.html").returncode, 2)

    def test_info_tells_the_check_in_a_line(self):
        self.draw(circle(50, 50, 40), square(40, 40, 20), line(40, 40, 60, 40), line(200, 0, 200, 900))
        text = self.run_program("info", self.drawing).stdout
        self.assertIn("  check      1 duplicate (20 mm), 2 contours closed, 1 open, order: 1 outline before what lies inside it\n", text)
        (file,) = json.loads(self.run_program("info", "--json", self.drawing).stdout)["files"]
        self.assertEqual(file["check"], {"duplicates": 1, "duplicatesMm": 20.0, "contoursClosed": 2, "contoursOpen": 1, "outlinesTooEarly": 1})

    def test_info_tells_lengths_from_a_meter_on_in_meters(self):
        self.draw(line(0, 0, 1234, 0), line(0, 0, 1234, 0))
        self.assertIn("1 duplicate (1.2 m), 0 contours closed, 1 open\n", self.run_program("info", self.drawing).stdout)

    def test_convert_drops_joins_and_orders_and_says_so(self):
        self.draw(square(0, 0, 100), line(0, 0, 100, 0), circle(50, 50, 10))
        results, told = self.results("--drop-duplicates", "--join", "0.01", "--inside-first")
        self.assertEqual([len(result["segments"]) for result in results], [4, 4])
        self.assertEqual([len(segment) for segment in results[0]["segments"]], [8] * 4)  # the circle comes first
        self.assertIn("part.dxf': dropped 1 duplicate (100 mm)", told)
        self.assertIn("part.dxf': joined 4 pieces into 1 contour, closed 1", told)
        self.assertIn("part.dxf': put 1 outline after what lies inside, travel", told)

    def test_convert_simplifies_only_when_asked(self):
        self.draw(line(0, 0, 10, 0.01), line(10, 0.01, 20, 0))
        self.assertEqual(len(self.results("--join", "0.01")[0][0]["segments"]), 2)
        results, told = self.results("--join", "0.01", "--simplify", "0.1")
        self.assertEqual(results[0]["segments"], [[0.0, 0.0, 20.0, 0.0]])
        self.assertIn("simplified 2 segments to 1", told)

    def test_convert_leaves_everything_as_it_is_unasked(self):
        self.draw(square(0, 0, 100), line(0, 0, 100, 0), circle(50, 50, 10))
        results, told = self.results()
        self.assertEqual((len(results), told), (6, ""))

    def test_batch_mends_and_tells_it_in_the_report(self):
        self.draw(square(0, 0, 100), line(0, 0, 100, 0))
        out = self.here / "out"
        done = self.run_program("batch", self.drawing, "--out", out, "--to", "json", "--drop-duplicates", "--join", "0.01")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(len(json.loads((out / "part.dxf.json").read_text())["results"]), 1)
        (row,) = json.loads((out / "report.json").read_text())["files"]
        self.assertEqual(row["message"], "dropped 1 duplicate (100 mm); joined 4 pieces into 1 contour, closed 1")

    def test_every_example_is_checked(self):
        drawings = [p for p in sorted(EXAMPLES.iterdir()) if p.suffix in (".dxf", ".svg", ".pdf")]
        for drawing in drawings:
            with self.subTest(drawing=drawing.name):
                done = self.run_program("check", drawing)
                self.assertEqual(done.stderr, "")
                self.assertEqual(done.returncode, int(re.search(r"\n  (?!.*\(may be meant\))", done.stdout) is not None))


if __name__ == "__main__":
    unittest.main()
