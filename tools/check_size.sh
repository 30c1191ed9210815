#!/usr/bin/env bash
# check_size.sh ARMHF_BUILD: the stripped library for armhf stays within its budget.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

budget=93854 # bytes of text and data: the file itself grows in steps of 4 KB

stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
arm-linux-gnueabihf-strip -o "$stripped" "$build/libValueObject.so"
read -r text data bss _ < <(size "$stripped" | tail -n 1)
bytes=$((text + data))
relocations=$(readelf -rW "$stripped" | grep -cE ' R_ARM_')
heap=$(qemu-arm -L /usr/arm-linux-gnueabihf "$build/tests/load_cost")
echo "armhf: text and data $bytes bytes of $budget; text $text, data $data, bss $bss;" \
    "the file $(stat -c %s "$stripped"); $relocations dynamic relocations; heap at load: $heap"

if (( bytes > budget )); then
    echo "The library is too large. See where the bytes go: nm --size-sort -CS $build/libValueObject.so"
    exit 1
fi
