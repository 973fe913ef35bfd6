#!/usr/bin/env bash
# Compares whole processes: a companion that shows today's tasks from a published container, and
# taskwarrior that lists what is due today, of the same 10,000 tasks.
# usage: bench_companion.sh CORVANE
set -euo pipefail
corvane=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/container" "$work/task"

python3 - "$work" <<'PYTHON'
import datetime, json, sys
folder = sys.argv[1]
today = datetime.date.today()
with open(f"{folder}/todo.txt", "w") as todo, open(f"{folder}/tasks.json", "w") as tasks:
    for i in range(10000):
        due = today + datetime.timedelta(days=i % 200)
        todo.write(f"Write letter {i} to the council +project{i // 20} @desk due:{due}\n")
        tasks.write(json.dumps({"description": f"Write letter {i} to the council",
                                "project": f"project{i // 20}", "tags": ["desk"],
                                "status": "pending",
                                "due": due.strftime("%Y%m%dT120000Z")}) + "\n")
PYTHON

"$corvane" publish "$work/todo.txt" --container "$work/container" >/dev/null
export TASKRC=$work/taskrc TASKDATA=$work/task
echo "confirmation=off" >"$TASKRC"
task rc.verbose=nothing import "$work/tasks.json" >/dev/null 2>&1
task rc.verbose=nothing rc.gc=on next >/dev/null 2>&1 || true

echo "today, of 10,000 tasks, as whole processes:"
hyperfine --style none --warmup 3 --shell=none --export-json "$work/times.json" \
    "$corvane show today --container $work/container" \
    "task rc.verbose=nothing list due:today" >/dev/null 2>&1
python3 - "$work/times.json" <<'PYTHON'
import json, sys
ours, theirs = (result["median"] * 1000 for result in json.load(open(sys.argv[1]))["results"])
print(f"corvane show today {ours:.1f} ms, task list due:today {theirs:.1f} ms: "
      f"{theirs / ours:.1f} times as fast")
PYTHON
