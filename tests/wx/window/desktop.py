"""The desktop around the program under test: starting it, waiting, finding what is on screen, keys and pointer."""

import os
import pathlib
import signal
import subprocess
import time

import pyatspi

PROGRAM = os.environ.get("QB_TRANSLATOR", "")
PICTURES = os.environ.get("QB_PICTURES", "")
DEADLINE = float(os.environ.get("QB_DEADLINE", "60"))
POLL = 0.03
MAIN_WINDOW = "ORB Quillbank Translator: Explorer"
PRODUCT = "ORB Quillbank Translator"
SETTINGS = r"[HKEY_CURRENT_USER\Software\ORB\Quillbank\Quillbank Translator]"
TABLES = ("table", "tree table")
PIXEL_COORDINATES = pyatspi.DESKTOP_COORDS

# How long a question to a program may take, in milliseconds. By itself it would fail after less than a second.
pyatspi.setTimeout(int(DEADLINE * 1000), int(DEADLINE * 1000))


def wait_until(condition, what, deadline=None):
    """Waits for a condition and returns its value. Raises AssertionError naming `what` when time is up."""
    end = time.monotonic() + (deadline or DEADLINE)
    while True:
        try:
            value = condition()
        except Exception:  # what is looked at may vanish meanwhile: that is "not yet"
            value = None
        if value:
            return value
        if time.monotonic() > end:
            picture("failed-" + "".join(each if each.isalnum() else "-" for each in what)[:60])
            raise AssertionError(f"did not come: {what}")
        time.sleep(POLL)


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def keys(*names):
    """Presses key combinations one after the other, as "ctrl+q", in the window that has the focus."""
    run("xdotool", "key", "--clearmodifiers", *names)


def picture(name):
    """Keeps a picture of the whole screen, if a folder was named."""
    if PICTURES:
        keep_picture("root", name)


def keep_picture(window, name, *options):
    """Waits for the window to come to rest, but not for ever, since a text cursor never does. Returns the file."""
    os.makedirs(PICTURES, exist_ok=True)
    path = f"{PICTURES}/{name}.png"
    last = None
    for _ in range(5):
        run("import", *options, "-window", window, path)
        now = run("identify", "-format", "%#", path)
        if now == last:
            break
        last = now
    return path


def search(*criteria):
    """The numbers of the windows that can be seen and meet the criteria."""
    while True:
        # It counts as failed where there are none. When any window goes while it looks it breaks off instead: that
        # says nothing about the others.
        found = subprocess.run(["xdotool", "search", "--onlyvisible", *criteria], capture_output=True, text=True)
        if "X Error" not in found.stderr:
            return found.stdout.split()


def windows_named(name):
    """The numbers of the windows on screen whose titles match."""
    return search("--name", name)


def windows_of(process):
    """The numbers of the windows of a process that can be seen, the last one in front. By size, since the desktop puts
    tiny ones beside them, and not by title, which may be in any script."""
    return [number for number in search("--all", "--pid", str(process), "--class", "") if width_of(number) >= 100]


def width_of(window):
    """In pixels; 0 for a window that is gone."""
    found = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], capture_output=True, text=True)
    return next((int(line[6:]) for line in found.stdout.splitlines() if line.startswith("WIDTH=")), 0)


def picture_of_window(window, name):
    """Keeps a picture of one window with its frame."""
    # A window that is only just coming has no frame yet.
    wait_until(lambda: keep_picture(window, name, "-frame"), f"window {name}")


def windows_on_screen():
    """The numbers of all windows that can be seen, tool tips among them."""
    return set(windows_named(".*"))


def activate(window):
    """Brings a window to the front and waits until it has the keyboard, which it may take later than the first place. A
    window that is only just coming may take both away."""
    wait_until(lambda: has_keyboard(window), "keyboard for the window")


def has_keyboard(window):
    """Whether the window has the keyboard; if another one is in front, asks for its place."""
    in_front = subprocess.run(["xdotool", "getactivewindow"], capture_output=True, text=True)  # fails if there is none
    if in_front.stdout.strip() != window:
        run("xdotool", "windowactivate", window)
    return run("xdotool", "getwindowfocus").strip() == window


def write_settings(values):
    """Settings of an earlier run. A session number makes the program take the others as they stand."""
    folder = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "quillbank-translator"
    folder.mkdir(parents=True, exist_ok=True)
    folder_of_program = os.path.dirname(PROGRAM).replace("/", "\\")
    settings = {"SessionNumber": "1", "InterfaceLanguage": "en", "ViewDetailed": "0", "UserID": "ORB AG",
                "HelpFile": r"en\00005554.chm", "InstallationPath": folder_of_program,
                "ProgramGroup": "ORB Quillbank", "TimerInterval": "5000", "LastFile1": "-", "LastFile2": "-",
                "LastFile3": "-", "LastFile4": "-", "TraceFile": "TraceFile", "Trace": "1"}
    settings.update(values)
    lines = [SETTINGS] + [f"{name}={value}" for name, value in settings.items()]
    (folder / "registry.ini").write_text("\r\n".join(lines) + "\r\n", encoding="utf-8")


def read_setting(name):
    text = (pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "quillbank-translator" / "registry.ini").read_text("utf-8")
    for line in text.splitlines():
        if line.startswith(name + "="):
            return line[len(name) + 1:].strip('"')
    return None


def extents(node):
    """Where something is on screen."""
    return node.queryComponent().getExtents(PIXEL_COORDINATES)


