#!/usr/bin/env python3
"""Drives `wayfell today` on a real gpsd and on settings that other programs write meanwhile.

    receiver_test.py PROGRAM [TEST...]

Values on the panel are those of the receiver's sentences, as they stand there.
"""

import contextlib
import pathlib
import shlex
import socket
import subprocess
import sys
import tempfile
import unittest

from receiver import Gpsd, Receiver
from tmux_screen import Screen

PROGRAM = ""

# 46 degrees 58.9648 minutes north, 7 degrees 56.5115 minutes east.
HERE = {"latitude": "4658.9648", "longitude": "00756.5115", "altitude": "968.0", "knots": "9.72",
        "course": "45.0"}
THERE = {**HERE, "latitude": "4700.1234", "altitude": "812.0"}
LATITUDE_HERE = "46° 58.9648' N"
LATITUDE_THERE = "47° 0.1234' N"


class Home:
    """Folders for settings and data that nobody else uses."""

    def __init__(self, folder):
        self.environment = {"HOME": folder, "XDG_DATA_HOME": folder + "/data",
                            "XDG_CONFIG_HOME": folder + "/config"}

    def wayfell(self, *arguments):
        """Runs a command of the program, as from another terminal."""
        return subprocess.run([PROGRAM, *arguments], text=True, stdout=subprocess.PIPE, check=True,
                              env={"PATH": "/usr/bin:/bin", **self.environment}).stdout


class OnAReceiver(unittest.TestCase):
    def setUp(self):
        self.home = Home(self.enterContext(tempfile.TemporaryDirectory(prefix="wayfell-home-")))
        for setting in "coordinateUnits 1", "units 1", "speed 2":
            self.home.wayfell("settings", "set", *setting.split())

    @contextlib.contextmanager
    def panel(self, state):
        with Gpsd(Receiver(**state)) as gpsd, Screen(
                [PROGRAM, "today", "--gpsd", gpsd.address], rows=18,  # too few for large digits
                **self.home.environment) as screen:
            yield screen, gpsd

    def test_the_daemon_dies_and_comes_back(self):
        with self.panel({}) as (screen, gpsd):
            screen.wait_for_text("no fix from ")
            gpsd.receiver.state = HERE
            screen.wait_for_text(LATITUDE_HERE)
            screen.wait_for_text("18.0 km/h")  # 9.72 knots
            screen.wait_for_text("968 m")
            lines = screen.wait_for_text("45°")  # there is no compass
            self.assertIn("course", lines[-2])
            gpsd.receiver.state = {**HERE, "heading": "90.0"}
            lines = screen.wait_for_text("90°")
            self.assertIn("compass, true", lines[-2])
            self.assertIn(f"gpsd at {gpsd.address}", lines[-2])

            gpsd.kill()
            screen.wait_for_text("no contact, retry in ")
            gpsd.receiver.state = THERE
            lines = screen.wait_for(lambda lines: any(" s old" in line for line in lines),
                                    "the age of the fix")
            self.assertIn(LATITUDE_HERE, "\n".join(lines))

            gpsd.start()
            screen.wait_for_text(LATITUDE_THERE)
            screen.wait_for_text("812 m")
            screen.wait_for(lambda lines: " old" not in str(lines) and "contact" not in str(lines),
                            "a fresh fix")

    def test_it_appears_again_and_ends_during_a_lookup(self):
        self.home.wayfell("settings", "set", "widgetAddressString", "Elm St 1, Ames, Iowa")
        with socket.create_server(("127.0.0.1", 0)) as server, Gpsd(Receiver(**HERE)) as gpsd:
            url = f"http://127.0.0.1:{server.getsockname()[1]}"
            self.home.wayfell("addresses", "use", "nominatim", "--url", url, "--yes")
            command = f"{shlex.quote(PROGRAM)} today --gpsd {gpsd.address}; echo ended with $?; cat"
            with Screen(["sh", "-c", command], **self.home.environment) as screen:
                connection, _ = server.accept()  # and never an answer
                with connection:
                    screen.keys("h", "h")
                    screen.wait_for_text(LATITUDE_HERE)
                    screen.keys("q")
                    screen.wait_for_text("ended with 0")
        self.assertEqual(self.home.wayfell("settings", "get", "widgetAddressString"),
                         "Elm St 1, Ames, Iowa\n")

    def test_without_a_terminal(self):
        with Gpsd(Receiver(**HERE)) as gpsd:
            printed = self.home.wayfell("today", "--gpsd", gpsd.address)
        self.assertIn(LATITUDE_HERE, printed)
        self.assertEqual(printed.splitlines()[-1], f"Live: gpsd at {gpsd.address}")

    def test_the_track_shows_at_once_and_settings_at_the_next_appearance(self):
        with self.panel(HERE) as (screen, _):
            screen.wait_for_text("968 m")
            self.home.wayfell("track", "publish", "1234m", "3723")
            screen.wait_for_text("1:02:03")
            screen.wait_for_text("1.23 km")

            self.home.wayfell("settings", "set", "units", "0")
            self.home.wayfell("waypoint", "set", "47", "8")
            self.home.wayfell("track", "publish", "6km", "60")
            lines = screen.wait_for_text("6.00 km")  # which is later than both of them
            self.assertNotIn("Waypoint", "\n".join(lines))
            screen.keys("h", "h")
            screen.wait_for_text("Waypoint")
            screen.wait_for_text("3.73 mi")
            screen.wait_for_text("3176 ft")  # 968 m x 3.2808399

    def test_without_a_gpsd_there_is_the_demo_until_it_comes(self):
        before = self.home.wayfell("settings", "list")
        with Screen([PROGRAM, "today"], rows=18, **self.home.environment) as screen:
            lines = screen.wait_for_text("no gpsd at localhost:2947: the demo")
            self.assertIn("DEMO", lines[-2])
            self.assertIn("demo: not your position", lines[-1])
            screen.keys("t")
            screen.wait_for_text("▸")
            self.assertEqual(self.home.wayfell("settings", "list"), before)
            with Gpsd(Receiver(**HERE), port=2947):  # where it is looked for
                lines = screen.wait_for_text("gpsd at localhost:2947 is there now")
                self.assertIn(" LIVE ", "\n".join(lines))
                lines = screen.wait_for_text(LATITUDE_HERE)
                self.assertNotIn("▸", "\n".join(lines))
                self.assertNotIn("demo", "\n".join(lines).lower())


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main(verbosity=2)
