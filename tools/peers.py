"""What GNU units and UDUNITS-2 read, where they are installed: both are asked, in one process each."""

import ctypes
import ctypes.util
import dataclasses
import os
import re
import shutil
import subprocess
import xml.etree.ElementTree

UDUNITS_FILES = '/usr/share/xml/udunits'

# What the peers count in, as the catalogue writes it.
BASES = {'kg': 'kg', 'm': 'm', 's': 's', 'A': 'A', 'K': 'K', 'mol': 'mol', 'cd': 'cd', 'rad': 'rad', 'radian': 'rad',
         'sr': 'sr', 'bit': 'b'}


@dataclasses.dataclass(frozen=True)
class Reading:
    """So many of these base units are one of the unit, or a text where it is none of such.

    Of a scale with an offset and of a level it is what 1 stands for: 1 degC is 274.15 K.
    """
    factor: float
    powers: tuple  # of (base, power), in the order of their names
    other: str = ''
    step: float = None  # of a scale with an offset: the difference of one
    is_level: bool = False

    def unit(self):
        """The product of the base units, as our tool reads it."""
        return '*'.join(base if power == 1 else f'{base}^{power}' for base, power in self.powers) or '1'

    def __str__(self):
        return self.other or ' '.join([f'{self.factor:.15g}', *([self.unit()] if self.powers else [])])


def reading_of(factor, powers):
    """Solid angles are squares of angles, as in the catalogue."""
    powers = dict(powers)
    powers['rad'] = powers.get('rad', 0) + 2 * powers.pop('sr', 0)
    return Reading(factor, tuple(sorted((base, power) for base, power in powers.items() if power != 0)))


class Gnu_units:
    """The program `units`, with its definitions for the United States and in UTF-8."""
    name = 'GNU units'
    short = 'gnu'

    @staticmethod
    def is_installed():
        return shutil.which('units') is not None

    @staticmethod
    def version():
        """"GNU units 2.22"."""
        text = subprocess.run(['units', '--version'], capture_output=True, text=True, check=True).stdout
        return 'GNU units ' + re.search(r'[\d.]+', text)[0]

    @staticmethod
    def _asked(lines):
        environment = {**os.environ, 'LC_ALL': 'C.UTF-8', 'UNITS_ENGLISH': 'US'}
        environment.pop('UNITSFILE', None)
        done = subprocess.run(['units', '--quiet', '--terse', '--output-format', '%.17g', '--file', ''], input='\n'.join(lines) + '\n',
                              env=environment, capture_output=True, text=True, check=False, timeout=120)
        return done.stdout

    def read(self, words):
        """The readings of those words that are units to it; of functions their value at 1."""
        found = self._read(words)
        functions = {word: f'{word}(1)' for word, reading in found.items() if '(' in reading.other}
        values = self._read(list(functions.values()))
        found.update({word: values[text] for word, text in functions.items() if text in values and not values[text].other})
        return found

    def _read(self, words):
        mark = 'zzzmark'
        lines = [line for word in words for line in (word, '', mark)]
        answers = self._asked(lines).split(f"Unknown unit '{mark}'\n")
        if len(answers) != len(words) + 1:
            raise RuntimeError(f'units gave {len(answers)} answers to {len(words)} questions')
        return {word: reading for word, answer in zip(words, answers) if (reading := self._reading(answer.strip())) is not None}

    @staticmethod
    def _reading(answer):
        if not answer or re.search(r'^Unknown|^Unit list|rror', answer):
            return None
        if re.match(r'\S+\(\w+\) = ', answer) or 'interpolated' in answer:
            return Reading(0.0, (), answer.splitlines()[0] + ' (function)')
        reduced = answer.splitlines()[-1].rsplit(' = ', 1)[-1]
        number = re.match(r'-?[\d.]+(?:e[+-]?\d+)?', reduced)
        rest = reduced[number.end():] if number else reduced
        above, _, below = rest.partition('/')
        powers = {}
        for part, sign in ((above, 1), (below, -1)):
            for token in part.split():
                base, _, power = token.partition('^')
                if base not in BASES or not re.fullmatch(r'\d*', power):
                    return Reading(0.0, (), 'money' if 'US$' in rest else reduced)
                powers[BASES[base]] = powers.get(BASES[base], 0) + sign * int(power or 1)
        return reading_of(float(number[0]) if number else 1.0, powers)

    @staticmethod
    def names():
        """All names of its definitions, and its prefixes: those that end with a minus."""
        names, prefixes = set(), set()
        folder = '/usr/share/units'
        with open(f'{folder}/definitions.units', encoding='utf-8') as file:
            for line in file:
                word = line.split()[0] if line.strip() else '#'
                if word[0] in '#!+':
                    continue
                if word.endswith('-'):
                    prefixes.add(word[:-1])
                else:
                    names.add(re.sub(r'[(\[].*', '', word))
        return names - {''}, prefixes


