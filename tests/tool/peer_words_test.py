#!/usr/bin/env python3
"""peer_words_test.py PROGRAM...: the words of tests/cases/peer_words.txt are read, or refused, as the table says."""

import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / 'tools'))
import our_reading  # noqa: E402

PROGRAM = sys.argv[1:]
ROWS = our_reading.rows_of(ROOT / 'tests' / 'cases' / 'peer_words.txt')


class Peer_words(unittest.TestCase):
    def test_each_row_is_so(self):
        # A word has two rows where the peers differ.
        for by in ({'gnu', 'both'}, {'udunits'}):
            rows = [row for row in ROWS if row.by in by]
            verdicts = our_reading.verdicts(our_reading.Tool(PROGRAM), {row.word: row.parts() for row in rows})
            for row in rows:
                with self.subTest(word=row.word, by=row.by):
                    self.assertEqual(verdicts[row.word], (row.verdict, row.ours))

    def test_each_difference_has_a_reason(self):
        for row in ROWS:
            with self.subTest(word=row.word):
                self.assertIn(row.verdict, ('same', 'refused', 'other'))
                self.assertEqual(row.verdict == 'other', row.reason not in ('', 'REASON?'))

    def test_the_table_is_whole(self):
        self.assertGreater(sum(row.verdict == 'same' for row in ROWS), 100)
        self.assertGreater(sum(row.verdict == 'refused' for row in ROWS), 400)


unittest.main(argv=sys.argv[:1])
