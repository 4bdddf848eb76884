"""What the package of the Linux service allows its user is what the documents say, each right once."""

import os
import pathlib
import re
import unittest

ROOT = pathlib.Path(os.environ["PANEL_ROOT"])


class Rights(unittest.TestCase):
    def test_rule_and_document_agree(self):
        rule = (ROOT / "packaging/linux/50-panelsettings.rules").read_text()
        allowed = re.findall(r'case "([\w.-]+)"', rule)
        rights = re.search(r"^## Rights$(.+?)^## ", (ROOT / "docs/linux.md").read_text(), re.DOTALL | re.MULTILINE)
        told = re.findall(r"`(org\.freedesktop\.[\w.-]+)`", rights[1])
        self.assertTrue(allowed)
        self.assertEqual(sorted(allowed), sorted(told))

    def test_rules_to_be_copied_are_like_those_of_the_package(self):
        ours = (ROOT / "packaging/linux/70-panelsettings.rules").read_text()
        allowing = re.search(r'RUN\+="/bin/chgrp panelsettings /sys%p/brightness".*', ours)[0]
        told = re.findall(r"^(ACTION==.*)$", (ROOT / "docs/linux.md").read_text(), re.MULTILINE)
        subsystems = []
        for rule in told:
            which, subsystem, runs = re.fullmatch(
                r'ACTION=="add", (SUBSYSTEM=="(\w+)", KERNEL=="[\w-]+"), (RUN.*)', rule).groups()
            self.assertNotIn(which, ours)
            self.assertEqual(re.sub(r"/sys%p/\w+", "/sys%p/brightness", runs), allowing)
            subsystems.append(subsystem)
        self.assertEqual(subsystems, ["leds", "gpio"])


if __name__ == "__main__":
    unittest.main()
