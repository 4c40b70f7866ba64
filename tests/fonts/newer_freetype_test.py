#!/usr/bin/env python3
"""Compiles the code that touches outlines against headers as FreeType has them from 2.13.3 on: the tags and contours of
an outline are unsigned there, and so are their numbers.

Usage: newer_freetype_test.py COMPILER ROOT
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

FIELDS = {"n_contours": "unsigned short", "n_points": "unsigned short", "tags": "unsigned char*", "contours": "unsigned short*"}


def newer(header):
    """The text of ftimage.h with the newer types in `FT_Outline`."""
    start = header.index("struct  FT_Outline_")
    end = header.index("} FT_Outline;", start)
    outline = header[start:end]
    for field, newer_type in FIELDS.items():
        outline, found = re.subn(rf"^( *)[a-z ]+\*? +({field};)", rf"\1{newer_type} \2", outline, flags=re.MULTILINE)
        if found != 1:
            raise ValueError(f"ftimage.h has {found} fields {field}")
    return header[:start] + outline + header[end:]


class NewerFreeTypeTest(unittest.TestCase):
    compiler = root = None

    def test_the_faces_compile_with_unsigned_tags_and_contours(self):
        flags = subprocess.run(["pkg-config", "--cflags", "freetype2"], capture_output=True, check=True, text=True)
        installed = next(header for flag in flags.stdout.split() if flag.startswith("-I")
                         for header in [pathlib.Path(flag[2:]) / "freetype/ftimage.h"] if header.exists())
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder) / "freetype/ftimage.h"
            copy.parent.mkdir()
            copy.write_text(newer(installed.read_text()))
            check = pathlib.Path(folder) / "check.cpp"
            check.write_text("#include <ft2build.h>\n#include FT_OUTLINE_H\n"
                             "static_assert(__is_same(decltype(FT_Outline::tags), unsigned char*));\n")
            for source in [check, *sorted((self.root / "src/fonts").glob("*.cpp"))]:
                with self.subTest(source=source.name):
                    command = [self.compiler, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wconversion", "-Werror"]
                    command += [f"-I{folder}", f"-I{self.root / 'src'}", f"-I{self.root / 'include'}"]
                    done = subprocess.run([*command, *flags.stdout.split(), source], capture_output=True, text=True)
                    self.assertEqual(done.returncode, 0, done.stderr)


if __name__ == "__main__":
    NewerFreeTypeTest.compiler = sys.argv.pop(1)
    NewerFreeTypeTest.root = pathlib.Path(sys.argv.pop(1))
    unittest.main()
