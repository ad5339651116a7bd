#!/usr/bin/env python3
"""Prints what the tests of datums/ and coordinates/ expect of shifted positions and of references,
computed without the system: python3 tests/expected/geodesy.py
"""
from math import atan, cos, degrees, pi, radians, sin, sqrt, tan

# --- Datums --------------------------------------------------------------------------------

# Axis, inverse flattening, shift to WGS 84; the z shift plays no part.
DATUMS = {"WGS 84": (6378137, 298.2572236, 0, 0),
          "Adindan, Burkina Faso": (6378249.145, 293.465, -118, -14),
          "Tokyo, Japan": (6377397.155, 299.1528128, -148, 507),
          "Switzerland": (6377397.155, 299.1528128, 674.374, 15.056),
          "Kusaie": (6378388, 297, 647, 1777)}


def molodensky(position, source, target, shift, sign, height=0):
    """The standard formulas (NIMA TR8350.2), without dz."""
    (a, inverse), (to_axis, to_inverse) = DATUMS[source][:2], DATUMS[target][:2]
    dx, dy = (sign * metres for metres in DATUMS[shift][2:])
    phi, lam, f = radians(position[0]), radians(position[1]), 1 / inverse
    e2 = 2 * f - f * f
    n = a / sqrt(1 - e2 * sin(phi)**2)
    m = a * (1 - e2) / (1 - e2 * sin(phi)**2)**1.5
    north = (-dx * sin(phi) * cos(lam) - dy * sin(phi) * sin(lam) +
             (to_axis - a) * n * e2 * sin(phi) * cos(phi) / a +
             (1 / to_inverse - f) * (m / (1 - f) + n * (1 - f)) * sin(phi) * cos(phi))
    east = (-dx * sin(lam) + dy * cos(lam)) / ((n + height) * cos(phi))
    return degrees(phi + north / (m + height)), degrees(lam + east)


def selected(position, datum):
    return molodensky(position, "WGS 84", datum, datum, -1)


def default(position, datum):
    return position if datum == "WGS 84" else molodensky(position, datum, "WGS 84", datum, 1)


print("DatumManager, the selected datum from the default one and back:")
for datum, position in (("Adindan, Burkina Faso", (12.25, -1.5)), ("Tokyo, Japan", (35.68, 139.76)),
                        ("Tokyo, Japan", (-35.68, 179.999)), ("Switzerland", (46.95, 7.44)),
                        ("Kusaie", (5.3, 163))):
    print(f"  {datum} {position}", *(f"{x:.13f}" for x in selected(position, datum) +
                                      default(position, datum)))
for source, target, sign, height in (("Switzerland", "Tokyo, Japan", 1, 1000),
                                     ("Tokyo, Japan", "WGS 84", 1, 0),
                                     ("WGS 84", "Tokyo, Japan", -1, 0)):
    print(f"  {source} to {target}", *(f"{x:.13f}" for x in molodensky(
        (46.95, 7.44), source, target, "Adindan, Burkina Faso", sign, height)))

# --- Grids ---------------------------------------------------------------------------------
# The widget's own series, which departs from the textbooks': see coordinates/TransverseMercator.cpp.

SCALE, EAST, SOUTH = 0.9996, 500000.0, 10000000.0


def spheroid(datum):
    a, inverse = DATUMS[datum][:2]
    b = a * (1 - 1 / inverse)
    e2 = 1 - (b / a)**2
    return a, b, e2, e2 / (1 - e2)


def northing_of(datum, phi, p):
    a, b, e2, second = spheroid(datum)
    n = (a - b) / (a + b)
    arc = (a * ((1 - n) + 5 / 4 * n**2 * (1 - n) + 81 / 64 * n**4 * (1 - n)) * phi -
           3 / 2 * a * n * ((1 - n) - 7 / 8 * n**2 * (1 - n) + 55 / 64 * n**4) * sin(2 * phi) +
           15 / 16 * a * n**2 * (1 - n) * (1 + 3 / 4 * n**2) * sin(4 * phi) -
           35 / 48 * a * n**3 * (1 - n + 11 / 16 * n**2) * sin(6 * phi) +
           315 / 51 * a * n**4 * (1 - n) * sin(8 * phi))
    nu = a / sqrt(1 - e2 * sin(phi)**2)
    fourth = 5 - tan(phi)**2 + 9 * second * cos(phi)**2 + 4 * second**2 * cos(phi)**4
    return SCALE * (arc + nu * sin(phi) * cos(phi) / 2 * p**2 +
                    nu * sin(phi) * cos(phi)**3 / 24 * fourth * p**4)


def forward(datum, position, zone):
    a, _, e2, second = spheroid(datum)
    phi, p = radians(position[0]), radians(position[1] - (6 * zone - 183))
    nu = a / sqrt(1 - e2 * sin(phi)**2)
    easting = SCALE * nu * (cos(phi) * p + cos(phi)**3 / 6 *
                            (1 - tan(phi)**2 + second * cos(phi)**2) * p**3) + EAST
    return easting, northing_of(datum, phi, p) + (SOUTH if position[0] < 0 else 0)


