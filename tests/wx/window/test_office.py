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

    def test_damaged_or_locked_translation_is_refused_and_others_open(self):
        before = self.package_value("PROGRESS", WORD)
        file = self.file("dst/inbetriebnahme/" + WORD_FILE)
        whole = file.read_bytes()
        file.write_bytes(b"\x07" * 20000)
        self.refuse("Source document or translation document does not exist")
        self.assertEqual(self.package_value("PROGRESS", WORD), before)
        # The source was opened before, and stays for its user to close.
        windows = office.windows_of(WORD_FILE)
        self.assertEqual(["(read-only)" in office.title_of(window) for window in windows], [True])
        desktop.activate(windows[0])
        desktop.keys("alt+F4")
        desktop.wait_until(lambda: not office.windows_of(WORD_FILE), "end of the source's window")
        file.write_bytes(whole)
        lock = file.with_name(f".~lock.{WORD_FILE}#")
        lock.write_text(",u,elsewhere,21.11.2026 16:07,file:///home/u/.config/libreoffice/4;")
        self.refuse("Document is already open!")
        self.assertEqual(office.windows_of(WORD_FILE), [])
        self.assertEqual(self.package_value("PROGRESS", WORD), before)
        self.assertTrue(lock.exists())
        self.assertEqual(file.read_bytes(), whole)
        pair = self.translate(SLIDES, SLIDES_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        pair.close(pair.translation)
        pair.wait_until_gone()

    def refuse(self, words):
        desktop.wait_until(lambda: self.select(WORD), f"selection of {WORD}")
        desktop.keys("ctrl+t")
        self.program.wait_for_box(words)
        self.program.answer("OK")


if __name__ == "__main__":
    unittest.main(verbosity=2)
