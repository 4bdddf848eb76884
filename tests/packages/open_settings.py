"""Opens the settings and keeps a picture of them: open_settings.py PICTURE COMMAND...

COMMAND starts the demo host. What it shows is looked at over VNC, as a person would: first the operator's page, then what
there is with --open, which has to be something else and more than an empty glass. That is saved as PNG.
"""

import collections
import contextlib
import pathlib
import struct
import subprocess
import sys
import zlib

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "host"))

from vncviewer import Viewer, port_of  # pylint: disable=wrong-import-position


def pixels(glass):
    return memoryview(glass).cast("I")


def is_blank(glass):
    """Whether nothing is painted: letters and icons alone bring dozens of colours, each at few places."""
    colours = collections.Counter(pixels(glass))
    return len(colours) < 50 or colours.most_common(1)[0][1] > 0.85 * len(pixels(glass))


def is_like(one, other):
    """Whether two pictures are of the same page; what runs on it, such as a clock, may have gone on."""
    changed = sum(before != after for before, after in zip(pixels(one), pixels(other)))
    return changed < 0.5 * len(pixels(one))


def look(command, is_there):
    """Starts the host and waits until what is wanted is on its glass; the size and the pixels of that."""
    with subprocess.Popen(
        [*command, "--vnc", "0"],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
        encoding="utf-8",
    ) as host:
        try:
            with contextlib.closing(Viewer(port_of(host))) as viewer:
                viewer.greet()
                # Red, green, blue and nothing, a byte each.
                viewer.use_format(32, 24, 0, (255, 255, 255), (0, 8, 16))
                viewer.update(False)
                seen = viewer.wait_until(lambda: is_there(viewer.glass))
                return (viewer.size, viewer.glass) if seen else None
        finally:
            host.terminate()
            complaints = host.stderr.read()
            if complaints:
                raise AssertionError(complaints)


def png(size, glass):
    width, height = size
    lines = bytearray((1 + 3 * width) * height)
    for row in range(height):
        line = bytearray(3 * width)
        for colour in range(3):
            line[colour::3] = glass[4 * width * row + colour : 4 * width * (row + 1) : 4]
        start = row * (1 + 3 * width)
        lines[start + 1 : start + 1 + 3 * width] = line

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    head = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b"")


def main():
    picture, *command = sys.argv[1:]
    operators = look(command, lambda glass: not is_blank(glass))
    if not operators:
        print("open_settings: the operator's page is empty", file=sys.stderr)
        return 1
    settings = look([*command, "--open"], lambda glass: not is_blank(glass) and not is_like(glass, operators[1]))
    if not settings:
        print("open_settings: the settings are not shown", file=sys.stderr)
        return 1
    pathlib.Path(picture).write_bytes(png(*settings))
    return 0


if __name__ == "__main__":
    sys.exit(main())
