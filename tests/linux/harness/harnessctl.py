#!/usr/bin/python3
"""Tells the sandbox what shall happen in it. "harnessctl help" lists what can; tests in Python call tell()."""

import os
import shlex
import socket
import sys


class Refused(Exception):
    """The sandbox did not do what it was told."""


def tell(*words):
    """Returns the lines of the answer once what was told has happened."""
    with socket.socket(socket.AF_UNIX) as connection:
        connection.connect(os.environ["PANEL_HARNESS"])
        connection.sendall(f"{shlex.join(words)}\n".encode())
        with connection.makefile(encoding="utf-8") as answer:
            lines = answer.read().splitlines()
    if not lines or lines[0] != "ok":
        raise Refused("\n".join(lines) or "no answer")
    return lines[1:]


def main():
    try:
        for line in tell(*sys.argv[1:]):
            print(line)
        return 0
    except KeyError:
        print("harnessctl: only works inside nm-harness", file=sys.stderr)
    except (Refused, OSError) as error:
        print(f"harnessctl: {error}", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
