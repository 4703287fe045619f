"""Documents of the sample package go their road through the real office, by keyboard."""

import unittest

import desktop
from office_case import CHANGED, PAGE, PAGE_FILE, WORD, WORD_FILE, OfficeCase


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


if __name__ == "__main__":
    unittest.main(verbosity=2)
