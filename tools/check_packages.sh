#!/usr/bin/env bash
# check_packages.sh AMD64_BUILD ARMHF_BUILD: the Debian packages are what people can install and trust.
set -euo pipefail
cd "$(dirname "$0")/.."
amd64=$1
armhf=$2

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
step() {
    echo "-- $*"
}

step 'making the packages'
rm -rf build/packages
tools/make_packages.sh "$amd64" build/packages
tools/make_packages.sh "$armhf" build/packages
tools/make_documentation_package.sh build/packages
for package in build/packages/*.deb; do
    echo "${package##*/}: $(dpkg-deb -f "$package" Depends)"
done

step 'making those of amd64 again, from a copy of the sources elsewhere'
tools/copy_sources.sh "$place/copy"
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2> /dev/null || stat -c %Y CHANGELOG.md)
export SOURCE_DATE_EPOCH
(
    cd "$place/copy"
    export CCACHE_DISABLE=1 # or the objects compared would be the same ones
    cmake --preset release -DVALUE_OBJECT_TESTS=OFF -DVALUE_OBJECT_EXAMPLES=OFF > /dev/null
    cmake --build --preset release > /dev/null
    tools/make_packages.sh build/release "$place/again"
    tools/make_documentation_package.sh "$place/again"
)
for package in "$place"/again/*.deb; do
    cmp "$package" "build/packages/${package##*/}"
done

# hardened FILE: Debian's linker flags, a position-independent file, and the stack protector. What is
# looked for is read to its end, as a pipe that is closed early fails.
hardened() {
    local file=$1
    readelf -hW "$file" | grep 'Type: *DYN' && readelf -lW "$file" | grep GNU_RELRO &&
        readelf -dW "$file" | grep BIND_NOW && readelf -sW "$file" | grep __stack_chk_fail
}

step 'looking for what hardens them'
count=0
for package in build/packages/*_{amd64,armhf}.deb; do
    dpkg-deb -x "$package" "$place/hardened"
done
while read -r file; do
    hardened "$file" > /dev/null || { echo "$file is not hardened"; exit 1; }
    count=$((count + 1))
done < <(find "$place/hardened" -type f \( -name '*.so*' -o -path '*/bin/*' \))
fortified=$(find "$place/hardened" -type f -path '*/bin/*' -exec readelf -sW {} + | grep -c '_chk@')
echo "$count files, $fortified fortified calls of the tool"
(( count >= 10 && fortified > 0 ))

step 'asking lintian'
lintian --allow-root --fail-on error build/packages/*.deb

# What lies below FOLDER runs the README's program and one that reads texts, built with COMPILER, and
# the tool; the rest runs them.
expect_program_below() {
    local folder=$1 triplet=$2 compiler=$3
    shift 3
    "$compiler" -std=c++17 tests/install/consumers/core_consumer.cpp -I"$folder/usr/include" -L"$folder/usr/lib/$triplet" -lValueObject \
        -o "$place/program"
    "$@" "$place/program" | diff -u examples/expected/value_objects.txt -
    "$compiler" -std=c++17 tests/install/consumers/text_consumer.cpp -I"$folder/usr/include" -L"$folder/usr/lib/$triplet" \
        -lValueObjectText -lValueObject -o "$place/program"
    "$@" "$place/program" '30 dBm' | diff -u <(echo '30 dBm is a power') -
    "$compiler" -std=c++17 tests/install/consumers/measurement_consumer.cpp -I"$folder/usr/include" \
        -L"$folder/usr/lib/$triplet" -lValueObjectMeasurement -lValueObjectText -lValueObject -o "$place/program"
    "$@" "$place/program" | diff -u <(echo '2.000 W [1.921, 2.082]') -
    "${compiler/g++/gcc}" -std=c99 examples/c/sensor.c -I"$folder/usr/include" -L"$folder/usr/lib/$triplet" \
        -Wl,-rpath-link,"$folder/usr/lib/$triplet" -lValueObjectC -o "$place/program"
    "$@" "$place/program" | diff -u examples/expected/sensor.txt -
    "$@" "$folder/usr/bin/value-object" convert '30 dBm' W | diff -u <(echo '1 W') -
}

step 'installing those of amd64 into an empty root'
mkdir -p "$place/root/var/lib/dpkg"
touch "$place/root/var/lib/dpkg/status"
# Dependencies are not there, and neither is the ldconfig that a trigger asks for.
dpkg --root="$place/root" --force-depends --force-not-root --no-triggers \
    --install build/packages/*_{amd64,all}.deb > "$place/dpkg.log" 2>&1 || { cat "$place/dpkg.log"; exit 1; }
expect_program_below "$place/root" x86_64-linux-gnu g++ \
    env LD_LIBRARY_PATH="$place/root/usr/lib/x86_64-linux-gnu"
[[ -s $place/root/usr/share/doc/libvalueobject-doc/html/index.html ]]
LD_LIBRARY_PATH=$place/root/usr/lib/x86_64-linux-gnu PYTHONPATH=$place/root/usr/lib/python3/dist-packages \
    /usr/bin/python3 -B -c 'from importlib.metadata import version; print(version("varnix-value"))' |
    diff -u <(dpkg-deb -f build/packages/python3-varnix-value_*_amd64.deb Version | sed 's/-.*//') -
LD_LIBRARY_PATH=$place/root/usr/lib/x86_64-linux-gnu PYTHONPATH=$place/root/usr/lib/python3/dist-packages \
    /usr/bin/python3 -B -c 'from varnix_value import Quantity; print(Quantity("30 dBm").to("W"))' | diff -u <(echo '1 W') -

step 'running that of armhf under qemu'
for package in build/packages/*_armhf.deb; do
    dpkg-deb -x "$package" "$place/armhf"
done
expect_program_below "$place/armhf" arm-linux-gnueabihf arm-linux-gnueabihf-g++ \
    qemu-arm -L /usr/arm-linux-gnueabihf -E LD_LIBRARY_PATH="$place/armhf/usr/lib/arm-linux-gnueabihf"
