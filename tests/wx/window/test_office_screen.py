"""What the user sees of the real office: that it is waited for, and on which screen its windows come."""

import unittest

import desktop
import monitors
import office
import pointer
from office_case import WORD, WORD_FILE, OfficeCase

FRAME = 30  # pixels


class WaitTest(OfficeCase):
    def test_window_lives_and_tells_while_the_office_starts(self):
        with office.held_from_the_start():
            self.start_with_sample()
        self.select(WORD)
        before = self.program.status()
        arrow = pointer.shape()
        desktop.keys("ctrl+t")
        self.wait_for_word("Starting LibreOffice...")
        desktop.wait_until(lambda: pointer.shape() != arrow, "hourglass")
        window = self.program.focus_window()
        shown = desktop.wait_until(lambda: self.picture(window, "office-starting"), "picture of the window")
        # What was hidden has to be drawn anew.
        desktop.run("xdotool", "windowminimize", "--sync", window)
        desktop.activate(window)
        desktop.wait_until(lambda: self.picture(window, "office-starting-again") == shown, "window drawn anew")
        office.release_office()
        pair = office.Pair(WORD_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        desktop.wait_until(lambda: self.program.status() == before, "status line as before")
        self.program.focus_window()
        desktop.wait_until(lambda: pointer.shape() == arrow, "end of the hourglass")
        pair.close(pair.translation)
        pair.wait_until_gone()

    def picture(self, window, name):
        path = desktop.keep_picture(window, name)
        return desktop.run("identify", "-format", "%#", path)


class PlaceTest(OfficeCase):
    """On a monitor that does not begin where the screen begins, and is not all of it."""

    def test_windows_stand_side_by_side_on_the_monitor_of_the_program(self):
        self.addCleanup(monitors.move_monitor, 0, 0, 1600, 1000)
        place = 700, 100, 900, 800
        monitors.move_monitor(*place)
        self.start_with_sample()
        pair = self.translate(WORD, WORD_FILE)
        places = lambda: (office.place_of(pair.source), office.place_of(pair.translation))
        desktop.wait_until(lambda: self.are_halves(places(), *place), "halves of the monitor")
        desktop.picture("office-on-a-monitor")
        pair.close(pair.translation)
        pair.wait_until_gone()

    def are_halves(self, places, left, top, width, height):
        """But for the frames around them."""
        wanted = [(left, top, width // 2, height), (left + width // 2, top, width // 2, height)]
        return all(abs(is_ - be) <= FRAME for place, want in zip(places, wanted) for is_, be in zip(place, want))


if __name__ == "__main__":
    unittest.main(verbosity=2)
