#!/usr/bin/env python3
"""The example programs as their users start them, against vxsim.

    examplesTest.py BIN [LANGUAGE...]

BIN has vxsim, and the programs of C and C++ (example_NAME, example_cpp_NAME), which are the languages unless others are named.
"""
import os
import signal
import socket
import subprocess
import sys
import tempfile
from pathlib import Path

BIN = Path(sys.argv[1]).resolve()
LANGUAGES = sys.argv[2:] or ["c", "cpp"]
EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
COMMANDS = {  # of the example NAME
    "c": lambda name: [BIN / f"example_{name}"],
    "cpp": lambda name: [BIN / f"example_cpp_{name}"],
    "python": lambda name: [sys.executable, EXAMPLES / "python" / f"{name}.py"],
    "csharp": lambda name: ["mono", BIN / "csharp" / f"{name}.exe"],
}
ALL = tuple(COMMANDS)
failures = 0


class Sign:
    """vxsim with a folder of its own."""

    def __init__(self, folder, *options):
        self.folder = Path(folder)
        self.folder.mkdir()
        self.process = subprocess.Popen([BIN / "vxsim", "--port", "0", "--serial", "--dir", folder, *options],
                                        stdout=subprocess.PIPE, text=True)
        self.places = {}
        while "serial" not in self.places:
            kind, _, place = next(self.process.stdout).strip().partition(" ")
            self.places[kind] = place

    def has(self, path, contents):
        file = self.folder / path
        return lambda: file.exists() and contents in file.read_bytes()


def place_of(language, udp):
    """C takes a host and a port, as the library does; the others a URL."""
    return udp.split(":") if language == "c" else [f"udp://{udp}"]


def complain(command, why, output):
    global failures
    failures += 1
    print(f"FAILED: {' '.join(map(str, command))}: {why}\n{output}", file=sys.stderr)


def run(language, name, arguments, status, said, check=None):
    command = COMMANDS[language](name) + arguments
    done = subprocess.run(command, cwd=EXAMPLES, capture_output=True, text=True, timeout=60, errors="replace")
    output = done.stdout + done.stderr
    if done.returncode != status:
        complain(command, f"exit status {done.returncode}, not {status}", output)
    elif said not in output:
        complain(command, f"does not say '{said}'", output)
    elif check and not check():
        complain(command, "did not do its work", output)


def interrupt(language):
    """A sign that says nothing, and Ctrl-C as soon as the first packet is there."""
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as silent:
        silent.bind(("127.0.0.1", 0))
        silent.settimeout(30)
        place = place_of(language, f"127.0.0.1:{silent.getsockname()[1]}")
        command = COMMANDS[language]("file") + place + ["logo.bmp", r"D:\T\X"]
        hear = lambda: signal.signal(signal.SIGINT, signal.SIG_DFL)  # what a shell starts in the background does not
        program = subprocess.Popen(command, cwd=EXAMPLES, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                   preexec_fn=hear)
        silent.recv(4096)
        program.send_signal(signal.SIGINT)
        output = program.communicate(timeout=30)[0]
        said = "ended" if language == "python" else "Operation Abort!"
        if program.returncode != 1 or said not in output:
            complain(command, f"exit status {program.returncode} behind Ctrl-C", output)


def rows(sign, other, strict, work):
    """languages, example, place, arguments, exit status, what it says, what it did. A place of None: no place ahead."""
    good, bad = sign.places["udp"], strict.places["udp"]
    list_files = [str(EXAMPLES / name) for name in ("hello.nmg", "logo.bmp")]
    (work / "list").mkdir()
    for name in ("hello.nmg", "logo.bmp"):
        (work / "list" / name).write_bytes((EXAMPLES / name).read_bytes())
    logo = (EXAMPLES / "logo.bmp").read_bytes()
    wanted = "Please login first"
    yield ALL, "hello", good, ["Exit 7"], 0, "", sign.has("F/T/QMSG.Nmg", b"Exit 7")
    yield ("c", "cpp"), "picture", good, ["logo.bmp"], 0, "", sign.has("F/T/PMSG.Nmg", logo[:64])
    yield ALL[2:], "picture", good, ["logo.bmp"], 0, "", None
    yield ALL, "file", good, ["logo.bmp", r"D:\P\LOGO.BMP"], 0, "100 %", sign.has("D/P/LOGO.BMP", logo)
    yield ("c",), "playlist", good, [work / "list", "hello.nmg", "logo.bmp"], 0, "OK", sign.has("F/P/logo.bmp", logo)
    yield ALL[1:], "playlist", good, list_files, 0, "", sign.has("F/P/logo.bmp", logo)
    yield ALL, "logs", good, [], 0, "start", None
    for name, arguments in ("hello", ["x"]), ("picture", ["logo.bmp"]), ("file", ["logo.bmp", r"D:\X"]), ("logs", []):
        yield ALL, name, bad, arguments, 1, wanted, None
    yield ("c",), "playlist", bad, [work / "list", "logo.bmp"], 1, wanted, None
    yield ALL[1:], "playlist", bad, list_files, 1, wanted, None
    yield ("c",), "playlist", good, [work / "list", "missing.bmp"], 1, "Failed open PC file!", None
    yield ALL, "picture", good, ["missing.bmp"], 1, "missing.bmp", None
    for name in "picture", "file", "playlist", "logs":
        yield ("c", "cpp"), name, None, [], 2, "usage: ", None
    yield ("c",), "serial", None, [sign.places["serial"], "115200"], 0, "the sign answers:", None
    yield ("c",), "serial", None, ["/dev/none", "115200"], 1, "/dev/none: Communication Error!", None
    yield ("c",), "callbacks", good, [], 0, "power on; 36 bytes sent, 36 received", None
    yield ("c",), "callbacks", bad, [], 1, wanted, None
    yield ("c",), "many", None, ["Fog", good, other.places["udp"]], 0, "OK", other.has("F/T/QMSG.Nmg", b"Fog")
    yield ("c",), "many", None, ["Fog", good, bad], 1, f"{good}: OK\n{bad}: {wanted}", None
    yield ("c",), "status", other.places["udp"], [], 0, '"what": "', None
    yield ("c",), "status", bad, [], 1, f'"error": "{wanted}"', None


def main():
    with tempfile.TemporaryDirectory() as folder:
        work = Path(folder)
        signs = [Sign(work / "good"), Sign(work / "other", "--bad", "3,4,red"),
                 Sign(work / "strict", "--login", "admin:1234")]
        try:
            for languages, name, place, arguments, status, said, check in rows(*signs, work):
                for language in set(languages) & set(LANGUAGES):
                    ahead = place_of(language, place) if place else []
                    run(language, name, ahead + arguments, status, said, check)
            for language in LANGUAGES:
                if language != "csharp":  # Mono hears of Ctrl-C from a terminal alone
                    interrupt(language)
        finally:
            for sign in signs:
                sign.process.terminate()
                if sign.process.wait() != 0:
                    complain(["vxsim"], f"ended with {sign.process.returncode}", "")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    os.environ["TZ"] = "UTC-5:30"
    main()
