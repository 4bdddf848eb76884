"""What nm-harness leaves of itself and of the machine around it: an exit code, and nothing else."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

import harnessprocess
import machine
from harnessprocess import Run

REQUIRED = {"PANEL_REQUIRE_LINUX": "1"}
NOT_REQUIRED = {"PANEL_REQUIRE_LINUX": ""}
# Says that all is up, and stays until its input ends.
WAITING = ["sh", "-c", "echo up; exec cat"]


def eventually(condition):
    end = time.monotonic() + 30
    while not condition() and time.monotonic() < end:
        time.sleep(0.01)
    return condition()


def tools(directory, **scripts):
    """A path on which these tools come first."""
    for name, text in scripts.items():
        tool = pathlib.Path(directory, name)
        tool.write_text(f"#!/bin/sh\n{text}\n", encoding="utf-8")
        tool.chmod(0o755)
    return directory + os.pathsep + os.environ["PATH"]


@contextlib.contextmanager
def bystander(name):
    """A process of the machine that goes by the name of one in the sandbox, and has nothing to do with it."""
    with tempfile.TemporaryDirectory() as directory:
        program = shutil.copy(shutil.which("sleep"), pathlib.Path(directory, name))
        with subprocess.Popen([program, "1000"]) as process:
            try:
                yield process
            finally:
                process.kill()


class Untouched:
    """The machine is the same before, meanwhile and after, whoever runs it."""

    user = []

    @classmethod
    def setUpClass(cls):
        # Before anything has run, so that nothing which is left by the first run passes for the machine's own.
        cls.before = machine.Look()
        harnessprocess.skip_unless_possible(cls.user)

    def test_machine_is_untouched(self):
        with bystander("dbus-daemon") as process, Run(WAITING, self.user) as run:
            self.assertEqual(run.process.stdout.readline(), "up\n")
            # It does all that would be seen, were it done to the machine.
            inside = run.processes()
            for name in ("NetworkManager", "dbus-daemon", "dnsmasq"):
                self.assertIn(name, inside)
            self.expect_no_change()
            self.assertEqual(run.end(), (0, "", ""))
            self.assertEqual(run.processes(), [])
            self.assertIsNone(process.poll())
        self.expect_no_change()

    def expect_no_change(self):
        self.assertEqual(machine.Look().changes_since(self.before), [])


class UntouchedByThisUser(Untouched, unittest.TestCase):
    pass


class Outside:
    """What holds for every user."""

    user = []

    @classmethod
    def setUpClass(cls):
        harnessprocess.skip_unless_possible(cls.user)

    def test_no_file_is_left(self):
        with tempfile.TemporaryDirectory() as directory:
            os.chmod(directory, 0o777)
            with Run(["true"], self.user, TMPDIR=directory, HOME=directory) as run:
                self.assertEqual(run.end(), (0, "", ""))
            self.assertEqual(os.listdir(directory), [])

    def test_a_signal_ends_it_with_all_that_is_in_it(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            with Run(WAITING, self.user) as run:
                self.assertEqual(run.process.stdout.readline(), "up\n")
                run.process.send_signal(number)
                self.assertEqual(run.end(), (-number, "", ""))
                self.assertEqual(run.processes(), [])

    def test_nothing_survives_its_death(self):
        with Run(WAITING, self.user) as run:
            self.assertEqual(run.process.stdout.readline(), "up\n")
            self.assertIn("NetworkManager", run.processes())
            run.process.kill()
            run.process.wait()
            self.assertTrue(eventually(lambda: not run.processes()), run.processes())

    def test_an_orphan_ends_with_the_command(self):
        with Run(["sh", "-c", "setsid sleep 1000 >/dev/null 2>&1 &"], self.user) as run:
            self.assertEqual(run.end(), (0, "", ""))
            self.assertEqual(run.processes(), [])

    def test_exit_code_is_the_command_s(self):
        for command, code in ((["true"], 0), (["sh", "-c", "exit 7"], 7), (["sh", "-c", "kill -TERM $$"], 143)):
            with Run(command, self.user) as run:
                self.assertEqual(run.end(), (code, "", ""))
        with Run(["there-is-no-such-command"], self.user) as run:
            code, _, errors = run.end()
        self.assertEqual(code, 127)
        self.assertIn("there-is-no-such-command: ", errors)

    def test_the_command_writes_where_it_is_called(self):
        with tempfile.TemporaryDirectory() as directory:
            os.chmod(directory, 0o777)
            with Run(["sh", "-c", "pwd >written"], self.user, directory=directory) as run:
                self.assertEqual(run.end(), (0, "", ""))
            self.assertEqual(pathlib.Path(directory, "written").read_text(encoding="utf-8"), f"{directory}\n")

    def test_logs_are_kept(self):
        with tempfile.TemporaryDirectory() as directory:
            os.chmod(directory, 0o777)
            with Run(["true"], self.user, ["--logs", directory]) as run:
                self.assertEqual(run.end(), (0, "", ""))
            self.assertEqual(sorted(os.listdir(directory)), ["bus.log", "dhcp-lan0.log", "dhcp-lan1.log", "nm.log"])
            said = pathlib.Path(directory, "nm.log").read_text(encoding="utf-8")
            self.assertIn("lan0", said)


class AsThisUser(Outside, unittest.TestCase):
    pass


if os.getuid() == 0:
    ORDINARY = ["setpriv", "--reuid", "65534", "--regid", "65534", "--clear-groups"]

    class UntouchedByOrdinaryUser(Untouched, unittest.TestCase):
        user = ORDINARY

    class AsOrdinaryUser(Outside, unittest.TestCase):
        user = ORDINARY

        def test_root_can_have_it_done(self):
            for options, number in ((["--ordinary"], "65534"), ([], "0")):
                with Run(["cat", "/proc/self/uid_map"], options=options) as run:
                    code, output, errors = run.end()
                self.assertEqual((code, output.split()[:2], errors), (0, ["0", number], ""))


class NotHere(unittest.TestCase):
    """A machine that cannot do it says so in one line, and is no failure unless it has to be able to.

    Shown on one that can, by taking from it one thing at a time.
    """

    @classmethod
    def setUpClass(cls):
        harnessprocess.skip_unless_possible([])

    def expect(self, reason, **changes):
        for environment, code in ((NOT_REQUIRED, harnessprocess.SKIPPED), (REQUIRED, 125)):
            with Run(["echo", "up"], **changes, **environment) as run:
                found, output, errors = run.end()
            self.assertEqual((found, output), (code, ""))
            self.assertIn(reason, errors.splitlines()[-1])
        # The other line tells that packages are being fetched.
        self.assertLessEqual(len(errors.splitlines()), 2, errors)

    def test_namespaces_are_forbidden(self):
        with tempfile.TemporaryDirectory() as directory:
            path = tools(directory, unshare="echo 'unshare: unshare failed: Operation not permitted' >&2; exit 1")
            self.expect("namespaces are forbidden to", PATH=path)

    def test_there_is_no_network_to_fetch_packages_from(self):
        with tempfile.TemporaryDirectory() as directory:
            path = tools(directory, **{"apt-get": "echo 'E: Could not resolve' >&2; exit 100"})
            self.expect("is there a network?", PATH=path, PANEL_LINUX_ROOT=f"{directory}/packages")
            self.assertEqual(sorted(os.listdir(directory)), [".packages.lock", "apt-get"])

    def test_packages_cannot_be_kept(self):
        self.expect("the packages cannot be kept", PANEL_LINUX_ROOT="/proc/packages")

    def test_services_that_do_not_come_up_are_a_failure(self):
        with tempfile.TemporaryDirectory() as directory:
            path = tools(directory, **{"dbus-daemon": "echo no bus today >&2; exit 3"})
            with Run(["echo", "up"], PATH=path, **NOT_REQUIRED) as run:
                code, output, errors = run.end()
            self.assertEqual((code, output), (125, ""))
            self.assertIn("bus ended with code 3", errors)
            self.assertIn("no bus today", errors)


if __name__ == "__main__":
    harnessprocess.main()
