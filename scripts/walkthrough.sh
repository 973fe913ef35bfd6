#!/usr/bin/env bash
# Plays the path of a task with the example list: the main application publishes, a companion shows
# and adds, the main application takes in what was added. Then the list becomes a backup document,
# which is changed, exported and turned into a list again.
#
# usage: walkthrough.sh CORVANE [DIRECTORY]
#   CORVANE    the program
#   DIRECTORY  where the list and the container go; a new temporary directory unless given
set -eu

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
    sed -n '/^# usage/,/^#   DIRECTORY/s/^# //p' "$0" >&2
    exit 2
fi
corvane=$(realpath "$1")
directory=${2:-$(mktemp -d "${TMPDIR:-/tmp}/corvane-walkthrough.XXXXXX")}
mkdir -p "$directory"
directory=$(realpath "$directory")
cd "$(dirname "$0")/.."

list=$directory/household.todo.txt
document=$directory/household.cvbx
export CORVANE_CONTAINER=$directory/container

day() {
    date -d "$1 days" +%F
}

# The example's due days count from today.
fill_in_days() {
    local script="s/{today}/$(day 0)/g; s/{tomorrow}/$(day 1)/g"
    local offset
    for offset in $(grep -o '{today[+-][0-9]*}' "$1" | tr -d '{}' | sed 's/today//' | sort -u); do
        script="$script; s/{today$offset}/$(day "$offset")/g"
    done
    sed "$script" "$1"
}

say() {
    printf '\n== %s\n' "$1"
}

run() {
    printf '$ corvane'
    printf ' %q' "$@"
    printf '\n'
    "$corvane" "$@"
}

# The document's task of that title.
uri_of() {
    sed -n "s|.*<task uri=\"\([^\"]*\)\"><titleRaw>$1</titleRaw>.*|\1|p" "$document"
}

fill_in_days examples/household.todo.txt > "$list"
printf 'The list:      %s\nThe container: %s\n' "$list" "$CORVANE_CONTAINER"

say "The main application publishes the list"
run publish "$list"

say "A companion, in a process of its own, shows what is due today"
run show

say "It offers projects to choose from"
run projects

say "It queues two new tasks; the list is still as it was"
run add "Buy candles" --project party --category errands --due "$(day 0)" \
    --notes $'The small ones,\n40 of them'
run add "Ask Ann for the cake tin" --priority high --star
run status

say "The main application takes them into its list, and publishes it again"
run drain "$list"
printf '$ tail -n 2 %s\n' "$list"
tail -n 2 "$list"

say "The companion finds them, and the badges have changed"
run show
run tasks --project party
run status

say "The list becomes a backup document, which holds what a list cannot: here, a start day"
run convert "$list" "$document"
run complete "$(uri_of 'Sharpen the pruning shears')" --file "$document"
run set "$(uri_of "Plan Grandma's birthday")" start "$(day 6)" --file "$document"

say "It is exported as a table, and turned into a list again"
run export-csv "$document" -o "$directory/household.csv"
printf '$ head -n 3 %s\n' "$directory/household.csv"
head -n 3 "$directory/household.csv"
run convert "$document" "$directory/household-again.todo.txt"
printf '$ diff %s %s\n' "$list" "$directory/household-again.todo.txt"
diff "$list" "$directory/household-again.todo.txt" || true

printf '\nEverything is in %s: the lists, the document, the table, and the container with\n' \
    "$directory"
for entry in "$CORVANE_CONTAINER"/*; do
    printf '  %s\n' "$entry"
done
printf 'Look into an archive with: %s inspect %s/shared-info.archive\n' "$corvane" "$CORVANE_CONTAINER"
