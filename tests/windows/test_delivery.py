"""What the Windows programs need, and what they say about themselves."""

import os
import pathlib
import re
import subprocess
import unittest

PROGRAMS = [pathlib.Path(os.environ[name]) for name in ("QB_TRANSLATOR", "QB_QBT")]
# What every Windows has.
SYSTEM = {"advapi32", "bcrypt", "comctl32", "comdlg32", "gdi32", "kernel32", "msimg32", "msvcrt", "ole32", "oleacc", "oleaut32",
          "rpcrt4", "shell32", "shlwapi", "user32", "uxtheme", "version", "winhttp", "winmm", "winspool", "ws2_32"}
MARKS = [b"Microsoft.Windows.Common-Controls", b"PerMonitorV2", b"<longPathAware", b"asInvoker"]


def objdump(*arguments):
    return subprocess.run(["x86_64-w64-mingw32-objdump", *arguments], check=True, capture_output=True, text=True).stdout


class Delivery(unittest.TestCase):
    def test_programsNeedLibrariesOfTheSystemOnly(self):
        for program in PROGRAMS:
            needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", objdump("-p", program))}
            self.assertIn("kernel32.dll", needed)
            self.assertEqual(set(), {re.sub(r"\.(dll|drv)$", "", name) for name in needed} - SYSTEM, program)

    def test_programsCarryTheirManifestAndLeaveTheCodePageToTheSystem(self):
        for program in PROGRAMS:
            image = program.read_bytes()
            for mark in MARKS:
                self.assertEqual(1, image.count(mark), (program, mark))
            self.assertNotIn(b"activeCodePage", image, program)

    def test_programsCarryTheirVersion(self):
        for program in PROGRAMS:
            image = program.read_bytes()
            for text in ("ORB AG", program.name, os.environ["QB_VERSION"]):
                self.assertIn(text.encode("utf-16-le"), image, program)

    def test_onlyTheTerminalProgramHasAConsole(self):
        kinds = [re.search(r"^Subsystem\s+\S+\s+\((.*)\)", objdump("-p", program), re.M)[1] for program in PROGRAMS]
        self.assertEqual(["Windows GUI", "Windows CUI"], kinds)


if __name__ == "__main__":
    unittest.main(verbosity=2)
