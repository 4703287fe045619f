"""What the window's tests share: a folder and settings of their own, and a package to open."""

import pathlib
import shutil
import tempfile
import unittest

import desktop
import road

EXAMPLES = pathlib.Path(__file__).resolve().parents[3] / "examples"
# A document of the sample package that goes to a program by its file association, and its file.
DOCUMENT = "AQ_STIL"
DOCUMENT_FILE = "dst/stil/stil.css"


class WindowCase(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        desktop.write_settings({})
        self.program = None

    def start(self, *arguments, **settings):
        """Starts the program with settings of an earlier run and waits for its window."""
        desktop.write_settings(settings)
        self.program = desktop.Translator(*map(str, arguments), folder=self.folder)
        self.addCleanup(self.program.stop)
        self.program.focus_window()
        return self.program

    def sample(self, kind="translation"):
        """A fresh copy of a sample package; returns its package file."""
        folder = self.folder / kind
        shutil.copytree(EXAMPLES / kind, folder)
        return folder / "Trans.pxf"

    def start_with_sample(self, kind="translation", **settings):
        self.package = self.sample(kind)
        return self.start(self.package, **settings)

    def wait(self, condition, what):
        return desktop.wait_until(condition, what)

    def package_value(self, key, technical_name=DOCUMENT):
        return road.package_value(self.package, key, technical_name)
