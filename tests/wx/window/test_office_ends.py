"""However a document's stay in the real office ends, its state is right and nothing is lost."""

import unittest

import desktop
import office
from office_case import CHANGED, PAGE, PAGE_FILE, SLIDES, SLIDES_FILE, WORD, WORD_FILE, OfficeCase

SOURCE = "src/inbetriebnahme/" + WORD_FILE
OUT = "OPENUNCHANGED_C_UNCHANGED_T"
TRANSLATION = "dst/inbetriebnahme/" + WORD_FILE


class EndCase(OfficeCase):
    def begin(self):
        self.start_with_sample()
        self.before = self.package_value("PROGRESS", WORD)

    def open_word(self):
        pair = self.translate(WORD, WORD_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        return pair

    def opens_again(self):
        """The document goes out once more and comes back as it was."""
        pair = self.open_word()
        pair.close(pair.translation)
        pair.wait_until_gone()
        self.progress(self.before)

    def refused(self):
        self.program.wait_for_box("Source document or translation document does not exist")
        self.program.answer("OK")
        self.progress(self.before)


class EndsTest(EndCase):
    def setUp(self):
        super().setUp()
        self.begin()

    def holds(self, path, words):
        """Whether a document's file has the words, in whichever encoding."""
        content = self.file(path).read_bytes()
        return words.encode("ascii") in content or words.encode("utf-16-le") in content

    def test_close_by_the_button_of_either_window_closes_both_and_keeps_what_was_written(self):
        source = self.file(SOURCE).read_bytes()
        pair = self.open_word()
        user = self.user()
        self.assertTrue(user.is_read_only(self.file(SOURCE)))
        self.assertFalse(user.is_read_only(self.file(TRANSLATION)))
        pair.close_by_button(pair.translation)
        pair.wait_until_gone()
        self.progress(self.before)
        pair = self.open_word()
        user.write(self.file(TRANSLATION), "NotYetSaved")
        pair.close_by_button(pair.source)
        pair.wait_until_gone()
        self.progress(CHANGED)
        self.assertTrue(self.holds(TRANSLATION, "NotYetSaved"))
        self.assertEqual(self.file(SOURCE).read_bytes(), source)

    def test_page_whose_source_is_closed_first_is_closed_with_it_and_kept(self):
        # A completed document counts as changed once it was out.
        pair = self.translate(PAGE, PAGE_FILE)
        pair.close_by_button(pair.source)
        pair.wait_until_gone()
        self.progress("MODIFIED", PAGE)
        pair = self.translate(PAGE, PAGE_FILE)
        self.user().write(self.file("dst/uebersicht/" + PAGE_FILE), "NotYetSaved")
        pair.close_by_button(pair.source)
        pair.wait_until_gone()
        self.progress("MODIFIED", PAGE)
        self.assertTrue(self.holds("dst/uebersicht/" + PAGE_FILE, "NotYetSaved"))

    def test_slides_closed_by_the_button_are_saved_when_the_user_says_so(self):
        pair = self.translate(SLIDES, SLIDES_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        self.user().write(self.file("dst/schulung/" + SLIDES_FILE), "SavedLate")
        pair.close_by_button(pair.translation)
        desktop.wait_until(lambda: desktop.windows_named("^Save Document"), "question of the office")
        desktop.keys("Return")
        pair.wait_until_gone()
        self.progress(CHANGED, SLIDES)
        self.assertTrue(self.holds("dst/schulung/" + SLIDES_FILE, "SavedLate"))

    def test_office_that_dies_with_a_page_gives_it_back(self):
        pair = self.translate(PAGE, PAGE_FILE)
        desktop.wait_until(lambda: self.select(SLIDES), f"selection of {SLIDES}")
        self.assertTrue(self.package_value("PROGRESS", PAGE).startswith("OPEN"))
        office.kill_office()
        pair.wait_until_gone()
        self.progress("MODIFIED", PAGE)

    def test_source_takes_neither_keys_nor_a_save(self):
        source = self.file(SOURCE).read_bytes()
        pair = self.open_word()
        desktop.activate(pair.source)
        desktop.run("xdotool", "type", "--clearmodifiers", "Not here ")
        desktop.keys("ctrl+s")
        pair.write("But here ")
        pair.save()
        self.progress(CHANGED)
        self.assertEqual(self.file(SOURCE).read_bytes(), source)
        self.assertTrue(self.holds(TRANSLATION, "But here "))
        pair.close(pair.translation)
        pair.wait_until_gone()

    def test_three_documents_are_saved_when_the_program_ends(self):
        paths = {WORD: TRANSLATION, SLIDES: "dst/schulung/" + SLIDES_FILE, PAGE: "dst/uebersicht/" + PAGE_FILE}
        names = {WORD: WORD_FILE, SLIDES: SLIDES_FILE, PAGE: PAGE_FILE}
        pairs = [self.translate(document, name) for document, name in names.items()]
        user = self.user()
        for path in paths.values():
            user.write(self.file(path), "KeptAtTheEnd")
        self.quit("No")
        self.assertTrue(all(office.windows_of(name) for name in names.values()))
        self.assertEqual(self.package_value("PROGRESS", WORD), OUT)
        self.quit("Yes")
        self.assertEqual(self.program.wait_for_end(), 0)
        for pair in pairs:
            pair.wait_until_gone()
        for path in paths.values():
            self.assertTrue(self.holds(path, "KeptAtTheEnd"), path)
        self.progress(CHANGED)
        self.progress(CHANGED, SLIDES)
        self.progress("MODIFIED", PAGE)
        desktop.wait_until(lambda: not office.processes(), "end of the office")

    def quit(self, answer):
        self.program.focus_window()
        desktop.keys("ctrl+q")
        self.program.wait_for_box("Do you really want to quit")
        self.program.answer(answer)

    def test_office_that_dies_with_a_document_gives_it_back(self):
        pair = self.open_word()
        # The program takes notice of its user again when the opening is over.
        desktop.wait_until(lambda: self.select(SLIDES), f"selection of {SLIDES}")
        office.kill_office()
        pair.wait_until_gone()
        self.progress(self.before)
        self.opens_again()

    def test_office_that_dies_before_it_takes_up_an_opening_is_replaced(self):
        self.opens_again()
        office.hold_office()
        self.select(WORD)
        desktop.keys("ctrl+t")
        self.wait_for_word("Waiting for LibreOffice...")
        office.kill_office()
        pair = office.Pair(WORD_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        pair.close(pair.translation)
        pair.wait_until_gone()
        self.progress(self.before)

    def test_office_that_dies_at_an_opening_leaves_the_document_as_it_was(self):
        self.opens_again()
        self.user().kill_office_at("OnLoad")
        self.select(WORD)
        desktop.keys("ctrl+t")
        self.refused()
        self.opens_again()

    def test_office_that_dies_at_a_save_or_under_a_question_gives_the_document_back(self):
        translation = self.file(TRANSLATION).read_bytes()
        pair = self.open_word()
        user = self.user()
        user.kill_office_at("OnSave")
        pair.write("Never saved ")
        pair.save()
        pair.wait_until_gone()
        self.progress(self.before)
        self.assertEqual(self.file(TRANSLATION).read_bytes(), translation)
        pair = self.open_word()
        pair.write("Never saved either ")
        pair.close(pair.translation)
        desktop.wait_until(lambda: desktop.windows_named("^Save Document"), "question of the office")
        office.kill_office()
        pair.wait_until_gone()
        self.progress(self.before)
        self.assertEqual(self.file(TRANSLATION).read_bytes(), translation)
        self.opens_again()


class StartTest(EndCase):
    def test_office_that_dies_while_it_starts_leaves_the_document_as_it_was(self):
        with office.held_from_the_start():
            self.begin()
        self.select(WORD)
        desktop.keys("ctrl+t")
        self.wait_for_word("Starting LibreOffice...")
        office.kill_office()
        self.refused()
        self.opens_again()


if __name__ == "__main__":
    unittest.main(verbosity=2)
