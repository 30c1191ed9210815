#!/usr/bin/env python3
"""make_units_page.py [--check]: writes docs/units.md from the rows of the catalogue; with --check compares."""

import fractions
import sys

import catalogue

PAGE = catalogue.ROOT / 'docs/units.md'

BEGINNING = '''\
# Units

All units that texts and measurements know, each with its exact size and where that comes from. This page is made \
from the rows of the catalogue by `tools/make_units_page.py`; `value-object units` prints the same, and \
`tests/cases/peer_words.txt` compares it with what other programs read.

- **A size is exact**, as a decimal or a formula, in the unit that the heading names. Conversions go by it.
- **Read** are the symbol, the name in the plural, and the words of the column "also read"; upper and lower case \
differ. `_` in a name is written for a blank, and either is read.
- **Prefixes**: "all" are quecto to ronna and kibi to yobi, "common" are pico to yotta and kibi to yobi without \
deca and hecto; prefix symbols stand before symbols (`kPa`) and prefix names before names (`kilopascals`).
- **The core's units** have codes up to 33, and value objects compute with them by the core's own factors; those \
that are rounded there say so in the last column. The others begin at 1001 \
(`<varnix/value/Engineering_units.h>`): for value objects they are no units.

How units are combined to products, quotients and powers, and what is refused, is told in [text.md](text.md).
'''

# As the fields of physics are taught, so that what belongs together stands together.
SECTIONS = [
    ('Mechanics', ['LENGTH', 'AREA', 'VOLUME', 'MASS', 'TIME', 'CALENDAR_TIME', 'FORCE', 'PRESSURE', 'ENERGY', 'POWER']),
    ('Temperature', ['TEMPERATURE']),
    ('Electricity and magnetism', ['VOLTAGE', 'CURRENT', 'RESISTANCE', 'CONDUCTANCE', 'CHARGE', 'CAPACITANCE',
                                   'INDUCTANCE', 'MAGNETIC_FLUX', 'FLUX_DENSITY', 'MAGNETIC_FIELD']),
    ('Angles and ratios', ['ANGLE', 'SOLID_ANGLE', 'RATIO', 'LOGARITHMIC_RATIO']),
    ('Data', ['DATA_SIZE', 'SYMBOLS', 'SYMBOL_RATE']),
    ('Light', ['LUMINOUS_INTENSITY', 'LUMINOUS_FLUX', 'ILLUMINANCE']),
    ('Chemistry and radiation', ['AMOUNT', 'CATALYTIC_ACTIVITY', 'ACTIVITY', 'DOSE']),
]
HEADINGS = {'CALENDAR_TIME': 'Months and years', 'SYMBOLS': 'Symbols', 'LOGARITHMIC_RATIO': 'Logarithmic ratio'}
UNITS_IN_WORDS = {'1': 'plain numbers', 'mo': 'months'}
TAKEN = {'none': 'none', 'usual': 'common', 'chosen_usual': 'common', 'any': 'all', 'chosen': 'all'}


def code(words):
    return ', '.join(f'`{word}`' for word in words)


def table(heading, rows):
    return '\n'.join('| ' + ' | '.join(row) + ' |' for row in [heading, ['---'] * len(heading), *rows])


def quantity_section(quantity):
    unit = catalogue.coherent_unit(quantity)
    name = HEADINGS.get(quantity, catalogue.quantities()[quantity].capitalize())
    rows = []
    for row in catalogue.units():
        if row.quantity == quantity:
            further = [word for word in row.words() if word not in (row.symbol, row.name)]
            rows.append([code([row.symbol]), f'`{row.name}`', code(further), TAKEN[row.prefixes], row.size, row.source])
    heading = ['symbol', 'name', 'also read', 'prefixes', 'size', 'source of the size']
    return f'### {name}, in {UNITS_IN_WORDS.get(unit, unit)}\n\n' + table(heading, rows)


def power_of(factor):
    for base in (10, 2):
        for exponent in range(-30, 90):
            if fractions.Fraction(base) ** exponent == factor:
                return f'{base}^{exponent}'
    raise ValueError(factor)


def prefix_section():
    rows = [[code([row.symbol, *row.symbols]), f'`{row.name}`', power_of(row.factor),
             'common' if row.is_of_core else '', code([row.multiplier]) if row.multiplier else '']
            for row in catalogue.prefixes()]
    return ('## Prefixes\n\nThe last column is how instruments write it (`--scpi`). Quetta, 10^30, is no prefix here: '
            'its code is that of gibi.\n\n' + table(['symbol', 'name', 'factor', 'taken by', 'of instruments'], rows))


def composite_section():
    rows = [['`Hz`, `hertz`', '`1/s`', 'all'],
            *([code(row.words), code([row.meaning]), TAKEN[row.prefixes]] for row in catalogue.composites())]
    return ('## Words for composites\n\nThese stand for a product, a quotient or a power, or for a unit with its prefix.\n\n' +
            table(['read', 'as', 'prefixes'], rows))


def page():
    listed = [quantity for _, quantities in SECTIONS for quantity in quantities]
    missing = {row.quantity for row in catalogue.units()} ^ set(listed)
    if missing:
        raise ValueError(f'quantities without a place on the page, or without units: {missing}')
    parts = [BEGINNING]
    for title, quantities in SECTIONS:
        parts.append('\n\n'.join([f'## {title}', *map(quantity_section, quantities)]) + '\n')
    return '\n'.join([*parts, prefix_section() + '\n', composite_section() + '\n'])


def main():
    made = page()
    if sys.argv[1:] == ['--check']:
        same = PAGE.read_text(encoding='utf-8') == made
        print('docs/units.md is as the catalogue' if same else
              'docs/units.md differs from the catalogue: run tools/make_units_page.py')
        return 0 if same else 1
    PAGE.write_text(made, encoding='utf-8')
    return 0


if __name__ == '__main__':
    sys.exit(main())
