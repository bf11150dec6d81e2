"""The class Sign: the tasks that people have with a sign."""

from __future__ import annotations

import ctypes
import datetime
import os
from collections.abc import Callable, Sequence
from typing import Any, Optional, Union

from . import _devices, _files, _logs, _playlist, _raw, _show, _state
from ._connection import Connection, Progress
from ._errors import check
from ._files import Entry
from ._state import Status

LocalPath = Union[str, "os.PathLike[str]"]

STEPS = {
    "next": _raw.vxPlayNext,
    "previous": _raw.vxPlayPrevious,
    "pause": _raw.vxPlayPause,
    "continue": _raw.vxPlayContinue,
    "replay": _raw.vxReplayList,
    "again": _raw.vxReplayCurrFile,
}
LONGEST_PLAY_NAME = 12


class Sign:
    """A sign, by its place: udp://HOST[:PORT], tcp://HOST[:PORT] or serial:NAME[@BAUD].

    Each method is one task: it opens the line, talks to the sign and closes the line again. Methods may be called from
    any thread, several at a time. They raise SignError for what the sign or the library answers in place of success,
    ValueError and TypeError for arguments that no sign gets to see, OSError for local files.

    timeout_ms: milliseconds for each try, 50 to 60000. retries: tries for each packet, 1 to 100. chunk: bytes of a
    file in each packet, 64 to 1280. destination: the address behind a shared line. encoding: that of the sign, for its
    texts, names and paths. on_progress: called with 0 to 100 percent in the thread of the task; what it raises ends
    the task and comes out of it.
    """

    def __init__(
        self,
        url: str = "udp://127.0.0.1:9520",
        *,
        timeout_ms: int = 3000,
        retries: int = 3,
        chunk: int = 768,
        destination: int = 0,
        encoding: str = "utf-8",
        on_progress: Optional[Progress] = None,
    ) -> None:
        self.url = url
        self._connection = Connection(url, timeout_ms, retries, chunk, destination, encoding)
        self._connection.on_progress = on_progress

    def __repr__(self) -> str:
        return f"Sign({self.url!r})"

    def call(self, function: Callable[..., int], *arguments: Any) -> None:
        """Any function of `vxsign.raw` on this sign; SignError for a result other than 0."""
        with self._connection.task():
            check(function(*arguments))

    def cancel(self) -> None:
        """Ends what runs on this sign, from any thread: it raises SignError with VX_ABORTED within 50 ms or so.

        What has reached the sign stays there. A task that begins later runs.
        """
        self._connection.cancel()

    def ping(self) -> tuple[int, int, int]:
        """Asks for a sign of life; the three numbers that the sign answers."""
        first, second, third = ctypes.c_uint16(), ctypes.c_uint16(), ctypes.c_uint32()
        self.call(_raw.vxConnectTest, first, second, third)
        return first.value, second.value, third.value

    def show(self, text: str, colour: str = "1", font: str = "1", mode: str = "0", stay: int = 5) -> None:
        """Shows a text; a line feed in it breaks the line.

        colour: red green blue yellow amber orange magenta cyan white, #RRGGBB, or a code of the sign; font and mode
        are codes of the sign, a character or a number; stay is in seconds.
        """
        _show.show(self._connection, text, colour, font, mode, stay)

    def picture(self, path: LocalPath, mode: str = "0", stay: int = 5) -> None:
        """Shows a picture file of a type that the sign knows."""
        self.files([path], mode, stay)

    def files(self, paths: Sequence[LocalPath], mode: str = "0", stay: int = 5) -> None:
        """Shows up to 128 local files one after the other, each for `stay` seconds."""
        _show.files(self._connection, paths, mode, stay)

    def put(self, local: LocalPath, path: str) -> None:
        """Sends a local file to a path of the sign, such as D:\\T\\A.NMG."""
        _files.put(self._connection, local, path)

    def get(self, path: str, local: LocalPath) -> None:
        """Reads a file of the sign into a local one, which is replaced when all has come."""
        _files.get(self._connection, path, local)

    def ls(self, path: str) -> list[Entry]:
        """What a folder of the sign holds."""
        return _files.entries(self._connection, path)

    def rm(self, path: str) -> None:
        """Deletes a file of the sign."""
        self.call(_raw.vxDelete, self._path(path))

    def mkdir(self, path: str) -> None:
        """Makes a folder on the sign."""
        self.call(_raw.vxCreateDir, self._path(path))

    def mv(self, old: str, new: str) -> None:
        """Renames a file of the sign, or moves it to another folder."""
        _files.move(self._connection, old, new)

    def playlist(self, paths: Sequence[LocalPath], stay: int = 5, index: Optional[int] = None) -> None:
        """Makes a play list of local files and sends it with them; it plays at once. index: the numbered list."""
        _playlist.send(self._connection, paths, stay, index)

    def fetch_playlist(self, folder: LocalPath) -> list[str]:
        """Reads the sign's play list and its files into a local folder; the names of the files."""
        return _playlist.fetch(self._connection, folder)

    def playing(self) -> Optional[str]:
        """The name of the file that plays; None when nothing plays."""
        with self._connection.task():
            return _state.name_of(self._connection, _raw.vxGetPlayingFileName)

    def play(self, action: str) -> None:
        """next, previous, pause, continue, replay (the list), again (the file), or the name of a file to play now."""
        if action in STEPS:
            self.call(STEPS[action])
            return
        name = self._connection.encode(action, "name")
        drive, folder = 0, 0
        if len(name) > 5 and name[1:2] == b":" and name[2:3] in b"\\/" and name[4:5] in b"\\/":
            drive, folder, name = name[:1].upper()[0], name[3:4].upper()[0], name[5:]
        if not 1 <= len(name) <= LONGEST_PLAY_NAME or b"/" in name or b"\\" in name:
            raise ValueError(f"'{action}' cannot play: a name of 1 to 12 bytes, or with its folder as D:/T/A.NMG")
        self.call(_raw.vxPlayPriority, drive, folder, name)

    def status(self) -> Status:
        """All that the sign tells of itself: state, measurements, power, clock, drives, what plays, warnings."""
        return _state.status(self._connection)

    def logs(self, log: str, limit: int = 100) -> list[_logs.Row]:
        """The latest rows of a log, oldest first: play, system, temperature, tile or event. They stay on the sign."""
        if log not in _logs.TABLES:
            raise ValueError(f"'{log}' is no log: {' '.join(_logs.TABLES)}")
        with self._connection.task():
            return _logs.read(self._connection, _logs.TABLES[log], limit)

    def pixels(self, source: str = "check") -> list[_logs.Row]:
        """The bad pixels: x, y, kind, status, time. source: "check" lets the sign look, "last" asks what it found."""
        if source not in ("check", "last"):
            raise ValueError(f"'{source}' is no source: check or last")
        return _state.pixels(self._connection, source == "check")

    def clock(self, time: Optional[datetime.datetime] = None) -> Optional[datetime.datetime]:
        """The sign's clock, which tells no seconds; sets it to a time that is given."""
        if time is not None:
            self.call(
                _raw.vxAjustLEDTimeEx, time.year, time.month, time.day, time.hour, time.minute, time.second,
                time.isoweekday() % 7, 0,
            )  # fmt: skip
            return time
        with self._connection.task():
            result, found = _state.clock()
            check(result)
            return found

    def light(self, level: Optional[int] = None) -> Optional[int]:
        """The brightness in eighths, None when the sign does not tell; sets it to a level that is given, 0 to 255."""
        if level is not None:
            self.call(_raw.vxBrightAdjust, level)
            return level
        with self._connection.task():
            return _state.light(self._connection)

    def power(self, on: Optional[bool] = None) -> Optional[bool]:
        """Whether the face has power; switches it on or off where that is given."""
        if on is not None:
            self.call(_raw.vxPowerOnOff, int(on))
            return on
        with self._connection.task():
            return _state.power()

    def restore(self) -> list[str]:
        """Goes back to the play list, whatever is over it; the names of what was, or may have been, there."""
        return _state.restore(self._connection)

    def blank(self) -> None:
        """Turns the face dark."""
        self.call(_raw.vxBlackScreen)

    def unblank(self) -> None:
        """Lets the face show again what plays."""
        self.call(_raw.vxEndBlackScreen)

    def modbus(
        self, device_class: str, device: int, register: int, section: int = 255, value: Optional[int] = None
    ) -> int:
        """A register of a device of a class (LC TLS ALCS MLCS VSLS TOR VMS PVMS), read, or written with a value."""
        return _devices.modbus(self._connection, device_class, device, register, section, value)

    def upgrade(self, path: LocalPath) -> None:
        """Sends firmware by XMODEM. Success is told even where the receiver did not confirm the end: see xmodem.h."""
        self.call(_raw.vxXModem_Upgrade, _show.existing(path))

    def login(self, user: str, password: str) -> None:
        """Logs in; the sign remembers it. 13 bytes of the name and 6 of the password count."""
        encode = self._connection.encode
        self.call(_raw.vxLogin, encode(user, "user"), encode(password, "password"))

    def logout(self) -> None:
        """Logs out."""
        self.call(_raw.vxLogout)

    def _path(self, path: str) -> bytes:
        return self._connection.encode(path, "path")
