"""What the tests of dialogs share: waiting for one, and using it by the keyboard alone."""

import pyatspi

import desktop
from case import WindowCase


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
        self.program.choose_by_keys(menu_key, name)

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
