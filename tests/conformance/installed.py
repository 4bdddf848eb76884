#!/usr/bin/env python3
"""Installs the component elsewhere and runs it from there: installed.py CMAKE BUILD BIN_DIRECTORY LIBRARY"""

import pathlib
import subprocess
import sys
import tempfile


def main():
    cmake, build, programs, library = sys.argv[1:]
    with tempfile.TemporaryDirectory() as prefix:
        subprocess.run([cmake, "--install", build, "--prefix", prefix, "--component", "conformance"], check=True)
        program = pathlib.Path(prefix, programs, "panelsettings-conformance")
        done = subprocess.run([program, "--group", "language", library], cwd="/", check=False)
        files = sorted(str(path.relative_to(prefix)) for path in pathlib.Path(prefix).rglob("*") if path.is_file())
        print(files)
        needed = ["bin/panelsettings-conformance", "lib/panelsettings/conformance-checks.so",
                  "lib/panelsettings/conformance-keyboard.so", "share/doc/panelsettings-conformance/LICENSE"]
        # Without its module it says what is missing and judges nothing.
        for name in files:
            if name.endswith(".so"):
                pathlib.Path(prefix, name).unlink()
        bare = subprocess.run([program, library], capture_output=True, text=True, check=False)
    print(bare.stderr)
    is_complete = done.returncode == 0 and files == needed
    is_missing_told = bare.returncode == 3 and "missing" in bare.stderr and not bare.stdout
    return 0 if is_complete and is_missing_told else 1


if __name__ == "__main__":
    sys.exit(main())
