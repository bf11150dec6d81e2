"""One sign and the calls on it, from any thread.

The library keeps its configuration for each thread. So each task sets up the record of the thread that it runs in, and
leaves its address where cancel() finds it, as long as it runs.
"""

from __future__ import annotations

import codecs
import contextlib
import ctypes
import os
import threading
from collections.abc import Callable, Iterator
from typing import Any, Optional

from . import _raw
from ._errors import SignError, check
from ._url import parse

Progress = Callable[[int], object]

_thread = threading.local()  # sign: whose properties the thread's record has; busy: whether a task runs


class Connection:
    """What all tasks of a sign share."""

    def __init__(self, url: str, timeout_ms: int, retries: int, chunk: int, destination: int, encoding: str) -> None:
        for name, value, least, most in (
            ("timeout_ms", timeout_ms, 50, 60000),
            ("retries", retries, 1, 100),
            ("chunk", chunk, 64, 1280),
            ("destination", destination, 0, 65535),
        ):
            if not isinstance(value, int):
                raise TypeError(f"{name} is a whole number, not {type(value).__name__}")
            if not least <= value <= most:
                raise ValueError(f"{name} is {least} to {most}, not {value}")
        codecs.lookup(encoding)
        place = parse(url)
        self.encoding = encoding
        self.chunk = chunk
        self.on_progress: Optional[Progress] = None
        self._fault: dict[int, BaseException] = {}  # what a callback has raised, by thread
        self._running: dict[int, _raw.vxApiConfig] = {}  # the live records, by thread
        self._lock = threading.Lock()
        self._token = object()
        self._callback = _raw.vxOnProgress(self._take_progress)
        self._config = _raw.vxApiConfig(
            kind=place.kind,
            host=place.host.encode("ascii"),
            port=place.port,
            serialName=os.fsencode(place.serial_name),
            baudRate=place.baud,
            destinationAddress=destination,
            retries=retries,
            timeoutMs=timeout_ms,
            dataSize=chunk,
            onProgress=self._callback,
        )

    @contextlib.contextmanager
    def task(self) -> Iterator[Connection]:
        """The calling thread works for this sign: within it, raw calls reach it."""
        if getattr(_thread, "busy", False):
            raise RuntimeError("a call within a call: on_progress cannot use a sign in the same thread")
        thread = threading.get_ident()
        _thread.busy = True
        try:
            self._begin(thread)
            yield self
        except SignError as error:
            if error.code == _raw.VX_COMMUNICATION and self._was_cancelled(thread):
                raise SignError(_raw.VX_ABORTED) from None
            raise
        except ctypes.ArgumentError as error:
            kind = ValueError if ": ValueError:" in str(error) else TypeError
            raise kind(str(error)) from None
        finally:
            with self._lock:
                self._running.pop(thread, None)
            _thread.busy = False
            fault = self._fault.pop(thread, None)
            if fault is not None:
                raise fault

    def _begin(self, thread: int) -> None:
        check(_raw.vxInitAPI(self._config))
        record = _raw.vxTLSGet(_raw.VX_RECORD_CONFIGURATION)
        state = _raw.vxTLSGet(_raw.VX_RECORD_STATE)
        if not record or not state:
            raise MemoryError("the records of the thread cannot be made")
        if getattr(_thread, "sign", None) is not self._token:
            ctypes.c_uint8.from_address(state).value = 0  # the properties are those of another sign
            _thread.sign = self._token
        with self._lock:
            self._running[thread] = _raw.vxApiConfig.from_address(record)

    def _was_cancelled(self, thread: int) -> bool:
        record = self._running.get(thread)
        return record is not None and record.abortFlag != 0

    def cancel(self) -> None:
        """Ends what runs on this sign, in whichever threads."""
        with self._lock:
            for record in self._running.values():
                record.abortFlag = 1

    def _take_progress(self, _config: Any, _reserved: int, percent: int) -> None:
        self.progress(percent)

    def progress(self, percent: int) -> None:
        """Tells the caller; what it raises ends the task, and comes out of it."""
        thread = threading.get_ident()
        if self.on_progress is None or thread in self._fault:
            return
        try:
            self.on_progress(percent)
        except BaseException as fault:  # pylint: disable=broad-except
            self._fault[thread] = fault
            record = self._running.get(thread)
            if record is not None:
                record.abortFlag = 1

    def encode(self, text: str, what: str = "text") -> bytes:
        """A text as the sign wants it; ValueError for a NUL, and for a character that the encoding lacks."""
        if not isinstance(text, str):
            raise TypeError(f"a {what} is a str, not {type(text).__name__}")
        if "\0" in text:
            raise ValueError(f"a {what} cannot hold a NUL")
        try:
            return text.encode(self.encoding)
        except UnicodeEncodeError as error:
            lacking = text[error.start]
            raise ValueError(f"{self.encoding} has no '{lacking}' (U+{ord(lacking):04X})") from None

    def decode(self, data: bytes) -> str:
        """A text of the sign up to its NUL; what is none in its encoding shows as such."""
        return bytes(data).split(b"\0", 1)[0].decode(self.encoding, "replace")
