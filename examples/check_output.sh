#!/usr/bin/env bash
# check_output.sh PROGRAM EXPECTED: runs the program and compares its output with the file.
set -euo pipefail
"$1" | diff -u "$2" -
