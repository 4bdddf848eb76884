"""The panel over VNC: on the loopback address alone, seen and operated by a viewer of our own."""

import contextlib
import pathlib
import re
import struct
import unittest

import hostprocess
from vncviewer import Viewer, port_of

WIDTH, HEIGHT = 640, 480
# Of the panel's frame, to the right of the glass.
FRAME = 64


@contextlib.contextmanager
def host(*options):
    with hostprocess.start("--size", f"{WIDTH}x{HEIGHT}", "--vnc", "0", *options) as process:
        try:
            yield process, port_of(process)
        finally:
            process.terminate()
            process.communicate()


def listeners(process):
    """All TCP sockets on which the process listens, as (address in hexadecimal, port)."""
    inodes = set()
    for entry in pathlib.Path(f"/proc/{process.pid}/fd").iterdir():
        with contextlib.suppress(OSError):
            found = re.match(r"socket:\[(\d+)\]", str(entry.readlink()))
            if found:
                inodes.add(found.group(1))
    result = []
    for table in ("tcp", "tcp6"):
        file = pathlib.Path(f"/proc/{process.pid}/net", table)
        for line in file.read_text().splitlines()[1:] if file.exists() else []:
            fields = line.split()
            if fields[3] == "0A" and fields[9] in inodes:
                address, port = fields[1].split(":")
                result.append((address, int(port, 16)))
    return result


