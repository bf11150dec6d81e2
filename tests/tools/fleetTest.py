#!/usr/bin/env python3
# Many signs in one vxsim: fleetTest.py VXCTL VXSIM
#
# Each of them is itself: its own ports, folder and files, and its entry in the book; together they have one thread and cost
# nothing while nobody asks.
import os
import resource
import socket
import struct
import subprocess
import sys
import tempfile
import time
import tomllib
from concurrent.futures import ThreadPoolExecutor

VXCTL, VXSIM = sys.argv[1:3]
COUNT = 200
failures = []


def check(isRight, what):
    if not isRight:
        failures.append(what)
        print("FAILED:", what, flush=True)


def size_request(number):
    body = struct.pack("<HHHHBBBB", 0, 0, 0, number, 3, 1, 0, 0)
    return b"\x55\xa7" + struct.pack("<H", sum(body) & 0xFFFF) + body


class Fleet:
    def __init__(self, *options):
        self.process = subprocess.Popen([VXSIM, *options], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.signs, self.modbus = {}, {}
        wanted = int(options[options.index("--count") + 1])
        for line in self.process.stdout:
            kind, *words = line.split()
            if kind == "dir":
                self.folder = words[0]
            else:
                (self.signs if kind == "sign" else self.modbus)[words[0]] = words[1]
            if len(self.signs) == wanted and ("--modbus" not in options or len(self.modbus) == wanted):
                break

    def asked(self):
        """How many of the signs answer one question each."""
        line = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        line.settimeout(20)
        answers = set()
        for number, place in enumerate(self.signs.values(), 1):
            host, port = place.split(":")
            line.sendto(size_request(number), (host, int(port)))
            reply, peer = line.recvfrom(2048)
            if struct.unpack_from("<H", reply, 10)[0] == number and peer == (host, int(port)):
                answers.add(peer)
        return len(answers)

    def stat(self):
        with open(f"/proc/{self.process.pid}/stat", encoding="ascii") as file:
            fields = file.read().rsplit(")", 1)[1].split()
        return {"seconds": (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK"), "threads": int(fields[17])}

    def end(self):
        self.process.terminate()
        _, err = self.process.communicate(timeout=120)
        check(self.process.returncode == 0, f"status {self.process.returncode} at the end: {err}")
        return err


def vxctl(place, *words):
    done = subprocess.run([VXCTL, "-s", "udp://" + place, *words], capture_output=True, text=True, timeout=60)
    check(done.returncode == 0, f"vxctl {words} at {place}: {done.stderr}")
    return done.stdout


def all_of_them(work):
    book, folder = os.path.join(work, "signs.toml"), os.path.join(work, "fleet")
    fleet = Fleet("--count", str(COUNT), "--port", "0", "--dir", folder, "--write-book", book, "--size", "64x16",
                  "--bad", "3,4,red", "--verbose")
    names = [f"sign-{number:04}" for number in range(1, COUNT + 1)]
    check(list(fleet.signs) == names and len(set(fleet.signs.values())) == COUNT, "names and places")
    with open(book, "rb") as file:
        told = tomllib.load(file)
    check(told.get("size") == "64x16", "the size in the book")
    check({name: sign["url"] for name, sign in told["sign"].items()} ==
          {name: "udp://" + place for name, place in fleet.signs.items()}, "urls in the book")
    check([told["sign"][names[at]]["groups"] for at in (0, 99, 100, COUNT - 1)] ==
          [["row-01"], ["row-01"], ["row-02"], ["row-02"]], "groups in the book")
    check(sorted(os.listdir(folder)) == names, "a folder for each")
    check(not os.path.exists(f"{folder}/{names[0]}/C"), "a sign that nobody has asked has no drives")
    subprocess.run([VXSIM, "door", "--dir", f"{folder}/{names[5]}", "open"], check=True)

    check(fleet.asked() == COUNT, "each sign answers")
    check(fleet.stat()["threads"] == 1, "one thread")
    time.sleep(1)  # what a question brings with it is over
    before, begin = fleet.stat(), time.monotonic()
    time.sleep(2)
    part = (fleet.stat()["seconds"] - before["seconds"]) / (time.monotonic() - begin)
    check(part < 0.05, f"{part:.0%} of a processor while nobody asks")

    some = names[::20]
    files = {}
    for name in some:
        files[name] = os.path.join(work, name + ".TXT")
        with open(files[name], "w", encoding="ascii") as file:
            file.write(name)
    with ThreadPoolExecutor(4) as pool:
        list(pool.map(lambda name: vxctl(fleet.signs[name], "put", files[name], "D:/T/WHO.TXT"), some))
    for name in some:
        with open(f"{folder}/{name}/D/T/WHO.TXT", encoding="ascii") as file:
            check(file.read() == name, f"the file of {name}")
    check(not os.path.exists(f"{folder}/{names[1]}/D/T/WHO.TXT"), "the file of another sign")
    vxctl(fleet.signs[names[0]], "bright", "4")
    states = {name: vxctl(fleet.signs[name], "status") for name in (names[0], names[5])}
    check(["door" in state for state in states.values()] == [False, True], f"doors: {states}")
    check(all("PixelError Num=1" in state for state in states.values()), f"a bad pixel each: {states}")
    check(not os.path.exists(f"{folder}/{names[0]}/sign/logs.sqlite"), "a database that nobody has wanted")
    check("bright" in vxctl(fleet.signs[names[0]], "log", "system"), "the log of a sign")
    err = fleet.end()
    check(f"{names[0]}: " in err and f"{names[20]}: " in err, "each command with the name of its sign")
    check(all(os.path.exists(f"{folder}/{name}/sign/logs.sqlite") for name in some), "what is kept has its logs at the end")


def others(work):
    book = os.path.join(work, "login.toml")
    fleet = Fleet("--count", "3", "--port", "0", "--modbus", "0", "--login", "op:1", "--write-book", book)
    places = [*fleet.signs.values(), *fleet.modbus.values()]
    check(len(set(places)) == 6 and len(os.listdir(fleet.folder)) == 0, f"places of signs and devices: {places}")
    vxctl(fleet.modbus["sign-0002"], "modbus", "VSLS", "set", "5", "1", "3", "80")
    check(os.listdir(fleet.folder) == ["sign-0002"], "who was asked has a folder")
    for password, status in (("2", 3), ("1", 0)):
        done = subprocess.run([VXCTL, "--book", book, "-s", "all", "bright", "4"], capture_output=True, text=True, timeout=60,
                              env={**os.environ, "VXSIM_PASSWORD": password})
        check(done.returncode == status, f"a login with the password {password} of the book: {done}")
    fleet.end()
    check(not os.path.exists(fleet.folder), "the temporary folder goes")


def refusals(work):
    def few():
        resource.setrlimit(resource.RLIMIT_NOFILE, (64, 250))
    table = [
        (2, "--count 5001", "5000"),
        (2, "--count 0", "5000"),
        (2, "--count 2 --serial", "--serial is for one sign"),
        (2, "--count 2 --bootloader", "--bootloader is for one sign"),
        (2, "--count 2 --face ansi", "--face ansi is for one sign"),
        (2, f"--count 2 --png {work}/p.png", "--png is for one sign"),
        (2, "--count 2 --drives DE", "drive C"),
        (2, "--count 3 --port 65534", "beyond the last port"),
        (2, "--count 3 --port 9520 --modbus", "begins among the ports up to 9522"),
        (1, "--count 200 --port 0", "200 signs want 528 open files, and the system allows 250, which is enough for 61"),
        (1, f"--count 2 --port 0 --write-book {work}/none/b.toml", "cannot write"),
    ]
    for status, options, text in table:
        done = subprocess.run([VXSIM, *options.split()], capture_output=True, text=True, timeout=60,
                              preexec_fn=few if "200" in options else None)
        check(done.returncode == status and text in done.stderr + done.stdout, f"{options}: {done.returncode} {done.stderr}")


with tempfile.TemporaryDirectory() as work:
    all_of_them(work)
    others(work)
    refusals(work)
sys.exit(1 if failures else 0)
