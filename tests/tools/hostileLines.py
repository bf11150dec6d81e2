#!/usr/bin/env python3
# Commands of vxctl over lines that would hold them for ever: hostileLines.py VXCTL [RUNS [SEED]]
#
# A sign over UDP, TCP or a serial line trickles, drips, floods, stops, says nothing or nonsense, resets, or is not there.
# Every command has to end, by itself and in time, with a status of its own, and to print nothing that gives a terminal
# orders. RUNS of all combinations are tried, all of them for 0.
import concurrent.futures
import os
import random
import re
import select
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import tty

import harmless

RUNS = int(sys.argv[2]) if len(sys.argv) > 2 else 100
SEED = int(sys.argv[3]) if len(sys.argv) > 3 and sys.argv[3] else random.randrange(1 << 30)
LIMIT_S = 60  # of any of them, on a busy machine; two tries of 100 ms each are over in a moment

COMMANDS = """ping -n 1|info|status|doctor|put file D:/T/A.BIN|put --window file D:/T/A.BIN|get D:/T/A.BIN got
get --system CONFIG.SYS got|ls D:/T|ls -l D:/T|df|rm D:/T/A.BIN|playing|playlist fetch --list-only -l list.xml
show HELLO|files face.bmp|picture face.bmp|screenshot face.jpeg|log system|log play|warnings|pixels --last|clock
tile status 1|tile read 1 tile.dat|tile write 1 file|tile test 1 1|modbus LC get 1 5|modbus LC set 1 5 1
upgrade file --anyway|video mpu window 0 8 4 64 24 --seconds 1|video vpu info|extra wifi show|zone list|player list
player info SHOP|traffic status|traffic flow|traffic errors|traffic temperatures|login operator --password x
raw 1 12|restore|ticker file""".replace("\n", "|").split("|")
MANNERS = "trickle drip flood noise silent stop nonsense mute reset".split()
WITHOUT_SIGN = "refused backlog".split()
ORDERS = re.compile(r"[\x00-\x08\x0b-\x1f\x7f-\x9f\u061c\u200e\u200f\u2028-\u202e\u2066-\u2069]")


def reply(request, status=0, payload=b"", extended=b"", number=None):
    payload += b"\0" * (-len(payload) % 4)
    number = struct.unpack_from("<H", request, 10)[0] if number is None else number
    body = struct.pack("<HHHHBBBB", len(extended), 0, 0, number, request[12], request[13], len(payload) // 4,
                       status) + payload + extended
    return b"\x55\xa8" + struct.pack("<H", sum(body) & 0xFFFF) + body


def reactions(manner, request, rng):
    """What the sign sends, each behind a rest."""
    request = request.ljust(16, b"\0")
    if manner == "trickle":
        for byte in reply(request, 0, b"\1\0\0\0" * 4, b"\x1b[2J words" * 20):
            yield 0.01, bytes([byte])
    elif manner == "drip":
        yield 0, reply(request)[:4] + b"\xff\xff" + reply(request)[6:14] + b"\xff\0"
        while True:
            yield 0.05, b"C"
    elif manner == "flood":
        while True:
            yield 0.0002, reply(request, 0, b"", bytes(1000), rng.randrange(65536))
    elif manner == "noise":
        while True:
            yield 0.0002, rng.randbytes(1000)
    elif manner == "stop":
        yield 0, reply(request, 0, b"", b"\1" * 1400)[:rng.choice((16, 20, 700))]
    elif manner == "nonsense":
        words = [b"\x1b[2J\x9bK\xe2\x80\xae", b"\xff" * 8, b"<1><2><3>", b"LD\x10\0", b"SQ\4\0\xff\xff\xff\xff", b"<?xml",
                 b"\0" * 12, rng.randbytes(20), b"../../../A", b"\x06", b"C"]
        yield 0, reply(request, rng.choice((0, 0, 0, 0, 1, 2, 77)), b"".join(rng.choices(words, k=rng.randrange(6))),
                       b"".join(rng.choices(words, k=rng.randrange(90)))[:1400])
    elif manner == "mute":  # all is well, and nothing is told
        yield 0, reply(request)


