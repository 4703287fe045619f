"""Documents of a package in the real office: its windows, and what their user does there."""

import os
import signal
import subprocess

import desktop

# Only in the session of the test: processes are found, and killed, by this folder.
PROFILES = os.path.join(os.environ["XDG_CACHE_HOME"], "quillbank-translator")
if not PROFILES.startswith("/tmp/"):
    raise RuntimeError("this is no session of tests/wx/run_in_session.sh")


def windows_of(name):
    """The windows of documents of this file name."""
    return desktop.windows_named(f"^{name}")


def title_of(window):
    return desktop.run("xdotool", "getwindowname", window).strip()


def place_of(window):
    """x, y, width and height of a window on the screen."""
    lines = desktop.run("xdotool", "getwindowgeometry", "--shell", window).splitlines()
    values = dict(line.split("=") for line in lines)
    return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


class Pair:
    """Source and translation of one document on the screen."""

    def __init__(self, name, deadline=None):
        self.name = name
        desktop.wait_until(self.find, f"windows of {name}", deadline)

    def find(self):
        windows = {title_of(window): window for window in windows_of(self.name)}
        sources = [windows[title] for title in windows if "(read-only)" in title]
        translations = [windows[title] for title in windows if "(read-only)" not in title]
        if len(sources) != 1 or len(translations) != 1:
            return False
        self.source, self.translation = sources[0], translations[0]
        return True

    def are_side_by_side(self):
        x, _, width, _ = place_of(self.source)
        return width > 300 and x + width <= place_of(self.translation)[0] + 20

    def write(self, text):
        desktop.run("xdotool", "windowactivate", "--sync", self.translation)
        desktop.run("xdotool", "type", "--clearmodifiers", text)

    def save(self):
        desktop.keys("ctrl+s")

    def close(self, window):
        """As its user closes a window."""
        desktop.run("xdotool", "windowactivate", "--sync", window)
        desktop.keys("alt+F4")

    def wait_until_gone(self):
        desktop.wait_until(lambda: not windows_of(self.name), f"end of the windows of {self.name}")


def processes():
    """The processes of our offices and their helpers, by the profile that they were given."""
    found = subprocess.run(["pgrep", "-f", "--", PROFILES], capture_output=True, text=True).stdout.split()
    return [int(number) for number in found if int(number) != os.getpid()]


def kill_office():
    """Kills the office, not its helper, as a crash would."""
    found = subprocess.run(["pgrep", "-f", "--", f"soffice.bin.*{PROFILES}"], capture_output=True, text=True)
    numbers = [int(number) for number in found.stdout.split() if int(number) > 1]
    assert numbers, "no office runs"
    for number in numbers:
        os.kill(number, signal.SIGKILL)


def end_all():
    """What a failed test may leave behind."""
    for number in processes():
        if number > 1:
            try:
                os.kill(number, signal.SIGKILL)
            except ProcessLookupError:
                pass
