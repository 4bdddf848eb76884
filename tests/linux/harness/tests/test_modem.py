"""Run by nm-harness --modem: ModemManager is a real one, and sees of the modem what the modem is told to do."""

import json
import subprocess
import unittest

import insider
from insider import tell


def modem():
    """What ModemManager says of the modem; None when it does not answer or has none."""
    lines = insider.lines_of("mmcli", "--output-json", "--modem", "any")
    return None if lines is None else json.loads("\n".join(lines))["modem"]


def told(*path):
    found = modem()
    for name in path:
        found = found and found[name]
    return found


def state():
    return told("generic", "state")


def unlock(code):
    card = told("generic", "sim")
    return subprocess.run(["mmcli", "--sim", card, f"--pin={code}"], capture_output=True, check=False).returncode


class Modem(insider.Insider):
    def setUp(self):
        tell("modem", "registration", "home")
        tell("modem", "signal", "20")
        tell("modem", "card", "ready")
        self.enable()

    def start_anew(self):
        tell("mm", "restart")
        # The modem is there before ModemManager knows what it is good for.
        self.eventually(lambda: state() in ("disabled", "locked", "failed"), True)

    def enable(self):
        self.assertIsNotNone(insider.lines_of("mmcli", "--modem", "any", "--enable"))
        self.eventually(state, "registered")

    def test_registered(self):
        self.assertEqual(told("3gpp", "registration-state"), "home")
        self.eventually(lambda: told("3gpp", "operator-name"), "Sandbox")
        self.assertEqual(told("3gpp", "operator-code"), "00101")
        self.eventually(lambda: told("generic", "signal-quality", "value"), "60")

    def test_signal(self):
        for strength, quality in (("31", "100"), ("5", "20"), ("99", "0"), ("20", "60")):
            tell("modem", "signal", strength)
            self.eventually(lambda: told("generic", "signal-quality", "value"), quality)

    def test_lost_network(self):
        for registration in ("searching", "denied", "idle"):
            tell("modem", "registration", registration)
            self.eventually(lambda: told("3gpp", "registration-state"), registration)
            self.eventually(lambda: state() in ("enabled", "searching"), True)
            tell("modem", "registration", "roaming")
            self.eventually(lambda: told("3gpp", "registration-state"), "roaming")
            self.eventually(state, "registered")

    def test_missing_card(self):
        tell("modem", "card", "missing")
        self.start_anew()
        self.assertEqual(state(), "failed")
        self.assertEqual(told("generic", "state-failed-reason"), "sim-missing")
        tell("modem", "card", "ready")
        self.start_anew()

    def test_card_that_cannot_be_used(self):
        # The daemon tells no difference between one that the modem refuses and none.
        for card in ("broken", "wrong"):
            tell("modem", "card", card)
            self.start_anew()
            self.assertEqual(state(), "failed")
            self.assertEqual(told("generic", "state-failed-reason"), "sim-missing")
        tell("modem", "card", "ready")
        self.start_anew()

    def test_locked_card(self):
        tell("modem", "card", "locked")
        self.start_anew()
        self.assertEqual(state(), "locked")
        self.assertEqual(told("generic", "unlock-required"), "sim-pin")
        self.assertNotEqual(unlock("0000"), 0)
        self.assertEqual(state(), "locked")
        self.assertEqual(unlock("1234"), 0)
        self.eventually(state, "disabled")

    def test_killed_and_started(self):
        tell("mm", "kill")
        self.assertIsNone(modem())
        tell("mm", "start")
        self.eventually(state, "disabled")

    def test_frozen_and_thawed(self):
        tell("mm", "freeze")
        with self.assertRaises(subprocess.TimeoutExpired):
            insider.lines_of("mmcli", "--modem", "any", timeout=1)
        tell("mm", "thaw")
        self.assertEqual(state(), "registered")

    def test_what_cannot_be_done_is_refused(self):
        for words in (["signal", "32"], ["card", "eaten"], ["registration", "perhaps"], ["colour", "red"]):
            done = subprocess.run(["harnessctl", "modem", *words], capture_output=True, encoding="utf-8", check=False)
            self.assertEqual(done.returncode, 1)
            self.assertIn("but one of: ", done.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
