#!/usr/bin/env python3
"""check_peers.py [VALUE-OBJECT...]: the size of every unit of the catalogue against GNU units and UDUNITS-2.

With the command of a built tool, what it converts is compared as well. Where neither peer is installed, the exit
status is 77, by which ctest knows that the check was skipped.
"""

import decimal
import json
import subprocess
import sys

import catalogue
import peers

ROOM = decimal.Decimal('1e-12')

# How a peer calls a unit that it does not know by our names, or knows another unit by.
ASKED = {
    ('gnu', 'RADIAN'): 'radian',                             # its "rad" is a dose
    ('gnu', 'DEGREE_C'): 'degC',                             # the difference
    ('gnu', 'DEGREE_F'): 'degF',
    ('gnu', 'CALORIE'): 'cal_th',
    ('gnu', 'BRITISH_THERMAL_UNIT'): 'btu_IT',
    ('gnu', 'METRIC_HORSEPOWER'): 'metrichorsepower',
    ('gnu', 'POUND_FORCE'): 'lbf',
    ('gnu', 'POUND_PER_SQUARE_INCH'): 'psi',
    ('gnu', 'TECHNICAL_ATMOSPHERE'): 'technicalatmosphere',
    ('gnu', 'FLUID_OUNCE'): 'fluidounce',
    ('gnu', 'IMPERIAL_GALLON'): 'brgallon',
    ('gnu', 'IMPERIAL_QUART'): 'brquart',
    ('gnu', 'IMPERIAL_PINT'): 'brpint',
    ('gnu', 'IMPERIAL_FLUID_OUNCE'): 'brfluidounce',
    ('gnu', 'SHORT_TON'): 'shortton',
    ('gnu', 'LONG_TON'): 'longton',
    ('udunits', 'BRITISH_THERMAL_UNIT'): 'IT_Btu',
    ('udunits', 'CALORIE'): 'thermochemical_calorie',
    ('udunits', 'OUNCE'): 'avoirdupois_ounce',               # its "ounce" is of volume
    ('udunits', 'GRADIAN'): 'grade',
    ('udunits', 'IMPERIAL_GALLON'): 'Canadian_liquid_gallon',
    ('udunits', 'IMPERIAL_QUART'): 'UK_liquid_quart',
    ('udunits', 'IMPERIAL_PINT'): 'UK_liquid_pint',
    ('udunits', 'IMPERIAL_FLUID_OUNCE'): 'UK_fluid_ounce',
}

# Units that a peer does not know.
UNKNOWN = {
    'gnu': ['WORD', 'DWORD', 'SYMBOL', 'BAUD'],
    'udunits': ['NYBBLE', 'WORD', 'DWORD', 'SYMBOL', 'STONE', 'PER_MILLE', 'NEPER'],
}

# Where a peer has another size: how far it may be away in proportion to ours, and why.
OTHER_SIZES = {
    ('gnu', 'OERSTED'): ('6e-10', 'of the measured vacuum permeability of 2018, not of 4 pi 1e-7'),
    ('gnu', 'PARSEC'): ('8e-12', 'by the tangent of a second of arc, not by the second itself as IAU 2015'),
    ('gnu', 'DALTON'): ('2e-9', 'CODATA 2018'),
    ('udunits', 'TORR'): ('2e-7', 'taken for a millimetre of mercury'),
    ('udunits', 'ELECTRONVOLT'): ('5e-7', 'CODATA 1986'),
    ('udunits', 'HORSEPOWER'): ('4e-8', 'rounded to seven digits'),
    ('udunits', 'METRIC_HORSEPOWER'): ('4e-7', 'rounded to six digits'),
    ('udunits', 'OERSTED'): ('2e-8', 'rounded to seven digits'),
    ('udunits', 'GALLON'): ('6e-8', 'rounded to seven digits'),
    ('udunits', 'QUART'): ('6e-8', 'of the rounded gallon'),
    ('udunits', 'PINT'): ('6e-8', 'of the rounded gallon'),
    ('udunits', 'FLUID_OUNCE'): ('6e-8', 'of the rounded gallon'),
    ('udunits', 'OUNCE'): ('2e-7', 'rounded to seven digits'),
    ('udunits', 'ACRE'): ('5e-6', 'of the US survey foot'),
    ('udunits', 'CHAIN'): ('2e-6', 'of the US survey foot, rounded'),
    ('udunits', 'FATHOM'): ('3e-6', 'of the US survey foot'),
    ('udunits', 'FURLONG'): ('3e-6', 'of the US survey foot'),
    ('udunits', 'LIGHT_YEAR'): ('6e-8', 'rounded to six digits'),
    ('udunits', 'PARSEC'): ('2e-7', 'rounded to seven digits'),
    ('udunits', 'SLUG'): ('3e-7', 'rounded to six digits'),
    ('udunits', 'DALTON'): ('7e-7', 'CODATA 1986'),
}

