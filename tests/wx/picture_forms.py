#!/usr/bin/python3
"""Makes a picture of each form in each language of the interface, into the folder that QB_PICTURES names, as
form-<form>-<language>.png. Run it in a session of its own (run_in_session.sh), or build the target "pictures"."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "window"))

import desktop  # noqa: E402
import forms  # noqa: E402

EXAMPLE = pathlib.Path(__file__).resolve().parents[2] / "examples" / "localization"


def main_window(process):
    """The one window that is wider than the splash; None if it is not there yet."""
    return next((window for window in desktop.windows_of(process) if desktop.width_of(window) > 600), None)


def picture_main(language):
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(EXAMPLE, pathlib.Path(folder) / "package")
        desktop.write_settings({"InterfaceLanguage": language})
        process = subprocess.Popen([desktop.PROGRAM, f"{folder}/package/Trans.pxf"], cwd=folder)
        try:
            window = desktop.wait_until(lambda: main_window(process.pid), "main window")
            desktop.picture_of_window(window, f"form-main-{language}")
        finally:
            process.kill()
            process.wait()


def picture_form(name, language):
    with forms.FormDemo(name, language) as demo:
        window = desktop.windows_of(demo.process.pid)[-1]
        desktop.picture_of_window(window, f"form-{name}-{language}")


desktop.run("xdotool", "mousemove", "0", "0")  # where it brings up no tool tip
for each in forms.LANGUAGES:
    picture_main(each)
    for form in forms.FORMS:
        picture_form(form, each)
        print(f"  {os.environ['QB_PICTURES']}/form-{form}-{each}.png", flush=True)
