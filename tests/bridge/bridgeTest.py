#!/usr/bin/python3
"""vxbridge between virtual signs and a real broker: bridgeTest.py FOLDER_OF_THE_PROGRAMS [TEST...]"""
import json
import os
import signal
import socket
import subprocess
import sys
import threading
import time
import unittest
from pathlib import Path

import jsonschema

sys.dont_write_bytecode = True
from fleet import Fleet, free_port, kill, until

PROGRAMS = Path(sys.argv[1]).resolve()
ROOT = Path(__file__).resolve().parents[2]
SCHEMA = json.loads((ROOT / "docs/vxbridge.schema.json").read_text())
SECRETS = {"user": "operator\n", "password": "s3cret\n"}


def check(kind, value):
    jsonschema.validate(value, {"$ref": "#/$defs/" + kind, "$defs": SCHEMA["$defs"]})


class BridgeTest(unittest.TestCase):
    def setUp(self):
        self.fleet = Fleet(PROGRAMS)
        self.addCleanup(self.fleet.end)

    def begin(self, signs=1, *options, **defaults):
        """A broker, signs named s0 and so on, and a bridge that has polled all of them."""
        fleet = self.fleet
        self.server = fleet.broker()
        self.signs = {f"s{i}": fleet.sign() for i in range(signs)}
        fleet.write_book(self.signs, **defaults)
        fleet.connect()
        bridge = fleet.bridge("one", *options)
        for name in self.signs:
            until(lambda: fleet.state(name), "the state of " + name)
        until(lambda: (fleet.last.get("vx/bridge/one/online") or {}).get("online"), "the bridge")
        return bridge

    def test_states(self):
        """Everything that is published is as the schema says, and what a command changes is told at once."""
        bridge = self.begin(1, "--home-assistant", interval=5)
        self.fleet.write_book({**self.signs, "dead": "udp://127.0.0.1:9"}, interval=5)
        bridge.send_signal(signal.SIGHUP)
        until(lambda: self.fleet.state("dead", "availability").get("reason"), "the dead sign")
        self.assertEqual(0, self.fleet.ask("s0", "show", {"text": "HELLO"})["result"])
        until(lambda: self.fleet.state("s0", "playing").get("playing"), "what plays", 3)
        self.assertEqual(0, self.fleet.ask("s0", "bright", {"level": 3})["result"])
        until(lambda: self.fleet.state("s0").get("lightEighths") == 3, "the brightness", 3)
        for topic, payload in self.fleet.last.items():
            if topic.startswith("vx/"):
                check(topic.split("/")[-1], payload)
        config = self.fleet.last["homeassistant/light/a7_s0/light/config"]
        self.assertEqual("vx/a7/s0/cmd/power", config["command_topic"])
        self.assertEqual(0, self.fleet.ask("s0", "power", config["payload_off"])["result"])
        self.fleet.write_book(self.signs)
        bridge.send_signal(signal.SIGHUP)
        until(lambda: self.fleet.last["vx/a7/dead/availability"] is None, "the end of the dead sign")
        self.assertIsNone(self.fleet.last["homeassistant/light/a7_dead/light/config"])
        self.fleet.book.write_text("site = [")
        bridge.send_signal(signal.SIGHUP)
        until(lambda: "stays in force" in self.fleet.log("one"), "the refusal of the book")
        self.assertEqual(0, self.fleet.ask("s0", "blank")["result"])

    def test_commands(self):
        """Each verb, and each way of being refused; the sign's own answer comes as well."""
        files = self.fleet.folder / "files"
        files.mkdir()
        (files / "a b.txt").write_text("HELLO")
        (self.fleet.folder / "secret.txt").write_text("SECRET")
        (files / "link.txt").symlink_to("../secret.txt")
        os.mkfifo(files / "pipe")
        self.begin(1, "--folder", files)
        rows = [("show", {"text": "A", "colour": "red", "stay": 3, "mustFit": True}, 0, None),
                ("show", {"text": "--json"}, 0, None), ("blank", None, 0, None), ("unblank", {}, 0, None),
                ("power", {"action": "on"}, 0, None), ("clock", {"set": "now"}, 0, None), ("clock", {}, 0, None),
                ("play", {"what": "next"}, 0, None), ("put", {"url": "a b.txt", "path": "D:/T/A.TXT"}, 0, None),
                ("put", {"url": f"file://{files}/a%20b.txt", "path": "D:/T/A.TXT"}, 0, None),
                ("put", {"url": "../secret.txt", "path": "D:/T/A.TXT"}, 2, "below the folder"),
                ("put", {"url": "link.txt", "path": "D:/T/A.TXT"}, 2, "below the folder"),
                ("put", {"url": "pipe", "path": "D:/T/A.TXT"}, 2, "below the folder"),
                ("put", {"url": "file:///etc/passwd", "path": "D:/T/A.TXT"}, 2, "below the folder"),
                ("put", {"url": "http://x/y", "path": "D:/T/A.TXT"}, 2, "is no file"),
                ("raw", {"major": 4, "minor": 1}, 2, "does not take"), ("bright", {"level": 256}, 2, "0 to 255"),
                ("bright", {"level": "4"}, 2, "type integer"), ("bright", {}, 2, "'level' is missing"),
                ("bright", {"level": 1, "sign": "udp://x"}, 2, "no key 'sign'"), ("show", {"text": "-"}, 2, "alone"),
                ("show", {"text": "a\0b"}, 2, "code 0"), ("show", "{", 2, "no JSON"), ("show", "[" * 60000, 2, "no JSON"),
                ("show", b"\xff\xfe", 2, "no JSON"), ("show", "[1]", 2, "no JSON object"),
                ("show", json.dumps({"text": "x" * 1000000}), 2, "65536"), ("nonsense", {}, 2, "unknown verb"),
                ("blank", {"x": 1}, 2, "it takes none")]
        for verb, payload, result, reason in rows:
            with self.subTest(verb=verb, payload=str(payload)[:60]):
                answer = self.fleet.ask("s0", verb, payload)
                check("answer", answer)
                self.assertEqual(result, answer["result"], answer)
                self.assertIn(reason or "", answer["reason"] or "")
        self.assertIn("no sign 'nobody'", self.fleet.ask("nobody", "blank")["reason"])
        self.fleet.client.publish("vx/a7/s0/cmd/blank", "{", 1)  # which nobody wants an answer to
        self.fleet.send("s0", "blank")  # an answer without a mark
        self.assertEqual(("", 0), (lambda mark, answer, *_: (mark, answer["result"]))(*self.fleet.answers.get(timeout=9)))

    def test_raw(self):
        self.begin(1, "--allow-raw")
        answer = self.fleet.ask("s0", "raw", {"major": 4, "minor": 5})
        self.assertEqual((0, "reply" in answer["values"]), (answer["result"], True), answer)

    def test_twice(self):
        """The same mark is the same command: executed once, answered as often as it comes."""
        bridge = self.begin(interval=5)
        answers = [self.fleet.ask("s0", "show", {"text": "A"}, mark="m1") for _ in range(3)]
        self.assertEqual(answers[0], answers[2])
        self.fleet.ask("s0", "show", {"text": "B"}, mark="m1")  # the mark of someone else
        self.assertEqual((2, 2), (self.fleet.value(bridge, "vxbridge_commands_repeated_total"),
                                  self.fleet.value(bridge, "vxbridge_commands_total")))

    def test_bad_signs(self):
        """A sign that talks without end and one that says nothing cost the others nothing."""
        talker = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        talker.bind(("127.0.0.1", 0))
        silent = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        silent.bind(("127.0.0.1", 0))
        ends = threading.Event()

        def talk():
            _, peer = talker.recvfrom(4096)
            while not ends.is_set():
                try:
                    talker.sendto(os.urandom(700), peer)
                    talker.settimeout(0.0005)
                    _, peer = talker.recvfrom(4096)
                except OSError:
                    pass
        thread = threading.Thread(target=talk)
        thread.start()
        self.addCleanup(thread.join)
        self.addCleanup(ends.set)
        self.fleet.broker()
        self.fleet.write_book({"good": self.fleet.sign(), "loud": f"udp://127.0.0.1:{talker.getsockname()[1]}",
                               "mute": f"udp://127.0.0.1:{silent.getsockname()[1]}"}, interval=1)
        self.fleet.connect()
        bridge = self.fleet.bridge("one", "--threads", "4")
        for name in ("mute", "loud"):
            until(lambda: self.fleet.state(name, "availability").get("available") is False, "the verdict on " + name)
        self.fleet.send("loud", "blank", mark="loud")
        self.fleet.send("mute", "blank", mark="mute")
        self.assertEqual(0, self.fleet.ask("good", "blank", seconds=2)["result"])
        marks = {self.fleet.answers.get(timeout=15)[0] for _ in range(2)}
        self.assertEqual({"loud", "mute"}, marks)
        self.assertIn('vx_sign_available{site="a7",sign="mute",road="A7"} 0', self.fleet.scrape(bridge))

    def test_metrics(self):
        """What a Prometheus server reads, and what promtool says of it."""
        bridge = self.begin(2)
        self.fleet.ask("s0", "blank")
        text = self.fleet.scrape(bridge)
        for text in (text, self.fleet.scrape(bridge, "/probe?target=s1")):
            found = subprocess.run(["promtool", "check", "metrics"], input=text, text=True, capture_output=True)
            self.assertEqual((0, ""), (found.returncode, found.stderr))
        self.assertIn("probe_success 1\n", text)
        self.assertNotIn('"s0"', text)
        with self.assertRaises(OSError):
            self.fleet.scrape(bridge, "/probe?target=nobody")

    def test_broker_away(self):
        """A broker that comes late, goes and comes back finds all states again; what it lost is published anew."""
        self.signs = {"s0": self.fleet.sign()}
        self.fleet.write_book(self.signs, interval=1)
        bridge = self.fleet.bridge("one")
        until(lambda: "no broker at" in self.fleet.log("one"), "the complaint")
        until(lambda: self.fleet.value(bridge, "vxbridge_polls_total") > 1, "polls without a broker")
        for _ in range(2):
            server = self.fleet.broker()
            self.fleet.connect()
            until(lambda: self.fleet.state("s0"), "the state")
            until(lambda: (self.fleet.last.get("vx/bridge/one/online") or {}).get("online"), "the bridge")
            self.assertEqual(0, self.fleet.ask("s0", "blank")["result"])
            self.fleet.client.loop_stop()
            self.fleet.client.disconnect()
            kill(server)

    def test_end(self):
        """READY, RELOADING and STOPPING go to the service manager; SIGTERM ends a hanging command within 5 s, as offline."""
        manager = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        manager.bind("\0vxbridge-test-" + str(os.getpid()))
        manager.settimeout(10)
        self.fleet.broker()
        silent = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        silent.bind(("127.0.0.1", 0))
        self.fleet.write_book({"mute": f"udp://127.0.0.1:{silent.getsockname()[1]}"}, timeout=20000, interval=60)
        self.fleet.connect()
        environment = {**os.environ, "NOTIFY_SOCKET": "@vxbridge-test-" + str(os.getpid())}
        bridge = self.fleet.bridge("one", env=environment)
        self.assertIn(b"READY=1", manager.recv(1000))
        until(lambda: self.fleet.last.get("vx/bridge/one/online", {}).get("online"), "the bridge")
        self.fleet.send("mute", "blank", mark="hangs")
        until(lambda: self.fleet.value(bridge, "vxbridge_threads_busy") > 0, "the command")
        begin = time.monotonic()
        bridge.terminate()
        self.assertEqual(0, bridge.wait(10), self.fleet.log("one"))
        self.assertLess(time.monotonic() - begin, 5)
        until(lambda: not self.fleet.last["vx/bridge/one/online"]["online"], "its goodbye")
        self.assertTrue(self.fleet.answers.empty())
        said = b""
        while b"STOPPING=1" not in said:
            said = manager.recv(1000)
        self.fleet.bridge("one")  # which the broker gives the command again
        until(lambda: self.fleet.log("one").count("works on") == 2, "the second start")
        self.fleet.write_book({"mute": f"udp://127.0.0.1:{silent.getsockname()[1]}"}, timeout=300, interval=60)
        kill(self.fleet.running[-1])
        self.fleet.bridge("other")
        mark, answer, users, _ = self.fleet.answers.get(timeout=20)
        self.assertEqual(("hangs", True, "true", "other"),
                         (mark, answer["redelivered"], users.get("redelivered"), answer["bridge"]))

    def test_failover(self):
        """Commands that are sent while a bridge is killed are all answered, and its signs are polled by the other."""
        one = self.begin(8, interval=1)
        other = self.fleet.bridge("other")
        until(lambda: 0 < self.fleet.value(other, "vxbridge_signs_polled") < 8, "two that share")
        until(lambda: self.fleet.value(one, "vxbridge_signs_polled") +
              self.fleet.value(other, "vxbridge_signs_polled") == 8, "shares that are whole")
        for i in range(300):
            self.fleet.send(f"s{i % 8}", "bright", {"level": i % 7}, mark=str(i))
            if i == 150:
                kill(one)
        open_ones = {str(i) for i in range(300)}
        redelivered = 0
        while open_ones:
            mark, answer, _, _ = self.fleet.answers.get(timeout=20)
            self.assertEqual(0, answer["result"], answer)
            open_ones.discard(mark)
            redelivered += answer["redelivered"]
        until(lambda: self.fleet.value(other, "vxbridge_signs_polled") == 8, "the other's taking over", 4)
        self.assertGreaterEqual(redelivered, 0)
        self.assertEqual(1, self.fleet.value(other, "vxbridge_takeovers_total"))
        self.assertFalse(self.fleet.last["vx/bridge/one/online"]["online"])

    def test_secrets(self):
        """TLS, user and password from files; a wrong password is said so, and tried again."""
        folder, fleet = self.fleet.folder, self.fleet
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost",
                        "-addext", "subjectAltName=DNS:localhost,IP:127.0.0.1", "-keyout", folder / "key.pem",
                        "-out", folder / "cert.pem"], check=True, capture_output=True)
        for name, text in SECRETS.items():
            (folder / name).write_text(text)
        subprocess.run(["mosquitto_passwd", "-b", "-c", folder / "passwords", "operator", "s3cret"], check=True)
        secret = free_port()
        fleet.broker("allow_anonymous false", f"password_file {folder}/passwords", f"listener {secret} 127.0.0.1",
                     f"certfile {folder}/cert.pem", f"keyfile {folder}/key.pem")
        fleet.write_book({"s0": fleet.sign()}, interval=1)
        options = ["--user-file", folder / "user", "--password-file", folder / "password"]
        (folder / "wrong").write_text("nothing")
        fleet.bridge("wrong", *options[:3], folder / "wrong")
        until(lambda: "refuses" in fleet.log("wrong"), "the refusal")
        fleet.bridge("stranger", *options, url=f"mqtts://localhost:{secret}")
        until(lambda: "lost the broker" in fleet.log("stranger") or "no broker" in fleet.log("stranger"), "distrust")
        bridge = fleet.bridge("one", *options, "--ca", folder / "cert.pem", url=f"mqtts://localhost:{secret}")
        until(lambda: fleet.value(bridge, "vxbridge_broker_connected") == 1, "the connection")
        for text in (fleet.log("one"), fleet.log("wrong")):
            self.assertNotIn("s3cret", text)

    def test_options(self):
        """What cannot be is refused with status 2, naming it."""
        self.fleet.write_book({"s0": "udp://127.0.0.1:9"})
        for options, reason in ((["--id", "a/+"], "'a/+'"), (["--broker", "http://x"], "names no broker"),
                                (["--metrics", "nowhere"], "HOST:PORT"), (["--folder", "/nowhere"], "no folder"),
                                (["--book", "/nowhere"], "/nowhere"), (["--password-file", "/nowhere"], "/nowhere"),
                                (["--nonsense"], "--nonsense")):
            standard = {"--book": self.fleet.book, "--metrics": "127.0.0.1:0"}
            further = [word for name in standard if name not in options for word in (name, standard[name])]
            found = subprocess.run([PROGRAMS / "vxbridge", *options, *further], text=True, capture_output=True, timeout=20)
            self.assertEqual((2, True), (found.returncode, reason in found.stderr), (options, found))

    def test_unit(self):
        """The sandbox of the unit is as tight as it is meant to be."""
        found = subprocess.run(["systemd-analyze", "security", "--offline=true", "--threshold=20",
                                ROOT / "tools/vxbridge/vxbridge.service"], text=True, capture_output=True)
        self.assertEqual(0, found.returncode, found.stdout[-300:] + found.stderr)


if __name__ == "__main__":
    unittest.main(argv=["bridgeTest.py", *sys.argv[2:]], verbosity=2, warnings="ignore")
