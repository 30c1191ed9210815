#!/usr/bin/env bash
# check_recipe.sh: a unit is added as CONTRIBUTING.md says, and everything knows it.
#
# A copy of the sources gets three units by the edits named there and no others: one of a known quantity, whose
# size has a prime number that no other size has; one of a new quantity; and the reference of a level with a name
# of its own. Libraries, tool and tests are built from it with the sanitizers. They read, convert and print the
# units, read back what they have written, and pass the tests, which say that no other text has changed its meaning.
set -euo pipefail
cd "$(dirname "$0")/.."

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
tools/copy_sources.sh "$place"
cd "$place"

# append FILE PATTERN LINE: puts LINE behind the last line that matches.
append() {
    local last
    last=$(grep -n "$2" "$1" | tail -n 1 | cut -d : -f 1)
    [[ -n $last ]] || { echo "check_recipe: nothing in $1 matches $2"; exit 1; }
    sed -i "${last}a\\$3" "$1"
}

# replace FILE TEXT WITH: the one occurrence of TEXT.
replace() {
    (( $(grep -cF "$2" "$1") == 1 )) || { echo "check_recipe: $1 does not have '$2' once"; exit 1; }
    sed -i "s/$2/$3/" "$1"
}

# ---- The recipe

units=include/varnix/value/Engineering_units.def
rows=tests/cases/engineering_units.txt

# next_code MACRO: the one behind the last.
next_code() {
    echo $(($(sed -nE "s/^$1\(([0-9]+),.*/\1/p" $units | tail -n 1) + 1))
}

# add_unit CONSTANT QUANTITY SIZE SYMBOL NAME PREFIXES SOURCE
add_unit() {
    append $units '^VARNIX_VALUE_UNIT(' \
        "VARNIX_VALUE_UNIT($(next_code VARNIX_VALUE_UNIT), $1, $2, \"$3\", \"$4\", \"$5\", \"\", \"\", \"\", $6, \"$7\")"
}

smoot=$(next_code VARNIX_VALUE_UNIT)
add_unit SMOOT LENGTH 1.7018 smoot smoots none '67 in'
append $rows '^[0-9]' "$smoot  smoot  smoots  length  m  67*0.0254  none"

append $units '^VARNIX_VALUE_QUANTITY(' \
    "VARNIX_VALUE_QUANTITY($(next_code VARNIX_VALUE_QUANTITY), REFRACTIVE_POWER, \"refractive power\", 0, 0, -1, 0, 0, 0, 0, 0, 0)"
add_unit DIOPTER REFRACTIVE_POWER 1 dpt diopters usual '1/m'
append $rows '^[0-9]' "$((smoot + 1))  dpt  diopters  refractive power  1/m  1  common"
replace tools/make_units_page.py "'ILLUMINANCE']" "'ILLUMINANCE', 'REFRACTIVE_POWER']"

append src/catalogue/Level_references.h '{"dBsm"' \
    '    {"dBsf", {SPL_DB, NO_PREFIX, {{FOOT, 2}}}, true}, // of a radar cross section'

tools/make_units_page.py
# shellcheck disable=SC2016
for row in '| `smoot` | `smoots` |  | none | 1.7018 | 67 in |' '### Refractive power, in dpt'; do
    grep -xF "$row" docs/units.md > /dev/null || { echo "check_recipe: docs/units.md lacks $row"; exit 1; }
done

# ---- The tests of the copy

cmake --preset sanitizers -DVALUE_OBJECT_EXAMPLES=OFF -DVALUE_OBJECT_INSTALL=OFF -DVALUE_OBJECT_PYTHON=OFF > /dev/null
programs=(value_object_tests value_object_text_tests text_formatting_tests ways_out_tests measurement_tests
    measurement_inside_tests written_numbers_tests c_test)
cmake --build --preset sanitizers --target value-object value_object_inside_tests "${programs[@]}" > build.log 2>&1 ||
    { tail -n 30 build.log; exit 1; }
for program in value_object_inside_tests "${programs[@]}"; do
    build/sanitizers/tests/"$program" > said.txt 2>&1 || { tail -n 40 said.txt; echo "check_recipe: $program fails"; exit 1; }
done
ctest --test-dir build/sanitizers --parallel "$(nproc)" -R '^(tool|properties)\.' -E 'completion|streams|truths|peer_sizes|afresh' \
    --output-on-failure > said.txt 2>&1 ||
    { tail -n 60 said.txt; echo 'check_recipe: the tests of the tool fail'; exit 1; }

# ---- What the tool makes of the new units

tool=build/sanitizers/value-object

# expect ANSWER ARGUMENT...: what the tool prints, and reads back as the same.
expect() {
    local answer=$1 unit
    shift
    unit=$(sed -E 's/^[^ ]+ //; s/ \[.*//' <<< "$answer")
    "$tool" "$@" | diff -u <(echo "$answer") - || { echo "check_recipe: $*"; exit 1; }
    "$tool" convert "$answer" "$unit" | diff -u <(echo "$answer") - || { echo "check_recipe: $answer is read as another"; exit 1; }
}
expect '3.4036 m' convert '2 smoot' m
expect '134 in' convert '2 smoots' in
expect '364.4 smoot' convert '620.13592 m' smoot
expect '5 smoot [4, 6]' convert '8.509 m [6.8072, 10.2108]' smoot
expect '6 smoot/s' compute '12 smoot / 2 s'
expect '0.5 m' compute '1 / 2 dpt' --to m
expect '2.5 dpt' convert '2500 millidiopters' dpt
expect '7 kdpt' convert '7000 1/m' kdpt
expect '10.2108 %' compute '3 mdpt * 20 smoot' --to %
expect '3 dpt' compute '2 dpt + 100 1/hm'
expect '100 ft^2' convert '20 dBsf' ft^2
expect '20 dBsf' convert '100 ft^2' 'dB(ft^2)'
expect '23 dBsf' compute '20 dBsf + 3 dB'

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
names 'dpt (refractive power)' convert '5 dpt' V
# No prefix was named for the one, and not all for the other: neither becomes a product with the new unit.
names ksmoot convert '5 ksmoot' m
names hdpt convert '5 hdpt' 1/m
"$tool" units | grep -F smoots > /dev/null || { echo 'check_recipe: the units lack the smoot'; exit 1; }
echo 'Two units, a quantity and a level added by the recipe are read, converted, printed and read back, and the tests pass'
