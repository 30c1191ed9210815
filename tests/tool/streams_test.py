#!/usr/bin/env python3
"""streams_test.py PROGRAM...: what the tool does with streams: inputs larger than its blocks or in small
pieces, files, pipes that stay open, outputs that are full, and the progress bar of a terminal."""

import csv
import io
import os
import pty
import random
import re
import resource
import subprocess
import sys
import tempfile
import time
import unittest
from fractions import Fraction

PROGRAM = sys.argv[1:]
FEET = ["convert", "--from", "ft", "--to", "m"]
CENTIMETRES = ["convert", "--csv", "--column", "x=m:cm"]


def run(arguments, text):
    return subprocess.run(PROGRAM + arguments, input=text.encode(), capture_output=True, timeout=120, check=False)


def is_sanitized():
    with open(PROGRAM[-1], "rb") as file:
        return re.search(rb"__[at]san_init", file.read()) is not None


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (160 << 20, 160 << 20))


def cost_through_a_pipe(arguments, text):
    """The processor's seconds for the tool, which gets the text in small pieces and has little memory."""
    # The address space of an emulator or a sanitizer is not the tool's.
    bound = limit_memory if len(PROGRAM) == 1 and not is_sanitized() else None
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    done = subprocess.run(
        PROGRAM + arguments,
        input=text,
        pipesize=4096,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        timeout=120,
        check=False,
        preexec_fn=bound,
    )
    assert done.returncode in (0, 1), (done.returncode, done.stderr[:200])
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


