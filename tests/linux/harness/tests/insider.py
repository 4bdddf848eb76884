"""What tests that run inside share."""

import subprocess
import time
import unittest


def lines_of(*command, **options):
    """What the command says; None when it fails."""
    done = subprocess.run(command, capture_output=True, encoding="utf-8", check=False, **options)
    return done.stdout.splitlines() if done.returncode == 0 else None


def tell(*words):
    done = subprocess.run(["harnessctl", *words], capture_output=True, encoding="utf-8", check=False)
    if done.returncode != 0:
        raise AssertionError(done.stderr)
    return done.stdout.splitlines()


class Insider(unittest.TestCase):
    def eventually(self, question, wanted):
        """Asks until the answer is the wanted one; only what hangs takes a minute."""
        end = time.monotonic() + 60
        while (answer := question()) != wanted and time.monotonic() < end:
            time.sleep(0.02)
        self.assertEqual(answer, wanted)