def settled_extents(find):
    """Where something is on screen, once it has stopped moving."""
    places = [None]

    def settled():
        places.append(extents(find()))
        return places[-1].width > 0 and places[-1] == places[-2] and places[-1]

    return wait_until(settled, "a place on screen")


def has(node, state):
    return node.getState().contains(state)


def walk(node, into_tables=True):
    """The node and everything below it, menus too. Tables can be many rows long, each a question to the program."""
    yield node
    if not into_tables and node.getRoleName() in TABLES:
        return
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None:
            yield from walk(child, into_tables)


class Application:
    """A running program, `process`, as a screen reader sees it."""

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def application(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def find(self, role, name=None, below=None):
        """The first thing of a role (and name), or None."""
        for node in walk(below or self.application(), into_tables=below is not None):
            if node.getRoleName() == role and (name is None or node.name == name):
                return node
        return None

    def get(self, role, name=None, below=None):
        return wait_until(lambda: self.find(role, name, below and below()), f"{role} '{name}'")

    def box(self):
        """The dialog that came up last, None if there is none."""
        boxes = [child for child in self.application() if child.getRoleName() in ("dialog", "alert", "file chooser")]
        return boxes[-1] if boxes else None

    def box_texts(self):
        return [node.name for node in walk(self.box()) if node.getRoleName() == "label" and node.name]

    def wait_for_box(self, text):
        wait_until(lambda: any(text in each for each in self.box_texts()), f"box with '{text}'")

    def wait_for_no_box(self):
        wait_until(lambda: self.box() is None, "end of the box")

    def answer(self, button):
        """Answers the box that is up, the last one."""
        self.press(button)
        self.wait_for_no_box()

    def press(self, button):
        """Answers the box that is up; another one may follow."""
        self.get("push button", button, self.box).queryAction().doAction(0)

    def wait_for_end(self):
        """Waits until the program has ended and returns its exit code."""
        wait_until(lambda: self.process.poll() is not None, "end of the program")
        return self.process.returncode


class Translator(Application):
    """One run of the program."""

    def __init__(self, *arguments, folder):
        self.process = subprocess.Popen([PROGRAM, *arguments], cwd=folder)
        self.window()

    def window(self):
        return self.get("frame", MAIN_WINDOW)

    def menu(self, name):
        return self.get("menu", name)

    def entry(self, name):
        """The entry of the menu bar of this name, None if there is none now."""
        bar = self.find("menu bar")
        return next((node for node in walk(bar)
                     if node.getRoleName() in ("menu item", "check menu item", "menu") and node.name == name), None)

    def entries(self, menu):
        """Names of a menu's entries in order, "-" for a separator."""
        return ["-" if node.getRoleName() == "separator" else node.name for node in self.menu(menu)]

    def popup_entry(self, name):
        """The entry of the menu that popped up, None if there is none."""
        for window in self.application():
            if window.getRoleName() == "window":
                found = self.find("menu item", name, window)
                if found is not None:
                    return found
        return None

    def choose(self, name):
        self.entry(name).queryAction().doAction(0)

    def tool(self, name):
        return self.find("push button", name, self.find("tool bar"))

    def tree(self):
        return self.find("tree table", "Documents")

    def list(self):
        return self.find("table", "Documents")

    def cell(self, text):
        """The table cell on screen with this text, in whichever view is shown."""
        for view in (self.tree(), self.list()):
            if view is not None and has(view, pyatspi.STATE_SHOWING):
                found = self.find("table cell", text, view)
                if found is not None:
                    return found
        return None

    def click(self, text, button=1, repeat=1):
        """Clicks on the row with this text."""
        box = settled_extents(lambda: self.cell(text))
        x, y = box.x + min(box.width // 2, 40), box.y + box.height // 2
        run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(repeat), "--delay", "60", str(button))

    def select(self, text):
        """Selects the row with this text by a click."""
        self.click(text)
        wait_until(lambda: has(self.cell(text), pyatspi.STATE_SELECTED), f"selection of '{text}'")

    def selected_rows(self):
        """Texts of the selected row of the tree."""
        return [node.name for node in walk(self.tree())
                if node.getRoleName() == "table cell" and has(node, pyatspi.STATE_SELECTED)]

    def selected_entries(self):
        """Names of the menu entries that are lit up."""
        return [node.name for node in walk(self.find("menu bar")) if has(node, pyatspi.STATE_SELECTED)]

    def choose_by_keys(self, key, *names):
        """Opens a menu by its key and goes down to an entry, through submenus."""
        for depth, name in enumerate(names, 2):
            keys(key)
            # A menu comes up with its first entry lit; a key too early would count from another one.
            wait_until(lambda: len(self.selected_entries()) == depth, f"menu with '{name}'")
            while self.selected_entries()[-1:] != [name]:
                before = self.selected_entries()
                keys("Down")
                wait_until(lambda: self.selected_entries() != before, "next entry")
            key = "Right"
        keys("Return")

    def focused_text(self):
        """The text in the entry that has the keyboard in the dialog that is up."""
        entry = next(node for node in walk(self.box())
                     if node.getRoleName() == "text" and has(node, pyatspi.STATE_FOCUSED))
        return entry.queryText().getText(0, -1)

    def focus_window(self):
        """Gives the window the keyboard."""
        number = wait_until(lambda: windows_named(MAIN_WINDOW), "window on screen")[-1]
        activate(number)
        return number

    def status(self):
        """The text in the status bar."""
        return self.find("label", None, self.find("status bar", "Status bar")).name
