"""The demo host with the service of a real panel, on a machine that is none."""

import os
import pathlib
import unittest

import hostprocess
from hostprocess import run


class RealPanel(unittest.TestCase):
    def test_tour_only_looks(self):
        """Whoever takes this service along does not have the machine set by a walk."""
        with hostprocess.temporary_directory() as directory:
            backlight = pathlib.Path(directory, "sys/class/backlight/panel")
            backlight.mkdir(parents=True)
            for name in ("brightness", "max_brightness"):
                (backlight / name).write_bytes(b"255\n")
            service = os.environ["PANEL_LINUX_SERVICE"]
            code, _, err = run("--tour", pathlib.Path(directory, "album"), "--size", "800x480", LD_LIBRARY_PATH=service,
                               PANELSETTINGS_ROOT=directory, DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nowhere/bus")
            self.assertEqual(code, 1)  # it has no adapters
            self.assertIn("panelsettings.linux.readonly: would", err)
            self.assertEqual((backlight / "brightness").read_bytes(), b"255\n")
            self.assertEqual(sorted(os.listdir(directory)), ["album", "sys"])


if __name__ == "__main__":
    hostprocess.main()
