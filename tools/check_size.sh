#!/usr/bin/env bash
# check_size.sh ARMHF_BUILD: the stripped libraries for armhf stay within their budgets.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
failures=0

# check LIBRARY BUDGET: its bytes of text and data; the file itself grows in steps of 4 KB.
check() {
    local library=$1 budget=$2 text data bss _ bytes
    arm-linux-gnueabihf-strip -o "$stripped" "$build/$library.so"
    read -r text data bss _ < <(size "$stripped" | tail -n 1)
    bytes=$((text + data))
    echo "armhf: $library, text and data $bytes bytes of $budget; text $text, data $data, bss $bss;" \
        "the file $(stat -c %s "$stripped"); $(readelf -rW "$stripped" | grep -cE ' R_ARM_') dynamic relocations"
    if (( bytes > budget )); then
        echo "$library is too large. See where the bytes go: nm --size-sort -CS $build/$library.so"
        failures=$((failures + 1))
    fi
}

check libValueObject            98600 # of which Debian's hardening takes 4600
check libValueObjectMeasurement 161000 # of which the rows of units take 16000
check libValueObjectC            23600 # a third of it are the names of what it calls
echo "heap at load: $(qemu-arm -L /usr/arm-linux-gnueabihf "$build/tests/load_cost")"
(( failures == 0 ))
