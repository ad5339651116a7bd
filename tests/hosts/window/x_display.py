"""An X display that nobody looks at, and a program on it, driven by a real pointer and keys."""

import os
import pathlib
import subprocess
import tempfile
import time

# For what a program does at once; generous, because machines that test are busy.
DEADLINE = 30  # seconds
BETWEEN_LOOKS = 0.01


def wait_until(condition, what):
    deadline = time.monotonic() + DEADLINE
    while not (answer := condition()):
        if time.monotonic() > deadline:
            raise AssertionError(f"never seen: {what}")
        time.sleep(BETWEEN_LOOKS)
    return answer


class Display:
    """Use it as a context manager. The server takes a number that is free. There is no window
    manager on it, and folders of its own for what programs keep."""

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="wayfell-window-")
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1024x768x24",
             "-nolisten", "tcp", "-noreset"],
            pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as told:
            number = told.readline().strip()
        assert number, "Xvfb does not start"
        kept = {name: os.environ[name] for name in ("PATH", "LSAN_OPTIONS") if name in os.environ}
        self.environment = {**kept, "DISPLAY": f":{number}", "LC_ALL": "C.UTF-8",
                            "XDG_RUNTIME_DIR": self.folder.name, "HOME": self.folder.name,
                            "XDG_CONFIG_HOME": str(self.path("config")),
                            "XDG_DATA_HOME": str(self.path("data"))}
        return self

    def __exit__(self, *exception):
        self.server.terminate()
        self.server.wait()
        self.folder.cleanup()

    def path(self, name):
        return pathlib.Path(self.folder.name) / name

    def run(self, *command, check=True):
        return subprocess.run(list(map(str, command)), env=self.environment, capture_output=True,
                              text=True, check=check).stdout

    def xdotool(self, *arguments):
        return self.run("xdotool", *arguments)

    def clipboard(self):
        """Empty while there is none."""
        return self.run("xclip", "-selection", "clipboard", "-out", check=False)


class Window:
    """A program's window. Points are counted from its upper left corner."""

    def __init__(self, display, program, *arguments):
        self.display = display
        self.process = subprocess.Popen([program, *arguments], env=display.environment,
                                        stderr=subprocess.PIPE, text=True)
        self.id = wait_until(self.find, "a window")
        display.xdotool("windowfocus", "--sync", self.id)

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        if self.process.poll() is None:
            self.process.kill()
        self.process.communicate()

    def find(self):
        assert self.process.poll() is None, self.process.stderr.read()
        found = self.display.run("xdotool", "search", "--all", "--onlyvisible", "--pid", self.process.pid,
                                 "--name", "Wayfell", check=False).split()
        return found[0] if found else None

    def geometry(self):
        """x, y, width, height"""
        lines = self.display.xdotool("getwindowgeometry", "--shell", self.id).splitlines()
        values = dict(line.split("=") for line in lines)
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def wait_for_geometry(self, what, condition):
        wait_until(lambda: condition(*self.geometry()), what)
        return self.geometry()

    def keys(self, *keys):
        self.display.xdotool("key", *keys)

    def click(self, x, y):
        left, top, *_ = self.geometry()
        self.display.xdotool("mousemove", left + x, top + y, "click", 1)

    def drag(self, x, y, right, down):
        left, top, *_ = self.geometry()
        start = (left + x, top + y)
        steps = []
        for part in (0.3, 0.6, 1):
            steps += ["mousemove", round(start[0] + part * right), round(start[1] + part * down)]
        self.display.xdotool("mousemove", *start, "mousedown", 1, *steps, "mouseup", 1)

    def ended(self):
        """The exit status."""
        self.process.wait(DEADLINE)
        return self.process.returncode
