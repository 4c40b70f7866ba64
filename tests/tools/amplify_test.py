#!/usr/bin/env python3
"""bench/amplify finds readers that take too much, and no others; its files are what their names say."""

import pathlib
import random
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
sys.dont_write_bytecode = True
from amplification.cases import Case  # noqa: E402
from amplification.drawing import Element, nest, repeat  # noqa: E402
from amplification.dxf import DxfDrawing  # noqa: E402
from amplification.pdf import PdfDrawing  # noqa: E402
from amplification.svg import SvgDrawing  # noqa: E402
import make_pdf_examples  # noqa: E402

# A reader in a few lines: `size` is that of the file, `results` and the times 1 MiB beyond a base are what it claims.
READER = """#!{python}
import os, sys, time
size = os.path.getsize(sys.argv[2]) if len(sys.argv) > 2 else 0
results, need = 0, 0
{body}
print("results 1\\nbytes %d\\npeak %d" % (results, (10 << 20) + results + int(need)), file=sys.stderr)
"""
ONE = "short.dxf/one/entity:LINE@file.21-38.x"


class SearchTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def search(self, body, *options):
        reader = self.folder / "reader"
        reader.write_text(READER.format(python=sys.executable, body=body))
        reader.chmod(0o755)
        return subprocess.run([str(ROOT / "bench/amplify"), str(reader), "--only", ONE, *options], capture_output=True,
                              text=True, timeout=300)

    def test_is_content_with_a_reader_that_takes_what_the_file_has(self):
        found = self.search("need = 64 * size")
        self.assertIn("The worst of 1 cases", found.stdout)
        self.assertIn("0 complaints", found.stdout)
        self.assertEqual(found.returncode, 0, found.stderr)

    def test_finds_memory_beyond_the_allowance(self):
        found = self.search("need = (400 << 20) * (size > 9e5)")
        self.assertIn("[memory", found.stdout)
        self.assertEqual(found.returncode, 1)

    def test_does_not_count_results_as_memory_of_the_reader(self):
        found = self.search("results = (1000 << 20) * (size > 0)")
        self.assertEqual(found.returncode, 0, found.stdout)

    def test_finds_results_beyond_what_may_be_held_in_all(self):
        found = self.search("results = (2400 << 20) * (size > 0)")
        self.assertIn("[all memory", found.stdout)

    def test_finds_memory_that_grows_with_the_square_of_the_file(self):
        found = self.search("need = (size / 1e6) ** 2 * (200 << 20)")
        self.assertIn("16 times the memory", found.stdout)

    def test_finds_time_that_grows_with_the_square_of_the_file(self):
        found = self.search("while time.process_time() < 1.6 * (size / 1e6) ** 2: pass")
        self.assertRegex(found.stdout, r"\d+ times the time")

    def test_finds_a_reader_that_dies(self):
        found = self.search("os.kill(os.getpid(), 11) if size else None")
        self.assertIn("died of signal 11", found.stdout)

    def test_keeps_the_file_of_a_complaint(self):
        self.search("need = 400 << 20 if size else 0", "--keep", str(self.folder / "kept"))
        kept, = (self.folder / "kept").iterdir()
        self.assertGreater(kept.read_bytes().count(b"0\nLINE\n10\n1\n11\n2\n"), 10_000)


