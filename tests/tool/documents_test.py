#!/usr/bin/env python3
"""documents_test.py PROGRAM...: what the README and the documents show of the tool is what it does: every command whose
output stands below it, the table of formats, and the commands that read files, which must at least run."""

import os
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

PROGRAM = [*sys.argv[1:-1], os.path.abspath(sys.argv[-1])]
FOLDER = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# What the files that the documents speak of may hold.
FILES = {
    "feet.txt": "1\n2.5\n",
    "levels.txt": "30 dBm [29, 31]\n5 kW\n",
    "log.csv": "time,temp,dist,d_ft\n1,20,3,4\n",
    "flight.csv": "time,altitude [ft],note\n0,1000,climbing\n1,1012.5,\n2,n/a,lost\n",
    "tables/a.csv": "n,temp\n1,20\n",
    "tables/b.csv": "n,temp\n1,30\n",
}


def document(name):
    with open(os.path.join(FOLDER, "docs", name), encoding="utf-8") as file:
        return file.read()


def pages():
    """The documents that show commands: those of the tool, the README, and what only the site has."""
    yield from (os.path.join(FOLDER, name) for name in ("README.md", "docs/tool.md"))
    for folder, _, names in os.walk(os.path.join(FOLDER, "docs", "site", "pages")):
        yield from (os.path.join(folder, name) for name in sorted(names))


def shown_commands():
    """The commands of the documents, each with the output that stands below it, or none."""
    text = "\n".join(document(page) for page in pages())
    text = "".join(re.findall(r"^```\n(\$ .*?)^```", text, re.DOTALL | re.MULTILINE))
    examples = re.search(r"^\.SH EXAMPLES\n\.nf\n(.*?)\.fi", document("value-object.1"), re.DOTALL | re.MULTILINE)
    text += examples.group(1).replace("\\-", "-")
    for part in re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]:
        command, _, output = part.partition("\n")
        yield command, output.strip("\n")


class Documents(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        os.makedirs(os.path.join(self.folder, "tables", "new"))
        for name, content in FILES.items():
            self.write(name, content)
        # The commands call the tool by its name.
        self.write("value-object", f'#!/bin/sh\nexec {shlex.join(PROGRAM)} "$@"\n')
        os.chmod(os.path.join(self.folder, "value-object"), 0o755)

    def write(self, name, content):
        with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
            file.write(content)

    def read(self, name):
        with open(os.path.join(self.folder, name), encoding="utf-8") as file:
            return file.read()

    def run_command(self, command):
        folder = os.path.join(self.folder, "tables") if command.startswith("ls") else self.folder
        path = self.folder + ":" + os.environ["PATH"]
        return subprocess.run(command, shell=True, cwd=folder, env={**os.environ, "PATH": path}, capture_output=True, text=True, check=False)

    def test_commands(self):
        commands = list(shown_commands())
        self.assertGreater(sum(output != "" for _, output in commands), 6)
        for command, output in commands:
            with self.subTest(command):
                done = self.run_command(command)
                refuses = "--keep-going" in command and "2>" in command
                self.assertEqual((done.stderr, done.returncode), ("", 1 if refuses else 0))
                if output:
                    self.assertEqual(done.stdout.strip("\n"), output)

    def test_many_files(self):
        (command,) = (command for command, _ in shown_commands() if "$(nproc)" in command)
        self.assertEqual(self.run_command(command).returncode, 0)
        self.assertEqual(self.read("tables/new/a.csv"), "n,temp\n1,293.15\n")
        self.assertEqual(self.read("tables/new/b.csv"), "n,temp\n1,303.15\n")
        self.write("tables/a.csv", "n,temp\n1,q\n")
        self.assertEqual(self.run_command(command).returncode, 123)

    def test_options(self):
        """Every option of every command is explained in the guide and in the manual page."""
        options = set()
        for command in ([], ["convert"], ["compute"], ["units"]):
            text = subprocess.run([*PROGRAM, *command, "--help"], capture_output=True, text=True, check=True).stdout
            options.update(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", text, re.MULTILINE))
        self.assertGreater(len(options), 18)
        guide = set(re.findall(r"--[a-z-]+", document("tool.md")))
        manual = set(re.findall(r"--[a-z-]+", document("value-object.1").replace("\\-", "-")))
        self.assertEqual((options - guide, options - manual), (set(), set()))

    def test_formats(self):
        table = re.search(r"^\| format \| (\S+ \S+), (\S+) to (\S+) \|\n\| --- .*\n((?:\|.*\n)+)", document("tool.md"), re.MULTILINE)
        quantity, lower, upper, rows = table.groups()
        rows = re.findall(r"^\| (?:`(.*?)`)? *\| (.*) \|$", rows, re.MULTILINE)
        self.assertGreater(len(rows), 5)
        for text, shown in rows:
            arguments = ["--format", text] if text else []
            done = subprocess.run(
                [*PROGRAM, "convert", f"{quantity} [{lower}, {upper}]", "m", *arguments], capture_output=True, text=True, check=False
            )
            self.assertEqual(done.stdout, shown + "\n", text)


unittest.main(argv=sys.argv[:1])
