"""What goes into a raw call: each argument is checked before anything is sent.

The classes stand where ctypes wants the type of an argument; the functions make a pointer of what a caller gives.
"""

from __future__ import annotations

import ctypes
import os
from collections.abc import Sequence
from typing import Any, Union

PathText = Union[str, bytes, "os.PathLike[str]"]
Buffer = Union[bytes, bytearray, "ctypes.Array[Any]", ctypes.Structure]


class Number:
    """A whole number that its C type holds; ctypes by itself would cut it."""

    def __init__(self, of: Any) -> None:
        bits = 8 * ctypes.sizeof(of)
        signed = of(-1).value < 0
        self.of = of
        self.least = -(1 << bits - 1) if signed else 0
        self.most = (1 << bits - signed) - 1

    def from_param(self, value: int) -> Any:
        """The C number, or ValueError for one that does not fit."""
        if not isinstance(value, int):
            raise TypeError(f"a whole number is wanted, not {type(value).__name__}")
        if not self.least <= value <= self.most:
            raise ValueError(f"{value} is not within {self.least} to {self.most}")
        return self.of(value)


def _terminated(value: bytes) -> ctypes.c_char_p:
    if 0 in value:
        raise ValueError("a text cannot hold a NUL")
    return ctypes.c_char_p(value)


class Ascii:
    """A plain text, or None."""

    @staticmethod
    def from_param(value: str | bytes | None) -> ctypes.c_char_p | None:
        """The text up to its NUL."""
        if value is None:
            return None
        if not isinstance(value, (str, bytes)):
            raise TypeError(f"a text is wanted, not {type(value).__name__}")
        return _terminated(value.encode("ascii") if isinstance(value, str) else value)


class SignText:
    """A text in the encoding of the sign: bytes, or None."""

    @staticmethod
    def from_param(value: bytes | None) -> ctypes.c_char_p | None:
        """The text up to its NUL."""
        if value is None:
            return None
        if not isinstance(value, bytes):
            raise TypeError(f"bytes in the encoding of the sign are wanted, not {type(value).__name__}")
        return _terminated(value)


class Path:
    """A path of this PC, or None."""

    @staticmethod
    def from_param(value: PathText | None) -> ctypes.c_char_p | None:
        """The path in the encoding of this PC."""
        return None if value is None else _terminated(os.fsencode(value))


def room(buffer: Buffer | None, size: int) -> Any:
    """What a pointer to `size` bytes is made of: ValueError for a buffer that is smaller."""
    if buffer is None:
        return None
    if isinstance(buffer, bytearray):
        buffer = (ctypes.c_char * len(buffer)).from_buffer(buffer)
    if not isinstance(buffer, (bytes, ctypes.Array, ctypes.Structure)):
        raise TypeError(f"a buffer is wanted, not {type(buffer).__name__}")
    held = len(buffer) if isinstance(buffer, bytes) else ctypes.sizeof(buffer)
    if held < size:
        raise ValueError(f"a buffer of {held} bytes is too small: {size} are wanted")
    return buffer if isinstance(buffer, bytes) else ctypes.byref(buffer)


def writable(buffer: Buffer | None, size: int) -> Any:
    """The same for a buffer that the library writes into."""
    if isinstance(buffer, bytes):
        raise TypeError("bytes cannot be written: a bytearray or an array of ctypes is wanted")
    return room(buffer, size)


def behind(buffer: Buffer | None, size: int) -> Any:
    """A pointer to a pointer to `size` bytes."""
    if buffer is None:
        return None
    return ctypes.byref(ctypes.cast(room(buffer, size), ctypes.c_void_p))


def paths(files: Sequence[PathText] | None, count: int) -> Any:
    """An array of `count` paths."""
    if files is None:
        return None
    if len(files) < count:
        raise ValueError(f"{count} paths are wanted, not {len(files)}")
    return (ctypes.c_char_p * count)(*(Path.from_param(file) for file in files[:count]))


def given(record: ctypes.Structure | None) -> Any:
    """A copy of a record that the library frees."""
    if record is None:
        return None
    system = ctypes.CDLL("msvcrt" if os.name == "nt" else None)
    system.malloc.restype = ctypes.c_void_p
    copy = system.malloc(ctypes.c_size_t(ctypes.sizeof(record)))
    if copy:
        ctypes.memmove(copy, ctypes.addressof(record), ctypes.sizeof(record))
    return ctypes.cast(copy, ctypes.POINTER(type(record)))


def held(pointer: Any, fallback: int = 0) -> int:
    """The number that a length leads to."""
    return fallback if pointer is None else int(pointer.value)
