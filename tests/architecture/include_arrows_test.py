#!/usr/bin/env python3
"""Checks who includes whom: the arrows between the folders of the project, read off the include lines.

Usage: include_arrows_test.py ROOT
"""
import pathlib
import re
import sys
import unittest

# Whom each area may include, besides itself and `support`. An area is a folder of src/, with three cut out:
# `interface` is src/sink/reader_interface.*, `codepages` is src/dxf/codepages/, `program` is everything below
# tools/. The headers in include/drawload/ belong to `result`, those in its platform/ to `platform`, and
# exports.h to `entry`.
ARROWS = {
    "support": set(),
    "platform": set(),
    "curve": set(),
    "entity": set(),
    "interface": set(),
    "codepages": set(),
    "result": {"platform"},
    "shapecore": {"result", "platform"},
    "bitmapcore": {"result"},
    "fonts": {"platform"},
    "dxf": {"interface", "entity", "codepages"},
    "svg": {"interface", "entity"},
    "pdf": {"interface", "entity", "fonts", "codepages"},
    "sink": {"interface", "entity", "result", "curve", "fonts", "platform", "shapecore", "bitmapcore"},
}
SEES_EVERYTHING = "entry"

SOURCE_SUFFIXES = {".h", ".cpp", ".c"}
QUOTED_INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
ANGLE_INCLUDE = re.compile(r"^\s*#\s*include\s*<([^>]+)>", re.MULTILINE)


def area_of(path):
    """The area that the file at `path` (relative to the root, with slashes) belongs to."""
    parts = path.split("/")
    if parts[0] == "tools":
        return "program"
    if parts[0] == "include":
        if parts[2] == "platform":
            return "platform"
        return "entry" if parts[2] == "exports.h" else "result"
    if path.startswith("src/sink/reader_interface."):
        return "interface"
    if path.startswith("src/dxf/codepages/"):
        return "codepages"
    return parts[1]


def resolve(includer, target, files):
    """The project file that an include line means, as the compiler finds it; None where there is none."""
    folder = includer.rsplit("/", 1)[0]
    for place in (f"{folder}/{target}", f"include/{target}", f"src/{target}"):
        if place in files:
            return place
    return None


def forbidden(includer, included):
    """Why `includer` may not include `included`; None where it may."""
    area, other = area_of(includer), area_of(included)
    if includer.startswith("include/") and not included.startswith("include/"):
        return "a public header includes a private one"
    if area == "program":
        if included.startswith("include/") or other == "program":
            return None
        return "the program sees only the public headers"
    if area in (SEES_EVERYTHING, other) or other == "support":
        return None
    if area not in ARROWS:
        return f"no arrows are stated for {area}/"
    return None if other in ARROWS[area] else f"{area} may not include {other}"


def violations(files):
    """All broken arrows of a tree, which maps paths to their text."""
    found = []
    for includer, text in sorted(files.items()):
        for target in QUOTED_INCLUDE.findall(text):
            included = resolve(includer, target, files)
            if included is None and area_of(includer) == "program" and "/" not in target:
                continue  # written by the build, beside the program's own headers
            reason = "no such file in the project" if included is None else forbidden(includer, included)
            if reason:
                found.append(f'{includer}: "{target}": {reason}')
        for target in ANGLE_INCLUDE.findall(text):
            if f"src/{target}" in files or (target.startswith("drawload/") and area_of(includer) != "program"):
                found.append(f"{includer}: <{target}>: files of the project are included with quotes")
            if target == "regex" and includer.startswith("src/"):
                found.append(f"{includer}: <regex> recurses as deep as its input is long")
    return found


def guard_faults(files):
    """Headers without a guard of their own around them."""
    found = []
    owners = {}
    for path, text in sorted(files.items()):
        if not path.endswith(".h"):
            continue
        guard = re.match(r"#ifndef (\w+)\n#define (\w+)\n", text)
        if guard is None or guard[1] != guard[2]:
            found.append(f"{path}: does not begin with an include guard")
        elif guard[1] in owners:
            found.append(f"{path}: has the include guard of {owners[guard[1]]}")
        else:
            owners[guard[1]] = path
    return found


