"""Run by nm-harness: what it promises to those inside, seen from the kernel's side wherever the kernel knows."""

import os
import pathlib
import subprocess
import unittest

import insider
import machine
from insider import lines_of, tell

NETWORKS = {"lan0": "192.168.50", "lan1": "192.168.60"}
SERVICES = ("nm", "bus", "dhcp-lan0", "dhcp-lan1")
# In memory, or the sandbox's own of what the kernel keeps.
WRITABLE = {"/run", "/var/lib", "/dev", "/proc/sys/net", "/run/harness/logs"}
PROJECT = pathlib.Path(__file__).resolve().parents[4]


def manager_states():
    """The states of the ports as NetworkManager tells them; None when it does not answer."""
    try:
        lines = lines_of("nmcli", "--terse", "--fields", "DEVICE,STATE", "device", timeout=1)
    except subprocess.TimeoutExpired:
        return None
    if lines is None:
        return None
    states = dict(line.split(":", 1) for line in lines)
    return {name: states.get(name) for name in NETWORKS}


def has_carrier(port):
    return "LOWER_UP" in lines_of("ip", "-oneline", "link", "show", "dev", port)[0]


def is_request_waiting():
    """Whether there is something on the far side that came to the DHCP server's socket and that it has not read."""
    sockets = [line.split() for line in lines_of("far", "cat", "/proc/net/udp")[1:]]
    return any(fields[1].endswith(":0043") and int(fields[4].partition(":")[2], 16) > 0 for fields in sockets)


