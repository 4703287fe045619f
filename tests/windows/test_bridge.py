"""A Word document goes its road in the real window of the Windows program: through the Document Bridge, which a library of
our own stands in for. Driven by keys."""

import os
import pathlib
import unittest

import machine
import desktop
import road
from window_case import WindowCase

DOCUMENT = "AQ40_INBETRIEBNAHME"
FILE = "dst/inbetriebnahme/inbetriebnahme.doc"
SOURCE_FILE = "src/inbetriebnahme/inbetriebnahme.doc"
TYPE_LIBRARY = "{BD85A42C-52B0-4886-BE5A-64193ECCAB1B}"
CLASS = "{5E5D2C10-000A-4B77-9C9A-2B1F0E6A7C01}"


class BridgeUnderWine(WindowCase):
    def setUp(self):
        super().setUp()
        library = machine.windows_path(pathlib.Path(os.environ["QB_BRIDGE"]))
        types = rf"{machine.CLASSES}\TypeLib\{TYPE_LIBRARY}"
        program = rf"{machine.CLASSES}\CLSID\{CLASS}"
        self.register({types: {}, rf"{types}\1.0": {"": "Stand-in"}, rf"{types}\1.0\0\win64": {"": library},
                       rf"{types}\1.0\FLAGS": {"": "0"}, program: {},
                       rf"{program}\InprocServer32": {"": library, "ThreadingModel": "Apartment"}})

    def test_word_document_is_saved_and_closed_in_its_office_and_the_package_says_so(self):
        self.start_with_sample()
        before = (self.package.parent / FILE).read_bytes()
        self.select(DOCUMENT)
        desktop.keys("ctrl+t")
        for file in (SOURCE_FILE, FILE):
            machine.wait_for_window(f"Office: {file}")
        self.wait_for_progress(DOCUMENT, "OPENUNCHANGED_C_UNCHANGED_T")
        desktop.picture("windows-bridge-1-in-office")
        road.wait_for_next_second()
        machine.activate(f"Office: {FILE}")
        desktop.keys("s")
        machine.wait_for_window(f"Saved: {FILE}")
        self.wait_for_progress(DOCUMENT, "MODIFIED_C_UNCHANGED_T")
        text = self.package.read_text("cp1252")
        self.assertIn("1VALUE=Commissioning of the AQ 40\n", text)
        self.assertIn("1VALUE=https://www.example.com/aq40\n", text)
        machine.activate(f"Saved: {FILE}")
        desktop.keys("w")
        desktop.wait_until(lambda: not machine.window("(Saved|Office): "), "end of both documents")
        self.keys("F4")
        self.wait_for_progress(DOCUMENT, "COMPLETE")
        desktop.picture("windows-bridge-2-completed")
        self.quit()
        self.assertEqual(self.value("PROGRESS", DOCUMENT), "COMPLETE")
        self.assertEqual((self.package.parent / FILE).read_bytes(), before + b"translated")

    def test_document_that_stays_open_is_closed_when_the_program_ends(self):
        self.start_with_sample()
        self.select(DOCUMENT)
        desktop.keys("ctrl+t")
        machine.wait_for_window(f"Office: {FILE}")
        self.keys("ctrl+q")
        machine.activate(f"{desktop.PRODUCT}$")  # whether to leave with a document open
        desktop.keys("y")
        desktop.wait_until(lambda: self.program.poll() is not None, "end of the program")
        self.assertEqual(self.program.returncode, 0)
        self.assertEqual(self.value("PROGRESS", DOCUMENT), "UNCHANGED")


if __name__ == "__main__":
    unittest.main(verbosity=2)
