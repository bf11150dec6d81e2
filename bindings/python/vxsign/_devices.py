"""Devices beside the road: Modbus registers by classes."""

from __future__ import annotations

import ctypes
from collections.abc import Callable
from typing import Optional

from . import _raw
from ._connection import Connection
from ._errors import check

Function = Callable[..., int]

# The functions of each class, and whether they have sections.
CLASSES: dict[str, tuple[Function, Function, bool]] = {
    "LC": (_raw.vxMB_LCGet, _raw.vxMB_LCSet, False),
    "TLS": (_raw.vxMB_TLSGet, _raw.vxMB_TLSSet, True),
    "ALCS": (_raw.vxMB_ALCSGet, _raw.vxMB_ALCSSet, True),
    "MLCS": (_raw.vxMB_MLCSGet, _raw.vxMB_MLCSSet, True),
    "VSLS": (_raw.vxMB_VSLSGet, _raw.vxMB_VSLSSet, True),
    "TOR": (_raw.vxMB_TORGet, _raw.vxMB_TORSet, True),
    "VMS": (_raw.vxMB_VMSGet, _raw.vxMB_VMSSet, True),
    "PVMS": (_raw.vxMB_PVMSGet, _raw.vxMB_PVMSSet, False),
}


def modbus(
    sign: Connection, device_class: str, device: int, register: int, section: int, value: Optional[int]
) -> int:
    """The value of a register, read or written."""
    if device_class.upper() not in CLASSES:
        raise ValueError(f"'{device_class}' is no class of devices: {' '.join(CLASSES)}")
    read, write, has_sections = CLASSES[device_class.upper()]
    place = (device, section, register) if has_sections else (device, register)
    with sign.task():
        if value is not None:
            check(write(*place, value))
            return value
        found = ctypes.c_uint16()
        check(read(*place, found))
        return found.value
