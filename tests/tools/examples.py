#!/usr/bin/env python3
"""Builds and runs what is in docs/examples as its reader would: out of tree, against an installation.

    examples.py CMAKE PREFIX EXAMPLES PLUGINS JOURNAL

PREFIX is the installation, PLUGINS the directory with the plug-in that operates a host (see hostwatch.cpp),
JOURNAL the example that links the simulator. The hosts run with the service and the keyboard that stand beside
them in EXAMPLES. Whatever a program says on its error output is a failure.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SECONDS = 180
WARNINGS = "-Wall -Wextra -Wpedantic -Werror"

# What an operator does with each host, and sees: text by text. The digits are keys of the keyboard.
TYPES_AN_ADDRESS = ["tap Network", "tap 100", "tap 2", "tap 3", "tap Enter", "see 23"]
VISITS = {
    # The address is still there when its page is shown again: the service has it.
    "host": ["see Brightness", "picture {picture}", *TYPES_AN_ADDRESS, "tap Version", "tap Network", "see 23"],
    # A narrow screen begins with its menu.
    "viewhost": ["see General", "picture {picture}", *TYPES_AN_ADDRESS],
    "applicationhost": ["tap Set up", "see Brightness", "picture {picture}", "tap Exit", "see Set up"],
}

# Scenarios, and what the simulator says of those that it refuses.
SCENARIOS = {"gateway.json": None, "scenario.json": "refused.txt"}


class Failure(Exception):
    pass


def run(*command, expected=0, **options):
    done = subprocess.run(
        [str(part) for part in command],
        stdin=subprocess.DEVNULL,
        capture_output=True,
        encoding="utf-8",
        timeout=SECONDS,
        check=False,
        **options,
    )
    if done.returncode != expected:
        raise Failure(f"{command}: ended with {done.returncode}\n{done.stdout}{done.stderr}")
    return done


class Examples:
    def __init__(self, cmake, prefix, sources, plugins, work):
        self.cmake, self.prefix, self.sources = cmake, prefix, sources
        self.plugins, self.work = plugins, work
        self.plugin_directory = next(prefix.rglob("libpanelsettings.so")).parent
        self.simulator_directory = next(prefix.rglob("simulator/libhmisystemset.so")).parent

    def build(self, name, **definitions):
        build = self.work / "build" / name
        run(
            self.cmake,
            *("-S", self.sources / name, "-B", build, "-G", "Ninja"),
            f"-DCMAKE_PREFIX_PATH={self.prefix}",
            f"-DCMAKE_CXX_FLAGS={WARNINGS}",
            *(f"-D{key}={value}" for key, value in definitions.items()),
        )
        run(self.cmake, "--build", build)
        return build

    def environment(self, *libraries, **changes):
        return dict(
            os.environ,
            LD_LIBRARY_PATH=":".join(map(str, libraries)),
            # Whatever is missing shows at the start, not when it is first called.
            LD_BIND_NOW="1",
            XDG_RUNTIME_DIR=str(self.work),
            TMPDIR=str(self.work),
            **changes,
        )

    def visit(self, program, libraries):
        picture = self.work / f"{program.name}.png"
        steps = [step.format(picture=picture) for step in VISITS[program.name]]
        done = run(
            program,
            env=self.environment(
                *libraries,
                QT_PLUGIN_PATH=str(self.plugins),
                QT_QPA_GENERIC_PLUGINS="hostwatch",
                HOSTWATCH="|".join(steps),
            ),
        )
        if done.stderr:
            raise Failure(f"{program.name} said: {done.stderr}")
        if not picture.is_file():
            raise Failure(f"{program.name} ended before the screen was seen")
        print(f"{program.name}: {len(steps)} steps, ended by itself")

    def names_what_is_missing(self, program):
        alone = self.work / "alone"
        alone.mkdir()
        shutil.copy(self.plugin_directory / "libpanelsettings.so", alone)
        done = run(program, env=self.environment(alone), expected=1)
        if "libhmisystemset.so" not in done.stderr and "libqvkbpluginloader.so" not in done.stderr:
            raise Failure(f"{program.name} does not name the library that is missing: {done.stderr}")

    def judge(self, library, told, *options, expected):
        program = self.prefix / "bin/panelsettings-conformance"
        said = run(program, *options, library, env=self.environment(), expected=expected).stdout
        if (self.sources / "service" / told).read_text(encoding="utf-8") not in said:
            raise Failure(f"{library}: not what {told} tells of: {said}")

    def check_service_and_hosts(self):
        service, keyboard = self.build("service"), self.build("keyboard")
        self.judge(service / "libhmisystemset.so", "kept.txt", expected=0)
        self.judge(keyboard / "libqvkbpluginloader.so", "../keyboard/kept.txt", "--keyboard", expected=0)
        # A library, but not of this kind.
        self.judge(keyboard / "libqvkbpluginloader.so", "broken.txt", expected=1)
        hosts = self.build("host", SETTINGS_SERVICE=service / "libhmisystemset.so")
        for name in VISITS:
            self.visit(hosts / name, [service, keyboard, self.plugin_directory])
        self.names_what_is_missing(hosts / "host")

    def check_scenarios(self):
        program = self.build("simulator") / "loadscenario"
        environment = self.environment(self.simulator_directory)
        directory = self.sources / "simulator"
        for scenario, refusal in SCENARIOS.items():
            done = run(program, scenario, env=environment, cwd=directory, expected=1 if refusal else 0)
            said = (directory / refusal).read_text(encoding="utf-8") if refusal else ""
            if done.stderr != said:
                raise Failure(f"{scenario}: {done.stderr!r}, not {said!r}")
            print(f"{scenario}: {'refused' if refusal else 'taken'}")

    def check_journal(self, program):
        said = run(program).stdout
        if said != (self.sources / "simulator/journal.txt").read_text(encoding="utf-8"):
            raise Failure(f"not the journal that is told of: {said}")

    def check_unit(self):
        """What starts the screen with a device names what is installed, and options that the host has."""
        unit = self.sources / "linux/panel.service"
        lines = [line.partition("=") for line in unit.read_text(encoding="utf-8").splitlines()]
        settings = dict(word.split("=", 1) for key, _, value in lines if key == "Environment" for word in value.split())
        service = next(self.prefix.rglob("linux/libhmisystemset.so")).parent
        if pathlib.Path(settings["LD_LIBRARY_PATH"]).parts[-2:] != service.parts[-2:]:
            raise Failure(f"{unit}: the service is in {service}")
        (command,) = [value for key, _, value in lines if key == "ExecStart"]
        program, *options = command.split()
        run(self.prefix / pathlib.Path(program).relative_to("/usr"), *options, "--help")
        print(f"{unit.name}: {command}")

    def check_rules(self):
        """A buzzer gets its right as the package gives the backlight's."""
        rights = re.compile(r'^ACTION=="add", (SUBSYSTEM=="\w+")(?:, KERNEL=="[\w-]+")?, (RUN.*)$', re.MULTILINE)
        ours = dict(rights.findall(next(self.prefix.rglob("70-panelsettings.rules")).read_text(encoding="utf-8")))
        rules = self.sources / "linux/71-buzzer.rules"
        lines = [line for line in rules.read_text(encoding="utf-8").splitlines() if line and not line.startswith("#")]
        for line in lines:
            found = rights.match(line)
            wanted = ours['SUBSYSTEM=="backlight"']
            if not found or re.sub(r"/sys%p/\w+", "/sys%p/brightness", found[2]) != wanted or found[1] in ours:
                raise Failure(f"{rules}: {line}")
        print(f"{rules.name}: {len(lines)} rules")


def main():
    cmake, *paths = sys.argv[1:]
    prefix, sources, plugins, journal = map(pathlib.Path, paths)
    with tempfile.TemporaryDirectory(prefix="panel examples ") as work:
        examples = Examples(cmake, prefix, sources, plugins, pathlib.Path(work))
        try:
            examples.check_service_and_hosts()
            examples.check_scenarios()
            examples.check_journal(journal)
            examples.check_unit()
            examples.check_rules()
        except Failure as failure:
            print(failure)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
