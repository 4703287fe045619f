#!/usr/bin/python3
"""Shows the road of one Word document through LibreOffice on the display at hand and keeps a picture of each step.
Usage: show_office_road.py <program> <package> <folder for pictures>, in a session of run_in_session.sh"""

import os
import pathlib
import shutil
import sys

program, package, pictures = (os.path.abspath(argument) for argument in sys.argv[1:])
os.environ["QB_TRANSLATOR"] = program
os.environ["QB_PICTURES"] = pictures
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "window"))

import desktop  # noqa: E402
import office  # noqa: E402
import road  # noqa: E402

# A Word document of the sample package.
DOCUMENT = "AQ40_INBETRIEBNAHME"
DOCUMENT_FILE = "inbetriebnahme.doc"


def step(name, text):
    desktop.picture(name)
    print(f"  {text}: {pictures}/{name}.png", flush=True)


def in_front_of(translator, pair):
    """Puts the program's window in front of the lower half of the two documents."""
    x, y, width, height = office.place_of(pair.source)
    window = translator.focus_window()
    desktop.run("xdotool", "windowsize", "--sync", window, str(width), str(height * 45 // 100),
                "windowmove", "--sync", window, str(x + width // 2), str(y + height // 2))


def show():
    desktop.write_settings({})
    translator = desktop.Translator(package, folder=os.path.dirname(package))
    try:
        translator.focus_window()
        translator.select(DOCUMENT)
        desktop.keys("ctrl+t")
        pair = office.Pair(DOCUMENT_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        step("office-1-opened", "A Word document is out beside its source")
        pair.write("Translated: ")
        pair.save()
        road.wait_for_progress(pathlib.Path(package), DOCUMENT, "MODIFIED_C_UNCHANGED_T")
        in_front_of(translator, pair)
        step("office-2-saved", "Saved there, it has changed in the package")
        pair.close(pair.translation)
        pair.wait_until_gone()
        translator.focus_window()
        desktop.keys("F4")
        road.wait_for_progress(pathlib.Path(package), DOCUMENT, "COMPLETE")
        step("office-3-completed", "It is marked as completed")
        desktop.keys("ctrl+q")
        translator.wait_for_end()
    finally:
        translator.stop()
        office.end_all()


if shutil.which("xdotool") is None:
    sys.exit("xdotool is needed to drive the window")
show()
