"""The dialogs for titles and options in a real window, used by the keyboard alone."""

import unittest

import pyatspi

import desktop
from dialogs import DialogCase, text_of

TITLE_DIALOG = "Translate Title"
OPTIONS_DIALOG = "ORB Quillbank Translator: Options"
SOURCE_LABEL = "Title in the original language:"
TARGET_LABEL = "Please enter the translated title for the Info Object:"
# A document of the sample package whose title is not part of its file.
DOCUMENT = "AQ_STIL"


class TitleTest(DialogCase):
    def setUp(self):
        super().setUp()
        self.start_with_sample()
        self.program.select(DOCUMENT)

    def open(self):
        self.choose("alt+e", TITLE_DIALOG)
        self.dialog(TITLE_DIALOG)
        self.wait_for_focus(TARGET_LABEL)

    def progress(self):
        return self.package_value("PROGRESS", DOCUMENT)

    def test_title_is_typed_over_the_old_one_and_enter_takes_it(self):
        self.open()
        self.assertTrue(text_of(self.field(SOURCE_LABEL)))
        self.assertFalse(desktop.has(self.field(SOURCE_LABEL), pyatspi.STATE_EDITABLE))
        desktop.run("xdotool", "type", "Style sheet \"AQ 40\"")
        self.wait_for_text(TARGET_LABEL, "Style sheet \"AQ 40\"")
        desktop.keys("Return")
        self.program.wait_for_no_box()
        self.wait(lambda: "=Style sheet \"AQ 40\"" in self.package.read_text("cp1252"), "title in the package")
        self.assertTrue(self.progress().endswith("MODIFIED_T") or self.progress() == "MODIFIED")

    def test_escape_drops_what_was_typed(self):
        before = self.package.read_bytes()
        self.open()
        desktop.run("xdotool", "type", "dropped")
        self.wait_for_text(TARGET_LABEL, "dropped")
        desktop.keys("Escape")
        self.program.wait_for_no_box()
        desktop.keys("F5")
        self.assertNotIn(b"dropped", self.package.read_bytes())
        self.assertEqual(len(self.package.read_bytes()), len(before))

    def test_close_button_of_the_window_cancels(self):
        self.open()
        desktop.run("xdotool", "type", "dropped")
        desktop.keys("alt+F4")
        self.program.wait_for_no_box()
        self.assertIsNone(self.program.process.poll())
        self.assertNotIn(b"dropped", self.package.read_bytes())
        self.open()
        self.assertNotIn("dropped", text_of(self.field(TARGET_LABEL)))
        desktop.keys("Escape")
        self.program.wait_for_no_box()

    def test_tab_goes_through_the_dialog_in_order(self):
        self.open()
        self.assertEqual(self.tab_order(5), [TARGET_LABEL, "Ok", "Cancel", SOURCE_LABEL, TARGET_LABEL])
        desktop.keys("Escape")
        self.program.wait_for_no_box()

    def test_characters_that_the_package_cannot_hold_are_shown_and_the_dialog_stays(self):
        self.open()
        self.field(TARGET_LABEL).queryEditableText().setTextContents("Стиль 40")
        self.wait_for_text(TARGET_LABEL, "Стиль 40")
        desktop.keys("Return")
        self.wait(lambda: any("С (U+0421)" in each for each in self.all_labels()), "box with the characters")
        desktop.picture("title-refused")
        desktop.keys("Return")
        self.wait(lambda: not any("U+0421" in each for each in self.all_labels()), "end of the box")
        self.dialog(TITLE_DIALOG)
        self.assertEqual(text_of(self.field(TARGET_LABEL)), "Стиль 40")
        desktop.keys("Escape")
        self.program.wait_for_no_box()
        self.assertNotIn(b"=?", self.package.read_bytes())

    def all_labels(self):
        return [node.name for child in self.program.application() if child.getRoleName() in ("dialog", "alert")
                for node in desktop.walk(child) if node.getRoleName() == "label"]

    def test_title_of_ten_thousand_characters_is_taken_whole(self):
        self.open()
        title = "Titel " * 1666 + "Ende"
        self.field(TARGET_LABEL).queryEditableText().setTextContents(title)
        self.wait_for_text(TARGET_LABEL, title)
        desktop.keys("Return")
        self.program.wait_for_no_box()
        self.wait(lambda: f"={title}\r\n" in self.package.read_bytes().decode("cp1252"), "title in the package")


    def test_end_of_the_session_while_the_dialog_is_up_ends_the_program_and_writes_nothing(self):
        before = self.package.read_bytes()
        self.open()
        desktop.run("xdotool", "type", "dropped")
        self.program.process.terminate()
        self.assertEqual(self.program.wait_for_end(), 0)
        self.assertEqual(self.package.read_bytes(), before)


