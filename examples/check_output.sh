#!/usr/bin/env bash
# check_output.sh EXPECTED COMMAND...: runs the command and compares its output with the file.
set -euo pipefail
expected=$1
shift
"$@" | diff -u "$expected" -
