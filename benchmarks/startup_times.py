#!/usr/bin/env python3
"""startup_times.py PROGRAM OUR_LIBRARY UDUNITS_LIBRARY: times loading and a first conversion.

Each run is a fresh process, which measures itself. Ours and the peer's run in turn, so that what
disturbs the machine disturbs both. Prints the times in the format of Google Benchmark, for ratios.py.
"""

import json
import subprocess
import sys

RUNS = 30


def main(program, ours, udunits):
    measured = []
    for run in range(RUNS + 1):
        for who, library in (("ours", ours), ("udunits", udunits)):
            taken = float(subprocess.run([program, who, library], check=True, capture_output=True).stdout)
            if run > 0:  # the first one brings the files into memory
                measured.append({"name": "startup/" + who, "run_type": "iteration", "time_unit": "ns", "real_time": taken})
    json.dump({"benchmarks": measured}, sys.stdout, indent=1)


if __name__ == "__main__":
    main(*sys.argv[1:])
