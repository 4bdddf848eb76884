"""An installation finds its own wherever it lies, and the stand-ins are found by those alone who ask for them."""

import os
import pathlib
import shutil
import subprocess
import unittest

import installation
from installation import KEYBOARD, LIBRARIES, PLUGIN, SERVICE, STANDINS

BARE_LOADER = os.environ["PANEL_BARE_LOADER"]


class Host(unittest.TestCase):
    def test_finds_all_of_it(self):
        # Not where it was installed first: nothing may remember that.
        with installation.temporary_directory() as directory:
            prefix = pathlib.Path(directory, "moved")
            shutil.copytree(installation.PREFIX, prefix)
            self.assertEqual(
                installation.host_libraries(prefix),
                {
                    PLUGIN: prefix / LIBRARIES / PLUGIN,
                    SERVICE: prefix / STANDINS / SERVICE,
                    KEYBOARD: prefix / STANDINS / KEYBOARD,
                },
            )

    def test_takes_the_panels_own_when_told_to(self):
        standins = installation.PREFIX / STANDINS
        for wanted in ({SERVICE}, {KEYBOARD}, {SERVICE, KEYBOARD}):
            with self.subTest(wanted), installation.temporary_directory() as own:
                for name in wanted:
                    shutil.copy(standins / name, own)
                found = installation.host_libraries(installation.PREFIX, LD_LIBRARY_PATH=own)
                for name in (SERVICE, KEYBOARD):
                    self.assertEqual(found[name], (pathlib.Path(own) if name in wanted else standins) / name)

    def test_keeps_to_the_simulated_panel_until_told(self):
        with installation.temporary_directory() as directory:
            prefix = pathlib.Path(directory, "panel")
            shutil.copytree(installation.PREFIX, prefix)
            for name in (SERVICE, KEYBOARD):
                shutil.copy(prefix / STANDINS / name, prefix / LIBRARIES)
            found = installation.host_libraries(prefix)
            for name in (SERVICE, KEYBOARD):
                self.assertEqual(found[name], prefix / STANDINS / name)

    def test_takes_the_panels_own_where_the_stand_ins_were_left_out(self):
        with installation.temporary_directory() as prefix:
            for component in ("runtime", "host"):
                installation.install(prefix, component)
            own = pathlib.Path(prefix, LIBRARIES)
            for name in (SERVICE, KEYBOARD):
                shutil.copy(installation.PREFIX / STANDINS / name, own)
            self.assertEqual(
                installation.host_libraries(prefix), {name: own / name for name in (PLUGIN, SERVICE, KEYBOARD)}
            )


class PlugIn(unittest.TestCase):
    """In a host that knows nothing of where anything lies."""

    def load(self, plugin):
        return subprocess.run(
            [BARE_LOADER, plugin], env=installation.bare_environment(), capture_output=True, text=True, check=False
        )

    def test_finds_the_panels_own_beside_itself(self):
        with installation.temporary_directory() as prefix:
            installation.install(prefix, "runtime")
            own = pathlib.Path(prefix, LIBRARIES)
            for name in (SERVICE, KEYBOARD):
                shutil.copy(installation.PREFIX / STANDINS / name, own)
            done = self.load(own / PLUGIN)
            self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_does_not_find_stand_ins_that_nobody_asked_for(self):
        done = self.load(installation.PREFIX / LIBRARIES / PLUGIN)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn(f"{SERVICE}: cannot open shared object file", done.stderr)


if __name__ == "__main__":
    installation.main()
