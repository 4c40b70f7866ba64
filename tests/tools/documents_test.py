#!/usr/bin/env python3
"""Man pages and completions tell the same options as the program's own help."""

import pathlib
import re
import subprocess
import sys
import unittest

PROGRAM = sys.argv.pop(1)
SOURCE = pathlib.Path(sys.argv.pop(1))
COMMANDS = ("info", "convert", "view", "batch")


def long_options(*arguments):
    text = subprocess.run([PROGRAM, *arguments, "--help"], capture_output=True, check=True, timeout=60).stdout.decode()
    return set(re.findall(r"(?<![\w-])--([a-z]+)", text.split("Examples:")[0]))


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
        told = set(re.findall(r"(?<![\w-])--([a-z]+)", page))
        self.assertEqual(told, ALL_OPTIONS)

    def test_bash_and_zsh_complete_every_option(self):
        for name in ("drawload.bash", "_drawload"):
            with self.subTest(name=name):
                text = (SOURCE / "tools/drawload/completions" / name).read_text()
                self.assertEqual(set(re.findall(r"(?<![\w-])--([a-z]+)", text)) - {"help"}, ALL_OPTIONS - {"help"})

    def test_fish_completes_every_option(self):
        text = (SOURCE / "tools/drawload/completions/drawload.fish").read_text()
        self.assertEqual(set(re.findall(r" -l ([a-z]+)", text)), ALL_OPTIONS)

    def test_bash_takes_its_completion_and_offers_the_commands(self):
        script = (
            f"source '{SOURCE}/tools/drawload/completions/drawload.bash'; "
            "COMP_WORDS=(drawload ''); COMP_CWORD=1; _drawload; echo ${COMPREPLY[@]}"
        )
        done = subprocess.run(["bash", "-c", script], capture_output=True, timeout=60)
        offered = done.stdout.decode().split()
        for command in COMMANDS:
            self.assertIn(command, offered)

    def test_the_man_pages_are_sound(self):
        for page in ("drawload.1", "libdrawload.3"):
            with self.subTest(page=page):
                done = subprocess.run(["mandoc", "-T", "lint", "-W", "error", SOURCE / "docs/man" / page], capture_output=True)
                self.assertEqual(done.returncode, 0, done.stdout)


if __name__ == "__main__":
    unittest.main()
