#!/usr/bin/env python3
# A virtual sign answers other hosts, whatever one host does: greedyHosts.py VXSIM [SECONDS [LIMIT_MS]]
#
# One greedy host after the other (127.0.0.1) has SECONDS, while another (127.0.0.2) asks the sign for its size every few
# milliseconds. The longest that it waits, in the time that the sign itself works meanwhile, must stay below LIMIT_MS;
# what other programs take of a busy machine does not count. At the end the sign has to be alive, to have nothing beside
# its folder, and to end when it is asked to.
import os
import random
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time
import zlib

import harmless

SECONDS = float(sys.argv[2]) if len(sys.argv) > 2 else 1
LIMIT_MS = float(sys.argv[3]) if len(sys.argv) > 3 else 100
NOTHING_MS = 20000  # without an answer, on any machine however busy


def request(major, minor, payload=b"", extended=b"", number=1):
    payload += b"\0" * (-len(payload) % 4)
    body = struct.pack("<HHHHBBBB", len(extended), 0, 0, number, major, minor, len(payload) // 4, 0) + payload + extended
    return b"\x55\xa7" + struct.pack("<H", sum(body) & 0xFFFF) + body


def sql(text):
    return request(1, 21, b"\1\0\1\0", text.encode())


def put(path, data, number=1, total=1, size=None, chunk=1280):
    size = len(data) if size is None else size
    return request(2, 13, struct.pack("<IHII", size, chunk, total, number) + path.encode() + b"\0", data)


def png(side):
    """A picture of a few kilobytes that is large when it is unpacked."""
    def block(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    rows = zlib.compress((b"\0" + bytes(3 * side)) * side, 9)
    head = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + block(b"IHDR", head) + block(b"IDAT", rows) + block(b"IEND", b"")


class Sign:
    def __init__(self, program, folder, options):
        os.makedirs(folder)
        harmless.give(folder)
        self.process = harmless.start([program, *options.split(), "--port", "0", "--dir", folder],
                                      stdout=subprocess.PIPE, text=True)
        self.lines = {}
        last = "second" if "--count" in options else "modbus-tcp" if "--modbus-tcp" in options else "serial"
        while last not in self.lines:
            name, *words = self.process.stdout.readline().split()
            if name != "sign":
                self.lines[name] = words[0]
            elif "udp" in self.lines:  # the neighbour of the first one
                self.lines["second"] = words[1]
            else:
                self.lines["udp"] = self.lines["tcp"] = words[1]
        self.ports = {name: int(place.split(":")[1]) for name, place in self.lines.items() if ":" in place}

    def fill(self):
        """Files to ask for."""
        folder = self.lines["dir"]
        for number in range(12000):
            path = f"{folder}/D/MANY/{number:08}.TXT"
            os.makedirs(os.path.dirname(path), exist_ok=True)
            open(path, "w").close()
        for name, side in (("LARGE.PNG", 2048), ("HUGE.PNG", 4096)):
            os.makedirs(f"{folder}/D/P", exist_ok=True)
            with open(f"{folder}/D/P/{name}", "wb") as file:
                file.write(png(side))
        with open(f"{folder}/D/F.BIN", "wb") as file:
            file.truncate(200_000_000)
        for path in (f"{folder}/D", f"{folder}/D/MANY", f"{folder}/D/P", f"{folder}/D/F.BIN"):
            harmless.give(path)

    def worked(self):
        """Nanoseconds that the sign has been on a processor, with those that it slept through in a call of the system."""
        with open(f"/proc/{self.process.pid}/schedstat", encoding="ascii") as file:
            return int(file.read().split()[0])

    def udp(self, name="udp", source="127.0.0.1"):
        line = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        line.bind((source, 0))
        line.connect(("127.0.0.1", self.ports[name]))
        return line

    def tcp(self, name="tcp", source="127.0.0.1"):
        return socket.create_connection(("127.0.0.1", self.ports[name]), 2, (source, 0))


class Pings(threading.Thread):
    """The other host: over UDP, where it asks once more after a while, and now and then over a new connection. Of two signs
    in one program the same host asks the other sign."""

    def __init__(self, sign):
        super().__init__()
        self.isNeighbour = "second" in sign.lines
        self.source = "127.0.0.1" if self.isNeighbour else "127.0.0.2"
        self.sign, self.datagrams, self.ending = sign, self.line(sign.udp, "udp"), threading.Event()
        self.worst, self.worstWall, self.count = 0.0, 0.0, 0

    def line(self, make, kind):
        return make("second" if self.isNeighbour else kind, self.source)

    def ask(self, line, number):
        until = time.monotonic() + NOTHING_MS / 1000
        line.settimeout(0.03)
        while time.monotonic() < until:
            line.send(request(3, 1, number=number))
            try:
                while struct.unpack_from("<H", line.recv(2048), 10)[0] != number:
                    pass
                return
            except TimeoutError:
                pass
        raise OSError("no answer")

    def run(self):
        while not self.ending.wait(0.005):
            start, worked = time.monotonic(), self.sign.worked()
            try:
                line = self.datagrams if self.count % 10 else self.line(self.sign.tcp, "tcp")
                self.ask(line, self.count % 60000 + 1)
                if line is not self.datagrams:
                    line.close()
            except OSError:
                self.worst = NOTHING_MS
            self.worst = max(self.worst, (self.sign.worked() - worked) / 1e6)
            self.worstWall = max(self.worstWall, (time.monotonic() - start) * 1000)
            self.count += 1


def until(end):
    while time.monotonic() < end:
        yield
        time.sleep(0)


def read_all(line):
    line.setblocking(False)
    try:
        while line.recv(65536):
            pass
    except OSError:
        pass
    line.setblocking(True)


def ask(sign, end, *packets):
    """Over UDP and over a connection, as fast as they go, many at once."""
    datagrams, stream = sign.udp(), sign.tcp()
    stream.settimeout(0.2)
    for _ in until(end):
        for packet in packets:
            try:
                datagrams.send(packet)
                stream.sendall(packet * max(1, 16000 // len(packet)))
            except TimeoutError:
                pass
            except OSError:
                stream = sign.tcp()
                stream.settimeout(0.2)
        read_all(datagrams)
        read_all(stream)
        stream.settimeout(0.2)


def statements(sign, end):
    many = "SysLog a,SysLog b,SysLog c,EventLog d,SysLog e"
    ask(sign, end, sql(f"select count(*) from {many}"), sql(f"select max(length(a.Operate||b.Operate)) from {many}"),
        sql(f"delete from PlayLog where WinID in (select count(*) from {many})"),
        sql(f"select a.Operate,count(*) from {many} group by 1 order by 2"))


def listings(sign, end):
    path = b"D:\\MANY\0"
    ask(sign, end, request(7, 3, path), request(7, 17, struct.pack("<HH", 0, 20) + path), request(7, 16, path))


def uploads(sign, end):
    data, total = bytes(1280), 20000
    ask(sign, end, *[put(f"D:\\UP{number}.BIN", data, number, total, 1280 * total) for number in range(1, 60)])


def pictures(sign, end):
    def show(name):
        entry = b"DP\x0f\xff" + bytes(20) + name.ljust(12, b"\0")
        return request(2, 2, b"SEQUENT.SYS\0" + struct.pack("<IHHHH", 44, 1280, 1, 1, 0),
                       b"SQ\4\0\1\0\0\0" + entry)
    ask(sign, end, show(b"LARGE.PNG"), request(6, 2), request(6, 32), show(b"HUGE.PNG"), request(6, 32))


def large_files(sign, end):
    names = b"D:\\F.BIN\0", b"D:\\G.BIN\0"
    ask(sign, end, request(7, 5, names[0] + names[1]), request(7, 6, names[0] + names[1]),
        request(7, 5, names[1] + names[0]), request(1, 17, struct.pack("<IH2xI", 1280, 1280, 99999) + names[0]))


def connections(sign, end):
    lines = []
    for number in range(500):
        try:
            line = sign.tcp()
            line.send(request(3, 1)[:number % 17])
            lines.append(line)
        except OSError:
            break
    for _ in until(end):
        for line in lines:
            try:
                line.send(b"\x55")
            except OSError:
                pass
        time.sleep(0.02)


def slow(sign, end):
    """Asks for much and fetches nothing; and says what it has to say byte by byte."""
    greedy, dripping = [sign.tcp() for _ in range(20)], sign.tcp()
    for line in greedy:
        line.settimeout(0.01)
    for _ in until(end):
        for line in greedy:
            try:
                line.send(request(1, 18) * 800)
            except OSError:
                pass
        try:
            for byte in request(3, 1):
                dripping.send(bytes([byte]))
        except OSError:  # it has made room for the other host
            dripping = sign.tcp()


def logins(sign, end):
    ask(sign, end, request(10, 1, b"operator\0\0\0\0\0wrong\0"), request(10, 3, b"operator\0" * 4))


def paths(sign, end):
    """Out of the drives, by every command that takes a path."""
    ways = b"D:\\..\\..\\out", b"D:\\T\\..\\..\\..\\out", b"..\\out", b"/tmp/out", b"D:/../out", b"D:\\T\\/..\\out\0D:\\x", \
        b"\\\\host\\out", b"D:\\%2e%2e\\out", b"C:out:stream", b"E:\\" + b"A\\" * 120 + b"out"
    packets = [put(way.decode(), b"outside") for way in ways]
    for way in ways:
        packets += [request(7, minor, way + b"\0D:\\T\\IN.TXT\0") for minor in range(1, 24) if minor != 1]
        packets += [request(1, minor, struct.pack("<HH", 1280, 1) + way + b"\0") for minor in (8, 17, 31)]
        packets += [request(2, 8, struct.pack("<IHHH", 7, 1280, 1, 1) + way + b"\0", b"outside")]
    ask(sign, end, *packets)


def noise(sign, end, seed=None):
    """Requests of every family, right and broken, and noise, on all lines."""
    seed = random.randrange(1 << 30) if seed is None else seed
    print(f"    seed {seed}", flush=True)
    rng = random.Random(seed)
    streams = [name for name in sign.ports if name != "udp"]
    lines = [sign.tcp(name) for name in streams]
    lines += [sign.udp(name) for name in sign.ports if name != "tcp"]
    serial = os.open(sign.lines["serial"], os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
    for _ in until(end):
        kind = rng.randrange(4)
        if kind == 0:
            packet = rng.randbytes(rng.randrange(1, 600))
        elif kind == 1:
            packet = bytes([rng.randrange(1, 8), rng.choice((1, 3, 6, 15, 16))]) + rng.randbytes(rng.randrange(2, 260))
        else:
            major = rng.choice((1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 14, 17, 28, 52, 53, 54, 96, 122, 124))
            packet = request(major, rng.randrange(64), rng.randbytes(rng.randrange(64)), rng.randbytes(rng.randrange(300)))
            if kind == 3:
                at = rng.randrange(len(packet))
                packet = packet[:at] + rng.randbytes(1) + packet[at + 1:]
        for at, line in enumerate(lines):
            try:
                line.settimeout(0.01)
                line.send(packet)
                read_all(line)
            except OSError:
                if line.type == socket.SOCK_STREAM:
                    lines[at] = sign.tcp(streams[at])
        try:
            os.write(serial, packet)
            os.read(serial, 65536)
        except OSError:
            pass
    os.close(serial)


def endures(sign, greedy):
    """One greedy host, and the pings beside it: how many there were, and what is wrong."""
    pings, wrong = Pings(sign), []
    pings.start()
    try:
        greedy(sign, time.monotonic() + SECONDS)
    except OSError as error:
        wrong.append(f"{greedy.__name__}: {error}")
    time.sleep(0.2)
    pings.ending.set()
    pings.join()
    print(f"{greedy.__name__:<14} {pings.count:6} {pings.worst:9.1f} {pings.worstWall:13.1f}", flush=True)
    if pings.worst >= LIMIT_MS or sign.process.poll() is not None:
        wrong.append(f"{greedy.__name__}: another host waited {pings.worst:.0f} ms of the sign's time, status "
                     f"{sign.process.poll()}")
    return pings.count, wrong


def nobody(_, end):
    time.sleep(max(0, end - time.monotonic()))


def main():
    work = tempfile.mkdtemp()
    outside = os.path.join(work, "around")
    os.mkdir(outside)
    harmless.give(outside)
    program = harmless.copied(sys.argv[1], work)
    folder = os.path.join(outside, "sign")
    sign = Sign(program, folder, f"--serial --modbus 0 --modbus-tcp 0 --size 512x256 --png {folder}/face.png")
    sign.fill()
    loader = Sign(program, os.path.join(folder, "loader"), "--bootloader --login operator:secret")
    pair = Sign(program, os.path.join(folder, "pair"), "--count 2")
    rows = sign.udp()
    for _ in range(3000):  # for the statements
        rows.send(request(4, 7, b"\3"))
        time.sleep(0.001)
    failures, pinged = [], 0
    print(f"{'greedy host':<14} {'pings':>6} {'worst ms':>9} {'on the clock':>13}")
    runs = [(sign, greedy) for greedy in (nobody, statements, listings, uploads, pictures, large_files, connections, slow,
                                          logins, paths, noise)]
    runs += [(loader, logins), (loader, noise)]
    runs += [(pair, greedy) for greedy in (nobody, statements, uploads, connections, slow)]
    for on, greedy in runs:
        count, wrong = endures(on, greedy)
        pinged += count
        failures += wrong
    if os.listdir(outside) != ["sign"] or os.path.exists("/tmp/out"):
        failures.append(f"a host wrote outside the drives: {os.listdir(outside)}")
    for ending in (sign.process, loader.process, pair.process):
        ending.terminate()
        try:
            if ending.wait(20) != 0:
                failures.append(f"the sign ended with {ending.returncode}")
        except subprocess.TimeoutExpired:
            failures.append("the sign does not end")
            ending.kill()
    shutil.rmtree(work, ignore_errors=True)
    for failure in failures:
        print(failure)
    print(f"{pinged} answers")
    return 1 if failures else 0


sys.exit(main())
