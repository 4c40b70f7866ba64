#!/usr/bin/env python3
"""Man pages and completions tell the same options as the program's own help."""

import json
import os
import pathlib
import pty
import re
import select
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)
SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
COMMANDS = ("info", "check", "convert", "view", "batch")


def long_options(*arguments):
    text = subprocess.run([PROGRAM, *arguments, "--help"], capture_output=True, check=True, timeout=60).stdout.decode()
    return set(re.findall(r"(?<![\w-])--([a-z][a-z-]*)", text.split("Examples:")[0]))


ALL_OPTIONS = set().union(long_options(), *(long_options(command) for command in COMMANDS))


class DocumentsTest(unittest.TestCase):
    def test_the_help_names_all_commands(self):
        text = subprocess.run([PROGRAM, "--help"], capture_output=True, timeout=60).stdout.decode()
        for command in COMMANDS:
            self.assertRegex(text, rf"(?m)^  {command} ")

    def test_the_help_has_options_to_compare(self):
        self.assertGreaterEqual(ALL_OPTIONS, {"help", "version", "json", "output", "jobs"})

    def test_the_man_page_tells_every_option_and_no_other(self):
        page = (SOURCE / "docs/man/drawload.1").read_text().replace("\\-", "-")
        told = set(re.findall(r"(?<![\w-])--([a-z][a-z-]*)", page))
        self.assertEqual(told, ALL_OPTIONS)

    def test_bash_and_zsh_complete_every_option(self):
        for name in ("drawload.bash", "_drawload"):
            with self.subTest(name=name):
                text = (SOURCE / "tools/drawload/completions" / name).read_text()
                self.assertEqual(set(re.findall(r"(?<![\w-])--([a-z][a-z-]*)", text)) - {"help"}, ALL_OPTIONS - {"help"})

    def test_fish_completes_every_option(self):
        text = (SOURCE / "tools/drawload/completions/drawload.fish").read_text()
        self.assertEqual(set(re.findall(r" -l ([a-z][a-z-]*)", text)), ALL_OPTIONS)

    def test_bash_takes_its_completion_and_offers_the_commands(self):
        script = (
            f"source '{SOURCE}/tools/drawload/completions/drawload.bash'; "
            "COMP_WORDS=(drawload ''); COMP_CWORD=1; _drawload; echo ${COMPREPLY[@]}"
        )
        done = subprocess.run(["bash", "-c", script], capture_output=True, timeout=60)
        offered = done.stdout.decode().split()
        for command in COMMANDS:
            self.assertIn(command, offered)

    def folder_with_drawings(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for name in ("part.dxf", "part.txt"):
            (pathlib.Path(folder.name) / name).touch()
        return folder.name

    def test_fish_offers_commands_options_and_values(self):
        def offered(line):
            script = f"source '{SOURCE}/tools/drawload/completions/drawload.fish'; complete -C '{line}'"
            environment = {**os.environ, "HOME": self.folder_with_drawings()}
            done = subprocess.run(["fish", "-c", script], capture_output=True, env=environment, text=True, timeout=60)
            return {answer.split("\t")[0] for answer in done.stdout.splitlines()}

        self.assertEqual(offered("drawload "), set(COMMANDS))
        for command in COMMANDS:
            self.assertEqual(offered(f"drawload {command} --"), {f"--{name}" for name in long_options(command)} | {"--verbose"})
        self.assertEqual(offered("drawload batch --to "), {"svg", "png", "html", "json"})

    def test_bash_offers_options_and_values(self):
        def offered(*words):
            script = (
                f"source '{SOURCE}/tools/drawload/completions/drawload.bash'; "
                'COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _drawload; printf "%s\\n" "${COMPREPLY[@]}"'
            )
            done = subprocess.run(["bash", "-c", script, "bash", *words], capture_output=True, text=True, timeout=60)
            return set(done.stdout.split())

        for command in COMMANDS:
            self.assertEqual(offered("drawload", command, "--"), {f"--{name}" for name in long_options(command)} | {"--verbose"})
        self.assertEqual(offered("drawload", "batch", "--to", ""), {"svg", "png", "html", "json"})

    def completed_by_zsh(self, line):
        """What the line becomes in an interactive zsh where the tab key is pressed behind it."""
        master, terminal = pty.openpty()
        environment = {**os.environ, "TERM": "dumb", "HOME": "/nowhere"}
        folder = self.folder_with_drawings()
        with subprocess.Popen(["zsh", "-f", "-i"], stdin=terminal, stdout=terminal, stderr=terminal, cwd=folder,
                              env=environment, start_new_session=True) as shell:
            os.close(terminal)

            def wait_for(pattern):
                text = b""
                while not (found := re.search(pattern, text)):
                    if not select.select([master], [], [], 30)[0]:
                        self.fail(f"zsh does not go on behind {text!r}")
                    text += os.read(master, 4096)
                return found

            completions = SOURCE / "tools/drawload/completions"
            setup = f"PROMPT=; fpath=('{completions}' $fpath); autoload -Uz compinit; compinit -D -u; "
            # Instead of being run, a line is shown.
            setup += "show() { print -r -- \"<<$BUFFER>>\"; BUFFER= }; zle -N show; bindkey '^T' show; print re''ady\n"
            os.write(master, setup.encode())
            wait_for(b"ready")
            os.write(master, line.encode() + b"\t\x14")
            answer = wait_for(b"<<(.*?)>>")[1].decode()
            shell.kill()
        os.close(master)
        return answer.rstrip()

    def test_zsh_completes_commands_options_values_and_drawings(self):
        for line, completed in (
            ("drawload conv", "drawload convert"),
            ("drawload info --j", "drawload info --json"),
            ("drawload info --verb", "drawload info --verbose"),
            ("drawload batch drawings --to h", "drawload batch drawings --to html"),
            ("drawload convert --wi", "drawload convert --width"),
            ("drawload info pa", "drawload info part.dxf"),
        ):
            with self.subTest(line=line):
                self.assertEqual(self.completed_by_zsh(line), completed)

    def documented(self, heading):
        """What stands in back quotes below a heading of docs/json.md."""
        section = (SOURCE / "docs/json.md").read_text().split(f"\n## `{heading}", 1)[1].split("\n## ")[0]
        return set(re.findall(r"`(?:\")?(\w+)(?:\":[^`]*)?`", section))

    def check_documented(self, heading, *objects):
        for json_object in objects:
            for name in json_object:
                self.assertIn(name, self.documented(heading))

    def test_every_field_of_the_json_is_documented(self):
        with tempfile.TemporaryDirectory() as folder:
            drawing, out = SOURCE / "examples/nameplate.svg", pathlib.Path(folder)
            run = lambda *arguments: subprocess.run([PROGRAM, *arguments], capture_output=True, check=True, timeout=60).stdout
            (file,) = json.loads(run("info", "--json", drawing))["files"]
            self.check_documented("drawload info", file, file["bounds"], file["check"], file["colors"][0], file["bitmaps"][0],
                                  *file["groups"], *(group["settings"] for group in file["groups"]))
            report = subprocess.run([PROGRAM, "check", "--json", drawing], capture_output=True, timeout=60).stdout
            (file,) = json.loads(report)["files"]
            places = [place for findings in file["findings"] for place in findings["places"]]
            self.check_documented("drawload check", file, *file["findings"], *places)
            run("convert", drawing, "-o", out / "a.json")
            results = json.loads((out / "a.json").read_text())["results"]
            self.assertEqual({result["kind"] for result in results}, {"curve", "bitmap"})
            self.check_documented("drawload convert", *results)
            run("batch", drawing, "--out", out, "--to", "svg")
            self.check_documented("report.json", *json.loads((out / "report.json").read_text())["files"])

    def test_no_field_is_documented_that_is_not_there(self):
        drawing = SOURCE / "examples/nameplate.svg"
        done = subprocess.run([PROGRAM, "info", "--json", drawing], capture_output=True, check=True, timeout=60)
        there = set(re.findall(r'"(\w+)"', done.stdout.decode()))
        self.assertEqual(self.documented("drawload info") - there - {"null", "files"}, set())

    def test_every_source_file_that_a_document_names_is_there(self):
        count = 0
        for page in [*SOURCE.glob("*.md"), *SOURCE.glob("docs/*.md")]:
            for name in re.findall(r"`(?:\./)?([\w.-]+(?:/[\w.-]+)+\.(?:cpp|h|py|sh|cmake|md|xml))`", page.read_text()):
                if "NAME" in name:  # stands for any
                    continue
                count += 1
                with self.subTest(page=page.name, name=name):
                    self.assertTrue(any((SOURCE / base / name).exists() for base in (".", "src", "include/drawload")))
        self.assertGreater(count, 15)

    def test_the_man_pages_are_sound(self):
        for page in ("drawload.1", "libdrawload.3"):
            with self.subTest(page=page):
                done = subprocess.run(["mandoc", "-T", "lint", "-W", "error", SOURCE / "docs/man" / page], capture_output=True)
                self.assertEqual(done.returncode, 0, done.stdout)


if __name__ == "__main__":
    unittest.main()
