#!/usr/bin/env python3
"""Writes demo.jsonl, the recording that the demo replays: a walk over a hill, then a drive.

Nobody went this way: the route is made up here, and so are the places. docs/replay.md documents
the format, README.md tells what happens when.

    make_demo.py            writes demo.jsonl beside this file
    make_demo.py --check    exits 1 when demo.jsonl is not what would be written
"""

import json
import math
import pathlib
import sys
from datetime import datetime

OUTPUT = pathlib.Path(__file__).with_name("demo.jsonl")

# Seconds since 2001-01-01 00:00 UTC.
START = int((datetime(2026, 5, 9, 7, 30) - datetime(2001, 1, 1)).total_seconds())

# Seconds since the start.
WALK_END = 862
PHONE_AWAY = 868
PHONE_BACK = 896
DRIVE_START = 900
END = 1260
TUNNEL = range(1064, 1085)
BENCH = range(430, 496)

# Where the walk begins: degrees, and metres to a degree there (WGS 84).
LATITUDE, LONGITUDE = 46.98, 7.94
METRES_NORTH, METRES_EAST = 111164.0, 76092.0

MAGNETIC_DECLINATION = 3.4  # degrees east


class Noise:
    """Random numbers that no Python version changes: a 64-bit congruential generator."""

    def __init__(self, seed):
        self.state = seed

    def uniform(self):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 11) / 2**53

    def normal(self):
        return sum(self.uniform() for _ in range(12)) - 6


class Drift:
    """An error that wanders slowly and smoothly, as a receiver's does; deviation about 1."""

    def __init__(self, seed, seconds):
        self.noise = Noise(seed)
        self.keep = 1 - 1 / seconds
        self.goal = self.noise.normal()
        self.value = self.goal

    def next(self):
        step = math.sqrt(1 - self.keep * self.keep)
        self.goal = self.keep * self.goal + step * self.noise.normal()
        self.value += (self.goal - self.value) / 4
        return self.value


def profile(points, x):
    """A smooth curve through (x, y) points, level at each of them."""
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        if x < x1:
            part = max(0.0, (x - x0) / (x1 - x0))
            return y0 + (y1 - y0) * part * part * (3 - 2 * part)
    return points[-1][1]


# Metres per second by second. The walk slows down uphill and stops at a bench.
SPEED = [(0, 0), (6, 1.3), (150, 1.45), (300, 1.1), (424, 1.15), (430, 0), (495, 0), (500, 1.3),
         (640, 1.5), (760, 1.4), (852, 1.45), (862, 0), (900, 0), (918, 12), (936, 14), (960, 14),
         (985, 21), (1040, 20), (1064, 19.5), (1085, 19.5), (1110, 24.5), (1160, 25), (1185, 18),
         (1200, 14.5), (1232, 14), (1252, 1.5), (1258, 0)]

# Degrees clockwise from north, by metres along the way; the car leaves the way the walk came by.
COURSE = [(0, 48), (90, 62), (230, 20), (340, -24), (470, -8), (620, 44), (760, 92), (900, 70),
          (1200, 58)]
DRIVE_COURSE = [(0, 152), (150, 196), (700, 214), (1300, 171), (2100, 204), (2900, 188),
                (3700, 231), (4600, 252), (5400, 226), (6200, 240)]

# Metres above the sea, by metres along the way.
ALTITUDE = [(0, 912), (150, 921), (420, 968), (560, 979), (760, 958), (1100, 941)]
DRIVE_ALTITUDE = [(0, 941), (700, 918), (2100, 826), (2900, 774), (4600, 702), (6200, 689)]

# (second, street, city)
PLACES = [(0, "Lerchenweg 4", "Oberlinden"), (66, "Am Hangried", "Oberlinden"),
          (250, None, "Oberlinden"), (560, "Höhenweg", "Sankt Alrun"),
          (800, "Passhöhe 1", "Sankt Alrun"), (930, "Alte Talstraße", "Sankt Alrun"),
          (1010, "Talstraße", "Vorderbach"), (1090, "Talstraße 112", "Niederlinden"),
          (1215, "Seegasse 9", "Niederlinden")]


def route():
    """The true way: for each second its speed, course, north and east in metres, altitude and
    metres gone."""
    way = []
    north = east = gone = 0.0
    stride = Drift(seed=11, seconds=8)
    walked = 0.0
    for second in range(END + 1):
        driving = second >= DRIVE_START
        if second == DRIVE_START:
            walked = gone
        speed = profile(SPEED, second)
        if not driving:
            speed = max(0.0, speed * (1 + 0.05 * stride.next()))
        course = profile(DRIVE_COURSE if driving else COURSE, gone - walked)
        altitude = profile(DRIVE_ALTITUDE if driving else ALTITUDE, gone - walked)
        way.append((speed, course % 360, north, east, altitude, gone))
        north += speed * math.cos(math.radians(course))
        east += speed * math.sin(math.radians(course))
        gone += speed
    return way


def degrees(north, east):
    return LATITUDE + north / METRES_NORTH, LONGITUDE + east / METRES_EAST


def rounded(value, digits):
    return round(value, digits) + 0.0  # never -0.0


