#!/usr/bin/env bash
# check_recipe.sh: a unit is added as CONTRIBUTING.md says, and everything knows it.
#
# A copy of the sources gets a unit of a new dimension, the pascal, by those edits and no others. Libraries,
# tool and tests are built from it with the sanitizers. They read, convert and print the unit, read back what
# they have written, and pass the tests, which say that no other text has changed its meaning.
set -euo pipefail
cd "$(dirname "$0")/.."

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
tools/copy_sources.sh "$place"
cd "$place"

# insert FILE PATTERN LINE: puts LINE before the first line that matches.
insert() {
    local before
    before=$(wc -l < "$1")
    sed -i "0,/$2/s/^.*$2/$3\n&/" "$1"
    (( $(wc -l < "$1") == before + 1 )) || { echo "check_recipe: nothing in $1 matches $2"; exit 1; }
}

# remove FILE PATTERN: removes the lines that match.
remove() {
    grep -q "$2" "$1" || { echo "check_recipe: nothing in $1 matches $2"; exit 1; }
    sed -i "/$2/d" "$1"
}

# replace FILE TEXT WITH: the one occurrence of TEXT.
replace() {
    (( $(grep -cF "$2" "$1") == 1 )) || { echo "check_recipe: $1 does not have '$2' once"; exit 1; }
    sed -i "s/$2/$3/" "$1"
}

# ---- The recipe

units=include/varnix/value/Units.h
code=$(($(sed -nE 's/^ *SYMBOL = ([0-9]+),.*/\1/p' $units) + 1))
dimension=$(($(sed -nE 's/^ *TIME = ([0-9]+),.*/\1/p' $units) + 1))
sed -i "s/^    SYMBOL = .*/&\n    PASCAL = $code, \/\/\/< pascal/; s/^    TIME = .*/&\n    PRESSURE = $dimension, \/\/\/< reference: pascal/" $units
replace $units 'Unit_code_limit = SYMBOL + 1' 'Unit_code_limit = PASCAL + 1'
replace $units 'Dimension_limit = TIME + 1' 'Dimension_limit = PRESSURE + 1'
insert src/units/Unit_tables.h '(SYMBOL,  ' \
    '    (PASCAL, Unit_info(1.0, PRESSURE, PASCAL, PASCAL, Spelled("Pa", "pascals", "pa", "PA"), false))'
insert src/text/Unit_words.cpp 'constexpr Units One_symbol' 'constexpr Units One_pascal = {SPL_NONE, NO_PREFIX, {{PASCAL, 1}}};'
insert src/text/Unit_words.cpp '"meter",  ' '    {"pascal", \&One_pascal, name_form},'
insert src/measurement/Physical_units.h '    symbols, ' '    pressure,'
insert src/measurement/Physical_units.cpp '{SYMBOL,  ' '    {PASCAL, PRESSURE, Of(Base::pressure), {{0, 0, 0, 0, 0, 0, 0, 0}}},'
replace src/text/Unit_kinds.cpp '"temperature", "time"}' '"temperature", "time", "pressure"}'
# It is refused no longer.
remove src/text/Foreign_units.cpp '{"Pa", \|{"pascal", '
remove tests/cases/refused_texts.txt '^unit Pa !'
insert tests/cases/catalogue.txt 'unit  33  ' "unit $code 1 $dimension $code factor Pa pascals pa PA"
replace tests/tool/cases/units.txt 'current, temperature, data size' 'current, temperature, data size, pressure'

# ---- The tests of the copy

cmake --preset sanitizers -DVALUE_OBJECT_EXAMPLES=OFF -DVALUE_OBJECT_INSTALL=OFF -DVALUE_OBJECT_PYTHON=OFF > /dev/null
programs=(value_object_tests value_object_text_tests text_formatting_tests measurement_tests c_test)
cmake --build --preset sanitizers --target value-object value_object_inside_tests "${programs[@]}" > build.log 2>&1 ||
    { tail -n 30 build.log; exit 1; }
for program in value_object_inside_tests "${programs[@]}"; do
    build/sanitizers/tests/"$program" > said.txt 2>&1 || { tail -n 40 said.txt; echo "check_recipe: $program fails"; exit 1; }
done
ctest --test-dir build/sanitizers --parallel "$(nproc)" -R '^(tool|properties)\.' -E 'completion|streams|truths' \
    --output-on-failure > said.txt 2>&1 ||
    { tail -n 60 said.txt; echo 'check_recipe: the tests of the tool fail'; exit 1; }

# ---- What the tool makes of the new unit

tool=build/sanitizers/value-object

# expect ANSWER ARGUMENT...: what the tool prints, and reads back as the same.
expect() {
    local answer=$1 unit
    shift
    unit=$(sed -E 's/^[^ ]+ //; s/ \[.*//' <<< "$answer")
    "$tool" "$@" | diff -u <(echo "$answer") - || { echo "check_recipe: $*"; exit 1; }
    "$tool" convert "$answer" "$unit" | diff -u <(echo "$answer") - || { echo "check_recipe: $answer is read as another"; exit 1; }
}
expect '5000 Pa' convert '5 kPa' Pa
expect '0.0025 MPa' convert '2.5 kilopascals' MPa
expect '7 Pa/m' convert '7 pascals/meter' Pa/m
expect '12 m*Pa' compute '3 Pa * 4 m'
expect '6 sPa' compute '3 Pa * 2 s'
expect '6 /Pa' compute '6 / 1 Pa'
expect '5 kPa [4, 6]' convert '5000 Pa [4000, 6000]' kPa

# names WORD ARGUMENT...: what the tool refuses, and names in its refusal.
names() {
    local word=$1
    shift
    if "$tool" "$@" > said.txt 2>&1; then
        echo "check_recipe: $* is not refused:"
        cat said.txt
        exit 1
    fi
    grep -qF "$word" said.txt || { echo "check_recipe: $* does not name $word:"; cat said.txt; exit 1; }
}
names 'Pa (pressure)' convert '5 Pa' V
# No hecto, and kelvin for kilo: neither becomes a product with the new unit.
names hPa convert '2026 hPa' Pa
names KPa convert '5 KPa' Pa
"$tool" units | grep -F pascals > /dev/null || { echo 'check_recipe: the units lack the pascal'; exit 1; }
echo 'A unit and a dimension added by the recipe are read, converted, printed and read back, and the tests pass'