class FilesTest(unittest.TestCase):
    def file(self, drawing, steps, packed=(), quarters=4, size=1000):
        drawing.name = "drawing"
        return Case(drawing, steps, packed, "one").make(quarters, size)

    def step(self, drawing, *wanted):
        """The first change of these kinds and labels."""
        for steps, packed in drawing.singles():
            if [(step.element.kind, step.element.label, step.name) for step in steps] == list(wanted):
                return steps, packed
        raise KeyError(wanted)

    def test_an_element_is_repeated_until_the_file_has_its_size(self):
        drawing = SvgDrawing(b'<svg><g id="a"/></svg>')
        file = self.file(drawing, [repeat(Element("file", 5, 16, "element", "g"))], size=3000)
        self.assertAlmostEqual(file.count(b'<g id="a"/>'), round((3000 - 22 - 1000) / 11), delta=2)

    def test_a_quarter_has_a_quarter_of_the_copies(self):
        drawing = SvgDrawing(b'<svg><g id="a"/></svg>')
        case = Case(drawing, [repeat(Element("file", 5, 16, "element", "g"))], (), "one")
        self.assertEqual(case.make(4, 9000).count(b"<g") // 4, case.make(1, 9000).count(b"<g"))

    def test_an_element_nests_in_itself(self):
        drawing = DxfDrawing(b"0\nMTEXT\n1\n{a}\n")
        file = self.file(drawing, [nest(Element("file", 10, 13, "value", "MTEXT.1", 11))], size=1200)
        self.assertIn(b"{{{{", file)
        self.assertIn(b"a}a}a}", file)

    def test_the_edges_of_a_hatch_are_found(self):
        drawing = DxfDrawing((ROOT / "fuzz/corpus/dxf/tables.dxf").read_bytes())
        steps, _ = self.step(drawing, ("count", "93", "93many"), ("vertex", "HATCH.72", "x"))
        file = self.file(drawing, steps, size=20_000)
        self.assertIn(b"93\n1000000\n", file)
        self.assertGreater(file.count(b"72\n1\n10\n0\n20\n0\n11\n5\n21\n0\n"), 100)

    def document(self):
        document = make_pdf_examples.Document()
        content = document.add_stream(b"0 0 m\n9 9 l\nS\n", packed=False)
        page = document.add(f"<< /Type /Page /MediaBox [ 0 0 9 9 ] /Contents {content} 0 R >>")
        return document, document.add_pages([page])

    def offsets_hold(self, file):
        start = int(file.split(b"startxref\n")[1].split(b"\n")[0])
        self.assertEqual(file[start:start + 4], b"xref")
        rows = file[start:].split(b"trailer")[0].splitlines()[3:]
        for number, row in enumerate(rows, 1):
            if row.endswith(b"n "):
                self.assertTrue(file[int(row[:10]):].startswith(b"%d 0 obj" % number))
        return len(rows)

    def test_a_pdf_file_gets_a_table_of_its_true_offsets(self):
        document, catalog = self.document()
        drawing = PdfDrawing(document.with_table(catalog))
        steps, packed = self.step(drawing, ("line", "9 9 l", "x"))
        file = self.file(drawing, steps, packed, size=5000)
        self.assertGreater(file.count(b"9 9 l\n"), 100)
        self.assertGreater(self.offsets_hold(file), 4)

    def test_an_object_is_copied_under_new_numbers(self):
        document, catalog = self.document()
        drawing = PdfDrawing(document.with_table(catalog))
        steps, packed = self.step(drawing, ("reference", "2 0 R", "objects"))
        file = self.file(drawing, steps, packed, size=5000)
        self.assertGreater(file.count(b"/Type /Page "), 10)
        self.assertGreater(self.offsets_hold(file), 14)

    def test_a_packed_stream_holds_many_times_the_bytes_of_its_file(self):
        document, catalog = self.document()
        drawing = PdfDrawing(document.with_table(catalog))
        for steps, packed in drawing.singles():
            if steps[0].element.label == "9 9 l" and packed:
                break
        file = self.file(drawing, steps, packed, size=5000)
        self.assertIn(b"/Filter /FlateDecode", file)
        self.assertLess(len(file), 5000)
        self.assertGreater(len(PdfDrawing(file).parts["1.data"]), 50_000)

    def test_the_same_seed_gives_the_same_order(self):
        from amplification import cases
        names = [[next(order).name for _ in range(50)]
                 for order in (cases.in_order(random.Random(3), ROOT) for _ in range(2))]
        self.assertEqual(*names)


if __name__ == "__main__":
    unittest.main()
