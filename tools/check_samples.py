#!/usr/bin/env python3
"""check_samples.py: what the documents show of C and C++ stands, line for line, in a program of examples/,
which is built and run. (What they show of the shell and of Python is run by the tests of both.)"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
DOCUMENTS = [ROOT / 'README.md', *sorted((ROOT / 'docs').rglob('*.md'))]
PROGRAMS = [*ROOT.glob('examples/**/*.cpp'), *ROOT.glob('examples/**/*.c')]


def lines_of(text):
    return [' '.join(line.split()) for line in text.strip().split('\n')]


def main():
    programs = [lines_of(path.read_text(encoding='utf-8')) for path in PROGRAMS]
    samples = missing = 0
    for document in DOCUMENTS:
        for sample in re.findall(r'^```(?:cpp|c)\n(.*?)^```', document.read_text(encoding='utf-8'), re.DOTALL | re.MULTILINE):
            samples += 1
            wanted = lines_of(sample)
            if not any(program[k:k + len(wanted)] == wanted for program in programs for k in range(len(program))):
                missing += 1
                print(f'{document.relative_to(ROOT)}: no program of examples/ has these lines:\n{sample}')
    print(f'{samples} samples, {missing} of them in no program')
    return 1 if missing or samples < 4 else 0


if __name__ == '__main__':
    sys.exit(main())
