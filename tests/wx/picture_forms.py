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


def title_of(window):
    return desktop.run("xdotool", "getwindowname", window).strip()


def picture_main(language):
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(EXAMPLE, pathlib.Path(folder) / "package")
        desktop.write_settings({"InterfaceLanguage": language})
        process = subprocess.Popen([desktop.PROGRAM, f"{folder}/package/Trans.pxf"], cwd=folder)
        try:
            # The splash comes first, and bears the bare name of the program.
            desktop.wait_until(lambda: len(title_of(desktop.windows_of(process.pid)[-1])) > len(desktop.PRODUCT),
                               "main window")
            desktop.picture_of_process(process.pid, f"form-main-{language}")
        finally:
            process.kill()
            process.wait()


def picture_form(name, language):
    with forms.FormDemo(name, language) as demo:
        desktop.picture_of_process(demo.process.pid, f"form-{name}-{language}")


desktop.run("xdotool", "mousemove", "0", "0")  # where it brings up no tool tip
for each in forms.LANGUAGES:
    picture_main(each)
    for form in forms.FORMS:
        picture_form(form, each)
        print(f"  {os.environ['QB_PICTURES']}/form-{form}-{each}.png", flush=True)
