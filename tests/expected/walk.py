#!/usr/bin/env python3
"""Prints what FixesOfAWalk of tests/motion/VelocityManagerTest.cpp expects, by the rules of
motion/VelocityManager.h, in metres along a line: python3 tests/expected/walk.py
"""
from math import atan, degrees

FIXES = (  # metres, seconds, the receiver's speed, altitude
    (0, 0, -1, 99), (6, 2, 3.5, 99), (13, 4, 0, 102), (13.5, 5, -1, 108), (14.2, 5.5, 6, 114),
    (12.9, 6, -1, 140), (40, 9, 12, 111), (39, 10, 0, 90), (90, 12, -1, 81))


def mean(values, count):
    return sum(values[-count:]) / len(values[-count:])


def speed_of(x, time, receiver, last, before):
    far, seconds = abs(x - last[0]), time - last[1]
    onward = far < abs(x - before[0]) and abs(last[0] - before[0]) < abs(x - before[0])
    moved = far >= 2 and seconds >= 0.8
    long_way = abs(x - before[0]) / (time - before[1])
    speed = long_way if onward and not moved else (far / seconds + long_way) / 2
    speed = 0 if speed < 0.25 else speed
    if moved or onward:
        return (speed + receiver) / 2 if moved and receiver > 0 else speed
    return None if receiver < 0 else receiver or speed / 2


fixes, speeds, altitudes, averages, ways, rises = [FIXES[0]] * 2, [], [], [0], [], []
reference = up = down = 0
for x, time, receiver, altitude in FIXES[1:]:
    speed = speed_of(x, time, receiver, fixes[-1], fixes[-2])
    if speed is None:
        print(time, "ignored")
        continue
    speeds.append(speed)
    altitudes.append(altitude)
    averages.append(mean(altitudes, 3))
    rises.append(averages[-1] - averages[-2])
    ways.append(abs(x - fixes[-1][0]))
    glide = mean(ways, 15) / mean(rises, 15)
    climb = averages[-1] - (reference or averages[-1])
    up, down = up + (climb if climb >= 6 else 0), down - (climb if climb <= -6 else 0)
    reference = averages[-1] if abs(climb) >= 6 or not reference else reference
    print(time, *(f"{value:.6g}" for value in (
        speed, mean(speeds, 3), averages[-1], rises[-1] / (time - fixes[-1][1]), glide,
        degrees(atan(1 / glide)), up, down)))
    fixes.append((x, time))
