#!/usr/bin/env python3
"""Holds where our programs and libraries look for others.

    searchpaths.py READELF BUILD INSTALLED...   checks every program and library below BUILD
    searchpaths.py --selftest                   proves that the check finds what it is there to find

An empty or relative entry of a search path is the current directory or one below it: whoever can
write there could put a library of his own under our feet. Whatever is installed (the files
INSTALLED) may only name places relative to itself, since it knows no other place on a panel.
"""

import os
import pathlib
import re
import struct
import subprocess
import sys

PATH = re.compile(r"\((?:RPATH|RUNPATH)\)\s+Library (?:rpath|runpath): \[(.*)\]$")
ORIGIN = re.compile(r"\$(ORIGIN|\{ORIGIN\})(/|$)")
FILES_AT_ONCE = 100
PROGRAM, LIBRARY = 2, 3


def problems_with(search_path, is_installed):
    for entry in search_path.split(":"):
        if ORIGIN.match(entry):
            continue
        if not entry.startswith("/"):
            yield f'"{entry}" is relative to the current directory'
        elif is_installed:
            yield f'"{entry}" is a directory of this machine'


def is_linked(file):
    with open(file, "rb") as content:
        header = content.read(18)
    if len(header) < 18 or header[:4] != b"\x7fELF":
        return False
    return struct.unpack_from("<H" if header[5] == 1 else ">H", header, 16)[0] in (PROGRAM, LIBRARY)


def linked_files(directory):
    for folder, _, names in os.walk(directory):
        for name in names:
            file = pathlib.Path(folder, name)
            if not name.endswith((".o", ".png", ".cpp", ".h")) and file.is_file() and is_linked(file):
                yield str(file)


def search_paths(readelf, files):
    for start in range(0, len(files), FILES_AT_ONCE):
        # With one file alone, readelf would not say whose answer it is.
        batch = [*files[start : start + FILES_AT_ONCE], "/dev/null"]
        listing = subprocess.run(
            [readelf, "-d", "-W", *batch], capture_output=True, text=True, env=dict(os.environ, LC_ALL="C"), check=False
        ).stdout
        file = None
        for line in listing.splitlines():
            if line.startswith("File: "):
                file = line[len("File: ") :]
            elif found := PATH.search(line):
                yield file, found[1]


def selftest():
    assert not [*problems_with("/opt/lib:$ORIGIN:${ORIGIN}/../lib", False)]
    assert not [*problems_with("$ORIGIN/../lib", True)]
    bad = ["", "/opt/lib:", ":/opt/lib", "/opt/lib::/usr/lib", "lib", "./lib", "$ORIGINAL", "$LIB"]
    for search_path in bad:
        assert [*problems_with(search_path, False)], search_path
    assert [*problems_with("/opt/lib", True)]
    assert PATH.search(" 0x000000000000001d (RUNPATH)            Library runpath: [/opt/lib:]")[1] == "/opt/lib:"
    assert PATH.search(" 0x0000000f (RPATH)                      Library rpath: []")[1] == ""
    print(f"{len(bad) + 1} bad search paths found")


def main():
    if sys.argv[1:] == ["--selftest"]:
        selftest()
        return 0
    readelf, build, *installed = sys.argv[1:]
    installed = {os.path.realpath(file) for file in installed}
    files = [*linked_files(build)]
    left_out = installed - {os.path.realpath(file) for file in files}
    assert installed and not left_out, left_out

    paths = [*search_paths(readelf, files)]
    # Without any there would be nothing to check: our programs do find our libraries.
    assert installed & {os.path.realpath(file) for file, _ in paths}
    bad = 0
    for file, search_path in paths:
        for problem in problems_with(search_path, os.path.realpath(file) in installed):
            print(f"{file}: {problem}")
            bad += 1
    print(f"{len(files)} programs and libraries, {len(paths)} search paths, {bad} problems")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
