"""The file system in the sandbox: the machine's own without its state, and nothing to write to for the services."""

import contextlib
import ctypes
import os
import pathlib

MS_RDONLY = 1
MS_BIND = 4096
MS_REC = 16384

CLONE_NEWNS = 0x20000

AT_FDCWD = -100
AT_RECURSIVE = 0x8000
MOUNT_ATTR_RDONLY = 1
# One number for all processors that are made today; the C library has had a name for it only of late.
SYS_MOUNT_SETATTR = 442

# Nothing of the machine is behind them.
DEVICES = ("full", "null", "random", "urandom", "zero")

libc = ctypes.CDLL(None, use_errno=True)


def mount(kind, target, source="none", flags=0, data=""):
    done = libc.mount(os.fsencode(source), os.fsencode(target), kind.encode(), ctypes.c_ulong(flags), data.encode())
    check(done, target)


def bind(source, target):
    mount("", target, source, MS_BIND)


def check(done, subject):
    if done != 0:
        error = ctypes.get_errno()
        raise OSError(error, os.strerror(error), str(subject))


class MountAttributes(ctypes.Structure):
    _fields_ = [(name, ctypes.c_uint64) for name in ("set", "clear", "propagation", "user_namespace")]


def set_writable(place, writable, flags=0):
    attributes = MountAttributes(**{"clear" if writable else "set": MOUNT_ATTR_RDONLY})
    size = ctypes.c_size_t(ctypes.sizeof(attributes))
    done = libc.syscall(SYS_MOUNT_SETATTR, AT_FDCWD, os.fsencode(place), flags, ctypes.byref(attributes), size)
    check(done, place)


def arrange(kept):
    """Hides what is the machine's own; the kept paths stay to be seen, wherever they lie."""
    # Where a container has masked parts of the old one the kernel refuses a new one; the old one does, with the
    # numbers that processes have outside.
    with contextlib.suppress(OSError):
        mount("proc", "/proc", "proc")
    # What NetworkManager writes lies below them, at paths that are compiled in and need not exist on the machine.
    hide("/run", kept)
    hide("/var/lib", kept)
    # Nor is anything of how the machine is set up to be read.
    if os.path.isdir("/etc/NetworkManager"):
        hide("/etc/NetworkManager", ())
    show_devices()


class Shield:
    """Lets this process and all that it starts write to nothing but the given places.

    The services may be root's: that they are told not to write elsewhere does not keep them from it, nor from switching
    the radio of the machine by its device.
    """

    def __init__(self, writable):
        self._before = os.open("/proc/self/ns/mnt", os.O_RDONLY | os.O_CLOEXEC)
        self._directory = os.getcwd()
        check(libc.unshare(CLONE_NEWNS), "mounts")
        # The settings of the sandbox's own network, among those of the machine's kernel.
        bind("/proc/sys/net", "/proc/sys/net")
        set_writable("/", False, AT_RECURSIVE)
        for place in writable:
            set_writable(place, True)
        # Where a container has them read-only they stay so.
        with contextlib.suppress(OSError):
            set_writable("/proc/sys/net", True)
        hide("/dev", [f"/dev/{name}" for name in DEVICES])

    def leave(self):
        """For a process that is about to become the command: what that may write is for who runs it to say."""
        check(libc.setns(self._before, CLONE_NEWNS), "mounts")
        os.chdir(self._directory)


def show_devices():
    """Shows the network devices of the sandbox in /sys, which must be read-only.

    NetworkManager then takes itself to be in a container and waits for no udev, which would otherwise have to tell it
    about each port.
    """
    try:
        mount("sysfs", "/sys", "sysfs", MS_RDONLY)
    except OSError:
        # Refused for the same reason as /proc. Wired ports need nothing of what is in there.
        mount("tmpfs", "/sys", flags=MS_RDONLY)


def hide(directory, kept):
    """Puts an empty directory over the directory, in which only the kept paths are seen again."""
    inside = [path for path in map(pathlib.Path, kept) if path.is_relative_to(directory) and path.exists()]
    handles = {path: (os.open(path, os.O_PATH), path.is_dir()) for path in inside}
    mount("tmpfs", directory, data="mode=755")
    for path, (handle, is_directory) in handles.items():
        if is_directory:
            path.mkdir(parents=True, exist_ok=True)
        else:
            path.touch()
        mount("", path, f"/proc/self/fd/{handle}", MS_BIND | MS_REC)
        os.close(handle)
