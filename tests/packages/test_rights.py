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


if __name__ == "__main__":
    unittest.main()
