#!/usr/bin/env python3
"""Embedded documents are made anew when they changed, and not because the project was configured once more.

    rebuild.py CMAKE PROJECT     tries it with documents of its own
"""

import pathlib
import subprocess
import sys
import tempfile

LISTS = """
cmake_minimum_required(VERSION 3.22)
project(documents CXX)
find_package(Qt5 5.15 REQUIRED COMPONENTS Core Qml QuickCompiler)
include("{project}/cmake/documents.cmake")
panel_add_documents(sources bundle.qrc)
add_library(documents STATIC ${{sources}})
target_link_libraries(documents PRIVATE Qt5::Core Qt5::Qml)
"""
BUNDLE = '<RCC><qresource prefix="/">{files}</qresource></RCC>\n'
DOCUMENT = "import QtQml 2.15\n\nQtObject {{\n    property string answer: \"{answer}\"\n}}\n"


class Project:
    def __init__(self, cmake, directory):
        self.cmake = cmake
        self.source = pathlib.Path(directory, "source")
        self.build = pathlib.Path(directory, "build")
        self.source.mkdir()

    def write(self, name, text):
        (self.source / name).write_text(text, encoding="utf-8")

    def configure(self):
        self.call("-G", "Ninja", "-S", self.source, "-B", self.build)

    def made(self):
        """What a build says that it does, and has done then."""
        return self.call("--build", self.build)

    def call(self, *arguments):
        done = subprocess.run([self.cmake, *arguments], capture_output=True, text=True, check=False)
        assert done.returncode == 0, done.stdout + done.stderr
        return done.stdout


def main():
    cmake, sources = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="documents ") as directory:
        project = Project(cmake, directory)
        project.write("CMakeLists.txt", LISTS.format(project=sources))
        project.write("bundle.qrc", BUNDLE.format(files="<file>One.qml</file>"))
        project.write("One.qml", DOCUMENT.format(answer="one"))
        project.write("Two.qml", DOCUMENT.format(answer="two"))
        project.configure()
        assert "One_qml" in project.made()

        project.configure()
        said = project.made()
        assert "no work to do" in said, said

        project.write("One.qml", DOCUMENT.format(answer="another"))
        said = project.made()
        assert "One_qml" in said and "Linking" in said, said

        project.write("bundle.qrc", BUNDLE.format(files="<file>One.qml</file><file>Two.qml</file>"))
        assert "Two_qml" in project.made()
        assert "Two.qml" in (project.build / "bundle_qmlcache.qrc").read_text(encoding="utf-8")
        project.configure()
        said = project.made()
        assert "no work to do" in said, said
    return 0


if __name__ == "__main__":
    sys.exit(main())
