#!/usr/bin/env python3
"""What goes wrong: each time a message that says what happened, to which file and what to do, a status that is not
zero, and nothing half-written left behind."""

import json
import os
import pathlib
import resource
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = sys.argv.pop(1)
FULL_DISK = sys.argv.pop(1)  # a library that makes the disk full
LINES = "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n30\n21\n0\n"


def drawing(lines=1):
    return "0\nSECTION\n2\nENTITIES\n" + LINES * lines + "0\nENDSEC\n0\nEOF\n"


def without_privileges(command):
    """The same command bound by the permissions of files, which root is not."""
    if os.geteuid() != 0:
        return command
    return ["setpriv", "--bounding-set=-all", "--inh-caps=-all", *command]


def at_most(file_bytes):
    """For a child process: no file may grow beyond that, as on a disk that is full."""
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (file_bytes, file_bytes))


class BadInputTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.here = pathlib.Path(folder.name)
        self.drawing = self.here / "a.dxf"
        self.drawing.write_text(drawing())
        self.out = self.here / "out"
        self.out.mkdir()
        self.temporary = self.here / "temporary"
        self.temporary.mkdir()
        opener = self.here / "bin" / "xdg-open"
        opener.parent.mkdir()
        opener.write_text(f'#!/bin/sh\nprintf %s "$1" >"{self.here}/opened"\n')
        opener.chmod(0o755)

    def full_disk(self):
        """The environment of a program whose disk is full. Blanks and colons separate the paths of LD_PRELOAD, so it
        gets the library under a path without any."""
        folder = tempfile.TemporaryDirectory(dir="/tmp")
        self.addCleanup(folder.cleanup)
        link = pathlib.Path(folder.name) / "full_disk.so"
        link.symlink_to(FULL_DISK)
        return {"LD_PRELOAD": str(link), "FULL_DISK_BYTES": "16000"}

    def run_program(self, *arguments, extra=None, **options):
        path = f"{self.here}/bin:{os.environ['PATH']}"
        environment = {**os.environ, "TMPDIR": str(self.temporary), "PATH": path, **(extra or {})}
        command = without_privileges([PROGRAM, *map(os.fsencode, arguments)])
        return subprocess.run(command, capture_output=True, timeout=120, env=environment, **options)

    def assert_fails(self, done, *told):
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertNotIn(b"terminate called", done.stderr)
        for text in told:
            self.assertIn(text, done.stderr.decode())

    def batch_row(self):
        return json.loads((self.out / "report.json").read_text())["files"][0]

    def commands(self, drawing):
        """Each command that reads one drawing."""
        return (["info", drawing], ["info", "--json", drawing], ["convert", drawing, "-o", self.out / "x.svg"], ["view", drawing])

    def check_unreadable(self, path, *told):
        """No command reads `path`: each tells so in one line, and writes nothing."""
        for command in self.commands(path):
            with self.subTest(command=command[:2]):
                done = self.run_program(*command)
                self.assert_fails(done, *told)
                self.assertEqual(done.stderr.count(b"\n"), 1)
                self.assertEqual(list(self.out.iterdir()) + list(self.temporary.iterdir()), [])
        if not path.is_dir():
            self.assertEqual(self.run_program("batch", path, "--out", self.out, "--to", "svg").returncode, 1)
            self.assertEqual(self.batch_row()["status"], "failed")
            for text in told:
                self.assertIn(text, self.batch_row()["message"])
            self.assertEqual(sorted(p.name for p in self.out.iterdir()), ["report.csv", "report.json"])

    def test_a_missing_file(self):
        self.check_unreadable(self.here / "missing.dxf", "missing.dxf'", "no such file", "check its name")

    def test_a_folder(self):
        self.check_unreadable(self.here / "bin", "bin' is a folder", "drawload batch")

    def test_an_unreadable_file(self):
        self.drawing.chmod(0)
        self.check_unreadable(self.drawing, "a.dxf'", "permission denied", "let this user read it")

    def test_a_file_in_a_folder_that_may_not_be_entered(self):
        closed = self.here / "closed"
        closed.mkdir()
        (closed / "b.dxf").write_text(drawing())
        closed.chmod(0)
        self.addCleanup(closed.chmod, 0o755)
        for command in self.commands(closed / "b.dxf"):
            self.assert_fails(self.run_program(*command), "b.dxf'", "permission denied")

    def test_a_folder_within_a_folder_that_may_not_be_read(self):
        closed = self.here / "drawings" / "closed"
        closed.mkdir(parents=True)
        (self.here / "drawings" / "b.dxf").write_text(drawing())
        closed.chmod(0)
        self.addCleanup(closed.chmod, 0o755)
        self.assertEqual(self.run_program("batch", closed.parent, "--out", self.out, "--to", "svg").returncode, 1)
        rows = {pathlib.Path(row["input"]).name: row for row in json.loads((self.out / "report.json").read_text())["files"]}
        self.assertEqual({name: row["status"] for name, row in rows.items()}, {"b.dxf": "ok", "closed": "failed"})
        self.assertIn("permission denied", rows["closed"]["message"])
        self.assertEqual(self.run_program("batch", closed, "--out", self.out, "--to", "svg").returncode, 1)
        self.assertIn("permission denied", self.batch_row()["message"])

    def test_a_pipe(self):
        pipe = self.here / "pipe.dxf"
        os.mkfifo(pipe)
        self.check_unreadable(pipe, "pipe.dxf' is not a regular file", "copy")

    def test_a_name_without_an_extension_that_is_read(self):
        other = self.here / "notes.txt"
        other.write_text("hello")
        for command in self.commands(other):
            self.assert_fails(self.run_program(*command), "notes.txt'", ".dxf, .svg or .pdf", "rename")

    def test_an_empty_file(self):
        self.drawing.write_text("")
        for command in self.commands(self.drawing):
            self.assert_fails(self.run_program(*command), "a.dxf'", "the file is empty")

    def test_a_damaged_file(self):
        self.drawing.write_bytes(bytes(range(256)))
        for command in self.commands(self.drawing):
            self.assert_fails(self.run_program(*command), "a.dxf'", "damaged", "no DXF file")

    def test_names_with_blanks_quotes_newlines_and_other_bytes(self):
        names = {b"a b.dxf": "a b.dxf", b"\"q\" 's'.dxf": "\"q\" 's'.dxf", b"line\nfeed.dxf": "line\\nfeed.dxf",
                 b"caf\xe9.dxf": "caf\\xE9.dxf", "café.dxf".encode(): "café.dxf", b"red\x1b[31m.dxf": "red\\x1B[31m.dxf",
                 b"$(touch x) `y`.dxf": "$(touch x) `y`.dxf"}
        for name, shown in names.items():
            with self.subTest(name=name):
                path = os.fsencode(self.here) + b"/" + name
                missing = self.run_program("info", path)
                self.assert_fails(missing, f"/{shown}'")
                self.assertEqual(missing.stderr.count(b"\n"), 1)
                pathlib.Path(os.fsdecode(path)).write_text(drawing())
                done = self.run_program("info", path)
                self.assertEqual(done.returncode, 0, done.stderr)
                self.assertIn(f"/{shown}: DXF\n", done.stdout.decode())
                self.assertEqual(len(json.loads(self.run_program("info", "--json", path).stdout)["files"]), 1)
                for extension in (b".svg", b".png", b".html", b".json"):
                    output = os.fsencode(self.out) + b"/" + name + extension
                    self.assertEqual(self.run_program("convert", path, "-o", output).returncode, 0)
                    refused = self.run_program("convert", path, "-o", output)
                    self.assert_fails(refused, f"/{shown}{extension.decode()}'", "--force")
                    os.unlink(output)
        self.assertEqual(list(self.out.iterdir()), [])

    def test_the_longest_name_is_written(self):
        output = self.out / ("n" * 251 + ".svg")
        self.assertEqual(self.run_program("convert", self.drawing, "-o", output).returncode, 0)
        self.assertEqual(list(self.out.iterdir()), [output])
        done = self.run_program("convert", self.drawing, "-o", self.out / ("n" * 252 + ".svg"))
        self.assert_fails(done, "name is too long")

    def test_no_permission_to_write(self):
        self.out.chmod(0o555)
        self.addCleanup(self.out.chmod, 0o755)
        done = self.run_program("convert", self.drawing, "-o", self.out / "x.svg")
        self.assert_fails(done, "x.svg'", "permission denied", "choose a folder")
        self.assert_fails(self.run_program("batch", self.drawing, "--out", self.out, "--to", "svg"), "out/report.json'", "permission denied")
        self.assert_fails(self.run_program("batch", self.drawing, "--out", self.out / "new", "--to", "svg"), "make the folder", "out/new'", "permission denied")
        self.assertEqual(list(self.out.iterdir()), [])
        self.temporary.chmod(0o555)
        self.addCleanup(self.temporary.chmod, 0o755)
        self.assert_fails(self.run_program("view", self.drawing), "temporary folder", "permission denied", "TMPDIR")

    def test_an_output_folder_that_is_missing_or_a_file(self):
        self.assert_fails(self.run_program("convert", self.drawing, "-o", self.here / "no/x.svg"), "x.svg'", "does not exist; make it")
        self.assert_fails(self.run_program("convert", self.drawing, "-o", self.drawing / "x.svg"), "x.svg'", "not a folder")
        self.assert_fails(self.run_program("batch", self.drawing, "--out", self.drawing, "--to", "svg"), "a.dxf'", "folder")

    def test_an_output_that_is_a_folder(self):
        (self.out / "x.svg").mkdir()
        done = self.run_program("convert", "--force", self.drawing, "-o", self.out / "x.svg")
        self.assert_fails(done, "x.svg'", "it is a folder")
        self.assertEqual([p.name for p in self.out.iterdir()], ["x.svg"])

    def test_an_existing_output_is_refused_unless_forced(self):
        for name in ("x.svg", "a.dxf.svg"):
            (self.out / name).write_text("mine")
        done = self.run_program("convert", self.drawing, "-o", self.out / "x.svg")
        self.assert_fails(done, "x.svg'", "exists already", "--force")
        self.assertEqual(self.run_program("batch", self.drawing, "--out", self.out, "--to", "svg").returncode, 1)
        self.assertEqual(self.batch_row()["status"], "failed")
        self.assertIn("--force", self.batch_row()["message"])
        self.assertEqual({(self.out / name).read_text() for name in ("x.svg", "a.dxf.svg")}, {"mine"})
        self.assertEqual(self.run_program("convert", "--force", self.drawing, "-o", self.out / "x.svg").returncode, 0)
        self.assertEqual(self.run_program("batch", "--force", self.drawing, "--out", self.out, "--to", "svg").returncode, 0)
        for name in ("x.svg", "a.dxf.svg"):
            self.assertIn("<svg", (self.out / name).read_text())

    def check_no_room(self, told, **circumstances):
        """Where no file may grow beyond some kilobytes: the reason is told, and nothing stays."""
        self.drawing.write_text(drawing(1000))
        for extension in ("svg", "html", "json"):
            done = self.run_program("convert", self.drawing, "-o", self.out / f"x.{extension}", **circumstances)
            self.assert_fails(done, f"x.{extension}'", told)
        self.assertEqual(list(self.out.iterdir()), [])
        self.assert_fails(self.run_program("view", self.drawing, **circumstances), "view.html'", told)
        self.assertEqual(list(self.temporary.iterdir()), [])
        self.assertFalse((self.here / "opened").exists())
        done = self.run_program("batch", self.drawing, "--out", self.out, "--to", "html", **circumstances)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(self.batch_row()["status"], "failed")
        self.assertIn(told, self.batch_row()["message"])
        self.assertEqual(sorted(p.name for p in self.out.iterdir()), ["report.csv", "report.json"])

    def test_a_full_disk(self):
        self.check_no_room("no space is left on the disk", extra=self.full_disk())

    def test_a_limit_on_the_size_of_files(self):
        self.check_no_room("larger than is allowed", preexec_fn=at_most(16_000))

    def test_an_output_stays_as_it_was_where_the_disk_is_full(self):
        self.drawing.write_text(drawing(1000))
        (self.out / "x.svg").write_text("mine")
        done = self.run_program("convert", "--force", self.drawing, "-o", self.out / "x.svg", extra=self.full_disk())
        self.assert_fails(done, "x.svg'", "no space")
        self.assertEqual((self.out / "x.svg").read_text(), "mine")

    def test_a_disk_without_room_for_the_report(self):
        done = self.run_program("batch", self.drawing, "--out", self.out, "--to", "svg", preexec_fn=at_most(10))
        self.assert_fails(done, "report.json'", "larger than is allowed")
        self.assertEqual(list(self.out.iterdir()), [])

    def test_a_full_disk_behind_standard_output(self):
        for arguments in (["info"], ["info", "--json"]):
            with open("/dev/full", "w", encoding="ascii") as full:
                command = [PROGRAM, *arguments, str(self.drawing)]
                done = subprocess.run(command, stdout=full, stderr=subprocess.PIPE, timeout=60)
            self.assertEqual(done.returncode, 1)
            self.assertIn(b"cannot write to standard output", done.stderr)

    def test_a_signal_while_an_output_is_written_leaves_no_piece(self):
        self.drawing.write_text(drawing(100_000))
        caught = 0
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP) * 2:
            command = [PROGRAM, "convert", "--force", str(self.drawing), "-o", str(self.out / "x.json")]
            with subprocess.Popen(command, stderr=subprocess.PIPE) as running:
                while running.poll() is None and not any("unfinished" in name for name in os.listdir(self.out)):
                    time.sleep(0.0002)
                running.send_signal(number)
                running.communicate(timeout=60)
            caught += running.returncode == -number
            self.assertEqual([name for name in os.listdir(self.out) if "unfinished" in name], [])
        self.assertGreater(caught, 0)

    def test_view_writes_the_page_and_opens_it(self):
        done = self.run_program("view", self.drawing)
        self.assertEqual(done.returncode, 0, done.stderr)
        page = pathlib.Path(done.stdout.decode().rstrip("\n"))
        self.assertEqual((self.here / "opened").read_text(), str(page))
        self.assertTrue(page.is_relative_to(self.temporary))
        self.assertEqual(page.parent.stat().st_mode & 0o777, 0o700)
        self.assertIn("a.dxf", page.read_text())

    def test_view_tells_where_the_page_lies_if_nothing_opens_it(self):
        (self.here / "bin" / "xdg-open").write_text("#!/bin/sh\nexit 3\n")
        done = self.run_program("view", self.drawing)
        self.assert_fails(done, "xdg-open did not open", "view.html'", "in a browser")
        self.assertTrue(pathlib.Path(done.stdout.decode().rstrip("\n")).exists())


if __name__ == "__main__":
    unittest.main()
