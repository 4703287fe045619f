"""What the desktop is told about the program and its packages must be well-formed, and be understood.

Usage: check_desktop.py <folder of the files that the build has made> [unittest arguments]"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

LINUX = pathlib.Path(__file__).resolve().parents[2] / "packaging" / "linux"
MADE = pathlib.Path(sys.argv.pop(1)).resolve()
TYPE = "application/x-quillbank-package"

# Asked of GIO in a process of its own, since it reads the desktop's folders once.
ASK = """
from gi.repository import Gio
kind, unsure = Gio.content_type_guess("Trans.pxf", b"[GLOBAL]\\r\\nTITLE=Pumps\\r\\n")
print(kind, unsure)
print(Gio.content_type_get_icon(kind).get_names()[0])
print(Gio.app_info_get_default_for_type(kind, False).get_id())
"""


def silent(*command, **environment):
    """Runs a judge; anything that it says is a complaint."""
    result = subprocess.run(command, capture_output=True, text=True, env=os.environ | environment)
    return result.returncode, result.stdout + result.stderr


class Desktop(unittest.TestCase):
    def test_desktopFileIsValid(self):
        code, words = silent("desktop-file-validate", "--no-hints", LINUX / "quillbank-translator.desktop")
        self.assertEqual((code, words), (0, ""))

    def test_metainfoIsValid(self):
        metainfo = next(MADE.glob("*.metainfo.xml"))
        code, words = silent("appstreamcli", "validate", "--no-net", "--pedantic", metainfo)
        self.assertEqual(code, 0, words)
        self.assertEqual(metainfo.name, xml.etree.ElementTree.parse(metainfo).findtext("id") + ".metainfo.xml")

    def test_iconsAreWellFormed(self):
        for icon in LINUX.glob("*.svg"):
            self.assertTrue(xml.etree.ElementTree.parse(icon).getroot().tag.endswith("svg"), icon)

    def test_packageFileIsKnown_WithItsIconAndProgram(self):
        with tempfile.TemporaryDirectory() as folder:
            data = pathlib.Path(folder)
            (data / "mime" / "packages").mkdir(parents=True)
            (data / "applications").mkdir()
            (data / "bin").mkdir()
            shutil.copy(LINUX / "quillbank-translator.xml", data / "mime" / "packages")
            shutil.copy(LINUX / "quillbank-translator.desktop", data / "applications")
            (data / "bin" / "quillbank-translator").symlink_to("/bin/true")  # the entry asks for its program
            desktop = {"XDG_DATA_HOME": folder, "XDG_CONFIG_HOME": folder,
                       "PATH": f"{data / 'bin'}:{os.environ['PATH']}"}
            self.assertEqual(silent("update-mime-database", data / "mime", **desktop), (0, ""))
            self.assertEqual(silent("update-desktop-database", data / "applications", **desktop), (0, ""))
            code, answers = silent(sys.executable, "-c", ASK, **desktop)
        self.assertEqual((code, answers.splitlines()),
                         (0, [f"{TYPE} False", TYPE.replace("/", "-"), "quillbank-translator.desktop"]))
        self.assertTrue((LINUX / (TYPE.replace("/", "-") + ".svg")).is_file())


if __name__ == "__main__":
    unittest.main()
