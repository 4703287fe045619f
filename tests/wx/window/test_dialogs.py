"""The dialogs in a real window, used by the keyboard alone: title, options, about, help, and the form for attributes."""

import unittest

import pyatspi

import desktop
import forms
import road
from case import WindowCase

TITLE_DIALOG = "Translate Title"
OPTIONS_DIALOG = "ORB Quillbank Translator: Options"
ABOUT_DIALOG = "About ORB Quillbank Translator"
SOURCE_LABEL = "Title in the original language:"
TARGET_LABEL = "Please enter the translated title for the Info Object:"
# A document of the sample package whose title is not part of its file.
DOCUMENT = "AQ_STIL"


def text_of(node):
    return node.queryText().getText(0, -1)


class DialogCase(WindowCase):
    def dialog(self, title):
        """Waits until the dialog is up and has the keyboard."""
        self.wait(lambda: self.program.box().name == title, f"dialog '{title}'")
        number = self.wait(lambda: desktop.windows_named(f"^{title}$"), "dialog on screen")[-1]
        self.wait(lambda: desktop.run("xdotool", "getactivewindow").strip() == number, "active dialog")
        self.wait(self.focused, "something with the focus")

    def choose(self, menu_key, name):
        """Chooses an entry of the menu bar by keys. Whatever asks a screen reader's interface to do it waits until the
        dialog is gone."""
        self.program.focus_window()
        desktop.keys(menu_key)
        for _ in range(20):
            desktop.keys("Down")
            if desktop.has(self.program.entry(name), pyatspi.STATE_SELECTED):
                break
        desktop.keys("Return")

    def press(self, button):
        """Goes to a button by the Tab key and presses it."""
        self.go_to(button)
        desktop.keys("space")

    def go_to(self, name):
        """Presses the Tab key until this has the focus."""
        for _ in range(20):
            before = self.focused()
            if before.name == name:
                return
            desktop.keys("Tab")
            self.wait(lambda: self.focused() not in (None, before), "focus that moved on")
        self.fail(f"the Tab key does not reach '{name}'")

    def focused(self):
        """What has the focus in the dialog, None if nothing has."""
        return next((node for node in desktop.walk(self.program.box())
                     if desktop.has(node, pyatspi.STATE_FOCUSED)), None)

    def wait_for_focus(self, name):
        self.wait(lambda: self.focused().name == name, f"focus on '{name}'")

    def field(self, name):
        return self.program.get("text", name, self.program.box)

    def tab_order(self, count):
        """The names of what the Tab key reaches, one after the other."""
        names = [self.focused().name]
        for _ in range(count - 1):
            desktop.keys("Tab")
            self.wait(lambda: self.focused().name != names[-1], "focus that moved on")
            names.append(self.focused().name)
        return names

    def wait_for_text(self, name, text):
        self.wait(lambda: text_of(self.field(name)) == text, f"'{text}' in '{name}'")


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


