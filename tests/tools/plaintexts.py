#!/usr/bin/env python3
"""Holds that what comes from outside is shown letter by letter.

    plaintexts.py ROOT         checks the tree; says every text of the screen that might take its contents for markup
    plaintexts.py --selftest   proves that the check finds what it is there to find

Names of networks, serial numbers and the texts of catalogues come from outside. A text item of a document, also of
one that stands in a source file, says `textFormat: Text.PlainText` unless it shows a literal. One that has its text
from a class gets it by setMultilingualText(), which makes it plain, or by a file that makes it plain itself.
"""

import pathlib
import re
import sys
import tempfile

FOLDERS = ("shell", "panel", "controls", "cards", "plugin", "resources")
ITEM = re.compile(r"\b(?:Text|Label)\s*\{")
BINDING = re.compile(r"^\s*text\s*:\s*(.*)$", re.MULTILINE)
LITERAL = re.compile(r'^"[^"<&\\]*"\s*;?$')
FORMAT = re.compile(r"\btextFormat\s*:\s*([\w.]+)|\bsetTextFormat\(([\w:]+)\)")
PLAIN = {"Text.PlainText", "QQuickText::PlainText"}
EMBEDDED = re.compile(r'R"(\w*)\((.*?)\)\1"', re.DOTALL)
SETS_TEXT = re.compile(r"\b(\w+)->setText\(")
NAMES_TEXT = re.compile(r"\bQQuickText\b")


def line_of(text, offset):
    return text.count("\n", 0, offset) + 1


def own_part(text, begin):
    """What stands between the braces, without what stands in braces there."""
    part, depth = [], 0
    for letter in text[begin:]:
        if letter == "}":
            depth -= 1
            if depth < 0:
                break
        if depth == 0:
            part.append(letter)
        if letter == "{":
            depth += 1
    return "".join(part)


def document_faults(text, first_line):
    for item in ITEM.finditer(text):
        own = own_part(text, item.end())
        binding = BINDING.search(own)
        if binding and not LITERAL.match(binding.group(1).strip()) and "Text.PlainText" not in own:
            yield first_line + line_of(text, item.start()) - 1, "shows %s, not as plain text" % binding.group(1).strip()


def source_faults(text):
    for embedded in EMBEDDED.finditer(text):
        yield from document_faults(embedded.group(2), line_of(text, embedded.start(2)))
    if not NAMES_TEXT.search(text) or "setTextFormat(QQuickText::PlainText)" in text:
        return
    for call in SETS_TEXT.finditer(text):
        # What a button is told its document shows.
        if call.group(1) != "button":
            yield line_of(text, call.start()), "sets the text of %s, which nobody made plain" % call.group(1)


def format_faults(text):
    for found in FORMAT.finditer(text):
        if (found.group(1) or found.group(2)) not in PLAIN:
            yield line_of(text, found.start()), "a text that is not plain: %s" % found.group(0)


def faults(root):
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in (".qml", ".cpp", ".h"):
                continue
            text = path.read_text(encoding="utf-8")
            found = document_faults(text, 1) if path.suffix == ".qml" else source_faults(text)
            for line, fault in [*found, *format_faults(text)]:
                yield "%s:%d: %s" % (path.relative_to(root), line, fault)


SAMPLES = {
    "resources/bound.qml": ('Item {\n  Text {\n    text: card.name\n    Item { textFormat: Text.PlainText }\n  }\n}',
                            "2: shows card.name, not as plain text"),
    "resources/label.qml": ('Label { text: name\n}', "1: shows name, not as plain text"),
    "resources/markup.qml": ('Text { text: "<b>"\n}', '1: shows "<b>", not as plain text'),
    "resources/styled.qml": ("Text { textFormat: Text.StyledText }",
                             "1: a text that is not plain: textFormat: Text.StyledText"),
    "resources/plain.qml": ("Text {\n  text: card.name\n  textFormat: Text.PlainText\n}", None),
    "resources/literal.qml": ('Text {\n  text: "!"\n}\nText { id: _title }', None),
    "controls/box.cpp": ('const char *box = R"(\nText { text: name\n}\n)";', "2: shows name, not as plain text"),
    "cards/row.cpp": ("void f(QQuickText *label)\n{\n    label->setText(name);\n}",
                      "3: sets the text of label, which nobody made plain"),
    "cards/plain.cpp": ("QQuickText *t;\nt->setTextFormat(QQuickText::PlainText);\nt->setText(name);", None),
    "cards/input.cpp": ("void f(QQuickTextInput *input) { input->setText(name); }", None),
}


def selftest():
    with tempfile.TemporaryDirectory() as directory:
        root = pathlib.Path(directory)
        for name, (text, _) in SAMPLES.items():
            (root / name).parent.mkdir(exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")
        expected = {"%s:%s" % (name, fault) for name, (_, fault) in SAMPLES.items() if fault}
        found = set(faults(root))
    for fault in sorted(expected - found):
        print("not found: " + fault)
    for fault in sorted(found - expected):
        print("found for nothing: " + fault)
    return found == expected


def main():
    if sys.argv[1:] == ["--selftest"]:
        return 0 if selftest() else 1
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    found = list(faults(pathlib.Path(sys.argv[1])))
    for fault in found:
        print(fault)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
