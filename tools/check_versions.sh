#!/usr/bin/env bash
# check_versions.sh: the version is the same wherever it is written.
set -euo pipefail
cd "$(dirname "$0")/.."
version=$(sed -nE 's/^ *VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
IFS=. read -r major minor patch <<< "$version"
failures=0
expect() {
    grep -qF -- "$2" "$1" || { echo "check_versions: $1 does not say $2"; failures=$((failures + 1)); }
}
expect include/value_object.h "VALUE_OBJECT_VERSION_NUMBER $((10000 * major + 100 * minor + patch))"
for page in docs/*.[13]; do
    expect "$page" "\"ValueObject $version\""
done
expect CHANGELOG.md "## $version - "
expect cmake/debian/changelog "valueobject ($version)"
(( failures == 0 ))
