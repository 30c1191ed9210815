#!/usr/bin/env bash
# check_layers.sh: calls run one way, so includes do too.
#
# Every source has its layer here; an include that points to a higher layer fails the check, and so
# does a source that has none. Public headers know nothing of Boost or of src/; programs know nothing
# but the public headers. The companion for texts stands above all of the library, of which it knows the
# public headers alone; the tool stands on both, and is a program like any other.
set -euo pipefail
cd "$(dirname "$0")/.."

layer_of() {
    case ${1##*/} in
        Text_*.h | text*.h | Unit_kinds.h)                           echo 5 ;; # texts, with src/text/
        export.h)                                                    echo 0 ;; # visibility
        exceptions.h | exceptions.cpp | Throw.h)                     echo 1 ;; # errors
        Units.h | Units.cpp | Separators.h | Tuples.h | Unit_*.h)    echo 2 ;; # unit model, catalogue
        Units_library.h | Units_library.cpp)                         echo 3 ;; # unit algebra
        Value_*.h | Conversion_*.h | Number_formulas.h | Array_conversion.* | Template_instantiations.cpp)
                                                                     echo 4 ;; # value objects
        *) return 1 ;;
    esac
}

failures=0
fail() {
    echo "check_layers: $*"
    failures=$((failures + 1))
}

for source in include/varnix/value/*.h src/*.h src/*.cpp; do
    own_layer=$(layer_of "$source") || { fail "$source has no layer in tools/check_layers.sh"; continue; }
    while read -r included; do
        included_layer=$(layer_of "$included") || { fail "$source includes $included, which has no layer"; continue; }
        (( included_layer <= own_layer )) || fail "$source points up to $included"
    done < <(sed -nE 's/^#include (<(varnix\/[^>]*)>|"([^"]*)").*/\2\3/p' "$source")
done

grep -nE '#include (<boost/|")' include/varnix/value/*.h &&
    fail 'a public header includes only public headers and the standard library'
grep -nE '#include "' examples/*.cpp &&
    fail 'an example includes only public headers'

# The companion reaches the library by its public headers: what it includes by name alone is its own.
while IFS='"' read -r source included _; do
    [[ -e src/text/$included ]] || fail "${source%%:*} includes $included, which is not in src/text"
done < <(grep -E '^#include "' src/text/*.h src/text/*.cpp)
grep -n '#include <boost/' src/text/*.h src/text/*.cpp &&
    fail 'the companion for texts does without Boost'

# So does the tool, which stands on both.
while IFS='"' read -r source included _; do
    [[ -e src/tool/$included ]] || fail "${source%%:*} includes $included, which is not in src/tool"
done < <(grep -E '^#include "' src/tool/*.h src/tool/*.cpp)
grep -n '#include <boost/' src/tool/*.h src/tool/*.cpp &&
    fail 'the tool does without Boost'

(( failures == 0 ))