def tree(root):
    """The sources of the project, as a map from paths to their text."""
    files = {}
    for top in ("include", "src", "tools"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix in SOURCE_SUFFIXES and path.is_file():
                files[path.relative_to(root).as_posix()] = path.read_text(encoding="utf-8")
    return files


class MadeUpTrees(unittest.TestCase):
    """Each rule, on a tree of two files that breaks it or keeps it."""

    def check(self, includer, included, allowed, line=None):
        line = line or included.split("/", 1)[1]
        files = {includer: f'#include "{line}"\n', included: ""}
        self.assertEqual(violations(files) == [], allowed, f"{includer} -> {included}")

    def test_everybody_sees_support(self):
        for area in ARROWS:
            folder = {"interface": "sink", "codepages": "dxf/codepages"}.get(area, area)
            self.check(f"src/{folder}/a.cpp", "src/support/b.h", True)

    def test_support_sees_nobody(self):
        self.check("src/support/a.cpp", "src/entity/b.h", False)
        self.check("src/platform/a.cpp", "src/result/b.h", False)
        self.check("src/curve/a.cpp", "src/entity/b.h", False)
        self.check("src/entity/a.cpp", "src/platform/b.h", False)

    def test_results_stand_on_the_platform(self):
        self.check("src/result/a.cpp", "src/platform/b.h", True)
        self.check("include/drawload/a.h", "include/drawload/platform/b.h", True, "platform/b.h")
        self.check("src/result/a.cpp", "src/entity/b.h", False)
        self.check("src/shapecore/a.cpp", "include/drawload/file_curve.h", True)
        self.check("src/bitmapcore/a.cpp", "src/sink/b.h", False)

    def test_readers_see_the_interface_and_no_sink(self):
        for reader in ("dxf", "svg", "pdf"):
            self.check(f"src/{reader}/a.cpp", "src/sink/reader_interface.h", True)
            self.check(f"src/{reader}/a.cpp", "src/entity/b.h", True)
            self.check(f"src/{reader}/a.cpp", "src/sink/my_draw_load.h", False)
            self.check(f"src/{reader}/a.cpp", "src/result/b.h", False)
            self.check(f"src/{reader}/a.cpp", "include/drawload/file_curve.h", False)

    def test_readers_do_not_see_each_other(self):
        self.check("src/dxf/a.cpp", "src/svg/b.h", False)
        self.check("src/svg/a.cpp", "src/pdf/b.h", False)
        self.check("src/pdf/a.cpp", "src/dxf/b.h", False)
        self.check("src/pdf/a.cpp", "src/dxf/codepages/b.h", True)
        self.check("src/svg/a.cpp", "src/dxf/codepages/b.h", False)

    def test_only_pdf_and_the_sink_see_fonts(self):
        self.check("src/pdf/a.cpp", "src/fonts/b.h", True)
        self.check("src/sink/a.cpp", "src/fonts/b.h", True)
        self.check("src/svg/a.cpp", "src/fonts/b.h", False)

    def test_the_sink_sees_no_reader_and_no_entry(self):
        self.check("src/sink/a.cpp", "src/curve/b.h", True)
        self.check("src/sink/a.cpp", "src/dxf/b.h", False)
        self.check("src/sink/a.cpp", "src/entry/b.h", False)
        self.check("src/sink/a.cpp", "include/drawload/exports.h", False)

    def test_entry_sees_everything(self):
        self.check("src/entry/a.cpp", "src/dxf/b.h", True)
        self.check("src/entry/a.cpp", "src/sink/my_draw_load.h", True)

    def test_public_headers_see_public_headers_only(self):
        self.check("include/drawload/exports.h", "include/drawload/file_dib.h", True, "file_dib.h")
        self.check("include/drawload/file_dib.h", "src/result/b.h", False)

    def test_the_program_sees_public_headers_and_itself(self):
        self.check("tools/drawload/a.cpp", "include/drawload/exports.h", True)
        self.check("tools/drawload/a.cpp", "tools/drawload/b.h", True, "b.h")
        self.check("tools/drawload/a.cpp", "src/support/b.h", False)

    def test_a_folder_without_arrows_is_found(self):
        self.check("src/plotter/a.cpp", "src/entity/b.h", False)

    def test_an_include_of_nothing_is_found(self):
        self.check("src/entry/a.cpp", "src/dxf/b.h", False, "dxf/c.h")

    def test_angle_brackets_hide_nothing(self):
        files = {"src/svg/a.cpp": "#include <dxf/b.h>\n", "src/dxf/b.h": ""}
        self.assertEqual(len(violations(files)), 1)

    def test_regular_expressions_are_found(self):
        self.assertEqual(len(violations({"src/svg/a.cpp": "#include <regex>\n"})), 1)

    def test_guards_are_found_missing_or_doubled(self):
        guarded = "#ifndef A_H\n#define A_H\n#endif\n"
        self.assertEqual(guard_faults({"src/svg/a.h": guarded}), [])
        self.assertEqual(len(guard_faults({"src/svg/a.h": "int x;\n"})), 1)
        self.assertEqual(len(guard_faults({"src/svg/a.h": "#ifndef A_H\n#define B_H\n#endif\n"})), 1)
        self.assertEqual(len(guard_faults({"src/svg/a.h": guarded, "src/svg/b.h": guarded})), 1)


class Project(unittest.TestCase):
    root = None

    def test_it_has_sources(self):
        self.assertGreater(len(tree(self.root)), 50)

    def test_it_keeps_its_arrows(self):
        self.assertEqual(violations(tree(self.root)), [])

    def test_every_header_has_a_guard_of_its_own(self):
        self.assertEqual(guard_faults(tree(self.root)), [])


if __name__ == "__main__":
    Project.root = pathlib.Path(sys.argv.pop(1))
    unittest.main()
