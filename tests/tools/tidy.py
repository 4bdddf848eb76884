#!/usr/bin/env python3
"""Puts all sources through clang-tidy: tidy.py BUILD_DIRECTORY FILE...

Most of clang-tidy's time goes into matching its checks against the toolkit's
headers, again for each file. So files that are compiled alike are judged
together: their texts stand one after the other in one unit, below all their
includes, and what is found is reported for the file and line it came from.
"""

import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.realpath(__file__))))
FILES_IN_A_UNIT = 25
INCLUDE = re.compile(r'#include [<"](?!.*\.moc")')
CONDITIONAL = re.compile(r"#(if|ifdef|ifndef)\b")
# Must stand in the global namespace, or what they say would be said of another type.
GLOBAL_ONLY = re.compile(r'^(Q_DECLARE_\w+\(|extern "C")', re.MULTILINE)
FINDING = re.compile(r"^(?P<unit>[^\s:]+\.unit\.cpp):(?P<line>\d+):(?P<rest>.*)$")
LOCAL_NAME = re.compile(
    r"^(?:template <[^>]*> )?(?:(?:struct|class|enum class|enum) (?P<type>\w+)"
    r"|(?:[\w:<>,*&\s\"]*?[\s*&])?(?P<name>\w+)\s*(?:\(|\{|\[| = |;))")


class Source:
    """A file, the arguments it is compiled with, and the names that only it knows."""

    def __init__(self, path, command):
        self.path = path
        self.arguments = arguments_of(command)
        with open(os.path.join(ROOT, path), encoding="utf-8") as file:
            self.lines = file.read().splitlines()
        self.is_test = path.startswith(("tests/", "bench/"))
        # A program of its own, whose names are nobody else's business.
        self.is_program = os.path.basename(path).startswith(("test_", "lab_"))
        self.local_names = names_in_anonymous_namespaces(self.lines)
        text = "\n".join(self.lines)
        self.is_alone = bool(GLOBAL_ONLY.search(text)) or any(CONDITIONAL.match(line) for line in self.lines)


def arguments_of(command):
    words = shlex.split(command)[1:]
    kept = []
    skip = False
    for word in words:
        if skip or word == "-c":
            skip = False
        elif word == "-o":
            skip = True
        elif not word.endswith(".cpp"):
            kept.append(word)
    return kept


def names_in_anonymous_namespaces(lines):
    names = set()
    inside = False
    for line in lines:
        if line == "namespace {":
            inside = True
        elif line == "} // namespace":
            inside = False
        elif (inside and line[:1].strip()) or line.startswith(("static ", "int main(")):
            match = LOCAL_NAME.match(line)
            if match:
                names.add(match["type"] or match["name"])
        elif line.startswith("using "):
            names.add(line)
    return names


def grouped(sources):
    """Files compiled with the same includes; in one group no name that two files keep to themselves."""
    groups = []
    for source in sources:
        include_path = [word for word in source.arguments if not word.startswith("-D") and not word.endswith("_autogen/include")]
        for group in groups:
            if (group["path"] == include_path and len(group["sources"]) < FILES_IN_A_UNIT and not source.is_alone
                    and group["kind"] == (source.is_test, source.is_program)
                    and (source.is_program or not group["names"] & source.local_names)):
                break
        else:
            group = {"path": include_path, "kind": (source.is_test, source.is_program), "sources": [], "names": set()}
            groups.append(group)
            if source.is_alone:
                group["path"] = None
        group["sources"].append(source)
        group["names"] |= source.local_names
    return [group["sources"] for group in groups]


class Unit:
    def __init__(self, number, directory, sources):
        self.path = os.path.join(directory, f"{number}.unit.cpp")
        self.sources = sources
        self.starts = []
        lines = []
        if len(sources) > 1:
            includes = {line for source in sources for line in source.lines if INCLUDE.match(line)}
            # Own headers last and in order, as the files have them.
            lines += sorted(includes, key=lambda line: ('"' in line, line))
        for index, source in enumerate(sources):
            wrapped = source.is_program and len(sources) > 1
            if wrapped:
                lines.append(f"namespace unit_{index} {{")
            self.starts.append(len(lines))
            hoisted = len(sources) > 1
            lines += ["" if hoisted and INCLUDE.match(line) else line for line in source.lines]
            if wrapped:
                lines.append(f"}} // namespace unit_{index}")
        with open(self.path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")

    def arguments(self):
        words = []
        for source in self.sources:
            words += [word for word in source.arguments if word not in words]
            words.append("-I" + os.path.join(ROOT, os.path.dirname(source.path)))
        return words

    def origin(self, line):
        for source, start in reversed(list(zip(self.sources, self.starts))):
            if line > start:
                return source.path, line - start
        return self.sources[0].path, 1

    def judge(self):
        # The analyzer walks every path of a program; what it would find in a test, the test's run finds.
        checks = ["--checks=-clang-analyzer-*"] if self.sources[0].is_test else []
        done = subprocess.run(
            ["clang-tidy", "--quiet", "--warnings-as-errors=*", f"--config-file={ROOT}/.clang-tidy", *checks, self.path,
             "--", *self.arguments()],
            cwd=ROOT, capture_output=True, text=True, check=False)
        report = []
        for line in done.stdout.splitlines():
            match = FINDING.match(line)
            if match:
                path, number = self.origin(int(match["line"]))
                line = f"{path}:{number}:{match['rest']}"
            report.append(line)
        if done.returncode != 0 and not report:
            report = [f"clang-tidy failed on {', '.join(source.path for source in self.sources)}", done.stderr]
        return "\n".join(report)


def main():
    build, names = sys.argv[1], sys.argv[2:]
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = {os.path.relpath(entry["file"], ROOT): entry["command"] for entry in json.load(file)}
    missing = [name for name in names if name not in commands]
    if missing:
        sys.exit(f"tidy: not compiled in {build}: {' '.join(missing)}")
    directory = os.path.join(build, "tidy")
    os.makedirs(directory, exist_ok=True)
    units = [Unit(number, directory, sources)
             for number, sources in enumerate(grouped([Source(name, commands[name]) for name in names]))]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        reports = [report for report in pool.map(Unit.judge, units) if report]
    print("\n".join(reports), end="\n" if reports else "")
    sys.exit(1 if reports else 0)


if __name__ == "__main__":
    main()
