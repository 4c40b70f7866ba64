#!/usr/bin/env python3
"""Builds and runs the examples of README.md as a reader would, against an installed library.

Usage: readme_test.py BUILD_DIR SOURCE_DIR CXX_COMPILER C_COMPILER
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest


def blocks(text):
    """The fenced examples of a page, as pairs of language and text."""
    return re.findall(r"^```(\w+)\n(.*?)^```$", text, re.M | re.S)


class ReadmeTest(unittest.TestCase):
    build = source = compilers = None

    @classmethod
    def setUpClass(cls):
        cls.examples = blocks((cls.source / "README.md").read_text())
        cls.scratch = tempfile.TemporaryDirectory()
        cls.prefix = pathlib.Path(cls.scratch.name) / "prefix"
        subprocess.run(["cmake", "--install", cls.build, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)
        cls.library = next(cls.prefix.rglob("libdrawload.so.0"))

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=self.scratch.name))
        for drawing in ("bracket.dxf", "panel.dxf", "box.svg", "gears.svg"):
            shutil.copy(self.source / "examples" / drawing, self.folder)
        shutil.copytree(self.folder, self.folder / "drawings", ignore=shutil.ignore_patterns("drawings"))
        opener = self.folder / "bin/xdg-open"
        opener.parent.mkdir()
        opener.write_text("#!/bin/sh\ntest -s \"$1\"\n")
        opener.chmod(0o755)

    def example(self, language):
        found = [text for name, text in self.examples if name == language]
        self.assertEqual(len(found), 1, language)
        return found[0]

    def run_in_folder(self, command, **environment):
        path = f"{self.prefix}/bin:{self.folder}/bin:{os.environ['PATH']}"
        surroundings = {**os.environ, "PATH": path, "TMPDIR": str(self.folder), **environment}
        done = subprocess.run(command, cwd=self.folder, env=surroundings, capture_output=True, text=True, timeout=120)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def run_compiled(self, language, standard, helpers):
        """Runs the statements of an example as the body of a function, behind `helpers`."""
        lines = self.example(language).splitlines()
        includes = [line for line in lines if line.startswith("#include")]
        body = [line for line in lines if not line.startswith("#include")]
        text = "\n".join([*includes, helpers, "static void Example(void) {", *body, "}", "int main(void) { Example(); return 0; }", ""])
        file = self.folder / f"example.{language}"
        file.write_text(text)
        command = [self.compilers[language], f"-std={standard}", "-Wall", "-Wextra", "-Werror", file, f"-I{self.prefix}/include"]
        command += [f"-L{self.library.parent}", "-ldrawload", f"-Wl,-rpath,{self.library.parent}", "-o", self.folder / "example"]
        done = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)
        return self.run_in_folder(["./example"])

    def results(self):
        """How many results the program finds in the drawing of the examples."""
        return int(re.search(r"results +(\d+):", self.run_in_folder(["drawload", "info", "bracket.dxf"]))[1])

    def test_the_example_in_cpp_sees_every_curve(self):
        helpers = '#include <cstdio>\nstatic void Cut(const CFileCurve& c) { std::printf("%d\\n", c.segmentCount); }'
        printed = self.run_compiled("cpp", "c++17", helpers).split()
        self.assertEqual(len(printed), self.results())
        self.assertTrue(all(int(count) > 0 for count in printed))

    def test_the_example_in_c_counts_the_results(self):
        self.assertEqual(self.run_compiled("c", "c99", "#include <stdio.h>"), f"{self.results()} results\n")

    def test_the_example_in_python_prints_a_line_for_each_curve(self):
        file = self.folder / "example.py"
        file.write_text(self.example("python"))
        python = {"PYTHONPATH": str(self.source / "python"), "DRAWLOAD_LIBRARY": str(self.library), "PYTHONDONTWRITEBYTECODE": "1"}
        printed = self.run_in_folder(["/usr/bin/python3", str(file)], **python).splitlines()
        self.assertEqual(len(printed), self.results())
        for line in printed:
            self.assertRegex(line, r"^\(\d+, \d+, \d+\) \d+ 100\.0$")

    def test_every_command_line_of_the_program_runs(self):
        scripts = [text for name, text in self.examples if name == "sh" and text.startswith("drawload")]
        lines = [line for script in scripts for line in script.splitlines()]
        self.assertEqual({line.split()[1] for line in lines}, {"info", "check", "convert", "view", "batch"})
        for line in lines:
            with self.subTest(line=line):
                # A check answers 1 where it finds something.
                command = line + "\n" if line.split()[1] != "check" else line.split("#")[0] + " || [ $? -eq 1 ]"
                self.run_in_folder(["bash", "-ec", command])
        self.assertEqual(len(list((self.folder / "previews").glob("*.png"))), 4)

    def test_the_shell_example_draws_and_sums(self):
        script = next(text for name, text in self.examples if name == "sh" and text.startswith("for"))
        self.assertRegex(self.run_in_folder(["bash", "-ec", script]), r"^\d+\.\d+ mm to cut$")
        self.assertEqual({p.name for p in self.folder.glob("*.png")}, {"bracket.png", "panel.png"})
        self.assertFalse((self.folder / "broken.txt").exists())

    def test_the_picture_is_what_the_program_draws(self):
        output = self.folder / "gasket.png"
        self.run_in_folder(["drawload", "convert", str(self.source / "examples/gasket.dxf"), "-o", str(output), "--width", "500"])
        self.assertIn("(docs/gasket.png)", (self.source / "README.md").read_text())
        self.assertEqual(output.read_bytes(), (self.source / "docs/gasket.png").read_bytes())

    def test_every_link_of_the_documents_leads_somewhere(self):
        count = 0
        for page in [*self.source.glob("*.md"), *self.source.glob("docs/*.md")]:
            for link in re.findall(r"\]\(([^)#:]+)\)", page.read_text()):
                count += 1
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")
        self.assertGreater(count, 10)

    def test_the_commands_of_the_developer_are_there(self):
        told = set(re.findall(r"\./dev (\w+)", (self.source / "README.md").read_text()))
        usage = subprocess.run([self.source / "dev", "help"], capture_output=True, text=True, check=True).stdout
        self.assertEqual(told, {"run", "test"})
        for command in told:
            self.assertIn(f"./dev {command}", usage)


if __name__ == "__main__":
    *options, cxx, c = (sys.argv.pop(1) for _ in range(4))
    ReadmeTest.build, ReadmeTest.source = map(pathlib.Path, options)
    ReadmeTest.compilers = {"cpp": cxx, "c": c}
    unittest.main()
