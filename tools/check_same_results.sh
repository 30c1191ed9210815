#!/usr/bin/env bash
# check_same_results.sh: the library gives the same numbers on every processor, to the last digit; levels to
# within two units in the last place.
#
# print_results prints every pair of the named units through every operation, in hexadecimal; each
# build for ARM must print what the one for x86-64 prints, of measurements as well. Levels go through pow and log10 of the C library,
# which takes another path on ARM, and on x86-64 where the processor has no fused multiply-add: that is
# tried by hiding it from the C library.
set -euo pipefail
cd "$(dirname "$0")/.."

reference=$(mktemp)
trap 'rm -f "$reference"' EXIT
build/release/tests/print_results > "$reference"
build/release/tests/print_results measurements >> "$reference"
lines=$(wc -l < "$reference")
(( lines > 400000 )) || { echo "print_results printed $lines lines only"; exit 1; }

compare() {
    local preset=$1 triplet=$2
    { qemu-arm -L "/usr/$triplet" "build/$preset/tests/print_results"
      qemu-arm -L "/usr/$triplet" "build/$preset/tests/print_results" measurements; } |
        diff "$reference" - > "build/$preset/differences.txt" ||
        { echo "$preset differs, see build/$preset/differences.txt:"; head -n 4 "build/$preset/differences.txt"; exit 1; }
    echo "$preset: all $lines lines are those of x86-64"
}

levels=$(mktemp -d)
trap 'rm -rf "$reference" "$levels"' EXIT
build/release/tests/print_results levels > "$levels/reference"

compare_levels() {
    local name=$1
    shift
    "$@" > "$levels/other"
    echo "$name: $(tools/compare_levels.py "$levels/reference" "$levels/other")"
}

compare armhf arm-linux-gnueabihf
compare armhf-vfpv4 arm-linux-gnueabihf
compare armel arm-linux-gnueabi

compare_levels armhf qemu-arm -L /usr/arm-linux-gnueabihf build/armhf/tests/print_results levels
if grep -qw fma /proc/cpuinfo; then
    compare_levels 'x86-64 without fused multiply-add' \
        env GLIBC_TUNABLES=glibc.cpu.hwcaps=-FMA,-AVX2,-AVX2_Usable,-FMA4 build/release/tests/print_results levels
else
    echo 'This processor has no fused multiply-add: there is no second path to compare with'
fi