class Inside(insider.Insider):
    def setUp(self):
        self.expect_leases()

    def expect_leases(self):
        for port, network in NETWORKS.items():
            self.eventually(lambda port=port: len(tell("addresses", port)), 1)
            self.assertRegex(tell("addresses", port)[0], rf"^{network}\.1[0-5][0-9]/24$")
        self.eventually(lambda: tell("routes"), ["lan0 192.168.50.1 100", "lan1 192.168.60.1 200"])
        self.eventually(manager_states, {"lan0": "connected", "lan1": "connected"})

    def test_name_servers_and_profiles(self):
        self.eventually(lambda: tell("resolver"), ["192.168.50.1", "192.168.60.1"])
        profiles = [pathlib.Path(path) for path in tell("profiles")]
        self.assertEqual([path.name for path in profiles], ["lan0.nmconnection", "lan1.nmconnection"])
        self.assertIn("interface-name=lan0", profiles[0].read_text(encoding="utf-8"))

    def test_nothing_but_the_ports_is_there(self):
        links = [line.split(":")[1].split("@")[0].strip() for line in lines_of("ip", "-oneline", "link")]
        self.assertEqual(sorted(links), ["lan0", "lan1", "lo"])
        self.assertIsNotNone(lines_of("far", "ip", "link", "show", "dev", "lan0-far"))

    def test_services_can_write_nothing_of_the_machine_s(self):
        for service in SERVICES:
            process = f"/proc/{tell('pid', service)[0]}"
            root = f"{process}/root"
            for place in ("/", "/etc", "/usr", "/tmp", "/var/tmp", "/proc/sys/kernel", PROJECT, os.getcwd()):
                with self.subTest(service=service, place=place):
                    self.expect_refusal(f"{root}{place}")
            with self.subTest(service=service):
                mounts = [line.split()[4:6] for line in lines_of("cat", f"{process}/mountinfo")]
                open_ones = {place for place, options in mounts if "ro" not in options.split(",")}
                self.assertEqual(open_ones - WRITABLE, set())
                # A device is written to wherever it lies.
                self.assertLessEqual(set(os.listdir(f"{root}/dev")), {"full", "null", "random", "urandom", "zero"})

    def expect_refusal(self, directory):
        left = pathlib.Path(directory, "left-behind-by-a-service")
        try:
            left.touch(exist_ok=False)
        except OSError:
            return
        left.unlink()
        self.fail(f"{left} could be made")

    def test_cable_is_pulled_and_put_back(self):
        tell("cable", "lan0", "out")
        self.eventually(lambda: has_carrier("lan0"), False)
        self.assertTrue(has_carrier("lan1"))
        # NetworkManager gives a cable some seconds to come back.
        self.eventually(lambda: tell("addresses", "lan0"), [])
        self.eventually(manager_states, {"lan0": "unavailable", "lan1": "connected"})
        self.assertEqual(tell("routes"), ["lan1 192.168.60.1 200"])
        tell("cable", "lan0", "in")
        self.eventually(lambda: has_carrier("lan0"), True)
        self.expect_leases()

    def test_silent_server(self):
        tell("dhcp", "lan0", "silent")
        self.assertIsNotNone(lines_of("nmcli", "device", "disconnect", "lan0"))
        self.eventually(lambda: tell("addresses", "lan0"), [])
        self.assertIsNotNone(lines_of("nmcli", "--wait", "0", "connection", "up", "lan0"))
        self.eventually(is_request_waiting, True)
        self.assertEqual(tell("addresses", "lan0"), [])
        self.eventually(manager_states, {"lan0": "connecting (getting IP configuration)", "lan1": "connected"})
        tell("dhcp", "lan0", "answering")
        self.expect_leases()

    def test_frozen_and_thawed(self):
        process = tell("pid", "nm")
        tell("nm", "freeze")
        self.assertIsNone(manager_states())
        tell("nm", "thaw")
        self.expect_leases()
        self.assertEqual(tell("pid", "nm"), process)

    def test_killed_and_started(self):
        process, addresses = tell("pid", "nm"), tell("addresses", "lan0")
        tell("nm", "kill")
        with self.assertRaises(ProcessLookupError):
            os.kill(int(process[0]), 0)
        self.assertIsNone(manager_states())
        self.assertEqual(tell("addresses", "lan0"), addresses)
        tell("nm", "start")
        self.assertNotEqual(tell("pid", "nm"), process)
        self.expect_leases()
        self.assertEqual(tell("addresses", "lan0"), addresses)

    def test_killed_while_frozen(self):
        tell("nm", "freeze")
        tell("nm", "kill")
        tell("nm", "start")
        self.expect_leases()

    def test_restarted_while_frozen(self):
        tell("nm", "freeze")
        tell("nm", "restart")
        self.expect_leases()

    def test_restarted(self):
        process = tell("pid", "nm")
        tell("nm", "restart")
        self.assertNotEqual(tell("pid", "nm"), process)
        self.expect_leases()

    def test_bus_is_killed_and_started(self):
        tell("bus", "kill")
        self.assertIsNone(manager_states())
        tell("bus", "start")
        # It does not come back to a bus that it has lost.
        self.assertIsNone(manager_states())
        tell("nm", "restart")
        self.expect_leases()

    def test_a_look_at_the_machine_finds_what_has_changed(self):
        """The sandbox stands in for the machine that test_outside.py looks at."""
        before = machine.Look()
        for change, undo, expected in (
            ("ip address add 192.0.2.1/32 dev lo", "ip address del 192.0.2.1/32 dev lo", "came address: "),
            ("ip route add 192.0.2.0/24 dev lan0", "ip route del 192.0.2.0/24 dev lan0", "came route show table all: "),
            ("mount -t tmpfs none /var/lib", "umount /var/lib", "came file: mounted: "),
            ("ip link add other type veth peer name another", "ip link del other", ""),
            ("harnessctl nm kill", "harnessctl nm start", "lost service: "),
        ):
            self.assertIsNotNone(lines_of(*change.split()))
            found = machine.Look().changes_since(before)
            self.assertIsNotNone(lines_of(*undo.split()))
            if expected:
                self.assertTrue(any(line.startswith(expected) for line in found), (change, found))
            else:
                self.assertEqual(found, [], change)

    def test_what_cannot_be_done_is_refused(self):
        for words, reason in (
            (["fly"], "not fly, but one of: "),
            (["cable", "lan2", "out"], "not lan2, but one of: lan0, lan1"),
            (["cable", "lan0"], "not as many words"),
            (["nm", "break"], "not break, but one of: "),
            (["nm", "start"], "nm is running already"),
        ):
            done = subprocess.run(["harnessctl", *words], capture_output=True, encoding="utf-8", check=False)
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertIn(reason, done.stderr)

    def test_commands_are_listed(self):
        self.assertEqual(tell("help"), tell())
        self.assertIn("cable PORT out|in", tell()[0])


if __name__ == "__main__":
    unittest.main(verbosity=2)
