#!/usr/bin/env python3
"""The cells of docs/languages.md are programs of their languages.

    languagesTest.py [LANGUAGE...]       c cpp python csharp; without any c, cpp and the syntax of Python

Those of C, C++ and C# are compiled, all cells of a language as one program in the order of the table. Those of Python run, against the
sign on port 9520 or that of VXSIGN: a sign may refuse what a cell asks for, but the cell has to be able to ask. The packages of Python and
C# are those of bindings/.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COLUMNS = ("c", "cpp", "python", "csharp")

C = """#include <stdio.h>
#include <string.h>
%s
static uint32_t OnEntry(uint8_t* entry, void* user) { return entry == user; }
static uint32_t OnStatus(uint32_t user, const vxStatusRecord* status, const uint8_t* beacon, const char* message)
{ return user + status->Mode + beacon[0] + (uint32_t)*message; }
static uint32_t OnPixel(uint32_t user, const vxPixelRow* row) { return user + row->X; }
static void OnProgress(vxApiConfig* config, uint32_t reserved, uint32_t percent) { config->progressPos = (uint16_t)(reserved + percent); }
uint32_t Run(const uint8_t* text, const uint8_t* picture, uint32_t size, const char* sql, void* record)
{
uint8_t head[64], month, day, hour, minute, second8, weekday, mark;
char rows[4096], name[256];
uint16_t first, second, year, value;
uint32_t third, result;
%s
return result;
}
"""
CPP = "#include <iostream>\n%s\nvoid Run();\nvoid Run()\n{\n%s\n}\n"
CSHARP = "using System;\n%s\nclass Cells\n{\n    static void Main()\n    {\n%s\n    }\n}\n"


def cells(column):
    """The code of each cell, a line for each stretch of it."""
    rows = [line.split(" | ") for line in (ROOT / "docs/languages.md").read_text().splitlines() if line.startswith("| ")]
    table = [row for row in rows if len(row) == 5 and row[0] != "| task"]
    assert len(table) > 30, "the table has lost its form"
    found = ["\n".join(re.findall(r"`([^`]*)`", row[column + 1])) for row in table]
    return [code for code in found if code]


def compile_with(command, suffix, program):
    with tempfile.NamedTemporaryFile("w", suffix=suffix) as file:
        file.write(program)
        file.flush()
        return subprocess.run([*command, file.name], cwd=ROOT).returncode == 0


def check_c(use, *code):
    command = ["cc", "-std=c11", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", "-Iinclude"]
    return compile_with(command, ".c", C % (use, "\n".join(code)))


def check_cpp(use, *code):
    options = "-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -Wno-unused-variable -fsyntax-only -Iinclude".split()
    compilers = [name for name in ("g++", "clang++") if shutil.which(name)]
    return all(compile_with([name, f"-std={form}", *options], ".cpp", CPP % (use, "\n".join(code)))
               for name in compilers for form in ("c++17", "c++20"))


def python_programs():
    """A cell that begins with except wants something that fails ahead of it."""
    return [("try:\n    sign.ping()\n" if code.startswith("except") else "") + code for code in cells(2)]


def check_python_syntax(*_):
    for code in python_programs():
        compile(code, "docs/languages.md", "exec")
    return True


def check_python(*_):
    sys.path.insert(0, str(ROOT / "bindings/python"))
    from vxsign import SignError, VirtualSign
    names = {}
    exec("from datetime import datetime", names)
    with tempfile.TemporaryDirectory() as folder, VirtualSign() as virtual:
        shutil.copytree(ROOT / "examples", folder, dirs_exist_ok=True)
        os.chdir(folder)
        for code in python_programs():
            try:
                exec(code.replace("udp://127.0.0.1:9520", virtual.url), names)
            except (SignError, OSError) as refusal:
                print(f"{code}: {refusal}")
    return True


def check_csharp(use, *code):
    sources = [str(path) for path in (ROOT / "bindings/csharp").glob("*.cs")]
    lines = "\n".join(code).replace("catch (", "try { sign.Ping(); } catch (")
    with tempfile.TemporaryDirectory() as folder:
        command = ["mcs", "-unsafe", "-nowarn:0219", f"-out:{folder}/cells.exe", *sources]
        return compile_with(command, ".cs", CSHARP % (use, lines))


CHECKS = {"c": check_c, "cpp": check_cpp, "syntax": check_python_syntax, "python": check_python, "csharp": check_csharp}


def main():
    wrong = [language for language in sys.argv[1:] or ("c", "cpp", "syntax")
             if not CHECKS[language](*cells(COLUMNS.index(language) if language in COLUMNS else 2))]
    sys.exit(f"docs/languages.md: the cells of {', '.join(wrong)} do not compile" if wrong else 0)


if __name__ == "__main__":
    main()
