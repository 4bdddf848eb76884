#!/usr/bin/env python3
"""What the program makes of its command line: test_options.py PROGRAM LIBRARY"""

import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

PROGRAM, LIBRARY = map(os.path.abspath, sys.argv[1:3])
RESULT = re.compile(r"^(pass|cannot comply|WARNING|FAILURE|skipped) +([a-z0-9]+)\.([a-z0-9-]+)( \w+)?$", re.MULTILINE)


def run(*arguments, mutant=None, state=None, scenario=None):
    environment = dict(os.environ)
    if mutant:
        environment["PANEL_MUTANT"] = mutant
    if state:
        environment["PANEL_STATE"] = str(state)
    if scenario:
        environment["PANEL_SCENARIO"] = str(scenario)
    return subprocess.run([PROGRAM, *map(str, arguments)], env=environment, capture_output=True, text=True, check=False)


def results_of(done):
    return RESULT.findall(done.stdout)


class Options(unittest.TestCase):
    def test_wrong_usage(self):
        for arguments in ([], ["--group", "nothing", LIBRARY], ["--adapters", "lan7", LIBRARY], ["--patience", "0", LIBRARY],
                          ["--limit", "soon", LIBRARY], ["--tap"], ["--surprise", "x", LIBRARY], [LIBRARY, LIBRARY]):
            done = run(*arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn("Usage:", done.stderr)
            self.assertEqual(done.stdout, "")

    def test_help_and_list(self):
        self.assertIn("--read-only", run("--help").stdout)
        listing = run("--list")
        self.assertEqual(listing.returncode, 0)
        self.assertIn("wifi.scan", listing.stdout)

    def test_keyboard(self):
        listing = run("--keyboard", "--list")
        self.assertEqual(listing.returncode, 0)
        self.assertIn("keys.hide", listing.stdout)
        self.assertNotIn("wifi.scan", listing.stdout)
        for arguments in (["--group", "keys", LIBRARY], ["--keyboard", "--group", "wifi", LIBRARY],
                          ["--keyboard", "--read-only", LIBRARY], ["--keyboard", "--adapters", "lan0", LIBRARY],
                          ["--keyboard", "--settle", "3", LIBRARY], ["--keyboard", "--patience", "3", LIBRARY],
                          ["--keyboard"]):
            self.assertEqual(run(*arguments).returncode, 2, arguments)

    def test_groups(self):
        done = run("--group", "language,identity", LIBRARY)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual({group for _, group, _, _ in results_of(done)},
                         {"members", "life", "panel", "language", "identity"})

    def test_adapters(self):
        done = run("--group", "ping,dns", "--adapters", "lan0,WIFI", LIBRARY)
        self.assertEqual({adapter.strip() for *_, adapter in results_of(done)} - {""}, {"LAN0", "WIFI"})

    def test_requests_keep_to_the_adapters(self):
        for adapters, mutant, code in (("vpn", "ping-silent", 1), ("lan0", "ping-silent", 0),
                                       ("wifi", "scan-blocks", 1), ("lan0", "scan-blocks", 0)):
            done = run("--group", "requests", "--adapters", adapters, "--patience", "2", LIBRARY, mutant=mutant)
            self.assertEqual(done.returncode, code, (adapters, mutant, done.stdout))

    def test_read_only_changes_nothing(self):
        listing = run("--list").stdout
        changing = {line.split()[0] for line in listing.splitlines() if line.split()[1] == "changes"}
        done = run("--read-only", LIBRARY)
        self.assertEqual(done.returncode, 0, done.stdout)
        for verdict, group, name, _ in results_of(done):
            self.assertEqual(verdict == "skipped", f"{group}.{name}" in changing, f"{group}.{name}")

    def test_a_relative_path_is_a_path(self):
        done = subprocess.run([PROGRAM, "--group", "language", os.path.basename(LIBRARY)], cwd=os.path.dirname(LIBRARY),
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_settling(self):
        # Far longer than the test may take: it goes on once the service has read its panel.
        done = run("--settle", "3600", "--group", "adapters", LIBRARY, mutant="neutral-at-first")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("LAN0", {adapter.strip() for *_, adapter in results_of(done)})

    def test_settling_has_an_end(self):
        # A panel without adapters never tells anything of one. Waiting is no hanging, either.
        scenario = os.path.join(os.path.dirname(__file__), "../../platform/simulator/scenarios/no-adapter.json")
        done = run("--settle", "4", "--limit", "3", "--group", "language", LIBRARY, scenario=scenario)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertRegex(done.stdout, r"pass +life.start\n +still neutral after 4 s\n")
        self.assertIn("language.switching", done.stdout)

    def test_a_panel_of_which_nothing_is_known_is_told(self):
        # It would be made so in the end, whatever it is like.
        nothing = {"ip": "0.0.0.0", "mask": "0.0.0.0", "gateway": "0.0.0.0"}
        adapter = {"enabled": False, "dhcp": False, "stored": nothing,
                   "dns": {"preferred": "0.0.0.0", "alternate": "0.0.0.0"}}
        with tempfile.TemporaryDirectory() as directory:
            scenario = pathlib.Path(directory, "neutral.json")
            scenario.write_text(json.dumps({"adapters": {"LAN0": adapter}}), encoding="utf-8")
            done = run("--read-only", "--group", "language", LIBRARY, scenario=scenario)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertRegex(done.stdout, r"WARNING +life.answers\n(.*\n)*.*expected: something of an adapter.*--settle")

    def test_missing_library(self):
        done = run("/nowhere/libhmisystemset.so")
        self.assertEqual(done.returncode, 1)
        self.assertIn("FAILURE        members.load", done.stdout)
        self.assertIn("/nowhere/libhmisystemset.so", done.stdout)

    def test_findings_name_what_was_seen(self):
        done = run("--group", "dns", "--adapters", "lan0", LIBRARY, mutant="dns-forgotten")
        self.assertEqual(done.returncode, 1)
        self.assertIn("setDns(LAN0): expected: getDns answers 10.20.30.1, 10.20.30.2; found: 10.20.30.1, 0.0.0.0",
                      done.stdout)

    def test_a_refusal_is_no_failure(self):
        done = run("--group", "adapters", "--adapters", "lan0", LIBRARY, mutant="default-mask")
        self.assertIn("cannot comply  adapters.choice", done.stdout)

    def test_a_crash_is_named_and_survived(self):
        done = run(LIBRARY, mutant="vpn-server-crash")
        self.assertRegex(done.stdout, r"FAILURE +vpn.server VPN\n +the process: .*(signal 11|exit code)")
        self.assertRegex(done.stdout, r"pass +wifi.reset WIFI\n")

    def test_who_interrupts_it_finds_the_panel_as_it_was(self):
        with tempfile.TemporaryDirectory() as directory:
            state = pathlib.Path(directory, "state")
            environment = {**os.environ, "PANEL_MUTANT": "bright-hang", "PANEL_STATE": str(state)}
            program = subprocess.Popen([PROGRAM, "--group", "brightness", LIBRARY], env=environment, text=True,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True)
            for line in program.stdout:
                if "brightness.value" in line:
                    break
            level = pathlib.Path(directory, "state.level")
            while not level.exists() or level.read_text(encoding="utf-8") != "16":
                self.assertIsNone(program.poll())
            os.killpg(program.pid, signal.SIGINT)  # as a terminal does
            output, errors = program.communicate()
            self.assertEqual(level.read_text(encoding="utf-8"), "20")
        self.assertEqual(program.returncode, 3)
        self.assertIn("interrupted", errors)
        self.assertRegex(output, r"skipped +brightness.levels\n +interrupted\n")
        self.assertRegex(output, r"pass +panel.restored\n")
        self.assertNotIn("brightness.limits", output)

    def test_tap(self):
        with tempfile.TemporaryDirectory() as directory:
            tap = pathlib.Path(directory, "results.tap")
            done = run("--tap", tap, "--group", "language", LIBRARY, mutant="language-ignored")
            lines = tap.read_text(encoding="utf-8").splitlines()
        tests = [line for line in lines if line.startswith(("ok ", "not ok "))]
        self.assertEqual(lines[:2], ["TAP version 13", f"1..{len(tests)}"])
        self.assertEqual([int(re.search(r"\d+", line).group()) for line in tests], list(range(1, len(tests) + 1)))
        self.assertEqual([line for line in tests if line.startswith("not")],
                         [line for line in tests if line.endswith("language.switching")])
        self.assertEqual(len(tests), len(results_of(done)))

    def test_junit(self):
        with tempfile.TemporaryDirectory() as directory:
            junit = pathlib.Path(directory, "results.xml")
            run("--junit", junit, "--group", "language", LIBRARY, mutant="language-ignored")
            suite = xml.etree.ElementTree.parse(junit).getroot()
        self.assertEqual(suite.get("failures"), "1")
        self.assertEqual(int(suite.get("tests")), len(suite.findall("testcase")))
        failed = [case.get("name") for case in suite if case.find("failure") is not None]
        self.assertEqual(failed, ["language.switching"])

    def test_a_file_that_cannot_be_written(self):
        done = run("--tap", "/nowhere/results.tap", "--group", "language", LIBRARY)
        self.assertEqual(done.returncode, 3)
        self.assertIn("/nowhere/results.tap", done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
