"""The system's own file dialog and clipboard, as the commands of the Windows program use them. Driven by keys."""

import contextlib
import unittest

import gi

import machine
import desktop
import road
from window_case import WindowCase

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

DOCUMENT = "AQ_STIL"
DOCUMENT_FILE = "dst/stil/stil.css"
CHOOSER = "Select a file to check in as translation"
CHOOSER_OF_ALL = "Select all the files you want to replace"
CHOOSER_OF_PACKAGES = "Open Translation/Localization Package"
BOX = f"{desktop.PRODUCT}$"


class DialogCase(WindowCase):
    def own_file(self, name, content=road.WORDS):
        """A file of the translator's own, outside the package."""
        path = self.folder / "done" / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(content)
        return path

    def wait_for_end_of(self, title):
        desktop.wait_until(lambda: not machine.window(title), f"end of '{title}'")

    def choose(self, chooser, *files):
        """Types what is to be chosen into the dialog and takes it."""
        machine.activate(chooser)
        # A dialog takes keys before it has filled its list, which then takes what was typed away.
        desktop.wait_until(lambda: self.is_taken(chooser, " ".join(files)), f"end of '{chooser}'")

    def is_taken(self, chooser, text):
        desktop.keys("Home", "shift+End")
        desktop.run("xdotool", "type", "--clearmodifiers", text)
        desktop.picture("windows-dialog-" + "".join(each if each.isalnum() else "-" for each in chooser))
        desktop.keys("Return")
        with contextlib.suppress(AssertionError):
            return desktop.wait_until(lambda: not machine.window(chooser), "end of the dialog", 5)

    def answer(self, key):
        """Answers the box that is up."""
        machine.activate(BOX)
        answered = machine.window(BOX)
        desktop.keys(key)
        desktop.wait_until(lambda: machine.window(BOX) != answered, "end of the box")

    def files_of(self, document):
        return [self.value(f"1FILE_NAME{number}", document)
                for number in range(1, int(self.value("1FILE_COUNT", document)) + 1)]


class FileDialog(DialogCase):
    def test_the_chosen_package_is_opened_and_a_cancelled_dialog_opens_none(self):
        self.start()
        self.keys("ctrl+o")
        machine.activate(CHOOSER_OF_PACKAGES)
        desktop.keys("Escape")
        self.wait_for_end_of(CHOOSER_OF_PACKAGES)
        self.keys("ctrl+o")
        self.choose(CHOOSER_OF_PACKAGES, machine.windows_path(self.package))
        desktop.wait_until(lambda: "TOUCHED=TRUE" in self.package.read_text("cp1252"), "package in the window")
        self.wait_for_progress(DOCUMENT, "UNCHANGED")
        self.quit()

    def test_the_chosen_file_becomes_the_translation(self):
        own = self.own_file("new.css")
        self.start_with_sample()
        self.select(DOCUMENT)
        desktop.keys("ctrl+f")
        self.choose(CHOOSER, machine.windows_path(own))
        self.answer("n")  # no further files
        self.answer("Return")
        self.wait_for_progress(DOCUMENT, "MODIFIED_C_UNCHANGED_T")
        self.assertEqual((self.package.parent / DOCUMENT_FILE).read_text(), road.WORDS)
        self.quit()

    def test_several_chosen_files_become_the_files_of_the_translation_but_none_with_a_blank(self):
        for name in ("one.css", "two.png", "two words.png"):
            self.own_file(name, name)
        self.start(machine.windows_path(self.package), folder=self.folder / "done")
        self.select(DOCUMENT)
        # Up from the end of the menu to the component commands, and there to the command for all.
        desktop.keys("alt+e", "Up", "Up", "Right", "Down", "Down", "Down", "Return")
        self.choose(CHOOSER_OF_ALL, '"one.css"', '"two words.png"')
        self.answer("Return")  # names with a blank cannot be taken together with others
        self.choose(CHOOSER_OF_ALL, '"one.css"', '"two.png"')
        desktop.wait_until(lambda: self.files_of(DOCUMENT) == ["one.css", "two.png"], "files of the translation")
        for name in ("one.css", "two.png"):
            self.assertEqual((self.package.parent / "dst/stil" / name).read_text(), name)
        self.quit()

    def test_while_a_dialog_is_up_the_window_takes_no_command_and_a_cancelled_one_changes_nothing(self):
        self.start_with_sample()
        document = self.package.parent / DOCUMENT_FILE
        before = document.read_bytes()
        self.select(DOCUMENT)
        desktop.keys("ctrl+f")
        chooser = machine.wait_for_window(CHOOSER)
        self.wait_for_progress(DOCUMENT, "OPENUNCHANGED_C_UNCHANGED_T")
        # Whoever asks for the window gets the dialog.
        desktop.run("xdotool", "key", "--window", machine.window(desktop.MAIN_WINDOW), "ctrl+o")
        machine.activate(CHOOSER)
        self.assertEqual(machine.wait_for_window(CHOOSER), chooser)
        self.assertIsNone(machine.window(CHOOSER_OF_PACKAGES))
        desktop.keys("Escape")
        self.wait_for_end_of(CHOOSER)
        self.wait_for_progress(DOCUMENT, "UNCHANGED")
        self.assertEqual(document.read_bytes(), before)
        self.assertEqual(self.files_of(DOCUMENT), ["stil.css"])
        self.quit()


class ClipboardOfTheSystem(DialogCase):
    def test_the_text_of_the_selected_row_can_be_pasted_elsewhere(self):
        self.start_with_sample()
        self.select(DOCUMENT)
        desktop.keys("ctrl+c")
        clipboard = Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD)
        desktop.wait_until(lambda: clipboard.wait_for_text() == "Signalwörter der Hinweise", "text on the clipboard")
        self.quit()


if __name__ == "__main__":
    unittest.main(verbosity=2)
