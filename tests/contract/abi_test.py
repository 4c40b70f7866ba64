#!/usr/bin/env python3
"""Compares the binary interface of the library with the baseline, abi_baseline.xml, by libabigail.

Usage: abi_test.py COMPILER ROOT            runs the tests
       abi_test.py COMPILER ROOT --renew    writes the baseline again, after an intended change
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

# What a host links and reads: the functions and the result classes. The readers behind them export nothing.
FOLDERS = ("result", "shapecore")
FUNCTIONS = "entry/exports.cpp"
READING = ["--exported-interfaces-only", "--no-show-locs"]


class Interface:
    """The exported part of the library, built with debug information from the tree at `root`."""

    def __init__(self, compiler, root, scratch):
        self.library = scratch / "libdrawload.so"
        source = root / "src"
        units = [source / FUNCTIONS, *(unit for folder in FOLDERS for unit in sorted((source / folder).glob("*.cpp")))]
        freetype = subprocess.run(["pkg-config", "--cflags", "freetype2"], capture_output=True, check=True, text=True)
        command = [compiler, "-std=c++20", "-g", "-O0", "-fPIC", "-shared", "-fvisibility=hidden"]
        command += [f"-I{root / 'include'}", f"-I{source}", *freetype.stdout.split(), f"-ffile-prefix-map={root}/="]
        command += [f"-Wl,--version-script={source / 'entry/exports.map'}"]
        subprocess.run([*command, *units, "-o", self.library], check=True)

    def write(self, baseline):
        options = [*READING, "--no-corpus-path", "--no-comp-dir-path", "--no-elf-needed"]
        subprocess.run(["abidw", *options, "--out-file", baseline, self.library], check=True)

    def difference(self, baseline):
        """What abidiff tells, empty where the interface is the one of the baseline."""
        done = subprocess.run(["abidiff", *READING, baseline, self.library], capture_output=True, text=True)
        if done.returncode & 3:  # abidiff itself failed
            raise RuntimeError(done.stderr + done.stdout)
        return done.stdout if done.returncode else ""


class AbiTest(unittest.TestCase):
    compiler = root = baseline = None

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = pathlib.Path(scratch.name)

    def difference_with(self, header, before, after):
        """The difference where `before` in a public header is replaced."""
        root = self.scratch / "changed"
        for folder in ("include", "src"):
            shutil.copytree(self.root / folder, root / folder)
        file = root / "include/drawload" / header
        text = file.read_text()
        self.assertEqual(text.count(before), 1, header)
        file.write_text(text.replace(before, after))
        return Interface(self.compiler, root, self.scratch).difference(self.baseline)

    def test_the_interface_is_the_one_of_the_baseline(self):
        difference = Interface(self.compiler, self.root, self.scratch).difference(self.baseline)
        self.assertEqual(difference, "", "intended? docs/abi.md tells how the baseline is renewed")

    def test_a_field_more_in_a_struct_is_found(self):
        tail = "  FileSegment* previous;\n"
        difference = self.difference_with("file_segment.h", tail, "  std::int32_t layer;\n" + tail)
        self.assertIn("FileSegment", difference)

    def test_two_fields_that_change_places_are_found(self):
        pair = ["  alignas(8) double EngMaxP;       ///< \"EngMaxP\", percent\n",
                "  alignas(8) double engStep;       ///< line spacing in mm: 25.4 / \"engDensity\"\n"]
        difference = self.difference_with("file_draw.h", "".join(pair), "".join(reversed(pair)))
        self.assertIn("EngMaxP", difference)

    def test_another_order_of_the_virtual_operations_is_found(self):
        pair = ["  virtual void TransMirrorX(double x);\n", "  virtual void TransMirrorY(double y);\n"]
        difference = self.difference_with("file_draw.h", "".join(pair), "".join(reversed(pair)))
        self.assertIn("vtable", difference)


if __name__ == "__main__":
    AbiTest.compiler = sys.argv.pop(1)
    AbiTest.root = pathlib.Path(sys.argv.pop(1))
    AbiTest.baseline = AbiTest.root / "tests/contract/abi_baseline.xml"
    if sys.argv[1:] == ["--renew"]:
        with tempfile.TemporaryDirectory() as folder:
            Interface(AbiTest.compiler, AbiTest.root, pathlib.Path(folder)).write(AbiTest.baseline)
    else:
        unittest.main()
