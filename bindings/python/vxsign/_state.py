"""How the sign is: what `vxctl status` tells, under the same names."""

from __future__ import annotations

import ctypes
import dataclasses
import datetime
import os
import tempfile
from collections.abc import Callable
from dataclasses import dataclass
from typing import Any, Optional

from . import _logs, _raw
from ._connection import Connection
from ._errors import SignError, check, done

STATES = ("bad-pixels", "hot-tiles", "door-open", "no-power", "dark-face")
DRIVES = "CDEFG"
USUAL_UNIT = 1024
MOST_ROWS = (1 << 32) - 1


@dataclass(frozen=True)
class SignWarning:
    """A line of the sign's report of what is wrong now."""

    where: str
    what: str
    value: str
    time: str


@dataclass(frozen=True)
class Drive:
    """The room on a drive, in bytes."""

    drive: str
    total_bytes: int
    free_bytes: int


@dataclass(frozen=True)
class Status:
    """The state of a sign; what it does not tell is None. Temperatures in degrees Celsius, light in eighths."""

    state: list[str]  # what is wrong, nothing when all is well
    state_code: int
    inside_c: int
    outside_c: int
    hottest_tile_c: int
    humidity_percent: int
    beacon: str  # 8 bytes, hexadecimal
    playing: Optional[str]
    face: Optional[tuple[int, int]]  # width and height in pixels
    colours: Optional[int]
    light_eighths: Optional[int]
    light_fixed: Optional[bool]
    power: Optional[bool]
    clock: Optional[datetime.datetime]
    drives: list[Drive]
    warnings: list[SignWarning]

    def as_dict(self) -> dict[str, Any]:
        """The same as `vxctl --json status` has it."""
        face = {"width": self.face[0], "height": self.face[1]} if self.face else None
        return {
            "state": self.state,
            "stateCode": self.state_code,
            "measured": {
                "insideC": self.inside_c,
                "outsideC": self.outside_c,
                "hottestTileC": self.hottest_tile_c,
                "humidityPercent": self.humidity_percent,
            },
            "beacon": self.beacon,
            "playing": self.playing,
            "face": face,
            "colours": self.colours,
            "lightEighths": self.light_eighths,
            "lightFixed": self.light_fixed,
            "power": self.power,
            "clock": self.clock.astimezone().isoformat() if self.clock else None,
            "drives": [
                {"drive": each.drive, "totalBytes": each.total_bytes, "freeBytes": each.free_bytes}
                for each in self.drives
            ],
            "warnings": [dataclasses.asdict(each) for each in self.warnings],
        }


def _record(sign: Connection) -> dict[str, Any]:
    found: dict[str, Any] = {}

    def take(_user: int, status: Any, beacon: int, message: bytes) -> int:
        record = status.contents
        hot = record.Mode == _raw.VX_MODE_BY_STATISTICS
        signed = [ctypes.c_int8(value).value for value in (record.Value0, record.Value1, record.Value2)]
        found.update(
            state=["overheated"] if hot else [name for bit, name in enumerate(STATES) if record.Mode >> bit & 1],
            state_code=record.Mode,
            inside_c=signed[0],
            outside_c=signed[1],
            hottest_tile_c=signed[2],
            humidity_percent=record.Value3,
            beacon=ctypes.string_at(beacon, 8).hex(),
            playing=sign.decode(message) or None,
        )
        return 0

    check(_raw.vxReadStatusInfo("", 0, 0, _raw.vxOnStatusInfo(take), 0, 0, 0))
    return found


def _lines(sign: Connection) -> dict[str, list[str]]:
    """What the sign tells of itself in lines such as "light 5 fixed"."""
    text, length = bytearray(1024), ctypes.c_uint32()
    if not done(_raw.vxReadSystemInfo(text, len(text), length)):
        return {}
    lines = sign.decode(text[: length.value]).splitlines()
    return {words[0]: words[1:] for words in map(str.split, lines) if len(words) > 1}


def _number(words: list[str]) -> Optional[int]:
    return int(words[0]) if words and words[0].isdigit() else None


def _face(sign: Connection) -> dict[str, Any]:
    lines = _lines(sign)
    settings = bytearray(16)
    size = (0, 0)
    if done(_raw.vxReadSystemSet(settings)):
        size = (int.from_bytes(settings[:2], "little"), int.from_bytes(settings[2:4], "little"))
    light = lines.get("light", [])
    return {
        "face": size if all(size) else None,
        "colours": _number(lines.get("colours", [])),
        "light_eighths": _number(light),
        "light_fixed": "fixed" in light[1:] if light else None,
    }


def power() -> Optional[bool]:
    """Whether the face has power."""
    ordered, present = ctypes.c_uint8(), ctypes.c_uint8()
    return present.value != 0 if done(_raw.vxGetPowerState(ordered, present)) else None


