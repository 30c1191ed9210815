"""What our tool reads of words, many of them in one process, and the rows of tests/cases/peer_words.txt."""

import dataclasses
import json
import re
import subprocess

SAME = 1e-12 # how far two sizes of one unit may be apart, in proportion


class Tool:
    """The tool by its command."""

    def __init__(self, command):
        self.command = command

    def convert(self, words, target):
        """For each word the answer to `convert '1 WORD' TARGET`: "value" and "unit", or "error"."""
        if not words:
            return {}
        done = subprocess.run([*self.command, 'convert', '--to', target, '--keep-going', '--json'], text=True, check=False,
                              input=''.join(f'1 {word}\n' for word in words), capture_output=True)
        answers = [json.loads(line) for line in done.stdout.splitlines()]
        if len(answers) != len(words):
            raise RuntimeError(f'{len(answers)} answers to {len(words)} words: {done.stderr[-500:]}')
        return dict(zip(words, answers))

    def texts(self, words):
        """The words that are read as units, with the unit and its kind: "lb (mass)". Whatever is no length cannot
        be converted to metres, nor lengths to amperes, and the message says what was read."""
        found = {}
        for target in ('m', 'A'):
            for word, answer in self.convert(words, target).items():
                read = re.match(r'cannot convert 1 ?(.*?\)?) to ', answer.get('error', ''))
                if read:
                    found[word] = read[1]
        return found


def verdicts(tool, readings):
    """For each word, of which a reading is (factor, unit, text where it has neither): "same", "refused" or "other",
    and the text of what is read."""
    texts = tool.texts(list(readings))
    by_unit = {}
    for word in texts:
        factor, unit, other = readings[word]
        if not other:
            by_unit.setdefault(unit, []).append(word)
    same = set()
    for unit, words in by_unit.items():
        for word, answer in tool.convert(words, unit).items():
            if 'value' in answer and abs(answer['value'] / readings[word][0] - 1) <= SAME:
                same.add(word)
    return {word: ('same', '') if word in same else ('other', texts[word]) if word in texts else ('refused', '')
            for word in readings}


@dataclasses.dataclass
class Row:
    word: str
    by: str
    reading: str
    verdict: str
    ours: str = ''
    reason: str = ''

    def parts(self):
        """Factor, unit, and the text where it has neither."""
        number = re.fullmatch(r'(-?[\d.]+(?:e[+-]?\d+)?)(?: (\S+))?', self.reading)
        return (float(number[1]), number[2] or '1', '') if number else (0.0, '1', self.reading)


def rows_of(table):
    """The rows of tests/cases/peer_words.txt; a word may begin with the sign of comments."""
    lines = table.read_text(encoding='utf-8').splitlines()
    return [Row(*re.split(r'  +', line)) for line in lines if line and line != '#' and not line.startswith('# ')]
