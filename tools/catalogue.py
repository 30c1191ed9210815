"""The catalogue as scripts read it: the rows of the .def files, and the reader's table of words for composites."""

import dataclasses
import decimal
import fractions
import functools
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
BEYOND = ROOT / 'include/varnix/value/Engineering_units.def'
CORE = ROOT / 'src/catalogue/core_units.def'
CORE_CASES = ROOT / 'tests/cases/catalogue.txt'
PREFIXES = ROOT / 'src/catalogue/prefixes.def'
READER = ROOT / 'src/text/Unit_words.cpp'
QUANTITIES = ROOT / 'src/catalogue/Quantities.h'

decimal.getcontext().prec = 60
PI = decimal.Decimal('3.14159265358979323846264338327950288419716939937510582097494459')

# What a coherent unit of a quantity is called where no unit of the catalogue has the size 1.
COHERENT = {
    'RATIO': '1', 'MASS': 'kg', 'VOLUME': 'm^3', 'AREA': 'm^2', 'MAGNETIC_FIELD': 'A/m',
    'LOGARITHMIC_RATIO': 'dB', 'CALENDAR_TIME': 'mo', 'TEMPERATURE': 'K',
}


@dataclasses.dataclass
class Unit:
    """A row: texts as they stand, lists of words."""
    constant: str
    quantity: str
    size: str
    symbol: str
    name: str
    symbols: list
    names: list
    suffixes: list
    prefixes: str
    source: str
    is_of_core: bool

    def words(self):
        """All spellings, each once."""
        return list(dict.fromkeys([self.symbol, *self.symbols, self.name, *self.names]))


@dataclasses.dataclass
class Prefix:
    constant: str
    symbol: str
    name: str
    symbols: list
    multiplier: str
    is_of_core: bool
    factor: fractions.Fraction


def fields_of(text):
    """The fields of a row, between commas; texts without their quotes."""
    fields = []
    for quoted, bare in re.findall(r'"((?:[^"\\]|\\.)*)"|([^\s,"][^,"]*)', text):
        fields.append(re.sub(r'\\u([0-9A-F]{4})', lambda code: chr(int(code[1], 16)), quoted) if not bare else bare.strip())
    return fields


def rows_of(path, macro):
    """The rows of a .def file: those that stand on a line of their own."""
    for line in path.read_text(encoding='utf-8').splitlines():
        row = re.match(macro + r'\((.*)\)(?: *//.*)?$', line)
        if row:
            yield fields_of(row[1])


@functools.lru_cache(maxsize=None)
def units():
    """All units, in the order of their rows."""
    found = []
    for (constant, _, _, _, symbol, name, _, _, _, quantity, size, characters, symbols, names, suffixes, prefixes,
         source) in rows_of(CORE, 'VARNIX_VALUE_CORE_UNIT'):
        found.append(Unit(constant, quantity, size, symbol, name, [*characters.split(), *symbols.split()], names.split(),
                          suffixes.split(), prefixes, source, True))
    for _, constant, quantity, size, symbol, name, symbols, names, suffix, prefixes, source in rows_of(BEYOND, 'VARNIX_VALUE_UNIT'):
        found.append(Unit(constant, quantity, size, symbol, name, symbols.split(), names.split(), suffix.split(), prefixes, source, False))
    if len(found) < 100:
        raise ValueError(f'only {len(found)} rows of units were read')
    return found


@functools.lru_cache(maxsize=None)
def quantities():
    """The names of the quantities by their constants, in the order of the catalogue."""
    text = QUANTITIES.read_text(encoding='utf-8')
    enumerators = re.search(r'enum class Quantity[^{]*\{(.*?)#define', text, re.S)[1]
    names = re.findall(r'\{\w+, +"([^"]+)", +Of', text)
    found = dict(zip(re.findall(r'[A-Z_]+', enumerators), names, strict=True))
    found.update((constant, name) for _, constant, name, *_ in rows_of(BEYOND, 'VARNIX_VALUE_QUANTITY'))
    return found


@functools.lru_cache(maxsize=None)
def prefixes():
    """All prefixes, in the order of the table."""
    codes = {name.upper(): code for code, name in
             re.findall(r'^prefix +(-?\d+) +\d+ +\S+ +(\w+)', CORE_CASES.read_text(encoding='utf-8'), re.M)}
    codes.update(re.findall(r'SI_units (\w+) = static_cast<SI_units>\((-?\d+)\)', BEYOND.with_suffix('.h').read_text(encoding='utf-8')))
    found = []
    for constant, symbol, name, *spellings, multiplier in rows_of(PREFIXES, r'VARNIX_VALUE_\w+_PREFIX *'):
        of_core = bool(spellings)
        base = 2 if name.endswith('bi') else 10
        found.append(Prefix(constant, symbol, name, spellings[-1].split() if of_core else [], multiplier, of_core,
                            fractions.Fraction(base) ** int(codes[constant])))
    if len(found) < 30:
        raise ValueError(f'only {len(found)} rows of prefixes were read')
    return found


