#!/usr/bin/env python3
"""Whole processes that make, list and delete backups, and list the tasks of documents."""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

CORVANE = pathlib.Path(sys.argv[1]).resolve()
NAME = r"Corvane-Backup-\d{4}-\d\d-\d\dT\d\d-\d\d-\d\dZ(-\d+)?\.cvbx"


def run(*arguments, status=0, output="", errors=""):
    result = subprocess.run([CORVANE, *arguments], capture_output=True, text=True, timeout=100,
                            env={"HOME": os.getcwd(), "LC_ALL": "C", "TZ": "UTC"})
    told = errors in result.stderr if errors else not result.stderr
    assert result.returncode == status and output in result.stdout and told, result
    return result.stdout


directory = tempfile.TemporaryDirectory()
os.chdir(directory.name)
pathlib.Path("l.txt").write_text("Call Ann +house @phone\n(A) b @waiting\nx c +house\n")
run("convert", "l.txt", "d.cvbx")
document = pathlib.Path("d.cvbx").read_bytes()
backups = pathlib.Path(".local/share/corvane/Backups")

run("backups", output="  no backups\n")
run("backups", "make", "l.txt", status=1, errors="l.txt:1:1: ")
assert backups.is_dir() and not any(backups.iterdir())
made = [re.search(NAME, run("backups", "make", "d.cvbx", output=" of d.cvbx\n"))[0]
        for _ in range(3)]
assert len(set(made)) == 3 and all((backups / name).read_bytes() == document for name in made)
(backups / "stray\n.txt").write_text("stray")
(backups / "sub").mkdir()
lines = run("backups", "list").splitlines()
assert len(lines) == 5 and lines[-1].endswith(made[0]), lines
assert re.fullmatch(rf"  [-0-9]{{10}} [:0-9]{{8}} +{len(document)} bytes  {NAME}", lines[-1]), lines
listed = json.loads(run("backups", "--json"))
assert listed == json.loads(run("backups", "list", "--json")) and len(listed["files"]) == 5
assert [file["size"] for file in listed["files"][-3:]] == [len(document)] * 3

run("backups", "delete", "sub", status=1, errors="'sub' is not a file")
for name in ["none.cvbx", "../Backups/" + made[0], str(backups.resolve() / made[0]), "."]:
    run("backups", "delete", name, status=1, errors="there is no backup '" + name)
run("backups", "delete", made[1], output="Deleted " + made[1])
run("backups", "delete", "stray\n.txt", output="Deleted stray .txt")
assert sorted(os.listdir(backups)) == sorted([made[0], made[2], "sub"])
run("backups", "--directory", "d.cvbx", status=1, errors="Could not auto-create 'Backups'")
run("backups", "--directory", "no/where", "make", "d.cvbx", status=1, errors="/no/where': No such")
run("backups", "make", "d.cvbx", "--directory", "other", output="Made Corvane-Backup-")
run("backups", "paint", status=2, errors="corvane: ")

run("tasks", "--document", "d.cvbx", output="house\n        Call Ann")
run("tasks", "--document", "d.cvbx", "--by-status", output="On Hold\n  w  A  b")
sections = json.loads(run("tasks", "--document", "d.cvbx", "--json"))["sections"]
assert [len(section["tasks"]) for section in sections] == [2, 1], sections
run("tasks", "--document", "l.txt", status=1, errors="l.txt:1:1: ")
run("tasks", "--document", "d.cvbx", "--project", "house", status=2, errors="--project")
