#!/usr/bin/env python3
"""Has the compiler check every offset and size that docs/abi.md tells, for pointers of 8 and of 4 bytes.

Usage: abi_document_test.py COMPILER ROOT
"""

import pathlib
import re
import subprocess
import sys
import unittest

CLASSES = {"CFileDraw", "CFileCurve", "FileSegment", "CFileDib", "CFilePoint", "CFileGroup", "FileMember"}


def by_pointer(text):
    """The pair of "232 / 228", or the one number twice: for pointers of 8 and of 4 bytes."""
    numbers = [int(number) for number in text.split("/")]
    return numbers[0], numbers[-1]


def assertions(document):
    """Static assertions for each class of the document: a map from its name to pairs for 8 and 4 bytes."""
    found = {}
    name = None
    for line in document.splitlines():
        if heading := re.match(r"## (?:`(\w+)`)?", line):
            name = heading[1]
        elif name and (row := re.match(r"\| ([\d ,/]+) \| (`.+?`) \|", line)):
            fields = re.findall(r"`(\w+)`", row[2])
            for field, offset in zip(fields, row[1].split(","), strict=True):
                claims = [f"offsetof({name}, {field}) == {number}" for number in by_pointer(offset)]
                found.setdefault(name, []).append(claims)
        elif name and (size := re.match(r"Size: ([\d /]+)\.$", line)):
            found.setdefault(name, []).append([f"sizeof({name}) == {number}" for number in by_pointer(size[1])])
    return found


class AbiDocumentTest(unittest.TestCase):
    compiler = root = None

    def compile(self, claims, bits):
        lines = ["#include <cstddef>", '#include "drawload/exports.h"', *(f'static_assert({claim}, "");' for claim in claims)]
        command = [self.compiler, f"-m{bits}", "-fsyntax-only", "-std=c++17", "-Wno-invalid-offsetof", "-x", "c++", "-"]
        return subprocess.run([*command, f"-I{self.root / 'include'}"], input="\n".join(lines).encode(), capture_output=True)

    def test_every_class_of_the_interface_is_told_with_its_size(self):
        found = assertions((self.root / "docs/abi.md").read_text())
        self.assertEqual(set(found), CLASSES)
        for name, claims in found.items():
            self.assertEqual(sum("sizeof" in claim[0] for claim in claims), 1, name)

    def test_every_field_of_the_headers_is_told(self):
        found = assertions((self.root / "docs/abi.md").read_text())
        count = 0
        for header in sorted((self.root / "include/drawload").glob("file_*.h")):
            for name, body in re.findall(r"(?:class DRAWLOAD_API|struct) (\w+)[^{;]*\{(.*?)^\};", header.read_text(), re.M | re.S):
                fields = re.findall(r"^  (?:alignas\(8\) )?[\w:]+\*? (\w+)(?:\[\d+\])?;", body, re.M)
                told = " ".join(claim[0] for claim in found.get(name, []))
                for field in fields:
                    if name in CLASSES and not field.startswith("padding"):
                        self.assertIn(f"({name}, {field})", told)
                        count += 1
        self.assertGreater(count, 60)

    def test_the_tables_hold_where_pointers_have_8_and_where_they_have_4_bytes(self):
        found = assertions((self.root / "docs/abi.md").read_text())
        for at, bits in ((0, 64), (1, 32)):
            claims = [claim[at] for claims in found.values() for claim in claims]
            self.assertGreater(len(claims), 60)
            done = self.compile(claims, bits)
            self.assertEqual(done.returncode, 0, done.stderr.decode())

    def test_a_wrong_offset_is_found(self):
        self.assertNotEqual(self.compile(["offsetof(CFileDraw, kind) == 44"], 64).returncode, 0)


if __name__ == "__main__":
    AbiDocumentTest.compiler = sys.argv.pop(1)
    AbiDocumentTest.root = pathlib.Path(sys.argv.pop(1))
    unittest.main()