class Streams(unittest.TestCase):
    def test_lines_across_blocks(self):
        random.seed(1)
        numbers = [round(random.uniform(-1e6, 1e6), random.randrange(12)) for _ in range(120000)]
        done = run(FEET, "\n".join(map(repr, numbers)))
        self.assertEqual([float(line) for line in done.stdout.split()], [float(Fraction(number) * 3048 / 10000) for number in numbers])
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

    def test_pieces_of_any_size(self):
        """A header with a byte order mark and a line break in quotes, cut in two at every place."""
        text = '\ufeff"two\r\nlines, ""q""",x\r\n"a",1\r\n\r\n"b\n","2"'.encode()
        expected = text.replace(b",1", b",100").replace(b'"2"', b'"200"') + b"\n"
        for cut in range(1, len(text)):
            with subprocess.Popen(PROGRAM + CENTIMETRES, stdin=subprocess.PIPE, stdout=subprocess.PIPE) as tool:
                tool.stdin.write(text[:cut])
                tool.stdin.flush()
                time.sleep(0.01)
                self.assertEqual(tool.communicate(text[cut:])[0], expected, cut)

    def test_lines_of_many_units(self):
        """Lines are converted as the same quantities on the command line are, with more units than are prepared."""
        random.seed(3)
        units = [prefix + unit for prefix in ("", "k", "m", "u", "M") for unit in ("m", "ft", "in", "yd", "mi")]
        forms = ["{} {}", "{} {} [0, 10]", "{} ± 0.5 {}"]
        texts = [random.choice(forms).format(random.randrange(1, 9), random.choice(units)) for _ in range(300)]
        self.assertEqual(run(["convert", "--to", "m"], "\n".join(texts)).stdout, run(["convert", *texts, "m"], "").stdout)

    def test_files(self):
        tables = ["x,y\n1,2\n", "\ufeffx,y\n3,4", "y,x\n1,2\n", "x,y\nq,\n5,6\n"]
        with tempfile.TemporaryDirectory() as folder:
            names = []
            for k, table in enumerate(tables):
                names.append(os.path.join(folder, str(k)))
                with open(names[-1], "w", encoding="utf-8") as file:
                    file.write(table)
            done = run([*CENTIMETRES, names[0], "-", names[1]], "x,y\n2,3\n")
            self.assertEqual(done.stdout, b"x,y\n100,2\n200,3\n300,4\n")
            done = run([*CENTIMETRES, names[0], names[2]], "")
            self.assertEqual((done.stdout, done.returncode), (b"x,y\n100,2\n", 1))
            self.assertIn(b"the header is not that of the first table", done.stderr)
            done = run([*CENTIMETRES, "--keep-going", "--json", names[3], names[0]], "")
            self.assertEqual(done.stdout.split(), [b'{"x":"q","y":""}', b'{"x":500.0,"y":"6"}', b'{"x":100.0,"y":"2"}'])
            self.assertIn(f"value-object: {names[3]}, line 2, column x: expected a number".encode(), done.stderr)
            done = run([*FEET, names[0]], "")
            self.assertIn(f"value-object: {names[0]}, line 1: expected a number".encode(), done.stderr)
            done = run([*CENTIMETRES, names[0], names[0] + "x"], "")
            self.assertEqual((done.stdout, done.returncode), (b"x,y\n100,2\n", 2))

    def test_time_in_proportion(self):
        """Four times the input takes four times as long or so, and not sixteen; the memory is that of a record."""
        mebibyte = 1 << 20

        def cells(count):
            return ",".join(map(str, range(count)))

        numbered = ["convert", "--csv", "--json", "--column", "7=m:cm"]
        inputs = {
            "a record of delimiters": (CENTIMETRES, lambda k: "x,y\n" + "," * (k * 15 * mebibyte // 4) + "\n"),
            "a field": (CENTIMETRES, lambda k: "x,y\n1," + "a" * (k * 15 * mebibyte // 4) + "\n"),
            "a field in quotes": (CENTIMETRES, lambda k: 'x,y\n1,"' + "a" * (k * 15 * mebibyte // 4) + '"\n'),
            "a quote that is not closed well": (CENTIMETRES, lambda k: 'x\n"" ' + "a" * (k * 15 * mebibyte // 4) + "\n"),
            "a line": (FEET, lambda k: "1" * (k * 15 * mebibyte // 4) + "\n"),
            "objects of many columns": (numbered, lambda k: 3 * (cells(k * 10000) + "\n")),
        }
        for name, (arguments, text) in inputs.items():
            with self.subTest(name):
                costs = ([cost_through_a_pipe(arguments, text(k).encode()) for k in (1, 4)] for _ in range(3))
                self.assertTrue(any(large < 5 * small + 0.05 for small, large in costs))

    def test_sums_in_constant_memory(self):
        """As many levels as would take more memory than there is, were they kept."""
        lines = "10 dBm\n20 dBm [19, 21]\n" * 300000
        bound = (lambda: resource.setrlimit(resource.RLIMIT_AS, (48 << 20, 48 << 20))) if len(PROGRAM) == 1 and not is_sanitized() else None
        done = subprocess.run(PROGRAM + ["compute", "--power-mean"], input=lines.encode(), capture_output=True, timeout=120, check=False, preexec_fn=bound)
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.stdout, run(["compute", "--power-mean"], "10 dBm\n20 dBm [19, 21]\n").stdout)
        self.assertEqual(done.returncode, 0)

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

    def test_output_that_is_input(self):
        """Appended to its own input the output would be read again; an empty file has nothing to be read."""
        jobs = (FEET, ["convert", "--to", "m"], CENTIMETRES)
        for arguments in jobs:
            for named in (False, True):
                with self.subTest(arguments=arguments, named=named), tempfile.NamedTemporaryFile() as file:
                    text = b"x\n1\n" if arguments == CENTIMETRES else b"1\n" if arguments == FEET else b"1 ft\n"
                    file.write(text)
                    file.flush()
                    command = PROGRAM + arguments + ([file.name] if named and arguments != jobs[1] else [])
                    with open(file.name, "rb") as given, open(file.name, "ab") as written:
                        done = subprocess.run(command, stdin=given, stdout=written, stderr=subprocess.PIPE, check=False)
                    self.assertEqual(done.returncode, 2)
                    self.assertIn(b" is the file that is written to as well\n", done.stderr)
                    with open(file.name, "rb") as after:
                        self.assertEqual(after.read(), text)
        with tempfile.NamedTemporaryFile() as file:
            with open(file.name, "rb") as given, open(file.name, "ab") as written:
                self.assertEqual(subprocess.run(PROGRAM + FEET, stdin=given, stdout=written, check=False).returncode, 0)

    def test_messages_for_a_terminal(self):
        """Nothing that a terminal would obey, wherever it came from."""
        evil = "a\x1b[2J\u202e\x9b\n"
        commands = (
            ["convert", f"5 {evil}", "V"], ["convert", "5 V", evil], ["convert", "--from", evil, "--to", "m"],
            ["convert", "--from", "ft", "--to", "m", evil], ["convert", "5 V", "V", "--format", evil], [evil], [f"--{evil}"],
            ["convert", "--csv", "--column", f"{evil}=ft:m"], ["convert", "--csv", "--column", evil],
            ["compute", f"1 V + 2 {evil}"], ["compute", "1 V", "--to", evil], ["units", "--dimension", evil],
            ["convert", "1 V", "W", "--with", evil], ["convert", "--csv", "--column", "x=m:cm", "--delimiter", evil],
        )
        for arguments in commands:
            done = run(arguments, "x\n1\n")
            self.assertNotEqual(done.returncode, 0, arguments)
            message = done.stderr.decode()
            self.assertTrue(message.startswith("value-object: "), arguments)
            self.assertFalse(re.findall("[^\n -~\xa0-\u2000\u2010-\u2027\u2030-\u2060]", message), (arguments, message))

    def test_full_output(self):
        with open("/dev/full", "wb") as full:
            for arguments in (FEET, ["convert", "1 ft", "m"], ["units"], ["--help"], ["compute", "--help"], ["--version"]):
                done = subprocess.run(PROGRAM + arguments, input=b"1\n", stdout=full, stderr=subprocess.PIPE, check=False)
                self.assertEqual(done.returncode, 2, arguments)
                self.assertIn(b"standard output cannot be written", done.stderr)

    def test_closed_output(self):
        for arguments in (["--version"], ["convert", "--help"]):
            done = subprocess.run(["sh", "-c", '"$@" >&-', "sh", *PROGRAM, *arguments], stderr=subprocess.PIPE, check=False)
            self.assertEqual(done.returncode, 2, arguments)

    def test_progress_of_a_file(self):
        """The bar of an input of known size, while nobody takes the output for longer than it waits."""
        screen, terminal = pty.openpty()
        with tempfile.TemporaryFile() as file:
            file.write(b"12345.678\n" * 200000)
            file.seek(0)
            with subprocess.Popen(PROGRAM + FEET, stdin=file, stdout=subprocess.PIPE, stderr=terminal) as tool:
                time.sleep(2.5)
                written = tool.communicate()[0]
        os.close(terminal)
        self.assertEqual(written.count(b"\n"), 200000)
        drawn = os.read(screen, 10000).decode()
        bars = re.findall(r"\r\[(#*)( *)\] +(\d+) %, (\d+) MB", drawn)
        self.assertTrue(bars, drawn)
        for filled, empty, percent, megabytes in bars:
            self.assertEqual(len(filled + empty), 40)
            self.assertAlmostEqual(len(filled), int(percent) * 40 / 100, delta=1)
            self.assertAlmostEqual(int(megabytes), int(percent) * 2 / 100, delta=1)
            self.assertLessEqual(int(percent), 100)
        self.assertTrue(0 < int(bars[0][2]) < 100, drawn)

    def test_progress_on_a_terminal(self):
        screen, terminal = pty.openpty()
        with subprocess.Popen(PROGRAM + FEET, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=terminal) as tool:
            time.sleep(2.5)
            done = tool.communicate(b"1\n2\n")[0]
        os.close(terminal)
        self.assertEqual(done, b"0.3048\n0.6096\n")
        drawn = os.read(screen, 10000)
        self.assertRegex(drawn, rb"\r\d+ MB read")
        self.assertTrue(drawn.endswith(b"\r\033[K"))


unittest.main(argv=sys.argv[:1])
