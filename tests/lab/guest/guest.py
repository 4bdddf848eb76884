"""Tries the service on this device: installs its package, makes its users, and runs each program as one of them."""

import os
import pathlib
import subprocess
import sys
import time

import control
from air import Air
from backlight import Backlight
from buzzer import Buzzer
from report import Report
from trial import Trial

LAB = pathlib.Path("/lab")
# The user of the screen; and one who has nothing to do with it.
OPERATOR, VISITOR = "screen", "visitor"
TRIALS = (
    Trial("lab_wired", OPERATOR),
    Trial("lab_wifi", OPERATOR),
    Trial("lab_device", OPERATOR),
    Trial("lab_visitor", VISITOR),
)
# The last of all.
RESTART = Trial("lab_restart", OPERATOR)


def run(*command):
    subprocess.run(command, check=True)


def prepare():
    run("modprobe", "pcspkr")
    run("dpkg", "--install", str(LAB / "panelsettings-linux.deb"))
    run("udevadm", "settle")
    run("useradd", "--create-home", "--groups", "panelsettings", OPERATOR)
    run("useradd", "--create-home", VISITOR)


def restart(report):
    """Lets the operator ask for a restart; the emulator tells that it came."""
    report.restarting()
    RESTART.run(report)
    # What comes now is the end, or nothing.
    time.sleep(120)
    report.note("the device did not restart within 120 s")


def speak_directly():
    """Not through the journal, which may stand still while the clock is set."""
    console = os.open("/dev/console", os.O_WRONLY | os.O_NOCTTY)
    for output in (1, 2):
        os.dup2(console, output)


def main():
    speak_directly()
    trials = [trial for trial in TRIALS if trial.exists()]
    with Report() as report:
        report.plan(["package", "restart"])
        try:
            prepare()
        except subprocess.CalledProcessError as error:
            report.failed("package", str(error))
            return 1
        report.passed("package")
        # They cannot be asked before: the service belongs to them.
        report.plan([f"{trial.name}.{name}" for trial in trials for name in trial.functions()])
        with Air() as air:
            control.serve(air, Buzzer(), Backlight())
            for trial in trials:
                trial.run(report)
        if RESTART.exists():
            restart(report)
    return 0


if __name__ == "__main__":
    sys.exit(main())
