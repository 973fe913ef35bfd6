#!/usr/bin/env python3
"""Kills the program at random instants, and checks that nothing is torn, lost or there twice.

One main application publishes a list and drains the queue into it, several companions add tasks and
another one looks on, all in one container and all at the same time. Every lane of them makes its
random choices from the seed alone; how far each gets before the end depends on the machine.
"""

import argparse
import collections
import json
import os
import pathlib
import random
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
from check_archive import Archive, Fault  # noqa: E402

ADDERS = 2
SPARED = 0.2  # of the processes are left alone
LATEST_KILL = 1.2  # of what the command usually takes
HANGS = 60  # seconds
ORIGINAL = "".join(
    f"Original {number} +project{number % 7} @category{number % 5}\n" for number in range(150)
)
ARCHIVES = ("shared-info.archive", "shared-repository.archive", "updated.timestamp")
BATCH = re.compile(r"task-proxies-\d{4}-\d\d-\d\d-\d\dh\d\dm\d\ds\d{3}\.archive")
HIDDEN = re.compile(r"\.corvane-(\d+)-\d+")


def require(condition, fault):
    if not condition:
        raise AssertionError(fault)


class Scene:
    """The list, the container, and what has been done to them so far."""

    def __init__(self, corvane, directory, kills):
        self.corvane = corvane
        self.directory = directory
        self.list = directory / "list" / "todo.txt"
        self.container = directory / "container"
        self.queue = self.container / "insert-queue"
        self.list.parent.mkdir()
        self.list.write_text(ORIGINAL)
        self.lock = threading.Lock()
        self.wanted = {command: -(-kills // 3) for command in ("publish", "drain", "add")}
        self.killed = collections.defaultdict(list)  # the ids of the processes
        self.durations = collections.defaultdict(lambda: collections.deque(maxlen=15))
        self.added = {}  # titles; whether the companion was told that it is queued
        self.checked = {}  # the archives' files
        self.completed_drains = 0
        self.fault = None

    def done(self):
        return self.fault or all(len(self.killed[c]) >= n for c, n in self.wanted.items())

    def run(self, *arguments, kill_at=None):
        """The output; none where the process was killed, which is due after that part of the time
        that the command usually takes."""
        command = arguments[0]
        if kill_at is not None and len(self.killed[command]) < self.wanted[command]:
            timeout = kill_at * statistics.median(self.durations[command])
        else:
            timeout = HANGS
        process = subprocess.Popen(
            [self.corvane, "--container", self.container, *arguments],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env={"HOME": str(self.directory), "LC_ALL": "C", "TZ": "UTC"},
        )
        start = time.monotonic()
        try:
            output, errors = process.communicate(timeout=timeout)
            self.durations[command].append(time.monotonic() - start)
        except subprocess.TimeoutExpired:
            process.kill()
            output, errors = process.communicate()
        what = f"{' '.join(map(str, arguments))[:80]}: {process.returncode} {errors.decode()}"
        require(timeout != HANGS or process.returncode >= 0, f"hangs: {what}")
        if process.returncode < 0:
            require(process.returncode == -9, what)
            with self.lock:
                self.killed[command].append(process.pid)
            return None
        require(process.returncode == 0 and not errors, what)
        self.completed_drains += b"Completed a drain" in output
        return output

    # What holds at every moment.

    def check_archives(self):
        for name in ARCHIVES:
            status = os.stat(self.container / name)
            file = (status.st_ino, status.st_mtime_ns, status.st_size)
            if self.checked.get(name) == file:
                continue
            try:
                Archive((self.container / name).read_bytes())
            except Fault as fault:
                raise AssertionError(f"{name}: {fault}") from fault
            self.checked[name] = file

    def check_queue(self):
        for name in os.listdir(self.queue):
            require(BATCH.fullmatch(name), f"{name} is in the queue")
            try:
                kind, tasks = Archive((self.queue / name).read_bytes()).root
            except FileNotFoundError:
                continue  # drained meanwhile
            except Fault as fault:
                raise AssertionError(f"{name}: {fault}") from fault
            require(kind == "NSArray" and len(tasks) == 1, f"{name} is no batch of one task")

    def check_list(self):
        """Returns the titles that the list has been given."""
        content = self.list.read_text()
        require(content.startswith(ORIGINAL), "the list has lost lines of its own")
        require(content.endswith("\n"), "the list ends within a line")
        titles = content[len(ORIGINAL) :].splitlines()
        for title, count in collections.Counter(titles).items():
            require(count == 1, f"{count} times in the list: {title[:80]}")
            require(title in self.added, f"nobody added: {title[:80]}")
        return titles

    def check_companions(self):
        for arguments in (("show", "today", "--json"), ("tasks", "--json")):
            json.loads(self.run(*arguments))

    # What holds at the end.

    def check_end(self):
        self.run("drain", self.list)
        self.check_archives()
        titles = set(self.check_list())
        lost = [title for title, queued in self.added.items() if queued and title not in titles]
        require(not lost, f"{len(lost)} tasks are lost, such as {lost[:1]}")
        require(os.listdir(self.queue) == [], "the queue is not empty")
        self.check_leftovers()
        tasks = json.loads(self.run("tasks", "--json"))["tasks"]
        require(len(tasks) == 150 + len(titles), "other tasks are published than are in the list")

    def check_leftovers(self):
        """A process that is killed as it gives a file first a hidden name, then its own, leaves the
        hidden one. Nothing else may be left."""
        killed = {pid for pids in self.killed.values() for pid in pids}
        for name in self.leftovers():
            hidden = HIDDEN.fullmatch(name)
            require(hidden and int(hidden[1]) in killed, f"{name} is left")

    def leftovers(self):
        names = os.listdir(self.container) + os.listdir(self.list.parent)
        return set(names) - {*ARCHIVES, self.queue.name, self.list.name}


def kill_time(rng):
    spared, part = rng.random() < SPARED, rng.uniform(0, LATEST_KILL)
    return None if spared else part


def be_main_application(scene, rng):
    while not scene.done():
        command, kill_at, at_once = rng.choice(("publish", "drain")), kill_time(rng), rng.random()
        scene.run(command, scene.list, kill_at=kill_at)
        # It may also be started again before anybody looks.
        if at_once < 0.5:
            scene.check_archives()


def be_adder(scene, rng):
    lane = rng.randrange(10**6)
    number = 0
    while not scene.done():
        number += 1
        title = f"Task {lane}-{number} " + "x" * rng.choice((1, 1, 1, 2000))
        scene.added[title] = False
        scene.added[title] = scene.run("add", title, kill_at=kill_time(rng)) is not None
        time.sleep(rng.uniform(0, 0.06))  # lest the list outgrow what can be checked in time


def be_onlooker(scene, rng):
    checks = [scene.check_companions, scene.check_queue, scene.check_list]
    while not scene.done():
        rng.choice(checks)()


def measure(scene):
    """How long the commands take; the figures are kept up to date from then on."""
    scene.run("publish", scene.list)
    for number in range(7):
        scene.added[f"Before {number}"] = scene.run("add", f"Before {number}") is not None
        scene.run("drain", scene.list)
        scene.run("publish", scene.list)


def play(scene, seed):
    def lane(be, name):
        try:
            be(scene, random.Random(f"{seed} {name}"))
        except BaseException as fault:  # the other lanes stop too
            scene.fault = scene.fault or fault

    lanes = [be_main_application, be_onlooker, *[be_adder] * ADDERS]
    threads = [threading.Thread(target=lane, args=(be, i)) for i, be in enumerate(lanes)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if scene.fault:
        raise scene.fault


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("corvane", type=pathlib.Path)
    parser.add_argument("--kills", type=int, default=300)
    parser.add_argument("--seed", type=int, default=random.randrange(10**9))
    arguments = parser.parse_args()
    print(f"seed {arguments.seed}", flush=True)
    start = time.monotonic()
    directory = pathlib.Path(tempfile.mkdtemp(prefix="corvane-kill."))
    scene = Scene(arguments.corvane.resolve(), directory, arguments.kills)
    try:
        measure(scene)
        play(scene, arguments.seed)
        scene.check_end()
    except Exception as fault:
        print(f"{type(fault).__name__}: {fault}\nAll is still in {directory}", file=sys.stderr)
        return 1
    kills = ", ".join(f"{command} {len(pids)}" for command, pids in scene.killed.items())
    print(
        f"killed {kills}; {scene.completed_drains} drains were completed by another, "
        f"{len(scene.leftovers())} hidden files are left; {sum(scene.added.values())} tasks were "
        f"queued and {len(scene.check_list())} arrived; {time.monotonic() - start:.1f} s"
    )
    shutil.rmtree(directory)
    return 0


if __name__ == "__main__":
    sys.exit(main())