class Sign(threading.Thread):
    """On a line of its own; `url` is where."""

    def __init__(self, kind, manner, seed):
        super().__init__(daemon=True)
        self.kind, self.manner, self.rng, self.ending = kind, manner, random.Random(seed), threading.Event()
        self.held = []
        if kind == "serial":
            self.line, device = os.openpty()
            tty.setraw(device)
            self.held.append(device)
            harmless.give(os.ttyname(device))
            self.url = f"serial:{os.ttyname(device)}@115200"
            return
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_STREAM if kind == "tcp" else socket.SOCK_DGRAM)
        self.socket.bind(("127.0.0.1", 0))
        place = self.socket.getsockname()
        self.url = f"{kind}://127.0.0.1:{place[1]}"
        if kind == "tcp" and manner != "refused":
            self.socket.listen(0 if manner == "backlog" else 64)
        for _ in range(3 if manner == "backlog" else 0):
            self.held.append(socket.socket())
            self.held[-1].setblocking(False)
            self.held[-1].connect_ex(place)

    def run(self):
        if self.manner in WITHOUT_SIGN:
            if self.kind == "udp":
                self.socket.close()
            return
        if self.kind == "serial":
            self.serve(self.line, lambda: os.read(self.line, 65536), lambda data: os.write(self.line, data))
        elif self.kind == "udp":
            peer = [None]

            def take():
                data, peer[0] = self.socket.recvfrom(65536)
                return data
            self.serve(self.socket, take, lambda data: self.socket.sendto(data, peer[0]))
        else:
            while not self.ending.is_set():
                if select.select([self.socket], [], [], 0.1)[0]:
                    threading.Thread(target=self.connection, args=(self.socket.accept()[0],), daemon=True).start()

    def connection(self, line):
        if self.manner == "reset":
            line.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            if self.rng.randrange(2):
                line.recv(1)
            return line.close()
        self.serve(line, lambda: line.recv(65536), line.sendall)
        return line.close()

    def serve(self, line, take, give):
        answer = iter(())
        while not self.ending.is_set():
            rest, data = next(answer, (0.1, b""))
            try:
                if select.select([line], [], [], rest)[0]:
                    request = take()
                    if not request:
                        return
                    answer = reactions(self.manner, request, self.rng)
                elif data:
                    give(data)
            except OSError:
                if self.kind == "tcp":
                    return

    def stop(self):
        self.ending.set()
        for held in self.held:
            os.close(held) if isinstance(held, int) else held.close()


def run(job):
    vxctl, command, kind, manner, seed = job
    shown = f"vxctl {command} over {kind}, {manner}, seed {seed}"
    sign = Sign(kind, manner, seed)
    sign.start()
    with tempfile.TemporaryDirectory() as folder:
        with open(f"{folder}/file", "wb") as file:
            file.write(bytes(70000))
        with open(f"{folder}/face.bmp", "wb") as file:
            file.write(b"BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0" + bytes(28))
        harmless.give(folder)
        words = [vxctl, "-s", sign.url, "--timeout", "100", "--retries", "2"] + command.split()
        with open(f"{folder}/out", "wb") as out:
            process = harmless.start(words, cwd=folder, stdin=subprocess.DEVNULL, stdout=out, stderr=out)
            try:
                status = process.wait(LIMIT_S)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
                return f"{shown}: does not end"
            finally:
                sign.stop()
        with open(f"{folder}/out", "rb") as out:
            text = out.read().decode(errors="replace")
    if status not in (0, 1, 2) or "Sanitizer" in text:
        return f"{shown}: status {status}\n{text[-2000:]}"
    if status and not text.strip():
        return f"{shown}: status {status}, and says nothing"
    return f"{shown}: prints orders\n{text!r}" if ORDERS.search(text) else None


def main():
    rng = random.Random(SEED)
    programs = tempfile.TemporaryDirectory()
    vxctl = harmless.copied(sys.argv[1], programs.name)
    jobs = [(vxctl, command, kind, manner, rng.randrange(1 << 30)) for command in COMMANDS for kind in ("udp", "tcp", "serial")
            for manner in MANNERS + WITHOUT_SIGN if kind == "tcp" or manner not in ("reset", "backlog") and
            (kind == "udp" or manner != "refused")]
    if RUNS:
        jobs = rng.sample(jobs, min(RUNS, len(jobs)))
    with concurrent.futures.ThreadPoolExecutor(8) as pool:
        found = [what for what in pool.map(run, jobs) if what]
    for what in found:
        print(what)
    print(f"seed {SEED}: {len(jobs)} commands")
    return 1 if found else 0


sys.exit(main())
