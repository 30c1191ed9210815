#!/usr/bin/env python3
"""completion_test.py BUILD: the completion of command lines, as installed, in each shell: a line is
typed, the tab key is pressed, and what the shell makes of it is looked at."""

import os
import pty
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

BUILD = os.path.abspath(sys.argv[1])
BASH_COMPLETION = "/usr/share/bash-completion/bash_completion"
CONTROL_G = "\x07"

# What is typed before the tab key, and how the line ends then.
TYPED = [
    ("value-object conv", "convert "),
    ("value-object convert --fro", "--from "),
    ("value-object convert --from kilomet", "kilometers "),
    ("value-object convert --from=kilomet", "--from=kilometers "),
    ("value-object convert '5 ft' yar", "yard "),
    ("value-object convert '5 hPa' inch", "inches_of_mercury "),
    ("value-object convert --from hectop", "hectopascals "),
    ("value-object convert --csv --column dist=kilomet", "dist=kilometers:"),
    ("value-object convert --csv --column dist=ft:kilomet", "dist=ft:kilometers "),
    ("value-object convert --csv --column dist=ft:km rows-of", "rows-of-numbers.csv "),
    ("value-object units --dimension volt", "voltage "),
    ("value-object units --dimension capac", "capacitance "),
    ("value-object units --dimension data", "data\\ size "),
]

# The words of a command line, what the last may become among others, and what it may not.
OFFERED = [
    ("convert --from h", {"h", "ha", "hp", "hPa", "hm", "hl", "hectopascals", "hours"}, {"hft", "hlb", "hrpm", "h%"}),
    ("convert --from da", {"daN", "dam", "days"}, {"daft", "dalb"}),
    ("convert --from Ki", {"KiB", "Kib"}, {"KiPa", "Kim"}),
    ("convert --from u", {"u", "uT", "uPa", "us", "ul"}, {"ulb"}),
    ("convert 5_hPa ", {"Pa", "psi", "inHg", "mmHg", "bar"}, {"N", "hPa", "m"}),
    ("convert 5_hPa m", {"mbar", "mPa", "mmHg", "millibars"}, {"mN", "m", "mmmHg"}),
    ("convert 5_kg*m/s^2 ", {"N", "lbf", "kgf", "dyn"}, {"J", "kg"}),
    ("convert 5_gal l", {"l", "liters"}, {"lb", "lbf"}),
    ("convert 10_Δ°C ", {"K", "°C", "°F"}, {"Pa"}),
    ("convert --csv --column p=hPa:in", {"p=hPa:inHg"}, {"p=hPa:in"}),
]


def setUpModule():
    global FOLDER, ENVIRONMENT
    FOLDER = tempfile.mkdtemp()
    subprocess.run(["cmake", "--install", BUILD, "--prefix", FOLDER, "--component", "tool"], check=True, stdout=subprocess.DEVNULL)
    with open(os.path.join(FOLDER, "rows-of-numbers.csv"), "w", encoding="utf-8"):
        pass
    ENVIRONMENT = {
        "PATH": os.path.join(FOLDER, "bin") + ":" + os.environ["PATH"],
        "LD_LIBRARY_PATH": BUILD,
        "XDG_DATA_DIRS": os.path.join(FOLDER, "share") + ":/usr/share",
        "XDG_CONFIG_HOME": FOLDER,
        "XDG_DATA_HOME": FOLDER,
        "HOME": FOLDER,
        "LC_ALL": "C.UTF-8",
        "TERM": "dumb",
    }


def tearDownModule():
    shutil.rmtree(FOLDER)


class Offers(unittest.TestCase):
    def test_offers(self):
        for line, among, not_among in OFFERED:
            with self.subTest(line):
                words = [word.replace("_", " ") for word in line.split(" ")]
                done = subprocess.run([os.path.join(BUILD, "value-object"), "complete", *words], capture_output=True, text=True, check=True)
                offered = {row.split("\t")[0] for row in done.stdout.splitlines()}
                self.assertEqual((among - offered, not_among & offered), (set(), set()))


class Completion(unittest.TestCase):
    def start(self, arguments, preparation):
        """Starts a shell on a terminal, in which ctrl-g shows the line that has been typed and empties it."""
        process, self.screen = pty.fork()
        if process == 0:
            os.chdir(FOLDER)
            os.execvpe(arguments[0], arguments, ENVIRONMENT)
        self.addCleanup(os.close, self.screen)
        self.addCleanup(os.waitpid, process, 0)
        self.addCleanup(os.kill, process, signal.SIGKILL)
        self.type(preparation + "\necho rea''dy\n")
        self.read_until("ready")

    def type(self, text):
        os.write(self.screen, text.encode())

    def read_until(self, pattern):
        """The groups of a pattern in what the shell writes, once it is there."""
        shown = ""
        end = time.monotonic() + 20
        while not (found := re.search(pattern, shown)):
            ready, _, _ = select.select([self.screen], [], [], max(0, end - time.monotonic()))
            self.assertTrue(ready, f"{pattern!r} has not appeared in {shown!r}")
            shown += os.read(self.screen, 10000).decode(errors="replace")
        return found.groups()

    def check_lines(self):
        for line, completed in TYPED:
            with self.subTest(line):
                self.type(line + "\t" + CONTROL_G)
                (shown,) = self.read_until("<<(.*?)>>")
                self.assertEqual(shown, line.rpartition(" ")[0] + " " + completed)

    def test_bash(self):
        self.start(
            ["bash", "--norc", "--noprofile", "-i"],
            f"source {BASH_COMPLETION}; show() {{ echo \"<\"\"<$READLINE_LINE>>\"; READLINE_LINE=; }}; bind -x '\"\\C-g\": show'",
        )
        self.check_lines()

    def test_zsh(self):
        folder = os.path.join(FOLDER, "share", "zsh")
        self.start(
            ["zsh", "-f", "-i"],
            f"fpath=({folder}/*(/) $fpath); autoload -U compinit; compinit -u -D; bindkey -e; "
            "show() { print -r -- \"<\"\"<$BUFFER>>\"; BUFFER=; zle -I }; zle -N show; bindkey '^G' show",
        )
        self.check_lines()

    def test_fish(self):
        self.start(["fish", "-i"], "bind \\cg 'echo \"<\"\"<\"(commandline)\">>\"; commandline \"\"'")
        self.check_lines()


unittest.main(argv=sys.argv[:1])
