"""The files of the sign."""

from __future__ import annotations

import ctypes
import datetime
import os
import struct
import threading
from dataclasses import dataclass
from pathlib import Path
from typing import Optional

from . import _raw
from ._connection import Connection
from ._errors import check, done
from ._show import existing

FOLDER = 0x10
VOLUME_LABEL = 0x08
LONG_ENTRY = struct.Struct("<260sIHHB7x")
SHORT_ENTRY = struct.Struct("<8s3sB10xHH2xI")
PAGE_ENTRIES = 20


@dataclass(frozen=True)
class Entry:
    """A file or a folder of the sign: size in bytes, and when it was changed, None when the sign does not tell."""

    name: str
    is_folder: bool
    size: int
    changed: Optional[datetime.datetime]


def _time(date: int, time: int) -> Optional[datetime.datetime]:
    try:
        return datetime.datetime(
            (date >> 9) + 1980, date >> 5 & 15, date & 31, time >> 11, time >> 5 & 63, (time & 31) * 2
        )
    except ValueError:
        return None


def _long_entries(sign: Connection, folder: bytes) -> tuple[int, list[Entry]]:
    found: list[Entry] = []

    def take(entry: int, _user: Optional[int]) -> int:
        name, size, date, time, attribute = LONG_ENTRY.unpack(ctypes.string_at(entry, LONG_ENTRY.size))
        found.append(Entry(sign.decode(name), bool(attribute & FOLDER), size, _time(date, time)))
        return 0

    return _raw.vxLstLongFolderCB(folder, _raw.vxOnFolderEntry(take), None), found


def _short_entry(sign: Connection, record: bytes) -> Optional[Entry]:
    """An entry of a page; None for one that stands for no file or folder, such as a deleted one."""
    stem, extension, attribute, time, date, size = SHORT_ENTRY.unpack(record)
    if stem[0] == 0xE5 or attribute & VOLUME_LABEL:
        return None
    if stem[0] == 0x05:
        stem = b"\xe5" + stem[1:]
    parts = [sign.decode(part).rstrip() for part in (stem, extension)]
    return Entry(".".join(filter(None, parts)), bool(attribute & FOLDER), size, _time(date, time))


def _short_entries(sign: Connection, folder: bytes) -> list[Entry]:
    """Page after page, until the sign has no more or has told as many as there are."""
    found: list[Entry] = []
    total, start = ctypes.c_uint32(1), 0
    while start < min(total.value, 65536):
        page = bytearray(PAGE_ENTRIES * SHORT_ENTRY.size)
        check(_raw.vxGetDirFileEx(folder, start, PAGE_ENTRIES, total, page, PAGE_ENTRIES))
        records = [bytes(page[at : at + SHORT_ENTRY.size]) for at in range(0, len(page), SHORT_ENTRY.size)]
        told = next((at for at, record in enumerate(records) if record[0] == 0), len(records))
        if told == 0:
            break
        found += [entry for record in records[:told] if (entry := _short_entry(sign, record))]
        start += told
    return found


def entries(sign: Connection, path: str) -> list[Entry]:
    """What a folder holds: with long names, or with short ones where the sign makes no long listing."""
    folder = sign.encode(path, "path")
    with sign.task():
        result, found = _long_entries(sign, folder)
        if not done(result):
            found = _short_entries(sign, folder)
    return [entry for entry in found if entry.name not in ("", ".", "..")]


def put(sign: Connection, local: str | os.PathLike[str], path: str) -> None:
    """A local file under a path of the sign."""
    source, target = existing(local), sign.encode(path, "path")
    with sign.task():
        check(_raw.vxWriteSpecFileEx(target, source))


def get(sign: Connection, path: str, local: str | os.PathLike[str]) -> None:
    """A file of the sign; the local one is replaced only when all has come."""
    source, target = sign.encode(path, "path"), Path(local)
    part = target.with_name(f".{target.name}.{os.getpid()}.{threading.get_ident()}")
    with open(part, "xb"):
        pass
    try:
        with sign.task():
            check(_raw.vxReadSpecPathFileEx(source, part))
        os.replace(part, target)
    except BaseException:
        part.unlink()
        raise


def move(sign: Connection, old: str, new: str) -> None:
    """Another name in the same folder, or another folder; into a folder where the new path ends in a separator."""
    source, target = sign.encode(old, "path"), sign.encode(new, "path")
    is_into = target.endswith((b"/", b"\\"))
    if is_into and not target.endswith(b":\\"):
        target = target[:-1]
    is_same = not is_into and _folder(new) in ("", _folder(old))
    with sign.task():
        check((_raw.vxRename if is_same else _raw.vxMove)(source, target))


def _folder(path: str) -> str:
    return path.replace("/", "\\").upper().rpartition("\\")[0]
