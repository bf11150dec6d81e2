#!/usr/bin/python3
"""What many signs cost vxctl and vxsim: many.py FOLDER_OF_THE_PROGRAMS [--signs N,N,...] [--jobs N]

For each number of signs, all in one vxsim: the time of a ping and of a text to every one of them, then of a ping when 50
more are dead, at one second and one try each; the processor time, memory and threads of vxctl, the memory of vxsim.
"""
import argparse
import os
import shutil
import socket
import subprocess
import tempfile
import time
from pathlib import Path

DEAD = 50


def status_of(process):
    """Members of /proc/PID/status; none when the process is gone."""
    try:
        lines = Path(f"/proc/{process.pid}/status").read_text().splitlines()
    except (FileNotFoundError, ProcessLookupError):
        return {}
    return dict(line.split(":", 1) for line in lines)


def run(*words, expected=0):
    """Seconds, processor seconds, MB and threads at most of a command."""
    before = os.times()
    start = time.monotonic()
    threads = 0
    memory = 0
    process = subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while process.poll() is None:
        members = status_of(process)
        threads = max(threads, int(members.get("Threads", "0")))
        memory = max(memory, int(members.get("VmHWM", "0 kB").split()[0]))
        time.sleep(0.01)
    after = os.times()
    assert process.returncode == expected, words
    return (time.monotonic() - start, sum(after[2:4]) - sum(before[2:4]), memory / 1000, threads)


def silent_ports(count):
    """Bound, but nobody answers there."""
    sockets = [socket.socket(socket.AF_INET, socket.SOCK_DGRAM) for _ in range(count)]
    for each in sockets:
        each.bind(("127.0.0.1", 0))
    return sockets


def measure(programs, signs, jobs, work):
    book = work / "signs.toml"
    sign = subprocess.Popen([programs / "vxsim", "--count", str(signs), "--port", "0", "--write-book", book, "--dir", work / "signs"],
                            stdout=subprocess.PIPE, text=True)
    try:
        for _ in range(signs + 1):
            sign.stdout.readline()
        tool = [programs / "vxctl", "--book", book, "-s", "all", "--jobs", str(jobs)]
        run(*tool, "ping", "-n", "1")  # a sign is made when it is first asked
        ping = run(*tool, "ping", "-n", "1")
        show = run(*tool, "show", "ROAD WORKS")
        dead = silent_ports(DEAD)
        with open(book, "a") as more:
            for number, each in enumerate(dead):
                more.write(f'[sign.dead-{number}]\nurl = "udp://127.0.0.1:{each.getsockname()[1]}"\ntimeout = 1000\nretries = 1\n')
        with_dead = run(*tool, "ping", "-n", "1", expected=3)
        print(f"| {signs} | {ping[0]:.2f} s | {show[0]:.2f} s | {with_dead[0]:.2f} s | {ping[1]:.2f} s, {show[1]:.2f} s | "
              f"{show[2]:.0f} MB | {show[3]} | {int(status_of(sign)['VmRSS'].split()[0]) / 1000:.0f} MB |", flush=True)
    finally:
        sign.terminate()
        sign.wait()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("programs", type=Path)
    parser.add_argument("--signs", default="10,100,1000,5000")
    parser.add_argument("--jobs", type=int, default=64)
    options = parser.parse_args()
    print("| signs | ping | show | ping, and 50 dead | processor | memory | threads | vxsim |\n|---|---|---|---|---|---|---|---|")
    for signs in map(int, options.signs.split(",")):
        work = Path(tempfile.mkdtemp(prefix="many", dir="/dev/shm"))
        try:
            measure(options.programs, signs, options.jobs, work)
        finally:
            shutil.rmtree(work)


main()
