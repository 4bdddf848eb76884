"""Programs from packages that are unpacked and not installed."""

import os
import shutil


class Unpacked:
    """What was unpacked comes before what the machine has installed."""

    def __init__(self, root):
        self._root = root
        self._directories = [str(root / "usr" / name) for name in ("sbin", "bin")]
        self._libraries = sorted(str(path) for path in (root / "usr" / "lib").glob("*-linux-gnu*"))

    def program(self, name):
        found = shutil.which(name, path=os.pathsep.join([*self._directories, os.environ["PATH"], "/usr/sbin"]))
        if not found:
            raise FileNotFoundError(f"the program {name} is neither unpacked nor installed")
        return found

    def environment(self):
        """For these programs only: a command must find the machine's own libraries."""
        return dict(os.environ, LD_LIBRARY_PATH=os.pathsep.join(self._libraries))
