"""./run on a machine without a display: the panel over VNC, for this machine alone, and nothing of it stays behind."""

import contextlib
import os
import pathlib
import re
import select
import shutil
import signal
import socket
import struct
import subprocess
import unittest

import hostprocess
from hostprocess import HOST, SCENARIOS
from vncviewer import PASSWORD, Viewer, port_of

TREE = SCENARIOS.parents[2]
WIDTH, HEIGHT = 640, 480
# Of the panel's frame, to the right of the glass.
FRAME = 64
# Of the lower left corner: of the operator's page, and of a display on which nothing is.
PAGE, NOTHING = bytes([0x28, 0x21, 0x1B]), bytes(3)


def make_tree(directory):
    """A tree in which everything is built, and whose command shows the host under test; where that command is."""
    for name in ("host", "tools", "temporary", "build/release/host"):
        pathlib.Path(directory, name).mkdir(parents=True)
    for name in ("run", "host/on-vnc"):
        shutil.copy(TREE / name, pathlib.Path(directory, name))
    for name in ("setup", "tools/cmake"):
        file = pathlib.Path(directory, name)
        file.write_text("#!/bin/sh\n", encoding="utf-8")
        file.chmod(0o755)
    pathlib.Path(directory, "build/release/host/panel-host").symlink_to(HOST)
    return pathlib.Path(directory, "run")


def family_of(pid):
    """All processes that come from one, as descriptors, by what they are called."""
    result = {}
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        for child in map(int, (task / "children").read_text().split()):
            name = pathlib.Path(f"/proc/{child}/comm").read_text().strip()
            result[name] = (child, os.pidfd_open(child))
            result.update(family_of(child))
    return result


def has_ended(descriptor):
    with contextlib.suppress(ProcessLookupError):
        signal.pidfd_send_signal(descriptor, 0)
        return False
    return True


def listeners(pid):
    """All TCP sockets on which the process listens, as (address in hexadecimal, port)."""
    inodes = set()
    for entry in pathlib.Path(f"/proc/{pid}/fd").iterdir():
        with contextlib.suppress(OSError):
            found = re.match(r"socket:\[(\d+)\]", str(entry.readlink()))
            if found:
                inodes.add(found.group(1))
    result = []
    for table in ("tcp", "tcp6"):
        file = pathlib.Path(f"/proc/{pid}/net", table)
        for line in file.read_text().splitlines()[1:] if file.exists() else []:
            fields = line.split()
            if fields[3] == "0A" and fields[9] in inodes:
                address, port = fields[1].split(":")
                result.append((address, int(port, 16)))
    return result


class OverVnc(unittest.TestCase):
    def setUp(self):
        self.stack = contextlib.ExitStack()
        self.addCleanup(self.stack.close)
        self.directory = self.stack.enter_context(hostprocess.temporary_directory())
        self.run_command = make_tree(self.directory)
        self.temporary = pathlib.Path(self.directory, "temporary")

    def environment(self):
        tools = pathlib.Path(self.directory, "tools")
        # The toolkit ends a program on the spot that loses its display: all that it has then counts as lost.
        sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        return hostprocess.environment(
            PATH=f"{tools}:{os.environ['PATH']}", TMPDIR=str(self.temporary), ASAN_OPTIONS=sanitizer
        )

    def start(self, *options, **arguments):
        process = subprocess.Popen(
            [self.run_command, "--size", f"{WIDTH}x{HEIGHT}", *options],
            env=self.environment(),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            encoding="utf-8",
            **arguments,
        )
        self.stack.callback(process.communicate)
        self.stack.callback(process.terminate)
        return process

    def shown(self, *options, **arguments):
        """The command once it shows the panel, the processes that it is made of, and somebody who looks on."""
        process = self.start(*options, **arguments)
        viewer = self.viewer(port_of(process))
        viewer.greet()
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, viewer.size[1] - 2) != NOTHING), "nothing is shown")
        family = family_of(process.pid)
        for _, descriptor in family.values():
            self.stack.callback(os.close, descriptor)
        return process, family, viewer

    def viewer(self, port):
        viewer = Viewer(port)
        self.stack.callback(viewer.close)
        return viewer


