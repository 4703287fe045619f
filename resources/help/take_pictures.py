#!/usr/bin/python3
"""Takes the pictures of the help anew, from the program with the sample package.

Usage: tests/wx/run_in_session.sh /usr/bin/python3 resources/help/take_pictures.py <program>"""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PICTURES = pathlib.Path(__file__).resolve().parent / "pictures"
os.environ["QB_TRANSLATOR"] = os.path.abspath(sys.argv[1])
sys.path.insert(0, str(ROOT / "tests" / "wx" / "window"))

import pyatspi  # noqa: E402

import desktop  # noqa: E402

PACKAGE = pathlib.Path("/tmp/pump-handbook")  # a short path, since it stands in the pictures


def take(name, left, top, width, height):
    """Keeps a part of the screen with few colours, so that the help stays small."""
    path = PICTURES / f"{name}.png"
    last = None
    for _ in range(5):  # until the screen has come to rest, but not for ever, since a text cursor never does
        desktop.run("import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "+repage", str(path))
        now = desktop.run("identify", "-format", "%#", str(path))
        if now == last:
            break
        last = now
    desktop.run("mogrify", "-strip", "+dither", "-colors", "64", "-define", "png:compression-level=9", str(path))


def take_node(name, node):
    box = desktop.extents(node)
    take(name, box.x, box.y, box.width, box.height)


def open_package(**settings):
    desktop.write_settings(settings)
    translator = desktop.Translator(str(PACKAGE / "Trans.pxf"), folder=os.environ["HOME"])
    translator.focus_window()
    return translator


def make_small(translator):
    """The tree needs no more room. Not for the list: a new size brings the tree back."""
    desktop.run("xdotool", "windowsize", "--sync", translator.focus_window(), "880", "420")


def leave(translator):
    desktop.keys("ctrl+q")
    translator.wait_for_end()


def popup(translator):
    """The menu that popped up, None if none did."""
    for window in translator.application():
        if window.getRoleName() == "window" and any(
                node.getRoleName() == "menu item" for node in desktop.walk(window)):
            return window
    return None


def take_dialog(translator, name, menu_key, entry):
    """Takes a dialog that an entry of the menu bar opens. Chosen by keys: an action would wait for the dialog's end."""
    translator.focus_window()
    desktop.keys(menu_key)
    while not desktop.has(translator.entry(entry), pyatspi.STATE_SELECTED):
        desktop.keys("Down")
    desktop.keys("Return")
    desktop.wait_until(translator.box, f"dialog of '{entry}'")
    take_node(name, translator.box())
    desktop.keys("Escape")
    translator.wait_for_no_box()


def tree_pictures():
    translator = open_package()
    make_small(translator)
    translator.select("AQ_STIL")
    take_node("window", translator.window())
    desktop.keys("Right")  # brings its files to light
    translator.click("stil.css", button=3)
    take_node("contextmenu", desktop.wait_until(lambda: popup(translator), "context menu"))
    desktop.keys("Escape")
    take_dialog(translator, "title", "alt+e", "Translate Title")
    take_dialog(translator, "options", "alt+t", "Options...")
    leave(translator)


def list_picture():
    translator = open_package(ViewDetailed="1")
    box = desktop.settled_extents(translator.window)
    take("list", box.x, box.y, box.width, min(box.height, 360))
    leave(translator)


def main():
    PICTURES.mkdir(exist_ok=True)
    shutil.copytree(ROOT / "examples" / "translation", PACKAGE)
    try:
        tree_pictures()
        list_picture()
    finally:
        shutil.rmtree(PACKAGE)
    for picture in sorted(PICTURES.glob("*.png")):
        print(picture.name, subprocess.check_output(["identify", "-format", "%wx%h %b", picture], text=True))


if __name__ == "__main__":
    main()
