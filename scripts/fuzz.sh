#!/usr/bin/env bash
# Runs every fuzz target for a while, starting from the golden files of the tests or from seeds.
# usage: fuzz.sh FOLDER_OF_TARGETS SECONDS
set -euo pipefail
targets=$1 seconds=$2
root=$(cd "$(dirname "$0")/.." && pwd)

run() {
    local target=$1 seeds=$2 corpus=$targets/corpus-$1
    mkdir -p "$corpus"
    cp -n "$seeds"/* "$corpus" 2>/dev/null || true
    printf '\033[1m==> %s for %s seconds\033[0m\n' "$target" "$seconds"
    "$targets/$target" -max_total_time="$seconds" -max_len=8192 -timeout=10 -rss_limit_mb=1024 \
        -malloc_limit_mb=256 -print_final_stats=1 -artifact_prefix="$corpus/" "$corpus"
}

run backup_document_fuzz "$root/fuzz/seeds/backup_document_fuzz"
run date_command_fuzz "$root/fuzz/seeds/date_command_fuzz"
run defaults_file_fuzz "$root/fuzz/seeds/defaults_file_fuzz"
run keyed_unarchiver_fuzz "$root/tests/bridge/golden"
run time_command_fuzz "$root/fuzz/seeds/time_command_fuzz"
run url_query_fuzz "$root/fuzz/seeds/url_query_fuzz"
run xml_scanner_fuzz "$root/fuzz/seeds/xml_scanner_fuzz"
