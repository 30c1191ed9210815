#!/usr/bin/env bash
# make_documentation_package.sh TO: makes libvalueobject-doc, the site as a Debian package, in the folder TO.
# The same, byte for byte, whenever and wherever it is made from the same sources.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p "$1"
to=$(realpath "$1")

epoch=$(git log -1 --format=%ct 2> /dev/null || stat -c %Y CHANGELOG.md)
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$epoch}
umask 022
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
documents=$work/content/usr/share/doc/libvalueobject-doc
mkdir -p "$documents" "$work/content/DEBIAN"
tools/make_site.sh "$documents/html"
cp cmake/debian/copyright "$documents/copyright"
gzip -9nc cmake/debian/changelog > "$documents/changelog.gz"
version=$(sed -nE 's/^ *VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
cat > "$work/content/DEBIAN/control" << END
Package: libvalueobject-doc
Version: $version
Section: doc
Priority: optional
Architecture: all
Multi-Arch: foreign
Maintainer: ValueObject maintainers <valueobject@packages.example.org>
Installed-Size: $(du -sk --apparent-size "$documents" | cut -f1)
Description: Physical quantities: number, unit and error bounds: documents
 A number, the unit it is expressed in, and a lower and an upper error bound,
 carried together through conversions, arithmetic and comparisons. Decibels,
 temperature offsets, prefixes and electrical relations are part of it.
 .
 This package holds guides, recipes and the reference, to be read from
 /usr/share/doc/libvalueobject-doc/html/index.html.
END
find "$work/content" -exec touch -hd "@$SOURCE_DATE_EPOCH" {} +
dpkg-deb --root-owner-group -b "$work/content" "$to/libvalueobject-doc_${version}_all.deb" > "$work/log"
