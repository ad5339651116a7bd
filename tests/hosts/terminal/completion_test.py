#!/usr/bin/env python3
"""Presses Tab in real shells, and compares the manual page and the helps with what the program takes.

    completion_test.py PROGRAM WIDGET SOURCES
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from tmux_screen import Screen

PROGRAM = WIDGET = SOURCES = pathlib.Path()

# What is typed, and the line after Tab. Each has one way to go on.
CASES = {
    "wayfell con": "wayfell convert",
    "wayfell convert --to mg": "wayfell convert --to mgrs",
    "wayfell convert --to=mg": "wayfell convert --to=mgrs",
    "wayfell convert 1 2 --j": "wayfell convert 1 2 --json",
    "wayfell convert --datum Tokyo---J": "wayfell convert --datum Tokyo---Japan",
    "wayfell convert --datum Adindan---Bu": r"wayfell convert --datum Adindan---Burkina\ Faso",
    "wayfell today --source rep": "wayfell today --source replay=",
    "wayfell today --source replay=da": "wayfell today --source replay=data.gpx",
    "wayfell today --source=replay=da": "wayfell today --source=replay=data.gpx",
    "wayfell today --replay da": "wayfell today --replay data.gpx",
    "wayfell replay da": "wayfell replay data.gpx",
    "wayfell replay da --demo --ev": "wayfell replay da --demo --every",
    "wayfell settings --local set ut": "wayfell settings --local set utmType",
    "wayfell settings set ut": "wayfell settings set ut",  # which is not among the shared ones
    "wayfell settings set units --t": "wayfell settings set units --type",
    "wayfell settings set useMils t": "wayfell settings set useMils true",
    "wayfell settings set units me": "wayfell settings set units metric",
    "wayfell settings get --lo": "wayfell settings get --local",
    "wayfell waypoint set --gpx da": "wayfell waypoint set --gpx data.gpx",
    "wayfell addresses import --country US da": "wayfell addresses import --country US data.gpx",
    "wayfell addresses use nom": "wayfell addresses use nominatim",
}
COMMANDS_WITH_ACTIONS = ("settings", "waypoint", "track", "addresses", "completions")
SHELLS = {
    "bash": (["--norc", "--noprofile"], "source <(wayfell completions bash)"),
    "zsh": (["-f"], "autoload -U compinit; compinit -u -D; source <(wayfell completions zsh)"),
    "fish": (["--no-config"], "wayfell completions fish | source"),
}


class InShells(unittest.TestCase):
    def test_tab(self):
        home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (home / "data.gpx").touch()
        for name, (arguments, setup) in SHELLS.items():
            self.assertTrue(shutil.which(name), name)
            with Screen(["env", "-C", str(home), name, *arguments], columns=100, HOME=str(home),
                        PATH=f"{PROGRAM.parent}:/usr/bin:/bin", PS1="> ") as screen:
                screen.type_line(f"{setup}; echo ready")
                screen.wait_for(lambda lines: "ready" in lines, "a shell that is set up")
                for typed, completed in CASES.items():
                    with self.subTest(shell=name, typed=typed):
                        self.press_tab(screen, typed, completed)

    def press_tab(self, screen, typed, completed):
        screen.tmux("send-keys", "-l", typed)
        screen.wait_for_text(typed)
        screen.keys("Tab")
        # Fish shows what it suggests behind the cursor, and quotes otherwise.
        screen.tmux("send-keys", "-l", "|")
        screen.wait_for(lambda lines: any(re.sub(r"\s*\|$", "", line).endswith(completed) and
                                          line.endswith("|") for line in lines), completed)
        screen.keys("C-u", "C-l")
        screen.wait_for(lambda lines: typed not in "\n".join(lines), "an empty line")


class Manual(unittest.TestCase):
    """All that the program takes is in its manual page, which can be formatted."""

    manual = ""

    def next_words(self, *before):
        for typed in "", "-":
            told = subprocess.run([PROGRAM, "completions", "next", "--", *before, typed], text=True,
                                  capture_output=True, check=True).stdout
            yield from (line.split("\t")[0] for line in told.splitlines() if "\t" in line)

    def check(self, *command):
        for word in self.next_words(*command):
            with self.subTest(command=command, word=word):
                named = rf"^\.(SS|BI?|BR|RB) .*{word}\b"
                self.assertTrue(re.search(named, self.manual, re.MULTILINE), "not in the manual")
            if not word.startswith("-") and (not command or command[-1] in COMMANDS_WITH_ACTIONS):
                self.check(*command, word)

    def test_it_has_all_that_the_program_takes(self):
        self.manual = (SOURCES / "man/wayfell.1").read_text(encoding="utf-8").replace("\\-", "-")
        self.check()

    def test_formats(self):
        for page in (SOURCES / "man").glob("*.1"):
            done = subprocess.run(["groff", "-ww", "-man", "-Tutf8", page], text=True,
                                  capture_output=True, check=True)
            self.assertEqual(done.stderr, "")


class Help(unittest.TestCase):
    def commands(self, program, *command):
        """Each command and its help, as the one above it lists them."""
        told = subprocess.run([program, *command, "--help"], text=True, capture_output=True,
                              check=True).stdout
        yield command, told
        listed = told.partition("\nSubcommands:\n")[2].partition("\n\n")[0]
        for name in re.findall(r"^  (\w+) ", listed, re.MULTILINE):
            yield from self.commands(program, *command, name)

    def test_fits_80_columns(self):
        seen = set()
        for program in PROGRAM, WIDGET:
            for command, told in self.commands(program):
                seen.add(command)
                with self.subTest(program=program.name, command=command):
                    self.assertLessEqual(max(map(len, told.splitlines())), 80)
        self.assertLessEqual({("today",), ("settings", "set"), ("addresses", "import")}, seen)


if __name__ == "__main__":
    PROGRAM, WIDGET, SOURCES = (pathlib.Path(sys.argv.pop(1)) for _ in range(3))
    unittest.main(verbosity=2)
