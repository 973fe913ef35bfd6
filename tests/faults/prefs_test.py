#!/usr/bin/env python3
"""Kills `corvane prefs` at random instants, while two lanes of it change one setting each in one file:
it can always be read, and each setting is as before or as it was to become."""
import concurrent.futures, json, pathlib, plistlib, random, re, statistics, subprocess, sys, tempfile, time
WRONG = [["nope"], ["showDue", "-1"], ["showDue", "1.5"], ["showInspector", "yes"], ["--reset"], ["--reset", "showDue", "1"], ["quickEntryWindowFrame", "1,2,3"],
         ["quickEntryWindowFrame", "1,2,3,inf"], ["quickEntryHotkeyCombo", "1,-1"], ["hiddenSourceListItems", "[1]"], ["hiddenSourceListItems", '{"a":' * 99 + "1" + "}" * 99]]
home, seed, faults = pathlib.Path(tempfile.mkdtemp(prefix="corvane-prefs.")), random.randrange(10**9), []
def run(*arguments, timeout=60):
    """The exit status, -9 where it did not end in time, and the output."""
    process = subprocess.Popen([sys.argv[1], "--settings", home, "prefs", *arguments], stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    try:
        output = process.communicate(timeout=timeout)[0]
    except subprocess.TimeoutExpired:
        output = process.kill() or process.communicate()[0]
    return process.returncode, output
def stored(key):
    return plistlib.loads((home / "corvane.plist").read_bytes())["HGCorvane " + key]
def lane(key):
    rng, present, killed, durations = random.Random(f"{seed} {key}"), stored(key), 0, [0.02]
    while killed < 100 and not faults:
        value, start = rng.randrange(2**64), time.monotonic()
        status = run(key, str(value), timeout=rng.uniform(0, 1.2) * statistics.median(durations[-15:]))[0]
        killed, durations = killed + (status == -9), durations + [time.monotonic() - start] * (status == 0)
        before, present = present, stored(key)
        if status not in (0, -9) or present != value and (status == 0 or present != before):
            faults.append(f"{key} was {before}, was to be {value}, is {present}, status {status}")
page = (pathlib.Path(__file__).parents[2] / "docs/formats/preferences.md").read_text()
documented = {key: json.loads(default) for key, default in re.findall(r"^\| `(\w+)` \|[^|]*\| `(.*?)` \|", page, re.M)}
if json.loads(run("--json")[1]) != documented: faults.append("the defaults are not those of the page")
with concurrent.futures.ThreadPoolExecutor() as pool:
    list(pool.map(lane, ("dailyReminderHour", "productiveHoursPerDay")))  # raises what a lane raises
faults += [f"{arguments} is no wrong usage" for arguments in WRONG if run(*arguments)[0] != 2]
sys.exit(f"seed {seed}: {faults} in {home}" if faults else subprocess.call(["rm", "-r", home]))
