#!/usr/bin/env bash
# check_load_order.sh LIBRARY: the modules' tables are built in the documented order.
#
# The loader calls the functions that .init_array lists, in their order. Each entry is filled in by a
# relocation that names the function's address; among the library's symbols it has a name that ends
# in its module's.
set -euo pipefail
library=$1
expected='Units_library Units Template_instantiations'

read -r start size < <(readelf -SW "$library" |
    sed -nE 's/^ *\[ *[0-9]+\] \.init_array +INIT_ARRAY +([0-9a-f]+) [0-9a-f]+ ([0-9a-f]+).*/\1 \2/p')
declare -A module_at
while read -r address _ name; do
    module=${name#_GLOBAL__sub_I_}
    module_at[$((16#$address))]=${module%.cpp}
done < <(nm "$library" | grep -E ' _GLOBAL__sub_I_(Units|Units_library|Template_instantiations)\.cpp$')

order=
while read -r offset address; do
    if (( 16#$offset >= 16#$start && 16#$offset < 16#$start + 16#$size )); then
        module=${module_at[$((16#$address))]:-}
        order+=${module:+ $module}
    fi
done < <(readelf -rW "$library" | awk '$3 ~ /_RELATIVE$/ { print $1, $4 }' | sort)

if [[ ${order# } != "$expected" ]]; then
    echo "The library builds its tables in the order:$order"
    echo "It must be: $expected. The order of the sources in src/CMakeLists.txt decides it."
    exit 1
fi
