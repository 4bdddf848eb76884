"""The host says clearly what is wrong with what it was asked for, and fails."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

import hostprocess
from hostprocess import EMULATOR, HOST, PLUGIN, SERVICE, run


def needed_by(file):
    """The names of the libraries that a program or library asks the dynamic linker for."""
    listing = subprocess.run([os.environ["READELF"], "-d", file], check=True, capture_output=True, text=True).stdout
    return set(re.findall(r"\(NEEDED\)[^[]*\[(.*)\]", listing))


class Options(unittest.TestCase):
    def assert_refused(self, options, *said):
        code, out, err = run(*options)
        self.assertEqual(code, 2, err)
        self.assertEqual(out, "")
        self.assertEqual(err.count("\n"), 1, err)
        for words in said:
            self.assertIn(words, err)

    def test_unknown(self):
        self.assert_refused(["--colour", "red"], "--colour", "no such option")
        self.assert_refused(["general"], "general", "no such option")
        self.assert_refused(["-platform", "xcb"], "-platform", "no such option")
        self.assert_refused([""], "no such option")

    def test_sizes(self):
        for size in ("1024", "x", "1024x", "0x0", "-1x600", "100x100", "1024x600x2", "99999x600", "1024x600 "):
            self.assert_refused(["--size", size], "--size", "WIDTHxHEIGHT")

    def test_values_missing(self):
        for option in ("--size", "--library", "--scenario", "--as", "--language", "--tour", "--picture", "--hide-cards",
                       "--theme"):
            self.assert_refused([option], option, "a value is missing")
            self.assert_refused([option, "--open"], option, "a value is missing")
            self.assert_refused([option + "="], option, "a value is missing")

    def test_values_too_many(self):
        self.assert_refused(["--help=please"], "--help", "takes no value")
        self.assert_refused(["--journal=please"], "--journal", "takes no value")
        self.assert_refused(["--strict=please"], "--strict", "takes no value")

    def test_theme(self):
        for theme in ("green", "accent", "accent=", "=green", "accent=#007A5A,", "accent=#007A5A,text", ","):
            self.assert_refused(["--theme", theme], "--theme", "NAME=VALUE")

    def test_language(self):
        self.assert_refused(["--language", "fr"], "--language", "fr")

    def test_what_does_not_go_together(self):
        self.assert_refused(["--tour", "somewhere", "--picture", "page.png"], "--tour", "--picture")
        self.assert_refused(["--tour", "somewhere", "--open"], "--tour")

    def test_help(self):
        code, out, err = run("--help")
        self.assertEqual((code, err), (0, ""))
        for option in ("--size", "--scenario", "--as", "--language", "--library", "--open", "--tour", "--picture",
                       "--strict", "--hide-cards", "--compact-landscape", "--theme"):
            self.assertIn(option, out)

    def test_no_display(self):
        code, _, err = run()
        self.assertEqual(code, 1)
        self.assertIn("no display", err)


class Libraries(unittest.TestCase):
    def assert_no_screen(self, library, said):
        code, _, err = run("--library", library, QT_QPA_PLATFORM="offscreen")
        self.assertEqual(code, 1, err)
        self.assertIn("no settings screen", err)
        self.assertIn(said, err)

    def test_missing(self):
        self.assert_no_screen("/nowhere/libpanelsettings.so", "no file /nowhere/libpanelsettings.so")

    def test_directory(self):
        self.assert_no_screen(PLUGIN.parent, "no file")

    def test_no_library(self):
        with hostprocess.temporary_directory() as directory:
            for name, content in (("text.so", b"not a library"), ("empty.so", b""), ("cut.so", b"\x7fELF\x02\x01\x01")):
                file = pathlib.Path(directory, name)
                file.write_bytes(content)
                self.assert_no_screen(file, name)

    def test_library_without_plugin(self):
        self.assert_no_screen(SERVICE, "no plug-in")

    def test_name_that_the_system_does_not_know(self):
        self.assert_no_screen("libnosuchscreen.so", "libnosuchscreen.so")

    def test_mere_name_is_no_file_of_the_current_directory(self):
        with hostprocess.temporary_directory() as directory:
            shutil.copy(SERVICE, pathlib.Path(directory, "planted.so"))
            code, _, err = run("--library", "planted.so", cwd=directory, QT_QPA_PLATFORM="offscreen")
            self.assertEqual(code, 1, err)
            self.assertIn("write ./planted.so", err)
            # It could have been loaded: with a path it is.
            _, _, err = run("--library", "./planted.so", cwd=directory, QT_QPA_PLATFORM="offscreen")
            self.assertIn("no plug-in", err)

    def test_all_in_one_directory(self):
        with hostprocess.temporary_directory() as directory:
            for file in (HOST, PLUGIN, SERVICE, PLUGIN.parent / "libqvkbpluginloader.so"):
                shutil.copy(file, directory)
            album = pathlib.Path(directory, "libpanelsettings.so", "album")
            done = subprocess.run(
                [*EMULATOR, pathlib.Path(directory, HOST.name), "--tour", album],
                env=hostprocess.environment(),
                stdin=subprocess.DEVNULL,
                capture_output=True,
                encoding="utf-8",
                timeout=60,
                check=False,
            )
            # All of it was loaded.
            self.assertIn("cannot be made", done.stderr)

    def test_nothing_comes_from_the_current_directory(self):
        names = {"libpanelsettings.so", "libqvkbpluginloader.so"} | needed_by(HOST) | needed_by(PLUGIN)
        self.assertIn("libQt5Network.so.5", names)
        self.assertIn("libhmisystemset.so", names)
        with hostprocess.temporary_directory() as directory:
            for name in names:
                pathlib.Path(directory, name).write_bytes(b"planted")
            # The screen is loaded and built before the tour finds no place for its pictures.
            _, _, err = run("--tour", "libpanelsettings.so/album", cwd=directory)
            self.assertIn("cannot be made", err)


class Scenarios(unittest.TestCase):
    def assert_scenario_refused(self, file, *said):
        code, _, err = run("--scenario", file, QT_QPA_PLATFORM="offscreen")
        self.assertEqual(code, 2, err)
        for words in said:
            self.assertIn(words, err)

    def test_missing(self):
        self.assert_scenario_refused("/nowhere/panel.json", "panel.json")

    def test_bad(self):
        with hostprocess.temporary_directory() as directory:
            file = pathlib.Path(directory, "panel.json")
            file.write_text('{\n  "brigth": 3\n}\n', encoding="utf-8")
            self.assert_scenario_refused(file, "panel.json:2", "brigth")
            file.write_text("{", encoding="utf-8")
            self.assert_scenario_refused(file, "panel.json")
            file.write_text("[]", encoding="utf-8")
            self.assert_scenario_refused(file, "panel.json")


if __name__ == "__main__":
    hostprocess.main()