class Looking(OverVnc):
    def test_listens_on_loopback_alone(self):
        process = self.start()
        port = port_of(process)
        family = family_of(process.pid)
        self.assertEqual(listeners(family["Xvnc"][0]), [("0100007F", port)])
        for name, (pid, _) in family.items():
            self.assertEqual(name == "Xvnc", bool(listeners(pid)), name)

    def test_nobody_comes_past_the_viewers(self):
        _, family, _ = self.shown()
        environment = pathlib.Path(f"/proc/{family['panel-host'][0]}/environ").read_bytes()
        display = re.search(rb"\0DISPLAY=:(\d+)\0", environment).group(1)
        with socket.socket(socket.AF_UNIX) as other:
            other.connect(b"\0/tmp/.X11-unix/X" + display)
            # Little-endian, protocol 11.0, and nothing to show.
            other.sendall(struct.pack("<BxHHHHxx", ord("l"), 11, 0, 0, 0))
            refused = b"\0"
            self.assertEqual(other.recv(1), refused)

    def test_all_of_the_panel_is_shown(self):
        for size in ("1024x600", "480x800"):
            _, _, viewer = self.shown("--size", size)
            picture = pathlib.Path(self.directory, "picture.ppm")
            self.assertEqual(hostprocess.run("--size", size, "--picture", picture), (0, "", ""))
            width, height = map(int, picture.read_bytes().split(maxsplit=3)[1:3])
            self.assertEqual(viewer.size, (width, height))
            self.assertEqual(viewer.name, "Operator panel")
            # The page in one corner, the frame in the other: it is neither shifted nor cut off.
            pixels = picture.read_bytes()[-3 * width * height :]
            for x, y in ((0, 0), (0, height - 1), (width - FRAME - 1, 0), (width - FRAME, 0), (width - 1, height - 1)):
                place = 3 * (y * width + x)
                self.assertEqual(viewer.pixel(x, y)[::-1], pixels[place : place + 3], (x, y))

    def test_operated(self):
        _, _, viewer = self.shown()
        # The Settings button is in the lower right corner; Esc leads back.
        viewer.click(WIDTH - 60, HEIGHT - 35)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) != PAGE))
        viewer.press_key(0xFF1B)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) == PAGE))

    def test_key_beside_the_glass(self):
        _, _, viewer = self.shown()
        frame = viewer.pixel(WIDTH + 2, HEIGHT - 2)
        for _ in range(2):
            viewer.click(WIDTH + FRAME // 2, HEIGHT // 2)
            self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) != PAGE))
            # The settings are on the glass, and the frame is where it was.
            self.assertEqual(viewer.pixel(WIDTH + 2, HEIGHT - 2), frame)
            viewer.click(WIDTH + FRAME // 2, HEIGHT // 2)
            self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) == PAGE))

    def test_begins_with_the_settings(self):
        _, _, viewer = self.shown("--open")
        self.assertNotEqual(viewer.pixel(2, HEIGHT - 2), PAGE)
        # Left by the key, there is the operator's page.
        viewer.click(WIDTH + FRAME // 2, HEIGHT // 2)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, HEIGHT - 2) == PAGE))

    def test_key_works_while_a_dialog_is_open(self):
        _, _, viewer = self.shown("--open", "--size", "1024x600")
        corner, frame = viewer.pixel(1020, 597), viewer.pixel(1026, 597)
        # The time: its editor shades the glass, and the glass alone.
        viewer.click(960, 300)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(1020, 597) != corner))
        self.assertEqual(viewer.pixel(1026, 597), frame)
        viewer.click(1024 + FRAME // 2, 300)
        self.assertTrue(viewer.wait_until(lambda: viewer.pixel(2, 597) == PAGE))

    def test_nobody_sends_another_away(self):
        process = self.start()
        port = port_of(process)
        first, second = self.viewer(port), self.viewer(port)
        first.greet()
        second.greet()
        first.update(False)

    def test_second_panel_has_a_port_of_its_own(self):
        _, one, first = self.shown()
        _, other, second = self.shown("--open")
        self.assertNotEqual(one["Xvnc"][0], other["Xvnc"][0])
        self.assertEqual(first.pixel(2, HEIGHT - 2), PAGE)
        self.assertNotEqual(second.pixel(2, HEIGHT - 2), PAGE)

    def test_port(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            port = taken.getsockname()[1]
            process = self.start("--vnc", str(port))
            said, complaints = process.communicate()
        self.assertEqual((process.returncode, said), (125, ""))
        self.assertEqual(complaints, f"on-vnc: port {port} is in use; --vnc PORT takes another one\n")
        # It is free now.
        self.assertEqual(port_of(self.start("--vnc", str(port))), port)

    def test_password(self):
        password = "glove!05"
        file = pathlib.Path(self.directory, "password")
        file.write_bytes(subprocess.run(["vncpasswd", "-f"], input=password.encode(), capture_output=True, check=True).stdout)
        process = self.start("--vnc-password", file)
        said = process.stdout.readline()
        self.assertIn(str(file), said)
        port = int(re.search(r"127\.0\.0\.1:(\d+)", said).group(1))
        viewer = self.viewer(port)
        self.assertEqual(viewer.securities(), {PASSWORD})
        self.assertFalse(viewer.answer_challenge(bytes(16)))
        for pid in (process.pid, *(pid for pid, _ in family_of(process.pid).values())):
            self.assertNotIn(password.encode(), pathlib.Path(f"/proc/{pid}/cmdline").read_bytes())
        for log in self.temporary.rglob("log"):
            self.assertNotIn(password, log.read_text(encoding="utf-8"))
        # Whoever cannot be asked for it is told so at once.
        for wrong, complaint in ((self.directory, "is not what vncpasswd writes"), ("/nowhere", "there is no file /nowhere")):
            process = self.start("--vnc-password", wrong)
            _, complaints = process.communicate()
            self.assertEqual(process.returncode, 2)
            self.assertIn(complaint, complaints)


class Ending(OverVnc):
    def assert_nothing_is_left(self, family):
        self.assertEqual({"Xvnc", "panel-host"}, set(family))
        for name, (_, descriptor) in family.items():
            self.assertTrue(has_ended(descriptor), name)
        self.assertEqual(os.listdir(self.temporary), [])

    def test_by_a_signal(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            process, family, _ = self.shown()
            self.assertTrue(os.listdir(self.temporary))
            process.send_signal(number)
            self.assertEqual((process.wait(60), process.stderr.read()), (-number, ""))
            self.assert_nothing_is_left(family)

    def test_by_the_terminal(self):
        process, family, _ = self.shown(start_new_session=True)
        # It would end them in any order, and the host twice.
        for name, (pid, _) in family.items():
            self.assertNotEqual(os.getpgid(pid), process.pid, name)
        os.killpg(process.pid, signal.SIGINT)
        self.assertEqual((process.wait(60), process.stderr.read()), (-signal.SIGINT, ""))
        self.assert_nothing_is_left(family)

    def test_ignored_signal_stays_ignored(self):
        process, family, viewer = self.shown(preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        process.send_signal(signal.SIGHUP)
        viewer.update(False)
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(60), -signal.SIGTERM)
        self.assert_nothing_is_left(family)

    def test_killed(self):
        process, family, _ = self.shown()
        process.kill()
        process.wait(60)
        for name, (_, descriptor) in family.items():
            ended, _, _ = select.select([descriptor], [], [], 60)
            self.assertTrue(ended, name)

    def test_host_that_crashes(self):
        process, family, _ = self.shown()
        os.kill(family["panel-host"][0], signal.SIGKILL)
        self.assertEqual(process.wait(60), 128 + signal.SIGKILL)
        # The host itself could not clear up.
        for left in self.temporary.glob("qt_temp-*"):
            shutil.rmtree(left)
        self.assert_nothing_is_left(family)

    def test_display_that_crashes_while_the_host_hangs(self):
        process, family, _ = self.shown()
        _, host = family["panel-host"]
        signal.pidfd_send_signal(host, signal.SIGSTOP)
        os.kill(family["Xvnc"][0], signal.SIGKILL)
        self.assertEqual(process.stderr.readline(), "on-vnc: the display is gone: Xvnc has ended\n")
        signal.pidfd_send_signal(host, signal.SIGCONT)
        self.assertNotEqual(process.wait(60), 0)
        self.assertTrue(has_ended(host))

    def test_host_that_does_not_start(self):
        process = self.start("--library", "libnosuchscreen.so")
        port_of(process)
        _, complaints = process.communicate()
        self.assertEqual(process.returncode, 1)
        self.assertIn("libnosuchscreen.so", complaints)

    def test_display_that_crashes(self):
        process, family, _ = self.shown()
        os.kill(family["Xvnc"][0], signal.SIGKILL)
        self.assertNotEqual(process.wait(60), 0)
        # Whoever notices first.
        self.assertRegex(process.stderr.read(), "on-vnc: the display is gone|X11 connection broke")
        for name, (_, descriptor) in family.items():
            self.assertTrue(has_ended(descriptor), name)

    def test_no_server(self):
        lonely = pathlib.Path(self.directory, "tools")
        for tool in ("bash", "sh", "dirname", "readlink", "nproc", "setpriv", "ls"):
            (lonely / tool).symlink_to(shutil.which(tool))
        done = subprocess.run(
            [self.run_command], env=dict(self.environment(), PATH=str(lonely)), stdin=subprocess.DEVNULL,
            capture_output=True, encoding="utf-8", timeout=60, check=False,
        )
        self.assertEqual((done.returncode, done.stdout), (125, ""))
        self.assertIn("Xvnc", done.stderr)


if __name__ == "__main__":
    hostprocess.main()
