"""A terminal of a fixed size in which a program runs: tmux, on a socket and server of its own."""

import difflib
import os
import shlex
import subprocess
import tempfile
import time

# For what a program does at once; generous, because machines that test are busy.
DEADLINE = 30  # seconds
BETWEEN_LOOKS = 0.01


def wait_until(condition, what):
    deadline = time.monotonic() + DEADLINE
    while not condition():
        if time.monotonic() > deadline:
            raise AssertionError(f"never seen: {what}")
        time.sleep(BETWEEN_LOOKS)


class Screen:
    """Use it as a context manager; the program ends with it.

    The program sees no more of the environment than PATH, TERM, LC_ALL and what is given.
    """

    def __init__(self, command, columns=80, rows=24, term="xterm-256color", locale="C.UTF-8", **more):
        environment = {"PATH": os.environ["PATH"], "TERM": term, "LC_ALL": locale, **more}
        assignments = [f"{name}={value}" for name, value in environment.items()]
        self.folder = tempfile.TemporaryDirectory(prefix="wayfell-tmux-")
        self.tmux("-u", "new-session", "-d", "-x", str(columns), "-y", str(rows),
                  "exec " + shlex.join(["env", "-i", *assignments, *command]))

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        self.tmux("kill-server", check=False)
        self.folder.cleanup()

    def tmux(self, *arguments, check=True):
        environment = {**os.environ, "LC_ALL": "C.UTF-8"}
        environment.pop("TMUX", None)
        done = subprocess.run(["tmux", "-S", f"{self.folder.name}/socket", "-f", "/dev/null",
                               *arguments],
                              capture_output=True, text=True, env=environment, check=False)
        if check and done.returncode != 0:
            raise AssertionError(f"tmux {arguments}: {done.stderr}")
        return done.stdout

    def lines(self, colors=False):
        """What is shown, without the blank end of each line and of the screen."""
        shown = self.tmux("capture-pane", "-p", *(["-e"] if colors else []), check=False)
        return [line.rstrip() for line in shown.rstrip().split("\n")]

    def wait_for(self, condition, what):
        """Waits until the condition holds for the lines shown, and returns them."""
        seen = []

        def holds():
            seen[:] = self.lines()
            return condition(seen)

        try:
            wait_until(holds, what)
        except AssertionError as error:
            raise AssertionError("\n".join([str(error), *seen])) from None
        return seen

    def wait_for_text(self, text):
        return self.wait_for(lambda lines: any(text in line for line in lines), repr(text))

    def wait_for_lines(self, expected, name):
        """Waits until just these lines are shown."""
        try:
            self.wait_for(lambda lines: lines == expected, name)
        except AssertionError as error:
            difference = difflib.unified_diff(expected, self.lines(), name, "the screen", lineterm="")
            raise AssertionError("\n".join(difference)) from error

    def keys(self, *keys):
        """Types: characters, or names such as Tab, Right, C-z."""
        self.tmux("send-keys", *keys)

    def type_line(self, text):
        self.tmux("send-keys", "-l", text)
        self.keys("Enter")

    def click(self, row, column, button=0):
        """Presses and releases the left button, or another, as xterm reports it (SGR)."""
        for end in "Mm":
            report = f"\033[<{button};{column + 1};{row + 1}{end}"
            self.tmux("send-keys", "-H", *(f"{byte:02x}" for byte in report.encode()))

    def click_on(self, text):
        """Clicks on the middle of a text that is shown."""
        lines = self.wait_for_text(text)
        row = next(row for row, line in enumerate(lines) if text in line)
        self.click(row, lines[row].index(text) + len(text) // 2)

    def resize(self, columns, rows):
        self.tmux("resize-window", "-x", str(columns), "-y", str(rows))

    def flag(self, name):
        """Of tmux's formats: alternate_on, cursor_flag, mouse_any_flag ..."""
        return self.tmux("display-message", "-p", f"#{{{name}}}").strip()

    def pid(self):
        return int(self.flag("pane_pid"))
