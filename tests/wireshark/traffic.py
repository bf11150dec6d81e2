#!/usr/bin/env python3
"""Talks to a virtual sign in all the ways that the dissector tells apart: traffic.py VXCTL PORT MODBUS_PORT FOLDER"""
import socket
import subprocess
import sys
import time

vxctl, port, modbus, folder = sys.argv[1:5]

COMMANDS = """
ping
show HELLO --colour red
put FOLDER/logo.bmp D:/F/LOGO.BMP
put --window FOLDER/logo.bmp D:/F/WINDOW.BMP
put --system FOLDER/hello.nmg FONT.SYS
put FOLDER/logo.bmp D:/F/AGAIN.BMP
get D:/F/LOGO.BMP FOLDER/back.bmp
get D:/F/NONE.BIN FOLDER/none
ls D:/F
status
log system --limit 2
bright 5
power off
power on
power
zone divide 1 --grid 2x1
zone text 1 2 Exit
tile status 1
tile status 1 --port 1 --direct
raw 99 99
raw 3 1 --crc
rm D:/F/LOGO.BMP
"""


def run():
    for way in "udp", "tcp":
        for command in COMMANDS.replace("FOLDER", folder).strip().splitlines():
            subprocess.run([vxctl, "-s", f"{way}://127.0.0.1:{port}", "--timeout", "500", *command.split()],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        subprocess.run([vxctl, "-s", f"{way}://127.0.0.1:{modbus}", "modbus", "VSLS", "get", "5", "1", "3"], stdout=subprocess.DEVNULL)


def request(major, minor, payload=b""):
    payload = payload.ljust(-(-len(payload) // 4) * 4, b"\0")
    body = bytes([0, 0, 0, 0, 0, 0, 7, 0, major, minor, len(payload) // 4, 0]) + payload
    return b"\x55\xA7" + (sum(body) & 0xFFFF).to_bytes(2, "little") + body


def pieces():
    """A stream whose packets come in pieces and two at a time, one behind noise, one damaged."""
    with socket.create_connection(("127.0.0.1", int(port))) as line:
        line.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        ping = request(3, 1)
        read = request(1, 8, (1280).to_bytes(2, "little") + b"\1\0D:\\F\\WINDOW.BMP")
        damaged = read[:-6] + b"x" + read[-5:]
        for piece in ping[:5], ping[5:], ping + read[:20], read[20:], b"\xff\0noise" + ping, damaged:
            line.sendall(piece)
            time.sleep(0.05)
        line.recv(1 << 16)
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as line:
        for datagram in b"\1\2\3" + ping, ping[:10], damaged:
            line.sendto(datagram, ("127.0.0.1", int(port)))


run()
pieces()
