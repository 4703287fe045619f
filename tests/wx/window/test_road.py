"""One document goes its whole road in the real window: selected, edited in a real program, marked, package
checked. Keyboard only, but for the selection."""

import unittest

import pyatspi

import desktop
import road
from case import DOCUMENT, DOCUMENT_FILE, WindowCase


class RoadTest(WindowCase):
    def setUp(self):
        super().setUp()
        road.associate("text/css")
        self.start_with_sample()
        self.document = self.package.parent / DOCUMENT_FILE

    def progress(self, state):
        road.wait_for_progress(self.package, DOCUMENT, state)

    def test_document_is_translated_completed_and_the_package_says_so(self):
        desktop.picture("road-1-opened")
        before = self.document.read_bytes()
        editor = road.send_to_editor(self.program, DOCUMENT)
        self.progress("OPENUNCHANGED_C_UNCHANGED_T")
        desktop.picture("road-2-in-editor")
        editor.write_and_save()
        editor.close()
        road.refresh(self.program)
        self.progress("MODIFIED_C_UNCHANGED_T")
        desktop.picture("road-3-changed")
        desktop.keys("F4")
        self.progress("COMPLETE")
        desktop.picture("road-4-completed")
        desktop.keys("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0)
        self.assertEqual(self.package_value("PROGRESS"), "COMPLETE")
        self.assertEqual(self.document.read_bytes(), before + road.WORDS.encode())
        self.assertTrue(self.package.with_suffix(".BAK").exists())
        protocol = (self.package.parent / "Protocol.txt").read_text("cp1252")
        self.assertIn("Translating: ", protocol)
        self.assertIn("Setting status to 'completed': ", protocol)

    def test_end_of_the_editor_is_noticed_by_itself(self):
        self.program.stop()
        self.start(self.package, TimerInterval="100")
        editor = road.send_to_editor(self.program, DOCUMENT)
        self.progress("OPENUNCHANGED_C_UNCHANGED_T")
        editor.close()
        self.progress("UNCHANGED")

    def test_document_that_is_out_is_not_opened_again(self):
        editor = road.send_to_editor(self.program, DOCUMENT)
        self.program.focus_window()
        desktop.keys("ctrl+t")
        self.program.wait_for_box("Document is already open")
        self.program.answer("OK")
        editor.close()

    def test_double_click_and_return_send_the_document_out(self):
        self.program.click(DOCUMENT, repeat=2)
        road.Editor().close()
        road.refresh(self.program)
        self.progress("UNCHANGED")
        desktop.keys("Return")
        road.Editor().close()

    def test_quit_with_an_editor_out_asks_and_no_stays(self):
        editor = road.send_to_editor(self.program, DOCUMENT)
        self.program.focus_window()
        desktop.keys("alt+F4")
        self.program.wait_for_box("Do you really want to quit")
        desktop.picture("quit-question")
        self.program.answer("No")
        self.assertIsNone(self.program.process.poll())
        self.assertIsNotNone(self.program.window())
        editor.close()
        road.refresh(self.program)
        self.progress("UNCHANGED")

    def test_package_left_open_by_a_killed_program_heals_at_the_next_start(self):
        editor = road.send_to_editor(self.program, DOCUMENT)
        self.progress("OPENUNCHANGED_C_UNCHANGED_T")
        self.program.stop()
        editor.close()
        self.start(self.package)
        self.progress("UNCHANGED")

    def test_tree_shows_the_document_as_selected_after_its_road(self):
        road.send_to_editor(self.program, DOCUMENT).close()
        road.refresh(self.program)
        self.progress("UNCHANGED")
        self.assertTrue(desktop.has(self.program.cell(DOCUMENT), pyatspi.STATE_SELECTED))


if __name__ == "__main__":
    unittest.main(verbosity=2)
