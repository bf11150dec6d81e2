"""A virtual sign for tests."""

from __future__ import annotations

import os
import shutil
import subprocess
import tempfile
import threading
import time
from collections.abc import Sequence
from pathlib import Path
from types import TracebackType
from typing import Optional

MOST_SECONDS = 20.0


class VirtualSign:
    """Starts a vxsim on a free port of this PC, in a temporary folder; a context manager.

    The program is the one that VXSIM names, else the one on PATH; FileNotFoundError when there is none. `url` is its
    place for Sign, `places` all that it serves ("udp", "tcp", "serial", "modbus"), `folder` where its drives lie.
    """

    def __init__(self, width: int = 128, height: int = 32, options: Sequence[str] = ()) -> None:
        program = os.environ.get("VXSIM") or shutil.which("vxsim")
        if not program:
            raise FileNotFoundError("vxsim is not on PATH: install it, or name the program in VXSIM")
        self._root = tempfile.TemporaryDirectory(prefix="vxsign")
        self._png = Path(self._root.name) / "face.png"
        self.folder = Path(self._root.name) / "sign"
        self.places: dict[str, str] = {}
        command = [program, "--port", "0", "--dir", str(self.folder), "--png", str(self._png)]
        command += ["--size", f"{width}x{height}", *options]
        self._process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        try:
            self._read_places({"tcp"} | {word for word in ("serial", "modbus") if f"--{word}" in options})
        except BaseException:
            self.close()
            raise

    def _read_places(self, wanted: set[str]) -> None:
        assert self._process.stdout is not None
        timer = threading.Timer(MOST_SECONDS, self._process.kill)
        timer.start()
        try:
            while not wanted <= self.places.keys():
                line = self._process.stdout.readline()
                if not line:
                    raise RuntimeError("vxsim did not start")
                what, _, place = line.strip().partition(" ")
                self.places[what] = place
        finally:
            timer.cancel()

    @property
    def url(self) -> str:
        """Where it is, for Sign."""
        return f"udp://{self.places['udp']}"

    def png(self) -> Path:
        """A picture of its face; waits until there is one."""
        end = time.monotonic() + MOST_SECONDS
        while not self._png.exists() and time.monotonic() < end:
            time.sleep(0.02)
        return self._png

    def close(self) -> None:
        """Ends it, and takes its folder away."""
        self._process.terminate()
        self._process.wait()
        if self._process.stdout is not None:
            self._process.stdout.close()
        self._root.cleanup()

    def __enter__(self) -> VirtualSign:
        return self

    def __exit__(
        self, kind: Optional[type[BaseException]], fault: Optional[BaseException], trace: Optional[TracebackType]
    ) -> None:
        self.close()
