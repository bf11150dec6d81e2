#!/usr/bin/env python3
"""Changes the code in random places, one at a time, and tells which changes no test notices.

    scripts/mutants.sh [N] [--seed S] [--in FOLDER...]

Each change is made in a copy of the committed tree below build/mutants; the code that depends on it is built, and the tests that
are concerned run. A change that does not compile is replaced by another. Status 0, whatever was noticed.
"""
import argparse
import os
import random
import re
import signal
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
COPY = ROOT / "build" / "mutants" / "tree"
BUILD = COPY / "build" / "asan"
TEST_SECONDS = 900  # a change that makes a test hang is noticed
COMPARISONS = {"<": "<=", ">": ">=", "<=": "<", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&"}

# Per folder: what is built, and what is run until something fails.
UNIT_TESTS = {
    "src": ["vxsign_tests", "hostileTest"],
    "sim": ["vxsim_tests", "vxsim_face_tests", "vxsign_tests"],
    "tools": ["vxctl_tests"],
}


def operators(line):
    """The changed forms of one line of code."""
    code = re.sub(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])*\'', lambda m: "\0" * len(m.group()), line).split("//")[0]
    for match in re.finditer(r" (<=?|>=?|==|!=|&&|\|\|) ", code):
        yield "comparison", line[:match.start(1)] + COMPARISONS[match.group(1)] + line[match.end(1):]
    for match in re.finditer(r"(?<![\w.])(0x[0-9A-Fa-f]+|[1-9]\d*|0)(?=[uU]?\b)(?![\w.]*\")", code):
        value = int(match.group(), 0)
        yield "constant", line[:match.start()] + str(value + 1) + line[match.end():]
    for match in re.finditer(r"\b(true|false)\b", code):
        yield "constant", line[:match.start()] + ("false" if match.group() == "true" else "true") + line[match.end():]
    if re.match(r"\s+(?!return|throw|delete|else|case|using|static|const|auto|break)[A-Za-z_][\w:.\->\[\]]*\(.*\);$", code):
        yield "dropped call", re.match(r"\s*", line).group() + ";"


def candidates(text):
    """(line number, kind, new line) of every change that could be made to a file."""
    lines = text.split("\n")
    for number, line in enumerate(lines):
        stripped = line.strip()
        if not stripped or stripped.startswith(("//", "#", "static_assert", "*", "template", "using", "enum")):
            continue
        if not line.startswith(" "):
            if line == "{" and number and lines[number - 1].endswith((")", ") const", "noexcept")):
                yield number, "early return", "{\n    return" + (";" if "void " in lines[number - 1] else " {};")
            continue
        for kind, changed in operators(line):
            yield number, kind, changed


def run(command, timeout=None, **kwargs):
    child = subprocess.Popen(command, cwd=COPY, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                             start_new_session=True, **kwargs)
    try:
        return child.wait(timeout)
    except subprocess.TimeoutExpired:
        os.killpg(child.pid, signal.SIGKILL)  # with whatever it has started
        child.wait()
        return -1


def prepare():
    """The committed tree beside the working one, built as the tests are."""
    COPY.mkdir(parents=True, exist_ok=True)
    archive = subprocess.Popen(["git", "archive", "HEAD"], cwd=ROOT, stdout=subprocess.PIPE)
    fresh = subprocess.run(["tar", "-x", "-m", "--skip-old-files", "-C", COPY], stdin=archive.stdout, check=False)
    listed = subprocess.run(["git", "ls-files"], cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
    for name in listed:  # only what differs is written, so that little is built again
        wanted = subprocess.run(["git", "show", f"HEAD:{name}"], cwd=ROOT, capture_output=True, check=True).stdout
        if (COPY / name).read_bytes() != wanted:
            (COPY / name).write_bytes(wanted)
    if fresh.returncode or run(["cmake", "--preset", "asan", "-DVXSIGN_WERROR=ON"]) or run(["cmake", "--build", "--preset", "asan"]):
        sys.exit("the committed tree does not build")


class DoesNotCompile(Exception):
    pass


def build(*targets):
    """Raises DoesNotCompile when the changed place does not."""
    if run(["cmake", "--build", "--preset", "asan", "--target", *targets]):
        raise DoesNotCompile


def noticed(top):
    """What fails now, None if nothing does; only what runs next is built."""
    environment = dict(os.environ, GTEST_FAIL_FAST="1", GTEST_BRIEF="1")
    for binary in UNIT_TESTS[top]:
        build(binary)
        if run([BUILD / "bin" / binary], TEST_SECONDS, env=environment):
            return binary
    build("vxctl", "vxsim")
    return "end to end" if run(["ctest", "--preset", "asan", "-L", "e2e", "--stop-on-failure"], TEST_SECONDS) else None


def main():
    parser = argparse.ArgumentParser(description="changes places at random and tells what no test notices")
    parser.add_argument("count", nargs="?", type=int, default=20)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--in", dest="folders", nargs="+", default=["src"])
    arguments = parser.parse_args()
    prepare()
    listed = subprocess.run(["git", "ls-files", *arguments.folders], cwd=ROOT, capture_output=True, text=True, check=True)
    places = []
    for name in listed.stdout.split():
        if name.endswith((".cpp", ".h")):
            places += [(name, *place) for place in candidates((COPY / name).read_text())]
    random.Random(arguments.seed).shuffle(places)

    caught = tried = 0
    for name, number, kind, changed in places:
        if tried == arguments.count:
            break
        top = name.split("/")[0]
        original = (COPY / name).read_text()
        lines = original.split("\n")
        before, lines[number] = lines[number], changed
        (COPY / name).write_text("\n".join(lines))
        try:
            by = noticed(top)
            tried += 1
            caught += by is not None
            mark = f"noticed by {by}" if by else "NOT NOTICED"
            print(f"{tried:4} {mark}: {name}:{number + 1} {kind}", flush=True)
            if not by:
                print(f"     - {before.strip()}\n     + {changed.strip()}", flush=True)
        except DoesNotCompile:
            pass
        (COPY / name).write_text(original)
    print(f"{caught} of {tried} noticed")


main()
