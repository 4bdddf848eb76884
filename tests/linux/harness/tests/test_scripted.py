"""Run by nm-harness --scripted: the scripted NetworkManager tells what a real one was seen to tell."""

import os
import subprocess
import unittest

import dbus
import dbus.mainloop.glib
from gi.repository import GLib

import insider
from insider import tell

NAME = "org.freedesktop.NetworkManager"
ROOT = "/org/freedesktop/NetworkManager"
DEVICE = f"{NAME}.Device"
HOME = "Home".encode().hex()
PASSWORD = "password one"

JOINED = [(40, 0), (50, 0), (70, 0), (80, 0), (90, 0), (100, 0)]
WRONG_PASSWORD = [(40, 0), (50, 0), (60, 8), (120, 7), (30, 0)]
SHORT_PASSWORD = [(40, 0), (50, 0), (120, 7), (30, 0)]
ABSENT = [(40, 0), (50, 0), (120, 53), (30, 0)]
NO_LEASE = [(40, 0), (50, 0), (70, 0), (120, 5), (30, 0)]


class Scripted(insider.Insider):
    def setUp(self):
        tell("nm", "restart")
        tell("script", "pace", "1")
        dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
        self.bus = dbus.bus.BusConnection(os.environ["DBUS_SYSTEM_BUS_ADDRESS"])
        self.manager = self.interface(ROOT, NAME)
        self.seen = []
        self.bus.add_signal_receiver(self.note, "StateChanged", DEVICE)
        self.bus.add_signal_receiver(lambda *told: self.seen.append(tuple(map(int, told))), "VpnStateChanged")

    def tearDown(self):
        self.bus.close()

    def interface(self, path, name):
        return dbus.Interface(self.bus.get_object(NAME, path, introspect=False), name)

    def note(self, state, _was, reason):
        self.seen.append((int(state), int(reason)))

    def property(self, path, interface, name):
        return self.interface(path, dbus.PROPERTIES_IFACE).Get(interface, name)

    def run_until(self, condition):
        """Takes what comes from the bus until the condition holds; only what hangs takes a minute."""
        context = GLib.MainContext.default()
        late = []
        limit = GLib.timeout_add_seconds(60, lambda: late.append(True))
        while not condition() and not late:
            context.iteration(True)
        self.assertFalse(late, self.seen)
        GLib.source_remove(limit)

    def expect(self, states):
        self.run_until(lambda: len(self.seen) >= len(states))
        self.assertEqual(self.seen, states)
        self.seen.clear()

    def join(self, password=PASSWORD, name="Home", management="wpa-psk", persist="volatile"):
        settings = {
            "802-11-wireless": dbus.Dictionary({"ssid": dbus.ByteArray(name.encode())}, signature="sv"),
            "802-11-wireless-security": dbus.Dictionary({"key-mgmt": management, "psk": password}, signature="sv"),
        }
        device = self.manager.GetDeviceByIpIface("wlan0")
        options = dbus.Dictionary({"persist": persist}, signature="sv")
        join = self.manager.AddAndActivateConnection2
        profile, active, _ = join(settings, device, "/", options, signature="a{sa{sv}}ooa{sv}")
        return profile, active

    def test_outcomes_that_follow_from_the_network(self):
        tell("script", "network", HOME, "70", "wpa2", PASSWORD)
        tell("script", "network", "ff00", "70", "wpa3", PASSWORD)
        for given, states in (("wrong password", WRONG_PASSWORD), ("seven77", SHORT_PASSWORD)):
            self.join(given)
            self.expect(states)
            self.assertEqual(tell("script", "profiles"), [])
        self.join(name="Elsewhere")
        self.expect(ABSENT)
        self.assertEqual(tell("script", "profiles"), [])

    def test_wrong_password_of_a_network_with_wpa3(self):
        tell("script", "network", HOME, "70", "wpa3", PASSWORD)
        self.join("wrong password", management="sae")
        self.expect(ABSENT)
        self.join(management="sae")
        self.expect(JOINED)

    def test_joined_and_stored(self):
        tell("script", "network", HOME, "70", "wpa2", PASSWORD)
        profile, active = self.join()
        self.expect(JOINED)
        self.assertEqual(tell("script", "profiles"), ["volatile Home"])
        self.assertEqual(self.property(active, f"{NAME}.Connection.Active", "State"), 2)
        device = self.manager.GetDeviceByIpIface("wlan0")
        addresses = self.property(device, DEVICE, "Ip4Config")
        self.assertEqual(self.property(addresses, f"{NAME}.IP4Config", "AddressData")[0]["address"], "192.168.70.100")
        self.assertNotEqual(self.property(device, f"{DEVICE}.Wireless", "ActiveAccessPoint"), "/")
        connection = self.interface(profile, f"{NAME}.Settings.Connection")
        empty = {"dbus_interface": f"{NAME}.Settings.Connection", "signature": "a{sa{sv}}ua{sv}"}
        connection.Update2(dbus.Dictionary({}, signature="sa{sv}"), 1, dbus.Dictionary({}, signature="sv"), **empty)
        self.assertEqual(tell("script", "profiles"), ["stored Home"])
        self.assertNotIn("psk", connection.GetSettings()["802-11-wireless-security"])
        secrets = connection.GetSecrets("802-11-wireless-security")
        self.assertEqual(secrets["802-11-wireless-security"]["psk"], PASSWORD)
        self.manager.DeactivateConnection(active)
        self.expect([(110, 39), (30, 39)])
        self.assertEqual(tell("script", "profiles"), ["stored Home"])
        connection.Delete()
        self.assertEqual(tell("script", "profiles"), [])

    def test_outcomes_that_are_told(self):
        tell("script", "network", HOME, "70", "open")
        for outcome, states in (("no-lease", NO_LEASE), ("absent", ABSENT), ("itself", JOINED)):
            tell("script", "outcome", "wlan0", outcome)
            self.join()
            self.expect(states)

    def test_new_activation_ends_the_old_one(self):
        tell("script", "network", HOME, "70", "open")
        self.join()
        self.expect(JOINED)
        self.join()
        self.expect([(110, 60), (30, 60), *JOINED])
        self.assertEqual(tell("script", "profiles"), ["volatile Home"])

    def test_network_vanishes(self):
        tell("script", "network", HOME, "70", "open")
        self.join()
        self.expect(JOINED)
        tell("script", "vanish", HOME)
        self.expect([(120, 53), (30, 0)])

    def test_profile_is_deleted_while_in_force(self):
        tell("script", "network", HOME, "70", "open")
        profile, _ = self.join(persist="disk")
        self.expect(JOINED)
        self.interface(profile, f"{NAME}.Settings.Connection").Delete()
        self.expect([(110, 38), (30, 38)])
        self.assertEqual(tell("script", "profiles"), [])

    def test_device_is_removed_in_the_middle(self):
        tell("script", "outcome", "wlan0", "stuck")
        tell("script", "network", HOME, "70", "open")
        self.join()
        self.expect([(40, 0), (50, 0)])
        tell("script", "device", "wlan0", "out")
        self.expect([(10, 3)])
        with self.assertRaises(dbus.DBusException):
            self.manager.GetDeviceByIpIface("wlan0")
        tell("script", "device", "wlan0", "in")
        self.assertTrue(self.manager.GetDeviceByIpIface("wlan0"))

    def test_scan(self):
        device = self.manager.GetDeviceByIpIface("wlan0")
        wireless = self.interface(device, f"{DEVICE}.Wireless")
        ask = {"signature": "a{sv}"}
        nothing = dbus.Dictionary({}, signature="sv")
        tell("script", "crowd", "200")
        self.assertEqual(len(wireless.GetAllAccessPoints()), 200)
        before = self.property(device, f"{DEVICE}.Wireless", "LastScan")
        wireless.RequestScan(nothing, **ask)
        self.eventually(lambda: self.property(device, f"{DEVICE}.Wireless", "LastScan") > before, True)
        tell("script", "scan", "refused")
        with self.assertRaisesRegex(dbus.DBusException, "not allowed"):
            wireless.RequestScan(nothing, **ask)
        tell("script", "silence")
        self.assertEqual(len(wireless.GetAllAccessPoints()), 0)

    def test_names_are_bytes(self):
        for name in ("ff00fe", "", "61" * 32):
            tell("script", "network", name, "50", "open")
        wireless = self.interface(self.manager.GetDeviceByIpIface("wlan0"), f"{DEVICE}.Wireless")
        points = wireless.GetAllAccessPoints()
        found = {bytes(self.property(point, f"{NAME}.AccessPoint", "Ssid")) for point in points}
        self.assertEqual(found, {b"\xff\x00\xfe", b"", b"a" * 32})
        strength = self.property(points[0], f"{NAME}.AccessPoint", "Strength")
        self.assertIsInstance(strength, dbus.Byte)

    def test_vpn(self):
        settings = self.interface(f"{ROOT}/Settings", f"{NAME}.Settings")
        profile = settings.AddConnection({"connection": {"id": "Asia", "type": "vpn"}}, signature="a{sa{sv}}")
        active = self.manager.ActivateConnection(profile, "/", "/")
        self.expect([(1, 0), (2, 0), (3, 0), (4, 0), (5, 1)])
        self.assertEqual(self.property(active, f"{NAME}.VPN.Connection", "VpnState"), 5)
        self.manager.DeactivateConnection(active)
        self.expect([(7, 2)])
        tell("script", "outcome", "vpn", "wrong-password")
        self.manager.ActivateConnection(profile, "/", "/")
        self.expect([(1, 0), (2, 0), (3, 0), (6, 10)])
        self.run_until(lambda: not self.property(ROOT, NAME, "ActiveConnections"))

    def test_mobile(self):
        settings = self.interface(f"{ROOT}/Settings", f"{NAME}.Settings")
        profile = settings.AddConnection({"connection": {"id": "Mobile", "type": "gsm"}}, signature="a{sa{sv}}")
        device = self.manager.GetDeviceByIpIface("wwan0")
        self.manager.ActivateConnection(profile, device, "/")
        self.expect(JOINED)
        self.interface(device, DEVICE).Disconnect()
        self.expect([(110, 39), (30, 39)])

    def test_its_own_command_believes_in_it(self):
        tell("script", "network", HOME, "70", "wpa2", PASSWORD)
        listed = insider.lines_of("nmcli", "--terse", "--fields", "SSID,SIGNAL,SECURITY", "device", "wifi", "list")
        self.assertEqual(listed, ["Home:70:WPA2"])
        devices = insider.lines_of("nmcli", "--terse", "--fields", "DEVICE,TYPE,STATE", "device")
        self.assertEqual(sorted(devices), ["wlan0:wifi:disconnected", "wwan0:gsm:disconnected"])
        self.assertIsNotNone(insider.lines_of("nmcli", "device", "wifi", "connect", "Home", "password", PASSWORD))

    def test_what_cannot_be_done_is_refused(self):
        for line in ("fly", "outcome wlan0 luck", "network xx 1 open", "pace", "device wlan7 out"):
            words = line.split()
            done = subprocess.run(["harnessctl", "script", *words], capture_output=True, encoding="utf-8", check=False)
            self.assertEqual(done.returncode, 1)
            self.assertIn("error: script", done.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
