#!/usr/bin/env bash
# check_same_results.sh: the library gives the same numbers on every processor, to the last digit.
#
# print_results prints every pair of the named units through every operation, in hexadecimal; each
# build for ARM must print what the one for x86-64 prints.
set -euo pipefail
cd "$(dirname "$0")/.."

reference=$(mktemp)
trap 'rm -f "$reference"' EXIT
build/release/tests/print_results > "$reference"
lines=$(wc -l < "$reference")
(( lines > 8000 )) || { echo "print_results printed $lines lines only"; exit 1; }

compare() {
    local preset=$1 triplet=$2
    qemu-arm -L "/usr/$triplet" "build/$preset/tests/print_results" |
        diff "$reference" - > "build/$preset/differences.txt" ||
        { echo "$preset differs, see build/$preset/differences.txt:"; head -n 4 "build/$preset/differences.txt"; exit 1; }
    echo "$preset: all $lines lines are those of x86-64"
}

compare armhf arm-linux-gnueabihf
compare armhf-vfpv4 arm-linux-gnueabihf
compare armel arm-linux-gnueabi
