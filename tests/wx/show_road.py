#!/usr/bin/python3
"""Shows the road of one document on the display at hand and keeps a picture of each step.
Usage: show_road.py <program> <package> <folder for pictures>"""

import os
import pathlib
import shutil
import sys

program, package, pictures = (os.path.abspath(argument) for argument in sys.argv[1:])
os.environ["QB_TRANSLATOR"] = program
os.environ["QB_PICTURES"] = pictures
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "window"))

import desktop  # noqa: E402
import road  # noqa: E402

# A document of the sample package whose type has a program on this display.
DOCUMENT = "AQ_STIL"


def step(name, text):
    desktop.picture(name)
    print(f"  {text}: {pictures}/{name}.png", flush=True)


def show():
    road.associate("text/css")
    desktop.write_settings({})
    translator = desktop.Translator(package, folder=os.path.dirname(package))
    try:
        translator.focus_window()
        desktop.wait_until(lambda: translator.cell(DOCUMENT), f"document {DOCUMENT}, which the sample package has")
        step("road-1-opened", "The package is open")
        editor = road.send_to_editor(translator, DOCUMENT)
        road.wait_for_progress(pathlib.Path(package), DOCUMENT, "OPENUNCHANGED_C_UNCHANGED_T")
        step("road-2-in-editor", "A document is out in its editor")
        editor.write_and_save()
        editor.close()
        road.refresh(translator)
        road.wait_for_progress(pathlib.Path(package), DOCUMENT, "MODIFIED_C_UNCHANGED_T")
        step("road-3-changed", "It came back changed")
        desktop.keys("F4")
        road.wait_for_progress(pathlib.Path(package), DOCUMENT, "COMPLETE")
        step("road-4-completed", "It is marked as completed")
        desktop.keys("ctrl+q")
        translator.wait_for_end()
    finally:
        translator.stop()


if shutil.which("xdotool") is None:
    sys.exit("xdotool is needed to drive the window")
show()
