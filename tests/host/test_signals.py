"""A signal ends the host, and nothing of it stays behind."""

import os
import pathlib
import signal
import subprocess
import unittest

import hostprocess


class Signals(unittest.TestCase):
    def end_by(self, number, ignored=False):
        """Starts the host, waits until it works, sends the signal; returns the host's exit code and what is left."""
        with hostprocess.temporary_directory() as directory:
            ignore = (lambda: signal.signal(number, signal.SIG_IGN)) if ignored else None
            with hostprocess.start(
                "--strict", "--journal", preexec_fn=ignore, TMPDIR=directory, QT_QPA_PLATFORM="offscreen"
            ) as process:
                try:
                    # The screen is there: it tells the panel its language.
                    self.assertIn("->", process.stdout.readline())
                    # Without any there would be nothing to leave behind.
                    self.assertTrue(os.listdir(directory))
                    process.send_signal(number)
                    if ignored:
                        with self.assertRaises(subprocess.TimeoutExpired):
                            process.wait(1)
                        process.send_signal(signal.SIGTERM)
                    code = process.wait(60)
                    self.assertEqual(process.stderr.read(), "")
                finally:
                    process.kill()
            return code, os.listdir(directory)

    def test_nothing_is_left(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            self.assertEqual(self.end_by(number), (-number, []), number)

    def test_ignored_signal_stays_ignored(self):
        self.assertEqual(self.end_by(signal.SIGHUP, ignored=True), (-signal.SIGTERM, []))

    def test_in_the_middle_of_a_tour(self):
        with hostprocess.temporary_directory() as directory:
            album = pathlib.Path(directory, "album")
            temporary = pathlib.Path(directory, "temporary")
            temporary.mkdir()
            with subprocess.Popen(
                [hostprocess.HOST, "--tour", album],
                env=hostprocess.environment(TMPDIR=str(temporary)),
                stdin=subprocess.DEVNULL,
            ) as process:
                try:
                    while process.poll() is None and not list(album.glob("01-*.png")):
                        pass
                    process.send_signal(signal.SIGTERM)
                    self.assertEqual(process.wait(60), -signal.SIGTERM)
                finally:
                    process.kill()
            self.assertEqual([entry for entry in temporary.iterdir() if entry.is_dir()], [])


if __name__ == "__main__":
    hostprocess.main()
