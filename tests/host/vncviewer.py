"""A viewer of our own, for what is served over VNC."""

import re
import socket
import struct

NO_PASSWORD = 1
PASSWORD = 2


def port_of(process):
    """Waits until a process that serves VNC says so; the port on which it does."""
    line = process.stdout.readline()
    found = re.search(r"127\.0\.0\.1:(\d+)", line)
    if not found:
        raise AssertionError(f"no port in {line!r}: {process.stderr.read()}")
    return int(found.group(1))


class Viewer:
    """Speaks the protocol as told in RFC 6143."""

    def __init__(self, port):
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=20)

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

    def securities(self):
        """What the server offers to those who say the version that it says."""
        assert self.read(12) == b"RFB 003.008\n"
        self.socket.sendall(b"RFB 003.008\n")
        return set(self.read(self.read(1)[0]))

    def answer_challenge(self, response):
        """Whether the password is right of which this is said to come."""
        self.socket.sendall(bytes([PASSWORD]))
        self.read(16)
        self.socket.sendall(response)
        return self.read(4) == bytes(4)

    def greet(self):
        assert self.securities() == {NO_PASSWORD}
        self.socket.sendall(bytes([NO_PASSWORD]))
        assert self.read(4) == bytes(4)
        others_shall_go = b"\x00"
        self.socket.sendall(others_shall_go)
        self.size = struct.unpack(">HH", self.read(4))
        self.read(16)
        self.name = self.read(struct.unpack(">I", self.read(4))[0]).decode()
        # Blue, green, red and nothing, a byte each.
        self.socket.sendall(b"\x00" + bytes(3) + struct.pack(">BBBB3H3B3x", 32, 24, 0, 1, 255, 255, 255, 16, 8, 0))
        self.glass = bytearray(self.size[0] * self.size[1] * 4)
        self.update(False)

    def update(self, incremental):
        self.socket.sendall(struct.pack(">BBHHHH", 3, incremental, 0, 0, *self.size))
        kind, _, count = struct.unpack(">BBH", self.read(4))
        assert kind == 0
        for _ in range(count):
            x, y, width, height, encoding = struct.unpack(">HHHHI", self.read(12))
            assert encoding == 0
            for row in range(y, y + height):
                start = (row * self.size[0] + x) * 4
                line = self.read(width * 4)
                self.glass[start : start + len(line)] = line

    def pixel(self, x, y):
        start = (y * self.size[0] + x) * 4
        return bytes(self.glass[start : start + 3])

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
        for _ in range(40):
            if condition():
                return True
            self.update(True)
        return False
