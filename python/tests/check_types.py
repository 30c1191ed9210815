#!/usr/bin/env python3
"""The package and its examples keep to their types, and the stubs to the compiled module."""

import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
MYPY = [sys.executable, '-m', 'mypy']
NO_CACHE = '--cache-dir=/dev/null'

subprocess.run([*MYPY, NO_CACHE, '--strict', '-p', 'varnix_value'], check=True)
subprocess.run([*MYPY, NO_CACHE, '--strict', HERE / 'typed_use.py'], check=True)
# Each line of the list is a fact of how pybind11 makes classes, which a stub cannot say.
subprocess.run(
    [sys.executable, '-m', 'mypy.stubtest', 'varnix_value', '--allowlist', HERE / 'stubtest_allowlist.txt'],
    check=True,
)
