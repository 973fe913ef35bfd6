"""An X server to try programs in, and waiting for what they do."""

import os
import subprocess
import time

# Until something must have happened. Nothing waits longer than it takes.
DEADLINE = 10.0
SCREEN = "1440x860x24"


class Failed(Exception):
    pass


def wait(condition, what, nudge=lambda: None):
    """The first true value of the condition."""
    end = time.monotonic() + DEADLINE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"waited in vain: {what}")
        nudge()
        time.sleep(0.02)


def expect(read, expected, what):
    """Waits until the value is the expected one."""
    try:
        wait(lambda: read() == expected, what)
    except Failed:
        raise Failed(f"{what}:\n  expected {expected}\n  there is {read()}") from None


class Desktop:
    """An X server of our own with a window manager, and the hands of its user."""

    def __init__(self, folder):
        self.folder = folder
        self.processes = []
        self.environment = {**os.environ, "QT_QPA_PLATFORM": "xcb", "XDG_RUNTIME_DIR": str(folder),
                            "HOME": str(folder), "LC_ALL": "C.UTF-8",
                            "CORVANE_DEFAULTS_DIRECTORY": str(folder / "settings")}
        reading, writing = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writing), "-screen", "0", SCREEN, "-noreset"],
                   pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            self.environment["DISPLAY"] = ":" + pipe.readline().strip()
        self.start(["openbox", "--sm-disable"])
        wait(lambda: self.do("get_num_desktops", check=False), "for the window manager")
        # Keys for all that is typed: letters that no key has come and go too fast.
        subprocess.run(["setxkbmap", "de"], env=self.environment, check=True)
        self.own = len(self.processes)

    def start(self, command, output=None, **options):
        """A program whose output goes to a file; with all the others' where none is named."""
        with open(self.folder / "output", "ab") as other, open(output or os.devnull, "ab") as file:
            process = subprocess.Popen(command, env=self.environment, stderr=other,
                                       stdout=file if output else other, **options)
        self.processes.append(process)
        return process

    def stop(self, process):
        process.terminate()
        process.wait(DEADLINE)
        self.processes.remove(process)

    def close_programs(self):
        for process in self.processes[self.own:]:
            self.stop(process)

    def close(self):
        for process in self.processes[::-1]:
            self.stop(process)

    def do(self, *arguments, check=True):
        """What xdotool says to it."""
        result = subprocess.run(["xdotool", *map(str, arguments)], env=self.environment,
                                capture_output=True, text=True, timeout=DEADLINE)
        if check and result.returncode:
            raise Failed(f"xdotool {arguments}: {result.stderr}")
        return result.stdout.strip() if result.returncode == 0 else ""

    def picture(self, path):
        subprocess.run(["import", "-window", "root", path], env=self.environment, check=True)

    def window(self, name):
        """The number of the visible window of that name."""
        return wait(lambda: self.do("search", "--onlyvisible", "--name", f"^{name}$", check=False),
                    f"for the window {name}").split()[0]

    def key(self, *keys):
        self.do("key", "--delay", 15, *keys)

    def type(self, text):
        self.do("type", "--delay", 15, text)

    def resize(self, window, width, height):
        self.do("windowsize", "--sync", window, width, height)

    def click(self, point, count=1, button=1, holding=None):
        press = ["click", "--repeat", count, "--delay", 40, button]
        if holding:
            press = ["keydown", holding, *press, "keyup", holding]
        self.do("mousemove", *point, *press)

    def drag(self, start, end, arrived, before_drop=lambda: None):
        """Drops when whoever is below the pointer shows that it takes what is dragged."""
        self.do("mousemove", *start, "mousedown", 1)
        for step in range(1, 11):
            self.do("mousemove", *(round(a + (b - a) * step / 10) for a, b in zip(start, end)))
        wobble = [1]

        def nudge():
            wobble[0] = -wobble[0]
            self.do("mousemove", end[0] + wobble[0], end[1])

        try:
            wait(arrived, "for the drag to arrive", nudge)
            before_drop()
        finally:
            self.do("mouseup", 1)
