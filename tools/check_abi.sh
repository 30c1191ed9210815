#!/usr/bin/env bash
# check_abi.sh check|accept BUILD LIBRARY BASELINE: the binary interface is what programs were linked
# against. LIBRARY is libValueObject, libValueObjectText, libValueObjectMeasurement or libValueObjectC.
#
# The baseline records the exported functions, variables and types. `check` fails when one is gone or
# changed, or when a name outside Varnix::Value is exported (of the library for C, another than vo_...);
# `accept` records the interface anew.
set -euo pipefail
cd "$(dirname "$0")/.."
action=$1
library=$2/$3.so
baseline=$4

own_names='((typeinfo( name)?|vtable|VTT|(non-)?virtual thunk|construction vtable) (for|to) )?Varnix::Value::'
[[ $3 != libValueObjectC ]] || own_names='vo_[a-z_]+@@'
if nm -DC --defined-only "$library" |
    sed -E 's/^[0-9a-f]* . //' |
    grep -vE "^$own_names|^ValueObject(Text|Measurement|C)?_[0-9]+\$"; then
    echo 'The names above are exported, but should not be: see cmake/exports*.map.'
    exit 1
fi

current=$(mktemp)
trap 'rm -f "$current"' EXIT
abidw --suppressions tools/abi_suppressions.ini --headers-dir include --no-corpus-path --no-comp-dir-path --no-show-locs --exported-interfaces-only \
    --drop-undefined-syms --type-id-style hash --no-parameter-names "$library" > "$current"

if [[ $action == accept ]]; then
    mkdir -p "$(dirname "$baseline")"
    cp "$current" "$baseline"
    echo "recorded in $baseline"
    exit
fi

# Bit 3 of abidiff's exit status: an incompatible change. Bit 2: any change.
status=0
difference=$(abidiff --no-added-syms "$baseline" "$current") || status=$?
if (( status != 0 )); then
    printf '%s\n\n' "$difference"
    echo 'The binary interface has changed in a way that breaks programs built before.'
    echo 'Undo the change; or, where it is meant, raise the major version in CMakeLists.txt (and with it'
    echo 'the SONAME), rename the version in cmake/exports*.map, and record the new interface: ./dev accept-abi'
    exit 1
fi
added=$(abidiff "$baseline" "$current") || true
if grep -q 'Added' <<< "$added" && ! grep -qE ' 0 Added function.* 0 Added variable' <(tr '\n' ' ' <<< "$added"); then
    printf '%s\n\n' "$added"
    echo 'The binary interface has grown. Where that is meant, record it: ./dev accept-abi'
    exit 1
fi
echo "the binary interface is that of $baseline"
