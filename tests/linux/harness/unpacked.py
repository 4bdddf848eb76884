"""Programs from packages that are unpacked and not installed."""

import os
import pathlib
import shutil


class Unpacked:
    """What was unpacked comes before what the machine has installed."""

    def __init__(self, root):
        self._root = root
        self._directories = [str(root / "usr" / name) for name in ("sbin", "bin")]
        self._libraries = sorted((root / "usr" / "lib").glob("*-linux-gnu*"))

    def program(self, name):
        found = shutil.which(name, path=os.pathsep.join([*self._directories, os.environ["PATH"], "/usr/sbin"]))
        if not found:
            raise FileNotFoundError(f"the program {name} is neither unpacked nor installed")
        return found

    def library(self, name):
        """What a program has among the libraries, unpacked or installed."""
        places = [*self._libraries, *sorted(pathlib.Path("/usr/lib").glob("*-linux-gnu*"))]
        for place in places:
            if (place / name).exists():
                return place / name
        raise FileNotFoundError(f"there is no {name} among the libraries")

    def environment(self):
        """For these programs only: a command must find the machine's own libraries."""
        return dict(os.environ, LD_LIBRARY_PATH=joined(self._libraries))

    def python_environment(self):
        """For programs in Python that need unpacked modules."""
        return dict(
            self.environment(),
            PYTHONPATH=str(self._root / "usr" / "lib" / "python3" / "dist-packages"),
            GI_TYPELIB_PATH=joined(path / "girepository-1.0" for path in self._libraries),
        )


def joined(places):
    return os.pathsep.join(map(str, places))
