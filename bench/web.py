#!/usr/bin/env python3
"""How fast vxsim's page is, and what it costs: bench/web.py FOLDER_OF_THE_PROGRAMS

Prints a line for each figure: pictures that reach a stream and how soon, what goes over it at rest, vxctl's ping without
pages and with eight, and start, memory and processor time of vxsim with and without --web.
"""
import contextlib
import json
import os
import re
import select
import socket
import statistics
import struct
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PROGRAMS = Path(sys.argv[1]).resolve()
POWER_OFF, POWER_ON = 3, 4


class Sign:
    def __init__(self, *options):
        self.work = tempfile.TemporaryDirectory()
        begin = time.monotonic()
        self.process = subprocess.Popen([PROGRAMS / "vxsim", "--dir", self.work.name, "--port", "0", *options],
                                        stdout=subprocess.PIPE, text=True)
        self.places = dict(self.process.stdout.readline().split() for _ in range(4 if "--web" in options else 3))
        self.start_ms = 1000 * (time.monotonic() - begin)
        self.address = self.places["udp"].split(":")[0], int(self.places["udp"].split(":")[1])
        self.line = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.line.connect(self.address)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.communicate()
        self.line.close()
        self.work.cleanup()

    def command(self, major, minor):
        body = struct.pack("<HHHHBBBB", 0, 0, 0, 1, major, minor, 0, 0)
        self.line.send(b"\x55\xa7" + struct.pack("<H", sum(body) & 0xFFFF) + body)

    def ctl(self, *arguments):
        done = subprocess.run([PROGRAMS / "vxctl", "-s", "udp://" + self.places["udp"], *arguments], check=True,
                              capture_output=True, text=True)
        return done.stdout

    def post(self, path, body):
        place = self.places["web"].removeprefix("http://").rstrip("/")
        host, port = place.split(":")
        with socket.create_connection((host, int(port))) as line:
            text = json.dumps(body)
            line.sendall(f"POST {path} HTTP/1.1\r\nHost: {place}\r\nContent-Length: {len(text)}\r\n\r\n{text}".encode())
            assert b" 200 " in line.recv(100)

    def stream(self):
        """A page's stream, behind what it begins with."""
        place = self.places["web"].removeprefix("http://").rstrip("/")
        host, port = place.split(":")
        line = socket.create_connection((host, int(port)))
        line.sendall(f"GET /events HTTP/1.1\r\nHost: {place}\r\n\r\n".encode())
        drain(line, 1.5)
        return line

    def usage(self):
        """Memory in MB and processor time in seconds until now."""
        status = Path(f"/proc/{self.process.pid}/status").read_text()
        fields = Path(f"/proc/{self.process.pid}/stat").read_text().rsplit(")", 1)[1].split()
        ticks = int(fields[11]) + int(fields[12])
        return int(re.search(r"VmRSS:\s+(\d+)", status)[1]) / 1024, ticks / os.sysconf("SC_CLK_TCK")


def drain(line, seconds):
    """All that comes within so many seconds."""
    found, end = b"", time.monotonic() + seconds
    while (left := end - time.monotonic()) > 0:
        if select.select([line], [], [], left)[0]:
            found += line.recv(1 << 20)
    return found


def wait_for(line, word):
    found = b""
    while word not in found:
        found = found[-len(word):] + line.recv(1 << 20)


def latency():
    with Sign("--web", "0") as sign:
        # Stuck lamps go with the power: the whole face changes at once.
        sign.post("/api/condition", {"changes": [{"what": "bad", "value": f"{x},{y},all,stuck"}
                                                 for x in range(128) for y in range(32)]})
        line = sign.stream()
        times = []
        for i in range(100):
            begin = time.monotonic()
            sign.command(4, POWER_ON if i % 2 else POWER_OFF)
            wait_for(line, b"event: face")
            times.append(1000 * (time.monotonic() - begin))
            drain(line, 0.05 + 0.0007 * (i % 40))
        line.close()
        print(f"a change of 128x32 reaches a stream after {statistics.median(times):.1f} ms (median), {max(times):.1f} ms (worst)")


def pictures():
    for size in "128x32", "512x256":
        with Sign("--web", "0", "--size", size) as sign:
            text = Path(sign.work.name) / "news.txt"
            text.write_text("The quick brown fox jumps over the lazy dog. " * 300)
            sign.ctl("ticker", str(text))
            line = sign.stream()
            count = drain(line, 10).count(b"event: face")
            line.close()
            print(f"pictures a second of {size}: {count / 10:.1f}")


def rest():
    with Sign("--web", "0") as sign:
        line = sign.stream()
        found = drain(line, 21)
        line.close()
        print(f"at rest, in 21 s: {len(found)} bytes, events {found.count(b'event: ')}, beats {found.count(b'event: alive')}")


def median_ping(sign):
    return statistics.median(json.loads(sign.ctl("--json", "ping", "-n", "300"))["timesMs"])


READER = "import socket, sys\nline = socket.socket(fileno=0)\nwhile line.recv(1 << 20): pass"


def ping():
    with Sign("--web", "0") as sign:
        ratios = []
        for _ in range(7):
            alone = median_ping(sign)
            with contextlib.ExitStack() as stack:
                lines = [stack.enter_context(sign.stream()) for _ in range(8)]
                pages = [subprocess.Popen([sys.executable, "-c", READER], stdin=line) for line in lines]
                time.sleep(0.5)
                ratios.append(median_ping(sign) / alone)
                for page in pages:
                    page.kill()
                    page.wait()
            time.sleep(1)
        print(f"ping with eight pages: {statistics.median(ratios):.2f} times that of none (from {min(ratios):.2f} to {max(ratios):.2f})")


def cost():
    for options in [], ["--web", "0"]:
        starts = []
        for _ in range(20):
            with Sign(*options) as sign:
                starts.append(sign.start_ms)
        with Sign(*options) as sign:
            time.sleep(1)
            before = sign.usage()[1]
            time.sleep(5)
            memory, after = sign.usage()
            print(f"{' '.join(['vxsim', *options])}: starts in {statistics.median(starts):.1f} ms, {memory:.1f} MB, "
                  f"{20 * (after - before):.1f} % at rest")


if __name__ == "__main__":
    for measure in latency, pictures, rest, ping, cost:
        measure()
