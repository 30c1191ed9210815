#!/usr/bin/env bash
# run.sh BUILD_DIR [OPTION OF value_object_benchmarks...]: runs the benchmarks and prints what our jobs
# take next to their peers. BUILD_DIR is the folder in which `value_object_benchmarks` lies in
# benchmarks/; the times are left there in benchmarks.json and startup.json.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1
shift

# Many short repetitions, shuffled: a machine that is slow, or fast, for a while is so for ours and for
# the peers alike. The median is steady even so; the best needs both sides to meet a fast moment.
"$build/benchmarks/value_object_benchmarks" \
    --benchmark_enable_random_interleaving=true \
    --benchmark_repetitions=41 \
    --benchmark_min_time=0.01 \
    --benchmark_out="$build/benchmarks.json" \
    --benchmark_out_format=json \
    "$@" > /dev/null
mapfile -t libraries < "$build/benchmarks/startup_libraries.txt"
python3 "$here/startup_times.py" "$build/benchmarks/startup" "${libraries[@]}" > "$build/startup.json"
python3 "$here/ratios.py" "$build/benchmarks.json" "$build/startup.json"

# The tool beside the programs of other unit libraries.
python3 "$here/columns.py" "$build/value-object" 100000

# The questions of docs/measurement.md, and what other programs say.
python3 "$here/truths.py" "$build/value-object"

# The Python package beside pint and numpy, where pint is installed.
if /usr/bin/python3 -c 'import pint' 2> /dev/null && [[ -d $build/python/varnix_value ]]; then
    PYTHONPATH=$build/python /usr/bin/python3 "$here/python.py"
fi
