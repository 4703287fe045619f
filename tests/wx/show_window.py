#!/usr/bin/python3
"""Opens a package on the display at hand, keeps a picture of the window and quits.
Usage: show_window.py <program> <package> <folder for pictures>"""

import os
import pathlib
import sys

program, package, pictures = (os.path.abspath(argument) for argument in sys.argv[1:])
os.environ["QB_TRANSLATOR"] = program
os.environ["QB_PICTURES"] = pictures
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "window"))

import desktop  # noqa: E402

desktop.write_settings({})
# The trace goes to the folder in which the program starts: that of the pictures, not that of the user's package.
os.makedirs(pictures, exist_ok=True)
translator = desktop.Translator(package, folder=pictures)
try:
    translator.focus_window()
    desktop.picture("window")
    print(f"  The package is open: {pictures}/window.png", flush=True)
    desktop.keys("ctrl+q")
    translator.wait_for_end()
finally:
    translator.stop()
