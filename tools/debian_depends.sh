#!/usr/bin/env bash
# debian_depends.sh LIBRARY: the Debian packages that the library needs, as a Depends field.
#
# The versions of the symbols that the library uses decide. The C library and libgcc name theirs after
# their releases; for libstdc++ Debian's own list tells which release brought which. All three are the
# same on every processor, so that a library for another one can be asked as well.
set -euo pipefail
library=$1

needed=$(readelf -VW "$library" | sed -nE 's/.*Name: (GLIBC|GCC|GLIBCXX|CXXABI)_([0-9.]+) .*/\1 \2/p' | sort -u)
libstdcxx_symbols=$(find /var/lib/dpkg/info -name 'libstdc++6:*.symbols' -print -quit)

highest() {
    sort -V | tail -n 1
}

from_names() {
    awk -v family="$1" '$1 == family { print $2 }' <<< "$needed" | highest
}

from_libstdcxx() {
    awk '$1 ~ /GLIBCXX|CXXABI/ { print $1 "_" $2 }' <<< "$needed" | while read -r symbol; do
        awk -v symbol="$symbol@$symbol" '$1 == symbol { print $2 }' "$libstdcxx_symbols"
    done | highest
}

echo "libc6 (>= $(from_names GLIBC)), libgcc-s1 (>= $(from_names GCC)), libstdc++6 (>= $(from_libstdcxx))"
