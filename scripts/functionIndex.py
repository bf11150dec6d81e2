#!/usr/bin/env python3
"""Prints the functions of the library by task, from the headers: what docs/functions.md has between its marks."""
import re
from pathlib import Path

HEADERS = Path(__file__).resolve().parent.parent / "include" / "vxsign"

# Tasks in the order in which an application meets them, each with its headers.
TASKS = {
    "Reach a sign": ["api", "properties", "login"],
    "Show something at once": ["quickshow", "content", "ticker", "test"],
    "Play lists, zones and programs": ["playlist", "play", "zones", "player"],
    "Files of the sign": ["write", "read", "filesystem", "mover"],
    "Steer the sign": ["control"],
    "See how it is": ["status", "pixel", "log"],
    "Boards and tiles": ["video", "extra", "tarsis", "ondra", "directtile"],
    "Devices beside the road": ["traffic", "modbus", "xmodem"],
    "This PC, and results": ["local", "result"],
}

DECLARATION = re.compile(r"(?:/\*((?:(?!\*/).)*)\*/\s*)?((?:VXSIGN_API[^;]*;\s*)+)", re.S)


def sentence(comment):
    """The first sentence of a comment, without its line breaks."""
    text = re.sub(r"\s*\n \* ?", " ", comment).strip()
    return re.split(r"(?<=\.) |; ", text + " ")[0].strip().rstrip(".:").replace("|", "\\|")


def rows(text):
    """(first sentence, names) of each group of declarations; a group without a comment belongs to the one above it."""
    found = []
    for comment, declarations in DECLARATION.findall(text[text.index("VXSIGN_BEGIN"):]):
        names = re.findall(r"[ *](vx\w+)\(", declarations)
        if found and not comment:
            found[-1][1].extend(names)
        else:
            found.append((sentence(comment), names))
    return found


def main():
    listed = sorted(header for headers in TASKS.values() for header in headers)
    declaring = sorted(path.stem for path in HEADERS.glob("*.h") if "VXSIGN_API " in path.read_text() and path.stem != "export")
    assert listed == declaring, set(listed) ^ set(declaring)
    for task, headers in TASKS.items():
        print(f"\n## {task}")
        for header in headers:
            text = (HEADERS / f"{header}.h").read_text()
            print(f"\n[`{header}.h`](../include/vxsign/{header}.h): {sentence(text[text.index('/*') + 2:text.index('*/')])}\n")
            print("| functions | what they do |\n|---|---|")
            for what, names in rows(text):
                assert what, f"{names} are not described"
                print(f"| {', '.join(f'`{name}`' for name in names)} | {what} |")
    print()


if __name__ == "__main__":
    main()
