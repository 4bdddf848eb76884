#!/usr/bin/env python3
"""Holds who may know whom in this source tree.

    layers.py ROOT         checks the tree; says every include that goes the wrong way, and every circle
    layers.py --selftest   proves that the check finds what it is there to find

A folder is a floor. From the ground up, each includes only itself and those below; panel/ and controls/ stand
side by side and do not know each other:

    platform/include < shell/base/ < panel/, controls/ < shell/ < the folders of cards/ < cards/ < plugin/

The folders of cards/ do not know each other, but for what panel/ tells them.

The simulator, the service on Linux, the keyboard stand-in and the conformance program know the contracts
alone. The host sees the screen only as isystemset.h and pluginregistry.h. Tests and benches may include everything.
"""

import pathlib
import re
import sys
import tempfile

CARDS = {"cards/general", "cards/network", "cards/wifi", "cards/about"}
BELOW_CARDS = {"contracts", "shell/base", "panel", "controls", "shell"}
BELOW = {
    "contracts": set(),
    "shell/base": {"contracts"},
    "panel": {"contracts", "shell/base"},
    "controls": {"contracts", "shell/base"},
    "shell": {"contracts", "shell/base", "panel", "controls"},
    **{folder: BELOW_CARDS for folder in CARDS},
    "cards": BELOW_CARDS | CARDS,
    "plugin": BELOW_CARDS | CARDS | {"cards", "interface"},
    "interface": set(),
    "simulator": {"contracts"},
    "linux": {"contracts"},
    "keyboard": {"contracts"},
    "conformance": {"contracts"},
    "host": {"contracts", "interface"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def unit_of(path):
    """Where a file belongs; None for what no rule is about."""
    parts = path.parts
    if parts[0] == "platform":
        return {"include": "contracts"}.get(parts[1], parts[1])
    if parts[0] in ("shell", "cards") and len(parts) > 2:
        return "/".join(parts[:2])
    if path.as_posix() in ("plugin/isystemset.h", "plugin/pluginregistry.h"):
        return "interface"
    return parts[0] if parts[0] in BELOW else None


def may_include(unit):
    return BELOW[unit] | {unit}


def resolve(root, file, name):
    """The file of the tree that is meant by an include, or None for what is not ours."""
    for place in (file.parent, pathlib.Path(), pathlib.Path("platform/include"), pathlib.Path("platform")):
        candidate = pathlib.Path(*(place / name).parts)
        if (root / candidate).is_file():
            return candidate
    return None


def read_includes(root):
    graph = {}
    for top in ("platform", "shell", "panel", "controls", "cards", "plugin", "host", "conformance"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".h", ".cpp") and path.is_file():
                file = path.relative_to(root)
                names = INCLUDE.findall(path.read_text(encoding="utf-8"))
                found = (resolve(root, file, name) for name in names)
                graph[file] = [other for other in found if other is not None]
    return graph


def find_wrong_ways(graph):
    for file, includes in graph.items():
        unit = unit_of(file)
        if unit not in BELOW:
            yield f"{file}: on no floor: {unit}"
            continue
        for other in includes:
            if unit_of(other) not in may_include(unit):
                yield f"{file} ({unit}) includes {other} ({unit_of(other)})"


def find_circles(graph):
    """Circles among files, and among the headers' directories seen as floors."""
    done, path = set(), []

    def visit(file):
        if file in path:
            yield " -> ".join(map(str, [*path[path.index(file) :], file]))
            return
        if file in done:
            return
        path.append(file)
        for other in graph.get(file, []):
            yield from visit(other)
        path.pop()
        done.add(file)

    for file in graph:
        yield from visit(file)


def check(root):
    graph = read_includes(root)
    problems = [*find_wrong_ways(graph), *(f"circle: {circle}" for circle in find_circles(graph))]
    return graph, problems


def selftest():
    cases = [
        ("controls/button.h", '#include "shell/approotitem.h"\n', "controls/button.h (controls) includes"),
        ("shell/base/globalinfo.h", '#include "controls/button.h"\n', "shell/base/globalinfo.h (shell/base) includes"),
        ("shell/approotitem.h", '#  include "cards/card.h"\n', "shell/approotitem.h (shell) includes"),
        ("cards/card.h", '#include "simulator/simulator.h"\n', "cards/card.h (cards) includes platform/simulator"),
        ("platform/linux/bus.h", '#include "simulator/simulator.h"\n', "platform/linux/bus.h (linux) includes"),
        ("platform/linux/bus.h", '#include "shell/base/globalinfo.h"\n', "platform/linux/bus.h (linux) includes"),
        ("cards/card.h", '#include "linux/bus.h"\n', "cards/card.h (cards) includes platform/linux"),
        ("plugin/exports.cpp", '#include "host/main.h"\n', "plugin/exports.cpp (plugin) includes host"),
        ("host/main.h", '#include "shell/base/globalinfo.h"\n', "host/main.h (host) includes shell"),
        ("host/main.h", '#include "plugin/exports.h"\n', "host/main.h (host) includes plugin/exports.h"),
        ("cards/card.h", '#include "other.h"\n', "circle: cards/card.h -> cards/other.h -> cards/card.h"),
        ("shell/surprise/new.h", "", "shell/surprise/new.h: on no floor"),
        ("cards/network/card.h", '#include "cards/wifi/card.h"\n', "card.h (cards/network) includes cards/wifi/card.h"),
        ("cards/network/card.h", '#include "cards/card.h"\n', "card.h (cards/network) includes cards/card.h"),
        ("cards/new/card.h", "", "cards/new/card.h: on no floor"),
        ("conformance/main.h", '#include "simulator/simulator.h"\n', "main.h (conformance) includes platform/simulator"),
        ("panel/nic.h", '#include "controls/button.h"\n', "panel/nic.h (panel) includes controls/button.h"),
        ("controls/button.h", '#include "panel/nic.h"\n', "controls/button.h (controls) includes panel/nic.h"),
    ]
    base = {
        "platform/include/hmi/systemset.h": "",
        "platform/simulator/simulator.h": '#include "hmi/systemset.h"\n',
        "platform/linux/bus.h": '#include "hmi/systemset.h"\n',
        "shell/base/globalinfo.h": '#include "hmi/systemset.h"\n',
        "shell/approotitem.h": '#include "shell/base/globalinfo.h"\n',
        "panel/nic.h": '#include "hmi/systemset.h"\n',
        "controls/button.h": '#include "shell/base/globalinfo.h"\n',
        "cards/card.h": '#include "controls/button.h"\n#include "shell/approotitem.h"\n',
        "cards/wifi/card.h": '#include "panel/nic.h"\n',
        "cards/other.h": '#include "cards/card.h"\n',
        "plugin/isystemset.h": "",
        "plugin/exports.h": '#include "cards/card.h"\n#include "plugin/isystemset.h"\n',
        "plugin/exports.cpp": '#include "plugin/exports.h"\n',
        "host/main.h": '#include "plugin/isystemset.h"\n',
    }

    def problems_with(changes):
        with tempfile.TemporaryDirectory() as directory:
            for name, text in {**base, **changes}.items():
                file = pathlib.Path(directory, name)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return check(pathlib.Path(directory))[1]

    assert problems_with({}) == [], problems_with({})
    for name, text, expected in cases:
        found = problems_with({name: text})
        assert any(expected in problem for problem in found), (name, expected, found)
    print(f"{len(cases)} planted mistakes found")


def main():
    if sys.argv[1:] == ["--selftest"]:
        selftest()
        return 0
    graph, problems = check(pathlib.Path(sys.argv[1]))
    for problem in problems:
        print(problem)
    edges = sum(len(includes) for includes in graph.values())
    print(f"{len(graph)} files, {edges} includes of our own, {len(problems)} problems")
    return 1 if problems or not edges else 0


if __name__ == "__main__":
    sys.exit(main())
