"""The logs of the sign's database."""

from __future__ import annotations

import re
from typing import NamedTuple, Union

from . import _raw
from ._connection import Connection
from ._errors import SignError, check

DATABASE = 1
PAGE_ROWS = 10
ROOM = 4096  # more than any packet holds

Value = Union[int, str, None]
Row = dict[str, Value]


class Table(NamedTuple):
    """A table of the database: its columns there, and as they are named here. A name with # is a number."""

    name: str
    selection: str
    columns: str
    words: dict[str, tuple[str, ...]] = {}  # of a number, instead of it


TABLES = {
    "play": Table(
        "PlayLog", "Time,FileName,GroupName,WinID,PlayTimes,TotalSeconds", "time file group window# times# seconds#"
    ),
    "system": Table("SysLog", "DateTime,Type,Operate,Author,Result", "time type# operation user outcome"),
    "temperature": Table(
        "TempLog",
        "BeginTime,EndTime,OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp,BoxHightTemp,BoxLowTemp,"
        "BoxAvgTemp",
        "from to outHighC# outLowC# outAvgC# inHighC# inLowC# inAvgC# boxHighC# boxLowC# boxAvgC#",
    ),
    "tile": Table(
        "TileInfo",
        "*",
        "address# x# y# width# height# temperatureC# voltageMv# hardware firmware runSeconds# lamps badLamps# "
        "signalErrors# state# serial limitsC# note lightEighths#",
        {"state": ("good", "hot")},
    ),
    "event": Table(
        "EventLog",
        "DateTime,EventType,Status,Note",
        "time event# status# note",
        {"event": ("", "door", "pixel", "signal", "tile"), "status": ("went", "came")},
    ),
}
PIXELS = {
    "pixel": Table("PixelStatus", "X,Y,Status,DateTime", "x# y# status time"),
    "signal": Table("PixelSignalErr", "X,Y,Status,DateTime", "x# y# status time"),
}


def _ask(sign: Connection, sql: str, columns: int) -> tuple[int, list[list[str]]]:
    head, text = bytearray(64), bytearray(ROOM)
    check(_raw.vxReadDB(DATABASE, sql.encode("ascii"), head, len(head), text, len(text)))
    fields = re.findall(r"<([^>]*)>", sign.decode(text))
    rows = [fields[at : at + columns] for at in range(0, len(fields) - columns + 1, columns)]
    return int.from_bytes(head[:2], "little"), rows


def _value(column: str, text: str, words: dict[str, tuple[str, ...]]) -> Value:
    if not column.endswith("#"):
        return text
    try:
        number = int(text)
    except ValueError:
        return text or None
    named = words.get(column[:-1], ())
    return named[number] if 0 <= number < len(named) and named[number] else number


def read(sign: Connection, table: Table, most: int) -> list[Row]:
    """The latest rows of a table, oldest first, within a task; the table stays as it is."""
    columns = table.columns.split()
    counted = _ask(sign, f"select count(*) from {table.name}", 1)[1]
    if not counted or not counted[0][0].isdigit():
        raise SignError(_raw.VX_FILE_FORMAT)
    count = int(counted[0][0])
    wanted = min(count, most)
    rows: list[list[str]] = []
    while len(rows) < wanted:
        # A page may have fewer rows than were asked for; the next one begins behind those that came.
        limit, offset = min(PAGE_ROWS, wanted - len(rows)), count - wanted + len(rows)
        sql = f"select {table.selection} from {table.name} limit {limit} offset {offset}"
        announced, page = _ask(sign, sql, len(columns))
        if announced == 0:
            break  # somebody has cleared the table meanwhile
        if not page:
            raise SignError(_raw.VX_FILE_FORMAT)
        rows += page[: wanted - len(rows)]
        sign.progress(len(rows) * 100 // wanted)
    return [
        {column.rstrip("#"): _value(column, text, table.words) for column, text in zip(columns, row)} for row in rows
    ]
