"""What can be left out of an installation is left out, and nobody's build fails for a warning unasked."""

import os
import pathlib
import re
import unittest

import installation
from installation import KEYBOARD, PLUGIN, SERVICE, call

ROOT = pathlib.Path(os.environ["PANEL_ROOT"])


def installed_by(build):
    """The names that the installation scripts of a build name; nothing has to be built for it."""
    scripts = pathlib.Path(build).rglob("cmake_install.cmake")
    text = "".join(script.read_text(encoding="utf-8") for script in scripts)
    paths = re.findall(r'FILES "([^"]+)"', text)
    # The service for Linux has the name of the simulated one.
    return {pathlib.Path(path).name for path in paths if "/panelsettings/linux/" not in path}


class Options(unittest.TestCase):
    def configure(self, build, *options):
        call(
            *(installation.CMAKE, "-S", ROOT, "-B", build, "-G", "Ninja"),
            *("-DPANEL_BUILD_TESTS=OFF", "-DPANEL_BUILD_BENCHES=OFF", *options),
        )
        return installed_by(build)

    def test_stand_ins_are_left_out_one_by_one(self):
        whole = installed_by(installation.BUILD)
        self.assertLessEqual({SERVICE, KEYBOARD, PLUGIN, "panel-host"}, whole)
        left_out = {"PANEL_INSTALL_SIMULATOR": {SERVICE}, "PANEL_INSTALL_KEYBOARD": {KEYBOARD}}
        with installation.temporary_directory() as build:
            for option, missing in left_out.items():
                others = [f"-D{other}=ON" for other in left_out]
                names = self.configure(build, *others, f"-D{option}=OFF")
                self.assertEqual({SERVICE, KEYBOARD, PLUGIN, "panel-host"} - names, missing, option)

    def test_warnings_are_errors_for_those_alone_who_ask(self):
        with installation.temporary_directory() as build:
            for asked, wanted in (((), False), (("-DPANEL_WERROR=ON",), True)):
                self.configure(build, *asked)
                rules = pathlib.Path(build, "build.ninja").read_text(encoding="utf-8")
                self.assertIn("-Wextra", rules)
                self.assertEqual("-Werror" in rules, wanted)


if __name__ == "__main__":
    installation.main()
