"""Documents go their road in the real window of the Windows program, under Wine: selected, edited in another program that
their file types are registered with, marked, package checked."""

import unittest

import machine
import desktop
import road
from window_case import WindowCase

DOCUMENT = "AQ_STIL"
DOCUMENT_FILE = "dst/stil/stil.css"
OPEN = "OPENUNCHANGED_C_UNCHANGED_T"
SAVED = "Saved: "


class RoadUnderWine(WindowCase):
    def send_to_editor(self, document, title):
        """By keys; the title of the editor tells the verb that started it."""
        self.select(document)
        desktop.keys("ctrl+t")
        machine.wait_for_window(title)

    def close_editor(self, title):
        machine.activate(title)
        desktop.keys("w")
        desktop.wait_until(lambda: not machine.window(title), "end of the editor")

    def test_document_is_translated_completed_and_the_package_says_so(self):
        self.register(machine.file_type(".css", "Translate", "Edit", "Open"))
        self.start_with_sample()
        document = self.package.parent / DOCUMENT_FILE
        before = document.read_bytes()
        desktop.picture("windows-road-1-opened")
        self.send_to_editor(DOCUMENT, "Translate: stil.css")
        self.wait_for_progress(DOCUMENT, OPEN)
        desktop.picture("windows-road-2-in-editor")
        road.wait_for_next_second()
        machine.activate("Translate: stil.css")
        desktop.keys("s")
        machine.wait_for_window(SAVED)
        self.close_editor(SAVED)
        self.keys("F5")
        self.wait_for_progress(DOCUMENT, "MODIFIED_C_UNCHANGED_T")
        desktop.picture("windows-road-3-changed")
        self.keys("F4")
        self.wait_for_progress(DOCUMENT, "COMPLETE")
        desktop.picture("windows-road-4-completed")
        self.quit()
        self.assertEqual(self.value("PROGRESS", DOCUMENT), "COMPLETE")
        self.assertEqual(document.read_bytes(), before + road.WORDS.encode())
        self.assertTrue(self.package.with_suffix(".BAK").exists())
        protocol = (self.package.parent / "Protocol.txt").read_text("cp1252")
        self.assertIn("Setting status to 'completed': ", protocol)

    def test_each_type_is_opened_by_the_first_verb_that_it_has_and_a_table_of_contents_as_text(self):
        self.register(machine.file_type(".js", "Edit", "Open"))
        self.register(machine.file_type(".xml", "Open"))
        self.register(machine.file_type(".htm", "Translate", "Edit", "Open"))
        self.start_with_sample()
        editors = {"AQ_RECHNER": "Edit: rechner.js", "AQ40_DATEN": "Open: daten.xml", "AQ_INHALT": "Open: inhalt.htm"}
        before = {document: self.value("PROGRESS", document) for document in editors}
        for document, title in editors.items():
            self.send_to_editor(document, title)
        desktop.picture("windows-road-5-verbs")
        self.wait_for_progress("AQ_INHALT", OPEN)
        for title in editors.values():
            self.close_editor(title)
        self.keys("F5")
        for document in editors:
            self.wait_for_progress(document, before[document])
        self.quit()

    def test_a_type_that_no_program_is_registered_for_stays_with_a_word(self):
        self.register({rf"{machine.CLASSES}\.css": None})
        self.start_with_sample()
        self.select(DOCUMENT)
        desktop.keys("ctrl+t")
        machine.activate(f"{desktop.PRODUCT}$")
        desktop.picture("windows-road-6-no-editor")
        desktop.keys("Return")
        desktop.wait_until(lambda: not machine.window(f"{desktop.PRODUCT}$"), "end of the box")
        self.wait_for_progress(DOCUMENT, "UNCHANGED")
        self.quit()


if __name__ == "__main__":
    unittest.main(verbosity=2)