class OptionsTest(DialogCase):
    def open(self):
        self.choose("alt+t", "Options...")
        self.dialog(OPTIONS_DIALOG)

    def test_tab_goes_through_the_dialog_in_order(self):
        self.start()
        self.open()
        self.wait_for_focus("Refresh after")
        self.assertEqual(self.tab_order(6), ["Refresh after", "Language", "User ID", "OK", "Cancel", "Apply"])
        desktop.keys("Escape")
        self.program.wait_for_no_box()

    def test_settings_are_typed_and_enter_stores_them(self):
        self.start(UserID="ORB AG")
        self.open()
        self.wait_for_focus("Refresh after")
        self.assertEqual(text_of(self.field("Refresh after")), "5000")
        self.assertEqual(text_of(self.field("User ID")), "ORB AG")
        desktop.keys("ctrl+a")
        desktop.run("xdotool", "type", "750")
        desktop.keys("Tab", "ctrl+a")
        desktop.run("xdotool", "type", "de")
        self.go_to("User ID")
        desktop.keys("ctrl+a")
        desktop.run("xdotool", "type", "Ann")
        self.wait_for_text("User ID", "Ann")
        desktop.keys("Return")
        self.program.wait_for_no_box()
        self.wait(lambda: desktop.read_setting("UserID") == "Ann", "stored user")
        self.assertEqual(desktop.read_setting("TimerInterval"), "750")
        self.assertEqual(desktop.read_setting("InterfaceLanguage"), "de")

    def test_escape_stores_nothing(self):
        self.start(UserID="ORB AG")
        self.open()
        desktop.keys("ctrl+a")
        desktop.run("xdotool", "type", "1")
        desktop.keys("Escape")
        self.program.wait_for_no_box()
        self.assertEqual(desktop.read_setting("TimerInterval"), "5000")

    def test_apply_changes_the_wording_of_the_open_windows(self):
        self.start()
        self.open()
        self.program.get("text", "Language", self.program.box).queryEditableText().setTextContents("de")
        self.press("Apply")
        self.wait(lambda: self.program.find("menu", "Datei"), "German menu")
        self.wait(lambda: self.program.find("push button", "Abbrechen", self.program.box()), "German dialog")
        desktop.picture("options-applied")
        desktop.keys("Escape")
        self.program.wait_for_no_box()

    def test_bad_interval_is_told_and_the_dialog_of_apply_stays(self):
        self.start()
        self.open()
        desktop.keys("ctrl+a")
        desktop.run("xdotool", "type", "abc")
        self.wait_for_text("Refresh after", "abc")
        self.press("Apply")
        self.wait(lambda: desktop.windows_named("^ORB Quillbank Translator$"), "box")
        desktop.keys("Return")
        self.wait(lambda: not desktop.windows_named("^ORB Quillbank Translator$"), "end of the box")
        self.dialog(OPTIONS_DIALOG)
        desktop.keys("Escape")
        self.program.wait_for_no_box()


if __name__ == "__main__":
    unittest.main(verbosity=2)
