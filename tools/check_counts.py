#!/usr/bin/env python3
"""check_counts.py: each count of docs/trust.md stands in one of the files that its line names.

Counts are whole numbers of four digits and more outside of code.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
COUNT = re.compile(r'(?<![\d.-])\d(?:,?\d){3,}(?![\d.]*\d)')


def counts_of(source):
    """The numbers of a source, whichever way their digits are grouped."""
    return set(re.findall(r'\d+', re.sub(r"(?<=\d)[',_](?=\d{3})", '', source)))


def main():
    checked, wrong = 0, []
    for line in (ROOT / 'docs' / 'trust.md').read_text(encoding='utf-8').splitlines():
        files = [ROOT / name for name in re.findall(r'`([\w/.]+)`', line) if (ROOT / name).is_file()]
        there = set().union(*(counts_of(file.read_text(encoding='utf-8')) for file in files))
        for count in COUNT.findall(re.sub(r'`[^`]*`', '', line)):
            checked += 1
            if count.replace(',', '') not in there:
                wrong.append(f'docs/trust.md: {count} is in none of the files of its line: {line[:80]}')
    print(*wrong, f'{checked} counts, {len(wrong)} wrong', sep='\n')
    return 1 if wrong or checked == 0 else 0


if __name__ == '__main__':
    sys.exit(main())
