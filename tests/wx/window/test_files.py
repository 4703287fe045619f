"""Files of a document in the real window: check-in and component commands. Keyboard only."""

import unittest

import pyatspi

import desktop
from case import DOCUMENT, DOCUMENT_FILE, WindowCase

CHECKIN = "Quillbank Translator: Checkin File As Translation"
CHOOSER = "Select a file to check in as translation"
PICTURES_DOCUMENT = "AQ_UEBERSICHT"
FOLDER = "dst/uebersicht"
WORDS = "/* done elsewhere */"


class FilesCase(WindowCase):
    def setUp(self):
        super().setUp()
        self.start_with_sample()

    def own_file(self, name, content=WORDS):
        """A file of the translator's own, outside the package."""
        path = self.folder / "done" / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(content)
        return path

    def select_by_keys(self, text):
        """Goes down the tree from its top to the row with this text."""
        desktop.keys("Home")
        self.wait(lambda: self.program.selected_rows(), "selection in the tree")
        while not desktop.has(self.program.cell(text), pyatspi.STATE_SELECTED):
            before = self.program.selected_rows()
            desktop.keys("Down")
            self.wait(lambda: self.program.selected_rows() != before, "next row")

    def choose_file(self, path):
        """Types a path into the file chooser and takes it."""
        self.type_path(path)
        # Not by the Enter key: the list of completions that may just be coming up takes it away.
        self.program.press("Open")

    def type_path(self, path):
        self.wait(lambda: self.program.find("file chooser"), "file chooser")
        desktop.run("xdotool", "type", "--clearmodifiers", str(path))
        self.wait(lambda: self.program.focused_text() == str(path), "typed path")

    def wait_for_no_chooser(self):
        self.wait(lambda: self.program.find("file chooser") is None, "end of the file chooser")

    def listed(self, name):
        """Names of the files that the package lists for a document's translation."""
        count = int(self.package_value("1FILE_COUNT", name))
        return [self.package_value(f"1FILE_NAME{number}", name) for number in range(1, count + 1)]

    def wait_for_list(self, name, *files):
        self.wait(lambda: self.listed(name) == list(files), f"files of {name}")


