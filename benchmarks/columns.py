#!/usr/bin/env python3
"""columns.py VALUE_OBJECT [LINES]: the tool beside the programs of other unit libraries, on columns of
numbers; and tables in files over all cores, beside pandas, which only reads them. What is not installed is left out.
Each row is one job; "ratio" is the time of the other program over ours. All times are wall times, the
fastest of several runs taken in turn; every program reads from a file and writes into one."""

import os
import random
import shutil
import subprocess
import sys
import tempfile
import time

RUNS = 3
OTHERS = {name: command for name, command in (("units", ["units", "-t", "-q"]), ("udunits2", ["udunits2"])) if shutil.which(name)}


def run(command, source, target):
    with open(source, "rb") as given, open(target, "wb") as written:
        start = time.perf_counter()
        subprocess.run(command, stdin=given, stdout=written, check=True)
        return time.perf_counter() - start


def first_number(line):
    """The result in a line of any of the programs."""
    text = line.rsplit("=", 1)[-1].split()[0].strip("()")
    return float(text)


def results(path, program):
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    if program == "udunits2":
        lines = [line for line in lines if "You have: You want:" in line and "=" in line]
    return [first_number(line) for line in lines[:1000] if line.strip()]


def write(path, lines):
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


# The numbers of a job, and how each program is asked. What has no counterpart is measured alone.
JOBS = {
    "ft to m": {
        "numbers": (-1000, 10000, 4),
        "ours": ["convert", "--from", "ft", "--to", "m"],
        "units": ("{} ft", "m"),
        "udunits2": ("{} ft", "m"),
    },
    "dBm to W": {
        "numbers": (-100, 60, 2),
        "ours": ["convert", "--from", "dBm", "--to", "W"],
        "units": ("dBm({})", "W"),
        "udunits2": ("{} 0.1 lg(re 1 mW)", "W"),
    },
    "ft, each with its unit, to m": {
        "numbers": (-1000, 10000, 4),
        "form": "{} ft",
        "ours": ["convert", "--to", "m"],
        "units": ("{} ft", "m"),
        "udunits2": ("{} ft", "m"),
    },
    "dBm ± 0.5, each with its unit, to W": {
        "numbers": (-100, 60, 2),
        "form": "{} ± 0.5 dBm",
        "ours": ["convert", "--to", "W"],
    },
    # The other programs are given the numbers of the column alone.
    "mi to km in a CSV table": {
        "numbers": (0, 900, 3),
        "ours": ["convert", "--csv", "--column", "dist=mi:km"],
        "units": ("{} mi", "km"),
        "udunits2": ("{} mi", "km"),
        "csv": True,
    },
}


def agree(ours, theirs, tolerance=1e-4):
    return len(ours) == len(theirs) and all(abs(a - b) <= tolerance * abs(b) for a, b in zip(ours, theirs))


def measure(name, job, program, lines, folder):
    random.seed(1)
    low, high, decimals = job["numbers"]
    numbers = [f"{random.uniform(low, high):.{decimals}f}" for _ in range(lines)]
    path = {kind: os.path.join(folder, kind) for kind in ("ours", *OTHERS)}
    if job.get("csv"):
        write(path["ours"], ["time,dist,note"] + [f'{k},{number},"ok, {k}"' for k, number in enumerate(numbers)])
    else:
        write(path["ours"], [job.get("form", "{}").format(number) for number in numbers])
    others = {other: command for other, command in OTHERS.items() if other in job}
    commands = {"ours": [program] + job["ours"], **others}
    for other in others:
        have, want = job[other]
        write(path[other], [line for number in numbers for line in (have.format(number), want)])
    best = {kind: float("inf") for kind in commands}
    for _ in range(RUNS):
        for kind, command in commands.items():
            best[kind] = min(best[kind], run(command, path[kind], path[kind] + ".out"))
    if job.get("csv"):
        with open(path["ours"] + ".out", encoding="utf-8") as file:
            ours = [float(line.split(",")[1]) for line in file.read().split("\n")[1:1001] if line]
    else:
        ours = results(path["ours"] + ".out", "ours")
    if not others:
        print(f"{name:36} {'':9} {best['ours']:8.3f} s")
    for other in others:
        note = "" if agree(ours, results(path[other] + ".out", other)) else "   RESULTS DIFFER"
        print(f"{name:36} {other:9} {best['ours']:8.3f} s {best[other]:8.3f} s {best[other] / best['ours']:7.1f}{note}")


# As docs/tool.md has it.
OVER_ALL_CORES = """ls *.csv | xargs -P "$(nproc)" -I {} sh -c '"$0" convert --csv --column temp=degC:K "$1" > "new/$1"' """
FILES = 8


def measure_files(program, lines, folder):
    """Eight tables of so many lines in all."""
    random.seed(2)
    os.mkdir(os.path.join(folder, "new"))
    for number in range(FILES):
        rows = [f'{k},{random.uniform(-40, 60):.2f},"ok, {k}"' for k in range(lines // FILES)]
        write(os.path.join(folder, f"{number}.csv"), ["time,temp,note"] + rows)
    commands = {
        "ours": ["sh", "-c", OVER_ALL_CORES + f"{program} {{}}"],
        "pandas": [sys.executable, "-c", "import glob, pandas\nfor name in glob.glob('*.csv'): pandas.read_csv(name)"],
        "start": [sys.executable, "-c", "import pandas"],
    }
    if subprocess.run(commands["start"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
        print("pandas is not installed")
        return
    best = {kind: float("inf") for kind in commands}
    for _ in range(RUNS):
        for kind, command in commands.items():
            start = time.perf_counter()
            subprocess.run(command, cwd=folder, check=True)
            best[kind] = min(best[kind], time.perf_counter() - start)
    reading = best["pandas"] - best["start"]
    print(f"{f'{FILES} tables, all cores':36} pandas    {best['ours']:8.3f} s {reading:8.3f} s {reading / best['ours']:7.1f}")


def main():
    program = os.path.abspath(sys.argv[1])
    lines = int(sys.argv[2]) if len(sys.argv) > 2 else 1000000
    print(f"{f'{lines} lines':36} {'beside':9}       ours      other   ratio")
    with tempfile.TemporaryDirectory() as folder:
        for name, job in JOBS.items():
            measure(name, job, program, lines, folder)
        measure_files(program, 4 * lines, folder)


main()
