"""The window with a package: tree, list, menus, recent files, resize."""

import unittest

import pyatspi

import desktop
from case import DOCUMENT, WindowCase

PACKAGE_TITLE = "Handbuch Kreiselpumpen AQ"
TREE_HEADINGS = ["", "TechName", "Title"]
LIST_HEADINGS = ["Format", "State", "Status", "Last Change", "Created By", "File Name", "Format"]
DOCUMENTS = {"AQ40_INBETRIEBNAHME", "AQ40_WARTUNG", "AQ40_SICHERHEIT", "AQ_SCHULUNG", "AQ_UEBERSICHT",
          "AQ_STOERUNGEN", "AQ_GLOSSAR", "AQ_INHALT", "AQ_RECHNER", "AQ_STIL", "AQ40_DATEN"}


def headings(table):
    return [node.name for node in desktop.walk(table) if node.getRoleName() == "table column header"]


class TreeTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.start_with_sample()

    def test_tree_shows_the_package_and_every_document(self):
        self.assertIsNotNone(self.program.cell(str(self.package)))
        self.assertIsNotNone(self.program.cell(PACKAGE_TITLE))
        for name in sorted(DOCUMENTS):
            with self.subTest(name):
                self.assertIsNotNone(self.program.cell(name))
        self.assertEqual(headings(self.program.tree()), TREE_HEADINGS)

    def test_tree_has_the_keyboard(self):
        self.wait(lambda: desktop.has(self.program.tree(), pyatspi.STATE_FOCUSED), "focus in the tree")

    def test_commands_are_enabled(self):
        for name in ["Copy text", "Translate Content with Editor", "Translate Title", "in progress", "completed"]:
            with self.subTest(name):
                self.assertTrue(desktop.has(self.program.entry(name), pyatspi.STATE_SENSITIVE))
        self.assertTrue(desktop.has(self.program.tool("Set a document to the 'completed' status"),
                                    pyatspi.STATE_SENSITIVE))

    def test_expanding_by_key_shows_the_files(self):
        self.program.select("AQ_UEBERSICHT")
        desktop.keys("Right")
        self.wait(lambda: self.program.cell("uebersicht.css"), "file in the tree")
        desktop.picture("expanded")
        desktop.keys("Left")
        self.wait(lambda: self.program.cell("uebersicht.css") is None, "collapsed document")

    def test_opened_package_is_the_first_recent_file(self):
        self.wait(lambda: self.program.entry(f"1 {self.package}"), "recent file")

    def test_return_on_the_package_does_nothing(self):
        self.program.select(PACKAGE_TITLE)
        desktop.keys("Return")
        self.program.choose("Trace")
        self.wait(lambda: self.program.status() == "Trace is now off", "status text")
        self.assertIsNone(self.program.box())

    def test_translating_a_source_document_is_refused(self):
        self.program.select("AQ40_SICHERHEIT")
        desktop.keys("ctrl+t")
        self.program.wait_for_box("State change failed")
        desktop.picture("refusal")
        self.program.answer("OK")

    def test_question_answered_no_changes_nothing(self):
        self.program.select(DOCUMENT)
        desktop.keys("F3")
        self.program.wait_for_box("Are you sure to re-define the status of this object")
        desktop.keys("Escape")
        self.program.wait_for_no_box()
        self.assertEqual(self.package_value("PROGRESS"), "UNCHANGED")

    def test_question_has_no_as_its_default(self):
        self.program.select(DOCUMENT)
        desktop.keys("F3")
        self.program.wait_for_box("Are you sure to re-define the status of this object")
        self.wait(lambda: desktop.has(self.program.find("push button", "No", self.program.box()),
                                      pyatspi.STATE_FOCUSED), "focus on No")
        desktop.keys("Return")
        self.program.wait_for_no_box()
        self.assertEqual(self.package_value("PROGRESS"), "UNCHANGED")

    def test_resize_fills_the_window_with_the_tree(self):
        number = self.program.focus_window()
        for width, height in ((700, 500), (1100, 750)):
            desktop.run("xdotool", "windowsize", "--sync", number, str(width), str(height))
            self.wait(lambda: self.tree_fills_window(), f"tree filling {width} x {height}")

    def tree_fills_window(self):
        tree = desktop.extents(self.program.tree())
        window, bar = desktop.extents(self.program.window()), desktop.extents(self.program.find("tool bar"))
        status = desktop.extents(self.program.find("status bar"))
        return (abs(tree.width - window.width) <= 4 and abs(tree.y - bar.y - bar.height) <= 4 and
                abs(tree.y + tree.height - status.y) <= 4)


class SearchTest(WindowCase):
    def type(self, letters):
        self.program.focus_window()
        desktop.run("xdotool", "type", letters)

    def wait_for_selection(self, text):
        self.wait(lambda: desktop.has(self.program.cell(text), pyatspi.STATE_SELECTED), f"selection of '{text}'")

    def test_letters_typed_find_a_document_by_its_technical_name(self):
        self.start_with_sample()
        self.type("aq_st")
        self.wait_for_selection("AQ_STOERUNGEN")
        self.type("i")
        self.wait_for_selection("AQ_STIL")
        desktop.keys("Escape", "F3")
        self.program.wait_for_box("Are you sure to re-define the status of this object")
        self.program.answer("Yes")
        self.wait(lambda: self.package_value("PROGRESS", "AQ_STIL") == "MODIFIED", "state in the package")

    def test_letters_typed_find_a_document_by_its_title_in_its_own_script(self):
        self.start_with_sample()
        self.type("STÖ")
        self.wait_for_selection("AQ_STOERUNGEN")

    def test_letters_typed_find_a_row_of_the_list(self):
        self.start_with_sample(ViewDetailed="1")
        self.type("aq_st")
        self.wait_for_selection("AQ_STOERUNGEN")


class ContextMenuTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.start_with_sample()

    def popup(self):
        """Names in the menu that popped up, None if none did."""
        for window in self.program.application():
            if window.getRoleName() == "window":
                names = [node.name for node in desktop.walk(window)
                         if node.getRoleName() in ("menu item", "check menu item")]
                if names:
                    return names
        return None

    def right_click(self, text):
        self.program.click(text, button=3)

    def test_document_brings_up_the_component_commands(self):
        self.right_click("AQ_UEBERSICHT")
        self.assertEqual(self.wait(self.popup, "menu")[0], "Mark as primary component file")
        self.assertTrue(desktop.has(self.program.cell("AQ_UEBERSICHT"), pyatspi.STATE_SELECTED))
        desktop.keys("Escape")

    def test_file_brings_up_the_context_menu(self):
        self.program.select("AQ_UEBERSICHT")
        desktop.keys("Right")
        self.right_click("uebersicht.css")
        self.assertEqual(self.wait(self.popup, "menu"),
                         ["Copy selection", "Translate Content with Editor", "Translate Title",
                          "Mark as 'to be translated'", "Mark as 'in progress'", "Mark as 'completed'"])
        desktop.picture("context-menu")
        desktop.keys("Escape")

    def test_menu_stays_when_the_button_was_held(self):
        box = desktop.settled_extents(lambda: self.program.cell("AQ_UEBERSICHT"))
        desktop.run("xdotool", "mousemove", str(box.x + 20), str(box.y + 5), "mousedown", "3")
        self.wait(lambda: desktop.has(self.program.cell("AQ_UEBERSICHT"), pyatspi.STATE_SELECTED), "selection")
        self.assertIsNone(self.popup())
        desktop.run("xdotool", "mouseup", "3")
        self.wait(self.popup, "menu")
        desktop.keys("Down", "Down")
        self.assertIsNotNone(self.popup())
        desktop.keys("Escape")

    def test_menu_key_brings_it_up_too(self):
        self.program.select("AQ_UEBERSICHT")
        desktop.keys("shift+F10")
        self.wait(self.popup, "menu")
        desktop.keys("Escape")

    def test_package_has_none(self):
        self.right_click(PACKAGE_TITLE)
        self.wait(lambda: desktop.has(self.program.cell(PACKAGE_TITLE), pyatspi.STATE_SELECTED), "selection")
        self.program.choose("Trace")
        self.wait(lambda: self.program.status() == "Trace is now off", "status text")
        self.assertIsNone(self.popup())

    def test_chosen_command_runs(self):
        self.program.select("AQ40_WARTUNG")
        desktop.keys("Right")
        self.right_click("wartung.doc")
        self.wait(self.popup, "menu")
        desktop.keys("Up", "Return")
        self.wait(lambda: self.package_value("PROGRESS", "AQ40_WARTUNG") == "COMPLETE", "state in the package")


class ListTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.start_with_sample(ViewDetailed="1")

    def test_list_is_shown_with_its_columns_and_documents(self):
        self.assertTrue(desktop.has(self.program.list(), pyatspi.STATE_SHOWING))
        self.assertFalse(desktop.has(self.program.tree(), pyatspi.STATE_SHOWING))
        self.assertEqual(headings(self.program.list()), LIST_HEADINGS)
        self.assertIsNotNone(self.program.cell(DOCUMENT))
        desktop.picture("list")

    def test_short_view_brings_the_tree(self):
        self.program.choose("Short view")
        self.wait(lambda: desktop.has(self.program.tree(), pyatspi.STATE_SHOWING), "tree")
        self.wait(lambda: not desktop.has(self.program.list(), pyatspi.STATE_SHOWING), "no list")
        self.wait(lambda: desktop.has(self.program.entry("Short view"), pyatspi.STATE_CHECKED), "check mark")

    def test_resize_puts_the_tree_on_top(self):
        number = self.program.focus_window()
        desktop.run("xdotool", "windowsize", "--sync", number, "700", "500")
        self.wait(lambda: desktop.has(self.program.tree(), pyatspi.STATE_SHOWING), "tree")

    def test_keys_arrive_before_anything_was_clicked(self):
        self.program.focus_window()
        desktop.keys("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0)

    def test_mark_acts_on_the_selected_row(self):
        self.program.select("AQ40_WARTUNG")
        desktop.keys("F4")
        self.wait(lambda: self.package_value("PROGRESS", "AQ40_WARTUNG") == "COMPLETE", "state in the package")
        self.wait(lambda: self.program.cell("COMPLETE"), "state in the list")


if __name__ == "__main__":
    unittest.main(verbosity=2)
