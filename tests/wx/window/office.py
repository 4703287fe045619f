"""Documents of a package in the real office: its windows, and what their user does there."""

import contextlib
import json
import os
import pathlib
import re
import signal
import subprocess
import tempfile

import desktop
import odf

USER = os.environ.get("QB_OFFICE_USER", "")
HOLD_LIBRARY = os.environ.get("QB_HOLD_LIBRARY", "")
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
    """x, y, width and height of a window on the screen, without its frame."""
    lines = desktop.run("xwininfo", "-id", window).splitlines()
    values = dict(line.strip().rsplit(":", 1) for line in lines if ":" in line)
    return tuple(int(values[name]) for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))


def place_of_screen():
    """Width and height of the screen."""
    return tuple(map(int, desktop.run("xdotool", "getdisplaygeometry").split()))


class Pair:
    """Source and translation of one document on the screen."""

    def __init__(self, name, source=None, deadline=None):
        """A source of the same name is told by its title, since it cannot be written."""
        self.name, self.source_name = name, source or name
        desktop.wait_until(self.find, f"windows of {name}", deadline)

    def find(self):
        windows = {window: title_of(window) for window in windows_of(self.name) + windows_of(self.source_name)}
        sources = [window for window in windows if self.is_source(windows[window])]
        translations = [window for window in windows if window not in sources]
        if len(sources) != 1 or len(translations) != 1:
            return False
        self.source, self.translation = sources[0], translations[0]
        return True

    def is_source(self, title):
        return "(read-only)" in title if self.source_name == self.name else title.startswith(self.source_name)

    def are_side_by_side(self):
        x, _, width, _ = place_of(self.source)
        return width > 300 and x + width <= place_of(self.translation)[0] + 20

    def are_on_the_screen(self):
        """Large enough to be read, and nowhere out of sight, though one may be in front of the other."""
        right, bottom = place_of_screen()
        return all(width > 300 and height > 300 and x >= 0 and y >= 0 and x + width <= right and y + height <= bottom
                   for x, y, width, height in map(place_of, (self.source, self.translation)))

    def activate(self):
        desktop.activate(self.translation)

    def write(self, text):
        self.activate()
        desktop.run("xdotool", "type", "--clearmodifiers", text)

    def save(self):
        desktop.keys("ctrl+s")

    def close(self, window):
        """As its user closes a window."""
        desktop.activate(window)
        desktop.keys("alt+F4")

    def close_by_button(self, window):
        """By a click on the button in its frame, which the plainest look of the office may have put out of sight."""
        desktop.activate(window)
        # One that fills the screen has its frame in sight, and cannot be moved.
        if place_of(window)[1] < 15:
            desktop.run("xdotool", "windowmove", window, "100", "100")
            desktop.wait_until(lambda: place_of(window)[1] > 50, "moved window")
        x, y, width, _ = place_of(window)
        desktop.run("xdotool", "mousemove", str(x + width - 10), str(y - 10), "click", "1")

    def wait_until_gone(self):
        desktop.wait_until(lambda: not windows_of(self.name) + windows_of(self.source_name),
                           f"end of the windows of {self.name}")


def processes():
    """The processes of our offices and their helpers, by the profile that they were given."""
    found = subprocess.run(["pgrep", "-f", "--", PROFILES], capture_output=True, text=True).stdout.split()
    return [int(number) for number in found if int(number) != os.getpid()]


def office_process():
    """The process of the office; None if none runs."""
    found = subprocess.run(["pgrep", "-f", "--", f"soffice.bin.*{PROFILES}"], capture_output=True, text=True)
    numbers = [int(number) for number in found.stdout.split() if int(number) > 1]
    return numbers[0] if numbers else None


def kill_office():
    """Kills the office, not its helper, as a crash would."""
    send_to_office(signal.SIGKILL)


def hold_office():
    """Lets the office stand still, as on a slow machine, until `release_office`. Waits until there is one."""
    desktop.wait_until(office_process, "process of the office")
    send_to_office(signal.SIGSTOP)
    desktop.wait_until(stands_still, "office that stands still")


@contextlib.contextmanager
def held_from_the_start():
    """Lets the office that is started inside stand still before it can do anything."""
    with tempfile.NamedTemporaryFile() as mark:
        os.environ.update(LD_PRELOAD=HOLD_LIBRARY, QB_HOLD_OFFICE=mark.name)
        try:
            yield
        finally:
            del os.environ["LD_PRELOAD"], os.environ["QB_HOLD_OFFICE"]
        desktop.wait_until(stands_still, "office that stands still")


def stands_still():
    return pathlib.Path(f"/proc/{office_process()}/stat").read_text().rsplit(")", 1)[1].split()[0] == "T"


def release_office():
    send_to_office(signal.SIGCONT)


def send_to_office(number):
    process = office_process()
    assert process, "no office runs"
    os.kill(process, number)


def end_all():
    """What a failed test may leave behind."""
    for number in processes():
        if number > 1:
            try:
                os.kill(number, signal.SIGKILL)
            except ProcessLookupError:
                pass


class User:
    """What a user does in the running office, over a line of the office's own. Documents are told by their paths."""

    def __init__(self):
        line = pathlib.Path(f"/proc/{office_process()}/cmdline").read_text().replace("\0", " ")
        pipe = re.search(r"pipe,name=([^;]+);", line)[1]
        self.process = subprocess.Popen([USER, pipe], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def end(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()

    def ask(self, what, path, **more):
        print(json.dumps({"do": what, "path": str(path), **more}), file=self.process.stdin, flush=True)
        answer = json.loads(self.process.stdout.readline())
        assert "error" not in answer, f"{what} {path}: {answer['error']}"
        return answer["result"]

    def write(self, path, text):
        self.ask("write", path, text=text)

    def save(self, path):
        """As by the menu: the office tells of it as it does when its user saves."""
        self.ask("command", path, command=".uno:Save")

    def is_read_only(self, path):
        return self.ask("isReadOnly", path)

    def kill_office_at(self, event):
        """Kills the office in the middle of something, as OnLoad or OnSave, with whichever document it happens."""
        self.ask("killAt", "", event=event, process=office_process())

    def set_title(self, path, title):
        self.ask("setTitle", path, title=title)

    def insert_link(self, path, address):
        """Puts a link at the end of a text."""
        self.ask("insertLink", path, address=address)

    def insert_many_links(self, path, addresses):
        """The same for very many, which the office reads out of a file."""
        with tempfile.NamedTemporaryFile(suffix=".odt") as file:
            odf.write_links(file.name, addresses)
            self.ask("insertFile", path, file=file.name)

    def insert_slide_link(self, path, slide, address):
        """Puts a link into the first shape of a slide, the first of which is 0."""
        self.ask("insertSlideLink", path, slide=slide, address=address)
