#!/usr/bin/env python3
"""The server of vxsim's page over HTTP: serverTest.py FOLDER_OF_THE_PROGRAMS [TEST...]"""
import base64
import contextlib
import http.client
import json
import os
import random
import socket
import struct
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path
from urllib.parse import quote

PROGRAMS = Path(sys.argv[1]).resolve()
HOSTILE = "<img src=x onerror=alert(1)>"


def until(condition, what):
    end = time.monotonic() + 15
    while time.monotonic() < end:
        if found := condition():
            return found
        time.sleep(0.02)
    raise AssertionError("in vain for " + what)


class Sign:
    """A sign with a page."""

    def __init__(self, *options):
        self.folder = Path(tempfile.mkdtemp())
        self.process = subprocess.Popen([PROGRAMS / "vxsim", "--dir", self.folder, "--port", "0", "--web", "0", *options],
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.places, self.signs = {}, {}
        while "web" not in self.places:
            line = self.process.stdout.readline()
            assert line, self.process.stderr.read()
            kind, place = line.split(maxsplit=1)
            self.places[kind] = place.strip()
            if kind == "sign":  # one of many
                name, at = place.split()
                self.signs[name] = at
        self.place = self.places["web"].removeprefix("http://").rstrip("/")
        self.host, self.port = self.place.split(":")[0], int(self.place.split(":")[1])

    def end(self):
        self.process.terminate()
        complaints = self.process.communicate()[1]
        subprocess.run(["rm", "-rf", self.folder], check=True)
        return self.process.returncode, complaints

    def ask(self, method, path, body=None, **headers):
        """Status, headers and body of the answer."""
        connection = http.client.HTTPConnection(self.host, self.port, timeout=20)
        try:
            headers = {name.replace("_", "-"): value for name, value in headers.items()}
            connection.request(method, path, body, headers)
            answer = connection.getresponse()
            return answer.status, answer.headers, answer.read()
        finally:
            connection.close()

    def get(self, path):
        status, _, body = self.ask("GET", path)
        assert status == 200, (status, path, body)
        return json.loads(body)

    def post(self, path, /, **body):
        status, _, answer = self.ask("POST", path, json.dumps(body))
        return status, json.loads(answer)

    def put(self, path, content):
        return self.ask("POST", "/api/file?path=" + quote(path), content)[0]

    def raw(self, request, wait=10):
        """What comes for these bytes until the connection ends."""
        with socket.create_connection((self.host, self.port), timeout=wait) as line:
            answer = b""
            with contextlib.suppress(ConnectionError):
                line.sendall(request)
                while part := line.recv(65536):
                    answer += part
            return answer

    def ctl(self, *arguments, name=None):
        at = self.signs[name] if name else self.places["udp"]
        return subprocess.run([PROGRAMS / "vxctl", "-s", "udp://" + at, *arguments], text=True, capture_output=True)

    @contextlib.contextmanager
    def events(self, path="/events"):
        """A stream, as a function that gives the next event as its name and data; None for the name if it was refused."""
        line = socket.create_connection((self.host, self.port), timeout=20)
        line.sendall(f"GET {path} HTTP/1.1\r\nHost: {self.place}\r\n\r\n".encode())
        stream = line.makefile("rb")
        status = int(stream.readline().split()[1])
        while stream.readline() != b"\r\n":
            pass

        def next_event():
            name = stream.readline().decode().removeprefix("event: ").strip()
            data = json.loads(stream.readline().decode().removeprefix("data: "))
            stream.readline()
            return name, data

        try:
            yield next_event if status == 200 else None
        finally:
            stream.close()
            line.close()


class Faces:
    """What a page makes of a stream: the face, the last state, all exchanges."""

    def __init__(self, next_event):
        self.next_event, self.state, self.exchanges = next_event, None, []
        name, self.sign = next_event()
        assert name == "sign"
        self.face = bytearray(3 * self.sign["width"] * self.sign["height"])

    def read_until(self, condition):
        while not condition(self):
            name, data = self.next_event()
            if name == "state":
                self.state = data
            elif name == "traffic":
                self.exchanges += data["exchanges"]
            elif name == "face":
                for part in data["rects"]:
                    self.put(part, base64.b64decode(part["rgb"]))
        return self

    def put(self, part, rgb):
        assert len(rgb) == 3 * part["w"] * part["h"]
        for row in range(part["h"]):
            at = 3 * ((part["y"] + row) * self.sign["width"] + part["x"])
            self.face[at:at + 3 * part["w"]] = rgb[3 * part["w"] * row:3 * part["w"] * (row + 1)]

    def pixel(self, x, y):
        at = 3 * (y * self.sign["width"] + x)
        return tuple(self.face[at:at + 3])


class ServerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sign = Sign()

    @classmethod
    def tearDownClass(cls):
        status, complaints = cls.sign.end()
        assert (status, complaints) == (0, ""), (status, complaints)

    def refused(self, status, method, path, body=None, sign=None, **headers):
        found, _, answer = (sign or self.sign).ask(method, path, body, **headers)
        self.assertEqual(found, status, (path, body, answer))
        self.assertTrue(json.loads(answer)["error"], path)

    def other(self, *options):
        sign = Sign(*options)
        self.addCleanup(lambda: self.assertEqual(sign.end(), (0, "")))
        return sign

    def test_pages_are_served_with_their_policy(self):
        for path, kind in ("/", "text/html"), ("/index.html", "text/html"):
            status, headers, body = self.sign.ask("GET", path)
            self.assertEqual((status, headers["Content-Type"].split(";")[0]), (200, kind))
            self.assertIn(b"<html", body)
            self.assertIn("default-src 'none'; script-src 'self'", headers["Content-Security-Policy"])
            self.assertEqual(headers["X-Content-Type-Options"], "nosniff")

    def test_events_tell_what_changes(self):
        with self.sign.events() as stream:
            page = Faces(stream).read_until(lambda it: it.state)
            self.assertEqual((page.sign["width"], page.sign["height"], page.sign["drives"]), (128, 32, "CDEF"))
            self.sign.post("/api/condition", changes=[{"what": "bad", "value": "3,4,red,stuck"}])
            page.read_until(lambda it: it.pixel(3, 4) == (255, 0, 0))
            page.read_until(lambda it: it.state["condition"]["lamps"])
            self.assertEqual(page.state["condition"]["lamps"], [{"x": 3, "y": 4, "lamp": "red", "fault": "stuck"}])
            self.assertIn("bad 3,4,red,stuck", (self.sign.folder / "sign/condition.txt").read_text())
            subprocess.run([PROGRAMS / "vxsim", "pixel", "--dir", self.sign.folder, "--good", "all"], check=True)
            page.read_until(lambda it: it.pixel(3, 4) == (0, 0, 0) and not it.state["condition"]["lamps"])
            self.sign.ctl("power", "off")
            page.read_until(lambda it: not it.state["power"])
            self.assertEqual(page.state["playing"]["why"], "the sign has no power")
            self.sign.post("/api/box", power=True)
            page.read_until(lambda it: it.state["power"])

    def test_box_and_line(self):
        with self.sign.events() as stream:
            page = Faces(stream).read_until(lambda it: it.state)
            self.assertEqual(self.sign.post("/api/box", light=3)[0], 200)
            page.read_until(lambda it: (it.state["light"], it.state["lightFixed"]) == (3, True))
            self.sign.post("/api/box", light=0)
            self.sign.post("/api/box", clock=3600)
            page.read_until(lambda it: it.state["clock"]["offset"] == 3600 and not it.state["lightFixed"])
            self.sign.post("/api/box", clock=0)
            self.sign.post("/api/box", reset=True)
            page.read_until(lambda it: it.state["playing"]["why"] == "the sign restarts")
            self.assertEqual(self.sign.post("/api/line", unplugged=True)[0], 200)
            page.read_until(lambda it: it.state["line"]["unplugged"])
            self.assertNotEqual(self.sign.ctl("ping", "--timeout", "200", "--retries", "1").returncode, 0)
            self.sign.post("/api/line", unplugged=False, delay=1, noise=4, drop=0.0)
            page.read_until(lambda it: it.state["line"]["noise"] == 4 and it.state["line"]["delay"] == 1)
            self.assertEqual(self.sign.ctl("ping").returncode, 0)
            self.sign.post("/api/line", delay=0, noise=0)

    def test_lines_of_every_kind_are_unplugged(self):
        power = b"\x55\xa7\x0a\x00" + bytes(4) + b"\0\0\1\0\4\5\0\0"
        host, port = self.sign.places["udp"].split(":")
        with socket.create_connection((host, int(port)), timeout=20) as stream, \
                socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as datagrams:
            datagrams.connect((host, int(port)))
            datagrams.settimeout(20)
            last = self.sign.get("/api/traffic?limit=1")["exchanges"]
            stream.sendall(power[:5])
            self.sign.post("/api/line", unplugged=True)
            stream.sendall(power[5:] + power)
            datagrams.send(power)
            time.sleep(0.3)
            self.assertEqual(self.sign.get("/api/traffic?limit=1")["exchanges"], last)
            self.sign.post("/api/line", unplugged=False, delay=60000)
            for line in stream, datagrams:
                line.sendall(power)
            until(lambda: self.sign.get("/api/traffic?limit=2")["exchanges"][1]["name"] == "power state", "both")
            self.sign.post("/api/line", delay=0)  # for those that wait too
            for line in stream, datagrams:
                self.assertEqual(line.recv(1000)[:2], b"\x55\xa8")

    def test_traffic_is_kept_and_captured(self):
        self.sign.ctl("ping")
        self.sign.ctl("ls", "C:/no/such/folder")
        latest = self.sign.get("/api/traffic?limit=1")["exchanges"][0]
        self.assertEqual((latest["host"], latest["channel"][:4]), ("127.0.0.1", "udp:"))
        self.assertNotEqual(latest["code"], 0)
        self.assertTrue(latest["name"] and latest["text"])
        request = self.sign.get(f"/api/traffic/{latest['id']}")["request"]
        self.assertEqual(len(request["bytes"]), 2 * latest["requestBytes"])
        self.assertTrue(request["bytes"].startswith("55"))
        self.assertEqual(request["bytes"][32:], request["payload"] + request["extended"])
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as line:
            host, port = self.sign.places["udp"].split(":")
            line.sendto(b"no request", (host, int(port)))
            until(lambda: self.sign.get("/api/traffic?limit=1")["exchanges"][0]["requestBytes"] == 10, "the broken one")
        broken = self.sign.get("/api/traffic?limit=1")["exchanges"][0]
        self.assertIsNone(self.sign.get(f"/api/traffic/{broken['id']}")["reply"])
        older = self.sign.get(f"/api/traffic?before={broken['id']}&limit=1")["exchanges"][0]
        self.assertEqual(older["id"], broken["id"] - 1)
        capture = self.sign.ask("GET", "/api/traffic.pcap")[2]
        self.assertEqual(struct.unpack_from("<IHH", capture), (0xA1B2C3D4, 2, 4))
        self.assertIn(bytes.fromhex(request["bytes"]), capture)
        at = 24
        while at < len(capture):
            size = struct.unpack_from("<I", capture, at + 8)[0]
            self.assertEqual((capture[at + 16], struct.unpack_from(">H", capture, at + 18)[0]), (0x45, size))
            at += 16 + size
        self.assertEqual(at, len(capture))

    def test_files(self):
        name = HOSTILE.replace("<", "(").replace(">", ")")  # the others are no characters of a name
        content = bytes(range(256)) * 400
        self.assertEqual(self.sign.put(f"d:/new/{name}", content), 200)
        self.assertEqual([drive["name"] for drive in self.sign.get("/api/files?path=")["entries"]], ["C:", "D:", "E:", "F:"])
        entry = self.sign.get("/api/files?path=D:/new")["entries"][0]
        self.assertEqual((entry["name"], entry["folder"], entry["bytes"]), (name, False, len(content)))
        status, headers, body = self.sign.ask("GET", "/api/file?path=" + quote(f"D:\\new\\{name}"))
        self.assertEqual((status, body), (200, content))
        self.assertTrue(headers["Content-Disposition"].startswith("attachment; filename*=UTF-8''"))
        self.assertNotIn("(", headers["Content-Disposition"])
        self.assertEqual(self.sign.put("D:/new/a.PNG", b""), 200)
        self.assertEqual(self.sign.ask("GET", "/api/file?path=D:/new/a.PNG")[1]["Content-Type"], "image/png")
        (self.sign.folder / "D/new").joinpath(os.fsdecode(b"\xff\x01.txt")).touch()  # shown, though no path leads there
        self.assertEqual(len(self.sign.get("/api/files?path=D:/new")["entries"]), 3)
        self.assertEqual(self.sign.post("/api/delete", path="D:/new")[0], 400)
        for path, status in (f"D:/new/{name}", 200), (f"D:/new/{name}", 404), ("D:/", 400):
            self.assertEqual(self.sign.post("/api/delete", path=path)[0], status, path)
        self.assertEqual(list((self.sign.folder / "sign").glob("*.tmp")), [])

    def test_an_upload_is_played(self):
        sign = self.other()
        sign.ctl("show", "A")
        until(lambda: sign.get("/api/playlist")["file"], "a file that plays")
        tree = sign.get("/api/playlist")
        self.assertEqual([item["playing"] for item in tree["items"]], [True])
        sequence = sign.ask("GET", "/api/file?path=C:/SEQUENT.SYS")[2]
        sign.post("/api/delete", path="C:/SEQUENT.SYS")
        until(lambda: not sign.get("/api/playlist")["items"], "an empty list")
        sign.put("C:/sequent.sys", sequence)
        until(lambda: sign.get("/api/playlist")["file"] == tree["file"], "the list again")

    def test_what_the_sign_holds(self):
        sign = self.other("--controller", "--login", f"{HOSTILE[:10]}:1", "--modbus", "0", "--hot", "2")
        self.assertIn("SysLog", sign.get("/api/logs")["tables"])
        log = until(lambda: sign.get("/api/logs?table=EventLog")["rows"], "an event")
        self.assertIn("Tile 2 hot", log[0])
        self.refused(404, "GET", "/api/logs?table=sqlite_master", sign=sign)
        devices = sign.get("/api/devices")
        self.assertEqual([tile["hot"] for tile in devices["tiles"]], [False, True] + [False] * 14)
        self.assertEqual(len(devices["signals"]), 6)
        self.assertEqual(sign.ctl("login", HOSTILE[:10], "--password", "1").returncode, 0)
        with sign.events() as stream:
            page = Faces(stream).read_until(lambda it: it.state)
            self.assertTrue(page.sign["controller"])
            self.assertEqual(page.state["hosts"], [{"host": "127.0.0.1", "user": HOSTILE[:10]}])

    def test_no_path_leaves_the_drives(self):
        outside = self.sign.folder / "secret.txt"
        outside.write_text("secret")
        (self.sign.folder / "D/link.txt").symlink_to(outside)
        (self.sign.folder / "D/up").symlink_to(self.sign.folder)
        os.mkfifo(self.sign.folder / "D/pipe")
        paths = ["", "..", "/etc/passwd", "D:/../secret.txt", "D:\\..\\secret.txt", "D:/link.txt", "D:/up/secret.txt", "G:/x",
                 "D:", "D:/pipe", "D:/T", "C:/\0", "D:/" + "x" * 300, "D:/up", "Z:", "D:/a|b", "D:/./x"]
        for path in paths:
            given = quote(path, safe="")
            self.assertIn(self.sign.ask("GET", f"/api/file?path={given}")[0], (400, 404), path)
            if path != "D:/pipe":
                self.assertEqual(self.sign.put(path, b"x"), 400, path)
            if path != "D:/T":
                self.assertIn(self.sign.post("/api/delete", path=path)[0], (400, 404) if path != "D:/pipe" else (200,), path)
        self.refused(400, "GET", "/api/files?path=D:/up")
        self.refused(404, "GET", "/api/files?path=D:/nothing")
        for path in "/../secret.txt", "/%2e%2e/secret.txt", "/page/../index.html", "//index.html", "/index.html/":
            self.refused(404, "GET", path)
        self.assertEqual(outside.read_text(), "secret")
        for name in "link.txt", "up":
            (self.sign.folder / "D" / name).unlink()

    def test_what_makes_no_sense_is_refused(self):
        for path in "/nothing", "/api", "/api/traffic/0", "/api/traffic/9999999999999999999", "/api/traffic/x", "/api/file":
            self.assertIn(self.sign.ask("GET", path)[0], (400, 404), path)
        for path in "/api/traffic?limit=1001", "/api/traffic?before=x", "/api/traffic?limit=-1":
            self.refused(400, "GET", path)
        bodies = [b"", b"{", b"[]", b"1", b'"x"', b"{\"power\": 1}", b'{"power": "true"}', b'{"light": 9}', b'{"light": 1e300}',
                  b'{"light": 3.5}', b'{"clock": 99999999999999999999}', b'{"x": 1}', b"{}", b'{"power": true, "light": 1}',
                  b'{"power":' + b"[" * 100000, b'{"a":' * 50000, b"\xff\xfe", b'{"power": true}x', b'{"reset": null}']
        for body in bodies:
            self.refused(400, "POST", "/api/box", body)
        for line in {"drop": 1.1}, {"drop": -1}, {"noise": 65}, {"delay": 60001}, {"unplugged": 0}, {"other": 1}, {"badSum": "1"}:
            self.refused(400, "POST", "/api/line", json.dumps(line))
        for what, value in (("bad", "128,0,red"), ("bad", "1,1,pink"), ("hot", "17"), ("door", "ajar"), ("x", "y"), ("bad", 3),
                            ("bad", "1,1,red\nhot 1"), ("tile-error", "1,nonsense")):
            self.refused(400, "POST", "/api/condition", json.dumps({"changes": [{"what": what, "value": value}]}))
        everything = [{"what": "bad", "value": f"{x},{y},all"} for x in range(1000) for y in range(40)]
        large = self.other("--size", "1000x50")
        self.assertEqual(large.post("/api/condition", changes=everything[:9000])[0], 200)
        self.refused(413, "POST", "/api/condition", json.dumps({"changes": everything}), sign=large)
        self.refused(400, "POST", "/api/condition", json.dumps({"changes": everything[9000:22000]}), sign=large)
        for changes in None, 1, {}, [1], [[]], [{}]:
            self.refused(400, "POST", "/api/condition", json.dumps({"changes": changes}))
        for method in "PUT", "DELETE", "OPTIONS", "HEAD", "PATCH", "TRACE":
            self.assertEqual(self.sign.ask(method, "/")[0], 405, method)
        again = subprocess.run([PROGRAMS / "vxsim", "--port", "0", "--web", str(self.sign.port)], capture_output=True, text=True)
        self.assertEqual((again.returncode, again.stdout), (1, ""))
        self.assertIn("Address already in use", again.stderr)

    def test_others_are_refused(self):
        own = self.sign.place
        for host in "evil.example", f"evil.example:{self.sign.port}", f"127.0.0.1.evil.example:{self.sign.port}", "127.0.0.1", \
                f"127.0.0.1:{self.sign.port + 1}", f"LOCALHOST.evil:{self.sign.port}", "":
            self.refused(403, "GET", "/", Host=host)
        self.assertIn(b" 403 ", self.sign.raw(b"GET / HTTP/1.1\r\n\r\n"))
        self.assertIn(b" 403 ", self.sign.raw(f"GET / HTTP/1.1\r\nHost: {own}\r\nHost: evil\r\n\r\n".encode()))
        self.assertEqual(self.sign.ask("GET", "/", Host=f"localhost:{self.sign.port}")[0], 200)
        body = '{"light": 0}'
        for origin in "http://evil.example", "null", f"https://{own}", f"http://localhost:{self.sign.port}", f"http://{own}.evil":
            self.refused(403, "POST", "/api/box", body, Origin=origin)
        for site in "cross-site", "same-site":
            self.refused(403, "POST", "/api/box", body, Sec_Fetch_Site=site)
            self.refused(403, "GET", "/api/files?path=", Sec_Fetch_Site=site)
            self.refused(403, "GET", "/events", Sec_Fetch_Site=site)
        self.assertEqual(self.sign.ask("POST", "/api/box", body, Origin=f"http://{own}", Sec_Fetch_Site="same-origin")[0], 200)

    def test_others_machines_want_the_password(self):
        for options, why in ((["--web-host", "0.0.0.0"], "wants --web-password"), (["--web-host", "x"], "wants --web-password"),
                             (["--web-host", "x", "--web-password", "p"], "is no IPv4 address")):
            refused = subprocess.run([PROGRAMS / "vxsim", "--port", "0", "--web", "0", *options], capture_output=True, text=True)
            self.assertEqual((refused.returncode, why in refused.stderr), (2, True), refused.stderr)
        sign = self.other("--web-host", "0.0.0.0", "--web-password", "päss:word")
        sign.host = "127.0.0.1"
        for login in None, "x:wrong", "x:", "x:päss:wor", "x:päss:words", "päss:word", ":", "":
            headers = {} if login is None else {"Authorization": "Basic " + base64.b64encode(login.encode()).decode()}
            for path in "/", "/events", "/api/files":
                self.refused(401, "GET", path, sign=sign, Host=f"127.0.0.1:{sign.port}", **headers)
        for header in "Basic", "Basic ", "Basic !!!!", "Bearer x", "basic eDp4":
            self.refused(401, "GET", "/", sign=sign, Authorization=header)
        right = "Basic " + base64.b64encode("any:päss:word".encode()).decode()
        self.assertEqual(sign.ask("GET", "/", Authorization=right)[0], 200)
        self.refused(403, "GET", "/", sign=sign, Authorization=right, Host=f"evil.example:{sign.port}")

    def test_bodies_are_bounded(self):
        head = f"POST /api/box HTTP/1.1\r\nHost: {self.sign.place}\r\n"
        for lines, status in (("", 411), ("Transfer-Encoding: chunked\r\n", 411), ("Content-Length: x\r\n", 400),
                              ("Content-Length: -1\r\n", 400), ("Content-Length: 1\r\nContent-Length: 2\r\n", 411),
                              ("Content-Length: 1048577\r\n", 413), ("Content-Length: 5\r\nContent-Encoding: gzip\r\n", 415),
                              ("Content-Length: 99999999999999999999\r\n", 400)):
            answer = self.sign.raw((head + lines + "\r\n").encode())
            self.assertIn(f" {status} ".encode(), answer.split(b"\r\n")[0], lines)
        upload = head.replace("/api/box", "/api/file?path=D:/large")
        self.assertIn(b" 413 ", self.sign.raw((upload + f"Content-Length: {(64 << 20) + 1}\r\n\r\n").encode()))
        with socket.create_connection((self.sign.host, self.sign.port)) as line:
            line.sendall((upload + "Content-Length: 1000\r\n\r\nhalf").encode())
        until(lambda: not list((self.sign.folder / "sign").glob("*.tmp")), "the end of half a file")
        self.assertFalse((self.sign.folder / "D/large").exists())

    def test_heads_are_bounded(self):
        host = f"Host: {self.sign.place}\r\n"
        for head, status in (("GET /" + "x" * 9000 + f" HTTP/1.1\r\n{host}\r\n", 414),
                             ("GET / HTTP/1.1\r\n" + host + "X: " + "y" * 20000 + "\r\n\r\n", 431),
                             ("GET / HTTP/1.1\r\n" + host + "X: y\r\n" * 5000 + "\r\n", 431),
                             ("x" * 20000, 431), ("\r\n\r\n", 400), ("GET\r\n\r\n", 400), ("GET / HTTP/9\r\n\r\n", 400),
                             ("\0" * 100 + "\r\n\r\n", 400)):
            answer = self.sign.raw(head.encode())
            self.assertTrue(answer == b"" or f" {status} ".encode() in answer.split(b"\r\n")[0], (head[:30], answer[:100]))
        ranges = "Range: bytes=" + ",".join("0-" for _ in range(2500)) + "\r\n"
        self.assertIn(b" 200 ", self.sign.raw(f"GET / HTTP/1.1\r\n{host}{ranges}\r\n".encode()))

    def test_noise_never_ends_the_page(self):
        dice = random.Random(16)
        words = [b"GET ", b"POST ", b"/", b"/api/file?path=", b"/api/box", b"/events", b" HTTP/1.1\r\n", b"\r\n", b"\r\n\r\n",
                 f"Host: {self.sign.place}\r\n".encode(), b"Content-Length: ", b"5", b"%", b"%00", b"%u0041", b"{", b"\xff", b":",
                 b"Authorization: Basic ", b"Expect: 100-continue\r\n", b"Content-Type: multipart/form-data; boundary=x\r\n", b"?&=&;"]
        for _ in range(300):
            noise = b"".join(dice.choice(words) for _ in range(dice.randrange(1, 20)))
            noise = f"GET / HTTP/1.1\r\nHost: {self.sign.place}\r\n".encode() + noise if dice.random() < 0.3 else noise
            with socket.create_connection((self.sign.host, self.sign.port), timeout=10) as line:
                line.sendall(noise)
                line.shutdown(socket.SHUT_WR) if dice.random() < 0.7 else None
        self.assertEqual(self.sign.ask("GET", "/")[0], 200)

    def test_slow_ones_do_not_stop_others(self):
        with contextlib.ExitStack() as stack:
            slow = [stack.enter_context(socket.create_connection((self.sign.host, self.sign.port))) for _ in range(60)]
            for line in slow:
                with contextlib.suppress(ConnectionError):
                    line.sendall(b"GET / HT")
            self.assertEqual(self.sign.ctl("ping").returncode, 0)
            until(lambda: self.sign.ask("GET", "/")[0] == 200, "a place for others")  # 503 until the first ones are given up
            answers = b"".join(line.recv(20) for line in slow[:3])
            self.assertIn(b" 408 ", answers)

    def test_many_pages(self):
        with contextlib.ExitStack() as stack:
            def seat():
                return stack.enter_context(self.sign.events())
            streams = [until(seat, "a seat that the tests before have left") for _ in range(16)]
            self.assertIsNone(seat())
            self.assertEqual(self.sign.ask("GET", "/")[0], 200)
            self.sign.post("/api/condition", changes=[{"what": "bad", "value": "0,0,all,stuck"}])
            for stream in streams:
                Faces(stream).read_until(lambda it: it.pixel(0, 0) == (255, 255, 255))
            self.sign.post("/api/condition", changes=[{"what": "good", "value": "all"}])

    def test_end_with_pages_open(self):
        sign = Sign()
        with sign.events() as stream:
            Faces(stream).read_until(lambda it: it.state)
            begin = time.monotonic()
            self.assertEqual(sign.end(), (0, ""))
            self.assertLess(time.monotonic() - begin, 10)


class FleetTest(unittest.TestCase):
    def fleet(self, *options):
        fleet = Sign("--count", *options)
        self.addCleanup(lambda: self.assertEqual(fleet.end(), (0, "")))
        return fleet

    def test_each_sign_has_its_own_page(self):
        fleet = self.fleet("70")
        self.assertEqual(fleet.get("/api/signs")["signs"], [{"name": name, "at": at} for name, at in fleet.signs.items()])
        self.assertIn(b"/fleet.js", fleet.ask("GET", "/")[2])
        status, headers, _ = fleet.ask("GET", "/sign/sign-0002")
        self.assertEqual((status, headers["Location"]), (302, "/sign/sign-0002/"))
        self.assertIn(b"/main.js", fleet.ask("GET", "/sign/sign-0002/")[2])
        for path in ("/sign/sign-0071/", "/sign/sign-0071", "/sign/../api/playlist", "/sign//", "/api/playlist", "/events",
                     "/sign/sign-0002/sign/sign-0003/api/playlist"):
            self.assertEqual(fleet.ask("GET", path)[0], 404, path)
        self.assertEqual(fleet.ask("GET", "/api/playlist", X_Sign="sign-0002")[0], 404, "no way past the path")

        bad = [{"what": "bad", "value": "3,4,red,stuck"}]
        with fleet.events("/sign/sign-0002/events") as stream:
            page = Faces(stream)
            self.assertEqual((page.sign["name"], page.sign["lines"][0]), ("sign-0002", "udp " + fleet.signs["sign-0002"]))
            self.assertEqual(fleet.post("/sign/sign-0002/api/condition", changes=bad)[0], 200)
            page.read_until(lambda it: it.pixel(3, 4) == (255, 0, 0))
            self.assertEqual(fleet.ctl("bright", "3", name="sign-0002").returncode, 0)
            page.read_until(lambda it: it.state and it.state["light"] == 3)
        self.assertEqual(fleet.get("/sign/sign-0003/api/traffic"), {"exchanges": []})
        self.assertTrue(fleet.get("/sign/sign-0002/api/traffic")["exchanges"])
        self.assertEqual(fleet.put("/sign/sign-0003/D:/T/A.TXT", b"a"), 404)
        self.assertEqual(fleet.ask("POST", "/sign/sign-0003/api/file?path=D:/T/A.TXT", b"a")[0], 200)
        self.assertEqual((fleet.folder / "sign-0003/D/T/A.TXT").read_bytes(), b"a")
        rows = fleet.get("/sign/sign-0002/api/logs?table=SysLog")["rows"]
        self.assertEqual([row[2] for row in rows], ["brightness", "start"])
        # A condition is seen though nobody looks on.
        self.assertEqual(fleet.post("/sign/sign-0004/api/condition", changes=bad)[0], 200)
        until(lambda: "pixels" in fleet.ctl("status", name="sign-0004").stdout, "a bad pixel")

    def test_faces_in_small(self):
        fleet = self.fleet("70", "--size", "513x64", "--bad", "0,0,green,stuck")
        names = list(fleet.signs)
        faces = lambda wanted: fleet.post("/api/faces", **wanted)
        status, answer = faces({name: None for name in names[:64]})
        self.assertEqual((status, answer["faces"]), (200, {name: {"asleep": True} for name in names[:64]}))
        self.assertEqual(faces({name: None for name in names[:65]})[0], 400)
        self.assertEqual(faces({"sign-0071": None})[0], 404)
        self.assertEqual(fleet.ctl("ping", name=names[0]).returncode, 0)
        face = faces({names[0]: None})[1]["faces"][names[0]]
        rgb = base64.b64decode(face["rgb"])
        self.assertEqual((face["width"], face["height"], len(rgb)), (171, 22, 3 * 171 * 22))
        self.assertEqual(rgb[:6], bytes([0, 255 // 9, 0, 0, 0, 0]), "the mean of nine pixels")
        self.assertEqual(faces({names[0]: face["version"]})[1]["faces"][names[0]], {"version": face["version"]})


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
