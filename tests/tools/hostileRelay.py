# Stands between a host and a sign on loopback and makes the sign's replies hostile: hostileRelay.py PORT MODE, where
# PORT is the sign's and MODE one of
#   escapes  words become orders to a terminal, of the same length
#   short    a piece of a file has 80 bytes, whatever the sign announced
#   growing  the first announcement of a file is a byte short
#   lost     nothing tells that a window's packets have come
# Prints its own port as "udp 127.0.0.1:PORT", as a sign does.
import re
import select
import socket
import sys

HEADER = 16

# ESC, CSI as a byte and as a character, the direction of writing turned in three ways, BEL and DEL, the end of a line.
ORDERS = (b"\x1b[2J", b"\x9bK", b"\xc2\x9bK", b"\xe2\x80\xae", b"\xe2\x81\xa6", b"\xd8\x9c", b"\x07\x7f", b"\r\n")


def poison(reply):
    """In turn another order for each run of letters that is long enough to be a word; of XML, which stays XML, for each
    text between two tags."""
    at = reply.find(b"<?xml", HEADER)
    words = re.compile(rb">([^\n<][^<]*)" if at >= 0 else rb"([A-Za-z]{3,})")
    for number, match in enumerate(list(words.finditer(reply, max(at, HEADER)))):
        begin, end = match.span(1)
        order = ORDERS[number % len(ORDERS)]
        reply[begin:end] = (order * (end - begin))[:end - begin]
    return reply


def is_piece(reply):
    return reply[12] == 1 and reply[13] in (2, 17)


def shorten(reply):
    if is_piece(reply) and reply[4] | reply[5] << 8 > 80:
        del reply[HEADER + 4 * reply[14] + 80:]
        reply[4:6] = (80, 0)
    return reply


announced = []


def begin_to_grow(reply):
    size_at = 20  # in the payload of 8 bytes that vxsim gives
    if is_piece(reply) and len(reply) > size_at and not announced:
        announced.append(True)
        reply[size_at] -= 1
    return reply


def lose(reply):
    return b"" if reply[12] == 2 and reply[13] == 13 else reply


def checksum(reply):
    if reply[1] == 0xA8:
        return sum(reply[4:]) & 0xFFFF
    crc = 0xFFFF
    for byte in reply[4:]:
        crc ^= byte
        for _ in range(8):
            crc = crc >> 1 ^ 0x8408 if crc & 1 else crc >> 1
    crc ^= 0xFFFF
    return crc >> 8 | (crc & 0xFF) << 8


def main(port, mode):
    change = {"escapes": poison, "short": shorten, "growing": begin_to_grow, "lost": lose}[mode]
    hosts = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    hosts.bind(("127.0.0.1", 0))
    sign = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    sign.connect(("127.0.0.1", port))
    print(f"udp 127.0.0.1:{hosts.getsockname()[1]}", flush=True)
    host = None  # the one that asked last
    while True:
        for ready in select.select([hosts, sign], [], [])[0]:
            if ready is hosts:
                packet, host = hosts.recvfrom(65536)
                sign.send(packet)
                continue
            reply = bytearray(sign.recv(65536))
            if len(reply) >= HEADER:
                reply = change(reply)
            if len(reply) >= HEADER:
                reply[2:4] = checksum(reply).to_bytes(2, "little")
                hosts.sendto(reply, host)


main(int(sys.argv[1]), sys.argv[2])
