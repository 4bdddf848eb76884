#!/usr/bin/env python3
"""What compare_pictures finds: test_comparison.py COMPARE_PICTURES"""

import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

COMPARE_PICTURES = sys.argv.pop(1)
SIZE = 64
GREY = 100


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def picture(changed=0, by=0, size=SIZE):
    """A grey square as PNG, the first pixels of whose diagonal are brighter."""
    rows = [bytearray([GREY] * size) for _ in range(size)]
    for place in range(changed):
        rows[place][place] += by
    head = struct.pack(">IIBBBBB", size, size, 8, 0, 0, 0, 0)
    pixels = zlib.compress(b"".join(b"\0" + row for row in rows))
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", pixels) + chunk(b"IEND", b"")


class Comparison(unittest.TestCase):
    def compare(self, expected, found, *turning):
        with tempfile.TemporaryDirectory() as directory:
            for name, album in (("expected", expected), ("found", found)):
                pathlib.Path(directory, name).mkdir()
                for file, contents in album.items():
                    pathlib.Path(directory, name, file).write_bytes(contents)
            command = [COMPARE_PICTURES, f"{directory}/expected", f"{directory}/found", "4", *turning]
            done = subprocess.run(command, capture_output=True, text=True, check=False)
        return done.returncode, done.stdout

    def compare_one(self, found, *turning):
        return self.compare({"01-page.png": picture()}, {"01-page.png": found}, *turning)

    def test_alike(self):
        self.assertEqual(self.compare_one(picture()), (0, "1 pictures, 0 of them differ\n"))
        self.assertEqual(self.compare_one(picture(64, by=4))[0], 0)

    def test_different(self):
        code, said = self.compare_one(picture(1, by=5))
        self.assertEqual(code, 1)
        self.assertIn("01-page.png: differs at 0,0, 1 by 1 pixels", said)

    def test_turning(self):
        self.assertEqual(self.compare_one(picture(32, by=100), "page")[0], 0)
        self.assertEqual(self.compare_one(picture(33, by=100), "page")[0], 1)
        self.assertEqual(self.compare_one(picture(32, by=100), "other")[0], 1)

    def test_other_pictures(self):
        album = {"01-page.png": picture()}
        self.assertEqual(self.compare({}, {})[0], 1)
        self.assertEqual(self.compare(album, {})[0], 1)
        self.assertEqual(self.compare(album, {**album, "02-page.png": picture()})[0], 1)
        self.assertEqual(self.compare_one(picture(size=32))[0], 1)
        self.assertEqual(self.compare_one(b"no picture")[0], 1)


if __name__ == "__main__":
    unittest.main()
