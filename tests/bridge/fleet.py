"""A broker, virtual signs, bridges and a client of theirs, each with its end: for tests and measurements."""
import itertools
import json
import os
import queue
import shutil
import signal
import socket
import subprocess
import tempfile
import time
import urllib.request
from pathlib import Path

import paho.mqtt.client as mqtt
from paho.mqtt.packettypes import PacketTypes
from paho.mqtt.properties import Properties


def until(condition, what, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if found := condition():
            return found
        time.sleep(0.02)
    raise AssertionError("in vain for " + what)


def free_port():
    with socket.socket() as found:
        found.bind(("127.0.0.1", 0))
        return found.getsockname()[1]


class Fleet:
    def __init__(self, programs):
        self.programs = Path(programs).resolve()
        self.folder = Path(tempfile.mkdtemp(prefix="fleet"))
        self.book = self.folder / "signs.toml"
        self.port = free_port()
        self.running = []
        self.client = None
        self.marks = itertools.count()

    def start(self, *words, **options):
        process = subprocess.Popen([str(word) for word in words], **options)
        self.running.append(process)
        return process

    def end(self):
        if self.client:
            self.client.loop_stop()
        for process in reversed(self.running):
            if process.poll() is None:
                process.terminate()
        for process in self.running:
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
        shutil.rmtree(self.folder)

    def broker(self, *lines):
        """Starts it, or starts it anew; further lines of its configuration stand ahead of the listener's own."""
        config = self.folder / "broker.conf"
        if not config.exists():
            config.write_text("\n".join(["user root", "max_queued_messages 0", "set_tcp_nodelay true", *(lines or ["allow_anonymous true"]),
                                         f"listener {self.port} 127.0.0.1"]) + "\n")
        log = open(self.folder / "broker.log", "a")
        process = self.start("mosquitto", "-c", config, stdout=log, stderr=log)

        def answers():
            with socket.socket() as probe:
                return probe.connect_ex(("127.0.0.1", self.port)) == 0
        until(answers, "the broker")
        return process

    def sign(self, *options):
        """A virtual sign; gives its URL."""
        process = self.start(self.programs / "vxsim", "--port", "0", *options, stdout=subprocess.PIPE, text=True)
        for line in process.stdout:
            if line.startswith("udp "):
                return "udp://" + line.split()[1]
        raise AssertionError("no sign")

    def many_signs(self, count, interval):
        """As many virtual signs in one process, in the book as sign-0001 and so on, of the site vxsim."""
        process = self.start(self.programs / "vxsim", "--count", count, "--port", "0", "--dir", self.folder / "signs",
                             "--write-book", self.book, stdout=subprocess.PIPE, text=True)
        for _ in range(count):
            while not process.stdout.readline().startswith("sign "):
                assert process.poll() is None, "no signs"
        self.book.write_text(f"interval = {interval}\n" + self.book.read_text())

    def write_book(self, signs, **defaults):
        values = {"site": "a7", "timeout": 300, "retries": 2, "interval": 2, **defaults}
        text = "".join(f"{name} = {json.dumps(value)}\n" for name, value in values.items())
        for name, url in signs.items():
            text += f"[sign.{name}]\nurl = \"{url}\"\nlabels = {{ road = \"A7\" }}\n"
        self.book.write_text(text)

    def bridge(self, name, *options, url=None, **settings):
        """Waits until it has started; .metrics is where its metrics are."""
        log = open(self.folder / (name + ".log"), "a")
        begin = log.tell()
        process = self.start(self.programs / "vxbridge", "--id", name, "--book", self.book, "--metrics", "127.0.0.1:0",
                             "--broker", url or f"mqtt://127.0.0.1:{self.port}", *options, stderr=log, **settings)

        def place():
            assert process.poll() is None, self.log(name)
            said = self.log(name)[begin:]
            return said.split("metrics at ")[1].split()[0] if "/metrics" in said else None
        process.metrics = until(place, "the start of " + name)
        return process

    def log(self, name):
        return (self.folder / (name + ".log")).read_text()

    def connect(self):
        """The client, which keeps the last payload of each topic in .last, and puts answers into .answers."""
        self.last, self.answers = {}, queue.Queue()
        self.client = mqtt.Client(protocol=mqtt.MQTTv5)
        self.client.on_message = self.take
        self.client.max_inflight_messages_set(1000)
        self.client.connect("127.0.0.1", self.port)
        self.client.socket().setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.client.subscribe([("vx/#", 1), ("answers/#", 1), ("homeassistant/#", 1)])
        self.client.loop_start()

    def take(self, _client, _object, message):
        text = message.payload.decode(errors="replace")
        if message.topic.startswith("answers/"):
            users = dict(getattr(message.properties, "UserProperty", []))
            self.answers.put((getattr(message.properties, "CorrelationData", b"").decode(), json.loads(text), users,
                              time.monotonic()))
        elif "/cmd/" not in message.topic:
            self.last[message.topic] = json.loads(text) if text else None

    def state(self, sign, what="state"):
        return self.last.get(f"vx/a7/{sign}/{what}") or {}

    def send(self, sign, verb, payload=None, mark=None, site="a7"):
        properties = Properties(PacketTypes.PUBLISH)
        properties.ResponseTopic = "answers/here"
        if mark:
            properties.CorrelationData = mark.encode()
        text = payload if isinstance(payload, (str, bytes)) or payload is None else json.dumps(payload)
        return self.client.publish(f"vx/{site}/{sign}/cmd/{verb}", text, 1, properties=properties)

    def ask(self, sign, verb, payload=None, mark=None, seconds=20, **where):
        """Sends a command and gives its answer; those to others wait for who wants them."""
        mark = mark or str(next(self.marks))
        self.send(sign, verb, payload, mark, **where)
        others = []
        while not others or others[-1][0] != mark:
            others.append(self.answers.get(timeout=seconds))
        answer = others.pop()[1]
        for other in others:
            self.answers.put(other)
        return answer

    @staticmethod
    def scrape(bridge, path=None):
        place = bridge.metrics if path is None else bridge.metrics.replace("/metrics", path)
        return urllib.request.urlopen(place, timeout=40).read().decode()

    @classmethod
    def value(cls, bridge, name):
        """The sum over all labels."""
        return sum(float(line.split()[-1]) for line in cls.scrape(bridge).splitlines()
                   if line.startswith((name + "{", name + " ")))


def kill(process):
    os.kill(process.pid, signal.SIGKILL)
    process.wait()
