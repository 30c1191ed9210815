#!/usr/bin/env bash
# check_readme.sh README SOURCE: the first C++ block of the README is the source, to the letter.
set -euo pipefail
awk '/^```cpp$/ { inside = 1; next } /^```$/ && inside { exit } inside' "$1" | diff -u "$2" -
