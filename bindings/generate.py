#!/usr/bin/python3
"""Writes what the bindings have of the headers: generate.py [--check]

With --check nothing is written; 1, and the names of the files, when one is not what the headers say now.
"""
import importlib
import sys
from pathlib import Path

import model

LANGUAGES = [path.stem for path in sorted((Path(__file__).parent / "languages").glob("[a-z]*.py"))]


def main():
    check = "--check" in sys.argv
    declared = model.read()
    stale = []
    for language in LANGUAGES:
        module = importlib.import_module(f"languages.{language}")
        path, text = model.ROOT / module.OUTPUT, module.write(declared)
        if check and (not path.exists() or path.read_text() != text):
            stale.append(module.OUTPUT)
        elif not check:
            path.write_text(text)
    if stale:
        sys.exit(f"{', '.join(stale)} is not what the headers say: run bindings/generate.py")


if __name__ == "__main__":
    main()