class Receiver:
    """What a receiver makes of the true way."""

    def __init__(self):
        self.noise = Noise(21)
        self.north, self.east, self.up, self.quality = (
            Drift(seed, seconds) for seed, seconds in ((22, 45), (23, 45), (24, 60), (25, 40)))

    def fix(self, second, speed, course, north, east, altitude):
        accuracy = min(12.0, max(3.0, 5.5 + 2.2 * self.quality.next()))
        if second < 12:
            accuracy += 12 - second  # it has just been switched on
        since_tunnel = second - TUNNEL.stop
        if 0 <= since_tunnel < 8:
            accuracy += 24 - 3 * since_tunnel
        latitude, longitude = degrees(north + 0.4 * accuracy * self.north.next(),
                                      east + 0.4 * accuracy * self.east.next())
        fix = {
            "latitude": rounded(latitude, 7),
            "longitude": rounded(longitude, 7),
            "altitude": rounded(altitude + 0.5 * accuracy * self.up.next(), 1),
            "horizontalAccuracy": rounded(accuracy, 1),
            "verticalAccuracy": rounded(1.4 * accuracy, 1),
            "speed": 0,
            "course": -1,
        }
        if second < 3:
            fix["speed"] = -1  # not known yet
        elif speed > 0:
            measured = abs(speed + 0.06 * self.noise.normal())
            wobble = min(12.0, 4 / max(speed, 0.2)) * self.noise.normal()
            fix["speed"] = rounded(measured, 2)
            fix["course"] = rounded((course + wobble) % 360, 1) % 360
        return fix


def spoil(second, fix):
    """The few bad fixes that every recording has."""
    if second == 95:  # no position at all
        fix.update(horizontalAccuracy=-1, verticalAccuracy=-1, speed=-1, course=-1)
    elif second == 331:  # a guess from a mast, 400 m off
        fix.update(latitude=rounded(fix["latitude"] + 320 / METRES_NORTH, 7),
                   longitude=rounded(fix["longitude"] - 240 / METRES_EAST, 7),
                   horizontalAccuracy=150, verticalAccuracy=48, speed=-1, course=-1)
    elif 655 <= second < 658:  # position without altitude
        fix.update(verticalAccuracy=-1)


class Compass:
    """Where the device points: ahead, more or less, and swaying with the steps."""

    def __init__(self):
        self.noise = Noise(31)
        self.hand = Drift(seed=32, seconds=20)

    def heading(self, second, speed, course):
        sway = 9 * self.hand.next() + 1.5 * self.noise.normal()
        if second >= DRIVE_START:
            sway *= 0.2  # it sits in a holder
        if second in BENCH:  # a look around
            middle = (BENCH.start + BENCH.stop) / 2
            sway += profile([(BENCH.start, 0), (middle - 10, -115), (middle + 16, 70),
                             (BENCH.stop, 0)], second)
        true = rounded((course + sway) % 360, 1) % 360
        heading = {"trueHeading": true,
                   "magneticHeading": rounded((true - MAGNETIC_DECLINATION) % 360, 1) % 360}
        if second == 0:
            heading["trueHeading"] = -1  # nobody knows yet where on earth it is
        if second == 1:
            heading["headingAccuracy"] = -1
        return heading


def settings(way):
    walk_end = degrees(way[WALK_END][2], way[WALK_END][3])
    return {"units": 1, "speed": 0, "coordinateUnits": 1, "compassHeading": 0, "useMils": False,
            "rotateMap": True, "mapCompassType": 0, "viewHidden": False, "hasWaypoint": True,
            "waypointLatitude": rounded(walk_end[0], 5),
            "waypointLongitude": rounded(walk_end[1], 5), "time": 0, "distance": 0.0}


def single_events(way):
    """What happens once: (second, event)."""
    car_park = degrees(way[END][2], way[END][3])
    yield 0, {"suite": settings(way)}
    for second, street, city in PLACES:
        place = {"street": street, "city": city, "state": "Alrun"}
        yield second, {"placemark": {key: part for key, part in place.items() if part}}
    yield 0, {"appear": True}
    yield 205, {"segment": 3}
    yield 262, {"segment": 1}
    yield 541, {"tap": "toggleViewButton"}
    yield 658, {"tap": "toggleViewButton"}
    yield PHONE_AWAY, {"disappear": True}
    yield PHONE_BACK - 4, {"suite": {"waypointLatitude": rounded(car_park[0], 5),
                                     "waypointLongitude": rounded(car_park[1], 5)}}
    yield PHONE_BACK, {"course": True}
    yield PHONE_BACK, {"appear": True}


def timeline():
    """All events as (second, event), in order."""
    way = route()
    singles = list(single_events(way))
    receiver = Receiver()
    compass = Compass()
    for second, (speed, course, north, east, altitude, gone) in enumerate(way):
        yield from (one for one in singles if one[0] == second)
        if second % 3 == 0 and 0 < second <= WALK_END + 1:  # the recorded track
            yield second, {"suite": {"time": second, "distance": rounded(gone, 1)}}
        fix = receiver.fix(second, speed, course, north, east, altitude)
        spoil(second, fix)
        if second > 0 and second not in TUNNEL:
            yield second, {"fix": fix}
        yield second + 0.4, {"heading": compass.heading(second, speed, course)}


def recording():
    lines = (json.dumps({"t": START + second, **event}, ensure_ascii=False, separators=(",", ":"))
             for second, event in timeline())
    return ("\n".join(lines) + "\n").encode()


def main(arguments):
    if arguments == ["--check"]:
        if not OUTPUT.exists() or OUTPUT.read_bytes() != recording():
            sys.exit(f"{OUTPUT.name} is not what {pathlib.Path(__file__).name} writes: run it")
    elif arguments:
        sys.exit(__doc__)
    else:
        OUTPUT.write_bytes(recording())


if __name__ == "__main__":
    main(sys.argv[1:])