class AboutAndHelpTest(DialogCase):
    def test_about_closes_by_enter_and_by_escape(self):
        self.start()
        for key in ("Return", "Escape"):
            with self.subTest(key):
                self.choose("alt+h", "About ORB Quillbank Translator...")
                self.dialog(ABOUT_DIALOG)
                self.wait_for_focus("OK")
                self.assertIn("Version 7.1.3", self.program.box_texts())
                desktop.keys(key)
                self.program.wait_for_no_box()

    def test_system_info_is_unavailable_and_about_stays(self):
        self.start()
        self.choose("alt+h", "About ORB Quillbank Translator...")
        self.dialog(ABOUT_DIALOG)
        desktop.keys("alt+s")
        self.wait(lambda: desktop.windows_named("^ORB Quillbank Translator$"), "box")
        desktop.keys("Return")
        self.wait(lambda: not desktop.windows_named("^ORB Quillbank Translator$"), "end of the box")
        self.dialog(ABOUT_DIALOG)
        desktop.keys("Escape")
        self.program.wait_for_no_box()

    def test_dragging_the_logo_runs_the_show(self):
        self.start()
        self.choose("alt+h", "About ORB Quillbank Translator...")
        self.dialog(ABOUT_DIALOG)
        title = desktop.settled_extents(
            lambda: self.program.find("label", "ORB Quillbank Translator", self.program.box()))
        x, y = title.x - 40, title.y + 20
        desktop.run("xdotool", "mousemove", str(x), str(y), "mousedown", "1")
        for step in range(1, 12):
            desktop.run("xdotool", "mousemove", str(x + 6 * step), str(y + 4 * step))
        desktop.run("xdotool", "mouseup", "1")
        self.wait(lambda: self.program.status() == "A product by ORB AG", "text of the show")
        desktop.keys("Escape")
        self.program.wait_for_no_box()

    def test_f1_shows_the_help_file_with_the_desktops_viewer(self):
        road.associate("application/vnd.ms-htmlhelp")
        (self.folder / "en").mkdir()
        (self.folder / "en" / "00005554.chm").write_text("ITSF", "cp1252")
        self.start()
        desktop.keys("F1")
        editor = road.Editor()
        title = desktop.run("xdotool", "getwindowname", editor.number)
        self.assertIn("en/00005554.chm", title)
        editor.close()

    def test_missing_help_file_is_named(self):
        self.start(HelpFile=r"en\none.chm")
        desktop.keys("F1")
        self.program.wait_for_box(r"Could not find online help file: 'en\none.chm'")
        desktop.keys("Return")
        self.program.wait_for_no_box()

    def test_double_click_on_the_status_line_runs_the_show(self):
        self.start()
        box = desktop.settled_extents(lambda: self.program.find("status bar", "Status bar"))
        desktop.run("xdotool", "mousemove", str(box.x + 60), str(box.y + box.height // 2), "click", "--repeat", "2",
                    "--delay", "60", "1")
        self.wait(lambda: self.program.status() == "A product by ORB AG", "text of the show")


class AttributesTest(unittest.TestCase):
    def setUp(self):
        self.demo = forms.FormDemo("attributes")
        self.addCleanup(self.demo.process.stdout.close)
        self.addCleanup(self.demo.stop)
        self.number = desktop.wait_until(lambda: desktop.windows_of(self.demo.process.pid), "form on screen")[-1]
        desktop.run("xdotool", "windowactivate", "--sync", self.number)
        desktop.wait_until(lambda: desktop.has(self.target(), pyatspi.STATE_FOCUSED), "focus on the target value")

    def target(self):
        return self.demo.find("text", "Value in Target Language:", self.demo.box())

    def test_first_enter_fills_the_field_and_the_second_confirms(self):
        desktop.keys("Return")
        desktop.wait_until(lambda: text_of(self.target()) == "Start-up", "previous translation")
        desktop.keys("Return")
        self.assertEqual(self.demo.wait_for_end(), 0)
        self.assertEqual(self.demo.process.stdout.read(), "Start-up\n")

    def test_escape_gives_an_empty_target(self):
        desktop.run("xdotool", "type", "typed")
        desktop.wait_until(lambda: text_of(self.target()) == "typed", "typed text")
        desktop.keys("Escape")
        self.demo.wait_for_end()
        self.assertEqual(self.demo.process.stdout.read(), "\n")

    def test_buttons_fill_the_target(self):
        for button, text in (("Copy Source Language Text", "Inbetriebnahme"),
                             ("Reuse Previous Translation", "Start-up")):
            self.demo.get("push button", button, self.demo.box).queryAction().doAction(0)
            desktop.wait_until(lambda: text_of(self.target()) == text, f"'{text}' as target")


class LayoutTest(unittest.TestCase):
    """In no language is a control of a form cut off by its window or overlapped by another."""

    ROLES = ("label", "push button", "text", "combo box", "list", "page tab")

    def boxes(self, demo):
        window = next(iter(demo.application()))
        found = []
        for node in desktop.walk(window):
            if node.getRoleName() in self.ROLES and desktop.has(node, pyatspi.STATE_SHOWING):
                # The line of a combo box stands inside it.
                if node.parent.getRoleName() in ("combo box", "push button", "page tab"):
                    continue
                found.append((node.name or node.getRoleName(), desktop.extents(node)))
        return desktop.extents(window), found

    def test_forms_in_all_languages(self):
        for form in forms.FORMS:
            for language in forms.LANGUAGES:
                with self.subTest(form=form, language=language), forms.FormDemo(form, language) as demo:
                    window, found = desktop.wait_until(lambda: self.settled(demo), "form at rest")
                    self.assertTrue(found)
                    for index, (name, box) in enumerate(found):
                        self.assertTrue(window.x <= box.x and box.x + box.width <= window.x + window.width and
                                        window.y <= box.y and box.y + box.height <= window.y + window.height, name)
                        for other, place in found[index + 1:]:
                            apart = (box.x + box.width <= place.x or place.x + place.width <= box.x or
                                     box.y + box.height <= place.y or place.y + place.height <= box.y)
                            self.assertTrue(apart, f"'{name}' and '{other}' overlap")

    def settled(self, demo):
        before, after = self.boxes(demo), self.boxes(demo)
        same = [str(each) for each in before] == [str(each) for each in after]
        return after if same and after[1] and all(box.width > 0 for _, box in after[1]) else None


if __name__ == "__main__":
    unittest.main(verbosity=2)
