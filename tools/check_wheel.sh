#!/usr/bin/env bash
# check_wheel.sh: the Python package as pip has it: an sdist, a wheel built from it alone, and that
# wheel in a virtual environment, where it answers and shows nothing but what Python calls.
set -euo pipefail
cd "$(dirname "$0")/.."
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
python=/usr/bin/python3

tools/copy_sources.sh "$place/sources"
(cd "$place/sources" && "$python" setup.py --quiet sdist --dist-dir "$place" > "$place/log" 2>&1) ||
    { cat "$place/log"; exit 1; }
sdist=$(echo "$place"/varnix*.tar.gz)
echo "sdist: ${sdist##*/}"
mkdir "$place/unpacked"
tar -xzf "$sdist" -C "$place/unpacked" --strip-components=1
# Without the network: what the build needs is installed here.
"$python" -m pip wheel --quiet --no-build-isolation --no-deps --wheel-dir "$place" "$place/unpacked" > "$place/log" 2>&1 ||
    { cat "$place/log"; exit 1; }
wheel=$(echo "$place"/*.whl)
echo "wheel: ${wheel##*/}, $(stat -c %s "$wheel") bytes"

"$python" -m venv --system-site-packages "$place/environment"
"$place/environment/bin/pip" install --quiet --no-deps --no-index "$wheel"
cd "$place"
module=$(find environment -name '_native*.so')
"$OLDPWD/python/tests/check_exports.sh" "$module"
if readelf -d "$module" | grep -E 'NEEDED.*ValueObject|RPATH|RUNPATH'; then
    echo 'check_wheel: the module of the wheel is not self-contained'
    exit 1
fi
environment/bin/python -c 'from varnix_value import Quantity; print(Quantity("30 dBm").to("W"))' | diff -u <(echo '1 W') -
