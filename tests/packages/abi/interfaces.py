"""The binary interfaces that others build against, as dumps of what their headers alone define."""

import pathlib
import re
import shutil
import subprocess
import tempfile
from typing import NamedTuple


class Interface(NamedTuple):
    header: str  # as it is included
    scope: str  # namespace of the class whose functions others implement
    owner: str  # that class; empty where others only call
    sources: tuple  # what defines other functions
    exports: tuple  # its symbols, as a version script takes them


INTERFACES = {
    "service": Interface(
        "hmi/systemset.h",
        "HMI",
        "SystemSet",
        ("tests/packages/abi/service.cpp",),
        ("_ZN3HMI9SystemSet*", "_ZNK3HMI9SystemSet*", "whatReportsCarry"),
    ),
    "keyboard": Interface(
        "qvkb/qvkbpluginloader.h",
        "",
        "QVkbPluginLoader",
        ("tests/packages/abi/keyboard.cpp",),
        ("_ZN16QVkbPluginLoader*", "whatTheScreenCalls"),
    ),
    "plugin": Interface(
        "plugin/isystemset.h",
        "",
        "",
        ("tests/packages/abi/host.cpp",),
        ("whatAHostCalls",),
    ),
}

COMMENT = re.compile(r"//[^\n]*")
# A function that the class declares and somebody else defines.
DECLARATION = re.compile(
    r"^    (?!using |struct |enum |class |virtual |friend )(?:static )?(?P<result>[\w:<>, ]+[\w>][ *&]+)?"
    r"(?P<name>~?\w+)\((?P<parameters>[^;{}]*?)\)(?P<const> const)?;",
    re.MULTILINE,
)


class Change(NamedTuple):
    """One that a header may undergo without anything failing to compile."""

    file: str
    pattern: str
    replacement: str


def call(*command, good=(0,), **arguments):
    if not shutil.which(command[0]):
        raise RuntimeError(f"{command[0]} is missing; ./setup installs it")
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False, **arguments)
    if done.returncode not in good:
        raise RuntimeError(f"{command[0]} failed: {done.stdout}{done.stderr}")
    return done


def definitions(interface, header):
    """An implementation that does nothing. One that does something would bring its own types along."""
    text = COMMENT.sub("", header)
    body = re.search(rf"^class \w+ {interface.owner}\n{{\n(.*?)^}};", text, re.MULTILINE | re.DOTALL)[1]
    lines = [f'#include "{interface.header}"']
    lines += [f"namespace {interface.scope} {{"] if interface.scope else []
    for match in DECLARATION.finditer(body):
        function = f"{interface.owner}::{match['name']}({match['parameters']}){match['const'] or ''}"
        if match["result"]:
            # Behind the name, where the names of the class are known.
            lines.append(f"auto {function} -> {match['result']} {{ __builtin_abort(); }}")
        else:
            lines.append(f"{function} {{}}")
    lines += ["}"] if interface.scope else []
    return "\n".join(lines) + "\n"


class Dumper:
    def __init__(self, compiler, root):
        self.compiler = compiler
        self.root = pathlib.Path(root)

    def dump(self, name, file, change=None):
        """Writes the dump of an interface, or of what it would be after a change."""
        interface = INTERFACES[name]
        with tempfile.TemporaryDirectory(prefix="abi ") as directory:
            tree = pathlib.Path(directory)
            for part in ("platform/include", "plugin", "tests/packages/abi"):
                shutil.copytree(self.root / part, tree / part)
            if change:
                changed = tree / change.file
                text, count = re.subn(change.pattern, change.replacement, changed.read_text(encoding="utf-8"))
                assert count == 1, change
                changed.write_text(text, encoding="utf-8")
            self.build(interface, tree)
            form = ("--no-corpus-path", "--no-comp-dir-path", "--no-show-locs", "--type-id-style", "hash")
            target = pathlib.Path(file).resolve()
            call("abidw", "--exported-interfaces-only", *form, "--out-file", target, "interface.so", cwd=tree)

    def build(self, interface, tree):
        sources = list(interface.sources)
        if interface.owner:
            header = (tree / "platform/include" / interface.header).read_text(encoding="utf-8")
            (tree / "definitions.cpp").write_text(definitions(interface, header), encoding="utf-8")
            sources.append("definitions.cpp")
        script = tree / "exports.map"
        script.write_text("{ global: %s; local: *; };\n" % "; ".join(interface.exports), encoding="utf-8")
        # The compiler leaves a class of virtual functions to whoever defines the first of them.
        kind = ("-g", "-femit-class-debug-always", "-O0", "-fPIC", "-shared")
        kind += ("-fvisibility=hidden", "-fvisibility-inlines-hidden")
        # Nowhere where it was made; what else such a library has does not matter, so it may stay undefined.
        place = (f"-ffile-prefix-map={tree}=.", "-I.", "-Iplatform/include", f"-Wl,--version-script={script.name}")
        call(*self.compiler, *kind, *place, "-o", "interface.so", *sources, cwd=tree)


def differences(before, after):
    """What abidiff says, if anything is different."""
    done = call("abidiff", "--harmless", before, after, good=(0, 4, 8, 12))
    return done.stdout if done.returncode else ""
