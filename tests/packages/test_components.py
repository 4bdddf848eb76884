"""Each component alone is what it is meant to be, and all of them together are the whole."""

import os
import pathlib
import re
import unittest

import installation
from installation import KEYBOARD, LIBRARIES, PLUGIN, SERVICE, STANDINS

DOCUMENTS = "share/doc/panelsettings"

# What each component consists of, as patterns of paths. Each must be there, and nothing else may be.
COMPONENTS = {
    "runtime": [f"{LIBRARIES}/{PLUGIN}", f"{DOCUMENTS}/LICENSE", f"{DOCUMENTS}/THIRD-PARTY.md"],
    "development": [
        "include/panelsettings/isystemset.h",
        "include/panelsettings/pluginregistry.h",
        "include/panelsettings/version.h",
        "include/panelsettings/meyersingleton.h",
        "include/panelsettings/hmi/systemset.h",
        "include/panelsettings/qvkb/qvkbpluginloader.h",
        f"{LIBRARIES}/cmake/PanelSettings/PanelSettingsConfig.cmake",
        f"{LIBRARIES}/cmake/PanelSettings/PanelSettingsConfigVersion.cmake",
        f"{LIBRARIES}/cmake/PanelSettings/PanelSettingsTargets.cmake",
        f"{LIBRARIES}/pkgconfig/panelsettings.pc",
    ],
    "simulator": [f"{STANDINS}/{SERVICE}", r"share/panelsettings/scenarios/[\w-]+\.json"],
    "keyboard": [f"{STANDINS}/{KEYBOARD}"],
    "host": ["bin/panel-host"],
    "linux": [
        f"{LIBRARIES}/panelsettings/linux/{SERVICE}",
        "share/polkit-1/rules.d/50-panelsettings.rules",
        "lib/udev/rules.d/70-panelsettings.rules",
        "lib/sysctl.d/50-panelsettings.conf",
        "lib/sysusers.d/panelsettings.conf",
        "lib/tmpfiles.d/panelsettings.conf",
        "share/doc/panelsettings-linux/linux.conf.sample",
    ],
    "conformance": ["bin/panelsettings-conformance", rf"{LIBRARIES}/panelsettings/conformance-[\w-]+\.so"],
    "doc": [
        f"{DOCUMENTS}/README.md",
        f"{DOCUMENTS}/CHANGELOG.md",
        rf"{DOCUMENTS}/docs/.+",
    ],
}

if os.environ["PANEL_HAS_CONFORMANCE"] != "1":
    del COMPONENTS["conformance"]
# Whoever gets a component alone gets its licence too.
for component, patterns in COMPONENTS.items():
    if component != "runtime":
        patterns.append(f"{DOCUMENTS}-{component}/LICENSE")


class Components(unittest.TestCase):
    def test_each_alone(self):
        together = set()
        for component, patterns in COMPONENTS.items():
            with self.subTest(component), installation.temporary_directory() as prefix:
                installation.install(prefix, component)
                files = {str(file) for file in installation.files_of(prefix)}
                for pattern in patterns:
                    self.assertTrue(any(re.fullmatch(pattern, file) for file in files), f"{pattern} is missing")
                for file in files:
                    self.assertTrue(any(re.fullmatch(pattern, file) for pattern in patterns), f"{file} is too much")
                self.assertFalse(files & together, "belongs to another component too")
                together |= files
        self.assertEqual({str(file) for file in installation.files_of(installation.PREFIX)}, together)

    def test_nothing_takes_the_place_of_the_panels_own(self):
        with installation.temporary_directory() as stage:
            own = pathlib.Path(stage, "usr", LIBRARIES)
            own.mkdir(parents=True)
            for name in (SERVICE, KEYBOARD):
                (own / name).write_bytes(b"the panel's")
            installation.install("/usr", destdir=stage)
            for name in (SERVICE, KEYBOARD):
                self.assertEqual((own / name).read_bytes(), b"the panel's")
                found = {file.parent for file in installation.files_of(stage) if file.name == name}
                own_directories = {LIBRARIES, STANDINS} | ({LIBRARIES / "panelsettings/linux"} if name == SERVICE else set())
                self.assertEqual(found, {pathlib.Path("usr", place) for place in own_directories})

    def test_links_of_the_pages_lead_somewhere(self):
        """Whoever has the installation alone has no sources to look into."""
        links = 0
        for page in (installation.PREFIX / DOCUMENTS).rglob("*.md"):
            text = re.sub(r"^```.*?^```", "", page.read_text(encoding="utf-8"), flags=re.MULTILINE | re.DOTALL)
            for link in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text):
                links += 1
                self.assertTrue("://" in link or (page.parent / link).exists(), f"{page}: {link}")
        self.assertGreater(links, 20)

    def test_paths_are_nobodys_machine(self):
        """What hosts are built with serves under any prefix."""
        for file in installation.files_of(installation.PREFIX):
            if file.suffix in (".cmake", ".pc"):
                text = (installation.PREFIX / file).read_text(encoding="utf-8")
                self.assertNotIn(str(installation.BUILD), text, file)
                self.assertNotIn("/usr/local", text, file)


if __name__ == "__main__":
    installation.main()
