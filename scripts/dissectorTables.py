#!/usr/bin/env python3
"""Prints the commands (on standard input as `vxsim --commands` has them) and the result words as tables in Lua, or with
--rows the commands alone as rows that C++ includes."""
import re
import sys

from resultWords import literal, result_words

ROW = re.compile(r"^\| (\d+), (\d+|any)(?: to (\d+))? \| ([^|]*) \|")


def commands(lines):
    """The name of each command by its major and minor: of several with the same, the names of all."""
    names = {}
    for line in lines:
        if row := ROW.match(line):
            major, first, last, name = row.groups()
            minors = ["*"] if first == "any" else range(int(first), int(last or first) + 1)
            for minor in minors:
                names.setdefault(f"{major},{minor}", []).append(name.strip())
    return names


def print_rows():
    print("// Names of the commands, as vxsim has them: VX_COMMAND(major, minor, name), -1 for any minor.")
    for code, names in commands(sys.stdin).items():
        major, minor = code.split(",")
        print(f'VX_COMMAND({major}, {minor.replace("*", "-1")}, {literal(" or ".join(dict.fromkeys(names)))})')
    print("#undef VX_COMMAND")


def main():
    if "--rows" in sys.argv:
        return print_rows()
    print("local names = {")
    for code, names in commands(sys.stdin).items():
        print(f'    ["{code}"] = {literal(" or ".join(dict.fromkeys(names)))},')
    print("}\nlocal words = {")
    for number, text, _ in result_words().values():
        print(f"    [0x{number:04X}] = {literal(text)},")
    print("}")


main()
