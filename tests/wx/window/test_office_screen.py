"""What the user sees of the real office: that it is waited for, and on which screen its windows come."""

import unittest

import desktop
import office
import pointer
from office_case import WORD, WORD_FILE, OfficeCase


class WaitTest(OfficeCase):
    def test_window_lives_and_tells_while_the_office_starts(self):
        self.start_with_sample()
        office.hold_office()
        self.select(WORD)
        before = self.program.status()
        arrow = pointer.shape()
        desktop.keys("ctrl+t")
        self.wait_for_word()
        desktop.wait_until(lambda: pointer.shape() != arrow, "hourglass")
        window = self.program.focus_window()
        shown = desktop.wait_until(lambda: self.picture(window, "office-starting"), "picture of the window")
        # What was hidden has to be drawn anew.
        desktop.run("xdotool", "windowminimize", "--sync", window)
        desktop.run("xdotool", "windowactivate", "--sync", window)
        desktop.wait_until(lambda: self.picture(window, "office-starting-again") == shown, "window drawn anew")
        office.release_office()
        pair = office.Pair(WORD_FILE)
        desktop.wait_until(lambda: self.program.status() == before, "status line as before")
        self.program.focus_window()
        desktop.wait_until(lambda: pointer.shape() == arrow, "end of the hourglass")
        pair.close(pair.translation)
        pair.wait_until_gone()

    def picture(self, window, name):
        path = desktop.keep_picture(window, name)
        return desktop.run("identify", "-format", "%#", path)


if __name__ == "__main__":
    unittest.main(verbosity=2)
