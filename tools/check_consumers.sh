#!/usr/bin/env bash
# check_consumers.sh BUILD SHARED: projects of other people build and run against the library.
#
# They are a program on each library, built outside this tree: by find_package and by pkg-config from what
# BUILD installs, moved to another place first, and by add_subdirectory from the sources. SHARED is ON
# or OFF, as BUILD was configured.
set -euo pipefail
cd "$(dirname "$0")/.."
source=$PWD
build=$(realpath "$1")
shared=$2

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
DESTDIR=$place/first cmake --install "$build" --prefix /opt/valueobject > /dev/null
mv "$place/first/opt/valueobject" "$place/moved"
installed=$place/moved
libraries=$(dirname "$(find "$installed" -name 'libValueObject.*' | head -n 1)")

if grep -rIl -e "$source" -e "$place" "$installed"; then
    echo 'check_consumers: these installed files hold a path of this machine'
    exit 1
fi
for library in libValueObject{,Text,Measurement,C}.so; do
    if [[ $shared == ON ]] && readelf -d "$libraries/$library" | grep -E 'RPATH|RUNPATH'; then
        echo "check_consumers: the installed $library has a run path"
        exit 1
    fi
done

expect_output() {
    LD_LIBRARY_PATH=$libraries "$1/consumer" | diff -u "$source/examples/expected/value_objects.txt" -
    LD_LIBRARY_PATH=$libraries "$1/text_consumer" '30 dBm [29, 31]' | diff -u <(echo '30 dBm is a power') -
    LD_LIBRARY_PATH=$libraries "$1/measurement_consumer" | diff -u <(echo '2.000 W [1.921, 2.082]') -
    LD_LIBRARY_PATH=$libraries "$1/c_consumer" | diff -u "$source/examples/expected/sensor.txt" -
}

cmake_consumer() {
    local way=$1
    shift
    cmake -S "tests/install/consumers/$way" -B "$place/$way" -G Ninja -DPROGRAM="$source/tests/install/consumers/core_consumer.cpp" \
        -DTEXT_PROGRAM="$source/tests/install/consumers/text_consumer.cpp" \
        -DMEASUREMENT_PROGRAM="$source/tests/install/consumers/measurement_consumer.cpp" \
        -DC_PROGRAM="$source/examples/c/sensor.c" -DBUILD_SHARED_LIBS="$shared" "$@" > /dev/null
    cmake --build "$place/$way" > /dev/null
    expect_output "$place/$way"
}

cmake_consumer find_package -DCMAKE_PREFIX_PATH="$installed"
cmake_consumer add_subdirectory -DVALUE_OBJECT="$source"

export PKG_CONFIG_PATH=$libraries/pkgconfig
mkdir "$place/pkg_config"
read -ra flags < <(pkg-config --cflags --libs ValueObject)
g++ -std=c++17 tests/install/consumers/core_consumer.cpp "${flags[@]}" -o "$place/pkg_config/consumer"
read -ra flags < <(pkg-config --cflags --libs ValueObjectText)
g++ -std=c++17 tests/install/consumers/text_consumer.cpp "${flags[@]}" -o "$place/pkg_config/text_consumer"
read -ra measurement_flags < <(pkg-config --cflags --libs ValueObjectMeasurement)
g++ -std=c++17 tests/install/consumers/measurement_consumer.cpp "${measurement_flags[@]}" -o "$place/pkg_config/measurement_consumer"
# A compiler for C alone links the shared library, which brings its own libraries: the linker is told where,
# since this build has no run paths, as it is to lie where the loader looks.
static=()
[[ $shared == ON ]] || static=(--static)
read -ra c_flags < <(pkg-config "${static[@]}" --cflags --libs ValueObjectC)
gcc -std=c99 -pedantic -Wall -Werror examples/c/sensor.c "${c_flags[@]}" \
    -Wl,-rpath-link,"$libraries" -o "$place/pkg_config/c_consumer"
expect_output "$place/pkg_config"

# A text read before the library's tables are there is refused, and spoils nothing.
g++ -std=c++17 tests/install/consumers/early_texts.cpp "${flags[@]}" -o "$place/pkg_config/early_texts"
[[ $shared == ON ]] && early=read || early=refused
LD_LIBRARY_PATH=$libraries "$place/pkg_config/early_texts" | diff -u <(echo "$early, then read") -

echo "find_package, add_subdirectory and pkg-config work (shared: $shared)"
