#!/usr/bin/python3
"""The services that the tests run, unpacked from their Debian packages and never installed.

An installed NetworkManager could take over the network of the machine that it is installed on. Unpacking runs no script of a
package and needs no rights. What is installed already is not fetched; the sandbox then runs that.
"""

import contextlib
import fcntl
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from skip import Unavailable, skip

PROJECT = pathlib.Path(__file__).resolve().parents[3]
WANTED = ("network-manager", "dnsmasq-base", "modemmanager", "python3-dbusmock")
# The services depend on them, but what runs in the sandbox makes no use of them: there are no devices, no Bluetooth, no text
# interface and no session.
UNUSED = ("udev", "libbluetooth3", "libnewt0.52", "dbus-x11")
STAMP = "fetched"


def root():
    """Where the packages are unpacked."""
    return pathlib.Path(os.environ.get("PANEL_LINUX_ROOT") or PROJECT / "build" / "linux-services")


def provide():
    """Fetches and unpacks what is missing, once; returns the directory with what was unpacked."""
    place = root()
    if is_complete(place):
        return place
    for tool in ("apt-get", "dpkg"):
        if not shutil.which(tool):
            raise Unavailable(f"{tool} is missing, with which the packages are fetched")
    try:
        place.parent.mkdir(parents=True, exist_ok=True)
        with lock(place):
            if not is_complete(place):
                fetch(place)
    except OSError as error:
        raise Unavailable(f"the packages cannot be kept in {place}: {error}") from error
    except subprocess.CalledProcessError as error:
        raise Unavailable(f"the packages of NetworkManager cannot be fetched: {last_line(error)}") from error
    return place


def is_complete(place):
    try:
        return (place / STAMP).read_text(encoding="utf-8") == stamp()
    except OSError:
        return False


def stamp():
    return "".join(f"{package}\n" for package in WANTED)


@contextlib.contextmanager
def lock(place):
    """Lets in one process at a time."""
    with open(place.with_name(f".{place.name}.lock"), "w", encoding="utf-8") as file:
        fcntl.flock(file, fcntl.LOCK_EX)
        yield


def fetch(place):
    print("Fetching the packages of NetworkManager and what belongs to it", file=sys.stderr)
    with tempfile.TemporaryDirectory(dir=place.parent, prefix=f".{place.name}-") as directory:
        work = pathlib.Path(directory)
        try:
            download(work, [])
        except subprocess.CalledProcessError:
            # The machine's lists of packages are missing, or name versions that are no longer there.
            download(work, own_lists(work))
        unpacked = work / "root"
        unpacked.mkdir()
        for package in work.glob("*.deb"):
            subprocess.run(["dpkg", "-x", package, unpacked], stderr=subprocess.PIPE, encoding="utf-8", check=True)
        join_usr(unpacked)
        for unread in ("doc", "locale", "man"):
            shutil.rmtree(unpacked / "usr" / "share" / unread, ignore_errors=True)
        (unpacked / STAMP).write_text(stamp(), encoding="utf-8")
        unpacked.chmod(0o755)
        shutil.rmtree(place, ignore_errors=True)
        unpacked.rename(place)


def download(work, options):
    """Fetches what is wanted and not installed, with all that it depends on."""
    for part in work.glob("*.deb"):
        part.unlink()
    simulated = run_apt(["-s", "-o", "Debug::NoLocking=1", *options, "install", "--no-install-recommends", *WANTED], work)
    packages = []
    for line in simulated.splitlines():
        if line.startswith("Inst "):
            name, version = line.split()[1], line.partition("(")[2].split()[0]
            if name not in UNUSED:
                packages.append(f"{name}={version}")
    if packages:
        # As root it would otherwise warn that its own user cannot write here.
        run_apt(["-qq", *options, "download", *packages], work)


def own_lists(work):
    """Fetches lists of packages that belong to nobody else; returns the options with which they are used."""
    lists = work / "apt"
    (lists / "lists" / "partial").mkdir(parents=True)
    (lists / "cache" / "archives" / "partial").mkdir(parents=True)
    options = []
    for name, value in (
        ("Dir::State", lists),
        ("Dir::State::lists", lists / "lists"),
        ("Dir::State::status", "/var/lib/dpkg/status"),
        ("Dir::Cache", lists / "cache"),
    ):
        options += ["-o", f"{name}={value}"]
    try:
        run_apt(["-qq", *options, "update"], work)
    except subprocess.CalledProcessError as error:
        raise Unavailable(f"there are no lists of packages, is there a network? {last_line(error)}") from error
    return options


def last_line(error):
    lines = (error.stderr or "").strip().splitlines()
    return lines[-1] if lines else str(error)


def run_apt(arguments, work):
    return subprocess.run(
        ["apt-get", *arguments],
        cwd=work,
        env=dict(os.environ, LC_ALL="C"),
        stdin=subprocess.DEVNULL,
        capture_output=True,
        encoding="utf-8",
        check=True,
    ).stdout


def join_usr(unpacked):
    """Brings what packages still put beside /usr to where it is found on a system of today."""
    for name in ("bin", "lib", "sbin"):
        beside = unpacked / name
        if beside.is_dir():
            shutil.copytree(beside, unpacked / "usr" / name, symlinks=True, dirs_exist_ok=True)
            shutil.rmtree(beside)


def main():
    try:
        print(provide())
        return 0
    except Unavailable as reason:
        return skip("packages", reason)


if __name__ == "__main__":
    sys.exit(main())
