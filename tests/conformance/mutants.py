#!/usr/bin/env python3
"""Breaks the simulated service in one way after the other: mutants.py PROGRAM MUTANTS INCOMPLETE

Each mutant must be found by the check that is named beside it in mutants.h, and by no other; each check must have a
mutant. What the checks changed must be as before when the service ends, whatever was found, also after a crash.
"""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

HERE = pathlib.Path(__file__).resolve().parent
ROW = re.compile(r'Row\{Mutant::\w+, "([\w-]+)", "(\w+)", "([\w.-]+)"\}')
# Short, for mutants that never report or hang; long enough for a machine that does much else.
TIMES = ["--patience", "3", "--limit", "6"]
# These are told by what the linker does, not by a member.
UNLOADABLE = ("unloadable", "failed", "members.load")
INCOMPLETE = ("incomplete", "failed", "members.complete")
# These end the process before the state can be compared, or lie about it.
NO_STATE = {"start-crash", "unloadable", "incomplete", "default-mask", "bright-zero"}


class Run:
    """The program's results for one library."""

    def __init__(self, program, library, mutant):
        with tempfile.TemporaryDirectory() as directory:
            results, state = pathlib.Path(directory, "results.xml"), pathlib.Path(directory, "state")
            environment = {**os.environ, "PANEL_STATE": str(state)}
            if mutant:
                environment["PANEL_MUTANT"] = mutant
            done = subprocess.run([program, *TIMES, "--junit", results, library], env=environment, text=True,
                                  capture_output=True, check=False)
            self.output = done.stdout + done.stderr
            self.exit_code = done.returncode
            self.states = state.read_text(encoding="utf-8").splitlines() if state.exists() else []
            cases = xml.etree.ElementTree.parse(results).iter("testcase") if results.exists() else []
            self.found = {"failed": set(), "warned": set()}
            for case in cases:
                check = case.get("name").split()[0]
                output = case.find("system-out")
                if case.find("failure") is not None:
                    self.found["failed"].add(check)
                elif output is not None and output.text.startswith("WARNING"):
                    self.found["warned"].add(check)


def problems_with(run, verdict, check, is_state_compared):
    expected = {"failed": set(), "warned": set(), verdict: {check}}
    for kind, checks in run.found.items():
        for name in sorted(expected[kind] - checks):
            yield f"{name} has not {kind}"
        for name in sorted(checks - expected[kind]):
            yield f"{name} has {kind}, too"
    wanted_code = 1 if verdict == "failed" else 0
    if run.exit_code != wanted_code:
        yield f"exit code {run.exit_code}"
    if is_state_compared and (not run.states or run.states[0] != run.states[-1]):
        yield "the panel is not as it was: " + " / ".join(run.states)


def main():
    program, mutants, incomplete = sys.argv[1:]
    rows = ROW.findall((HERE / "mutants.h").read_text(encoding="utf-8"))
    with tempfile.TemporaryDirectory() as directory:
        no_library = pathlib.Path(directory, "libhmisystemset.so")
        no_library.write_text("not a library\n", encoding="utf-8")
        cases = [(row, mutants) for row in rows] + [(UNLOADABLE, no_library), (INCOMPLETE, incomplete)]

        def judge(case):
            (name, verdict, check), library = case
            run = Run(program, library, name if library == mutants else None)
            problems = list(problems_with(run, verdict, check, name not in NO_STATE))
            return [f"{name}: {problem}" for problem in problems] + ([run.output] if problems else [])

        with concurrent.futures.ThreadPoolExecutor(2 * (os.cpu_count() or 1)) as pool:
            problems = [line for lines in pool.map(judge, cases) for line in lines]

    listing = subprocess.run([program, "--list"], capture_output=True, text=True, check=True).stdout
    checks = {line.split()[0] for line in listing.splitlines()}
    found = {check for (_, _, check), _ in cases}
    problems += [f"no mutant for {check}" for check in sorted(checks - found)]
    problems += [f"no check is called {check}" for check in sorted(found - checks)]
    print("\n".join(problems))
    print(f"{len(cases)} mutants, {len(checks)} checks")
    return 1 if problems or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
