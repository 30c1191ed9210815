#!/usr/bin/env python3
"""unit_grammar_test.py PROGRAM...: random texts of units, evaluated here in exact numbers by ISO 80000-1, where a
power belongs to the prefixed unit, and read by the tool. Both have to agree on what a text means, and on which texts
are refused. UNIT_GRAMMAR_SEED and UNIT_GRAMMAR_TEXTS choose other texts and more of them."""

import os
import random
import subprocess
import sys
from dataclasses import dataclass
from fractions import Fraction
from math import prod

PROGRAM = sys.argv[1:]
SEED = int(os.environ.get("UNIT_GRAMMAR_SEED", "80000"))
TEXTS = int(os.environ.get("UNIT_GRAMMAR_TEXTS", "8000"))

# Prefixes: symbol, name, and the exponents of ten and of two.
DECIMAL_PREFIXES = [
    ("p", "pico", (-12, 0)), ("n", "nano", (-9, 0)), ("µ", "micro", (-6, 0)), ("u", "micro", (-6, 0)),
    ("m", "milli", (-3, 0)), ("c", "centi", (-2, 0)), ("d", "deci", (-1, 0)), ("k", "kilo", (3, 0)),
    ("M", "mega", (6, 0)), ("G", "giga", (9, 0)), ("T", "tera", (12, 0)), ("P", "peta", (15, 0)),
    ("E", "exa", (18, 0)), ("Z", "zetta", (21, 0)), ("Y", "yotta", (24, 0)),
]
# Before units of SI alone.
OTHER_PREFIXES = [
    ("q", "quecto", (-30, 0)), ("r", "ronto", (-27, 0)), ("y", "yocto", (-24, 0)), ("z", "zepto", (-21, 0)),
    ("a", "atto", (-18, 0)), ("f", "femto", (-15, 0)), ("da", "deca", (1, 0)), ("h", "hecto", (2, 0)),
    ("R", "ronna", (27, 0)),
]
BINARY_PREFIXES = [
    ("Ki", "kibi", (0, 10)), ("Mi", "mebi", (0, 20)), ("Gi", "gibi", (0, 30)), ("Ti", "tebi", (0, 40)),
    ("Pi", "pebi", (0, 50)), ("Ei", "exbi", (0, 60)), ("Zi", "zebi", (0, 70)), ("Yi", "yobi", (0, 80)),
]

# Units: their kind, of which a text holds one unit, the unit converted to, their size in that, symbols and names.
# Degrees Celsius convert by an offset, and angles and ratios are kinds of their own: these go to themselves.
UNITS = {
    "percent": ("ratio", "%", 1, ["%"], ["percent"]),
    "ppm": ("ratio", "ppm", 1, ["ppm"], []),
    "degree": ("ratio", "deg", 1, ["deg", "°"], ["degree", "degrees"]),
    "bit": ("data", "b", 1, ["b"], ["bit", "bits"]),
    "byte": ("data", "b", 8, ["B", "By"], ["byte", "bytes"]),
    "volt": ("voltage", "V", 1, ["V"], ["volt", "volts"]),
    "watt": ("power", "W", 1, ["W"], ["watt", "watts"]),
    "ampere": ("current", "A", 1, ["A"], ["amp", "amps", "ampere", "amperes"]),
    "ohm": ("resistance", "ohm", 1, ["ohm", "Ohm", "Ω"], ["ohm", "ohms"]),
    "gram": ("mass", "g", 1, ["g"], ["gram", "grams"]),
    "metre": ("length", "m", 1, ["m"], ["meter", "meters", "metre", "metres"]),
    "inch": ("length", "m", Fraction("0.0254"), ["in"], ["inch", "inches"]),
    "mile": ("length", "m", Fraction("1609.34"), ["mi"], ["mile", "miles"]),
    "nautical mile": ("length", "m", 1852, ["n.mi"], ["nautical_mile", "nautical_miles"]),
    "celsius": ("temperature", "°C", 1, ["°C", "degC"], ["degreeCelsius"]),
    "kelvin": ("temperature", "K", 1, ["K"], ["kelvin"]),
    "second": ("time", "s", 1, ["s"], ["second", "seconds"]),
    "minute": ("time", "s", 60, ["min"], ["minute", "minutes"]),
    "hour": ("time", "s", 3600, ["h"], ["hour", "hours"]),
    # Measurements have these, and values of the core have not; the tool says so where it reads them.
    "newton": ("force", None, 1, ["N"], ["newton", "newtons"]),
    "pascal": ("pressure", None, 1, ["Pa"], ["pascal", "pascals"]),
    "psi": ("pressure", None, 1, ["psi"], []),
    "henry": ("inductance", None, 1, ["H"], ["henry", "henries"]),
    "tesla": ("flux density", None, 1, ["T"], ["tesla", "teslas"]),
    "gauss": ("flux density", None, 1, ["G"], ["gauss"]),
    "litre": ("volume", None, 1, ["l", "L"], ["litre", "liters"]),
    "fluid ounce": ("volume", None, 1, ["floz", "fl oz"], ["fluid_ounce", "fluid ounces"]),
    "mole": ("amount", None, 1, ["mol"], ["mole", "moles"]),
    "candela": ("intensity", None, 1, ["cd"], ["candela", "candelas"]),
}
SI = {"volt", "watt", "ampere", "ohm", "gram", "metre", "kelvin", "second", "hertz", "newton", "pascal", "henry", "tesla",
      "litre", "mole"}
