"""Documents of the sample package go their road through the real office, by keyboard."""

import unittest

import desktop
import office
from office_case import CHANGED, PAGE, PAGE_FILE, SLIDES, SLIDES_FILE, WORD, WORD_FILE, OfficeCase


class OfficeTest(OfficeCase):
    def setUp(self):
        super().setUp()
        self.start_with_sample()

    def test_document_is_edited_beside_its_source_saved_and_closed(self):
        before = self.package_value("PROGRESS", WORD)
        pair = self.translate(WORD, WORD_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        pair.write("Translated words ")
        desktop.picture("office-1-source-and-translation")
        pair.save()
        self.progress(CHANGED)
        self.assertNotEqual(before, CHANGED)
        desktop.wait_until(lambda: self.links(), "links in the package")
        self.assertEqual(self.package_value("1STATE", WORD), "MODIFIED")
        pair.close(pair.translation)
        pair.wait_until_gone()
        self.progress(CHANGED)

    def test_completed_page_that_is_saved_again_is_changed(self):
        pair = self.translate(PAGE, PAGE_FILE)
        pair.write("Translated words ")
        pair.save()
        self.progress("MODIFIED", PAGE)
        self.assertEqual(self.links(PAGE), ["../stoerungen/stoerungen.htm"])
        self.assertEqual(self.package_value("1STATE", PAGE), "MODIFIED")
        pair.close(pair.translation)
        pair.wait_until_gone()
        self.progress("MODIFIED", PAGE)

    def test_document_is_saved_at_its_close(self):
        pair = self.translate(WORD, WORD_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        pair.write("Saved late ")
        pair.close(pair.translation)
        desktop.wait_until(lambda: desktop.windows_named("^Save Document"), "question of the office")
        desktop.keys("Return")
        pair.wait_until_gone()
        self.progress(CHANGED)
        self.assertTrue(self.links())

    def test_three_documents_are_out_until_the_program_ends(self):
        names = {WORD: WORD_FILE, SLIDES: SLIDES_FILE, PAGE: PAGE_FILE}
        pairs = [self.translate(document, name) for document, name in names.items()]
        pairs[0].write("Kept at the end ")
        self.program.focus_window()
        desktop.keys("ctrl+q")
        self.program.wait_for_box("Do you really want to quit")
        self.program.answer("Yes")
        self.assertEqual(self.program.wait_for_end(), 0)
        for pair in pairs:
            pair.wait_until_gone()
        self.progress(CHANGED)
        desktop.wait_until(lambda: not office.processes(), "end of the office")


if __name__ == "__main__":
    unittest.main(verbosity=2)
