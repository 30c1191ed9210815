#!/usr/bin/env python3
"""make_peer_words.py [--check] VALUE-OBJECT...: writes tests/cases/peer_words.txt, which has all words of up to four
characters that GNU units or UDUNITS-2 read as a unit, with what our tool makes of each; with --check compares.

Names of the peers' databases are all there. Of the words that they combine, of a prefix and a name or with an s for
the plural, those are there that we read as something else; but not those for which the row without the prefix, or with
kilo, says all. The reason of each such row is kept from the table as it
is; a row that has none yet gets REASON?, which fails the test of the table, until a person has read it.

Both peers have to be installed, and with --check be those of the table: exit status 77 otherwise, by which ctest knows
that the check was skipped.
"""

import re
import sys

import catalogue
import peers
import our_reading

TABLE = catalogue.ROOT / 'tests/cases/peer_words.txt'
LONGEST = 4
NO_REASON = 'REASON?'
FACTORS = {symbol: float(prefix.factor) for prefix in catalogue.prefixes() for symbol in [prefix.symbol, *prefix.symbols]}

BEGINNING = '''\
# All words of up to four characters that GNU units 2.22 or UDUNITS-2 read as a unit, and what we make of each. Of
# the words that a peer combines itself, of a prefix and a name or with an s for the plural, the table has those that
# we read as something else, unless the word without its prefix, or with kilo, has such a row, and the prefix is the
# same for both.
# tools/make_peer_words.py writes it; the reasons are by hand.
#
#   the word; by which peer: gnu, udunits or both; what one of it is there, in base units; then
#     same     it is that much of the same for us
#     refused  we refuse it
#     other    we read what stands behind, for the reason behind that
'''


def is_word(text):
    """No number, no operator, nothing that is written with parentheses or a blank."""
    return 0 < len(text) <= LONGEST and re.fullmatch(r'[^\d\W][^\s()^*/|+;~!=,.-]*|[^\s\w()^*/|+;~!=,.-]+', text) is not None


def combined(names, prefixes):
    words = {prefix + name for prefix in [*prefixes, ''] for name in names}
    return {word for word in words | {word + 's' for word in words} if is_word(word)}


def readings(peer):
    """The peer's names, its prefixes with their factors, and what it reads of names and of what it combines."""
    names, prefixes = peer.names()
    names = {name for name in names if is_word(name)}
    words = sorted(names | combined(names, {prefix for prefix in prefixes if len(prefix) < LONGEST}))
    return names, prefixes, peer.read(words)


def same_but_for_prefix(word, prefix, found, verdicts):
    """Whether the word is a prefix and a rest, to the peer and to us, and another row says what differs: that of the
    rest, or of the rest with kilo."""
    rest, ours = word[len(prefix):], {'u': 'µ', 'μ': 'µ'}.get(prefix, prefix)
    for other, its_prefix in ((rest, ''), ('k' + rest, 'k')):
        if other == word or verdicts.get(other, ('',))[0] != 'other' or not verdicts[other][1].startswith(its_prefix):
            continue
        by_us = verdicts[word][1] == ours + verdicts[other][1][len(its_prefix):]
        factor = FACTORS[ours] / FACTORS.get(its_prefix, 1.0) * found[other].factor
        by_peer = found[word].powers == found[other].powers and (
            found[word].is_level or abs(factor - found[word].factor) <= 1e-9 * abs(factor))
        if by_us and by_peer:
            return True
    return False


def rows_of_peer(peer, ours):
    """(word, the peer's reading, what we make of it) of the rows that the table is to have."""
    names, prefixes, found = readings(peer)
    verdicts = our_reading.verdicts(ours, {word: (reading.factor, reading.unit(), reading.other) for word, reading in found.items()})
    for word, reading in found.items():
        new = verdicts[word][0] == 'other' and not any(
            same_but_for_prefix(word, prefix, found, verdicts) for prefix in prefixes if prefix in FACTORS and word.startswith(prefix))
        if word in names or new:
            yield word, str(reading), verdicts[word]


def kept_reasons():
    if not TABLE.is_file():
        return {}
    return {(row.word, row.by, row.ours): row.reason for row in our_reading.rows_of(TABLE) if row.verdict == 'other'}


def merged(per_peer):
    """One row for both peers where they have the same."""
    rows = {}
    for short, found in per_peer.items():
        for row in found:
            rows.setdefault(row, []).append(short)
    return sorted((word, ' '.join(['both'] if len(by) == 2 else by), reading, verdict) for (word, reading, verdict), by in rows.items())


def table(rows):
    reasons = kept_reasons()
    lines, widths = [], [max(len(row[k]) for row in rows) for k in range(3)]
    for word, by, reading, (verdict, ours) in rows:
        cells = [word.ljust(widths[0]), by.ljust(widths[1]), reading.ljust(widths[2]), verdict.ljust(len('refused'))]
        if verdict == 'other':
            cells += [ours, reasons.get((word, by, ours), NO_REASON)]
        lines.append('  '.join(cells).rstrip())
    return BEGINNING + '\n' + '\n'.join(lines) + '\n'


def main():
    arguments = sys.argv[1:]
    check = arguments[0] == '--check'
    tool = arguments[1:] if check else arguments
    there = peers.installed()
    if len(there) < 2:
        print('make_peer_words: skipped, since GNU units or UDUNITS-2 is not installed')
        return 77
    if check and not BEGINNING.startswith(f'# All words of up to four characters that {there[0].version()} or'):
        print(f'make_peer_words: skipped, since the table is of another version than {there[0].version()}')
        return 77
    made = table(merged({peer.short: list(rows_of_peer(peer, our_reading.Tool(tool))) for peer in there}))
    if not check:
        TABLE.write_text(made, encoding='utf-8')
        return 0
    same = TABLE.read_text(encoding='utf-8') == made
    print('tests/cases/peer_words.txt is as the peers and the tool have it' if same else
          'tests/cases/peer_words.txt differs from the peers and the tool: run tools/make_peer_words.py, and read its new rows')
    return 0 if same else 1


if __name__ == '__main__':
    sys.exit(main())