WITHOUT_PREFIX = {"fluid ounce"}
OF_MEASUREMENTS = "is a unit that measurements alone have"
KINDS = sorted({kind for kind, *_ in UNITS.values()})
# Words for several units: whether they take a prefix, and whether a power, which raises the last unit of "Wh" alone.
COMPOSITES = {
    "hertz": ({"second": -1}, True, True, ["Hz"], ["hertz"]),
    "bit per second": ({"bit": 1, "second": -1}, True, True, ["bps"], []),
    "watt hour": ({"watt": 1, "hour": 1}, True, False, ["Wh"], []),
    "mile per hour": ({"mile": 1, "hour": -1}, False, True, ["mph", "Mph"], []),
    "newton metre": ({"newton": 1, "metre": 1}, True, False, ["Nm"], []),
    "knot": ({"nautical mile": 1, "hour": -1}, False, True, ["kn", "kt", "kts"], ["knot", "knots"]),
}

TAKEN_FOR_ANOTHER = {"Gs", "Min", "mb", "mB", "mBy", "mbps"}
ANOTHER_UNIT = {"min": "minute", "nmi": "nautical mile"}
# m before these, with a negative power, is metre times the unit to many: m/s for ms^-1.
METRE_TIMES = {"ms", "mmin", "mh", "mK"}
METRE_AND_TEMPERATURE = {"mK", "m°C", "mdegC"}  # Below a line: W/mK.
# With nothing but a blank behind it the first is taken for a prefix, and degrees for those of the temperature.
STAND_APART = {"m", "K", "T", "G"}
DEGREES, TEMPERATURES = {*UNITS["degree"][3], *UNITS["degree"][4]}, {"K", "kelvin", "°C", "degC", "degreeCelsius"}
SUPERSCRIPTS = str.maketrans("-0123456789", "⁻⁰¹²³⁴⁵⁶⁷⁸⁹")


class Refused(Exception):
    """The rules refuse the text."""


@dataclass
class Meaning:
    """10^decimal times 2^binary times units with their powers."""
    decimal: int
    binary: int
    powers: dict

    def raised(self, power):
        if power == 0:
            raise Refused("a power of zero leaves no unit")
        powers = {unit: own * power for unit, own in self.powers.items()}
        return Meaning(self.decimal * power, self.binary * power, powers)

    def times(self, other):
        powers = dict(self.powers)
        for unit, power in other.powers.items():
            if powers.get(unit, power) * power < 0:
                raise Refused(f"{unit} stands above and below")
            powers[unit] = powers.get(unit, 0) + power
        kinds = [UNITS[unit][0] for unit in powers]
        if len(set(kinds)) < len(kinds) or len(kinds) > 5:
            raise Refused("a text holds five units at most, and one of a kind")
        return Meaning(self.decimal + other.decimal, self.binary + other.binary, powers)

    def checked(self):
        """Itself, if a descriptor can hold its scale: where 10^10 would stand the descriptor says kibi."""
        binary_fits = self.binary == 0 or (self.decimal == 0 and 10 <= self.binary <= 80)
        if not binary_fits or abs(self.decimal) > 40 or self.decimal in (10, 20, 30, 40):
            raise Refused(f"10^{self.decimal} times 2^{self.binary} is no prefix")
        return self

    def target(self):
        return "*".join(f"{UNITS[unit][1]}^{power}" for unit, power in self.powers.items())

    def scale(self):
        return Fraction(10) ** self.decimal * Fraction(2) ** self.binary

    def size_in_target(self):
        return self.scale() * prod(Fraction(UNITS[unit][2]) ** power for unit, power in self.powers.items())

    def converts_in_double(self):
        """Whether the number stays far from the ends of double, with its scale and without."""
        if any(UNITS[unit][1] is None for unit in self.powers):
            return False
        size = self.size_in_target()
        return all(Fraction(10) ** -250 < part < 10**250 for part in (size, size / self.scale()))


