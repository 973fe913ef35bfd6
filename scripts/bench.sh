#!/usr/bin/env bash
# Runs the benchmarks of a build folder and prints each result as a ratio to its baseline.
# usage: bench.sh BUILD_FOLDER [REGEX]
set -euo pipefail
build=$1 filter=${2:-.}
here=$(dirname "$0")
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT

for name in archive url date log xml overview table field_typing gallery_start; do
    "$build/bench/${name}_bench" --benchmark_filter="$filter" --benchmark_repetitions=3 \
        --benchmark_out="$results/$name.json" --benchmark_out_format=json \
        --benchmark_display_aggregates_only=true
    echo
done
"$build/bench/url_bench" --inputs | python3 "$here/../bench/url_urllib.py" >"$results/urllib.json"
python3 "$here/bench_ratios.py" "$results"/*.json
echo
"$build/bench/archive_memory"
echo
bash "$here/bench_companion.sh" "$build/apps/cli/corvane"