def light(sign: Connection) -> Optional[int]:
    """The brightness in eighths."""
    return _number(_lines(sign).get("light", []))


def clock() -> tuple[int, Optional[datetime.datetime]]:
    """(result, the sign's clock), which tells no seconds; None for a time that does not exist."""
    year = ctypes.c_uint16()
    rest = [ctypes.c_uint8() for _ in range(7)]
    result = _raw.vxReadLEDTime(year, *rest)
    if result != _raw.VX_OK:
        return result, None
    try:
        month, day, hour, minute = (each.value for each in rest[:4])
        return result, datetime.datetime(year.value, month, day, hour, minute)
    except ValueError:
        return result, None


def _drives() -> list[Drive]:
    found = []
    for drive in DRIVES:
        total, free, further = ctypes.c_uint32(), ctypes.c_uint32(), bytearray(12)
        if done(_raw.vxGetDriveInfo(ord(drive), total, free, further)):
            unit = int.from_bytes(further[:4], "little") or USUAL_UNIT
            found.append(Drive(drive, total.value * unit, free.value * unit))
    return found


def _place(kind: int, x: int, y: int) -> str:
    if kind == _raw.VX_WARING_TILE:
        return "tile" if x == y == _raw.VX_WARING_NO_POSITION else f"tile {x},{y}"
    return {_raw.VX_WARING_PIXELS: "pixels", _raw.VX_WARING_SIGNALS: "signals"}.get(kind, "main board")


def warnings(sign: Connection) -> list[SignWarning]:
    """What the sign warns of; a sign without a report warns of nothing."""
    found: list[SignWarning] = []

    def take(pointer: Any) -> int:
        row = pointer.contents
        texts = (sign.decode(text) for text in (row.Name, row.Value, row.Time))
        found.append(SignWarning(_place(row.Kind, row.X, row.Y), *texts))
        return 0

    result = _raw.vxReadWaringReport(_raw.vxOnWaringReport(take))
    if result not in (_raw.VX_OK, _raw.VX_FILE_NOT_EXISTS):
        raise SignError(result)
    return found


def status(sign: Connection) -> Status:
    """All that a sign tells of itself, in one task."""
    with sign.task():
        record = _record(sign)
        face = _face(sign)
        has_power = power()
        result, time = clock()
        done(result)
        return Status(**record, **face, power=has_power, clock=time, drives=_drives(), warnings=warnings(sign))


def pixels(sign: Connection, is_new: bool) -> list[_logs.Row]:
    """The bad pixels: of a new check, or as the last one has found them."""
    found: list[_logs.Row] = []

    def take(_user: int, pointer: Any) -> int:
        row = pointer.contents
        kind = "signal" if row.Kind == _raw.VX_SIGNAL_BAD else "pixel"
        found.append(
            {"x": row.X, "y": row.Y, "status": sign.decode(row.Status), "time": sign.decode(row.Time), "kind": kind}
        )
        return 0

    with tempfile.TemporaryDirectory(prefix="vxsign") as folder, sign.task():
        if is_new:
            check(_raw.vxReadPixelInfo(folder + os.sep, 0, _raw.VX_PIXELS_FROM_CSV, _raw.vxOnPixelInfo(take)))
            return found
        for kind, table in _logs.PIXELS.items():
            found += [{**row, "kind": kind} for row in _logs.read(sign, table, MOST_ROWS)]
        return found


def name_of(sign: Connection, ask: Callable[[bytearray, int], int]) -> Optional[str]:
    """What plays, or plays next; None for nothing."""
    name = bytearray(256)
    result = ask(name, len(name))
    if result == _raw.VX_NOTHING_PLAYS:
        return None
    check(result)
    return sign.decode(name) or None


# What may stand over the play list: how a sign names it, and what ends it.
COVERS: tuple[tuple[str, Callable[[], int]], ...] = (
    ("off", lambda: _raw.vxPowerOnOff(1)),
    ("blank", _raw.vxEndBlackScreen),
    ("emergency", _raw.vxCoreStopEmergencyProgram),
    ("test", _raw.vxStopTest),
    ("ticker", _raw.vxTickerStop),
    ("windows", lambda: _raw.vxCoreStopPlay(b"")),
    ("video-window", lambda: _raw.vxMPUSetWin(0, 0, 0, 0, 0, 0, None)),
    ("video-input", lambda: _raw.vxVPUSelChannel(0)),
    ("program", lambda: _raw.vxCoreStopPlay(b"")),
    ("zones", lambda: _raw.vxSetEnableMulitZone(0)),
)


def restore(sign: Connection) -> list[str]:
    """Ends what is over the play list; the names of what was, or may have been, there."""
    with sign.task():
        shows = _lines(sign).get("shows")
        return [name for name, end in COVERS if (shows is None or name in shows) and done(end())]