@dataclass
class Word:
    """A unit with its prefix, in one word."""
    text: str
    unit: str
    prefix: tuple = (0, 0)

    def meaning(self, directly_below, power):
        composite = COMPOSITES.get(self.unit)
        if self.text in ANOTHER_UNIT:
            return Meaning(0, 0, {ANOTHER_UNIT[self.text]: 1})  # and no thousandth of an inch
        square_metre = self.text == "qm" and power == 1
        if self.text in TAKEN_FOR_ANOTHER or square_metre or self.text.startswith("db"):  # decibels, to many
            raise Refused(f"{self.text} is taken for something else")
        if self.prefix != (0, 0) and composite and not composite[1]:
            raise Refused("a speed takes no prefix")
        if self.text in METRE_TIMES and power < 0 or self.text in METRE_AND_TEMPERATURE and directly_below:
            raise Refused(f"{self.text} means two things here")
        return Meaning(*self.prefix, composite[0] if composite else {self.unit: 1})


@dataclass
class Parentheses:
    """A product or a quotient in parentheses, with a prefix before them or a power of ten first inside."""
    text: str
    product: "Product"
    prefix: tuple = (0, 0)

    def meaning(self, _directly_below, _power):
        if self.text.startswith(("m(", "T(", "G(", "u(", "(10^0")):
            raise Refused("m before parentheses is metre, and 10^0 is no scale")
        return self.product.meaning().times(Meaning(*self.prefix, {}))


@dataclass
class Factor:
    """A word or parentheses with a power, which is 1 where none is written."""
    text: str
    base: object
    power: int

    def meaning(self, directly_below):
        return self.base.meaning(directly_below, self.power).raised(self.power)


@dataclass
class Product:
    """Signs and factors in turn; the first sign is that of a reciprocal, or nothing."""
    text: str
    signs: list
    factors: list

    def meaning(self):
        result, below, before = Meaning(0, 0, {}), False, None
        for sign, factor in zip(self.signs, self.factors):
            divides = "/" in sign
            if below and not divides:
                raise Refused("a product behind / is ambiguous")
            if sign == " " and before.text in STAND_APART:
                raise Refused(f"{before.text} that stands apart is taken for a prefix")
            if sign == " " and before.text in DEGREES and factor.base.text in TEMPERATURES:
                raise Refused("degrees of angle before a temperature are taken for its own")
            result = result.times(factor.meaning(divides).raised(-1 if divides else 1))
            below, before = below or divides, factor
        return result


class Generator:
    """Random texts. Most draw on one unit of each kind, since two of a kind are refused."""

    def __init__(self, seed):
        self.draw = random.Random(seed)
        self.words = []

    def text(self):
        one_of_a_kind = [self.draw.choice([unit for unit in UNITS if UNITS[unit][0] == kind]) for kind in KINDS]
        few, all_words = [*one_of_a_kind, self.draw.choice([*COMPOSITES])], [*UNITS, *COMPOSITES]
        self.words = self.draw.choice([few, few, few, few, all_words])
        return self.product(2)

    def word(self):
        unit = self.draw.choice(self.words)
        *_, symbols, names = UNITS.get(unit) or COMPOSITES[unit]
        form = 1 if names and self.draw.random() < 0.2 else 0
        text = self.draw.choice((symbols, names)[form])
        more = BINARY_PREFIXES if unit in ("bit", "byte") else OTHER_PREFIXES if unit in SI else []
        prefix = self.draw.choice(DECIMAL_PREFIXES + more)
        # "dB" is decibels, which are levels and are tested elsewhere.
        if unit in WITHOUT_PREFIX or self.draw.random() < 0.4 or prefix[form] + text in ("dB", "dBy"):
            return Word(text, unit)
        return Word(prefix[form] + text, unit, prefix[2])

    def parentheses(self, depth):
        product = self.product(depth - 1)
        kind = self.draw.choice(["plain", "plain", "plain", "blanks", "prefix", "scale"])
        if kind in ("plain", "blanks"):
            return Parentheses(f"({product.text})" if kind == "plain" else f"( {product.text} )", product)
        if kind == "prefix":
            *spellings, prefix = self.draw.choice(DECIMAL_PREFIXES)
            return Parentheses(f"{self.draw.choice(spellings)}({product.text})", product, prefix)
        exponent = self.draw.randint(-12, 12)
        sign = "" if product.signs[0] else self.draw.choice([" ", "*"])
        return Parentheses(f"(10^{exponent}{sign}{product.text.removeprefix('1')})", product, (exponent, 0))

    def factor(self, depth):
        base = self.parentheses(depth) if depth and self.draw.random() < 0.25 else self.word()
        takes_power = isinstance(base, Parentheses) or base.unit in UNITS or COMPOSITES[base.unit][2]
        if not takes_power or self.draw.random() < 0.55:
            return Factor(base.text, base, 1)
        power = self.draw.choice([-3, -2, -1] * 6 + [2, 3, 4] * 6 + [-4, 0])
        spellings = [f"^{power}", f"**{power}", f"^({power})", f" ^ {power}", f" ** {power}"]
        return Factor(base.text + self.draw.choice([*spellings, str(power).translate(SUPERSCRIPTS)]), base, power)

    def product(self, depth):
        factors = [self.factor(depth) for _ in range(self.draw.choice([1, 1, 2, 2, 2, 3, 3, 4]))]
        signs = [self.draw.choice([""] * 7 + ["1/", "/"])]
        for before, factor in zip(factors, factors[1:]):
            quotient = "/" in signs[-1] and self.draw.random() < 0.95
            sign = self.draw.choice(["/", " / "] if quotient else ["*", "*", " * ", "·", " ", "/", "/", " / "])
            # What stands behind an m or K that stands apart decides how it is taken; these are refused always.
            if sign == " " and before.text in STAND_APART and factor.text not in ("ohm", "Hz", "bps"):
                sign = "*"
            signs.append(sign)
        return Product("".join(sign + factor.text for sign, factor in zip(signs, factors)), signs, factors)


