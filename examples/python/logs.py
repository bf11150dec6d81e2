#!/usr/bin/env python3
"""Reads a log of a sign as CSV: logs.py URL [play|system|temperature|tile|event] >log.csv"""
import csv
import sys

from vxsign import Sign


def main(url: str, log: str = "system") -> None:
    rows = Sign(url).logs(log)
    if rows:
        writer = csv.DictWriter(sys.stdout, rows[0])
        writer.writeheader()
        writer.writerows(rows)


if __name__ == "__main__":
    main(*sys.argv[1:3])
