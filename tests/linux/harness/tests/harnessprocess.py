"""nm-harness as a process, and the machine around it, for its tests."""

import os
import pathlib
import subprocess
import sys
import unittest
import uuid

HARNESS = pathlib.Path(__file__).resolve().parents[1] / "nm-harness"
SKIPPED = 77


class Run:
    """One run of nm-harness. All that it starts has a mark in its environment, by which it is found from outside."""

    # Where every user can be.
    def __init__(self, command, user=(), options=(), directory="/", **changes):
        self._mark = f"PANEL_HARNESS_MARK={uuid.uuid4()}"
        name, _, value = self._mark.partition("=")
        self.process = subprocess.Popen(
            [*user, HARNESS, *options, *command],
            env=dict(os.environ, **{name: value}, **changes),
            cwd=directory,
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            encoding="utf-8",
        )

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()

    def end(self):
        """Waits for the end; returns exit code, output and errors."""
        output, errors = self.process.communicate(timeout=120)
        return self.process.returncode, output, errors

    def processes(self):
        """The names of the processes that belong to it, wherever they are."""
        found = []
        for directory in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if self._mark.encode() in (directory / "environ").read_bytes().split(b"\0"):
                    found.append((directory / "comm").read_text(encoding="utf-8").strip())
            except OSError:
                # It has ended meanwhile, or belongs to somebody else.
                continue
        return sorted(found)


def skip_unless_possible(user):
    """Skips the tests of a class when the user cannot run nm-harness on this machine, where that may be."""
    if subprocess.run([*user, "test", "-x", HARNESS], check=False).returncode != 0:
        skip("this checkout lies where an ordinary user cannot go")
    with Run(["true"], user) as run:
        code, _, errors = run.end()
    if code == SKIPPED:
        skip(errors.strip())


def skip(reason):
    if os.environ.get("PANEL_REQUIRE_LINUX", "") not in ("", "0"):
        raise AssertionError(reason)
    raise unittest.SkipTest(reason)


def main():
    """Runs the tests of the program. What is skipped is not passed over: the program then counts as skipped."""
    result = unittest.main(argv=[sys.argv[0], *sys.argv[1:]], verbosity=2, exit=False).result
    if not result.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if result.skipped else 0)
