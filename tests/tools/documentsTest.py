#!/usr/bin/env python3
"""Runs the commands that the documents show, as they stand: documentsTest.py FOLDER_OF_THE_PROGRAMS

Each page is one bash, in a copy of examples/, that runs the page's blocks of "sh" from top to bottom and stops at the first
command that fails. There is a sign; "vxsim" starts a fresh one, and vxctl speaks to that one from then on. Blocks
of "sh hardware" want a sign or a line that a test does not have: there vxctl finds a line that is down, which shows that
it understands the command all the same.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGE_SECONDS = 120

PROLOGUE = r"""
set -euo pipefail
trap 'echo "failed: $BASH_COMMAND" >&2' ERR
trap 'for sign in $(jobs -p); do kill "$sign"; done' EXIT
vxsim() {
    case ${1:-} in
        pixel | tile | door) command vxsim "$@"; return ;;
    esac
    local lines=$work/lines$RANDOM
    command vxsim "${@//ansi/none}" --port 0 >"$lines" &
    until grep -q ^tcp "$lines"; do sleep 0.05; done
    export VXSIGN=udp://$(sed -n 's/^udp //p' "$lines")
}
without_hardware() {
    local words=("${@/#serial:*/serial:/dev/none}")
    words=("${words[@]/#[tu][cd]p:*/tcp://127.0.0.1:1}")
    VXSIGN=tcp://127.0.0.1:1 command vxctl "${words[@]}" >"$work/said" 2>&1 || [ $? -eq 1 ] || { cat "$work/said"; false; }
}
vxsim
touch board.bin  # firmware: the reader has his own
"""


def script_of(page):
    """What a page lets its reader type."""
    script = PROLOGUE
    for hardware, text in re.findall(r"^```sh( hardware)?\n(.*?)^```$", page.read_text(), re.M | re.S):
        script += f'(\nvxctl() {{ without_hardware "$@"; }}\n{text})\n' if hardware else text
    return script


def run(page):
    """What went wrong with a page, or nothing."""
    with tempfile.TemporaryDirectory() as work:
        shutil.copytree(ROOT / "examples", f"{work}/examples")
        done = subprocess.run(["bash", "-c", f"work={work}\n{script_of(page)}"], cwd=f"{work}/examples", text=True,
                              timeout=PAGE_SECONDS, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False)
    return f"{page.relative_to(ROOT)}:\n{done.stdout}" if done.returncode else ""


def main():
    os.environ["PATH"] = f"{Path(sys.argv[1]).resolve()}:{os.environ['PATH']}"
    pages = [page for page in [ROOT / "README.md", *sorted((ROOT / "docs").glob("**/*.md"))] if "\n```sh" in page.read_text()]
    with ThreadPoolExecutor(4) as pool:
        failures = [failure for failure in pool.map(run, pages) if failure]
    print("\n".join(failures) or f"{len(pages)} pages as they stand")
    return len(failures) != 0


sys.exit(main())
