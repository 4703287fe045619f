"""One document goes its whole road in the real window of the Windows program, under Wine: selected, edited in another
program that the file's type is registered with, marked, package checked. Driven by keys."""

import pathlib
import shutil
import tempfile
import unittest

import machine
import desktop
import road

EXAMPLES = machine.HERE.parents[1] / "examples"
DOCUMENT = "AQ_STIL"
DOCUMENT_FILE = "dst/stil/stil.css"
EDITOR = "Small editor: "
SAVED = "Saved: "


class RoadUnderWine(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        shutil.copytree(EXAMPLES / "translation", self.folder / "package")
        self.package = self.folder / "package" / "Trans.pxf"
        machine.write_settings(self.folder)
        undo = machine.associate(self.folder, ".css", ["Translate", "Edit", "Open"])
        self.addCleanup(machine.import_registry, self.folder, undo)
        self.program = machine.start(machine.PROGRAM, machine.windows_path(self.package), folder=self.package.parent)
        self.addCleanup(self.stop)
        machine.wait_for_window(desktop.MAIN_WINDOW)

    def stop(self):
        if self.program.poll() is None:
            self.program.kill()
        self.program.wait()

    def keys(self, *names):
        machine.activate(desktop.MAIN_WINDOW)
        desktop.keys(*names)

    def select(self, document):
        """Selects a document of the tree, which stand in it in the order of the package."""
        names = [line.partition("=")[2] for line in self.package.read_text("cp1252").splitlines()
                 if line.startswith("RVD_TECH_NAME=")]
        self.keys("Home", *["Down"] * (names.index(document) + 1))

    def progress(self, state):
        road.wait_for_progress(self.package, DOCUMENT, state)

    def test_document_is_translated_completed_and_the_package_says_so(self):
        document = self.package.parent / DOCUMENT_FILE
        before = document.read_bytes()
        desktop.picture("windows-road-1-opened")
        self.select(DOCUMENT)
        desktop.keys("ctrl+t")
        self.progress("OPENUNCHANGED_C_UNCHANGED_T")
        machine.activate(EDITOR)
        desktop.picture("windows-road-2-in-editor")
        road.wait_for_next_second()
        desktop.keys("s")
        machine.wait_for_window(SAVED)
        desktop.keys("w")
        desktop.wait_until(lambda: not machine.window(SAVED), "end of the editor")
        self.keys("F5")
        self.progress("MODIFIED_C_UNCHANGED_T")
        desktop.picture("windows-road-3-changed")
        self.keys("F4")
        self.progress("COMPLETE")
        desktop.picture("windows-road-4-completed")
        self.keys("ctrl+q")
        desktop.wait_until(lambda: self.program.poll() is not None, "end of the program")
        self.assertEqual(self.program.returncode, 0)
        self.assertEqual(road.package_value(self.package, "PROGRESS", DOCUMENT), "COMPLETE")
        self.assertEqual(document.read_bytes(), before + road.WORDS.encode())
        self.assertTrue(self.package.with_suffix(".BAK").exists())
        protocol = (self.package.parent / "Protocol.txt").read_text("cp1252")
        self.assertIn("Setting status to 'completed': ", protocol)


if __name__ == "__main__":
    unittest.main(verbosity=2)
