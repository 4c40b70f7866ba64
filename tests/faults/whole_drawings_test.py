#!/usr/bin/env python3
"""Reads large drawings that people really have, made here, and checks that nothing of them is lost.

Usage: whole_drawings_test.py READ_DRAWING [UNITTEST OPTIONS]

READ_DRAWING loads and walks a drawing and writes how many results there were (bench/read_drawing.cpp)."""

import importlib.machinery
import importlib.util
import pathlib
import subprocess
import sys
import tempfile
import unittest
import zlib

ROOT = pathlib.Path(__file__).resolve().parents[2]


def load_generators():
    """The module bench/worst_files, which has a builder for each format."""
    loader = importlib.machinery.SourceFileLoader("worst_files", str(ROOT / "bench/worst_files"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("worst_files", loader))
    sys.dont_write_bytecode = True
    sys.path.insert(0, str(ROOT / "bench"))
    loader.exec_module(module)
    return module


WRITE = load_generators()


class Whole(unittest.TestCase):
    program = None

    def results(self, name, data):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / name
            path.write_bytes(data)
            done = subprocess.run([self.program, path], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                                  timeout=120)
        self.assertEqual(done.returncode, 0, name)
        return int(done.stderr.split()[1])  # "results N"


def image(document, width, height, keys="", data=b"", color_space="/DeviceGray", packed=True):
    head = f"/Type /XObject /Subtype /Image /Width {width} /Height {height} /ColorSpace {color_space} {keys}"
    return document.stream(data, head, packed=packed)


class SvgDrawings(Whole):
    def test_every_large_drawing_of_the_generators(self):
        for name, (make, expected) in WRITE.WHOLE.items():
            with self.subTest(name=name):
                self.assertEqual(self.results(f"{name}.{name[:3]}", make()), expected)


class DxfDrawings(Whole):
    def test_a_thousand_times_a_thousand_circles(self):
        circles = WRITE.tags("0|BLOCK|2|c") + "".join(
            WRITE.tags(f"0|CIRCLE|5|1|10|{i}|20|0|40|1") for i in range(1000)) + WRITE.tags("0|ENDBLK")
        rows = WRITE.tags("0|BLOCK|2|r") + WRITE.tags("0|INSERT|5|1|2|c") * 1000 + WRITE.tags("0|ENDBLK")
        data = WRITE.dxf(WRITE.tags("0|INSERT|2|r"), circles + rows)
        self.assertEqual(self.results("circles.dxf", data), 1_000_000)


class PdfDrawings(Whole):
    def squares(self, count, each):
        squares = b"".join(each(i) for i in range(1000)) * (count // 1000)
        return WRITE.Pdf().page(squares, packed=True)

    def test_two_million_squares_in_much_deflated_text(self):
        for count in (1_200_000, 2_250_000):
            data = self.squares(count, lambda i: b"%d 1 m 2 1 l 2 2 l 1 2 l h S\n" % (i % 10))
            self.assertEqual(self.results("squares.pdf", data), count)

    def test_two_million_rectangles_at_many_places(self):
        lines = [b"%.3f %.3f 0.8 0.8 re\nS\n" % (i * 0.0617 % 700, i * 0.0413 % 700) for i in range(50_000)]
        for count in (1_200_000, 2_250_000):
            data = WRITE.Pdf().page(b"".join(lines) * (count // len(lines)), packed=True)
            self.assertEqual(self.results("rectangles.pdf", data), count)

    def test_a_letterhead_under_every_page(self):
        for width, height, pages in ((2480, 3508, 40), (1240, 1754, 150)):
            document = WRITE.Pdf()
            picture = image(document, width, height, data=bytes(range(250)) * (3 * width * height // 250 + 1),
                            color_space="/DeviceRGB")
            content = document.stream("595 0 0 842 0 0 cm\n/X Do\n1 0 0 1 0 0 cm\n0 0 m\n9 9 l\nS\n")
            kids = [document.add(f"<< /Type /Page /MediaBox [ 0 0 595 842 ] /Contents {content} 0 R "
                                 f"/Resources << /XObject << /X {picture} 0 R >> >> >>") for _ in range(pages)]
            tree = document.add("<< /Type /Pages /Kids [ " + " ".join(f"{kid} 0 R" for kid in kids) + " ] >>")
            data = document.with_table(document.add(f"<< /Type /Catalog /Pages {tree} 0 R >>"))
            self.assertEqual(self.results("letterhead.pdf", data), 2 * pages)

    def test_five_hundred_tags_of_one_engraving_and_a_cut_line(self):
        document = WRITE.Pdf()
        picture = image(document, 1200, 600, data=bytes(range(256)) * (1200 * 600 // 256 + 1))
        data = document.page("40 0 0 20 1 1 cm\n/X Do\n" * 500 + "1 0 0 1 0 0 cm\n0 0 m\n9 9 l\nS\n",
                             f"/XObject << /X {picture} 0 R >>")
        self.assertEqual(self.results("tags.pdf", data), 501)

    def test_a_one_bit_sheet_of_a0_and_a_cut_line(self):
        width, height = 9933, 14043
        rows = zlib.compress(bytes((width + 7) // 8 * height), 9)
        for keys, data in (("/Filter /CCITTFaxDecode", b"x"), ("/BitsPerComponent 1 /Filter /FlateDecode", rows),
                           ("/Filter /RunLengthDecode", bytes([129, 0]) * ((width + 7) // 8 * height // 128 + 2))):
            document = WRITE.Pdf()
            sheet = image(document, width, height, keys, data, packed=False)
            page = document.page("2384 0 0 3370 0 0 cm\n/X Do\n0 0 m\n9 9 l\nS\n", f"/XObject << /X {sheet} 0 R >>")
            self.assertEqual(self.results("sheet.pdf", page), 2, keys)

    def test_two_hundred_scanned_pages(self):
        document = WRITE.Pdf()
        kids = []
        for _ in range(200):
            scan = image(document, 2480, 3508, "/Filter /DCTDecode", b"jpeg", packed=False)
            content = document.stream("595 0 0 842 0 0 cm\n/X Do\n")
            kids.append(document.add(f"<< /Type /Page /MediaBox [ 0 0 595 842 ] /Contents {content} 0 R "
                                     f"/Resources << /XObject << /X {scan} 0 R >> >> >>"))
        tree = document.add("<< /Type /Pages /Kids [ " + " ".join(f"{kid} 0 R" for kid in kids) + " ] >>")
        data = document.with_table(document.add(f"<< /Type /Catalog /Pages {tree} 0 R >>"))
        self.assertEqual(self.results("scans.pdf", data), 200)


if __name__ == "__main__":
    Whole.program = sys.argv.pop(1)
    unittest.main()