def textbook(datum, position, zone):
    """J. P. Snyder, Map Projections - A Working Manual (1987), equations 8-9, 8-10, 3-21."""
    a, _, e2, second = spheroid(datum)
    phi, p = radians(position[0]), radians(position[1] - (6 * zone - 183))
    n, t, c = a / sqrt(1 - e2 * sin(phi)**2), tan(phi)**2, second * cos(phi)**2
    A = p * cos(phi)
    m = a * ((1 - e2 / 4 - 3 * e2**2 / 64 - 5 * e2**3 / 256) * phi -
             (3 * e2 / 8 + 3 * e2**2 / 32 + 45 * e2**3 / 1024) * sin(2 * phi) +
             (15 * e2**2 / 256 + 45 * e2**3 / 1024) * sin(4 * phi) - 35 * e2**3 / 3072 * sin(6 * phi))
    x = SCALE * n * (A + (1 - t + c) * A**3 / 6 +
                     (5 - 18 * t + t * t + 72 * c - 58 * second) * A**5 / 120)
    y = SCALE * (m + n * tan(phi) * (A**2 / 2 + (5 - t + 9 * c + 4 * c * c) * A**4 / 24 + (
        61 - 58 * t + t * t + 600 * c - 330 * second) * A**6 / 720))
    return x + EAST, y


def inverse(datum, zone, southern, easting, northing):
    a, _, e2, second = spheroid(datum)
    e1 = (1 - sqrt(1 - e2)) / (1 + sqrt(1 - e2))
    mu = (SOUTH - northing if southern else northing) / SCALE / (
        a * (1 - e2 / 4 - 3 * e2**2 / 64 - 5 * e2**3 / 256))
    phi = (mu + (3 * e1 / 2 - 27 * e1**3 / 32) * sin(2 * mu) +
           (21 * e1**2 / 16 - 55 * e1**4 / 32) * sin(4 * mu) + 151 * e1**3 / 96 * sin(6 * mu) +
           1097 * e1**4 / 512 * sin(8 * mu))
    c, t = second * cos(phi)**2, tan(phi)**2
    n = a / sqrt(1 - e2 * sin(phi)**2)
    r = a * (1 - e2) / (1 - e2 * sin(phi)**2)**1.5
    d = (easting - EAST) / (n * SCALE)
    latitude = phi - n * tan(phi) / r * (
        d**2 / 2 + (5 + 3 * t + 10 * c - 4 * c**2 - 9 * second) * d**4 / 24 +
        (61 + 90 * t + 298 * c + 45 * t**2 - 252 * second - 3 * c**2) * d**6 / 720)
    turn = (d - (1 + 2 * t + c) * d**3 / 6 + (5 - 2 * c + 28 * t - 3 * c**2 + 8 * second +
                                              24 * t**2) * d**5 / 120) / cos(phi)
    return degrees(-latitude if southern else latitude), 6 * zone - 183 + degrees(turn)


COLUMNS, ROWS = " ABCDEFGHJKLMNPQRSTUVWXYZ", "VABCDEFGHJKLMNPQRSTU"
EDGES = {letter: 8 * i - 80 for i, letter in enumerate("CDEFGHJKLMNPQRSTUVWX")}


def column(zone, letters):
    return (-16, 0, -8)[zone % 3] + COLUMNS.index(letters[1])


def edge(datum, latitude, zone, letters, easting):
    metres = easting + column(zone, letters) * 1e5 - EAST
    p = radians(metres / (cos(radians(latitude)) * 60 * 1852))
    return northing_of(datum, radians(latitude), p) + (SOUTH if latitude < 0 else 0)


def from_mgrs(datum, zone, letters, easting, northing):
    south = EDGES[letters[0]]
    least = edge(datum, south, zone, letters, easting)
    base = int(least / 2e6) * 2e6 + (ROWS.index(letters[2]) - (1 if zone % 2 else 6)) * 1e5
    base += 2e6 if base + northing < least else 0
    base += SOUTH if base < 0 else 0
    return default(inverse(datum, zone, south < 0, column(zone, letters) * 1e5 + easting,
                           base + northing), datum)


print("Grid, forward:")
for datum, position, zone in (
    ("WGS 84", (46.5, 7.25), 32), ("WGS 84", (-33.8688, 151.2093), 56),
    ("WGS 84", (78.2232, 15.6267), 33), ("WGS 84", (0, 0), 31),
    ("WGS 84", (-3.5e-6, -77.999), 18), ("WGS 84", (-84.5, 100), 47),
    ("Tokyo, Japan", (35.68, 139.76), 54),
    ("Tokyo, Japan", (0, 0), 30), ("Adindan, Burkina Faso", (12.25, -1.5), 30)):
    print(f"  {datum} {position}", *(f"{x:.6f}" for x in forward(
        datum, selected(position, datum), zone)))
print("  textbook", *textbook("WGS 84", (46.5, 7.25), 32))
print("Grid, inverse:")
for datum, *reference in (("WGS 84", 32, False, 365720.3, 5151091.2),
                          ("WGS 84", 56, True, 334368.6, 6250948.3),
                          ("WGS 84", 33, False, 700000, 8683355.5),
                          ("Tokyo, Japan", 54, False, 388096.3, 3948962.5)):
    position = inverse(datum, *reference)
    print(f"  {datum} {reference}", *(f"{x:.12f}" for x in position + default(position, datum)))
for datum, *reference in (("WGS 84", 33, "UVP", 12345, 67890), ("WGS 84", 32, "TLS", 65720, 51091),
                          ("WGS 84", 56, "HLH", 34369, 50948), ("WGS 84", 18, "MSE", 66133, 0),
                          ("WGS 84", 31, "NDV", 48252, 12345),
                          ("Tokyo, Japan", 54, "SUE", 88096, 48963)):
    print(f"  {datum} {reference}", *(f"{x:.12f}" for x in from_mgrs(datum, *reference)))
for latitude, zone, letters, easting in ((48, 33, "UVP", 12345), (-40, 56, "HLH", 34369),
                                         (72, 32, "XLS", 5000)):
    print(f"  edge {latitude} {letters} {edge('WGS 84', latitude, zone, letters, easting):.6f}")
