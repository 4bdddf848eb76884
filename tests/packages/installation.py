"""Installations of the build under test, and the demo host as it runs from one."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

CMAKE = os.environ["CMAKE"]
BUILD = pathlib.Path(os.environ["PANEL_BUILD"])
# The whole installation; tests must leave it as it is.
PREFIX = pathlib.Path(os.environ["PANEL_PREFIX"]).resolve()
LIBRARIES = pathlib.Path(os.environ["PANEL_LIBDIR"])
STANDINS = LIBRARIES / "panelsettings/simulator"
SERVICE = "libhmisystemset.so"
KEYBOARD = "libqvkbpluginloader.so"
PLUGIN = "libpanelsettings.so"


def call(*command, **arguments):
    """Runs a program that has to succeed; returns what it said."""
    done = subprocess.run(command, capture_output=True, text=True, check=False, **arguments)
    if done.returncode != 0:
        raise AssertionError(done.stdout + done.stderr)
    return done.stdout


def install(prefix, component=None, destdir=None):
    """Installs everything, or one component; what lies there stays."""
    part = ["--component", component] if component else []
    changes = {"DESTDIR": str(destdir)} if destdir else {}
    subprocess.run(
        [CMAKE, "--install", BUILD, "--prefix", prefix, *part],
        check=True,
        stdout=subprocess.DEVNULL,
        env=dict(os.environ, **changes),
    )


def files_of(directory):
    directory = pathlib.Path(directory)
    return {file.relative_to(directory) for file in directory.rglob("*") if not file.is_dir()}


def bare_environment(**changes):
    """Nothing that could help a program to find its libraries."""
    return {"LC_ALL": "C.UTF-8", "QT_QUICK_BACKEND": "software", **changes}


def libraries_of(process):
    """Where a running program has its libraries from: paths by name."""
    maps = pathlib.Path(f"/proc/{process.pid}/maps").read_text(encoding="utf-8")
    paths = {pathlib.Path(path) for path in re.findall(r" (/[^\n]*\.so)$", maps, re.MULTILINE)}
    libraries = [path for path in paths if path.name in (SERVICE, KEYBOARD, PLUGIN)]
    by_name = {path.name: path for path in libraries}
    assert len(by_name) == len(libraries), libraries
    return by_name


def host_libraries(prefix, **environment):
    """Starts the host with the settings open, and says where it has its libraries from once it works."""
    with subprocess.Popen(
        [pathlib.Path(prefix, "bin/panel-host"), "--open", "--strict", "--journal"],
        env=bare_environment(QT_QPA_PLATFORM="offscreen", **environment),
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
        encoding="utf-8",
    ) as host:
        try:
            # The screen is there: it tells the panel its language.
            said = host.stdout.readline()
            if "->" not in said:
                raise AssertionError(said + host.stderr.read())
            libraries = libraries_of(host)
        finally:
            host.terminate()
        complaints = host.stderr.read()
        if complaints:
            raise AssertionError(complaints)
        return libraries


def temporary_directory():
    return tempfile.TemporaryDirectory(prefix="panel prefix ", dir=os.path.realpath(tempfile.gettempdir()))


def main():
    import unittest

    unittest.main(argv=[sys.argv[0], *sys.argv[1:]], verbosity=2)
