#!/usr/bin/python3
"""What vxbridge costs, and what it loses: bridge.py FOLDER_OF_THE_PROGRAMS [--signs N,N,...] [--seconds N]

For each number of signs, polled once a minute: processor, memory and threads of a bridge, polls in a second, and the time
from a command to its answer meanwhile. Then 1,000 commands to two bridges, of which one is killed in the middle.
"""
import argparse
import random
import statistics
import sys
import time
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "tests/bridge"))
sys.dont_write_bytecode = True
from fleet import Fleet, kill, until

COMMANDS = 1000


def begin(programs, signs, interval):
    fleet = Fleet(programs)
    fleet.broker()
    fleet.many_signs(signs, interval)
    fleet.connect()
    return fleet


def ask_all(fleet, signs, count):
    """The times of commands to signs by chance, one after the other."""
    times = []
    for _ in range(count):
        start = time.monotonic()
        answer = fleet.ask(f"sign-{random.randint(1, signs):04}", "bright", {"level": 3}, site="vxsim")
        times.append(time.monotonic() - start)
        assert answer["result"] == 0, answer
    return times


def measure(programs, signs, seconds):
    fleet = begin(programs, signs, 60)
    try:
        bridge = fleet.bridge("one", "--threads", "64")
        until(lambda: fleet.value(bridge, "vx_sign_available") == signs, "all signs", 90)
        first = {name: fleet.value(bridge, name) for name in ("process_cpu_seconds_total", "vxbridge_polls_total")}
        start = time.monotonic()
        time.sleep(seconds)
        passed = time.monotonic() - start
        grown = {name: (fleet.value(bridge, name) - value) / passed for name, value in first.items()}
        times = ask_all(fleet, signs, 200)
        print(f"{signs:6} {grown['vxbridge_polls_total']:8.1f} {100 * grown['process_cpu_seconds_total']:8.1f} "
              f"{fleet.value(bridge, 'process_resident_memory_bytes') / 1e6:8.0f} "
              f"{fleet.value(bridge, 'process_threads'):8.0f} {1000 * statistics.median(times):10.1f} "
              f"{1000 * sorted(times)[len(times) * 99 // 100]:10.1f}", flush=True)
    finally:
        fleet.end()


def fail_over(programs, signs):
    fleet = begin(programs, signs, 10)
    try:
        one, other = fleet.bridge("one"), fleet.bridge("other")
        until(lambda: fleet.value(one, "vx_sign_available") + fleet.value(other, "vx_sign_available") == signs, "all signs", 60)
        start = time.monotonic()
        for i in range(COMMANDS):
            fleet.send(f"sign-{i % signs + 1:04}", "bright", {"level": i % 8}, mark=str(i), site="vxsim")
            if i == COMMANDS // 2:
                kill(one)
                killed = time.monotonic()
        answers = {}
        while len(answers) < COMMANDS:
            mark, answer, _, when = fleet.answers.get(timeout=30)
            answers.setdefault(mark, []).append((answer, when))
        last = max(when for told in answers.values() for _, when in told)
        told = [answer for all_told in answers.values() for answer, _ in all_told]
        print(f"\n{COMMANDS} commands, one of two bridges killed in the middle: {len(answers)} answered, "
              f"{sum(answer['result'] != 0 for answer in told)} failed, "
              f"{sum(answer['redelivered'] for answer in told)} redelivered, {len(told) - len(answers)} answered twice; "
              f"the last answer {last - killed:.1f} s behind the kill ({last - start:.1f} s in all)")
    finally:
        fleet.end()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("programs")
    parser.add_argument("--signs", default="10,100,1000,5000")
    parser.add_argument("--seconds", type=int, default=60)
    options = parser.parse_args()
    print(" signs  polls/s    cpu %   mem MB  threads  median ms    99 % ms")
    for signs in options.signs.split(","):
        measure(options.programs, int(signs), options.seconds)
    fail_over(options.programs, 100)


main()
