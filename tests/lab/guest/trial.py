"""A test program that is run as one of the device's users."""

import os
import pathlib
import re
import subprocess

import control

PROGRAMS = pathlib.Path("/lab/programs")
FRAME = ("initTestCase", "cleanupTestCase")


class Trial:
    def __init__(self, name, user):
        self.name = name
        self._user = user
        self._program = PROGRAMS / name

    def exists(self):
        return self._program.exists()

    def functions(self):
        """The names of its tests."""
        told = subprocess.run(
            [str(self._program), "-functions"], capture_output=True, text=True, check=True, env=environment()
        ).stdout
        return [line.rstrip("()") for line in told.split()]

    def run(self, report):
        """Tells what becomes of each test."""
        tests = Tests(self.name, report)
        command = ["setpriv", "--reuid", self._user, "--regid", self._user, "--init-groups", str(self._program)]
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment(), text=True)
        for line in process.stdout:
            print(f"{self.name}: {line}", end="", flush=True)
            tests.take(line)
        tests.end()
        process.wait()


def environment():
    return dict(
        os.environ,
        LC_ALL="C.UTF-8",
        PANEL_HARNESS=str(control.SOCKET),
        LD_LIBRARY_PATH="/usr/lib/x86_64-linux-gnu/panelsettings/linux",
        QT_LOGGING_RULES="panelsettings.linux.*=true;panelsettings.linux.*.debug=false",
    )


class Tests:
    """Reads what a program of QtTest tells. A warning that was not announced fails the test in which it comes."""

    LINE = re.compile(r"(PASS|FAIL!|SKIP|WARNING|QWARN|QCRITICAL|QFATAL)\s*: \w+::(\w+)\([^)]*\)\s*(.*)")

    def __init__(self, program, report):
        self._program = program
        self._report = report
        self._faults = {}
        self._name = ""

    def take(self, line):
        found = self.LINE.match(line)
        if not found:
            # More of what was told last.
            if self._name and line.startswith("   "):
                self._faults[self._name] += " " + line.strip()
            return
        self._settle_last()
        kind, name, text = found.groups()
        if kind == "PASS":
            self._tell(name, self._faults.pop(name, ""))
            return
        self._faults[name] = f"{self._faults.get(name, '')} {kind} {text}"
        if kind in ("FAIL!", "SKIP"):
            self._name = name

    def end(self):
        self._settle_last()

    def _settle_last(self):
        if self._name:
            self._tell(self._name, self._faults.pop(self._name))
            self._name = ""

    def _tell(self, name, fault):
        if fault:
            self._report.failed(f"{self._program}.{name}", fault)
        elif name not in FRAME:
            self._report.passed(f"{self._program}.{name}")
