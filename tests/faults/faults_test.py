#!/usr/bin/env python3
"""Puts obstacles in the program's way, and checks what it says and what it leaves.

Whatever the obstacle, a command either does its work or ends with status 1 and one line that says
why. Each file is then as it was or as it was to become, and once the obstacle is gone the same
command works, with no task lost or there twice.
"""

import contextlib
import ctypes
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
from check_archive import Archive  # noqa: E402

PUBLISHED = "".join(f"Original {number} +project{number % 7} @category\n" for number in range(60))
CHANGED = PUBLISHED + "Written after the list was published\n"
QUEUED = {"First queued", "Second queued"}

INFO = "container/shared-info.archive"
REPOSITORY = "container/shared-repository.archive"
TIMESTAMP = "container/updated.timestamp"
QUEUE = "container/insert-queue"
LIST, NEXT, JOURNAL = ("list/todo.txt" + end for end in ("", ".drain-next", ".drain-journal"))

WRITERS = {"publish": ["publish", LIST], "drain": ["drain", LIST], "add": ["add", "Third queued"]}
READERS = {
    "inspect info": ["inspect", INFO],
    "inspect repository": ["inspect", REPOSITORY],
    "inspect timestamp": ["inspect", TIMESTAMP],
} | {name: [name] for name in ("show", "projects", "categories", "tasks", "status")}
COMMANDS = WRITERS | READERS
READERS_OF = {
    INFO: ("show", "status", "inspect info"),
    REPOSITORY: ("projects", "categories", "tasks", "add", "inspect repository"),
    TIMESTAMP: ("status", "inspect timestamp"),
}

PAGE = os.sysconf("SC_PAGESIZE")
DISK_PAGES = 64


def become_weak():
    """From the next program on, permissions count for the superuser too."""
    if os.geteuid() == 0:
        drop_from_bounding_set, override, read_search = 24, 1, 2
        for capability in (override, read_search):
            ctypes.CDLL(None).prctl(drop_from_bounding_set, capability, 0, 0, 0)


def limit_file_size(size):
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

    return limit


class Scene:
    """A directory with a list that has changed since it was published, and two queued tasks."""

    corvane = None

    def __init__(self, directory, template=None):
        self.directory = directory
        if template:
            shutil.copytree(template.directory, directory)
            return
        (self / "list").mkdir()
        (self / LIST).write_text(PUBLISHED)
        for arguments in (["publish", LIST], ["add", "First queued"], ["add", "Second queued"]):
            self.run(arguments).check_returncode()
        (self / LIST).write_text(CHANGED)

    def __truediv__(self, name):
        return self.directory / name

    def run(self, arguments, prepare=None):
        return subprocess.run(
            [self.corvane, "--container", "container", *arguments],
            cwd=self.directory,
            capture_output=True,
            text=True,
            preexec_fn=prepare,
            env={"HOME": str(self.directory), "LC_ALL": "C", "TZ": "UTC"},
            timeout=60,
        )

    def content(self):
        """The bytes of each file, and what else there is."""
        content = {}
        for path in self.directory.rglob("*"):
            name = str(path.relative_to(self.directory))
            content[name] = path.read_bytes() if path.is_file() else "no file"
        return content

    def put(self, name, content):
        """In the place of what is there; a directory with something in it where there is none."""
        path = self / name
        if path.is_dir():
            shutil.rmtree(path)
        path.unlink(missing_ok=True)
        if content is not None:
            path.write_bytes(content)
        else:
            path.mkdir()
            (path / "inside").write_text("mine")


