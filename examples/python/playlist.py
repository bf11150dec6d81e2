#!/usr/bin/env python3
"""Has a sign play local files one after the other, eight seconds each: playlist.py URL FILE..."""
import sys
import tempfile

from vxsign import Sign


def main(url: str, *paths: str) -> None:
    sign = Sign(url)
    sign.playlist(paths, stay=8)
    with tempfile.TemporaryDirectory() as folder:
        print("the sign plays", *sign.fetch_playlist(folder))


if __name__ == "__main__":
    main(*sys.argv[1:])
