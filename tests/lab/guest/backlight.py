"""What the firmware says of the backlight."""

import pathlib


class Backlight:
    def level(self):
        """As the firmware says when it is asked, not as the kernel remembers."""
        return read("actual_brightness")

    def highest(self):
        return read("max_brightness")


def read(name):
    for place in pathlib.Path("/sys/class/backlight").iterdir():
        return (place / name).read_text(encoding="utf-8").strip()
    raise FileNotFoundError("there is no backlight")
