#!/usr/bin/env bash
# instructions.sh BUILD_DIR: prints how many instructions each of the library's single jobs takes,
# those of the C library included; a measure without noise. It is the difference between 2000 calls
# and 1000, so that loading the library and the first call do not count.
#
# instructions.txt holds the recorded numbers. They change with the compiler, the C library and the
# processor, by which the C library chooses its functions.
set -euo pipefail
export LC_ALL=C
program=$1/benchmarks/count_instructions

# instructions_of JOB CALLS
instructions_of() {
    local log
    log=$(valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" 2>&1) || {
        echo "$log" >&2
        return 1
    }
    sed -nE 's/^==[0-9]+== Collected : ([0-9]+)$/\1/p' <<< "$log"
}

for job in $("$program"); do
    few=$(instructions_of "$job" 1000)
    many=$(instructions_of "$job" 2000)
    echo "$job $(( (many - few + 500) / 1000 ))"
done | sort
