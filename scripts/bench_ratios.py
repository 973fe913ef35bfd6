#!/usr/bin/env python3
"""Prints the medians of a Google Benchmark run as ratios to their baselines."""

import json
import sys

# What is compared with what, at the same size.
BASELINES = {"fileToRecords": "fileToTreeOfLibplist", "recordsToBytes": "treeToBytesOfLibplist",
             "recordsToFile": "treeToBytesOfLibplist"}


def medians(path):
    found = {}
    for entry in json.load(open(path))["benchmarks"]:
        if entry.get("aggregate_name") == "median":
            name, size = entry["run_name"].split("/")[:2]
            found[name, int(size)] = entry["cpu_time"], entry
    return found


def main():
    found = medians(sys.argv[1])
    for (name, size), (time, entry) in sorted(found.items()):
        if name not in BASELINES:
            continue
        line = (f"{name:>16} {size:>6} tasks: {time:8.2f} ms, "
                f"{entry['bytes_per_second'] / 1e6:6.0f} MB/s, "
                f"{entry['items_per_second'] / 1e6:5.2f} M tasks/s")
        baseline = found.get((BASELINES[name], size))
        if baseline:
            line += f"; {baseline[0] / time:.1f} times as fast as {BASELINES[name]}"
        smaller = found.get((name, size // 10))
        if smaller:
            line += f"; {time / smaller[0]:.1f} times the time of {size // 10}"
        print(line)


if __name__ == "__main__":
    main()