class CheckinTest(FilesCase):
    def test_file_from_the_chooser_becomes_the_translation(self):
        document = self.package.parent / DOCUMENT_FILE
        own = self.own_file("new.css")
        self.select_by_keys(DOCUMENT)
        desktop.keys("ctrl+f")
        self.wait(lambda: self.program.find("file chooser", CHOOSER), "file chooser")
        self.assertIsNotNone(self.program.find("menu item", "*.CSS Files ", self.program.box()))
        desktop.picture("checkin-1-chooser")
        self.choose_file(own)
        self.program.wait_for_box(f"'{str(own)}' as primary component.".replace("/", "\\"))
        desktop.picture("checkin-2-question")
        self.assertEqual(document.read_text(), WORDS)
        self.assertEqual(self.package_value("PROGRESS"), "MODIFIED_C_UNCHANGED_T")
        desktop.keys("alt+n")
        self.program.wait_for_box("Operation completed successfully")
        desktop.keys("Return")
        self.program.wait_for_no_box()
        self.assertTrue(desktop.has(self.program.cell(DOCUMENT), pyatspi.STATE_SELECTED))
        self.wait(lambda: desktop.has(self.program.tree(), pyatspi.STATE_FOCUSED), "focus in the tree")
        self.assertEqual([each.name for each in document.parent.iterdir()], [document.name])

    def test_failed_check_in_shows_its_progress_and_keeps_the_translation(self):
        document = self.package.parent / DOCUMENT_FILE
        before = document.read_bytes()
        self.select_by_keys(DOCUMENT)
        desktop.keys("ctrl+f")
        self.choose_file(document)
        self.program.wait_for_box("Error during check-in of file")
        dialog = self.program.find("dialog", CHECKIN)
        self.assertIsNotNone(dialog)
        self.assertFalse(desktop.has(dialog, pyatspi.STATE_MODAL))
        self.assertEqual(self.program.find("text", None, dialog).queryText().getText(0, -1), str(document))
        self.assertEqual(self.program.find("progress bar", None, dialog).queryValue().currentValue, 0.25)
        self.assertFalse(desktop.has(self.program.find("push button", "Cancel", dialog), pyatspi.STATE_SENSITIVE))
        desktop.picture("checkin-3-failed")
        desktop.keys("Return")
        self.program.wait_for_no_box()
        self.assertEqual(document.read_bytes(), before)

    def test_escape_in_the_chooser_leaves_the_document_as_it_was(self):
        self.select_by_keys(DOCUMENT)
        desktop.keys("ctrl+f")
        self.wait(lambda: self.program.find("file chooser", CHOOSER), "file chooser")
        self.assertEqual(self.package_value("PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T")
        desktop.keys("Escape")
        self.wait_for_no_chooser()
        self.wait(lambda: self.package_value("PROGRESS") == "UNCHANGED", "state in the package")

    def test_menu_leads_there_too(self):
        self.select_by_keys(DOCUMENT)
        self.program.choose_by_keys("alt+e", "Assign Translated File...")
        self.wait(lambda: self.program.find("file chooser", CHOOSER), "file chooser")
        desktop.keys("Escape")
        self.wait_for_no_chooser()


class ListCheckinTest(WindowCase):
    def test_key_works_in_the_detailed_view_too(self):
        self.start_with_sample(ViewDetailed="1")
        self.program.select(DOCUMENT)
        desktop.keys("ctrl+f")
        self.wait(lambda: self.program.find("file chooser", CHOOSER), "file chooser")
        desktop.keys("Escape")
        self.wait(lambda: self.package_value("PROGRESS") == "UNCHANGED", "state in the package")


class ComponentTest(FilesCase):
    def setUp(self):
        super().setUp()
        self.files = self.package.parent / FOLDER
        self.select_by_keys(PICTURES_DOCUMENT)

    def select_file(self, name):
        desktop.keys("Right")
        self.wait(lambda: self.program.cell(name), "file in the tree")
        self.select_by_keys(name)

    def command(self, name):
        self.program.choose_by_keys("alt+e", "Components...", name)

    def test_delete_asks_and_takes_the_file_away(self):
        self.select_file("uebersicht.css")
        self.command("Delete component file")
        self.program.wait_for_box("Are you sure you want to delete the delected component file?")
        desktop.picture("component-1-question")
        desktop.keys("alt+y")
        self.program.wait_for_no_box()
        self.wait_for_list(PICTURES_DOCUMENT, "uebersicht.html", "aq40.png")
        self.wait(lambda: self.program.cell("uebersicht.css") is None, "row gone")
        self.wait(lambda: desktop.has(self.program.cell(PICTURES_DOCUMENT), pyatspi.STATE_SELECTED), "selection")
        self.assertFalse((self.files / "uebersicht.css").exists())
        desktop.picture("component-2-deleted")

    def test_delete_answered_by_escape_changes_nothing(self):
        self.select_file("uebersicht.css")
        self.command("Delete component file")
        self.program.wait_for_box("Are you sure you want to delete the delected component file?")
        desktop.keys("Escape")
        self.program.wait_for_no_box()
        self.assertTrue((self.files / "uebersicht.css").exists())
        self.assertEqual(self.listed(PICTURES_DOCUMENT), ["uebersicht.html", "aq40.png", "uebersicht.css"])

    def test_insert_from_the_context_menu_adds_a_file(self):
        desktop.keys("shift+F10")
        self.wait(lambda: self.program.popup_entry("Insert component file"), "context menu")
        desktop.keys("Down", "Down", "Return")
        self.choose_file(self.own_file("my logo.gif", "logo"))
        self.wait_for_list(PICTURES_DOCUMENT, "uebersicht.html", "aq40.png", "uebersicht.css", "my logo.gif")
        self.assertEqual((self.files / "my logo.gif").read_text(), "logo")
        desktop.keys("Right")
        self.wait(lambda: self.program.cell("my logo.gif"), "file in the tree")

    def test_replace_saves_the_folder_and_selects_the_new_file(self):
        self.select_file("aq40.png")
        self.command("Replace component file")
        self.choose_file(self.own_file("aq41.png", "picture"))
        self.wait_for_list(PICTURES_DOCUMENT, "uebersicht.html", "uebersicht.css", "aq41.png")
        self.wait(lambda: desktop.has(self.program.cell("aq41.png"), pyatspi.STATE_SELECTED), "selection")
        self.assertTrue((self.files / "BAK" / "aq40.png").exists())
        self.assertFalse((self.files / "aq40.png").exists())

    def test_mark_as_primary_moves_the_mark(self):
        self.select_file("aq40.png")
        self.command("Mark as primary component file")
        self.wait_for_list(PICTURES_DOCUMENT, "aq40.png", "uebersicht.html", "uebersicht.css")

    def test_copy_puts_the_text_on_the_clipboard(self):
        self.select_file("aq40.png")
        desktop.keys("ctrl+c")
        desktop.keys("ctrl+o")
        self.wait(lambda: self.program.find("file chooser"), "file chooser")
        desktop.keys("slash", "ctrl+a", "ctrl+v")
        self.wait(lambda: self.program.focused_text() == "aq40.png", "text from the clipboard")
        desktop.keys("Escape")


class ReplaceAllTest(FilesCase):
    def choose_all_of(self, folder):
        """Goes to a folder in the file chooser and takes all its files."""
        self.select_by_keys(PICTURES_DOCUMENT)
        self.program.choose_by_keys("alt+e", "Components...", "Replace all component files")
        self.take_all(folder)

    def take_all(self, folder):
        self.type_path(f"{folder}/")
        self.program.press("Open")
        # The list is made anew while the folder is read, and loses what was selected.
        for _ in range(2):
            self.wait(lambda: self.selects_all(each.name for each in folder.iterdir()), "selection of all files")
            desktop.picture("replace-all-1-selected")
        self.program.press("Open")

    def selects_all(self, names):
        """Selects all files that the chooser lists; false if these are not among them, or not yet selected."""
        cells = [self.program.find("table cell", each, self.program.box()) for each in names]
        files = cells[0]
        while files.getRoleName() not in desktop.TABLES:
            files = files.parent
        if not desktop.has(files, pyatspi.STATE_FOCUSED):
            files.queryComponent().grabFocus()
            return False
        for row in range(files.queryTable().nRows):
            files.queryTable().addRowSelection(row)
        return all(desktop.has(each, pyatspi.STATE_SELECTED) for each in cells)

    def test_several_files_of_the_chooser_become_the_list(self):
        self.own_file("a.html")
        self.own_file("b.png")
        self.choose_all_of(self.folder / "done")
        self.wait_for_list(PICTURES_DOCUMENT, "a.html", "b.png")

    def test_names_with_blanks_are_named_and_not_taken(self):
        self.own_file("a.html")
        self.own_file("my b.png")
        self.choose_all_of(self.folder / "done")
        self.program.wait_for_box("my b.png")
        self.assertFalse(any("a.html" in text for text in self.program.box_texts()))
        desktop.picture("replace-all-3-refused")
        desktop.keys("Return")
        self.wait(lambda: self.program.find("file chooser"), "chooser again")
        desktop.keys("Escape")
        self.wait_for_no_chooser()
        self.assertEqual(self.listed(PICTURES_DOCUMENT), [])
        self.assertTrue((self.package.parent / FOLDER / "uebersicht.html").exists())

    def test_folder_with_a_blank_is_named(self):
        folder = self.folder / "my files"
        folder.mkdir()
        for name in ("a.html", "b.png"):
            (folder / name).write_text(WORDS)
        self.choose_all_of(folder)
        self.program.wait_for_box(str(folder))
        self.assertTrue(any("a.html" in text for text in self.program.box_texts()))
        desktop.keys("Return")
        self.wait(lambda: self.program.find("file chooser"), "chooser again")
        self.take_all(self.good_folder())
        self.wait_for_list(PICTURES_DOCUMENT, "c.html", "d.png")

    def good_folder(self):
        self.own_file("c.html")
        return self.own_file("d.png").parent


if __name__ == "__main__":
    unittest.main(verbosity=2)
