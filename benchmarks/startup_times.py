#!/usr/bin/env python3
"""startup_times.py BENCHMARKS_FOLDER: times whole processes, from their start to their end.

The programs startup_WHO of that folder run in turn, so that what disturbs the machine disturbs all
of them. Prints the times in the format of Google Benchmark, for ratios.py.
"""

import json
import os
import subprocess
import sys
import time

PROGRAMS = ("ours", "udunits", "empty")
RUNS = 30


def nanoseconds(program):
    before = time.perf_counter_ns()
    subprocess.run([program], check=True)
    return time.perf_counter_ns() - before


def main(folder):
    measured = []
    for run in range(RUNS + 1):
        for who in PROGRAMS:
            taken = nanoseconds(os.path.join(folder, "startup_" + who))
            if run > 0:  # the first one brings the files into memory
                measured.append(
                    {"name": "startup/" + who, "run_type": "iteration", "time_unit": "ns", "real_time": taken}
                )
    json.dump({"benchmarks": measured}, sys.stdout, indent=1)


if __name__ == "__main__":
    main(sys.argv[1])
