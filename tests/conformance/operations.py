#!/usr/bin/env python3
"""Holds what is written of the service's members against the header.

    operations.py NM LIBRARY ROOT    the list of members, the library, the table in the documents, and what is timed
    operations.py --selftest ROOT    proves that the check finds what it is there to find
"""

import pathlib
import re
import subprocess
import sys

HEADER = "platform/include/hmi/systemset.h"
LIST = "conformance/operations.h"
TABLE = "docs/service-contract.md"
TIMING = "conformance/checks/speed.cpp"
MEMBER = re.compile(r"(~?\w+)\s*\([^;{]*\)\s*(?:const)?\s*$")
ROW = re.compile(r'\{"(~?\w+)", (.*), Refusal::(\w+)\}')
SYMBOL = re.compile(r"_ZNK?3HMI9SystemSet(?:\d|[CD][12]Ev)")
# What the linker makes beside the constructor and destructor that are called.
SAME_AGAIN = {"_ZN3HMI9SystemSetC2Ev", "_ZN3HMI9SystemSetD2Ev"}
TABLE_HEAD = "| Operation | Answer |"
ANSWERS = {"must answer": "Never", "may refuse": "Allowed"}


def members_of_header(text):
    """The public members of the class, in order."""
    body = text[text.index("class HMI_EXPORT SystemSet"):]
    body = body[body.index("    SystemSet();"):body.index("\nprivate:")]
    body = re.sub(r"//.*", "", body)
    names = []
    for declaration in body.split(";"):
        if "= delete" in declaration:
            continue
        match = MEMBER.search(declaration.strip())
        if match:
            names.append(match[1])
    return names


def getters_of_header(text):
    """What only tells something: const members, but for the one that makes a noise."""
    constant = set(re.findall(r"(\w+)\([^;)]*\) const;", text)) - {"beep"}
    return [name for name in members_of_header(text) if name in constant]


def rows_of_list(text):
    """Name, symbol on a 64-bit machine, and refusal of each member."""
    rows = []
    for name, symbol, refusal in ROW.findall(text):
        pieces = re.findall(r'"([^"]*)"|(PANEL_SIZE_CODE)', symbol)
        rows.append((name, "".join(literal or "Lm" for literal, _ in pieces), refusal))
    return rows


def rows_of_table(text):
    """Name and answer of each operation in the table; a row may have several operations."""
    start = text.find(TABLE_HEAD)
    rows = []
    for line in text[start:].splitlines()[2:] if start >= 0 else []:
        if not line.startswith("|"):
            break
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        for name in re.findall(r"`(~?\w+)[^`]*`", cells[0]):
            rows.append((name, cells[1]))
    return rows


def compare(what, found, wanted):
    for name in wanted:
        if name not in found:
            yield f"{what}: missing: {name}"
    for name in found:
        if name not in wanted:
            yield f"{what}: too much: {name}"
    for name in {name for name in found if found.count(name) > 1}:
        yield f"{what}: twice: {name}"


def problems_of_texts(header, members, table):
    names = members_of_header(header)
    rows = rows_of_list(members)
    yield from compare(LIST, [name for name, _, _ in rows], names)
    documented = rows_of_table(table)
    yield from compare(TABLE, [name for name, _ in documented],
                       [name for name in names if name.strip("~") != "SystemSet"])
    refusals = {name: refusal for name, _, refusal in rows}
    for name, answer in documented:
        kind = next((kind for kind in ANSWERS if answer.startswith(kind)), None)
        if kind is None:
            yield f"{TABLE}: {name}: neither {' nor '.join(ANSWERS)}: {answer}"
        elif name in refusals and refusals[name] != ANSWERS[kind]:
            yield f"{TABLE}: {name}: {kind}, but the checks have it otherwise"


def problems_of_timing(header, timing):
    yield from compare(TIMING, re.findall(r'\.measure\("(\w+)"', timing), getters_of_header(header))


def problems_of_library(nm, library, members):
    listing = subprocess.run([nm, "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    defined = {line.split()[-1] for line in listing.splitlines()}
    symbols = [symbol for _, symbol, _ in rows_of_list(members)]
    if "_ZNK3HMI9SystemSet8isDhcpOnENS0_3NICE" not in defined:
        yield f"{library}: no members at all?"
    yield from compare(library, [symbol for symbol in defined - SAME_AGAIN if SYMBOL.match(symbol)],
                       [symbol.replace("Lm33E", "Lj33E") if is_32_bit(defined) else symbol for symbol in symbols])


def is_32_bit(defined):
    return any("5arrayIcLj33E" in symbol for symbol in defined)


def texts(root):
    return tuple(pathlib.Path(root, name).read_text(encoding="utf-8") for name in (HEADER, LIST, TABLE, TIMING))


def selftest(root):
    header, members, table, timing = texts(root)

    def expect(expected, *changed):
        found = list(problems_of_texts(*changed) if len(changed) == 3 else problems_of_timing(*changed))
        assert any(expected in problem for problem in found), (expected, found)

    assert len(members_of_header(header)) > 40
    new = header.replace("    void reboot();", "    void reboot();\n    void shutDown(NIC nic, bool now) const;")
    expect(f"{LIST}: missing: shutDown", new, members, table)
    expect(f"{TABLE}: missing: shutDown", new, members, table)
    gone = header.replace("    void reboot();", "")
    expect(f"{LIST}: too much: reboot", gone, members, table)
    expect(f"{TABLE}: too much: reboot", gone, members, table)
    expect("reboot: must answer, but the checks", header,
           members.replace('6rebootEv", Refusal::Never', '6rebootEv", Refusal::Allowed'), table)
    expect(f"{TABLE}: missing: getMac", header, members, table.replace("`getMac", "`getMacs"))
    expect("neither must answer nor may refuse", header, members, table.replace("| must answer", "| answers", 1))
    expect(f"{TIMING}: missing: shutDown", new, timing)
    expect(f"{TIMING}: missing: getMac", header, timing.replace('"getMac"', '"getMacs"'))
    print("9 planted mistakes found")


def main():
    if sys.argv[1] == "--selftest":
        selftest(sys.argv[2])
        return 0
    nm, library, root = sys.argv[1:]
    header, members, table, timing = texts(root)
    problems = [
        *problems_of_texts(header, members, table),
        *problems_of_timing(header, timing),
        *problems_of_library(nm, library, members),
    ]
    for problem in problems:
        print(problem)
    print(f"{len(members_of_header(header))} members, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
