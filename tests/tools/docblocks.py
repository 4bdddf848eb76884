#!/usr/bin/env python3
"""Holds that every block of code in our pages is compiled, run or compared with what a program says.

    docblocks.py CMAKE BUILD ROOT HOST    checks all pages below ROOT
    docblocks.py --selftest ...           proves that the check finds what it is there to find

A block is fenced and says what it is. A block of commands ("sh") is held against the programs themselves: each
command must be one that is known here, with options that it really has. Every other block must be part, line by
line, of a file below docs/examples, all of which the test "examples" builds and runs.
"""

import dataclasses
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

EXAMPLES = "docs/examples"
QUOTED = {"cpp", "cmake", "json", "qml", "text", "xml"}
FENCE = re.compile(r"^( *)(```+|~~~+)\s*(\S*)\s*$")
ASSIGNMENT = re.compile(r"^[A-Z_][A-Z0-9_]*=")
OPTION = re.compile(r"(?<![\w-])(--?[a-zA-Z][\w-]*)")


@dataclasses.dataclass
class Block:
    page: str
    line: int
    kind: str
    text: str

    def __str__(self):
        return f"{self.page}:{self.line}"


def blocks_of(page, text):
    """All blocks of a page. What is indented like one counts as one without a kind."""
    fence, start, kind, lines = None, 0, "", []
    before_is_blank = True
    for number, line in enumerate(text.splitlines(), 1):
        found = FENCE.match(line)
        if fence:
            if found and found[2].startswith(fence) and not found[3]:
                yield Block(page, start, kind, "\n".join(lines))
                fence = None
            else:
                lines.append(line)
        elif found:
            fence, start, kind, lines = found[2], number, found[3], []
        elif line.startswith("    ") and before_is_blank:
            yield Block(page, number, "", line)
        before_is_blank = not line.strip()
    if fence:
        yield Block(page, start, "", "\n".join(lines))


def undented(text):
    lines = [line.rstrip() for line in text.strip("\n").splitlines()]
    indent = min((len(line) - len(line.lstrip()) for line in lines if line), default=0)
    return [line[indent:] for line in lines]


def is_part_of(lines, file_text):
    file_lines = [line.rstrip() for line in file_text.splitlines()]
    count = len(lines)
    for start in range(len(file_lines) - count + 1):
        if undented("\n".join(file_lines[start : start + count])) == lines and file_lines[start].strip():
            return True
    return False


def commands_of(text):
    """The commands of a block, each as its words; comments, assignments and redirections are no part of them."""
    for line in text.replace("\\\n", " ").splitlines():
        lexer = shlex.shlex(line, posix=True, punctuation_chars="&|;")
        lexer.whitespace_split = True
        words = []
        for word in [*lexer, ";"]:
            if not set(word) <= set("&|;"):
                words.append(word)
                continue
            while words and ASSIGNMENT.match(words[0]):
                words.pop(0)
            if words:
                yield words
            words = []


def options_in(text):
    return set(OPTION.findall(text))


