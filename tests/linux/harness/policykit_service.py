"""Run as a process of its own: stands in for polkit, which ModemManager asks whether somebody may do something. All may."""

import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.PolicyKit1"
INTERFACE = f"{NAME}.Authority"


class Authority(dbus.service.Object):
    @dbus.service.method(INTERFACE, in_signature="(sa{sv})sa{ss}us", out_signature="(bba{ss})")
    def CheckAuthorization(self, _subject, _action, _details, _flags, _cancellation):
        return True, False, {}

    @dbus.service.signal(INTERFACE)
    def Changed(self):
        pass

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="s", out_signature="a{sv}")
    def GetAll(self, _):
        return {"BackendName": "sandbox", "BackendVersion": "1", "BackendFeatures": dbus.UInt32(0)}


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SystemBus()
    name = dbus.service.BusName(NAME, bus)
    authority = Authority(bus, "/org/freedesktop/PolicyKit1/Authority")
    print(f"{name.get_name()}: {authority} is ready", flush=True)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
