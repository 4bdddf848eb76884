"""Run as a process of its own: tells the scripted NetworkManager what to do."""

import sys

import dbus

NAME = "org.freedesktop.NetworkManager"


def main():
    try:
        manager = dbus.SystemBus().get_object(NAME, "/org/freedesktop/NetworkManager", introspect=False)
        for line in manager.Tell(dbus.Array(sys.argv[1:], signature="s"), dbus_interface="panel.sandbox.Script"):
            print(line)
    except dbus.DBusException as error:
        return error.get_dbus_message()
    return 0


if __name__ == "__main__":
    sys.exit(main())
