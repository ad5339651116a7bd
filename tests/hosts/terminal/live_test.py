#!/usr/bin/env python3
"""Drives `wayfell today` in a real terminal by keys, clicks, resizes and signals.

    live_test.py PROGRAM [TEST...]

Screens are compared with the texts beside this file, which were checked by hand.
"""

import contextlib
import os
import pathlib
import re
import shlex
import signal
import subprocess
import sys
import tempfile
import unittest

import tmux_screen
from tmux_screen import Screen

HERE = pathlib.Path(__file__).resolve().parent
WALK = HERE / "walk.jsonl"
PROGRAM = ""


def today(*arguments):
    return [PROGRAM, "today", *arguments]


def walk():
    return today("--replay", str(WALK), "--rate", "0")


def shown(command, *arguments, **more):
    """A screen on which the panel is."""
    screen = Screen(command, *arguments, **more)
    screen.wait_for_text("REPLAY")
    return screen


def is_running(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="ascii").split()[2] != "Z"
    except FileNotFoundError:
        return False


def expected(name):
    return (HERE / f"{name}.txt").read_text(encoding="utf-8").rstrip().split("\n")


class LivePanel(unittest.TestCase):
    def test_a_whole_walk(self):
        with shown(walk(), rows=20) as screen:
            def sees(name):
                screen.wait_for_lines(expected(name), name)

            sees("appeared")
            screen.keys(".", ".")  # a second each
            sees("first-fixes")
            screen.keys("3")
            sees("mgrs")
            screen.keys(".")
            screen.click_on("DMs")
            screen.wait_for_text("‹DMs›")
            screen.keys("t")
            sees("compact")
            screen.click_on("▸")
            screen.keys("Tab", "Enter", ".", ".", "4", "o")
            screen.wait_for_text("Open: wayfell://openFromWidget")
            screen.click_on("[Open]")
            screen.wait_for_text("Open 2: wayfell://openFromWidget")
            screen.click_on("Altitude")  # which is nothing to touch
            screen.keys(*"." * 7)
            sees("stale")

            screen.keys("h", ".")  # to a fix, which the hidden panel does not see
            sees("hidden")
            screen.keys("t", "o", "0")  # nor does it feel taps
            screen.click(0, 60)  # beyond the text in its place
            sees("shown-again")
            screen.keys(".", ".")  # the recording hides it
            sees("put-away")
            screen.keys("?")
            sees("keys")
            screen.keys("q", "?")  # which leaves the keys only
            screen.click_on("one second on, in a pause")
            screen.keys("+", "+")
            screen.wait_for_text("paused  ×5")
            screen.keys("-", "-", "-", "Space")
            screen.wait_for_text("×0.5")
            screen.keys("Space", "-", "-", "-", "-", "+", "+", "+")
            screen.wait_for(lambda lines: lines[-2].endswith("paused"), "rate 1")
            screen.keys(".", ".")
            sees("ended")
            screen.keys(".", "Space")
            sees("ended")

    def test_the_size_of_the_window(self):
        with shown(walk()) as screen:
            for _ in range(2):
                screen.keys("Right")
            screen.wait_for_lines(expected("large"), "large")
            for columns, rows, name in [(40, 16, "narrow"), (40, 11, "low"), (40, 5, "lowest"),
                                        (30, 16, "too-narrow"), (80, 24, "large")]:
                screen.resize(columns, rows)
                screen.wait_for_lines(expected(name), name)
            for button in 0, 1, 2, 64, 65:  # none of which is to make it wait for more
                screen.click(4, 4, button)
            screen.resize(40, 16)
            screen.wait_for_lines(expected("narrow"), "narrow")
            screen.resize(1, 1)
            screen.resize(500, 200)
            screen.wait_for_text("0-4 format")

    def test_terminals_without_unicode(self):
        for term in "vt100", "xterm":
            with self.subTest(term), shown(walk(), 48, 16, term=term, locale="C") as screen:
                screen.keys(".", ".")
                screen.wait_for_lines(expected("ascii"), "ascii")

    def test_colors(self):
        color = re.compile("\033\\[[0-9;]*[34][0-7]m")
        with shown(walk(), term="xterm") as screen:
            self.assertIn("\033[2m▽", "\n".join(screen.lines(colors=True)))  # dim
            screen.keys(".")
            screen.wait_for_text("▼")
            self.assertIn("\033[31m▼", re.sub("\033\\[1m", "", "\n".join(screen.lines(colors=True))))
        for environment in {"NO_COLOR": "1"}, {"term": "vt100"}:
            with self.subTest(environment), shown(walk(), **environment) as screen:
                self.assertNotRegex("\n".join(screen.lines(colors=True)), color)

    def test_a_recording_from_standard_input(self):
        with Screen(["sh", "-c", f"cat {WALK} | {PROGRAM} today --replay - --rate 1000"]) as screen:
            screen.wait_for_text("from standard input")
            screen.wait_for_text("ended")
        with Screen(["bash", "--norc"]) as screen:
            screen.type_line(f"{PROGRAM} today --replay -; echo status $?")
            screen.wait_for_text("the recording cannot come from it")
            screen.wait_for_text("status 2")

    def test_a_receiver_through_a_pipe_is_seen_as_it_goes_and_ends_with_ctrl_c(self):
        fix = '{"class":"TPV","mode":3,"time":"2024-05-01T08:00:00Z","lat":46.5,"lon":8.25}'
        reports = f"echo '{fix}'; exec tail -f /dev/null"
        replay = f"trap : INT; {PROGRAM} replay - --text; echo status $?"
        with Screen(["bash", "--norc"]) as screen:
            screen.type_line(f"clear; ({reports}) | ({replay})")
            screen.wait_for_text("46.50000°N")
            screen.keys("C-c")
            screen.wait_for_text("status 0")
            self.assertEqual("\n".join(screen.lines()).count("46.50000°N"), 1)

    def test_a_recording_with_a_fault(self):
        with tempfile.NamedTemporaryFile("w", suffix=".jsonl") as file:
            file.write(WALK.read_text(encoding="utf-8").replace('{"t":1003', '{"t":"x"', 1))
            file.flush()
            with Screen(["bash", "--norc"]) as screen:
                screen.type_line(f"{PROGRAM} today --rate 1000 --replay {file.name}; echo status $?")
                screen.wait_for_text("Stopped: line 8: t: ")
                screen.keys("q")
                screen.wait_for_text("status 1")
                screen.wait_for_text("line 8: t: ")


