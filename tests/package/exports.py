#!/usr/bin/env python3
"""Prints what the headers declare, one function in a line: exports.py HEADER_FOLDER [--table]

With --table a line is EXPORT(name, "names of its parameters"), and a comment for a function whose arguments have no end.
"""
import re
import sys
from pathlib import Path


def declarations(header):
    """(name, parameters) of each function of a header."""
    text = re.sub(r"/\*.*?\*/", "", re.sub(r"^ *#.*$", "", header.read_text(), flags=re.M), flags=re.S)
    return re.findall(r"VXSIGN_API\s[^;(]*?(\w+)\(([^;]*?)\)\s*(?:VXSIGN_PRINTF[^;]*)?;", text)


def row(name, parameters):
    if "..." in parameters:
        return f"// {name}: a caller's format is the caller's own"
    names = [parameter.split()[-1].lstrip("*") for parameter in parameters.split(",") if parameter.strip() != "void"]
    return f'EXPORT({name}, "{" ".join(names)}")'


for path in sorted(Path(sys.argv[1]).glob("*.h")):
    for function in declarations(path):
        print(row(*function) if "--table" in sys.argv else function[0])
