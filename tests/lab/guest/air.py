"""The networks without wires around the device: access points whose radios are in a network of their own."""

import pathlib
import subprocess
import tempfile
import time

FAR = "far"
RADIOS = 3  # the device's own is the first

ACCESS_POINT = """\
interface={interface}
driver=nl80211
ssid={name}
hw_mode=g
channel={channel}
wpa=2
rsn_pairwise=CCMP
wpa_key_mgmt={kind}
{secret}
"""

LEASES = """\
port=0
interface={interface}
bind-interfaces
dhcp-range={subnet}.100,{subnet}.150,2m
dhcp-option=option:router,{subnet}.1
leasefile-ro
no-ping
"""


class AccessPoint:
    def __init__(self, place, **facts):
        self._facts = facts
        self._interface = facts["interface"]
        self._configuration = place / f"{self._interface}.conf"
        self._configuration.write_text(ACCESS_POINT.format(**facts), encoding="utf-8")
        self._leases = place / f"{self._interface}.leases"
        self._leases.write_text(LEASES.format(**facts), encoding="utf-8")
        self._processes = []

    def appear(self):
        if self._processes:
            return
        far("ip", "link", "set", self._interface, "up")
        hostapd = popen_far("hostapd", str(self._configuration))
        self._processes = [hostapd]
        wait_for(lambda: is_beaconing(self._interface), f"{self._interface} does not become an access point")
        far("ip", "address", "replace", f"{self._facts['subnet']}.1/24", "dev", self._interface)
        self._processes.append(popen_far("dnsmasq", "--keep-in-foreground", "--conf-file=" + str(self._leases)))

    def vanish(self):
        """At once and without a word to those who have joined, as when its power goes."""
        for process in self._processes:
            process.kill()
            process.wait()
        self._processes = []
        far("ip", "link", "set", self._interface, "down")


class Air:
    def __init__(self):
        self._directory = None
        self.points = {}

    def __enter__(self):
        self._directory = tempfile.TemporaryDirectory()
        place = pathlib.Path(self._directory.name)
        near("modprobe", "mac80211_hwsim", f"radios={RADIOS}")
        near("ip", "netns", "add", FAR)
        for number in range(1, RADIOS):
            near("iw", "phy", f"phy{number}", "set", "netns", "name", FAR)
        self.points = {
            "wpa2": AccessPoint(
                place,
                interface="wlan1",
                name="Lab WPA2",
                channel=1,
                kind="WPA-PSK",
                secret="wpa_passphrase=the old way",
                subnet="10.62.0",
            ),
            "wpa3": AccessPoint(
                place,
                interface="wlan2",
                name="Lab WPA3",
                channel=6,
                kind="SAE",
                secret="sae_password=the new way\nieee80211w=2",
                subnet="10.63.0",
            ),
        }
        for point in self.points.values():
            point.appear()
        return self

    def __exit__(self, *_):
        for point in self.points.values():
            point.vanish()
        self._directory.cleanup()


def near(*command):
    subprocess.run(command, check=True)


def far(*command):
    near("ip", "netns", "exec", FAR, *command)


def popen_far(*command):
    return subprocess.Popen(["ip", "netns", "exec", FAR, *command])


def is_beaconing(interface):
    told = subprocess.run(
        ["ip", "netns", "exec", FAR, "iw", "dev", interface, "info"], capture_output=True, text=True, check=True
    ).stdout
    return "type AP" in told and "channel" in told


def wait_for(condition, failure):
    deadline = time.monotonic() + 30
    while not condition():
        if time.monotonic() > deadline:
            raise TimeoutError(failure)
        time.sleep(0.1)
