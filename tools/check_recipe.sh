#!/usr/bin/env bash
# check_recipe.sh: a unit is added as CONTRIBUTING.md says, and everything knows it.
#
# A copy of the sources gets a unit of a new dimension, the pascal, by those edits and no others. Libraries
# and tool are built from it with the sanitizers, and read, convert and print the unit.
set -euo pipefail
cd "$(dirname "$0")/.."

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
tar -c CMakeLists.txt CMakePresets.json cmake include src docs LICENSE README.md examples | tar -x -C "$place"
cd "$place"

# insert FILE PATTERN LINE: puts LINE before the first line that matches.
insert() {
    local before
    before=$(wc -l < "$1")
    sed -i "0,/$2/s/^.*$2/$3\n&/" "$1"
    (( $(wc -l < "$1") == before + 1 )) || { echo "check_recipe: nothing in $1 matches $2"; exit 1; }
}

units=include/varnix/value/Units.h
code=$(sed -nE 's/^ *[A-Z_]+ = ([0-9]+),.*/\1/p' <(sed '/Unit_code_limit/q' $units) | sort -n | tail -n 1)
dimension=$(sed -nE 's/^ *[A-Z_]+ = ([0-9]+),.*/\1/p' <(sed -n '/^enum Dimension/,/Dimension_limit/p' $units) | tail -n 1)
insert $units 'Unit_code_limit  ' "    PASCAL = $((code + 1)), \/\/\/< pascal"
insert $units 'Dimension_limit  ' "    PRESSURE = $((dimension + 1)), \/\/\/< reference: pascal"
insert src/units/Unit_tables.h '(SYMBOL,  ' \
    '    (PASCAL, Unit_info(1.0, PRESSURE, PASCAL, PASCAL, Spelled("Pa", "pascals", "pa", "PA"), false))'
insert src/text/Unit_words.cpp 'constexpr Units One_symbol' 'constexpr Units One_pascal = {SPL_NONE, NO_PREFIX, {{PASCAL, 1}}};'
insert src/text/Unit_words.cpp '"meter",  ' '    {"pascal", \&One_pascal, name_form},'
insert src/measurement/Physical_units.h '    symbols, ' '    pressure,'
insert src/measurement/Physical_units.cpp '{SYMBOL,  ' '    {PASCAL, PRESSURE, Of(Base::pressure), {{0, 0, 0, 0, 0, 0, 0, 0}}},'
sed -i 's/"temperature", "time"}/"temperature", "time", "pressure"}/' src/text/Unit_kinds.cpp
grep -q '"pressure"' src/text/Unit_kinds.cpp || { echo 'check_recipe: no place for the name of a dimension'; exit 1; }

cmake --preset sanitizers -DVALUE_OBJECT_TESTS=OFF -DVALUE_OBJECT_EXAMPLES=OFF -DVALUE_OBJECT_INSTALL=OFF -DVALUE_OBJECT_PYTHON=OFF > /dev/null
cmake --build --preset sanitizers > build.log 2>&1 || { tail -n 30 build.log; exit 1; }

# expect ANSWER ARGUMENT...: what the tool prints.
expect() {
    local answer=$1
    shift
    build/sanitizers/value-object "$@" | diff -u <(echo "$answer") - || { echo "check_recipe: $*"; exit 1; }
}
expect '5000 Pa' convert '5 kPa' Pa
expect '0.0025 MPa' convert '2.5 kilopascals' MPa
expect '7 Pa/m' convert '7 pascals/meter' Pa/m
expect '12 m*Pa' compute '3 Pa * 4 m'
expect '5 kPa [4, 6]' convert '5000 Pa [4000, 6000]' kPa

# names WORD ARGUMENT...: what the tool prints, with its failures, has the word.
names() {
    local word=$1
    shift
    build/sanitizers/value-object "$@" > said.txt 2>&1 || true
    grep -qF "$word" said.txt || { echo "check_recipe: $* does not name $word:"; cat said.txt; exit 1; }
}
names 'Pa (pressure)' convert '5 Pa' V
names pascals units
echo 'A unit and a dimension added by the recipe are read, converted and printed'
