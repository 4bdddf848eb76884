#!/usr/bin/env python3
"""Holds that sources and catalogues know the same texts.

    catalogue.py LUPDATE ROOT        finds the texts of the sources as update_translations would; says what
                                     only the sources have, and what only a catalogue has
    catalogue.py LUPDATE --selftest  proves that the check finds what it is there to find
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

SOURCES = re.compile(r"^set\(TEXT_SOURCES ([^)]*)\)", re.MULTILINE)


def texts_of(catalogue):
    root = xml.etree.ElementTree.parse(catalogue).getroot()
    return {(context.findtext("name"), message.findtext("source"))
            for context in root.iter("context") for message in context.iter("message")}


def check(lupdate, root):
    sources = SOURCES.search((root / "resources/CMakeLists.txt").read_text(encoding="utf-8")).group(1).split()
    catalogues = sorted((root / "resources/setting/translations").glob("settings_*.ts"))
    problems = [] if catalogues else ["no catalogue"]
    with tempfile.TemporaryDirectory() as directory:
        for catalogue in catalogues:
            renewed = pathlib.Path(directory, catalogue.name)
            shutil.copy(catalogue, renewed)
            subprocess.run([lupdate, "-silent", "-locations", "none", "-no-obsolete", *sources, "-ts", renewed],
                           cwd=root, check=True)
            before, after = texts_of(catalogue), texts_of(renewed)
            problems += [f"{catalogue.name} lacks {text}" for text in sorted(after - before)]
            problems += [f"{catalogue.name} alone has {text}" for text in sorted(before - after)]
    return problems


def selftest(lupdate):
    with tempfile.TemporaryDirectory() as directory:
        root = pathlib.Path(directory)
        for name, text in {
            "resources/CMakeLists.txt": "set(TEXT_SOURCES cards)\n",
            "cards/card.cpp": 'auto text = QCoreApplication::translate("Card", "Told");\n',
            "resources/setting/translations/settings_de.ts":
                '<?xml version="1.0"?><!DOCTYPE TS><TS version="2.1" language="de"><context><name>Card</name><message>'
                '<source>Gone</source><translation>x</translation></message></context></TS>\n',
        }.items():
            file = root / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        found = check(lupdate, root)
        expected = ["settings_de.ts lacks ('Card', 'Told')", "settings_de.ts alone has ('Card', 'Gone')"]
        assert found == expected, found
    print("both planted differences found")


def main():
    if sys.argv[2:] == ["--selftest"]:
        selftest(sys.argv[1])
        return 0
    problems = check(sys.argv[1], pathlib.Path(sys.argv[2]))
    print(*problems or ["sources and catalogues agree"], sep="\n")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
