"""The command that builds and starts the host says what is wrong with its options before it builds anything."""

import os
import pathlib
import re
import subprocess
import unittest

import hostprocess
from hostprocess import SCENARIOS

RUN = SCENARIOS.parents[2] / "run"
BUILDS = 7

WRONG = (
    ["--colour", "red"],
    ["general"],
    [""],
    ["-platform", "xcb"],
    ["--size", "9x9"],
    ["--size=1024x600x2"],
    ["--size", "8193x600"],
    ["--size", "1024x600 "],
    ["--size"],
    ["--size", "--open"],
    ["--picture"],
    ["--scenario="],
    ["--as"],
    ["--library"],
    ["--tour", ""],
    ["--help=please"],
    ["--open=yes"],
    ["--language", "fr"],
    ["--tour", "somewhere", "--picture", "page.png"],
    ["--tour", "somewhere", "--open"],
    ["--hide-cards"],
    ["--theme"],
    ["--theme", "accent"],
    ["--theme", "accent=,text=#000000"],
    ["--strict=yes"],
)


class Run(unittest.TestCase):
    def call(self, *options):
        """Calls the command where nothing is missing and every build ends with BUILDS."""
        with hostprocess.temporary_directory() as directory:
            for name, text in (("dpkg-query", "echo -n installed"), ("cmake", f"exit {BUILDS}"), ("ninja", "exit 9")):
                tool = pathlib.Path(directory, name)
                tool.write_text(f"#!/bin/sh\n{text}\n", encoding="utf-8")
                tool.chmod(0o755)
            done = subprocess.run(
                [RUN, *options],
                env=hostprocess.environment(PATH=directory + os.pathsep + os.environ["PATH"]),
                stdin=subprocess.DEVNULL,
                capture_output=True,
                encoding="utf-8",
                timeout=60,
                check=False,
            )
        return done.returncode, done.stderr

    def test_wrong_options(self):
        for options in WRONG:
            code, said = self.call(*options)
            self.assertEqual(code, 2, (options, said))
            # In the words of the host itself.
            host_code, _, host_said = hostprocess.run(*options)
            self.assertEqual(host_code, 2, options)
            self.assertEqual(said, host_said.replace("panel-host: ", "run: ", 1), options)

    def test_wrong_platforms(self):
        for options, named in (
            (["--platform"], "--platform: a value is missing"),
            (["--platform", "windows"], "--platform: a platform is simulator or linux, not windows"),
            (["--write"], "--write: goes with --platform linux"),
            (["--platform=simulator", "--write"], "--write: goes with --platform linux"),
            (["--platform", "linux", "--write=yes"], "--write: takes no value"),
            (["--platform", "linux", "--scenario", SCENARIOS / "quick.json"], "--scenario: goes without --platform linux"),
            (["--platform", "linux", "--write", "--tour", "somewhere"], "--tour: goes without --write"),
        ):
            code, said = self.call(*options)
            self.assertEqual((code, said[: len("run: " + named)]), (2, "run: " + named), options)

    def test_wrong_ways_to_look(self):
        for options, said in (
            (["--vnc", "70000"], "--vnc: a port is a number up to 65535"),
            (["--vnc=http"], "--vnc: a port is a number up to 65535"),
            (["--vnc-password"], "--vnc-password: a value is missing"),
            (["--vnc-password", "/nowhere"], "--vnc-password: there is no file /nowhere that can be read"),
            (["--vnc-password", RUN], f"--vnc-password: {RUN} is not what vncpasswd writes"),
            (["--tour", "somewhere", "--vnc"], "--tour: goes without --vnc, it needs nobody who looks on"),
            (["--vnc", "--picture", "page.png"], "--picture: goes without --vnc, it needs nobody who looks on"),
        ):
            self.assertEqual(self.call(*options), (2, f"run: {said} (--help tells the options)\n"), options)

    def test_files_that_are_not_there(self):
        for options in (["--scenario", "/nowhere/panel.json"], ["--library", "/nowhere/libpanelsettings.so"]):
            code, said = self.call(*options)
            self.assertEqual(code, 2, said)
            self.assertIn(options[1], said)

    def test_right_options_build(self):
        values = {
            "--size": ["800x480"],
            "--scenario": [SCENARIOS / "quick.json"],
            "--as": ["vistor"],
            "--language": ["zh"],
            "--library": ["libpanelsettings.so"],
            "--tour": ["somewhere"],
            "--picture": ["page.png"],
            "--hide-cards": ["buzzer,dns"],
            "--theme": ["accent=#007A5A,font=DejaVu Sans"],
        }
        _, told, _ = hostprocess.run("--help")
        names = re.findall(r"^  (--[\w-]+)", told, re.MULTILINE)
        self.assertIn("--open", names)
        for name in names:
            if name != "--help":
                self.assertEqual(self.call(name, *values.get(name, [])), (BUILDS, ""), name)
        for options in ([], ["--vnc", "5901"], ["--vnc=0", "--open"], ["--vnc", "--size", "480x800"],
                        ["--platform", "linux"], ["--platform=linux", "--write", "--open"], ["--platform", "simulator"]):
            self.assertEqual(self.call(*options), (BUILDS, ""), options)


if __name__ == "__main__":
    hostprocess.main()
