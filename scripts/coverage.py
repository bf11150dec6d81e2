#!/usr/bin/env python3
"""Prints from the counts of `llvm-cov export` the share of lines that ran, by folder, and the functions that never did.

    scripts/coverage.py COUNTS.json
"""
import json
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PRODUCTS = ("src", "sim", "tools")


def inside(path):
    """The path of a file of the products below the root, else None."""
    path = Path(path).resolve()
    return path.relative_to(ROOT) if any(path.is_relative_to(ROOT / top) for top in PRODUCTS) else None


def lines_by_folder(files):
    """[lines that ran, lines] of each folder and of each product."""
    lines = defaultdict(lambda: [0, 0])
    for file in files:
        path = inside(file["filename"])
        if path is None:
            continue
        count = file["summary"]["lines"]
        for name in {str(path.parent), path.parts[0]}:
            lines[name][0] += count["covered"]
            lines[name][1] += count["count"]
    return lines


def runs_when_compiled(path, line):
    """Whether the function that begins there is one of the compiler's; its first lines say so."""
    return re.search("const(expr|eval)", "".join((ROOT / path).read_text().splitlines()[line - 2:line])) is not None


def unreached(functions):
    """(file, line, name as compiled) of the functions without a run; a template counts as run in any of its forms."""
    runs = defaultdict(int)
    names = {}
    for function in functions:
        path = inside(function["filenames"][0])
        if path is not None:
            place = (path, function["regions"][0][0])
            runs[place] += function["count"]
            names[place] = function["name"].split(":")[-1]  # a hidden one has its file in front
    return sorted((*place, names[place]) for place, count in runs.items() if count == 0 and not runs_when_compiled(*place))


def readable(names):
    found = subprocess.run(["c++filt"], input="\n".join(names), capture_output=True, text=True, check=True)
    return found.stdout.splitlines()


def main():
    data = json.loads(Path(sys.argv[1]).read_text())["data"][0]
    for name, (ran, count) in sorted(lines_by_folder(data["files"]).items()):
        print(f"{'' if name in PRODUCTS else '  '}{name:30} {ran:6} of {count:6} lines  {100 * ran / count:5.1f} %")
    silent = unreached(data["functions"])
    print(f"\nnothing reaches {len(silent)} functions:")
    for (path, line, _), name in zip(silent, readable([name for *_, name in silent])):
        print(f"  {path}:{line} {name}")


main()
