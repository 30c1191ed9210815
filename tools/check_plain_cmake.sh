#!/usr/bin/env bash
# check_plain_cmake.sh: what docs/building.md says of building with cmake alone works, line by line.
#
# The lines are run in a copy of the sources, with a home folder of their own. What they install is then
# moved, and the tool must start from there with nothing that tells the loader where the libraries are.
set -euo pipefail
cd "$(dirname "$0")/.."

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
mkdir "$place/home"
tools/copy_sources.sh "$place/copy"

# The block of commands behind the heading "Building".
sed -n '/^## Building/,/^## /p' docs/building.md | sed -n '/^```$/,/^```$/p' | sed '/^```$/d' > "$place/lines"
(( $(wc -l < "$place/lines") >= 6 )) || { echo 'check_plain_cmake: docs/building.md shows no commands'; exit 1; }
cat "$place/lines"
(
    cd "$place/copy"
    HOME=$place/home bash -eu "$place/lines"
    grep -q 'CMAKE_BUILD_TYPE:STRING=RelWithDebInfo' build/CMakeCache.txt
)
mv "$place/home/valueobject" "$place/moved"
env -u LD_LIBRARY_PATH "$place/moved/bin/value-object" convert '30 dBm' W | diff -u <(echo '1 W') -
file_kind=$(readelf -h "$place/copy/build-arm/libValueObject.so" | sed -nE 's/^ *Machine: *//p')
[[ $file_kind == ARM ]] || { echo "check_plain_cmake: cross-compiled for $file_kind"; exit 1; }
echo 'The lines of docs/building.md work, and the tool starts from wherever it is moved'
