"""One form by itself on the screen, in any language: what a command shows only in passing, or not at all."""

import os
import subprocess

import desktop

DEMO = os.environ.get("QB_FORM_DEMO", "")
FORMS = ("title", "options", "about", "splash", "checkin", "attributes")
LANGUAGES = ("en", "de", "ja")


class FormDemo(desktop.Application):
    """A run of the demonstration, to be used in a `with`."""

    def __init__(self, form, language="en"):
        self.process = subprocess.Popen([DEMO, form, language, os.path.dirname(DEMO)], stdout=subprocess.PIPE, text=True)
        desktop.wait_until(lambda: desktop.windows_of(self.process.pid), f"form {form}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()
        self.process.stdout.close()
