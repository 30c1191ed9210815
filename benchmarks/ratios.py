#!/usr/bin/env python3
"""ratios.py JSON...: what our jobs take, next to their peers.

Reads what Google Benchmark wrote with repetitions. The benchmarks JOB/ours and JOB/PEER make a row:
the median times in nanoseconds, ours divided by the peer's, and the same ratio of the best times.
Processor time counts, where it was measured. A ratio below 1 says that ours is faster.
"""

import json
import statistics
import sys

NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
ROW = "{:<28} {:>12} {:<16} {:>12} {:>9} {:>9}"


def times_by_job(paths):
    """{job: {who: [nanoseconds of each repetition]}}, in the order of the sources."""
    times = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            runs = json.load(file)["benchmarks"]
        # Interleaving shuffles them; the family's number is the order of the sources.
        for run in sorted(runs, key=lambda run: run.get("family_index", 0)):
            if run["run_type"] != "iteration":
                continue
            job, who = run["name"].split("/")[:2]
            time = run.get("cpu_time", run["real_time"]) * NANOSECONDS[run["time_unit"]]
            times.setdefault(job, {}).setdefault(who, []).append(time)
    return times


def rows(times):
    for job, sides in times.items():
        ours = sides.pop("ours", None)
        if ours is None:
            continue
        our_median = statistics.median(ours)
        if not sides:
            yield job, f"{our_median:.1f}", "-", "", "", ""
        for peer, theirs in sides.items():
            median = statistics.median(theirs)
            yield (job, f"{our_median:.1f}", peer, f"{median:.1f}",
                   f"{our_median / median:.3f}", f"{min(ours) / min(theirs):.3f}")


def main(paths):
    print(ROW.format("job", "ours ns", "peer", "peer ns", "median", "best"))
    for row in rows(times_by_job(paths)):
        print(ROW.format(*row).rstrip())


if __name__ == "__main__":
    main(sys.argv[1:])
