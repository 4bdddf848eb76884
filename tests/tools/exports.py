#!/usr/bin/env python3
"""Checks what the plug-in library shows to the outside: exports.py NM LIBRARY

A host needs the three entry points, the identity of the interface, and the one instance of the
service, which must be the same object for everybody. Whatever else were visible could be bound by
chance to something else in a host's process.
"""

import re
import subprocess
import sys

NEEDED = {
    "VexPluginGetInstance",
    "VexPluginCloseInstance",
    "VexPluginQueryData",
    "_ZTI10ISystemSet",
    "_ZTS10ISystemSet",
}
SERVICE_INSTANCE = re.compile(r"_ZG?V?Z?N?14MeyerSingletonIN3HMI9SystemSetEE8instanceEv(E6object)?")
INSTANCE_OBJECT = "_ZZN14MeyerSingletonIN3HMI9SystemSetEE8instanceEvE6object"


def main():
    nm, library = sys.argv[1:]
    listing = subprocess.run([nm, "-D", "--defined-only", library], check=True, capture_output=True, text=True)
    shown = {line.split()[-1] for line in listing.stdout.splitlines()}
    missing = (NEEDED | {INSTANCE_OBJECT}) - shown
    surplus = {name for name in shown - NEEDED if not SERVICE_INSTANCE.fullmatch(name)}
    for name in sorted(missing):
        print("missing:", name)
    for name in sorted(surplus):
        print("too much:", name)
    print(f"{len(shown)} symbols")
    return 1 if missing or surplus else 0


if __name__ == "__main__":
    sys.exit(main())
