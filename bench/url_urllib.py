#!/usr/bin/env python3
"""Measures Python's urllib on the inputs of url_bench, in the form of a Google Benchmark run.
usage: url_bench --inputs | url_urllib.py > results.json"""

import json
import statistics
import sys
import time
import timeit
from urllib.parse import parse_qs, quote_plus


def measure(name, size, operation, text):
    timer = timeit.Timer(lambda: operation(text), timer=time.process_time)
    count, _ = timer.autorange()
    seconds = statistics.median(timer.repeat(5, count)) / count
    return {"run_name": f"{name}/{size}", "aggregate_name": "median", "time_unit": "ns",
            "cpu_time": seconds * 1e9, "items_per_second": int(size) / seconds,
            "bytes_per_second": len(text.encode()) / seconds}


def main():
    results = []
    for line in sys.stdin:
        size, query, text = line.rstrip("\n").split("\t")
        results.append(measure("urllibParse", size,
                               lambda q: parse_qs(q, keep_blank_values=True), query))
        results.append(measure("urllibQuotePlus", size, quote_plus, text))
    json.dump({"benchmarks": results}, sys.stdout)


if __name__ == "__main__":
    main()
