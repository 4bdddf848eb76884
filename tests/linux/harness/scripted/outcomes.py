"""What an activation comes to: the states of a device, each with its reason, as real ones went through them."""

UNMANAGED = 10
DISCONNECTED = 30
PREPARE = 40
CONFIG = 50
NEED_AUTH = 60
IP_CONFIG = 70
ACTIVATED = 100
DEACTIVATING = 110
FAILED = 120

NO_REASON = 0
NOW_UNMANAGED = 3
NO_ADDRESS = 5
NO_SECRETS = 7
SUPPLICANT_DISCONNECTED = 8
CONNECTION_REMOVED = 38
USER_REQUESTED = 39
NEW_ACTIVATION = 60
NETWORK_NOT_FOUND = 53

BEGIN = [(PREPARE, NO_REASON), (CONFIG, NO_REASON)]
END = [(DISCONNECTED, NO_REASON)]

OUTCOMES = {
    "joined": [*BEGIN, (IP_CONFIG, NO_REASON), (80, NO_REASON), (90, NO_REASON), (ACTIVATED, NO_REASON)],
    "wrong-password": [*BEGIN, (NEED_AUTH, SUPPLICANT_DISCONNECTED), (FAILED, NO_SECRETS), *END],
    # Never gets as far as being tried.
    "short-password": [*BEGIN, (FAILED, NO_SECRETS), *END],
    # With WPA3 a wrong password looks the same.
    "absent": [*BEGIN, (FAILED, NETWORK_NOT_FOUND), *END],
    "no-lease": [*BEGIN, (IP_CONFIG, NO_REASON), (FAILED, NO_ADDRESS), *END],
    "stuck": BEGIN,
}

# States of a VPN connection by a plug-in, each with its reason.
VPN_OUTCOMES = {
    "joined": [(1, 0), (2, 0), (3, 0), (4, 0), (5, 1)],
    "wrong-password": [(1, 0), (2, 0), (3, 0), (6, 10)],
    "absent": [(1, 0), (2, 0), (3, 0), (6, 6)],
    "stuck": [(1, 0), (2, 0), (3, 0)],
}
