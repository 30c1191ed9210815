#!/usr/bin/env bash
# check_readme.sh README SOURCE...: the first C++ blocks of the README are the sources, to the letter.
set -euo pipefail
readme=$1
shift
number=0
for source in "$@"; do
    number=$((number + 1))
    awk -v wanted="$number" '/^```cpp$/ { block++; inside = block == wanted; next } /^```$/ { inside = 0 } inside' "$readme" |
        diff -u "$source" -
done
