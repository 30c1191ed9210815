#!/usr/bin/env python3
"""compare_levels.py REFERENCE OTHER: how far apart two lists of doubles are, each written as its bits.

Prints how many differ, and fails where two are more than two units in the last place apart or the lists are
not of one length.
"""
import sys


def place(text):
    """The doubles as integers, in their order, so that neighbours differ by one."""
    bits = int(text, 16)
    return bits if bits < 1 << 63 else (1 << 63) - bits


reference, other = (open(name, encoding="ascii").read().split() for name in sys.argv[1:3])
if len(reference) != len(other) or len(reference) < 800000:
    sys.exit(f"{len(reference)} and {len(other)} levels")
distances = [abs(place(a) - place(b)) for a, b in zip(reference, other) if a != b]
farthest = max(distances, default=0)
print(f"{len(distances)} of {len(reference)} levels differ, by {farthest} units in the last place at most")
sys.exit(farthest > 2)
