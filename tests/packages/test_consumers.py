"""Projects that know of the installation only what CMake or pkg-config tells them."""

import os
import pathlib
import re
import shlex
import unittest

import installation
from installation import LIBRARIES, PREFIX, STANDINS, call

CONSUMER = pathlib.Path(__file__).parent / "consumer"
VERSION = os.environ["PANEL_VERSION"]
WITH_PC = dict(os.environ, PKG_CONFIG_PATH=str(PREFIX / LIBRARIES / "pkgconfig"))


def configure(build):
    return call(installation.CMAKE, "-S", CONSUMER, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={PREFIX}")


class CMakePackage(unittest.TestCase):
    def test_builds_and_loads(self):
        with installation.temporary_directory() as build:
            standins = re.search(r"stand-ins: (.*)", configure(build))[1]
            call(installation.CMAKE, "--build", build)
            call(pathlib.Path(build, "host"), env=installation.bare_environment(LD_LIBRARY_PATH=standins))

    def test_another_major_version_is_refused(self):
        with installation.temporary_directory() as directory:
            project = pathlib.Path(directory, "CMakeLists.txt")
            major = int(VERSION.split(".", maxsplit=1)[0])
            for wanted, is_found in ((major, True), (major + 1, False)):
                project.write_text(
                    "cmake_minimum_required(VERSION 3.22)\nproject(asks CXX)\n"
                    f"find_package(PanelSettings {wanted})\n"
                    "message(STATUS \"found: ${PanelSettings_FOUND}\")\n",
                    encoding="utf-8",
                )
                said = call(
                    installation.CMAKE, "-S", directory, "-B", f"{directory}/{wanted}", f"-DCMAKE_PREFIX_PATH={PREFIX}"
                )
                self.assertIn(f"found: {int(is_found)}", said)


class PkgConfig(unittest.TestCase):
    def ask(self, *question):
        return call("pkg-config", *question, "panelsettings", env=WITH_PC).strip()

    def place(self, variable):
        """A path that pkg-config tells, which it escapes for the command line of a compiler."""
        return shlex.split(self.ask(f"--variable={variable}"))[0]

    def test_variables(self):
        self.assertEqual(self.ask("--modversion"), VERSION)
        for variable, place in (("plugindir", LIBRARIES), ("standindir", STANDINS)):
            self.assertEqual(os.path.realpath(self.place(variable)), os.path.realpath(PREFIX / place))
        self.assertTrue(pathlib.Path(self.place("plugin")).is_file())

    def test_builds_and_loads(self):
        flags = [*shlex.split(os.environ["CXX"]), "-std=c++17", "-fPIC", "-Werror", *shlex.split(self.ask("--cflags"))]
        with installation.temporary_directory() as build:
            call(*flags, "-shared", "-o", f"{build}/libplatform.so", CONSUMER / "platform.cpp")
            call(
                *flags,
                f'-DPLUGIN="{self.place("plugin")}"',
                f'-DVERSION="{VERSION}"',
                *("-o", f"{build}/host", CONSUMER / "host.cpp", "-ldl"),
            )
            standins = self.place("standindir")
            call(f"{build}/host", env=installation.bare_environment(LD_LIBRARY_PATH=standins))


if __name__ == "__main__":
    installation.main()
