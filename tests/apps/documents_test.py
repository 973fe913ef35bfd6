#!/usr/bin/env python3
"""Whole processes with documents, whose files a parser reads that is not ours."""

import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

CORVANE = pathlib.Path(sys.argv[1]).resolve()
HOSTILE = ["<b>&amp;", "]]>", "a]]>]]", '"', "'\\", r"\u{41}", "ä💡", "\x01", "\ufffe", " "]


def run(arguments, status=0, output="", errors=""):
    result = subprocess.run([CORVANE, *arguments], capture_output=True, text=True, timeout=100,
                            env={"HOME": os.getcwd(), "CORVANE_CONTAINER": "c", "LC_ALL": "C"})
    told = errors in result.stderr if errors else not result.stderr
    assert result.returncode == status and output in result.stdout and told, result


def title_of(field):
    escape = r"\\(?:\\|u\{([0-9A-F]+)\})"
    unescape = lambda match: chr(int(match[1], 16)) if match[1] else "\\"
    return re.sub(escape, unescape, field.text) if field.get("escape") else field.text


directory = tempfile.TemporaryDirectory()
os.chdir(directory.name)

# Ten thousand lines go all the way and back.
rng = random.Random(7)
fields = [["", *(f" +p{i % 9}/{i}" for i in range(99))], ["", " @phone", " @ä", " @c&d"],
          ["", " @waiting"], ["", " due:2026-02-28"], ["", " star:1"],
          ["", " note:%20a%0D%0A%01%EF%BF%BE%5D%5D%3E"]]
lines = []
for number in range(10000):
    mark = rng.choice(["", "", "x ", "(A) ", "x (E) "])
    title = " ".join(rng.choices(["Pay", "für", "<x>", "&", "]]>", "'\"", r"\u{41}"], k=3))
    line = f"{mark}{title} {number}{''.join(map(rng.choice, fields))}"
    lines.append(line.replace(" @waiting", "") if mark[:1] == "x" else line)
pathlib.Path("a.txt").write_text("\n".join(lines) + "\n")
run(["convert", "a.txt", "a.cvbx"], output="10000 tasks")
run(["publish", "a.cvbx"], output="Published 10000 tasks")
added = [f"{one}{rng.choice(HOSTILE)}x{rng.choice(HOSTILE)}" for one in HOSTILE]
for title in added:
    run(["add", "--project", "p1/1", "--", title])
run(["drain", "a.cvbx"], output="Published 10010 tasks")
written = [title_of(field) for field in ElementTree.parse("a.cvbx").iter("titleRaw")]
assert written[10000:] == added, written[10000:]
run(["export-csv", "a.cvbx", "-o", "a.csv"])
assert pathlib.Path("a.csv").read_bytes().count(b"\x1c\n") == 10011
run(["convert", "a.cvbx", "b.txt"], errors="b.txt cannot hold all of 10 records")
assert pathlib.Path("b.txt").read_text().split("\n")[:10000] == lines

# Commands, in this order.
pathlib.Path("l.txt").write_text("Call Ann +p/q @phone due:2026-03-05\n+no\nx (F) b @waiting\n")
run(["convert", "l.txt", "d.cvbx"], errors="d.cvbx cannot hold all of 3 lines")
pathlib.Path("bad.cvbx").write_text("<backup version='1'>\n <x></backup>")
os.symlink("d.cvbx", "link")
uri, change = ElementTree.parse("d.cvbx").find("tasks/task").get("uri"), ["--file", "d.cvbx"]
for case in [
    (["convert", "l.txt", "d.cvbx"], 1, "", "'d.cvbx' is there already; --force"),
    (["publish", "d.cvbx"], 0, "Published 2 tasks (1 completed), 1 project, 1 portfolio"),
    (["set", uri, "repeat", "everyweek", *change], 0, "Set repeat"),
    (["set", uri, "due", "2023-02-29", *change], 1, "", "'2023-02-29' is no value of dueRaw"),
    (["set", uri, "status", "someday", *change], 0, "today 1 -> 0"),
    (["open", "corvane://showSomeday"], 0, "Call Ann  +p/q  @phone"),
    (["open", "corvane://addTask?title=A+%26+B&due=2026-03-05&starred"], 0, "*  2026"),
    (["drain", "d.cvbx"], 0, "A & B due:2026-03-05 star:1"),
    (["watch", "request", "today", "--into", "w"], 0, "A & B"),
    (["show", "--container", "w"], 0, "A & B"),
    (["watch", "complete", "t:0", *change], 1, "", "there is no task 't:0'"),
    (["set", uri, "due", "2999-03-07", *change], 0, "Set due"),
    (["watch", "complete", uri, *change], 0, "due again on 2999-03-14"),
    (["complete", uri, *change], 0, "completed before"),
    (["convert", "d.cvbx", "m.txt"], 0, "4 tasks", "'Call Ann' loses statusChanged, repeat, userM"),
    (["import", "bad.cvbx"], 0, "Handed over"),
    (["restore", "r.cvbx"], 1, "", "imported-backup.cvbx:2:7: mismatched tag"),
    (["import", "d.cvbx"], 0, "Handed over"),
    (["restore", "c/imported-backup.cvbx", "--force"], 1, "", "handed over itself"),
    (["restore", "r.cvbx"], 0, "Restored 4 tasks into r.cvbx"),
    (["export-csv", "r.cvbx", "-o", "r.cvbx"], 1, "", "'r.cvbx' has the tasks"),
    (["publish", "link"], 0, "Published 4 tasks (2 completed)"),
]:
    run(*case)
assert pathlib.Path("r.cvbx").read_bytes() == pathlib.Path("d.cvbx").read_bytes()

# Of categories without a primary one the first counts; it goes with all that is said of it, or stays.
member = "<taskContext{}><category>c:{}</category></taskContext>"
pathlib.Path("k.cvbx").write_text(
    "<backup version='1'><categories><category uri='c:1'><nameRaw>one</nameRaw></category>"
    "<category uri='c:2'><nameRaw>two</nameRaw></category></categories><tasks><task uri='t'>"
    "<taskContexts>" + member.format("", 1) + member.format(" kept='yes'", 2) +
    "</taskContexts></task></tasks></backup>")
for category, left in [("two", [("yes", "c:2")]), ("one", [(None, "c:1")]), ("", [])]:
    run(["set", "t", "category", category, "--file", "k.cvbx"], output="category")
    found = [(context.get("kept"), context.findtext("category"))
             for context in ElementTree.parse("k.cvbx").iter("taskContext")]
    assert found == left, found

# The form of a task.
form = ["--file", "r.cvbx"]
for case in [
    (["detail", "new", "title", "Mow", *form], 0, "Added x-corvane-todo://task/"),
    (["detail", uri, "status", "On Hold", *form], 0, "Set status to 'On Hold'\nPublished 5 tasks"),
    (["detail", uri, "due", "2026-02-30", *form], 1, "", "'2026-02-30' is no value of dueRaw"),
    (["detail", uri, "title", " ", *form], 1, "", "a task needs a title"),
    (["detail", uri, "userModified", "x", *form], 1, "", "'userModified' can only be read"),
    (["detail", uri, "due", *form], 2, "", "FIELD requires VALUE"),
    (["detail", "t:0", *form], 1, "", "there is no task 't:0'"),
    (["detail", uri, "--json", *form], 0, '"value": "Call Ann"'),
    (["show", "today"], 0, "Mow\n\nDue"),
]:
    run(*case)
