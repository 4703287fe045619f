"""A TRADOS package is opened in the real window of the Windows program, under Wine, beside programs of our own that take
the parts of MultiTerm, the Workbench and the trace viewer."""

import os
import pathlib
import shutil
import sys
import tempfile
import unittest
import uuid

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

import machine  # noqa: E402
import desktop  # noqa: E402

EXAMPLES = machine.HERE.parents[1] / "examples"
TOOLS = pathlib.Path(os.environ["QB_STAND_INS"])
ENVIRONMENT = r"HKEY_CURRENT_USER\Software\TRADOS\MTWPlus\Environment"
IDENTIFIER = "{" + str(uuid.uuid4()).upper() + "}"  # that of a program that was killed stays taken for a while
WORKBENCH = rf"{machine.CLASSES}\TW4Win.Application"
WORKBENCH_CLASS = rf"{machine.CLASSES}\CLSID\{IDENTIFIER}"
MULTITERM_WINDOW = "TRADOS MultiTerm"


class ToolsUnderWine(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        shutil.copytree(EXAMPLES / "translation", self.folder / "package")
        self.package = self.folder / "package" / "Trans.pxf"
        machine.write_settings(self.folder)

    def start(self, *command):
        """Starts a program that ends with the test."""
        program = machine.start(*command, folder=self.package.parent)

        def stop():
            if program.poll() is None:
                program.kill()
            program.wait()
        self.addCleanup(stop)
        return program

    def install_tools(self):
        shutil.copy(TOOLS / "StandInMultiTerm.exe", self.folder / "MtwpE.exe")
        machine.import_registry(self.folder, {
            ENVIRONMENT: {"InstallPath-Team": machine.windows_path(self.folder)},
            rf"{WORKBENCH}\CLSID": {"": IDENTIFIER},
            rf"{WORKBENCH_CLASS}\LocalServer32": {"": machine.windows_path(TOOLS / "StandInWorkbench.exe")},
        })
        self.addCleanup(machine.import_registry, self.folder,
                        {ENVIRONMENT: None, WORKBENCH: None, WORKBENCH_CLASS: None})

    def name_files_of_the_tools(self):
        text = self.package.read_bytes()
        kind = next(line for line in text.splitlines() if line.startswith(b"TRANSTYPE="))
        names = b"TRANSTYPE=GEN_TWB\r\nTERMINOLOGY=terms.mtw\r\nTRANSMEMORY=notes.tmw"
        self.package.write_bytes(text.replace(kind, names))
        for name in ("terms.mtw", "notes.tmw"):
            (self.package.parent / name).write_text("tool")

    def test_both_tools_come_up_with_the_package_and_the_viewer_hears_of_it(self):
        self.install_tools()
        self.name_files_of_the_tools()
        records = self.folder / "records.txt"
        self.start(machine.windows_path(TOOLS / "StandInTraceViewer.exe"), machine.windows_path(records))
        desktop.wait_until(records.exists, "the trace viewer")
        self.start(machine.windows_path(self.folder / "MtwpE.exe"))
        machine.wait_for_window(MULTITERM_WINDOW)
        program = self.start(machine.PROGRAM, machine.windows_path(self.package))
        machine.wait_for_window("Workbench: ")
        title = desktop.run("xdotool", "getwindowname", machine.window("Workbench: ")).strip()
        self.assertEqual(title, "Workbench: " + machine.windows_path(self.package.parent / "notes.tmw"))
        machine.wait_for_window(desktop.MAIN_WINDOW)
        desktop.picture("windows-tools")
        machine.activate(desktop.MAIN_WINDOW)
        desktop.keys("ctrl+q")
        desktop.wait_until(lambda: program.poll() is not None, "end of the program")
        self.assertEqual(program.returncode, 0)
        desktop.wait_until(lambda: not machine.window("Workbench: "), "end of the Workbench")
        self.assertTrue(machine.window(MULTITERM_WINDOW), "the user's own stays")
        self.assertNotIn("Could not load", (self.package.parent / "Protocol.txt").read_text("cp1252"))
        lines = records.read_text("utf-8").splitlines()
        self.assertEqual(lines[0], "1 own 0 ")
        record = "0 own 154 1.0|Is Trados Package: 'True'|IsTradosPackage|CPxfFile|QB Translator|ORBQB|||"
        self.assertTrue(record in lines, f"{len(lines)} records, the last one is {lines[-1]}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