class Udunits:
    """The library of UDUNITS-2 with its database."""
    name = 'UDUNITS-2'
    short = 'udunits'

    @staticmethod
    def is_installed():
        return ctypes.util.find_library('udunits2') is not None and os.path.isdir(UDUNITS_FILES)

    def __init__(self):
        library = ctypes.CDLL(ctypes.util.find_library('udunits2'))
        for function in (library.ut_read_xml, library.ut_parse, library.ut_get_converter):
            function.restype = ctypes.c_void_p
        library.cv_convert_double.restype = ctypes.c_double
        # It tells of every overridden definition otherwise.
        library.ut_set_error_message_handler(ctypes.cast(library.ut_ignore, ctypes.c_void_p))
        self.library = library
        self.system = ctypes.c_void_p(library.ut_read_xml(None))

    def _parsed(self, text):
        encoding_utf8 = 2
        unit = self.library.ut_parse(self.system, ctypes.c_char_p(text.encode()), encoding_utf8)
        return ctypes.c_void_p(unit) if unit else None

    def read(self, words):
        return {word: self._reading(unit) for word in words if (unit := self._parsed(word)) is not None}

    def _reading(self, unit):
        by_definition, text = 8, ctypes.create_string_buffer(500)
        self.library.ut_format(unit, text, ctypes.c_size_t(500), by_definition)
        text = text.value.decode()
        # "0.1 lg(re 0.001 m2.kg.s-3)", "0.555555555555556 K @ 459.67", "8 1", "m2.s-2", "0.001"
        reference, product, offset = re.fullmatch(
            r'(?:[\d.e+-]+ )?(lg\(re )?(?:[\d.e+-]+(?: |$))?([^@)]*?)\)?( @ .*)?', text).groups()
        powers = {}
        for token in product.split('.') if product not in ('', '1') else []:
            base, power = re.fullmatch(r'([a-zA-Z]+)(-?\d+)?', token).groups()
            if base not in BASES:
                return Reading(0.0, (), text)
            powers[BASES[base]] = int(power or 1)
        # Its texts have fifteen digits, its conversions all of them.
        converter = ctypes.c_void_p(self.library.ut_get_converter(unit, self._parsed(product or '1')))
        zero, one = (self.library.cv_convert_double(converter, ctypes.c_double(number)) for number in (0.0, 1.0))
        reading = reading_of(one, powers)
        if reference:
            return dataclasses.replace(reading, is_level=True)
        return dataclasses.replace(reading, step=one - zero) if offset else reading

    @staticmethod
    def names():
        """All names and symbols of its database, and its prefixes."""
        names, prefixes = set(), set()
        for file in os.listdir(UDUNITS_FILES):
            for unit in xml.etree.ElementTree.parse(os.path.join(UDUNITS_FILES, file)).getroot():
                texts = {node.text.strip() for node in unit.iter()
                         if node.tag in ('symbol', 'singular', 'plural') or (node.tag == 'name' and len(node) == 0)}
                (prefixes if unit.tag == 'prefix' else names).update(texts)
        return names - {''}, prefixes - {''}


def installed():
    """The peers that are there."""
    return [peer() for peer in (Gnu_units, Udunits) if peer.is_installed()]
