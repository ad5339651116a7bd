#!/usr/bin/env python3
"""Drives wayfell-widget by a real pointer and real keys, on an X display of its own.

    window_test.py WIDGET WAYFELL [TEST...]

What the window's widget shows is compared with what `wayfell replay` says of the same recording with
the same taps in it.
"""

import json
import pathlib
import re
import signal
import subprocess
import sys
import unittest

from x_display import Display, Window, wait_until

TERMINAL = pathlib.Path(__file__).resolve().parent.parent / "terminal"
sys.path.append(str(TERMINAL))
from receiver import Gpsd, Receiver  # pylint: disable=wrong-import-position

WALK = TERMINAL / "walk.jsonl"
START = 1000  # of the walk
LAST = 18
WIDGET = WAYFELL = ""

# Of the usual panel, 359 points wide.
TOGGLE = (335, 22)
OPEN = (287, 22)
POSITION = (150, 20)
NOTHING = (200, 264)  # the address
HEIGHTS = {"expanded": 286, "compact": 78}


def segment(number):
    return (10 + 68 * number + 34, 226)


def walk_with_snapshots():
    """The walk, shown at each of its seconds."""
    events = [json.loads(line) for line in WALK.read_text(encoding="utf-8").splitlines()]
    events += [{"t": START + second, "show": True} for second in range(LAST + 1)]
    return sorted(events, key=lambda event: event["t"])


def text_of(events):
    return "".join(json.dumps(event) + "\n" for event in events)


class Walker:
    """Goes through the walk in a window second by second, and remembers what it did."""

    def __init__(self, display, *arguments):
        self.recording = display.path("walk.jsonl")
        self.recording.write_text(text_of(walk_with_snapshots()), encoding="utf-8")
        self.snapshots = display.path("snapshots.jsonl")
        self.window = Window(display, WIDGET, "--source", f"replay={self.recording}", "--rate", "0",
                             "--snapshots", str(self.snapshots), *arguments)
        self.seconds = 0
        self.taps = []

    def seen(self):
        return self.snapshots.read_text(encoding="utf-8").splitlines()

    def step(self, seconds=1):
        for _ in range(seconds):
            self.seconds += 1
            self.window.keys("period")
        # The first second is played before anyone can look.
        wait_until(lambda: len(self.seen()) == self.seconds, f"snapshot {self.seconds}")

    def did(self, event):
        self.taps.append({"t": START + self.seconds, **event})

    def click(self, place, event):
        self.window.click(*place)
        self.did(event)

    def press(self, key, event):
        self.window.keys(key)
        self.did(event)

    def replayed(self):
        events = walk_with_snapshots() + self.taps
        events.sort(key=lambda event: event["t"])  # stable: what was done comes after the snapshot
        done = subprocess.run([WAYFELL, "replay", "-"], text=True, capture_output=True, check=True,
                              input=text_of(events))
        return done.stdout.splitlines()[1:self.seconds + 1]


class CountingReceiver(Receiver):
    """Knows how many listen."""

    listeners = 0

    def _feed(self, connection):
        self.listeners += 1
        super()._feed(connection)
        self.listeners -= 1


