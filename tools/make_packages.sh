#!/usr/bin/env bash
# make_packages.sh BUILD TO: makes the Debian packages of a build in the folder TO.
#
# They are the same, byte for byte, whenever and wherever they are made from the same sources: time
# stamps come from SOURCE_DATE_EPOCH, which is that of the last commit unless it is set.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
to=$2

epoch=$(git log -1 --format=%ct 2> /dev/null || stat -c %Y CHANGELOG.md)
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$epoch}
umask 022
mkdir -p "$to"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
version=$(sed -nE 's/^set\(CPACK_PACKAGE_VERSION "(.*)"\)$/\1/p' "$build/CPackConfig.cmake")
library="libvalueobject${version%%.*} (>= $version)"
libraries="$library, libvalueobjecttext${version%%.*} (>= $version)"
all_libraries="$libraries, libvalueobjectmeasurement${version%%.*} (>= $version)"
tool=()
if [[ -e $build/value-object ]]; then
    tool=(-D CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS="$(tools/debian_depends.sh "$build/value-object"), $all_libraries")
fi
python=()
module=$(find "$build/python/varnix_value" -name '_native*.so' 2> /dev/null || true)
if [[ -n $module ]]; then
    # The module is for this version of Python, as its name says, and for numpy's binary interface.
    numpy_abi=$(dpkg-query -W -f '${Provides}' python3-numpy | grep -o 'python3-numpy-abi[0-9]*')
    minor=$(sed -E 's/.*cpython-3([0-9]+)-.*/\1/' <<< "$module")
    python=(-D CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS="$(tools/debian_depends.sh "$module"), $all_libraries, \
python3 (>= 3.$minor~), python3 (<< 3.$((minor + 1))), $numpy_abi, python3-numpy (>= 1:1.22)")
fi
cpack --config "$build/CPackConfig.cmake" -B "$work" \
    -D CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS="$(tools/debian_depends.sh "$build/libValueObject.so")" \
    -D CPACK_DEBIAN_TEXT_RUNTIME_PACKAGE_DEPENDS="$(tools/debian_depends.sh "$build/libValueObjectText.so"), $library" \
    -D CPACK_DEBIAN_MEASUREMENT_RUNTIME_PACKAGE_DEPENDS="$(tools/debian_depends.sh "$build/libValueObjectMeasurement.so"), $libraries" \
    -D CPACK_DEBIAN_C_RUNTIME_PACKAGE_DEPENDS="$(tools/debian_depends.sh "$build/libValueObjectC.so"), $all_libraries" \
    "${tool[@]}" "${python[@]}" > "$work/log" ||
    { cat "$work/log"; exit 1; }

# CPack 3.25 has no setting for this field: libraries of several processors may be installed together,
# and one tool serves programs of every processor.
for package in "$work"/*.deb; do
    dpkg-deb -R "$package" "$work/content"
    multi_arch=same
    [[ ${package##*/} != value-object_* ]] || multi_arch=foreign
    sed -i "/^Architecture:/a Multi-Arch: $multi_arch" "$work/content/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$work/content" "$to/${package##*/}" > "$work/log"
    rm -rf "$work/content"
done