class Programs:
    """What the programs that our pages name can do, asked of the programs."""

    def __init__(self, cmake, build, root, host):
        self.cmake, self.build, self.root, self.host = cmake, build, root, host
        self.checks = {
            "./run": self.parses_itself,
            "./setup": self.parses_itself,
            "./test": self.test,
            "apt": self.apt,
            "cmake": self.cmake_command,
            "packaging/debian/make-packages": self.packer,
            "panel-host": self.parses_itself,
            "panelsettings-conformance": self.conformance,
            "tests/arm/emulate": self.emulated,
        }

    def problem(self, words):
        name = words[0]
        check = self.checks.get(name)
        if check:
            return check(words)
        if "/" in name and (self.root / name).is_file():
            return self.script(words)
        if re.match(r"build/\w+/", name):
            return self.target(pathlib.PurePath(name).name)
        if name.startswith("build/"):
            return self.example(pathlib.PurePath(name).name)
        return f"nobody here knows what {name} is"

    def output(self, *command):
        done = subprocess.run(
            [str(part) for part in command],
            cwd=self.root,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            encoding="utf-8",
            check=False,
        )
        return done.returncode, done.stdout

    def parses_itself(self, words):
        """A program that reads all its options before it does what --help wants of it."""
        name, *options = words
        code, said = self.output(self.host if name == "panel-host" else self.root / name, *options, "--help")
        return None if code == 0 else said.strip().splitlines()[0]

    def test(self, words):
        _, usage = self.output(self.root / "test", "--help")
        _, ctest = self.output(pathlib.Path(self.cmake).with_name("ctest"), "--help")
        kinds = set(re.findall(r"^  ([\w-]+) ", usage, re.MULTILINE))
        rest = words[1:]
        if rest and not rest[0].startswith("-"):
            if rest.pop(0) not in kinds:
                return f"./test does not know {words[1]}"
        unknown = [word for word in rest if word.startswith("-") and word not in options_in(ctest)]
        return f"ctest has no {unknown[0]}" if unknown else None

    def script(self, words):
        """A script of this tree, which names the options that it has."""
        known = options_in((self.root / words[0]).read_text(encoding="utf-8"))
        unknown = [word for word in words[1:] if word.startswith("-") and word not in known]
        return f"{words[0]} has no {unknown[0]}" if unknown else None

    def emulated(self, words):
        """A script of this tree with a program behind its options, which has its own."""
        begin = next((place for place, word in enumerate(words) if word.startswith("build/")), len(words))
        if begin == len(words):
            return "a program is missing"
        name = pathlib.PurePath(words[begin]).name
        of_program = [name, *words[begin + 1 :]]
        return self.script(words[:begin]) or (self.checks[name](of_program) if name in self.checks else self.target(name))

    def conformance(self, words):
        _, usage = self.output(self.build / "conformance/panelsettings-conformance", "--help")
        unknown = [word for word in words[1:] if word.startswith("-") and word not in options_in(usage)]
        return f"panelsettings-conformance has no {unknown[0]}" if unknown else None

    def packer(self, words):
        presets = (self.root / "CMakePresets.json").read_text(encoding="utf-8")
        unknown = [word for word in words[1:] if f'"name": "{word}"' not in presets]
        return f"there is no preset {unknown[0]}" if unknown else None

    def apt(self, words):
        """Packages that this project makes: each is described, one by one."""
        described = "".join(file.read_text(encoding="utf-8") for file in (self.root / "packaging").rglob("CMakeLists.txt"))
        names = [pathlib.PurePath(word).name.partition("_")[0] for word in words[2:]]
        unknown = [name for name in names if not re.search(rf"(?<![\w-]){re.escape(name)}(?![\w-])", described)]
        return f"there is no package {unknown[0]}" if unknown or not names else None

    def cmake_command(self, words):
        _, usage = self.output(self.cmake, "--help")
        presets = (self.root / "CMakePresets.json").read_text(encoding="utf-8")
        cache = (self.build / "CMakeCache.txt").read_text(encoding="utf-8")
        known = options_in(usage) | {"--preset", "--target", "--prefix", "--component", "-S", "-B", "-G", "-j"}
        for option, value in zip(words[1:], [*words[2:], ""]):
            if option.startswith("-D"):
                name = option[2:].partition("=")[0]
                is_ours = re.search(rf"^{re.escape(name)}:", cache, re.MULTILINE)
                if not is_ours and self.output(self.cmake, "--help-variable", name)[0] != 0:
                    return f"there is no option {name}"
            elif option.startswith("-") and option not in known:
                return f"cmake has no {option}"
            elif option == "--preset" and f'"name": "{value}"' not in presets:
                return f"there is no preset {value}"
            elif option == "--target":
                if problem := self.target(value):
                    return problem
        return None

    def example(self, name):
        """A program that a reader builds by himself."""
        lists = (self.root / EXAMPLES).glob("*/CMakeLists.txt")
        is_built = any(f"add_executable({name} " in file.read_text(encoding="utf-8") for file in lists)
        return None if is_built else f"no example is called {name}"

    def target(self, name):
        _, targets = self.output(self.cmake, "--build", self.build, "--target", "help")
        return None if re.search(rf"^{re.escape(name)}: ", targets, re.MULTILINE) else f"nothing here builds {name}"


def problem_with(block, programs, examples):
    if block.kind == "sh":
        problems = filter(None, (programs.problem(words) for words in commands_of(block.text)))
        return next(problems, None)
    if block.kind not in QUOTED:
        return f"a block of kind {block.kind!r} is checked by nobody: fence it, and say what it is"
    lines = undented(block.text)
    if not any(is_part_of(lines, text) for text in examples.values()):
        return f"is not in {EXAMPLES}"
    return None


def unused_examples(examples, tests):
    """Files that no file beside them names, and no test: nothing would notice what is wrong in them."""
    for file in examples:
        if file.name == "CMakeLists.txt":
            continue
        named_in = [text for other, text in examples.items() if other != file and other.parent == file.parent]
        if not any(file.name in text for text in [*named_in, *tests]):
            yield file


