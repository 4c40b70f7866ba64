#!/usr/bin/env python3
"""Batches: many drawings in worker processes, reports, interruption, and what goes on behind it."""

import csv
import json
import os
import pathlib
import pty
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = sys.argv.pop(1)

LINE = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n30\n21\n0\n0\nENDSEC\n0\nEOF\n"
EMPTY = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n"


def big_drawing(lines):
    return "0\nSECTION\n2\nENTITIES\n" + "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n30\n21\n0\n" * lines + "0\nENDSEC\n0\nEOF\n"


class BatchTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.here = pathlib.Path(self.folder.name)
        self.drawings = self.here / "drawings"
        (self.drawings / "deep" / "er").mkdir(parents=True)
        self.out = self.here / "out"

    def batch(self, *arguments):
        command = [PROGRAM, "batch", *map(str, arguments), "--out", str(self.out)]
        return subprocess.run(command, capture_output=True, timeout=120)

    def rows(self):
        report = json.loads((self.out / "report.json").read_text())
        return {pathlib.Path(row["input"]).name: row for row in report["files"]}

    def test_folders_are_walked_and_keep_their_shape(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "deep" / "er" / "B.DXF").write_text(LINE)
        (self.drawings / "notes.txt").write_text("not a drawing")
        done = self.batch(self.drawings, "--to", "svg")
        self.assertEqual(done.returncode, 0, done.stderr)
        outputs = sorted(str(p.relative_to(self.out)) for p in self.out.rglob("*.svg"))
        self.assertEqual(outputs, ["a.dxf.svg", "deep/er/B.DXF.svg"])
        self.assertIn(b"a.dxf: ok", done.stdout)

    def test_each_file_has_one_line(self):
        for name in ("a.dxf", "b.dxf", "c.dxf"):
            (self.drawings / name).write_text(LINE)
        lines = self.batch(self.drawings, "--to", "svg", "--jobs", "1").stdout.decode().splitlines()
        self.assertEqual(len(lines), 4, lines)
        for name, line in zip(("a.dxf", "b.dxf", "c.dxf"), lines):
            self.assertTrue(line.endswith(f"{name}: ok"), line)
        self.assertRegex(lines[3], r"^3 files: 3 ok, 0 not, 0 left; see .*/report\.csv$")

    def test_a_worker_that_dies_takes_nothing_with_it(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "b.dxf").write_text(big_drawing(600_000))
        (self.drawings / "c.dxf").write_text(LINE)

        def kill_the_worker(process):
            (worker,) = self.workers_of(process)
            os.kill(worker, signal.SIGKILL)

        self.assertEqual(self.interrupted_in_the_second_file(kill_the_worker)[0], 1)
        statuses = {name: row["status"] for name, row in self.rows().items()}
        self.assertEqual(statuses, {"a.dxf": "ok", "b.dxf": "crashed", "c.dxf": "ok"})
        self.assertIn("Killed", self.rows()["b.dxf"]["message"])
        self.assertEqual([name for name in os.listdir(self.out) if "unfinished" in name], [])

    def test_a_terminal_shows_a_bar_with_rate_and_remaining_time(self):
        for number in range(4):
            (self.drawings / f"{number}.dxf").write_text(LINE)
        (self.drawings / "broken.dxf").write_text("nothing")
        command = [PROGRAM, "batch", self.drawings, "--out", self.out, "--to", "svg", "--jobs", "1"]
        master, terminal = pty.openpty()
        with subprocess.Popen(command, stdout=terminal, stderr=subprocess.PIPE) as running:
            os.close(terminal)
            text = b""
            while True:
                try:
                    piece = os.read(master, 4096)
                except OSError:  # the terminal's other end is closed
                    break
                if not piece:
                    break
                text += piece
            running.communicate(timeout=60)
        os.close(master)
        bars = re.findall(r"\r\[(#*) *\] (\d) of 5, [\d.]+ a second, \d+ s left", text.decode())
        self.assertEqual([int(done) for _, done in bars], [1, 2, 3, 4, 5])
        self.assertEqual([len(bar) for bar, _ in bars], [6, 12, 18, 24, 30])
        self.assertRegex(text.decode(), r"broken\.dxf: empty: ")  # what is not ok stays on the screen
        self.assertNotRegex(text.decode(), r"0\.dxf: ok")

    def test_the_report_has_a_row_for_each_file(self):
        (self.drawings / "good, really.dxf").write_text(LINE)
        (self.drawings / "empty.dxf").write_text(EMPTY)
        missing = self.drawings / "missing.dxf"
        done = self.batch(self.drawings, missing, "--to", "json")
        self.assertEqual(done.returncode, 1)
        rows = self.rows()
        self.assertEqual({name: row["status"] for name, row in rows.items()},
                         {"good, really.dxf": "ok", "empty.dxf": "empty", "missing.dxf": "failed"})
        self.assertEqual(rows["good, really.dxf"]["results"], 1)
        self.assertGreater(rows["good, really.dxf"]["peakKilobytes"], 100)
        with open(self.out / "report.csv", newline="", encoding="utf-8") as file:
            table = list(csv.DictReader(file))
        self.assertEqual([row["status"] for row in table].count("ok"), 1)
        self.assertIn(str(self.drawings / "good, really.dxf"), [row["input"] for row in table])

    def test_a_file_that_takes_too_long_is_ended_and_leaves_no_piece(self):
        (self.drawings / "slow.dxf").write_text(big_drawing(400_000))
        (self.drawings / "quick.dxf").write_text(LINE)
        done = self.batch(self.drawings, "--to", "html", "--timeout", "0.15")
        self.assertEqual(done.returncode, 1)
        rows = self.rows()
        self.assertEqual(rows["slow.dxf"]["status"], "timed out")
        self.assertEqual(sorted(p.name for p in self.out.iterdir() if "slow" in p.name), [])

    def test_an_output_that_cannot_be_written_fails_alone(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "b.dxf").write_text(LINE)
        (self.out / "a.dxf.svg").mkdir(parents=True)
        self.assertEqual(self.batch(self.drawings, "--to", "svg").returncode, 1)
        rows = self.rows()
        self.assertEqual(rows["a.dxf"]["status"], "failed")
        self.assertIn("a.dxf.svg", rows["a.dxf"]["message"])
        self.assertEqual(rows["b.dxf"]["status"], "ok")

    def test_two_files_of_one_name_get_two_outputs(self):
        for folder in ("x", "y"):
            (self.here / folder).mkdir()
            (self.here / folder / "a.dxf").write_text(LINE)
        self.batch(self.here / "x" / "a.dxf", self.here / "y" / "a.dxf", "--to", "svg")
        self.assertEqual(sorted(p.name for p in self.out.glob("*.svg")), ["a.dxf-2.svg", "a.dxf.svg"])

    def test_names_are_numbered_in_the_order_of_the_inputs(self):
        other = self.here / "other"
        other.mkdir()
        for number, folder in enumerate((self.drawings, other)):
            (folder / "a.dxf").write_text(LINE.replace("30", f"{number + 1}0"))
        self.batch(other, self.drawings, other / "a.dxf", other / "a.dxf", "--to", "json")
        lengths = {}
        for output in self.out.glob("a.dxf*.json"):
            (curve,) = json.loads(output.read_text())["results"]
            lengths[output.name] = curve["segments"][0][2]
        self.assertEqual(lengths, {"a.dxf.json": 20, "a.dxf-2.json": 10, "a.dxf-3.json": 20, "a.dxf-4.json": 20})

    def test_empty_is_what_can_be_opened_and_gives_nothing(self):
        texts = {"nothing.dxf": EMPTY, "damaged.svg": "<svg", "other.pdf": LINE, "none.pdf": "", "part.txt": LINE,
                 "endless.svg": "<svg><path stroke='red' d='M0 0L1e999 1'/></svg>"}
        for name, text in texts.items():
            (self.here / name).write_text(text)
        os.mkfifo(self.here / "pipe.dxf")
        missing = self.here / "missing.dxf"
        self.batch(*(self.here / name for name in texts), missing, self.here / "pipe.dxf", "--to", "svg")
        statuses = {name: row["status"] for name, row in self.rows().items()}
        self.assertEqual(statuses, {**dict.fromkeys(texts, "empty"), "missing.dxf": "failed", "pipe.dxf": "failed"})

    def test_resume_does_not_look_at_what_changed(self):
        drawing, empty = self.drawings / "a.dxf", self.drawings / "b.dxf"
        drawing.write_text(LINE)
        empty.write_text(EMPTY)
        self.batch(self.drawings, "--to", "json")
        before = (self.out / "a.dxf.json").read_bytes()
        drawing.write_text(LINE.replace("30", "40"))
        empty.write_text(LINE)
        self.batch(self.drawings, "--to", "json", "--resume", "--force")
        self.assertEqual((self.out / "a.dxf.json").read_bytes(), before)
        self.assertEqual(self.rows()["b.dxf"]["status"], "empty")
        self.batch(self.drawings, "--to", "json", "--force")
        self.assertNotEqual((self.out / "a.dxf.json").read_bytes(), before)
        self.assertEqual(self.rows()["b.dxf"]["status"], "ok")

    def test_resume_reads_again_what_has_another_output_or_none(self):
        for name in ("a.dxf", "b.dxf"):
            (self.drawings / name).write_text(LINE)
        self.batch(self.drawings, "--to", "json")
        (self.out / "a.dxf.json").unlink()
        lines = self.batch(self.drawings, "--to", "json", "--resume").stdout.decode().splitlines()
        self.assertEqual([line.split("/")[-1] for line in lines[:-1]], ["a.dxf: ok"])
        lines = self.batch(self.drawings, "--to", "svg", "--resume").stdout.decode().splitlines()
        self.assertEqual(len(lines), 3, lines)
        self.batch(self.drawings / "b.dxf", "--to", "svg", "--resume", "--force")
        self.assertEqual(set(self.rows()), {"b.dxf"})

    def test_outputs_are_inputs_where_they_are_named(self):
        (self.drawings / "a.dxf").write_text(LINE)
        self.batch(self.drawings, "--to", "svg")
        self.assertEqual(self.batch(self.out, "--to", "svg").returncode, 0)
        self.assertEqual(set(self.rows()), {"a.dxf.svg"})
        self.assertTrue((self.out / "a.dxf.svg.svg").exists())
        self.assertEqual(self.batch(self.out / "a.dxf.svg", "--to", "json").returncode, 0)
        self.assertTrue((self.out / "a.dxf.svg.json").exists())

    def test_outputs_in_another_folder_are_inputs(self):
        (self.drawings / "a.dxf").write_text(LINE)
        self.out = self.drawings / "first"
        self.batch(self.drawings, "--to", "svg")
        self.out = self.drawings / "second"
        self.batch(self.drawings, "--to", "svg")
        self.assertEqual(set(self.rows()), {"a.dxf", "a.dxf.svg"})

    def test_names_of_any_bytes_are_kept(self):
        odd = os.fsencode(self.drawings) + b"/caf\xe9 \"q\"\n.dxf"
        with open(odd, "w", encoding="ascii") as file:
            file.write(LINE)
        self.assertEqual(self.batch(self.drawings, "--to", "svg").returncode, 0)
        self.assertIn(b"caf\xe9 \"q\"\n.dxf.svg", os.listdir(os.fsencode(self.out)))
        stamp = os.stat(os.fsencode(self.out) + b"/caf\xe9 \"q\"\n.dxf.svg").st_mtime_ns
        self.assertEqual(self.batch(self.drawings, "--to", "svg", "--resume").returncode, 0)
        self.assertEqual(os.stat(os.fsencode(self.out) + b"/caf\xe9 \"q\"\n.dxf.svg").st_mtime_ns, stamp)

    def workers_of(self, process):
        return [int(child) for child in pathlib.Path(f"/proc/{process}/task/{process}/children").read_text().split()]

    def interrupted_in_the_second_file(self, interrupt):
        """Status and messages of a batch, in a process group of its own, of which one file is done and one begun."""
        command = [PROGRAM, "batch", self.drawings, "--out", self.out, "--to", "html", "--jobs", "1"]
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True) as running:
            deadline = time.monotonic() + 60
            while not (self.out / "report.json").exists() and time.monotonic() < deadline:
                time.sleep(0.01)
            time.sleep(0.1)
            interrupt(running.pid)
            errors = running.communicate(timeout=60)[1]
        return running.returncode, errors

    def test_an_interrupt_at_any_time_can_be_resumed(self):
        for number in range(30):
            (self.drawings / f"{number}.dxf").write_text(LINE)
        for attempt in range(8):
            self.out = self.here / f"out{attempt}"
            command = [PROGRAM, "batch", self.drawings, "--out", self.out, "--to", "svg", "--jobs", "2"]
            with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as running:
                while not (self.out / "report.json").exists():
                    time.sleep(0.001)
                time.sleep(0.002 * attempt)
                running.send_signal(signal.SIGINT)
            self.assertEqual(self.batch(self.drawings, "--to", "svg", "--resume").returncode, 0, self.rows())

    def test_a_terminal_that_closes_interrupts_too(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "b.dxf").write_text(big_drawing(600_000))
        status, _ = self.interrupted_in_the_second_file(lambda process: os.killpg(process, signal.SIGHUP))
        self.assertEqual(status, 1)
        self.assertEqual({name: row["status"] for name, row in self.rows().items()}, {"a.dxf": "ok"})
        self.assertEqual([name for name in os.listdir(self.out) if "unfinished" in name], [])

    def test_a_batch_under_nohup_goes_on_where_the_terminal_closes(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "b.dxf").write_text(big_drawing(200_000))
        ignored = lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN)
        command = [PROGRAM, "batch", self.drawings, "--out", self.out, "--to", "html", "--jobs", "1"]
        with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=ignored) as running:
            while not (self.out / "report.json").exists():
                time.sleep(0.01)
            running.send_signal(signal.SIGHUP)
        self.assertEqual(running.returncode, 0)
        self.assertEqual({row["status"] for row in self.rows().values()}, {"ok"})

    def test_a_batch_that_is_killed_leaves_a_report_and_its_workers_clean_up(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "b.dxf").write_text(big_drawing(600_000))
        status, _ = self.interrupted_in_the_second_file(lambda process: os.kill(process, signal.SIGKILL))
        self.assertEqual(status, -signal.SIGKILL)
        self.assertEqual({name: row["status"] for name, row in self.rows().items()}, {"a.dxf": "ok"})
        time.sleep(1)
        self.assertEqual(sorted(os.listdir(self.out)), ["a.dxf.html", "report.csv", "report.json"])
        (self.drawings / "b.dxf").write_text(LINE)
        self.assertEqual(self.batch(self.drawings, "--to", "html", "--resume").returncode, 0)
        self.assertEqual({row["status"] for row in self.rows().values()}, {"ok"})

    def test_as_many_files_are_read_at_a_time_as_jobs(self):
        for number in range(6):
            (self.drawings / f"{number}.dxf").write_text(big_drawing(30_000))
        command = [PROGRAM, "batch", str(self.drawings), "--to", "html", "--out", str(self.out), "--jobs", "3"]
        counts = set()
        with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as running:
            while running.poll() is None:
                counts.add(len(self.workers_of(running.pid)))
                time.sleep(0.002)
        self.assertEqual(max(counts), 3)
        self.assertEqual(running.returncode, 0)

    def test_what_an_earlier_batch_wrote_is_no_input(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "svg-drawings").mkdir()
        (self.drawings / "svg-drawings" / "b.dxf").write_text(LINE)
        self.out = self.drawings / "svg"
        for _ in range(2):
            self.assertEqual(self.batch(self.drawings, "--to", "svg", "--force").returncode, 0)
            self.assertEqual(set(self.rows()), {"a.dxf", "b.dxf"})
        here = subprocess.run([PROGRAM, "batch", ".", "--out", "svg", "--to", "svg", "--force"], cwd=self.drawings, timeout=60,
                              stdout=subprocess.DEVNULL)
        self.assertEqual(here.returncode, 0)
        self.assertEqual(set(self.rows()), {"a.dxf", "b.dxf"})

    def test_an_interrupt_keeps_what_is_finished_and_resume_goes_on(self):
        (self.drawings / "a.dxf").write_text(LINE)
        (self.drawings / "b.dxf").write_text(big_drawing(600_000))
        (self.drawings / "c.dxf").write_text(LINE)
        # Ctrl-C reaches the program and its workers, as does the end of a terminal.
        status, errors = self.interrupted_in_the_second_file(lambda process: os.killpg(process, signal.SIGINT))
        self.assertEqual(status, 1)
        self.assertIn(b"--resume", errors)
        self.assertEqual(self.rows()["a.dxf"]["status"], "ok")
        self.assertNotIn("c.dxf", self.rows())
        self.assertEqual([p.name for p in self.out.iterdir() if "unfinished" in p.name], [])
        (self.drawings / "b.dxf").write_text(LINE)
        stamp = (self.out / "a.dxf.html").stat().st_mtime_ns
        self.assertEqual(self.batch(self.drawings, "--to", "html", "--resume").returncode, 0)
        self.assertEqual({row["status"] for row in self.rows().values()}, {"ok"})
        self.assertEqual(len(self.rows()), 3)
        self.assertEqual((self.out / "a.dxf.html").stat().st_mtime_ns, stamp)

    def test_workers_limit_what_they_may_take(self):
        (self.drawings / "a.dxf").write_text(big_drawing(400_000))
        command = [PROGRAM, "batch", str(self.drawings), "--to", "svg", "--out", str(self.out), "--timeout", "50"]
        with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as running:
            limits = self.limits_of_a_child(running)
            running.wait(timeout=120)
        self.assertEqual(limits["Max cpu time"], "51")
        self.assertEqual(limits["Max core file size"], "0")
        self.assertEqual(limits["Max file size"], str(4 << 30))
        if b"__asan" not in pathlib.Path(PROGRAM).read_bytes():
            self.assertEqual(limits["Max address space"], str(4 << 30))

    def limits_of_a_child(self, parent):
        """The soft limits of the first child of `parent` that has set its own."""
        while parent.poll() is None:
            for child in self.workers_of(parent.pid):
                try:
                    lines = pathlib.Path(f"/proc/{child}/limits").read_text().splitlines()[1:]
                except OSError:  # it has just ended
                    continue
                limits = {line[:25].strip(): line[26:47].strip() for line in lines}
                if limits["Max file size"] != "unlimited":
                    return limits
        self.fail("no worker was seen")

    def test_a_batch_of_nothing_and_an_unknown_format_are_told(self):
        self.assertEqual(self.batch(self.drawings, "--to", "svg").returncode, 1)
        self.assertEqual(self.batch(self.drawings, "--to", "tiff").returncode, 2)

    def test_gnu_parallel_runs_the_same_command(self):
        for name in ("a.dxf", "b c.dxf"):
            (self.drawings / name).write_text(LINE)
        self.out.mkdir()
        command = f"'{PROGRAM}' convert --force {{}} -o '{self.out}'/{{/}}.svg"
        names = b"\0".join(os.fsencode(p) for p in sorted(self.drawings.glob("*.dxf")))
        done = subprocess.run(["parallel", "-0", "-S", ":", command], input=names, capture_output=True, timeout=120)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(sorted(p.name for p in self.out.iterdir()), ["a.dxf.svg", "b c.dxf.svg"])


if __name__ == "__main__":
    unittest.main()
