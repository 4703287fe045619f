"""The window without a package: menus, tool bar, status line, trace switch, settings."""

import unittest

import pyatspi

import desktop
from case import WindowCase

NEEDS_PACKAGE = ["Copy text", "Translate Content with Editor", "Assign Translated File...", "Translate Title",
                 "Components...", "Mark Info Object as..."]
ALWAYS = ["Open translation package...", "Exit", "Short view", "Refresh", "Options...",
          "Help on ORB Quillbank Translator", "ORB on the World Wide Web", "About ORB Quillbank Translator...",
          "Trace"]
HIDDEN = ["Save", "Check in translation package (Upload)", "Properties...", "Print", "Translate Properties",
          "Edit component file", "Detailed view", "Technical Support", "ORB Quillbank online", "Enter Debugger"]
TOOLS = [("Open a translation/localization package", True),
         ("Save the status of the current translation package", False),
         ("Translate selected document with associated editor", False),
         ("Declare a file to be a document's translation", False),
         ("Reset a document to the 'in translation' status", False),
         ("Set a document to the 'in progress' status", False),
         ("Set a document to the 'completed' status", False),
         ("Get online help", True),
         ("btnHTML_ED", False)]
MENUS = {
    "File": ["Open translation package...", "-", "Exit"],
    "Edit": ["Copy text", "-", "Translate Content with Editor", "Assign Translated File...", "Translate Title", "-",
             "Components...", "-", "Mark Info Object as..."],
    "Components...": ["Mark as primary component file", "Insert component file", "Replace component file",
                      "Replace all component files", "Delete component file"],
    "Mark Info Object as...": ["in translation", "in progress", "completed"],
    "View": ["Short view", "-", "Refresh"],
    "Tools": ["Options..."],
    "Help": ["Help on ORB Quillbank Translator", "-", "ORB on the World Wide Web", "-",
             "About ORB Quillbank Translator...", "-", "Trace"],
}
WELCOME = "Welcome to ORB Quillbank Translator!"


class StartTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.start()

    def enabled(self, node):
        return desktop.has(node, pyatspi.STATE_SENSITIVE)

    def test_menus_hold_the_visible_entries_in_order(self):
        for menu, entries in MENUS.items():
            with self.subTest(menu):
                self.assertEqual(self.program.entries(menu), entries)

    def test_hidden_entries_are_not_there(self):
        for name in HIDDEN:
            with self.subTest(name):
                self.assertIsNone(self.program.entry(name))

    def test_entries_that_need_a_package_are_disabled(self):
        for name in NEEDS_PACKAGE:
            with self.subTest(name):
                self.assertFalse(self.enabled(self.program.entry(name)))

    def test_the_other_entries_are_enabled(self):
        for name in ALWAYS:
            with self.subTest(name):
                self.assertTrue(self.enabled(self.program.entry(name)))

    def test_tool_buttons_are_named_by_their_tips_and_enabled_as_the_menus_are(self):
        for name, enabled in TOOLS:
            with self.subTest(name):
                self.assertEqual(self.enabled(self.program.tool(name)), enabled)

    def test_each_tool_button_has_a_name_of_its_own(self):
        bar = self.program.find("tool bar")
        names = [node.name for node in desktop.walk(bar) if node.getRoleName() == "push button"]
        self.assertEqual(names, [name for name, _ in TOOLS])

    def test_status_line_welcomes(self):
        self.assertEqual(self.program.status(), WELCOME)

    def test_short_view_is_checked(self):
        self.assertTrue(desktop.has(self.program.entry("Short view"), pyatspi.STATE_CHECKED))

    def test_trace_switches_its_mark_and_says_so(self):
        self.assertTrue(desktop.has(self.program.entry("Trace"), pyatspi.STATE_CHECKED))
        self.program.choose("Trace")
        self.wait(lambda: self.program.status() == "Trace is now off", "status text")
        self.wait(lambda: not desktop.has(self.program.entry("Trace"), pyatspi.STATE_CHECKED), "no mark")
        self.program.choose("Trace")
        self.wait(lambda: self.program.status() == "Trace is now on", "status text")
        self.wait(lambda: desktop.has(self.program.entry("Trace"), pyatspi.STATE_CHECKED), "mark")
        desktop.picture("start")

    def test_tool_tip_comes_up_under_the_pointer(self):
        before = desktop.windows_on_screen()
        box = desktop.settled_extents(lambda: self.program.tool(TOOLS[0][0]))
        for step in range(4):
            desktop.run("xdotool", "mousemove", str(box.x + box.width // 2 + step), str(box.y + box.height // 2))
        self.wait(lambda: desktop.windows_on_screen() - before, "window of the tool tip")
        desktop.picture("tool-tip")


class ShortcutTest(WindowCase):
    def test_open_dialog_comes_by_its_key_and_escape_leaves_the_window_as_it_was(self):
        self.start()
        desktop.keys("ctrl+o")
        self.wait(self.program.box, "file dialog")
        self.assertEqual(self.program.box().name, "Open Translation/Localization Package")
        desktop.picture("open-dialog")
        desktop.keys("Escape")
        self.program.wait_for_no_box()
        self.assertEqual(self.program.status(), WELCOME)

    def test_key_of_a_hidden_entry_does_nothing(self):
        self.start()
        desktop.keys("ctrl+u", "ctrl+p", "ctrl+s")
        # The trace switch comes after them: by then they would have shown something.
        self.program.choose("Trace")
        self.wait(lambda: self.program.status() == "Trace is now off", "status text")
        self.assertIsNone(self.program.box())

    def test_exit_key_ends_the_program_and_counts_the_session(self):
        self.start(SessionNumber="41")
        desktop.keys("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0)
        self.assertEqual(desktop.read_setting("SessionNumber"), "42")

    def test_close_button_ends_the_program_without_a_question(self):
        self.start()
        desktop.keys("alt+F4")
        self.assertEqual(self.program.wait_for_end(), 0)

    def test_end_of_the_session_ends_the_program_and_keeps_the_settings(self):
        self.start(SessionNumber="7")
        self.program.process.terminate()
        self.assertEqual(self.program.wait_for_end(), 0)
        self.assertEqual(desktop.read_setting("SessionNumber"), "8")


if __name__ == "__main__":
    unittest.main(verbosity=2)
