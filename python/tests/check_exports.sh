#!/usr/bin/env bash
# check_exports.sh MODULE: the module exports the function that Python calls, and nothing else.
set -euo pipefail
nm -D --defined-only "$1" | awk '{ print $3 }' | diff -u <(echo PyInit__native) -
