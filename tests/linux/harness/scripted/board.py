"""The objects of a scripted service on the bus, with their properties and methods."""

import dbus
import dbusmock
from gi.repository import GLib

PROPERTIES = dbus.PROPERTIES_IFACE


class Board:
    """Tells who listens of what comes, changes and goes."""

    def __init__(self, root):
        self._root = root
        self.pace = 10

    def add(self, path, interfaces, methods=()):
        """Publishes an object with its properties by interface; a method is (interface, name, in, out, function)."""
        first, *others = interfaces
        self._root.AddObject(path, first, dbus.Dictionary(interfaces[first], signature="sv"), [])
        made = dbusmock.get_object(path)
        for interface in others:
            made.AddProperties(interface, dbus.Dictionary(interfaces[interface], signature="sv"))
        for interface, name, takes, gives, function in methods:
            made.AddMethod(interface, name, takes, gives, called(function))
        self._root.object_manager_emit_added(path)

    def remove(self, path):
        self._root.object_manager_emit_removed(path)
        self._root.RemoveObject(path)

    @staticmethod
    def has(path):
        return path in dbusmock.mockobject.objects

    @staticmethod
    def get(path, interface, name):
        return dbusmock.get_object(path).props[interface][name]

    @staticmethod
    def change(path, interface, **values):
        changed = dbusmock.get_object(path)
        changed.props[interface].update(values)
        told = [interface, dbus.Dictionary(values, signature="sv"), dbus.Array([], signature="s")]
        changed.EmitSignal(PROPERTIES, "PropertiesChanged", "sa{sv}as", told)

    @staticmethod
    def tell(path, interface, name, signature, *arguments):
        dbusmock.get_object(path).EmitSignal(interface, name, signature, arguments)

    def later(self, act, *arguments):
        """Does it a step later."""

        def once():
            act(*arguments)
            return False

        GLib.timeout_add(self.pace, once)


def called(function):
    """The function as the mock calls it, which gives the object too and takes nothing but plain functions."""
    return lambda _object, *arguments: function(*arguments)


def paths(values=()):
    return dbus.Array([dbus.ObjectPath(value) for value in values], signature="o")


def dictionaries(values=()):
    return dbus.Array(values, signature="a{sv}")


def refusal(name, reason):
    return dbus.exceptions.DBusException(reason, name=name)
