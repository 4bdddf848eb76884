"""A viewer of our own, for what the demo host serves over VNC."""

import re
import socket
import struct


def port_of(process):
    """Waits until a host with --vnc works; the port on which it does."""
    line = process.stdout.readline()
    found = re.search(r"127\.0\.0\.1:(\d+)", line)
    if not found:
        raise AssertionError(f"no port in {line!r}")
    return int(found.group(1))


class Viewer:
    """Speaks the protocol as told in RFC 6143."""

    def __init__(self, port, version=b"RFB 003.008\n"):
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=20)
        self.version = version

    def close(self):
        self.socket.close()

    def read(self, size):
        data = b""
        while len(data) < size:
            more = self.socket.recv(size - len(data))
            if not more:
                raise ConnectionError("the server closed the connection")
            data += more
        return data

    def greet(self):
        assert self.read(12) == b"RFB 003.008\n"
        self.socket.sendall(self.version)
        if self.version >= b"RFB 003.007\n":
            assert self.read(2) == b"\x01\x01"
            self.socket.sendall(b"\x01")
            if self.version >= b"RFB 003.008\n":
                assert self.read(4) == bytes(4)
        else:
            assert self.read(4) == bytes([0, 0, 0, 1])
        self.socket.sendall(b"\x01")
        self.size = struct.unpack(">HH", self.read(4))
        self.format = self.read(16)
        self.name = self.read(struct.unpack(">I", self.read(4))[0]).decode()
        self.pixel_size = self.format[0] // 8
        self.glass = bytearray(self.size[0] * self.size[1] * self.pixel_size)

    def use_format(self, bits, depth, big_endian, maxima, shifts):
        wire = struct.pack(">BBBB3H3B3x", bits, depth, big_endian, 1, *maxima, *shifts)
        self.socket.sendall(b"\x00" + bytes(3) + wire)
        self.pixel_size = bits // 8
        self.glass = bytearray(self.size[0] * self.size[1] * self.pixel_size)

    def update(self, incremental):
        self.socket.sendall(struct.pack(">BBHHHH", 3, incremental, 0, 0, *self.size))
        kind, _, count = struct.unpack(">BBH", self.read(4))
        assert kind == 0
        for _ in range(count):
            x, y, width, height, encoding = struct.unpack(">HHHHI", self.read(12))
            assert encoding == 0
            for row in range(y, y + height):
                start = (row * self.size[0] + x) * self.pixel_size
                line = self.read(width * self.pixel_size)
                self.glass[start : start + len(line)] = line

    def pixel(self, x, y):
        start = (y * self.size[0] + x) * self.pixel_size
        return bytes(self.glass[start : start + self.pixel_size])

    def point(self, x, y, buttons):
        self.socket.sendall(struct.pack(">BBHH", 5, buttons, x, y))

    def click(self, x, y):
        for buttons in (0, 1, 0):
            self.point(x, y, buttons)

    def press_key(self, symbol):
        for down in (1, 0):
            self.socket.sendall(struct.pack(">BBxxI", 4, down, symbol))

    def wait_until(self, condition):
        """The panel paints when something changes; at the latest the gauges do, each second."""
        for _ in range(20):
            if condition():
                return True
            self.update(True)
        return False
