"""What the Windows programs need, and what they say about themselves."""

import os
import pathlib
import re
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree

from libraries import SYSTEM, headers_of, libraries_of

PROGRAMS = [pathlib.Path(os.environ[name]) for name in ("QB_TRANSLATOR", "QB_QBT")]
ICON_SIZES = [16, 20, 24, 32, 40, 48, 64, 256]
FIXED_VERSION = struct.pack("<II", 0xFEEF04BD, 0x00010000)


def manifest_of(program):
    """The elements of the manifest, by their names without namespace."""
    manifests = re.findall(rb"<assembly .*?</assembly>", program.read_bytes(), re.S)
    assert len(manifests) == 1, manifests
    return {element.tag.partition("}")[2]: element for element in xml.etree.ElementTree.fromstring(manifests[0]).iter()}


class Delivery(unittest.TestCase):
    def test_programsNeedLibrariesOfTheSystemOnly(self):
        for program in PROGRAMS:
            needed = libraries_of(program)
            self.assertIn("kernel32", needed)
            self.assertEqual(set(), needed - SYSTEM, program)

    def test_programsDrawWithTheCommonControlsOfVersion6_AndNeedNoSpecialRights(self):
        for program in PROGRAMS:
            found = manifest_of(program)
            controls = [element for element in found.values() if element.get("name") == "Microsoft.Windows.Common-Controls"]
            self.assertEqual(["6.0.0.0"], [element.get("version") for element in controls], program)
            self.assertEqual("asInvoker", found["requestedExecutionLevel"].get("level"), program)

    def test_programsAreSharpOnEveryMonitor_TakeLongPaths_AndLeaveTheCodePageToTheSystem(self):
        for program in PROGRAMS:
            found = manifest_of(program)
            self.assertEqual("PerMonitorV2, PerMonitor", found["dpiAwareness"].text, program)
            self.assertEqual("true/pm", found["dpiAware"].text, program)  # what older ones read
            self.assertEqual("true", found["longPathAware"].text, program)
            self.assertNotIn("activeCodePage", found, program)

    def test_programsCarryTheirVersion(self):
        numbers = [int(number) for number in os.environ["QB_VERSION"].split(".")]
        for program in PROGRAMS:
            image = program.read_bytes()
            for name, text in (("CompanyName", "ORB AG"), ("OriginalFilename", program.name),
                               ("ProductName", "Quillbank Translator"), ("ProductVersion", os.environ["QB_VERSION"])):
                # A name, the zero behind it, filled up to whole words of 32 bits, and its text.
                pair = re.compile(re.escape(name.encode("utf-16-le")) + b"(?:\0\0){1,3}" + re.escape(text.encode("utf-16-le")))
                self.assertRegex(image, pair, (program, name))
            self.assertEqual(1, image.count(FIXED_VERSION), program)
            file_version = struct.unpack_from("<HHHH", image, image.index(FIXED_VERSION) + 8)
            self.assertEqual((numbers[1], numbers[0], 0, numbers[2]), file_version, program)

    def test_programsCarryTheirIconInAllSizes(self):
        for program in PROGRAMS:
            with tempfile.TemporaryDirectory() as folder:
                icon = pathlib.Path(folder) / "program.ico"
                subprocess.run(["wrestool", "--extract", "--type=14", f"--output={icon}", program], check=True)
                listed = subprocess.run(["icotool", "--list", icon], check=True, capture_output=True, text=True).stdout
            self.assertEqual(ICON_SIZES, sorted(int(width) for width in re.findall(r"--width=(\d+)", listed)), program)

    def test_onlyTheTerminalProgramHasAConsole(self):
        kinds = [re.search(r"^Subsystem\s+\S+\s+\((.*)\)", headers_of(program), re.M)[1] for program in PROGRAMS]
        self.assertEqual(["Windows GUI", "Windows CUI"], kinds)


if __name__ == "__main__":
    unittest.main(verbosity=2)
