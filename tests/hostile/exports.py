#!/usr/bin/env python3
"""Prints a row for each export, its name and those of its parameters: exports.py HEADER_FOLDER"""
import re
import sys
from pathlib import Path

for header in sorted(Path(sys.argv[1]).glob("*.h")):
    text = re.sub(r"/\*.*?\*/", "", re.sub(r"^ *#.*$", "", header.read_text(), flags=re.M), flags=re.S)
    for name, parameters in re.findall(r"VXSIGN_API\s[^;(]*?(\w+)\(([^;]*?)\)\s*(?:VXSIGN_PRINTF[^;]*)?;", text):
        names = [re.search(r"(\w+)\s*$", parameter).group(1) for parameter in parameters.replace("...", "").split(",") if parameter.strip()]
        print(f'EXPORT({name}, "{" ".join(name for name in names if name != "void")}")' if "..." not in parameters
              else f"// {name}: a caller's format is the caller's own")
