#!/usr/bin/env python3
"""Writes src/enclosing/Enclosed_tables.h: constants and tables of logarithms and exponentials.

Each number is computed to 60 decimal digits and kept as a sum of two doubles. What the second leaves out is
at most half of its last place: 2^-107 where the first lies between 1 and 2.
"""

from decimal import Decimal, getcontext
import math
import pathlib

getcontext().prec = 60
TARGET = pathlib.Path(__file__).resolve().parent.parent / "src" / "enclosing" / "Enclosed_tables.h"


def exact(number):
    return Decimal(number)  # of a double: its exact value


def enclosed(number, comment=""):
    """The number as an initialiser: high and low with high in [1, 2), the error, the exponent."""
    if number == 0:
        return "{0.0, 0.0, 0.0, 0}"
    exponent = math.frexp(float(number))[1] - 1
    scaled = number / (Decimal(2) ** exponent)
    high = float(scaled)
    low = float(scaled - exact(high))
    return "{%s, %s, table_error, %d}%s" % (high.hex(), low.hex(), exponent, comment)


PI = Decimal("3.14159265358979323846264338327950288419716939937510582097494459230781640628620899")
LN10 = Decimal(10).ln()
LN2 = Decimal(2).ln()


def reciprocal(j):
    """A short double near 1 / ((j + 1/2) / 128); 1 next to 1, so that small logarithms keep their digits."""
    return 1.0 if j in (127, 128) else round(512 * 128 / (j + 0.5)) / 512


def main():
    lines = [
        "// Constants and tables as sums of two doubles, made by tools/make_enclosure_tables.py.",
        "",
        "#ifndef VARNIX_VALUE_ENCLOSING_ENCLOSED_TABLES_H",
        "#define VARNIX_VALUE_ENCLOSING_ENCLOSED_TABLES_H",
        "",
        '#include "Enclosed.h"',
        "",
        "namespace Varnix::Value::Physics {",
        "",
        "// What the two doubles of an entry leave out at most, in the place of its high part.",
        "inline constexpr double table_error = 0x1p-106;",
        "",
        "// clang-format off",
        "",
    ]
    constants = [
        ("pi", PI), ("ln_10", LN10), ("ln_2", LN2), ("log10_2", LN2 / LN10), ("two_over_ln_10", 2 / LN10),
        ("two_over_3_ln_10", 2 / (3 * LN10)),
        ("one_6th", Decimal(1) / 6), ("one_24th", Decimal(1) / 24),
    ]
    for name, number in constants:
        lines.append("inline constexpr Enclosed %s = %s;" % (name.ljust(16), enclosed(number)))
    lines += [
        "",
        "// exp(j / 64), from j = -23.",
        "inline constexpr int First_exponential = -23;",
        "inline constexpr Enclosed exponentials[] = {",
    ]
    for j in range(-23, 24):
        lines.append("    %s, // %d" % (enclosed((Decimal(j) / 64).exp()) if j else "{1.0, 0.0, 0.0, 0}", j))
    lines += [
        "};",
        "",
        "// A short number close to 128 / (j + 1/2), and minus its logarithm to base ten; from j = 90.",
        "struct Logarithm_entry {",
        "    double reciprocal;",
        "    Enclosed logarithm;",
        "};",
        "inline constexpr int First_logarithm = 90;",
        "inline constexpr Logarithm_entry logarithms[] = {",
    ]
    for j in range(90, 183):
        c = reciprocal(j)
        log = -(exact(c).ln() / LN10)
        lines.append("    {%s, %s}, // %d" % (c.hex(), enclosed(log) if c != 1.0 else "{0.0, 0.0, 0.0, 0}", j))
    lines += ["};", "", "// clang-format on", "", "} // namespace Varnix::Value::Physics", "", "#endif"]
    TARGET.write_text("\n".join(lines) + "\n")


main()
