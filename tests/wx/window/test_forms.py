"""About box, help, status line and the form for attributes in a real window, and the layout of all forms."""

import unittest

import pyatspi

import desktop
import forms
import pointer
import road
from dialogs import DialogCase, text_of

ABOUT_DIALOG = "About ORB Quillbank Translator"


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
        desktop.run("xdotool", "mousemove", str(x), str(y))
        before = pointer.shape()
        desktop.run("xdotool", "mousedown", "1")
        for step in range(1, 12):
            desktop.run("xdotool", "mousemove", str(x + 6 * step), str(y + 4 * step))
        self.wait(lambda: pointer.shape() != before, "the pointer of a drag")
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
        desktop.activate(self.number)
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
