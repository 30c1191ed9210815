#!/usr/bin/env python3
"""tool_streams_test.py PROGRAM...: what the tool does with streams: inputs larger than its blocks, pipes
that stay open, outputs that are full, and the progress bar of a terminal."""

import csv
import io
import os
import pty
import random
import subprocess
import sys
import time
import unittest

PROGRAM = sys.argv[1:]
FEET = ["convert", "--from", "ft", "--to", "m"]
CENTIMETRES = ["convert", "--csv", "--column", "x=m:cm"]


def run(arguments, text):
    return subprocess.run(PROGRAM + arguments, input=text.encode(), capture_output=True, timeout=120, check=False)


class Streams(unittest.TestCase):
    def test_lines_across_blocks(self):
        random.seed(1)
        numbers = [round(random.uniform(-1e6, 1e6), random.randrange(12)) for _ in range(120000)]
        done = run(FEET, "\n".join(map(repr, numbers)))
        self.assertEqual([float(line) for line in done.stdout.split()], [number * 0.3048 for number in numbers])
        self.assertEqual(done.returncode, 0)

    def test_records_across_blocks(self):
        random.seed(2)
        notes = ["", "plain", 'a "quote"', "two\nlines", "a, b", "\r\n", "é" * 50, "x" * 300000]
        rows = [["note", "x", "y"]]
        rows += [[random.choice(notes[: -1 if k % 5000 else None]), str(k), random.choice(notes[:-1])] for k in range(30000)]
        for line_break in ("\n", "\r\n"):
            text = io.StringIO()
            csv.writer(text, lineterminator=line_break).writerows(rows)
            done = run(CENTIMETRES, text.getvalue())
            written = list(csv.reader(io.StringIO(done.stdout.decode(), newline="")))
            self.assertEqual(written[0], rows[0])
            self.assertEqual(len(written), len(rows))
            for new, old in zip(written[1:], rows[1:]):
                self.assertEqual([new[0], float(new[1]), new[2]], [old[0], float(old[1]) * 100, old[2]])

    def test_inputs_that_never_end(self):
        for arguments, start in ((FEET, ""), (CENTIMETRES, 'x\n"')):
            done = run(arguments, start + "1" * (20 << 20))
            self.assertEqual(done.returncode, 1)
            self.assertIn(b"longer than 16 MiB", done.stderr)

    def test_answers_while_the_pipe_is_open(self):
        with subprocess.Popen(PROGRAM + FEET, stdin=subprocess.PIPE, stdout=subprocess.PIPE) as tool:
            for number in (b"1", b"10"):
                tool.stdin.write(number + b"\n")
                tool.stdin.flush()
                self.assertEqual(float(tool.stdout.readline()), float(number) * 0.3048)
            tool.stdin.close()
            self.assertEqual(tool.wait(), 0)

    def test_full_output(self):
        with open("/dev/full", "wb") as full:
            for arguments in (FEET, ["convert", "1 ft", "m"], ["units"]):
                done = subprocess.run(PROGRAM + arguments, input=b"1\n", stdout=full, stderr=subprocess.PIPE, check=False)
                self.assertEqual(done.returncode, 2, arguments)
                self.assertIn(b"standard output cannot be written", done.stderr)

    def test_progress_on_a_terminal(self):
        screen, terminal = pty.openpty()
        with subprocess.Popen(PROGRAM + FEET, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=terminal) as tool:
            time.sleep(1.5)
            done = tool.communicate(b"1\n2\n")[0]
        os.close(terminal)
        self.assertEqual(done, b"0.3048\n0.6096\n")
        drawn = os.read(screen, 10000)
        self.assertRegex(drawn, rb"\r\d+ MB read")
        self.assertTrue(drawn.endswith(b"\r\033[K"))


unittest.main(argv=sys.argv[:1])
