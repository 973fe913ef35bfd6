#!/usr/bin/env python3
"""Prints the medians of Google Benchmark runs as ratios to their baselines.
usage: bench_ratios.py RESULTS.json..."""

import json
import sys

# What is compared with what, at the same size or in the same case.
BASELINES = {"fileToRecords": ["fileToTreeOfLibplist"],
             "recordsToBytes": ["treeToBytesOfLibplist"],
             "recordsToFile": ["treeToBytesOfLibplist"],
             "parseQuery": ["uriparserToMap", "uriparserToList", "urllibParse"],
             "percentPlusEncode": ["uriparserEscape", "urllibQuotePlus"],
             "dayOfText": ["dayOfTextByICU"], "dayOfForeignText": [],
             "building": ["buildingByICU"],
             "logLine": ["synchronousLogLine"], "callOfLogLine": ["synchronousLogLine"],
             "maskedLogLine": [],
             "elementsToFile": ["elementsToFileOfLibxml2"], "rowsToCSV": ["bytesOfCSV"]}

# What a size counts, where it is not tasks.
ITEMS = {"parseQuery": "parameters", "percentPlusEncode": "parameters"}

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def medians(paths):
    found = {}
    for path in paths:
        text = open(path).read()  # empty where the filter took nothing
        for entry in json.loads(text)["benchmarks"] if text else []:
            if entry.get("aggregate_name") == "median":
                name, size = entry["run_name"].split("/")[:2]
                # Several threads share the work where a benchmark takes its own time.
                is_manual = entry["run_name"].endswith("/manual_time")
                time = entry["real_time" if is_manual else "cpu_time"] * NANOSECONDS[entry["time_unit"]]
                found[name, int(size) if size.isdigit() else size] = time, entry
    return found


def throughput(name, size, entry, time):
    items = ITEMS.get(name, "tasks")
    return (f"{name:>17} {size:>6} {items}: {time / 1e6:8.4g} ms, "
            f"{entry['bytes_per_second'] / 1e6:6.0f} MB/s, "
            f"{entry['items_per_second'] / 1e6:5.2f} M {items}/s")


def main():
    found = medians(sys.argv[1:])
    for (name, size), (time, entry) in sorted(found.items()):
        if name not in BASELINES:
            continue
        is_case = isinstance(size, str)
        line = (f"{name:>17} {size:>20}: {time:7.4g} ns" if is_case
                else throughput(name, size, entry, time))
        for baseline in BASELINES[name]:
            if (baseline, size) in found:
                ratio = found[baseline, size][0] / time
                line += f"; {ratio:.{1 if ratio >= 1 else 2}f} times as fast as {baseline}"
        smaller = None if is_case else found.get((name, size // 10))
        if smaller:
            line += f"; {time / smaller[0]:.1f} times the time of {size // 10}"
        print(line)


if __name__ == "__main__":
    main()
