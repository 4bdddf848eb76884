"""Opens the settings and keeps a picture of them: open_settings.py ROOT PICTURE COMMAND...

COMMAND starts the demo host, to which PICTURE is the name of a file that lies below ROOT. The host saves what it shows:
first the operator's page, then what there is with --open, which has to be something else and more than an empty glass.
That is kept as PNG.
"""

import collections
import pathlib
import struct
import subprocess
import sys
import zlib


def is_blank(pixels):
    """Whether nothing is painted: letters and icons alone bring dozens of colours, each at few places."""
    colours = collections.Counter(pixels)
    return len(colours) < 50 or colours.most_common(1)[0][1] > 0.85 * len(pixels)


def is_like(one, other):
    """Whether two pictures are of the same page; what runs on it, such as a clock, may have gone on."""
    changed = sum(before != after for before, after in zip(one, other))
    return changed < 0.5 * len(one)


class Picture:
    """What the host shows, as it saves it where there is nothing but a head before the bare bytes."""

    def __init__(self, root, name, command):
        file = pathlib.Path(root, name.lstrip("/"))
        done = subprocess.run(
            [*command, "--picture", name], stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, encoding="utf-8", check=False
        )
        if done.returncode != 0 or done.stderr:
            raise AssertionError(f"exit code {done.returncode}: {done.stderr}")
        kind, size, depth, self.bare = file.read_bytes().split(b"\n", 3)
        file.unlink()
        assert (kind, depth) == (b"P6", b"255"), (kind, depth)
        self.width, self.height = map(int, size.split())

    def pixels(self):
        return list(zip(self.bare[0::3], self.bare[1::3], self.bare[2::3]))

    def png(self):
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        stride = 3 * self.width
        lines = b"".join(b"\0" + self.bare[row * stride : (row + 1) * stride] for row in range(self.height))
        head = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        chunks = chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b"")
        return b"\x89PNG\r\n\x1a\n" + chunks


def main():
    root, name, *command = sys.argv[1:]
    bare_name = name + ".ppm"
    page = Picture(root, bare_name, command).pixels()
    if is_blank(page):
        print("open_settings: the operator's page is empty", file=sys.stderr)
        return 1
    settings = Picture(root, bare_name, [*command, "--open"])
    if is_blank(settings.pixels()) or is_like(settings.pixels(), page):
        print("open_settings: the settings are not shown", file=sys.stderr)
        return 1
    pathlib.Path(root, name.lstrip("/")).write_bytes(settings.png())
    return 0


if __name__ == "__main__":
    sys.exit(main())
