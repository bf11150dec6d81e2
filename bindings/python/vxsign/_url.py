"""Where a sign is: udp://HOST[:PORT], tcp://HOST[:PORT] or serial:NAME[@BAUD]."""

from __future__ import annotations

import os
import re
import socket
from dataclasses import dataclass

from . import _raw

DEFAULT_PORT = 9520
DEFAULT_BAUD = 115200
NETWORK = re.compile(r"(udp|tcp)://([A-Za-z0-9._-]+)(?::([0-9]+))?/?", re.IGNORECASE)
SERIAL = re.compile(r"serial:(?://)?([^@]+(?:@[^@]+)*?)(?:@([0-9]+))?", re.IGNORECASE)
KINDS = {"udp": _raw.VX_CHANNEL_UDP, "tcp": _raw.VX_CHANNEL_TCP}


@dataclass(frozen=True)
class Place:
    """A sign's place, resolved."""

    kind: int
    host: str = ""
    port: int = 0
    serial_name: str = ""
    baud: int = 0


def _dotted(url: str, host: str) -> str:
    is_address = re.fullmatch(r"[0-9.]+", host) is not None
    try:
        if is_address:
            socket.inet_pton(socket.AF_INET, host)
            return host
        found = socket.getaddrinfo(host, None, socket.AF_INET, socket.SOCK_DGRAM)
        return str(found[0][4][0])
    except OSError as error:
        why = "is no IPv4 address" if is_address else f"has no IPv4 address: {error.strerror}"
        raise ValueError(f"'{url}' names no sign: {host} {why}") from None


def _network(url: str, match: re.Match[str]) -> Place:
    port = int(match[3] or DEFAULT_PORT)
    if not 1 <= port <= 65535:
        raise ValueError(f"'{url}' names no sign: the port is a number from 1 to 65535")
    return Place(KINDS[match[1].lower()], _dotted(url, match[2]), port)


def _serial(url: str, match: re.Match[str]) -> Place:
    room = _raw.vxApiConfig.serialName.size
    name, baud = match[1], int(match[2] or DEFAULT_BAUD)
    if len(os.fsencode(name)) >= room and name.startswith("/"):
        name = os.path.realpath(name)  # such as /dev/serial/by-id/...
    if len(os.fsencode(name)) >= room or "\0" in name:
        raise ValueError(f"'{url}' names no sign: the serial name has more than {room - 1} characters")
    if not 0 < baud < 1 << 32:
        raise ValueError(f"'{url}' names no sign: the speed is a number of bits per second, such as 115200")
    return Place(_raw.VX_CHANNEL_SERIAL, serial_name=name, baud=baud)


def parse(url: str) -> Place:
    """The place that a URL names; ValueError for one that names none."""
    if not isinstance(url, str):
        raise TypeError(f"a URL is a text, not {type(url).__name__}")
    if match := NETWORK.fullmatch(url):
        return _network(url, match)
    if match := SERIAL.fullmatch(url):
        return _serial(url, match)
    raise ValueError(f"'{url}' names no sign: it is none of udp://HOST:PORT, tcp://HOST:PORT or serial:NAME@BAUD")