def decimal_size(size):
    """A size as a number of sixty digits."""
    above, _, below = size.partition('/')
    return factor_of(above) / factor_of(below) if below else factor_of(above)


def factor_of(text):
    number, constant = re.fullmatch(r'([\d.e+-]*)(pi|ln10)?', text).groups()
    factor = decimal.Decimal(number) if number else decimal.Decimal(1)
    if constant == 'pi':
        factor *= PI
    elif constant == 'ln10':
        factor *= decimal.Decimal(10).ln()
    return factor


def coherent_unit(quantity):
    """What the sizes of a quantity's units are counted in."""
    if quantity in COHERENT:
        return COHERENT[quantity]
    return next(unit.symbol for unit in units() if unit.quantity == quantity and unit.size == '1')


@dataclasses.dataclass
class Composite:
    """Words for a product or a quotient of units, or for one with a prefix, and that as a text."""
    words: list
    meaning: str
    prefixes: str


def text_of(symbols, prefix, tuples):
    """The product that a constant of C++ describes: "n.mi/h"."""
    above, below = [], []
    for unit, power in tuples:
        part = symbols[unit] + (f'^{abs(int(power))}' if abs(int(power)) > 1 else '')
        (above if int(power) > 0 else below).append(part)
    product = '*'.join(above or ['1']) + ''.join('/' + part for part in below)
    name = next((row.name for row in prefixes() if row.constant == prefix), '')
    return f'{name}({product})' if name else product


@functools.lru_cache(maxsize=None)
def composites():
    """The words that the reader knows besides those of single units, in the order of its table."""
    symbols = {unit.constant: unit.symbol for unit in units()}
    source = READER.read_text(encoding='utf-8')
    unit = r'\{SPL_NONE, (\w+), \{(\{\w+, -?\d+\}(?:, \{\w+, -?\d+\})*)\}\}'
    constants = {name: (prefix, tuples) for name, prefix, tuples in re.findall(r'constexpr Units (\w+) = ' + unit, source)}
    rows = re.findall(r'^    \{"([^"]+)", +\w+, +Prefixes_taken::(\w+), +(?:' + unit + r'|(\w+))', source, re.M)
    found = {}
    for word, taken, prefix, tuples, constant in rows:
        prefix, tuples = constants[constant] if constant else (prefix, tuples)
        meaning = text_of(symbols, prefix, re.findall(r'\{(\w+), (-?\d+)\}', tuples))
        found.setdefault((meaning, taken), Composite([], meaning, taken)).words.append(word)
    if len(rows) < 20:
        raise ValueError(f'only {len(rows)} rows of composites were read')
    return list(found.values())


# What the core's quantities are made of, in the base units of SI, with bits and symbols.
CORE_POWERS = {
    'RATIO': {}, 'ANGLE': {'rad': 1}, 'SYMBOLS': {'sym': 1}, 'DATA_SIZE': {'b': 1},
    'VOLTAGE': {'kg': 1, 'm': 2, 's': -3, 'A': -1}, 'POWER': {'kg': 1, 'm': 2, 's': -3}, 'CURRENT': {'A': 1},
    'RESISTANCE': {'kg': 1, 'm': 2, 's': -3, 'A': -2}, 'MASS': {'kg': 1}, 'LENGTH': {'m': 1}, 'TEMPERATURE': {'K': 1},
    'TIME': {'s': 1}, 'CALENDAR_TIME': {'mo': 1},
}


@functools.lru_cache(maxsize=None)
def powers():
    """The powers of base units of each quantity, as pairs in the order of their names."""
    found = dict(CORE_POWERS)
    for _, constant, _, volt, *others in rows_of(BEYOND, 'VARNIX_VALUE_QUANTITY'):
        product = {base: int(volt) * power for base, power in CORE_POWERS['VOLTAGE'].items()}
        for base, power in zip(('A', 'm', 's', 'rad', 'cd', 'mol', 'sym', 'dB'), others, strict=True):
            product[base] = product.get(base, 0) + int(power)
        found[constant] = product
    return {constant: tuple(sorted((base, power) for base, power in product.items() if power != 0))
            for constant, product in found.items()}
