#!/usr/bin/env python3
"""Shows a picture file for ten seconds, over and over: picture.py URL FILE"""
import sys

from vxsign import Sign


def main(url: str, path: str) -> None:
    sign = Sign(url)
    sign.picture(path, stay=10)
    print(sign.playing())


if __name__ == "__main__":
    main(*sys.argv[1:3])
