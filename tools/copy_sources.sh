#!/usr/bin/env bash
# copy_sources.sh TO: copies the sources into the folder TO, without what has been built. They may be a
# repository or an unpacked archive.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p "$1"
tar -c --exclude=./build --exclude=./.git --exclude=__pycache__ . | tar -x -C "$1"
