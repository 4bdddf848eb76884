"""The tour reaches every stop, and fails when it cannot."""

import pathlib
import re
import unittest

import hostprocess
from hostprocess import SCENARIOS, run


def size_of(picture):
    head = picture.read_bytes()[:24]
    if head[:8] != b"\x89PNG\r\n\x1a\n":
        return None
    return int.from_bytes(head[16:20], "big"), int.from_bytes(head[20:24], "big")


class Tour(unittest.TestCase):
    def walk(self, width, height, *options, has_wifi=True):
        with hostprocess.temporary_directory() as directory:
            album = pathlib.Path(directory, "new", "album")
            album.mkdir(parents=True)
            for name in ("98-old.png", "notes.png"):
                (album / name).write_bytes(b"")
            code, out, err = run("--size", f"{width}x{height}", "--tour", album, "--journal",
                                 "--scenario", SCENARIOS / "quick.json", *options)
            self.assertEqual(code, 0, err)
            self.assertEqual(err, "")
            (album / "notes.png").unlink()  # only the pictures of earlier tours went
            pictures = sorted(album.iterdir())
            self.assertIn(f"{len(pictures)} pictures", out)
            self.check_journal(out, "--strict" in options, has_wifi)
            for number, picture in enumerate(pictures, 1):
                self.assertRegex(picture.name, rf"^{number:02}-[a-z0-9-]+\.png$")
                self.assertEqual(size_of(picture), (width, height), picture.name)
            return [re.sub(r"^\d+-|\.png$", "", picture.name) for picture in pictures], {
                picture.name[3:-4]: picture.read_bytes() for picture in pictures
            }

    def check_journal(self, out, strict, has_wifi):
        lines = [line for line in out.splitlines() if re.match(r"\d\d:\d\d:\d\d\.\d{3} (->|<-) \w+\(.*\)$", line)]
        entries = [line.split(" ", 1)[1] for line in lines]
        languages = [entry for entry in entries if entry.startswith("-> setLanguage")]
        english, chinese = "-> setLanguage(ENGLISH)", "-> setLanguage(CHINESE)"
        if strict:
            # Recorded at the start, chosen elsewhere, and chosen from the list.
            self.assertEqual(entries[0], english)
            self.assertEqual(languages, [english, chinese, english])
        else:
            self.assertEqual(languages, [chinese, english, chinese, english])
        self.assertNotIn("-> reboot()", entries)
        self.assertEqual("-> scanWifi()" in entries, has_wifi)
        if not has_wifi:
            return
        self.assertTrue(any(entry.startswith("<- scanWifi(") for entry in entries), entries)
        # Passwords are typed on the way.
        self.assertIn("-> connectWifi(\"Maintenance\", ****)", entries)

    def check(self, names, pictures, *also):
        for name in ("general", "network", "language", "version"):
            self.assertIn(name, names)
            self.assertIn(name + "-zh", names)
            self.assertNotEqual(pictures[name], pictures[name + "-zh"], name)
        for name in also:
            self.assertIn(name, names)
        self.assertEqual(names[0], "operator")

    def test_wide(self):
        self.check(*self.walk(1024, 600, "--strict"))

    def test_narrow(self):
        self.check(*self.walk(480, 800, "--strict"), "menu", "back-to-menu")

    def test_options(self):
        names, pictures = self.walk(800, 480)
        self.check(names, pictures, "reboot-question", "reboot-question-zh", "language-to-chinese")
        self.assertNotEqual(pictures["reboot-question"], pictures["reboot-question-zh"])
        self.assertNotEqual(pictures["language"], pictures["language-to-chinese"])
        self.assertEqual(pictures["language"], pictures["language-to-english"])

    def test_compact(self):
        self.check(*self.walk(480, 272, "--compact-landscape"), "menu", "wifi-password-typed")

    def test_hidden_cards(self):
        """What is left is visited, and what is hidden is neither looked for nor asked about."""
        names, _ = self.walk(1024, 600, "--hide-cards", "buzzer,defaultAdapter,wifi,version", has_wifi=False)
        self.assertLessEqual({"general-dimmed", "general-clock-set", "network-lan1", "language-zh"}, set(names))
        self.assertFalse([name for name in names if re.match("general-buzzer|ping|wifi|version", name)])

    def test_hidden_pages(self):
        hidden = "brightness,time,buzzer,network,defaultAdapter,dns"
        for width, height in ((1024, 600), (480, 800)):
            names, _ = self.walk(width, height, "--hide-cards", hidden, has_wifi=False)
            self.assertLessEqual({"language", "version-zh", "reboot-question", "operator-at-last"}, set(names))
            self.assertFalse([name for name in names if re.match("general|network|wifi", name)])

    def test_directory_that_cannot_be_made(self):
        with hostprocess.temporary_directory() as directory:
            file = pathlib.Path(directory, "file")
            file.write_bytes(b"")
            code, _, err = run("--tour", file / "album")
            self.assertEqual(code, 1)
            self.assertIn("cannot be made", err)

    def test_item_that_is_not_there(self):
        # On a panel without adapters there is nothing on the Network page to tap.
        with hostprocess.temporary_directory() as directory:
            code, _, err = run("--tour", directory, "--scenario", SCENARIOS / "no-adapter.json")
            self.assertEqual(code, 1, err)
            self.assertRegex(err, r'tour: \d\d-network[a-z-]*: there is no "')
            # And what it takes.
            self.assertRegex(err, r"for a panel with LAN0.*, and if it has Wi-Fi, for .*: Maintenance")


if __name__ == "__main__":
    hostprocess.main()
