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
             "dayOfText": ["dayOfTextByICU"], "dayOfTextWithNames": [], "dayOfForeignText": [],
             "building": ["buildingByICU"],
             "logLine": ["synchronousLogLine"], "callOfLogLine": ["synchronousLogLine"],
             "maskedLogLine": [],
             "elementsToFile": ["elementsToFileOfLibxml2"], "rowsToCSV": ["bytesOfCSV", "syncedBytesOfCSV"],
             "reload": ["copyOfLists"], "isEmpty": [], "allIndexPaths": ["indexPathsByHand"],
             "indexPathOfObject": ["searchOfLists"],
             "sortedIndexPaths": ["sortedPathsBySearch"],
             "tableShow": ["delegateListShow", "widgetListShow"],
             "tableDown": ["delegateListDown"], "tableInsert": ["delegateListInsert"],
             "tableRemove": ["delegateListRemove"], "tableMove": ["delegateListMove"],
             "tableFilter": ["delegateListFilter"], "tableWheel": ["delegateListWheel"],
             "tableRangeLogic": [], "tableExtendLogic": [], "tableHeap": [],
             "fieldTyping": [], "galleryStart": ["bareWindowStart"]}

# What a size counts, where it is not tasks.
ITEMS = {"parseQuery": "parameters", "percentPlusEncode": "parameters", "isEmpty": "sections"}

# What was promised: at 10,000 rows, or in each case, at least so many times as fast as a baseline;
# at most so many times the time of the next smaller size; at most so many milliseconds, or bytes a
# row.
PROMISED_ROWS = 10_000
LEAST_RATIOS = {("fileToRecords", "fileToTreeOfLibplist"): 5,
                ("tableShow", "delegateListShow"): 0.5, ("tableShow", "widgetListShow"): 20,
                ("tableDown", "delegateListDown"): 1, ("tableInsert", "delegateListInsert"): 1,
                ("tableRemove", "delegateListRemove"): 1, ("tableMove", "delegateListMove"): 1,
                ("tableFilter", "delegateListFilter"): 1,
                ("galleryStart", "bareWindowStart"): 0.66}
MOST_GROWTH = {"tableShow": 7, "tableWheel": 1.3,
               ("fileToRecords", 100_000): 12, ("recordsToFile", 100_000): 12}
MOST_MILLISECONDS = {"tableRangeLogic": 1, "tableExtendLogic": 1, "fieldTyping": 1}
MOST_BYTES = {"tableHeap": 1024}

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def medians(paths):
    found = {}
    for path in paths:
        text = open(path).read()  # empty where the filter took nothing
        for entry in json.loads(text)["benchmarks"] if text else []:
            if entry.get("aggregate_name") == "median":
                name, size = entry["run_name"].split("/")[:2]
                # Several threads, or the disk, have a share in the work of some.
                is_real = entry["run_name"].endswith(("/manual_time", "/real_time"))
                time = entry["real_time" if is_real else "cpu_time"] * NANOSECONDS[entry["time_unit"]]
                found[name, int(size) if size.isdigit() else size] = time, entry
    return found


def throughput(name, size, entry, time):
    items = ITEMS.get(name, "tasks")
    return (f"{name:>17} {size:>6} {items}: {time / 1e6:8.4g} ms, "
            f"{entry['bytes_per_second'] / 1e6:6.0f} MB/s, "
            f"{entry['items_per_second'] / 1e6:5.2f} M {items}/s")


def promise(value, least=None, most=None):
    """In how far a figure is as promised; nothing where nothing was."""
    if least is None and most is None:
        return ""
    kept = value >= least if most is None else value <= most
    limit = f"at least {least}" if most is None else f"at most {most}"
    return f" ({limit}: {'kept' if kept else 'BROKEN'})"


def row_line(name, size, entry, time):
    if "bytes_per_row" in entry:
        size_of_row = entry["bytes_per_row"]
        return (f"{name:>17} {size:>6} rows: {size_of_row:.0f} bytes a row"
                + promise(size_of_row, most=MOST_BYTES[name]))
    return (f"{name:>17} {size:>6} rows: {time / 1e6:8.4g} ms"
            + promise(time / 1e6, most=MOST_MILLISECONDS.get(name)))


def case_line(name, case, time):
    text = f"{time:7.4g} ns" if time < 1e5 else f"{time / 1e6:7.4g} ms"
    return f"{name:>17} {case:>20}: {text}" + promise(time / 1e6, most=MOST_MILLISECONDS.get(name))


def next_smaller(found, name, size):
    return max((other for known, other in found if known == name and other < size), default=None)


def main():
    found = medians(sys.argv[1:])
    for (name, size), (time, entry) in sorted(found.items()):
        if name not in BASELINES:
            continue
        is_case = isinstance(size, str)
        is_table = "bytes_per_second" not in entry and not is_case
        line = (case_line(name, size, time) if is_case
                else row_line(name, size, entry, time) if is_table
                else throughput(name, size, entry, time))
        for baseline in BASELINES[name]:
            if (baseline, size) in found:
                ratio = found[baseline, size][0] / time
                line += f"; {ratio:.{1 if ratio >= 1 else 2}f} times as fast as {baseline}"
                if is_case or size == PROMISED_ROWS:
                    line += promise(ratio, least=LEAST_RATIOS.get((name, baseline)))
        smaller = None if is_case else next_smaller(found, name, size)
        if smaller:
            growth = time / found[name, smaller][0]
            line += f"; {growth:.1f} times the time of {smaller}"
            line += promise(growth, most=MOST_GROWTH.get((name, size), MOST_GROWTH.get(name)))
        print(line)


if __name__ == "__main__":
    main()