def run(arguments, text):
    return subprocess.run(PROGRAM + arguments, input=text.encode(), capture_output=True, timeout=300, check=False)


def refusals(texts):
    """For each text the message with which the tool refuses to read it, or None."""
    # Nothing here converts to this unit: a text that is read is refused for its kind.
    done = run(["convert", "--by-the-rules", "--to", "s^97", "--keep-going"], "".join(f"1 {text}\n" for text in texts))
    lines = [line for line in done.stderr.decode().splitlines() if line.startswith("value-object: line ")]
    if len(lines) != len(texts):
        sys.exit(f"{len(lines)} messages for {len(texts)} texts: {done.stderr.decode()[-300:]}")
    messages = (line.split(": ", 2)[2] for line in lines)
    read = ("cannot convert", OF_MEASUREMENTS)
    return [None if any(part in message for part in read) else message for message in messages]


def values(conversions):
    """One of each unit in its target, or the tool's message: the columns of a table, or one by one if it fails."""
    columns = [f"--column={place + 1}={text}:{target}" for place, (text, target) in enumerate(conversions)]
    done = run(["convert", "--by-the-rules", "--csv", "--no-header", *columns], ",".join("1" for _ in conversions) + "\n")
    if done.returncode == 0:
        return [float(cell) for cell in done.stdout.decode().split(",")]
    if len(conversions) == 1:
        return [done.stderr.decode()]
    return [value for conversion in conversions for value in values([conversion])]


def main():
    generator = Generator(SEED)
    products = [generator.text() for _ in range(TEXTS)]
    refused = refusals([product.text for product in products])
    faults, read = [], []
    for product, message in zip(products, refused):
        try:
            meaning = product.meaning().checked()
            if message:
                faults.append(f"'{product.text}' means {meaning}, and is refused: {message}")
            elif meaning.converts_in_double():
                read.append((product.text, meaning))
        except Refused as reason:
            if not message:
                faults.append(f"'{product.text}' is read, although {reason}")
    for start in range(0, len(read), 250):
        some = read[start : start + 250]
        for (text, meaning), value in zip(some, values([(text, meaning.target()) for text, meaning in some])):
            size = meaning.size_in_target()
            if isinstance(value, str) or abs(Fraction(value) / size - 1) > Fraction(1, 10**13):
                faults.append(f"'{text}' is {float(size)} {meaning.target()}, and the tool gives {value}")
    print(f"{TEXTS} texts of seed {SEED}: {len(read)} read and converted, {TEXTS - refused.count(None)} refused")
    if len(read) < TEXTS // 8 or not TEXTS // 5 < refused.count(None) < TEXTS * 4 // 5:
        faults.append("too few texts are read, or too few refused, for the comparison to tell much")
    sys.exit("\n".join([*faults[:20], f"{len(faults)} faults"]) if faults else 0)


main()
