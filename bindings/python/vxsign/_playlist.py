"""Play lists of local files."""

from __future__ import annotations

import ctypes
import os
import shutil
import tempfile
from collections.abc import Sequence
from pathlib import Path
from typing import Optional

from . import _codes, _raw
from ._connection import Connection
from ._errors import SignError, check
from ._show import drive_of_sign, existing, sign_path

LIST = "playlist.xml"
AT_END = 65535
UNSEEN = 65535  # of a count that stays as it was


def _bind(folder: str) -> None:
    check(_raw.vxPLInit(folder, LIST))
    _raw.vxLoadSYSFromXML(None)


def _add(sign: Connection, local: str, stay: int) -> None:
    info = _raw.VXPLAYLIST_FILE_INFO(playTimes=1, Drive=b"D", PicStaySec=stay, PicInMode=ord("0"), PicOutMode=ord("0"))
    name, source = sign.encode(os.path.basename(local), "file name"), os.fsencode(os.path.abspath(local))
    if len(name) >= 256 or len(source) >= 512:
        raise ValueError(f"the name of {local} is too long for a play list")
    info.fileName, info.pcFileName = name, source
    info.Type = bytes([sign_path(local, "D")[1]])
    check(_raw.vxPLAddFile(b"/", AT_END, info))


def _names(sign: Connection, level: bytes = b"/") -> list[str]:
    """The files of a level, those of its groups included."""
    count, items = ctypes.c_uint16(UNSEEN), (_raw.VXPLAYLIST_ITEM * UNSEEN)()
    check(_raw.vxPLGetItems(level, count, items))
    found: list[str] = []
    for item in items[: count.value if count.value != UNSEEN else 0]:
        is_group = item.kind == _raw.VX_ENTRY_GROUP
        found += _names(sign, level + item.name + b"/") if is_group else [sign.decode(item.name)]
    return found


def send(sign: Connection, paths: Sequence[str | os.PathLike[str]], stay: int, index: Optional[int]) -> None:
    """A list of local files, and the files that the sign does not have yet."""
    if isinstance(paths, (str, bytes)):
        raise TypeError("paths are a list of paths, not one")
    sources = [existing(path) for path in paths]
    if not sources:
        raise ValueError("a play list has a file at least")
    if len({os.path.basename(source) for source in sources}) != len(sources):
        raise ValueError("two files of a play list cannot have the same name")
    _codes.stay(stay)
    with tempfile.TemporaryDirectory(prefix="vxsign") as folder, sign.task():
        _bind(folder)
        check(_raw.vxPLDelItem(b"/", 0, AT_END))
        for source in sources:
            copy = os.path.join(folder, os.path.basename(source))
            shutil.copyfile(source, copy)
            _add(sign, copy, stay)
        check(_raw.vxInitProperty())
        check(_raw.vxPLSendToLED(1) if index is None else _raw.vxPLSpeSendToLED(index, 1))
        # The library passes over a file that does not arrive.
        paths_there = [sign_path(os.path.join(folder, os.path.basename(each)), drive_of_sign())[0] for each in sources]
        missing = [each.decode("ascii", "replace") for each in paths_there if _raw.vxIsFileExist(each) != _raw.VX_OK]
        if missing:
            raise SignError(_raw.VX_FAILED_OPERATION, f"not on the sign: {', '.join(missing)}")


def fetch(sign: Connection, folder: str | os.PathLike[str]) -> list[str]:
    """The sign's list and its files, into a local folder; the names of the files."""
    target = Path(folder)
    target.mkdir(parents=True, exist_ok=True)
    with sign.task():
        _bind(os.fspath(target))
        check(_raw.vxPLReadFromLED(1))
        check(_raw.vxPLSave())
        return _names(sign)
