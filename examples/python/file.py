#!/usr/bin/env python3
"""Sends a file to a sign and tells how far it is; Ctrl-C ends it: file.py URL LOCAL PATH

The task has a thread of its own, so that this one can wait for Ctrl-C: Python takes no signal while
a library is called.
"""
import sys
from concurrent.futures import ThreadPoolExecutor

from vxsign import Sign, SignError, raw


def show_progress(percent: int) -> None:
    print(f"\r{percent:3} %", end="", flush=True)


def main(url: str, local: str, path: str) -> int:
    sign = Sign(url, on_progress=show_progress)
    with ThreadPoolExecutor(1) as pool:
        task = pool.submit(sign.put, local, path)
        try:
            try:
                task.result()
            except KeyboardInterrupt:
                sign.cancel()
                task.result()
        except SignError as error:
            print("\nended" if error.code == raw.VX_ABORTED else f"\n{error}")
            return 1
    print("\nOK")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:4]))