# Where a peer has another quantity, whose sizes are not ours.
OTHER_QUANTITIES = {
    ('gnu', 'CALENDAR_TIME'): 'parts of the tropical year, in seconds',
    ('udunits', 'CALENDAR_TIME'): 'parts of the tropical year, in seconds',
    ('gnu', 'LOGARITHMIC_RATIO'): 'a function, whose value at 1 is e',
}

# Where a peer counts plain numbers.
PLAIN_NUMBERS = [('udunits', 'DATA_SIZE'), ('udunits', 'SYMBOL_RATE')]


def words_for(unit, peer):
    asked = ASKED.get((peer.short, unit.constant))
    return [asked] if asked else [*unit.names, unit.name, unit.symbol, *unit.symbols]


def sizes_of(peer):
    """For each unit that the peer knows, by its constant: the word that it was asked, and what it reads."""
    asked = {unit.constant: words_for(unit, peer) for unit in catalogue.units()}
    found = peer.read([word for words in asked.values() for word in words])
    known = {constant: [word for word in words if word in found] for constant, words in asked.items()}
    return {constant: (words[0], found[words[0]]) for constant, words in known.items() if words}


def faults_of_peer(peer, ours):
    """The units whose size, as `ours` has it, is not the peer's."""
    sizes = sizes_of(peer)
    for unit in catalogue.units():
        if (unit.constant in sizes) == (unit.constant in UNKNOWN[peer.short]):
            yield f'{unit.constant} is {"known" if unit.constant in sizes else "not known"} to {peer.name}'
        if unit.constant not in sizes or (peer.short, unit.quantity) in OTHER_QUANTITIES:
            continue
        word, reading = sizes[unit.constant]
        if reading.powers != catalogue.powers()[unit.quantity] and (peer.short, unit.quantity) not in PLAIN_NUMBERS:
            yield f'{unit.constant}: {peer.name} reads "{word}" as {reading}, which is no {unit.quantity}'
        theirs = decimal.Decimal(reading.step or reading.factor)
        room = decimal.Decimal(OTHER_SIZES.get((peer.short, unit.constant), (ROOM, ''))[0])
        if abs(theirs / ours[unit.constant] - 1) > room:
            yield f'{unit.constant}: {ours[unit.constant]:.17g}, and by {peer.name} ("{word}") {theirs:.17g}'


def converted(tool, symbol, target):
    done = subprocess.run([*tool, 'convert', f'1 {symbol}', target, '--json'], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise ValueError(f'1 {symbol} to {target}: {done.stderr.strip()}')
    return decimal.Decimal(json.loads(done.stdout, parse_float=decimal.Decimal, parse_int=decimal.Decimal)['value'])


def sizes_of_tool(tool):
    """What the tool converts one of each unit to, of temperatures a difference of one."""
    found = {}
    for unit in catalogue.units():
        of_scale = 'Δ' if unit.quantity == 'TEMPERATURE' else ''
        target = of_scale + catalogue.coherent_unit(unit.quantity)
        found[unit.constant] = converted(tool, of_scale + unit.symbol, target)
    return found


def faults_of_tool(ours, exact):
    """The tool has each size to a unit in the last place."""
    for constant, size in exact.items():
        if abs(ours[constant] / size - 1) > decimal.Decimal(2) ** -52:
            yield f'{constant}: the tool has {ours[constant]}, the catalogue {size:.20g}'


def main():
    there = peers.installed()
    if not there:
        print('check_peers: skipped, since neither GNU units nor UDUNITS-2 is installed')
        return 77
    exact = {unit.constant: catalogue.decimal_size(unit.size) for unit in catalogue.units()}
    compared = {'the catalogue': exact}
    faults = []
    if len(sys.argv) > 1:
        compared['the tool'] = sizes_of_tool(sys.argv[1:])
        faults += faults_of_tool(compared['the tool'], exact)
    for peer in there:
        for whose, sizes in compared.items():
            faults += [f'{whose}: {fault}' for fault in faults_of_peer(peer, sizes)]
        others = sum(key[0] == peer.short for key in OTHER_SIZES)
        print(f'{len(exact) - len(UNKNOWN[peer.short])} units of {" and ".join(compared)}, {others} of another size in {peer.name}')
    print(*faults, f'{len(faults)} faults', sep='\n')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
