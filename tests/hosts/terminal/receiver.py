"""A receiver that a real gpsd listens to, and the gpsd: processes and ports of their own."""

import contextlib
import datetime
import functools
import operator
import os
import signal
import socket
import subprocess
import threading
import time

from tmux_screen import wait_until

EPOCHS_A_SECOND = 5


def sentence(body):
    checksum = functools.reduce(operator.xor, body.encode("ascii"))
    return f"${body}*{checksum:02X}\r\n".encode("ascii")


class Receiver:
    """Writes NMEA to whoever connects, several times a second: what `state` says then.

    state: "latitude" and "longitude" as NMEA has them, "altitude" in metres above the sea, "knots",
    "course" and, for one with a compass, "heading"; no latitude is no fix.
    """

    def __init__(self, **state):
        self.state = state
        self.server = socket.create_server(("127.0.0.1", 0))
        self.port = self.server.getsockname()[1]
        threading.Thread(target=self._serve, daemon=True).start()

    def _serve(self):
        while True:
            connection, _ = self.server.accept()
            threading.Thread(target=self._feed, args=(connection,), daemon=True).start()

    def _feed(self, connection):
        with contextlib.suppress(OSError), connection:
            while True:
                connection.sendall(self.epoch(datetime.datetime.utcnow()))
                time.sleep(1 / EPOCHS_A_SECOND)

    def epoch(self, now):
        state = dict(self.state)
        tenths = now.microsecond // 100000
        clock, date = now.strftime("%H%M%S") + f".{tenths}0", now.strftime("%d%m%y")
        if "latitude" not in state:
            return sentence(f"GPRMC,{clock},V,,,,,,,{date},,,N") + sentence(
                "GPGSA,A,1,,,,,,,,,,,,,,,")
        place = f"{state['latitude']},N,{state['longitude']},E"
        lines = [f"GPRMC,{clock},A,{place},{state['knots']},{state['course']},{date},,,A",
                 f"GPGGA,{clock},{place},1,08,0.9,{state['altitude']},M,47.0,M,,",
                 "GPGSA,A,3,01,02,03,04,05,06,07,08,,,,,1.5,0.9,1.2",
                 f"GPGST,{clock},2.0,2.0,2.0,0.0,2.0,2.0,3.0"]
        if "heading" in state:
            lines.append(f"GPHDT,{state['heading']},T")
        return b"".join(map(sentence, lines))


class Gpsd:
    """A gpsd that listens to a receiver, at a port that stays the same when it is restarted."""

    def __init__(self, receiver, port=0):
        self.receiver = receiver
        with socket.create_server(("127.0.0.1", port)) as free:
            self.port = free.getsockname()[1]
        self.process = None

    @property
    def address(self):
        return f"127.0.0.1:{self.port}"

    def start(self):
        self.process = subprocess.Popen(
            ["gpsd", "-N", "-n", "-S", str(self.port), f"tcp://127.0.0.1:{self.receiver.port}"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env={**os.environ, "PATH": f"{os.environ['PATH']}:/usr/sbin"})
        wait_until(self.answers, "gpsd")

    def answers(self):
        with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", self.port)):
            return True
        return False

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *exception):
        self.kill()