def converted(form, *position):
    return subprocess.run([WAYFELL, "convert", "--to", form, *position], text=True,
                          capture_output=True, check=True).stdout.strip()


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.display = self.enterContext(Display())

    def demo(self, *arguments):
        return Window(self.display, WIDGET, "--source", "demo", "--rate", "0", *arguments)

    def wait_for_panel(self, window, layout):
        """The window is as high as the panel and one line."""
        window.wait_for_geometry(
            layout, lambda x, y, width, height: 15 < height - HEIGHTS[layout] < 40)

    def test_a_whole_walk(self):
        walker = Walker(self.display)
        with walker.window as window:
            self.wait_for_panel(window, "expanded")
            walker.step(2)
            walker.click(segment(3), {"segment": 3})
            walker.step()
            walker.press("4", {"segment": 4})
            walker.step()
            walker.click(OPEN, {"tap": "openLabel"})
            walker.press("o", {"tap": "openLabel"})
            walker.step()
            walker.click(TOGGLE, {"tap": "toggleViewButton"})
            self.wait_for_panel(window, "compact")
            walker.step()
            walker.click(OPEN, {"tap": "openMiniLabel"})
            walker.press("t", {"tap": "toggleViewButton"})
            self.wait_for_panel(window, "expanded")
            window.click(*NOTHING)
            walker.step(6)
            walker.press("h", {"disappear": True})
            window.wait_for_geometry("the host's line alone", lambda x, y, w, height: height < 60)
            walker.step()  # to a fix, which the hidden panel does not see
            window.keys("t", "1")  # nor does it feel keys
            walker.press("h", {"appear": True})
            self.wait_for_panel(window, "expanded")
            walker.step(1)
            walker.click(segment(0), {"segment": 0})
            walker.step(4)  # the recording hides and shows it
            self.assertEqual(walker.seen(), walker.replayed())
            self.assertEqual(walker.seconds, LAST)

    def test_it_is_dragged_and_made_wider_and_comes_back_there(self):
        with self.demo() as window:
            self.wait_for_panel(window, "expanded")
            x, y, width, _ = window.geometry()
            window.drag(*NOTHING, 200, 120)
            window.wait_for_geometry("moved", lambda *now: now[:2] == (x + 200, y + 120))
            window.drag(*POSITION, 30, 10)  # which is no button
            window.wait_for_geometry("moved on", lambda *now: now[:2] == (x + 230, y + 130))
            window.drag(*TOGGLE, 50, 50)  # which is one
            window.drag(357, 150, 100, 0)
            window.wait_for_geometry("wider", lambda *now: now[2] == width + 100)
            window.drag(2, 150, 300, 0)
            window.wait_for_geometry("narrowest", lambda *now: now[2] == 280)
            kept = window.geometry()
            self.assertEqual(kept[0] + kept[2], x + 230 + width + 100)  # its right edge stayed
            window.keys("q")
            self.assertEqual(window.ended(), 0)
        with self.demo() as window:
            window.wait_for_geometry("where it was", lambda *now: now == kept)

    def test_all_of_it_is_on_the_screen(self):
        def at(window, *corner):
            return window.wait_for_geometry(corner, lambda *now: now[:2] == corner)

        with self.demo() as window:
            window.keys("t")
            self.wait_for_panel(window, "compact")
            self.display.xdotool("windowmove", window.id, 100, 650)
            *_, height = at(window, 100, 650)
            window.keys("t")
            self.wait_for_panel(window, "expanded")
            at(window, 100, 768 - 286 - (height - 78))  # it has grown upwards
            window.keys("t")
            at(window, 100, 650)
            window.keys("q")
            window.ended()
        with self.demo() as window:  # expanded, as each new one
            at(window, 100, 768 - 286 - (height - 78))
            window.keys("t")
            at(window, 100, 650)
            self.display.xdotool("windowmove", window.id, 5000, 5000)  # nobody fights that
            at(window, 5000, 5000)
            window.keys("q")
            window.ended()
        with self.demo() as window:
            at(window, 1024 - 359, 768 - 286 - (height - 78))

    def test_the_same_one_is_not_shown_twice(self):
        with self.demo() as first:
            self.wait_for_panel(first, "expanded")
            first.keys("h")
            first.wait_for_geometry("hidden", lambda x, y, w, height: height < 60)
            for _ in range(2):
                again = subprocess.run([WIDGET, "--source", "demo", "--rate", "0"], text=True,
                                       capture_output=True, check=True, env=self.display.environment)
                self.assertIn("running already", again.stderr)
                self.wait_for_panel(first, "expanded")
            self.display.xdotool("windowmove", first.id, 300, 200)
            first.wait_for_geometry("moved", lambda *now: now[:2] == (300, 200))
            wait_until(lambda: self.kept("hostWindowTop") == "200", "its place, kept")
            with self.demo("--theme", "light") as other:  # asks for something else
                other.wait_for_geometry("beside it", lambda *now: now[:2] == (332, 232))
            first.process.kill()
        with self.demo() as window:  # a socket is left that nobody listens on
            window.wait_for_geometry("alone", lambda *now: now[:2] == (300, 200))

    def kept(self, key):
        return self.display.run("sqlite3", self.display.path("config/wayfell/widget.db"),
                                f"SELECT value FROM settings WHERE key = '{key}'",
                                check=False).strip()

    def test_keys_are_listed_until_one_is_pressed(self):
        with self.demo() as window:
            self.wait_for_panel(window, "expanded")
            for take_away in (lambda: window.keys("t"), lambda: window.click(*TOGGLE)):
                window.keys("question")
                window.wait_for_geometry("the list", lambda x, y, w, height: 230 < height < 280)
                take_away()
                self.wait_for_panel(window, "expanded")  # and no more has happened
            window.keys("question")
            window.wait_for_geometry("the list", lambda x, y, w, height: 230 < height < 280)
            window.click(100, 36)  # the second, which is the layout's
            self.wait_for_panel(window, "compact")
            window.keys("t")
            self.wait_for_panel(window, "expanded")
            window.keys("h")
            *_, height = window.wait_for_geometry("hidden", lambda x, y, w, height: height < 60)
            window.click(100, height - 8)
            self.wait_for_panel(window, "expanded")

    def test_the_position_is_copied(self):
        walker = Walker(self.display)
        with walker.window as window:
            walker.step(2)
            window.click(*POSITION)
            shown = json.loads(walker.seen()[-1])["labels"]["userCoordinateLabel"]
            wait_until(lambda: self.display.clipboard() == shown, shown)
            # It is told in a line of its own, which goes again.
            window.wait_for_geometry("told", lambda x, y, w, height: height - 286 > 40)
            self.wait_for_panel(window, "expanded")

    def wait_until_it_copies(self, window, text):
        def copies():
            window.keys("ctrl+c")
            return self.display.clipboard() == text
        wait_until(copies, text)

    def test_it_follows_a_receiver(self):
        # 46° 58.9648' N, 7° 56.3987' E
        receiver = Receiver(latitude="4658.9648", longitude="00756.3987", altitude=905, knots=2,
                            course=48)
        gpsd = self.enterContext(Gpsd(receiver))
        position = converted("dms", str(46 + 58.9648 / 60), str(7 + 56.3987 / 60))
        for source in (f"gpsd={gpsd.address}", f"nmea=127.0.0.1:{receiver.port}"):
            with self.subTest(source), Window(self.display, WIDGET, "--source", source,
                                              "--copy-format", "dms") as window:
                self.wait_until_it_copies(window, position)

    def test_who_is_not_seen_does_not_listen(self):
        receiver = CountingReceiver(latitude="4658.9648", longitude="00756.3987", altitude=905,
                                    knots=2, course=48)
        source = f"nmea=127.0.0.1:{receiver.port}"
        with Window(self.display, WIDGET, "--source", source) as window:
            for put_away, bring_back in (("windowunmap", "windowmap"), ("h", "h")):
                wait_until(lambda: receiver.listeners == 1, "one who listens")
                self.change(window, put_away)
                wait_until(lambda: receiver.listeners == 0, "nobody who listens")
                self.change(window, bring_back)
            wait_until(lambda: receiver.listeners == 1, "one who listens again")

    def change(self, window, how):
        if how.startswith("window"):
            self.display.xdotool(how, window.id)
        else:
            self.display.xdotool("windowfocus", "--sync", window.id)
            window.keys(how)

    def test_it_runs_where_nobody_sees_it(self):
        recording, shown = self.display.path("walk.jsonl"), self.display.path("shown.jsonl")
        recording.write_text(text_of(walk_with_snapshots()), encoding="utf-8")
        environment = {**self.display.environment, "QT_QPA_PLATFORM": "offscreen"}
        with subprocess.Popen([WIDGET, "--source", f"replay={recording}", "--snapshots", str(shown)],
                              env=environment, stderr=subprocess.DEVNULL) as widget:
            wait_until(lambda: widget.poll() is not None or shown.exists() and shown.stat().st_size,
                       "a snapshot")
            widget.terminate()
        self.assertEqual(widget.returncode, 0)

    def test_it_ends_by_signals_and_keys(self):
        for end in (signal.SIGTERM, signal.SIGINT, "q", "ctrl+q"):
            with self.subTest(end), self.demo() as window:
                self.wait_for_panel(window, "expanded")
                if isinstance(end, str):
                    window.keys(end)
                else:
                    window.process.send_signal(end)
                self.assertEqual(window.ended(), 0)
                self.assertNotIn("wayfell-widget:", window.process.stderr.read())


