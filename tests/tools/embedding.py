#!/usr/bin/env python3
"""Builds and runs the host of docs/embedding.md, word for word: embedding.py CMAKE BUILD ROOT

The program gets what an installation has: headers, libraries, nothing of the source tree.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

SECONDS_TO_WATCH = 3


def code_blocks(page):
    return re.findall(r"^`([\w.]+)`:\n\n```\w+\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)


def main():
    cmake, build, root = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="embedding ") as directory:
        work = pathlib.Path(directory)
        prefix = work / "installed"
        subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)

        files = code_blocks(pathlib.Path(root, "docs/embedding.md").read_text(encoding="utf-8"))
        assert sorted(name for name, _ in files) == ["CMakeLists.txt", "host.cpp"], files
        for name, text in files:
            assert name != "CMakeLists.txt" or "/usr/include/panelsettings" in text
            headers = str(prefix / "include/panelsettings")
            (work / name).write_text(text.replace("/usr/include/panelsettings", f'"{headers}"'), encoding="utf-8")

        subprocess.run([cmake, "-S", work, "-B", work / "build", "-G", "Ninja"], check=True, stdout=subprocess.DEVNULL)
        subprocess.run([cmake, "--build", work / "build"], check=True, stdout=subprocess.DEVNULL)

        library = next(prefix.rglob("libpanelsettings.so"))
        places = f"{library.parent}:{library.parent / 'panelsettings/simulator'}"
        environment = dict(os.environ, LD_LIBRARY_PATH=places, XDG_RUNTIME_DIR=directory)
        with subprocess.Popen(
            [work / "build/host"], env=environment, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True
        ) as host:
            try:
                code = host.wait(SECONDS_TO_WATCH)
                print("the host ended by itself with", code)
            except subprocess.TimeoutExpired:
                code = 0
            host.kill()
            said = host.communicate()[1]
        print(said, end="")
        return 1 if code or said else 0


if __name__ == "__main__":
    sys.exit(main())
