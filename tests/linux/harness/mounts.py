"""The file system as the services in the sandbox see it: the machine's own, without what they would write to."""

import contextlib
import ctypes
import os
import pathlib

MS_RDONLY = 1
MS_BIND = 4096
MS_REC = 16384

libc = ctypes.CDLL(None, use_errno=True)


def mount(kind, target, source="none", flags=0, data=""):
    done = libc.mount(os.fsencode(source), os.fsencode(target), kind.encode(), ctypes.c_ulong(flags), data.encode())
    if done != 0:
        error = ctypes.get_errno()
        raise OSError(error, os.strerror(error), str(target))


def arrange(kept):
    """Hides what is the machine's own; the kept paths stay to be seen, wherever they lie."""
    # Where a container has masked parts of the old one the kernel refuses a new one; the old one does, with other numbers.
    with contextlib.suppress(OSError):
        mount("proc", "/proc", "proc")
    # What NetworkManager writes lies below them, at paths that are compiled in and need not exist on the machine.
    hide("/run", kept)
    hide("/var/lib", kept)
    if os.path.isdir("/etc/NetworkManager"):
        hide("/etc/NetworkManager", ())
    show_devices()


def show_devices():
    """Shows the network devices of the sandbox in /sys, which must be read-only.

    NetworkManager then takes itself to be in a container and waits for no udev, which would have to tell it about each port.
    """
    try:
        mount("sysfs", "/sys", "sysfs", MS_RDONLY)
    except OSError:
        # Refused for the same reason as /proc. Wired ports need nothing of what is in there.
        mount("tmpfs", "/sys", flags=MS_RDONLY)


def hide(directory, kept):
    """Puts an empty directory over the directory, in which only the kept paths are seen again."""
    inside = [path for path in map(pathlib.Path, kept) if path.is_relative_to(directory) and path.is_dir()]
    handles = {path: os.open(path, os.O_PATH | os.O_DIRECTORY) for path in inside}
    mount("tmpfs", directory, data="mode=755")
    for path, handle in handles.items():
        path.mkdir(parents=True, exist_ok=True)
        mount("", path, f"/proc/self/fd/{handle}", MS_BIND | MS_REC)
        os.close(handle)
