"""What the scripted mobile device has beyond any other."""

import dbus

MODEM = "org.freedesktop.NetworkManager.Device.Modem"
GSM_UMTS = 0x4


class Mobile:
    @staticmethod
    def properties():
        return {
            MODEM: {
                "ModemCapabilities": dbus.UInt32(GSM_UMTS),
                "CurrentCapabilities": dbus.UInt32(GSM_UMTS),
                "DeviceId": "sandbox",
                "OperatorCode": "00101",
                "Apn": "sandbox",
            }
        }

    @staticmethod
    def methods():
        return []

    @staticmethod
    def outcome(_settings):
        return "joined"

    def put_in_force(self, _settings):
        pass

    def take_out_of_force(self):
        pass
