"""Run as a process of its own: gives ModemManager the serial line of the modem, as udev would give it a real one."""

import sys

import dbus

NAME = "org.freedesktop.ModemManager1"


def main():
    manager = dbus.SystemBus().get_object(NAME, "/org/freedesktop/ModemManager1", introspect=False)
    try:
        manager.SetProfile("sandbox", "generic", sys.argv[1:], dbus_interface=f"{NAME}.Test", signature="ssas")
    except dbus.DBusException as error:
        return str(error)
    return 0


if __name__ == "__main__":
    sys.exit(main())
