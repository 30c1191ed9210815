#!/usr/bin/env bash
# check_layers.sh: calls run one way, so includes do too.
#
# Every folder of sources is a layer, and every public header belongs to one; an include that points to a
# higher layer fails the check, and so does a file that has none. Public headers know nothing of Boost or
# of src/. The companions and the tool reach the library by its public headers alone: what they include
# by name is their own, or lies in src/basics, which knows nothing of units, or in src/catalogue, which is data.
# Measurements may include src/enclosing too, which knows neither units nor measurements.
set -euo pipefail
cd "$(dirname "$0")/.."

# The layer of a public header, of a source, or of what a source includes.
layer_of() {
    case ${1#src/} in
        basics/*)                                                      echo 0 ;; # doubles, characters
        enclosing/*)                                                   echo 1 ;; # enclosing arithmetic
        varnix/value/export.h | varnix/value/exceptions.h)             echo 2 ;; # errors
        errors/* | exceptions.cpp)                                     echo 2 ;;
        varnix/value/Units.h | units/* | Units.cpp)                    echo 3 ;; # unit model, catalogue
        varnix/value/Engineering_units.* | catalogue/*)                echo 3 ;; # the units beyond the core's
        varnix/value/Units_library.h | Units_library.cpp)              echo 4 ;; # unit algebra
        conversion/*)                                                  echo 5 ;; # conversions
        varnix/value/Value_object.h | varnix/value/Value_converter.h)  echo 5 ;;
        value/* | Template_instantiations.cpp)                         echo 6 ;; # value objects
        varnix/value/[Tt]ext*.h | varnix/value/Unit_kinds.h | text/*)  echo 7 ;; # texts
        varnix/value/[Mm]easurement*.h | varnix/value/Levels.h)        echo 8 ;; # measurements
        varnix/value/Radio_formulas.h | measurement/*)                 echo 8 ;;
        value_object.h | c/* | tool/*)                                 echo 9 ;; # C, programs
        *) return 1 ;;
    esac
}

failures=0
fail() {
    echo "check_layers: $*"
    failures=$((failures + 1))
}

while read -r source; do
    own_layer=$(layer_of "${source#include/}") || { fail "$source has no layer in tools/check_layers.sh"; continue; }
    while read -r included; do
        # By its name alone a file includes what lies beside it.
        [[ $included == */* ]] || included=${source%/*}/$included
        included_layer=$(layer_of "$included") || { fail "$source includes $included, which has no layer"; continue; }
        (( included_layer <= own_layer )) || fail "$source points up to $included"
        [[ $included != *enclosing/* || $source =~ ^src/(enclosing|measurement|catalogue)/ ]] ||
            fail "$source includes $included, which is for measurements"
    done < <(sed -nE 's/^#include (<(varnix\/[^>]*|value_object.h)>|"([^"]*)").*/\2\3/p' "$source")
done < <(find include src -name '*.h' -o -name '*.cpp' | sort)

grep -nE '#include (<boost/|")' include/varnix/value/*.h &&
    fail 'a public header includes only public headers and the standard library'
grep -nE '#include "' examples/*.cpp &&
    fail 'an example includes only public headers'

for folder in src/enclosing src/text src/measurement src/c src/tool python/binding; do
    while IFS='"' read -r source included _; do
        [[ -e $folder/$included || $included == @(basics|catalogue|enclosing)/* ]] || fail "${source%%:*} includes $included, which is not in $folder"
    done < <(grep -E '^#include "' $folder/*.h $folder/*.cpp)
    grep -n '#include <boost/' $folder/*.h $folder/*.cpp &&
        fail "$folder does without Boost"
done

(( failures == 0 ))
