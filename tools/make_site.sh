#!/usr/bin/env bash
# make_site.sh TO [PLAYGROUND]: makes the site in the folder TO, with the page PLAYGROUND if there is one.
#
# A warning of doxygen's is an error, and so are a link that leads nowhere and markup that is to be read.
set -euo pipefail
cd "$(dirname "$0")/.."
to=$1
playground=${2:-}

rm -rf "$to"
mkdir -p "$to"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sections=playground
cp docs/site/layout.xml "$work/layout.xml"
if [[ -z $playground ]]; then
    sections=
    sed -i '/url="playground.html"/d' "$work/layout.xml"
else
    cp "$playground" "$to/playground.html"
fi
version=$(sed -nE 's/^ *VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
{
    cat docs/site/Doxyfile
    echo "PROJECT_NUMBER = $version"
    echo "OUTPUT_DIRECTORY = $to"
    echo "LAYOUT_FILE = $work/layout.xml"
    echo "ENABLED_SECTIONS = $sections"
} | doxygen -
tools/check_links.py "$to"
if grep -rIlF -e "$PWD/" "$to"; then
    echo 'make_site: these pages hold a path of this machine'
    exit 1
fi