class Vnc(unittest.TestCase):
    def setUp(self):
        stack = contextlib.ExitStack()
        self.addCleanup(stack.close)
        self.process, self.port = stack.enter_context(host())

    def viewer(self, **options):
        viewer = Viewer(self.port, **options)
        self.addCleanup(viewer.close)
        return viewer

    def greeted(self, **options):
        viewer = self.viewer(**options)
        viewer.greet()
        return viewer

    def test_listens_on_loopback_alone(self):
        self.assertEqual(listeners(self.process), [("0100007F", self.port)])

    def test_port_taken(self):
        code, _, err = hostprocess.run("--vnc", str(self.port))
        self.assertEqual(code, 1)
        self.assertIn(f"port {self.port}", err)
        self.assertIn("--vnc PORT", err)

    def test_shows_and_is_operated(self):
        viewer = self.greeted()
        self.assertEqual(viewer.size, (WIDTH + FRAME, HEIGHT))
        self.assertEqual(viewer.name, "Operator panel")
        viewer.update(False)
        corner = viewer.pixel(2, HEIGHT - 2)
        self.assertEqual(corner[:3], bytes([0x28, 0x21, 0x1B]))

        # The Settings button is in the lower right corner; Esc leads back.
        viewer.click(WIDTH - 60, HEIGHT - 35)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) != corner))
        viewer.press_key(0xFF1B)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) == corner))

    def test_key_beside_the_glass(self):
        viewer = self.greeted()
        viewer.update(False)
        corner = viewer.pixel(2, HEIGHT - 2)
        frame = viewer.pixel(WIDTH + 2, HEIGHT - 2)
        for _ in range(2):
            viewer.click(WIDTH + FRAME // 2, HEIGHT // 2)
            self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) != corner))
            # The settings are on the glass, and the frame is where it was.
            self.assertEqual(viewer.pixel(WIDTH + 2, HEIGHT - 2), frame)
            viewer.click(WIDTH + FRAME // 2, HEIGHT // 2)
            self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) == corner))

    def test_begins_with_the_settings(self):
        viewer = self.greeted()
        viewer.update(False)
        with host("--open") as (_, port):
            other = Viewer(port)
            self.addCleanup(other.close)
            other.greet()
            other.update(False)
            self.assertNotEqual(other.pixel(2, HEIGHT - 2), viewer.pixel(2, HEIGHT - 2))
            # Left by the key, there is the operator's page.
            other.click(WIDTH + FRAME // 2, HEIGHT // 2)
            self.assertTrue(other.wait_until(lambda: other.pixel(2, HEIGHT - 2) == viewer.pixel(2, HEIGHT - 2)))

    def test_key_works_while_a_dialog_is_open(self):
        with host("--open", "--size", "1024x600") as (_, port):
            viewer = Viewer(port)
            self.addCleanup(viewer.close)
            viewer.greet()
            viewer.update(False)
            corner, frame = viewer.pixel(1020, 597), viewer.pixel(1026, 597)
            # The time: its editor shades the glass, and the glass alone.
            viewer.click(960, 300)
            self.assertTrue(viewer.wait_until(lambda: viewer.pixel(1020, 597) != corner))
            self.assertEqual(viewer.pixel(1026, 597), frame)
            viewer.click(1024 + FRAME // 2, 300)
            self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, 597)[:3] == bytes([0x28, 0x21, 0x1B])))

    def test_formats(self):
        viewer = self.greeted()
        # The corner of the page is #1B2128.
        for bits, depth, big, maxima, shifts, pixel in (
            (32, 24, 1, (255, 255, 255), (16, 8, 0), b"\x00\x1b\x21\x28"),
            (32, 24, 0, (255, 255, 255), (0, 8, 16), b"\x1b\x21\x28\x00"),
            (16, 16, 0, (31, 63, 31), (11, 5, 0), struct.pack("<H", 3 << 11 | 8 << 5 | 5)),
            (16, 16, 1, (31, 63, 31), (11, 5, 0), struct.pack(">H", 3 << 11 | 8 << 5 | 5)),
            (8, 8, 0, (7, 7, 3), (0, 3, 6), bytes([1 | 1 << 3 | 0 << 6])),
        ):
            viewer.use_format(bits, depth, big, maxima, shifts)
            viewer.update(False)
            self.assertEqual(viewer.pixel(2, HEIGHT - 2), pixel, bits)

    def test_older_viewers(self):
        for version in (b"RFB 003.003\n", b"RFB 003.007\n"):
            viewer = self.greeted(version=version)
            viewer.update(False)
            self.assertEqual(viewer.pixel(2, HEIGHT - 2)[:3], bytes([0x28, 0x21, 0x1B]))

    def test_two_viewers(self):
        first, second = self.greeted(), self.greeted()
        first.update(False)
        second.update(False)
        self.assertEqual(first.pixel(2, HEIGHT - 2), second.pixel(2, HEIGHT - 2))

    def test_nonsense_is_sent_away(self):
        formats = struct.pack(">BBBB3H3B3x", 32, 24, 0, 1, 255, 255, 255, 250, 8, 0)
        no_colour = struct.pack(">BBBB3H3B3x", 8, 8, 0, 0, 0, 0, 0, 0, 0, 0)
        for greeted, words in (
            (False, b"GET / HTTP/1.1\r\nHost: localhost\r\n\r\n"),
            (False, b"RFB 004.000\n"),
            (False, b"\x00" * 5),
            (True, b"\xff"),
            (True, b"\x00" + bytes(3) + formats),
            (True, b"\x00" + bytes(3) + no_colour),
        ):
            viewer = self.greeted() if greeted else self.viewer()
            viewer.socket.sendall(words)
            with self.assertRaises(ConnectionError, msg=words):
                while True:
                    viewer.read(1)
        self.greeted().update(False)

    def test_odd_but_allowed(self):
        viewer = self.greeted()
        encodings = struct.pack(">BxH", 2, 65535) + bytes(4 * 65535)
        cut_text = struct.pack(">BxxxI", 6, 300000) + bytes(300000)
        viewer.socket.sendall(encodings + cut_text)
        viewer.press_key(0xFE03)  # a symbol that means nothing here
        viewer.point(60000, 60000, 255)
        viewer.point(60000, 60000, 0)
        for byte in struct.pack(">BBHHHH", 3, 0, 0, 0, 0, 0)[:-1]:
            viewer.socket.sendall(bytes([byte]))
        viewer.socket.sendall(b"\x00")
        self.assertEqual(viewer.read(1), b"\x00")

    def test_viewer_that_goes_in_the_middle(self):
        for steps in range(3):
            viewer = self.viewer()
            if steps > 0:
                viewer.greet()
            if steps > 1:
                viewer.point(WIDTH // 2, HEIGHT // 2, 1)
                viewer.socket.sendall(struct.pack(">BBHHHH", 3, 0, 0, 0, WIDTH + FRAME, HEIGHT))
            viewer.close()
        self.greeted().update(False)
        self.assertIsNone(self.process.poll())


if __name__ == "__main__":
    hostprocess.main()
