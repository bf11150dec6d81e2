#!/usr/bin/env python3
"""Prints what the headers declare, one function in a line: exports.py HEADER_FOLDER [--table]

With --table a line is EXPORT(name, "parameters", (arguments), sizes), and a comment for a function whose arguments have
no end. Each parameter has behind its name what its marks say, "entries:out,sized maxEntries:length"; the sizes, from the
arguments, are the bytes that each pointer leads to.
"""
import re
import sys
from pathlib import Path


def declarations(header):
    """(name, parameters) of each function of a header."""
    text = re.sub(r"/\*.*?\*/", "", re.sub(r"^ *#.*$", "", header.read_text(), flags=re.M), flags=re.S)
    return re.findall(r"VXSIGN_API\s[^;(]*?(\w+)\(([^;]*?)\)\s*(?:VXSIGN_PRINTF[^;]*)?;", text)


class Parameter:
    def __init__(self, text):
        self.marks = re.findall(r"VX_(?:OUT|INOUT|OPTIONAL|PATH|SIGN_TEXT)\b", text)
        size = re.search(r"VX_(BYTES|COUNT)\((.*?)\)", text)
        words = re.sub(r"VX_(BYTES|COUNT)\(.*?\)|VX_(OUT|INOUT|OPTIONAL|PATH|SIGN_TEXT)\b", "", text)
        self.type, self.name = re.fullmatch(r"\s*(.*?)\s*(\w+)\s*", words, re.S).groups()
        self.size = size and size[2]
        self.bytes = "0" if not size else size[2] if size[1] == "BYTES" else f"({size[2]}) * sizeof({self.type[:-1].strip()})"
        self.isText = not size and (self.type in ("const char*", "char*") or "VX_SIGN_TEXT" in self.marks)

    def flags(self, others):
        measured = [other for other in others if re.search(rf"\b{self.name}\b(?![.-])", other.size or "")]
        said = {"out": {"VX_OUT", "VX_INOUT"} & set(self.marks), "optional": "VX_OPTIONAL" in self.marks,
                "sized": self.size, "text": self.isText, "length": measured,
                "few": any(other.type == "const char**" for other in measured)}
        return ",".join(word for word, holds in said.items() if holds)


def row(name, text):
    if "..." in text:
        return f"// {name}: a caller's format is the caller's own"
    parameters = [Parameter(part) for part in text.split(",") if part.strip() != "void"]
    words = " ".join(f"{parameter.name}:{parameter.flags(parameters)}" for parameter in parameters)
    used = re.findall(r"\w+", " ".join(parameter.bytes for parameter in parameters))
    taken = ", ".join(f"{parameter.type} {parameter.name * (parameter.name in used)}".strip() for parameter in parameters)
    return f'EXPORT({name}, "{words}", ({taken}), {", ".join(parameter.bytes for parameter in parameters)})'


for path in sorted(Path(sys.argv[1]).glob("*.h")):
    for function in declarations(path):
        print(row(*function) if "--table" in sys.argv else function[0])
