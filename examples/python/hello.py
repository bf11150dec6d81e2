#!/usr/bin/env python3
"""Shows a text on a sign: hello.py URL TEXT"""
import sys

from vxsign import Sign, SignError


def main(url: str, text: str) -> int:
    try:
        Sign(url, timeout_ms=1000).show(text, colour="green")
    except SignError as error:
        print(error.text, error.advice, sep="\n", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