class Faults(unittest.TestCase):
    may_mount = False
    template = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="corvane-faults.")
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        self.scenes = 0

    def scene(self):
        self.scenes += 1
        return Scene(self.directory / str(self.scenes), self.template)

    @contextlib.contextmanager
    def disk(self, scene, part):
        """Gives a part of the scene a file system of its own."""
        if not self.may_mount:
            self.skipTest("may not mount a file system")
        size = f"size={DISK_PAGES * PAGE}"
        subprocess.run(["mount", "-t", "tmpfs", "-o", size, "none", scene / part], check=True)
        try:
            shutil.copytree(self.template / part, scene / part, dirs_exist_ok=True)
            yield
        finally:
            subprocess.run(["umount", scene / part], check=True)

    def assert_works(self, result):
        self.assertEqual((result.returncode, result.stderr), (0, ""), result.args)

    def assert_fails(self, result, *reasons):
        self.assertEqual(result.returncode, 1, result)
        self.assertRegex(result.stderr, r"\Acorvane: [^\n]+\n\Z")
        for reason in reasons:
            self.assertIn(reason, result.stderr)

    def assert_drained(self, content):
        text = content[LIST].decode()
        self.assertEqual(text[: len(CHANGED)], CHANGED)
        # Copies of batches have no certain order.
        self.assertEqual(set(text[len(CHANGED) :].splitlines()), QUEUED)
        self.assertEqual(text.count("\n"), CHANGED.count("\n") + len(QUEUED))

    def assert_whole(self, before, after):
        """Each file is as it was or as it was to become, and the tasks are in one place."""
        batches = {name for name in before if name.startswith(QUEUE + "/")}
        drained = after[LIST] != before[LIST]
        if drained:
            self.assert_drained(after)
        self.assertEqual(set(after), set(before) - batches if drained else set(before))
        self.assertTrue(all(after[name] == before[name] for name in batches & set(after)))
        for name in (INFO, REPOSITORY, TIMESTAMP):
            if after.get(name) != before.get(name):
                Archive(after[name])

    def assert_drains(self, scene):
        """The tasks arrive now, and nothing else is left."""
        self.assert_works(scene.run(WRITERS["drain"]))
        content = scene.content()
        self.assert_drained(content)
        entries = {"list", "container", LIST, QUEUE, INFO, REPOSITORY, TIMESTAMP}
        self.assertEqual(set(content), entries)

    def works_or_leaves_all_whole(self, scene, command, reason, prepare=None):
        before = scene.content()
        result = scene.run(WRITERS[command], prepare)
        if result.returncode == 0:
            self.assert_works(result)
            return True
        self.assert_fails(result, reason)
        self.assert_whole(before, scene.content())
        return False

    def test_full_disk(self):
        """With more and more space left, until the command works: each of its writes fails once."""
        for part, commands in {"": WRITERS, "container": WRITERS, "list": ["drain"]}.items():
            for command in commands:
                with self.subTest(part=part, command=command):
                    steps = (
                        self.works_on_full_disk(part, command, pages) for pages in range(DISK_PAGES)
                    )
                    self.assertFalse(next(steps))
                    self.assertTrue(any(steps))

    def works_on_full_disk(self, part, command, pages):
        scene = self.scene()
        filler = scene / part / "filler"
        with self.disk(scene, part):
            with contextlib.suppress(OSError), open(filler, "wb", buffering=0) as file:
                while True:
                    file.write(bytes(PAGE))
            os.truncate(filler, max(0, filler.stat().st_size - pages * PAGE))
            works = self.works_or_leaves_all_whole(scene, command, "No space left on device")
            filler.unlink()
            if not works:
                self.assert_drains(scene)
            return works

    def test_limited_file_size(self):
        for command in WRITERS:
            with self.subTest(command=command):
                sizes = (0, 1, 100, 500, 1000, 2000, 4000, 5000, 10000, 20000, 10**6)
                steps = (self.works_with_file_size(command, size) for size in sizes)
                self.assertFalse(next(steps))
                self.assertTrue(any(steps))

    def works_with_file_size(self, command, size):
        scene = self.scene()
        works = self.works_or_leaves_all_whole(
            scene, command, "File too large", limit_file_size(size)
        )
        if not works:
            self.assert_drains(scene)
        return works

    def test_read_only_disk(self):
        for part, commands in {"container": WRITERS, "list": ["drain"]}.items():
            scene = self.scene()
            with self.disk(scene, part):
                subprocess.run(["mount", "-o", "remount,bind,ro", scene / part], check=True)
                self.check_read_only(scene, commands, "Read-only file system")
                subprocess.run(["mount", "-o", "remount,bind,rw", scene / part], check=True)
                self.assert_drains(scene)

    def test_write_protected_directories(self):
        """Each by itself, and not the ones below it."""
        cases = {"container": ["publish"], QUEUE: WRITERS, "list": ["drain"]}
        for directory, commands in cases.items():
            scene = self.scene()
            (scene / directory).chmod(0o555)
            self.check_read_only(scene, commands, "Permission denied", become_weak)
            (scene / directory).chmod(0o755)
            self.assert_drains(scene)

    def check_read_only(self, scene, commands, reason, prepare=None):
        before = scene.content()
        for command in commands:
            with self.subTest(command=command):
                self.assert_fails(scene.run(COMMANDS[command], prepare), reason)
                self.assertEqual(scene.content(), before)
        for command, arguments in READERS.items():
            with self.subTest(command=command):
                self.assert_works(scene.run(arguments, prepare))

    def test_missing_container(self):
        scene = self.scene()
        shutil.rmtree(scene / "container")
        before = scene.content()
        for command in set(COMMANDS) - {"publish"}:
            with self.subTest(command=command):
                reason = "No such file" if "inspect" in command else "there is no container"
                self.assert_fails(scene.run(COMMANDS[command]), reason)
                self.assertEqual(scene.content(), before)
        self.assert_works(scene.run(COMMANDS["publish"]))

    def test_something_else_in_the_place_of_a_file(self):
        a_directory = ": Is a directory"
        cases = [
            (name, None, dict.fromkeys((*readers, "publish", "drain"), a_directory))
            for name, readers in READERS_OF.items()
        ] + [
            (LIST, None, dict.fromkeys(("publish", "drain"), a_directory)),
            (NEXT, None, {"drain": a_directory}),
            (JOURNAL, None, {"drain": a_directory}),
            (JOURNAL, b"{}", {"drain": "not a journal"}),
            (QUEUE, b"mine", dict.fromkeys((*WRITERS, "status"), "insert-queue'")),
            ("container", b"mine", dict.fromkeys(COMMANDS, "container")),
        ]
        for name, content, fails in cases:
            self.check_obstacle(name, content, fails)

    def check_obstacle(self, name, content, fails):
        for command, arguments in COMMANDS.items():
            with self.subTest(name=name, content=(content or b"")[:20], command=command):
                scene = self.scene()
                scene.put(name, content)
                before = scene.content()
                result = scene.run(arguments)
                if command not in fails:
                    self.assert_works(result)
                    continue
                self.assert_fails(result, fails[command])
                self.assert_whole(before, scene.content())
                if command == "drain" and name in (INFO, REPOSITORY, TIMESTAMP, NEXT, JOURNAL):
                    scene.put(name, b"")
                    self.assert_drains(scene)

    def test_malformed_archives(self):
        for name, commands in READERS_OF.items():
            whole = (self.template / name).read_bytes()
            for content in (b"", b"garbage", whole[:-1], whole[: len(whole) // 2], whole[1:]):
                self.check_obstacle(name, content, dict.fromkeys(commands, "cannot read '"))
            other = (self.template / (INFO if name == TIMESTAMP else TIMESTAMP)).read_bytes()
            self.check_obstacle(name, other, dict.fromkeys(commands[:-1], "cannot read '"))

    def test_unreadable_files(self):
        cases = READERS_OF | {LIST: ("publish", "drain"), QUEUE: (*WRITERS, "status")}
        for name, fails in cases.items():
            for command, arguments in COMMANDS.items():
                with self.subTest(name=name, command=command):
                    scene = self.scene()
                    before = scene.content()
                    (scene / name).chmod(0)
                    result = scene.run(arguments, become_weak)
                    (scene / name).chmod(0o755)
                    if command not in fails:
                        self.assert_works(result)
                        continue
                    self.assert_fails(result, "Permission denied")
                    self.assertEqual(scene.content(), before)

    def test_malformed_batch(self):
        scene = self.scene()
        scene.put(QUEUE + "/task-proxies-2024-03-05-14h07m09s123.archive", b"garbage")
        result = scene.run(WRITERS["drain"])
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"\Acorvane: dropped 'task-proxies-2024[^\n]*\n\Z")
        self.assert_drains(scene)


def start_where_mounting_is_allowed():
    """Starts this test again with mounts of its own, which end with it."""
    for options in (["--mount"], ["--mount", "--map-root-user"]):
        unshare = ["unshare", *options]
        with contextlib.suppress(OSError):
            if subprocess.run([*unshare, "true"], stderr=subprocess.DEVNULL).returncode == 0:
                python = [sys.executable, "-B", __file__, "--may-mount"]
                os.execvp("unshare", [*unshare, *python, *sys.argv[1:]])


def main():
    if "--may-mount" in sys.argv:
        sys.argv.remove("--may-mount")
        Faults.may_mount = True
    else:
        start_where_mounting_is_allowed()
    Scene.corvane = pathlib.Path(sys.argv.pop(1)).resolve()
    with tempfile.TemporaryDirectory(prefix="corvane-faults.") as directory:
        Faults.template = Scene(pathlib.Path(directory))
        unittest.main()


if __name__ == "__main__":
    main()