class TerminalAfterwards(unittest.TestCase):
    """Whatever ends the program, the terminal is as it was."""

    @contextlib.contextmanager
    def shell(self, command):
        """A shell's screen on which the command shows the panel, and the modes from before."""
        # Sanitizers would make exit statuses of crashes.
        sanitizers = ":".join(f"handle_{crash}=0" for crash in (
            "segv", "abort", "sigbus", "sigfpe", "sigill"))
        with Screen(["bash", "--norc", "--noprofile"], PS1="$ ", ASAN_OPTIONS=sanitizers) as screen:
            screen.type_line("stty -g | md5sum")
            modes = screen.wait_for(lambda lines: lines[-2:-1] and lines[-2].endswith("  -"),
                                    "the terminal's modes")[-2]
            screen.keys("C-l")
            screen.type_line(command)
            screen.wait_for_text("REPLAY")
            self.assertEqual(screen.flag("alternate_on"), "1")
            yield screen, modes

    def assert_restored(self, screen, modes):
        self.assertEqual([screen.flag(name) for name in (
            "alternate_on", "cursor_flag", "mouse_any_flag", "keypad_flag", "keypad_cursor_flag")],
            ["0", "1", "0", "0", "0"])
        screen.type_line("stty -g | md5sum")
        screen.wait_for(lambda lines: lines[-2:-1] == [modes], "the terminal's modes from before")

    def child(self, screen):
        shell = screen.pid()
        children = pathlib.Path(f"/proc/{shell}/task/{shell}/children").read_text(encoding="ascii")
        return int(children.split()[0])

    def test_after_quitting_and_signals(self):
        ends = {"q": 0, "C-c": 128 + signal.SIGINT}
        ends |= {number: 128 + number for number in (
            signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT, signal.SIGINT, signal.SIGSEGV,
            signal.SIGABRT, signal.SIGBUS, signal.SIGFPE, signal.SIGILL)}
        for end, status in ends.items():
            with self.subTest(end), self.shell("ulimit -c 0; " + shlex.join(walk())) as (screen, modes):
                if isinstance(end, str):
                    screen.keys(end)
                else:
                    os.kill(self.child(screen), end)
                    if end != signal.SIGINT:  # of which the shell says nothing
                        screen.wait_for_text(signal.strsignal(end))
                screen.wait_for(lambda lines: lines[-1] == "$", "a prompt")
                screen.type_line("echo status $?")
                screen.wait_for_text(f"status {status}")
                self.assert_restored(screen, modes)

    def test_the_next_program_can_read(self):
        command = ["sh", "-c", shlex.join(walk()) + '; read line; echo "read $line"; read line']
        with shown(command) as screen:
            screen.keys("q")
            screen.wait_for(lambda lines: "REPLAY" not in str(lines), "the shell")
            screen.type_line("a line")
            screen.wait_for_text("read a line")

    def test_the_program_ends_with_its_terminal(self):
        with shown(["sh", "-c", "trap '' HUP; exec " + shlex.join(walk())]) as screen:
            pid = screen.pid()
        tmux_screen.wait_until(lambda: not is_running(pid), "its end")

    def test_stopping_and_going_on(self):
        with self.shell(shlex.join(walk())) as (screen, modes):
            screen.keys(".", ".")
            screen.wait_for_lines(expected("large"), "large")
            screen.keys("C-z")
            screen.wait_for_text("Stopped")
            self.assert_restored(screen, modes)
            screen.resize(40, 16)
            screen.type_line("fg")
            screen.wait_for_lines(expected("narrow"), "narrow")
            screen.keys("q")
            screen.wait_for_text("fg")
            self.assert_restored(screen, modes)


class NoTerminal(unittest.TestCase):
    def test_prints_the_panel_at_the_first_fix(self):
        done = subprocess.run(today("--replay", str(WALK)), text=True, capture_output=True,
                              check=False, stdin=subprocess.DEVNULL, start_new_session=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout.rstrip().split("\n"), expected("printed"))

    def test_a_terminal_that_cannot_place_texts_is_none(self):
        for term in "dumb", "nobody-knows-this":
            with Screen(["sh", "-c", shlex.join(walk()) + "; cat"], term=term) as screen:
                screen.wait_for_lines(expected("printed"), "printed")


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main(verbosity=2)
