"""The road of one document through the program and a real editor."""

import os
import pathlib
import time

import desktop

EDITOR = pathlib.Path(__file__).resolve().parents[1] / "small_editor.py"
WORDS = "/* translated */"


def associate(mime_type):
    """Makes the small editor the desktop's program for files of a type."""
    applications = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications"
    applications.mkdir(parents=True, exist_ok=True)
    (applications / "small-editor.desktop").write_text(
        "[Desktop Entry]\nType=Application\nName=Small editor\n"
        f"Exec=/usr/bin/python3 {EDITOR} %f\nMimeType={mime_type};\n", "utf-8")
    configuration = pathlib.Path(os.environ["XDG_CONFIG_HOME"])
    configuration.mkdir(parents=True, exist_ok=True)
    (configuration / "mimeapps.list").write_text(
        f"[Default Applications]\n{mime_type}=small-editor.desktop\n", "utf-8")


def editor_window(title):
    found = desktop.windows_named(f"^{title}")
    return found[-1] if found else None


class Editor:
    """The small editor that the program has started."""

    def __init__(self):
        self.number = desktop.wait_until(lambda: editor_window("Small editor: "), "editor on screen")

    def activate(self):
        desktop.activate(self.number)

    def write_and_save(self):
        self.activate()
        desktop.run("xdotool", "type", "--clearmodifiers", WORDS)
        wait_for_next_second()
        desktop.keys("ctrl+s")
        desktop.wait_until(lambda: editor_window("Saved: "), "saved document")

    def close(self):
        self.activate()
        desktop.keys("ctrl+w")
        desktop.wait_until(lambda: not editor_window("(Saved|Small editor): "), "end of the editor")


def wait_for_next_second():
    """Times in a package have no fractions: what comes later must fall into a later second."""
    now = int(time.time())
    desktop.wait_until(lambda: int(time.time()) > now, "next second")


def send_to_editor(program, document):
    """Selects a document and sends it to its editor by keys; returns the editor."""
    program.focus_window()
    program.select(document)
    desktop.keys("ctrl+t")
    return Editor()


def refresh(program):
    """Asks the program to look at its editors now instead of at the next tick."""
    program.focus_window()
    desktop.keys("F5")


def package_value(package, key, technical_name):
    """The value of a key in a document's section of a package file; None if it has none."""
    values = {}
    for line in package.read_text("cp1252").splitlines():
        if line.startswith("["):
            if values.get("RVD_TECH_NAME") == technical_name:
                break
            values = {}
        elif "=" in line:
            name, _, text = line.partition("=")
            values.setdefault(name, text)
    return values.get(key) if values.get("RVD_TECH_NAME") == technical_name else None


def wait_for_progress(package, document, state):
    desktop.wait_until(lambda: package_value(package, "PROGRESS", document) == state, f"state {state} in the package")


def list_of(package, document, key):
    """The values of the list, links or properties, that a key of the document names. Empty if there is none."""
    section = package_value(package, key, document)
    values, here = {}, False
    for line in package.read_text("cp1252").splitlines():
        if line.startswith("["):
            here = line == f"[{section}]"
        elif here:
            name, _, text = line.partition("=")
            values[name] = text
    return [values[f"{number}VALUE"] for number in range(1, int(values.get("COUNT", "0")) + 1)]
