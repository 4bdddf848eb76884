#!/usr/bin/env python3
"""Holds the binary interfaces to what they were when the major version was raised last.

    abi.py ROOT VERSION ARCHITECTURE COMPILER...             compares with packaging/abi
    abi.py --selftest ROOT VERSION ARCHITECTURE COMPILER...  proves that changes are found
    abi.py --record ROOT VERSION ARCHITECTURE COMPILER...    keeps the interfaces of a new major version

COMPILER is how the sources are compiled: the program, the language and where the toolkit's headers are.
"""

import pathlib
import sys
import tempfile

from interfaces import INTERFACES, Change, Dumper, differences

SERVICE_HEADER = "platform/include/hmi/systemset.h"
KEYBOARD_HEADER = "platform/include/qvkb/qvkbpluginloader.h"

# None of them keeps anything from being compiled, and each would make a library of yesterday fail with a plug-in
# of today: values, sizes, the order of what lies in memory, and who is called.
PLANTED = {
    "service": [
        Change(SERVICE_HEADER, r"MOBILE_4G = 16", "MOBILE_4G = 32"),
        Change(SERVICE_HEADER, r"DHCP_FAILED = 1", "DHCP_FAILED = 2"),
        Change(SERVICE_HEADER, r"WIFI_TIMEOUT = 3,(.*)\n(.*)WIFI_WRONG_PASSWORD = 4",
               r"WIFI_WRONG_PASSWORD = 3,\1\n\2WIFI_TIMEOUT = 4"),
        Change(SERVICE_HEADER, r"unsigned char signal;", "int signal;"),
        Change(SERVICE_HEADER, r"\bquint32 m_address;", "quint64 m_address;"),
        Change(SERVICE_HEADER, r"(struct Private;)", r"\1 int m_more = 0;"),
        Change(SERVICE_HEADER, r"setSystemTime\(long seconds\)", "setSystemTime(long long seconds)"),
        Change(SERVICE_HEADER, r"( *void reboot\(\);)", r"\1\n    void more();"),
    ],
    "keyboard": [
        Change(KEYBOARD_HEADER, r"VkbPlainDigits = 2", "VkbPlainDigits = 3"),
        Change(KEYBOARD_HEADER, r"(virtual void reserved1\(\) = 0;)", r"\1 virtual void more() {}"),
        Change(KEYBOARD_HEADER, r"(virtual QQuickPopup \*popup\(\) = 0;)", r"virtual void first() {} \1"),
    ],
    "plugin": [
        Change("plugin/isystemset.h", r"(virtual void open\(\) = 0;)", r"virtual void reopen() {} \1"),
        Change("plugin/pluginregistry.h", r"(std::map<std::type_index, Factory> m_factories;)", r"int m_more = 0; \1"),
    ],
}


def record_of(root, version, architecture):
    return pathlib.Path(root, "packaging/abi", version.split(".")[0], architecture)


def compare(dumper, record, version):
    if not record.is_dir():
        print(f"Nothing is recorded of the interfaces of {version}, in {record}: abi.py --record does it")
        return 1
    changed = []
    with tempfile.TemporaryDirectory(prefix="abi ") as directory:
        for name in INTERFACES:
            now = pathlib.Path(directory, f"{name}.abi")
            dumper.dump(name, now)
            if difference := differences(record / now.name, now):
                print(f"{name}:\n{difference}")
                changed.append(name)
    if changed:
        print(f"Changed: {', '.join(changed)}. Others are built against it: raise the major version, then --record")
    return 1 if changed else 0


def selftest(dumper):
    missed = 0
    with tempfile.TemporaryDirectory(prefix="abi ") as directory:
        before, after = pathlib.Path(directory, "before.abi"), pathlib.Path(directory, "after.abi")
        for name, changes in PLANTED.items():
            dumper.dump(name, before)
            assert not differences(before, before)
            for change in changes:
                dumper.dump(name, after, change)
                if not differences(before, after):
                    print(f"not noticed: {change}")
                    missed += 1
    print(f"{sum(map(len, PLANTED.values()))} planted changes, {missed} not noticed")
    return 1 if missed else 0


def record_all(dumper, record):
    if record.is_dir():
        print(f"{record} is there: the interfaces of a version that was released stay what they are")
        return 1
    record.mkdir(parents=True)
    for name in INTERFACES:
        dumper.dump(name, record / f"{name}.abi")
    return 0


def main():
    arguments = sys.argv[1:]
    task = arguments.pop(0) if arguments[0].startswith("--") else "--compare"
    root, version, architecture, *compiler = arguments
    dumper = Dumper(compiler, root)
    record = record_of(root, version, architecture)
    if task == "--selftest":
        return selftest(dumper)
    if task == "--record":
        return record_all(dumper, record)
    return compare(dumper, record, version)


if __name__ == "__main__":
    sys.exit(main())
