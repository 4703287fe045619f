"""Tests of the Windows program in its real window: a copy of the sample in a folder of its own, driven by keys."""

import pathlib
import shutil
import tempfile
import unittest

import machine
import desktop
import road

EXAMPLES = machine.HERE.parents[1] / "examples"


class WindowCase(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        shutil.copytree(EXAMPLES / "translation", self.folder / "package")
        self.package = self.folder / "package" / "Trans.pxf"
        self.program = None
        self.addCleanup(self.stop)

    def register(self, keys):
        """Sets keys of the registry for the time of the test."""
        machine.import_registry(self.folder, keys)
        self.addCleanup(machine.import_registry, self.folder, {key: None for key in keys})

    def start(self, *arguments, program=machine.PROGRAM, folder=None):
        """Starts the program, with the settings of an earlier run, and waits for its window."""
        machine.write_settings(self.folder)
        self.run_program(*arguments, program=program, folder=folder)

    def run_program(self, *arguments, program=machine.PROGRAM, folder=None):
        self.program = machine.start(program, *arguments, folder=folder or self.package.parent)
        machine.wait_for_window(desktop.MAIN_WINDOW)

    def start_with_sample(self):
        self.start(machine.windows_path(self.package))

    def stop(self):
        if self.program and self.program.poll() is None:
            self.program.kill()
        if self.program:
            self.program.wait()

    def keys(self, *names):
        """Presses keys in the main window."""
        machine.activate(desktop.MAIN_WINDOW)
        desktop.keys(*names)

    def select(self, document):
        """Selects a document of the tree, which stand in it in the order of the package."""
        names = [line.partition("=")[2] for line in self.package.read_text("cp1252").splitlines()
                 if line.startswith("RVD_TECH_NAME=")]
        self.keys("Home", *["Down"] * (names.index(document) + 1))

    def value(self, key, document):
        return road.package_value(self.package, key, document)

    def wait_for_progress(self, document, state):
        road.wait_for_progress(self.package, document, state)

    def quit(self):
        self.keys("ctrl+q")
        desktop.wait_until(lambda: self.program.poll() is not None, "end of the program")
        self.assertEqual(self.program.returncode, 0)
