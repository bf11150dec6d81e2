"""Content, and a sequence file that plays it."""

from __future__ import annotations

import ctypes
import os
import struct
import tempfile
from collections.abc import Sequence
from pathlib import Path

from . import _codes, _raw
from ._connection import Connection
from ._errors import check, done

FOR_SIGN = b"\x01Z00\x02AA"  # how a message begins that goes to a sign
LINE_BREAK = "\r"
MOST_FILES = 128
LONG_STAY = 255  # in place of a short one: the stay time has 32 bits


def drive_of_sign() -> str:
    """The drive that takes content, once the properties are read."""
    has_drive_f = bytearray(1)
    _raw.vxGetProperty(has_drive_f, 1, _raw.VX_PROPERTY_HAS_DRIVE_F)
    return "F" if has_drive_f[0] else "D"


def _style(mode: int | None = None, stay: int | None = None) -> None:
    """Has content play from where it goes, and makes mode and stay the sign's defaults."""
    before = bytearray(52)
    _raw.vxGetProperty(before, len(before), _raw.VX_PROPERTY_DISPLAY_STYLE)
    style = bytearray(before)
    style[2] = ord("C")
    if mode is not None and stay is not None:
        style[11] = style[12] = mode
        known = struct.unpack_from("<I", style, 16)[0] if style[14] == LONG_STAY else style[14]
        if known != stay or style != before:
            style[14] = LONG_STAY
            struct.pack_into("<I", style, 16, stay)
    if style != before:
        done(_raw.vxWriteDefDisplayStyle(bytes(style)))


def _sequence(entries: Sequence[tuple[str, int, bytes]]) -> bytes:
    """The sequence file in its flat form, of (drive, folder, short name)."""
    head = struct.pack("<2sBxHxx", b"SQ", 4, len(entries))
    return head + b"".join(
        struct.pack("<BBBB20x12s", ord(drive), folder, 15, 255, name) for drive, folder, name in entries
    )


def _play(entries: Sequence[tuple[str, int, bytes]], folder: str) -> None:
    local = os.path.join(folder, "sequence")
    Path(local).write_bytes(_sequence(entries))
    check(_raw.vxWriteSystemFile(b"SEQUENT.SYS", local))


def show(sign: Connection, text: str, colour: str, font: str, mode: str, stay: int) -> None:
    """A text as a message that plays alone."""
    message = sign.encode(text.replace("\r\n", "\n").replace("\n", LINE_BREAK) if isinstance(text, str) else text)
    if not message:
        raise ValueError("the text is empty")
    codes = (_codes.font(font), _codes.colour(colour), _codes.mode(mode), _codes.stay(stay))
    with tempfile.TemporaryDirectory(prefix="vxsign") as folder, sign.task():
        local = os.path.join(folder, "message")
        check(_raw.vxShowMsgToNmg(message, len(message), local, *codes))
        with open(local, "r+b") as file:
            file.write(FOR_SIGN)
        check(_raw.vxInitProperty())
        drive = drive_of_sign()
        _style()
        check(_raw.vxWriteSpecFile(f"{drive}:\\T\\QMSG.Nmg".encode(), local))
        _play([(drive, ord("T"), b"QMSG.Nmg")], folder)


def files(sign: Connection, paths: Sequence[str | os.PathLike[str]], mode: str, stay: int) -> None:
    """Local files, one after the other."""
    if isinstance(paths, (str, bytes)):
        raise TypeError("paths are a list of paths, not one")
    locals_ = [existing(path) for path in paths]
    if not 1 <= len(locals_) <= MOST_FILES:
        raise ValueError(f"1 to {MOST_FILES} files show one after the other, not {len(locals_)}")
    codes = (_codes.mode(mode), _codes.stay(stay))
    with tempfile.TemporaryDirectory(prefix="vxsign") as folder, sign.task():
        check(_raw.vxInitProperty())
        drive = drive_of_sign()
        _style(*codes)
        entries = []
        for local in locals_:
            path, kind, short = sign_path(local, drive)
            check(_raw.vxWriteSpecFile(path, local))
            entries.append((drive, kind, short))
        _play(entries, folder)


def existing(path: str | os.PathLike[str]) -> str:
    """The path of a file that is there; FileNotFoundError and the like before anything is sent."""
    local = os.fspath(path)
    if not isinstance(local, str):
        raise TypeError(f"a path is a str or a Path, not {type(path).__name__}")
    with open(local, "rb"):
        return local


def sign_path(local: str, drive: str) -> tuple[bytes, int, bytes]:
    """(path, folder, short name) that a local file gets on the sign."""
    path, short, kind = bytearray(64), bytearray(12), ctypes.c_uint8()
    check(_raw.vxMakeSignPath(local, path, len(path), ord(drive), kind, short))
    return bytes(path).split(b"\0", 1)[0], kind.value, bytes(short).split(b"\0", 1)[0]