def pages_of(root):
    for page in sorted([*root.glob("*.md"), *root.glob("docs/**/*.md"), *root.glob("packaging/**/*.md")]):
        yield page, page.read_text(encoding="utf-8")


def check(programs, root):
    examples = {file: file.read_text(encoding="utf-8") for file in sorted((root / EXAMPLES).rglob("*")) if file.is_file()}
    tests = [(root / "tests/tools" / name).read_text(encoding="utf-8") for name in ("examples.py", "CMakeLists.txt")]
    blocks = [block for page, text in pages_of(root) for block in blocks_of(page.relative_to(root), text)]
    bad = 0
    for block in blocks:
        if problem := problem_with(block, programs, examples):
            print(f"{block}: {problem}")
            bad += 1
    for file in unused_examples(examples, tests):
        print(f"{file.relative_to(root)}: nothing builds or runs it")
        bad += 1
    print(f"{len(blocks)} blocks, {len(examples)} files of examples, {bad} problems")
    return bad == 0 and len(blocks) > 0


PLANTED = {
    "no kind": "```\n./run\n```\n",
    "indented": "Text:\n\n    ./run\n",
    "never ends": "```sh\n./run\n",
    "unknown kind": "```fortran\nEND\n```\n",
    "not in the examples": "```cpp\nint other;\n```\n",
    "lines apart": "```cpp\nint a;\nint c;\n```\n",
    "half a line": "```cpp\nint\n```\n",
    "unknown program": "```sh\nno-such-program --help\n```\n",
    "second command": "```sh\n./setup && no-such-program\n```\n",
    "unknown option": "```sh\n./run --colour\n```\n",
    "wrong value": "```sh\n./run --size 12\n```\n",
    "unknown option of the emulator": "```sh\ntests/arm/emulate --speed 2 build/arm-tests/host/panel-host\n```\n",
    "unknown option behind the emulator": "```sh\ntests/arm/emulate build/arm-tests/host/panel-host --colour\n```\n",
    "unknown program behind the emulator": "```sh\ntests/arm/emulate build/arm-tests/tests/no_such_test\n```\n",
    "unknown option of setup": "```sh\n./setup --everything\n```\n",
    "unknown kind of test": "```sh\n./test fast\n```\n",
    "unknown option of ctest": "```sh\n./test --no-such-thing\n```\n",
    "unknown preset": "```sh\ncmake --preset nosuch\n```\n",
    "unknown option of cmake": "```sh\ncmake --no-such-thing\n```\n",
    "unknown definition": "```sh\ncmake --preset release -DNO_SUCH_THING=1\n```\n",
    "unknown target": "```sh\ncmake --build build/release --target nosuch\n```\n",
    "unknown example": "```sh\nbuild/nosuch\n```\n",
    "unknown program of the build": "```sh\nbuild/release/tests/nosuch\n```\n",
    "unknown option of the conformance suite": "```sh\npanelsettings-conformance --all x.so\n```\n",
    "unknown package": "```sh\napt install ./nosuch_1.0.deb\n```\n",
    "unknown preset of the packer": "```sh\npackaging/debian/make-packages nosuch\n```\n",
    "unknown option of the benches": "```sh\nbench/run --fast\n```\n",
    "unknown option of the host": "```sh\nX=1 panel-host --colour\n```\n",
}
SOUND = "```cpp\nint a;\nint b;\n```\n\n```sh\n./setup --arm   # a comment\n./run --size=480x800 && ./test -R wifi\n```\n"


def selftest(programs):
    examples = {pathlib.Path("a.cpp"): "namespace {\n    int a;\n    int b;\n    int c;\n}\n"}

    def problems(text):
        return [problem for block in blocks_of("page", text) if (problem := problem_with(block, programs, examples))]

    assert not problems(SOUND), problems(SOUND)
    for name, text in PLANTED.items():
        assert len(problems(text)) == 1, (name, problems(text))
    with tempfile.TemporaryDirectory() as directory:
        lonely = pathlib.Path(directory, "lonely.cpp")
        assert [*unused_examples({lonely: ""}, [])] == [lonely]
        assert not [*unused_examples({lonely: "", lonely.with_name("CMakeLists.txt"): "lonely.cpp"}, [])]
    print(f"{len(PLANTED)} planted blocks found")


def main():
    arguments = sys.argv[1:]
    is_selftest = arguments[0] == "--selftest"
    cmake, build, root, host = arguments[is_selftest:]
    programs = Programs(cmake, pathlib.Path(build), pathlib.Path(root), host)
    if is_selftest:
        selftest(programs)
        return 0
    return 0 if check(programs, pathlib.Path(root)) else 1


if __name__ == "__main__":
    sys.exit(main())
