"""What cannot be had on this machine is told in one line, and does not count as a failure unless somebody insists."""

import os
import sys

SKIPPED = 77
FAILED = 125


class Unavailable(Exception):
    """The machine lacks or forbids what is needed."""


def skip(program, reason):
    """Tells the reason; returns the exit code."""
    if os.environ.get("PANEL_REQUIRE_LINUX", "") not in ("", "0"):
        print(f"{program}: failed, PANEL_REQUIRE_LINUX forbids to skip: {reason}", file=sys.stderr)
        return FAILED
    print(f"{program}: skipped: {reason}", file=sys.stderr)
    return SKIPPED
