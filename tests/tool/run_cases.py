#!/usr/bin/env python3
"""run_cases.py CASES -- PROGRAM...: runs the cases of one file with the tool, and compares.

A case is a line "$ ARGUMENTS", quoted as for a shell, and lines that start with
    <  a line of standard input
    >  a line that standard output must have
    !  a line that standard error must have
    =  the exit status, where it is not 0
In these, \\t, \\r, \\\\ and \\xNN stand for bytes, and a \\ at the end of a line for no line break. "..."
alone, after > or !, stands for any lines that follow. Blank lines and lines with # stand between cases.
"""

import os
import re
import shlex
import subprocess
import sys

ANY_LINES = b"...\n"


def decoded(text):
    """The bytes of a line of a case."""
    ends_open = text.endswith("\\") and not text.endswith("\\\\")
    text = text[:-1] if ends_open else text + "\n"
    known = {"t": b"\t", "r": b"\r", "\\": b"\\"}
    pieces = re.split(r"\\(t|r|\\|x[0-9a-f]{2})", text)
    for k in range(1, len(pieces), 2):
        escape = pieces[k]
        pieces[k] = known[escape] if escape in known else bytes.fromhex(escape[1:])
    return b"".join(piece if isinstance(piece, bytes) else piece.encode() for piece in pieces)


def read_cases(path):
    cases = []
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            mark, text = line[0], line[2:]
            if mark == "$":
                cases.append({"line": number, "arguments": shlex.split(text), "<": b"", ">": b"", "!": b"", "=": 0})
            elif mark == "=":
                cases[-1]["="] = int(text)
            elif mark in "<>!" and line[1:2] in ("", " "):
                cases[-1][mark] += decoded(text)
            else:
                sys.exit(f"{path}:{number}: not in the notation of the cases: {line}")
    return cases


def agrees(actual, expected):
    if expected.endswith(ANY_LINES):
        return actual.startswith(expected[: -len(ANY_LINES)])
    return actual == expected


def difference(case, program):
    """What is wrong with a case; empty if nothing is."""
    done = subprocess.run(
        program + case["arguments"], input=case["<"], capture_output=True, timeout=60, check=False,
        env={**os.environ, "LC_ALL": "C"},
    )
    wrong = ""
    for name, actual, expected in (("output", done.stdout, case[">"]), ("messages", done.stderr, case["!"])):
        if not agrees(actual, expected):
            wrong += f"  {name}:\n{actual.decode(errors='backslashreplace')}"
            wrong += f"  instead of:\n{expected.decode(errors='backslashreplace')}"
    if done.returncode != case["="]:
        wrong += f"  exit status {done.returncode} instead of {case['=']}\n"
    return wrong


def main():
    path, separator, *program = sys.argv[1:]
    assert separator == "--" and program
    cases = read_cases(path)
    failures = 0
    for case in cases:
        wrong = difference(case, program)
        if wrong:
            failures += 1
            print(f"{path}:{case['line']}: {shlex.join(case['arguments'])}\n{wrong}")
    print(f"{len(cases) - failures} of {len(cases)} cases agree")
    sys.exit(failures > 0 or not cases)


main()
