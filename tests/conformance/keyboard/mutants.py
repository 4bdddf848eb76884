#!/usr/bin/env python3
"""That each check of the on-screen keyboard finds what it is there to find, and nothing else.

    mutants.py PROGRAM STANDIN BROKEN OTHER

PROGRAM judges keyboards. The STANDIN passes; the library BROKEN, which is the stand-in with the fault that
KEYBOARD_FAULT names, fails exactly the check of that name; OTHER is a library, but no keyboard.
"""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

SECONDS = 240
NEEDS_NO_FAULT = {"library.load", "library.complete"}


def judge(program, library, fault=""):
    """The titles of the checks that failed, the exit code, and all that was said."""
    with tempfile.TemporaryDirectory() as directory:
        tap = pathlib.Path(directory, "results.tap")
        done = subprocess.run(
            [program, "--keyboard", "--tap", tap, library],
            env=dict(os.environ, KEYBOARD_FAULT=fault, XDG_RUNTIME_DIR=directory),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            encoding="utf-8",
            timeout=SECONDS,
            check=False,
        )
        results = tap.read_text(encoding="utf-8") if tap.exists() else ""
    return set(re.findall(r"^not ok \d+ - (\S+)", results, re.MULTILINE)), done.returncode, done.stdout


def titles(program):
    listing = subprocess.run([program, "--keyboard", "--list"], capture_output=True, encoding="utf-8", check=True)
    return [line.split()[0] for line in listing.stdout.splitlines() if line.strip()]


def main():
    program, standin, broken, other = sys.argv[1:]
    cases = [(standin, "", set()), (broken, "", set()), (broken, "none", set()), (broken, "crash", {"layout.unknown"})]
    cases += [(broken, title, {title}) for title in titles(program) if title not in NEEDS_NO_FAULT]
    cases += [(other, "", {"library.complete"}), (__file__, "", {"library.load"})]

    bad = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        runs = [(case, pool.submit(judge, program, *case[:2])) for case in cases]
        for (library, fault, expected), run in runs:
            failed, code, said = run.result()
            is_good = failed == expected and code == bool(expected)
            print(f"{'ok ' if is_good else 'BAD'} {pathlib.Path(library).name} {fault}: {sorted(failed)}, exit code {code}")
            if not is_good:
                print(said)
                bad += 1
    print(f"{len(cases)} runs, {bad} of them bad")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
