"""That the lab tells a failure when there is one."""

import contextlib
import io
import pathlib
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE / "guest")]

from results import Results  # noqa: E402
from trial import Tests  # noqa: E402

ALL = ("plan package restart", "pass package", "plan a.x", "pass a.x", "restarting")


class Device(unittest.TestCase):
    def outcome(self, lines, reason):
        results = Results()
        with contextlib.redirect_stdout(io.StringIO()) as told:
            for line in lines:
                results.take(line)
            results.end(reason)
        self.assertEqual(results.is_good(), "FAIL" not in told.getvalue(), told.getvalue())
        return results.is_good(), told.getvalue()

    def test_all_is_good(self):
        self.assertTrue(self.outcome(ALL, "guest-reset")[0])

    def test_everything_that_is_not(self):
        for what, lines, reason in (
            ("a failure", [*ALL[:3], "fail a.x it broke", ALL[4]], "guest-reset"),
            ("a test that was not told", [*ALL[:3], ALL[4]], "guest-reset"),
            ("a test that nobody announced", [*ALL, "pass a.y"], "guest-reset"),
            ("a restart that nobody asked for", ALL[:4], "guest-reset"),
            ("the device is switched off", ALL, "guest-shutdown"),
            ("the emulator dies", ALL, ""),
            ("nothing is told", [], "guest-shutdown"),
        ):
            with self.subTest(what):
                self.assertFalse(self.outcome(lines, reason)[0])

    def test_device_that_hangs(self):
        results = Results()
        with contextlib.redirect_stdout(io.StringIO()):
            for line in ALL[:3]:
                results.take(line)
            results.give_up("too long")
        self.assertFalse(results.is_good())


class Recorder:
    def __init__(self):
        self.told = {}

    def passed(self, name):
        self.told[name] = ""

    def failed(self, name, reason):
        self.told[name] = reason


class Programs(unittest.TestCase):
    def told(self, text):
        recorder = Recorder()
        tests = Tests("lab", recorder)
        for line in text.splitlines(keepends=True):
            tests.take(line)
        tests.end()
        return recorder.told

    def test_outcomes(self):
        told = self.told(
            "PASS   : LabWifi::initTestCase()\n"
            "PASS   : LabWifi::joins()\n"
            "FAIL!  : LabWifi::hears() Compared values are not the same\n"
            "   Actual   (heard): 0\n"
            "   Loc: [lab_wifi.cpp(1)]\n"
            "QINFO  : LabWifi::warned() a note\n"
            "QWARN  : LabWifi::warned() it may not\n"
            "PASS   : LabWifi::warned()\n"
            "WARNING: LabWifi::noticed() it came after all\n"
            "PASS   : LabWifi::noticed()\n"
            "SKIP   : LabWifi::left() no radio\n"
            "   Loc: [lab_wifi.cpp(2)]\n"
            "PASS   : LabWifi::cleanupTestCase()\n"
        )
        self.assertEqual(list(told), ["lab.joins", "lab.hears", "lab.warned", "lab.noticed", "lab.left"])
        self.assertEqual(told["lab.joins"], "")
        self.assertIn("Actual   (heard): 0", told["lab.hears"])
        self.assertIn("it may not", told["lab.warned"])
        self.assertIn("it came after all", told["lab.noticed"])
        self.assertIn("no radio", told["lab.left"])

    def test_failure_of_the_frame(self):
        told = self.told("FAIL!  : LabWifi::initTestCase() no adapter\n   Loc: [lab_wifi.cpp(3)]\n")
        self.assertIn("no adapter", told["lab.initTestCase"])


if __name__ == "__main__":
    unittest.main()
