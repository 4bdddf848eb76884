"""A picture of what the host shows first, without a display."""

import pathlib
import unittest

import hostprocess
from hostprocess import run

WIDTH, HEIGHT = 640, 480
# Of the panel's frame, to the right of the glass.
FRAME = 64


class Picture(unittest.TestCase):
    def take(self, *options):
        """The pixels, three bytes each."""
        with hostprocess.temporary_directory() as directory:
            file = pathlib.Path(directory, "page.ppm")
            self.assertEqual(run("--size", f"{WIDTH}x{HEIGHT}", "--picture", file, *options), (0, "", ""))
            head, pixels = file.read_bytes().split(b"\n255\n", 1)
        self.assertEqual(head.split(), [b"P6", str(WIDTH + FRAME).encode(), str(HEIGHT).encode()])
        return pixels

    def test_of_the_panel(self):
        page, settings = self.take(), self.take("--open")
        lower_left = 3 * (HEIGHT - 2) * (WIDTH + FRAME)
        self.assertEqual(page[lower_left : lower_left + 3], bytes([0x1B, 0x21, 0x28]))
        self.assertNotEqual(settings[lower_left : lower_left + 3], bytes([0x1B, 0x21, 0x28]))
        # The frame is painted, with its key, and is the same.
        frames = [[pixels[3 * (row * (WIDTH + FRAME) + WIDTH) : 3 * (row + 1) * (WIDTH + FRAME)] for row in range(HEIGHT)]
                  for pixels in (page, settings)]
        self.assertEqual(*frames)
        self.assertGreater(len(set(frames[0])), 10)

    def test_format_by_name(self):
        with hostprocess.temporary_directory() as directory:
            file = pathlib.Path(directory, "page.png")
            self.assertEqual(run("--picture", file), (0, "", ""))
            self.assertEqual(file.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")

    def test_that_cannot_be_saved(self):
        with hostprocess.temporary_directory() as directory:
            for name in ("page", "page.txt", "nowhere/page.png"):
                file = pathlib.Path(directory, name)
                code, said, complaints = run("--picture", file)
                self.assertEqual((code, said), (1, ""), name)
                self.assertRegex(complaints, rf"^panel-host: {file}: .+\n$")
                self.assertFalse(file.exists(), name)


if __name__ == "__main__":
    hostprocess.main()
