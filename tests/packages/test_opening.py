"""What the clean root is judged by: an installed host that shows the settings passes, and no other one."""

import pathlib
import subprocess
import sys
import unittest

import installation
import open_settings

SCRIPT = pathlib.Path(__file__).with_name("open_settings.py")
WIDTH, HEIGHT = 640, 480
# Of the panel's frame, beside the glass.
FRAME = 64
HOST = [installation.PREFIX / "bin/panel-host", "--size", f"{WIDTH}x{HEIGHT}"]


class Opening(unittest.TestCase):
    def run_with(self, *command):
        """Exit code, complaints, and the picture, which is empty when there is none."""
        with installation.temporary_directory() as directory:
            picture = pathlib.Path(directory, "open.png")
            done = subprocess.run(
                [sys.executable, SCRIPT, "/", picture, *command],
                capture_output=True,
                text=True,
                check=False,
                env=installation.bare_environment(PYTHONDONTWRITEBYTECODE="1"),
            )
            return done.returncode, done.stderr, picture.read_bytes() if picture.exists() else b""

    def test_settings(self):
        code, complaints, picture = self.run_with(*HOST)
        self.assertEqual((code, complaints), (0, ""))
        self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(int.from_bytes(picture[16:20], "big"), WIDTH + FRAME)
        self.assertEqual(int.from_bytes(picture[20:24], "big"), HEIGHT)

    def test_operators_page_alone(self):
        # A host that is deaf to --open, and to all else that is asked of it.
        deaf = 'for last; do :; done; exec "$0" "$1" "$2" --picture "$last"'
        code, complaints, picture = self.run_with("sh", "-c", deaf, *HOST)
        self.assertEqual(code, 1)
        self.assertIn("the settings are not shown", complaints)
        self.assertEqual(picture, b"")

    def test_no_screen(self):
        code, complaints, picture = self.run_with(*HOST, "--library", "/there/is/none.so")
        self.assertNotEqual(code, 0)
        self.assertIn("/there/is/none.so", complaints)
        self.assertEqual(picture, b"")

    def test_empty_glass(self):
        white, size = (255, 255, 255), 100 * 100
        self.assertTrue(open_settings.is_blank([white] * size))
        # A key beside it does not make it less empty.
        key = [(grey, grey, grey) for grey in range(200)] * 5
        self.assertTrue(open_settings.is_blank([white] * (size - 1000) + key))
        # Nor do two areas.
        self.assertTrue(open_settings.is_blank([white] * (size // 2) + [(0, 0, 0)] * (size // 2)))


if __name__ == "__main__":
    installation.main()