class CommandLineTest(unittest.TestCase):
    def run_widget(self, *arguments, **environment):
        return subprocess.run([WIDGET, *arguments], text=True, capture_output=True, check=False,
                              env={"PATH": "/usr/bin:/bin", "HOME": "/dev/null", **environment})

    def test_without_a_display_it_says_so(self):
        for environment in ({}, {"DISPLAY": ":32000"},
                            {"WAYLAND_DISPLAY": "none", "XDG_RUNTIME_DIR": "/dev/null"}):
            with self.subTest(environment):
                done = self.run_widget("--source", "demo", **environment)
                self.assertEqual(done.returncode, 1)
                self.assertIn("no display answers", done.stderr)
                self.assertEqual(self.run_widget("--check-display", **environment).returncode, 1)
        with Display() as display:
            answer = self.run_widget("--check-display", DISPLAY=display.environment["DISPLAY"])
            self.assertEqual(answer.returncode, 0)

    def test_bad_usage(self):
        for arguments in (["--source", "nowhere"], ["--source", "gpsd", "--rate", "2"],
                          ["--source", "demo", "--local", "units"], ["--theme", "pink"],
                          ["--copy-format", "dd"], ["--rate", "fast"], ["--font-scale", "3"], ["more"]):
            with self.subTest(arguments):
                done = self.run_widget(*arguments)
                self.assertEqual(done.returncode, 2)
                self.assertTrue(done.stderr)

    def test_help_says_what_the_manual_says(self):
        page = pathlib.Path(__file__).parents[3] / "man/wayfell-widget.1"
        manual = page.read_text(encoding="utf-8").replace("\\-", "-")
        for option in re.findall("--[a-z-]+", self.run_widget("--help").stdout):
            self.assertIn(option, manual)


if __name__ == "__main__":
    WIDGET, WAYFELL = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
