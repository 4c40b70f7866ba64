#!/usr/bin/env python3
"""Checks with the compilers of mingw-w64 what a Windows build stands on: the public headers, the layout of the
results, the Windows side of src/platform/ and the result classes. Nothing runs: there is no Windows here.

Usage: windows_test.py ROOT
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

COMPILERS = {32: "i686-w64-mingw32", 64: "x86_64-w64-mingw32"}
STRICT = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]


class WindowsTest(unittest.TestCase):
    root = None

    def compile(self, bits, *arguments, language="g++", text=""):
        includes = [f"-I{self.root / folder}" for folder in ("include", "src", "tests")]
        command = [f"{COMPILERS[bits]}-{language}-posix", *STRICT, *includes, *map(str, arguments)]
        return subprocess.run(command, input=text.encode(), capture_output=True)

    def check(self, *arguments, **options):
        for bits in COMPILERS:
            with self.subTest(bits=bits):
                done = self.compile(bits, *arguments, **options)
                self.assertEqual(done.returncode, 0, done.stderr.decode())

    def test_the_layout_of_the_results_holds(self):
        self.check("-std=c++20", "-fsyntax-only", "-x", "c++", "-", text='#include "contract/layout_checks.h"\n')

    def test_a_segment_has_96_bytes_with_32_bits_and_104_with_64(self):
        for bits, size in ((32, 96), (64, 104)):
            for claimed in (96, 104):
                text = f'#include "drawload/exports.h"\nstatic_assert(sizeof(FileSegment) == {claimed});\n'
                done = self.compile(bits, "-std=c++20", "-fsyntax-only", "-x", "c++", "-", text=text)
                self.assertEqual(done.returncode == 0, claimed == size, done.stderr.decode())

    def test_a_host_in_c_sees_the_functions(self):
        text = '#include "drawload/exports.h"\nint Load(const char* path) { return DrawLoad_Z7(path); }\n'
        self.check("-std=c99", "-fsyntax-only", "-x", "c", "-", language="gcc", text=text)

    def test_a_host_imports_what_the_library_exports(self):
        head = '#include "drawload/exports.h"\n'
        call = head + "int Load(const char* path) { return DrawLoad_Z7(path); }\n"
        done = self.compile(64, "-std=c++20", "-S", "-o", "-", "-x", "c++", "-", text=call)
        self.assertIn(b"__imp_DrawLoad_Z7", done.stdout, done.stderr)
        body = head + "int32_t DrawLoad_Z7(const char*) { return 0; }\n"
        done = self.compile(64, "-std=c++20", "-DDRAWLOAD_BUILDING", "-S", "-o", "-", "-x", "c++", "-", text=body)
        self.assertIn(b'-export:\\"DrawLoad_Z7\\"', done.stdout, done.stderr)

    def test_the_seam_compiles_and_lacks_nothing(self):
        source = self.root / "src"
        seam = [*sorted((source / "platform").glob("*.cpp")), *sorted((source / "platform/windows").glob("*.cpp"))]
        users = [source / "support" / name for name in ("account.cpp", "broken_pipe_guard.cpp", "file_bytes.cpp", "large_block.cpp", "text_to_number.cpp")]
        use = self.root / "tests/platform/windows_seam_use.cpp"
        with tempfile.TemporaryDirectory() as folder:
            self.check("-std=c++20", "-static", *seam, *users, use, "-o", pathlib.Path(folder) / "seam.exe")

    def test_the_results_compile_where_pointers_have_4_bytes(self):
        files = [file for folder in ("result", "shapecore", "bitmapcore") for file in sorted((self.root / "src" / folder).glob("*.cpp"))]
        done = self.compile(32, "-std=c++20", "-DDRAWLOAD_BUILDING", "-fsyntax-only", *files)
        self.assertEqual(done.returncode, 0, done.stderr.decode())


if __name__ == "__main__":
    WindowsTest.root = pathlib.Path(sys.argv.pop(1))
    unittest.main()
