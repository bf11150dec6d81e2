#!/usr/bin/python3
"""What Python costs above C, in one run against one vxsim: bench/python.py [BUILD_FOLDER]

Prints, in turns with a C program that does the same: microseconds of a ping, milliseconds of the import, seconds of a
file of 16 MB, and what the two have to do with each other. The build is one without sanitizers.
"""
import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build" / "release").resolve()
os.environ.update(VXSIGN_LIBRARY=str(BUILD / "src" / "libvxsign.so.2"), VXSIM=str(BUILD / "bin" / "vxsim"))
sys.path.insert(0, str(ROOT / "bindings" / "python"))
ROUNDS, PINGS, MEGABYTES = 7, 2000, 16

PROGRAM = r"""
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include <vxsign/vxsign.h>

int main(int count, char** arguments) /* PORT PINGS, or PORT LOCAL PATH: prints the seconds */
{
    vxApiConfig config = {.kind = VX_CHANNEL_UDP, .host = "127.0.0.1", .retries = 3, .timeoutMs = 3000};
    struct timespec begin, end;
    uint16_t first, second;
    uint32_t third, result = 0;
    config.port = (uint32_t)atoi(arguments[1]);
    vxInitAPI(&config);
    clock_gettime(CLOCK_MONOTONIC, &begin);
    if (count == 4)
        result = vxWriteSpecFileEx(arguments[3], arguments[2]);
    for (int i = count == 4 ? 0 : atoi(arguments[2]); i > 0; --i)
        result |= vxConnectTest(&first, &second, &third);
    clock_gettime(CLOCK_MONOTONIC, &end);
    printf("%.9f\n", (double)(end.tv_sec - begin.tv_sec) + 1e-9 * (double)(end.tv_nsec - begin.tv_nsec));
    return result != 0;
}
"""


def seconds(action):
    began = time.perf_counter()
    action()
    return time.perf_counter() - began


def middle(measure):
    return statistics.median(measure() for _ in range(ROUNDS))


def imported():
    code = "import time; t = time.perf_counter(); import vxsign; print(time.perf_counter() - t)"
    environment = {**os.environ, "PYTHONPATH": str(ROOT / "bindings" / "python")}
    return float(subprocess.check_output([sys.executable, "-c", code], env=environment))


def main():
    from vxsign import Sign, VirtualSign

    with VirtualSign() as virtual, tempfile.TemporaryDirectory() as folder:
        source, program, large = (os.path.join(folder, name) for name in ("c.c", "c", "large"))
        Path(source).write_text(PROGRAM)
        Path(large).write_bytes(os.urandom(MEGABYTES << 20))
        subprocess.run(["cc", "-O2", f"-I{ROOT}/include", source, os.environ["VXSIGN_LIBRARY"], "-o", program,
                        f"-Wl,-rpath,{BUILD}/src"], check=True)
        sign = Sign(virtual.url)
        port = virtual.url.rpartition(":")[2]

        def inC(*arguments):
            return float(subprocess.check_output([program, port, *map(str, arguments)]))

        def pings():
            for _ in range(PINGS):
                sign.ping()

        sign.ping()
        rounds = [(inC(PINGS) / PINGS, seconds(pings) / PINGS) for _ in range(ROUNDS)]
        above = statistics.median(python - c for c, python in rounds)
        print(f"ping      C {1e6 * min(c for c, _ in rounds):.0f} us, Python {1e6 * above:.0f} us above it")
        print(f"import    {1e3 * middle(imported):.0f} ms")
        files = [(inC(large, "D:\\T\\C.BIN"), seconds(lambda: sign.put(large, "D:\\T\\P.BIN"))) for _ in range(ROUNDS)]
        ratio = statistics.median(python / c for c, python in files)
        print(f"{MEGABYTES} MB     C {min(c for c, _ in files):.2f} s, Python {ratio:.2f} times that")


main()
