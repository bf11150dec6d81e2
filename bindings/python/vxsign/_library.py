"""The library itself: looked for when the first call needs it."""

from __future__ import annotations

import ctypes
import ctypes.util
import functools
import os
import sys
from collections.abc import Callable
from typing import Any, Optional

WANTED = (2, 3, 10)
NAME = "vxsign.dll" if sys.platform == "win32" else "libvxsign.so.2"


class LibraryError(ImportError):
    """The library is missing, or older than these bindings."""


@functools.lru_cache(maxsize=None)
def library() -> ctypes.CDLL:
    """The library: the file that VXSIGN_LIBRARY names, else what the system finds under its name."""
    name = os.environ.get("VXSIGN_LIBRARY") or NAME
    try:
        loaded = ctypes.CDLL(name)
    except OSError as error:
        raise LibraryError(
            f"the library {name} was not found ({error}): install libvxsign2, or name the file in VXSIGN_LIBRARY"
        ) from error
    _check(loaded, name)
    return loaded


def _check(loaded: ctypes.CDLL, name: str) -> None:
    wanted = ".".join(map(str, WANTED))
    try:
        loaded.vxAPIVersion.restype = ctypes.c_char_p
        version = loaded.vxAPIVersion().decode("ascii")
        numbers = tuple(int(number) for number in version.split()[0].split("."))
    except (AttributeError, ValueError, IndexError) as error:
        raise LibraryError(f"{name} does not tell its version: vxsign {wanted} is wanted") from error
    if numbers < WANTED or numbers[0] != WANTED[0]:
        raise LibraryError(f"{name} is version {version}: {wanted} or a later {WANTED[0]} is wanted")


_bound: dict[str, Any] = {}


def _bind(name: str, result: Any, *arguments: Any) -> Any:
    """A function of the library with the types of its result and its arguments."""
    function = _bound.get(name)
    if function is None:
        try:
            function = getattr(library(), name)
        except AttributeError as error:
            raise LibraryError(f"the library has no {name}: it is older than these bindings") from error
        function.restype, function.argtypes = result, arguments
        _bound[name] = function
    return function


# By what the function gives.
number: Callable[..., Callable[..., int]] = _bind
text: Callable[..., Callable[..., bytes]] = _bind
pointer: Callable[..., Callable[..., Optional[int]]] = _bind
nothing: Callable[..., Callable[..., None]] = _bind
