"""What a user of Windows unpacks: the files in it, and that the program starts out of it on a machine that it is new to."""

import os
import pathlib
import subprocess
import tempfile
import unittest
import zipfile

import machine
import desktop
from window_case import EXAMPLES, WindowCase
from libraries import SYSTEM, libraries_of

ROOT = machine.HERE.parents[1]
NAME = "QuillbankTranslator-windows"
LANGUAGES = {"lan/QuillbankTranslator.en", "de/QuillbankTranslator.lan", "ja/QuillbankTranslator.lan"}
HELP = {f"{language}/00005554.chm" for language in ("en", "de", "ja")}


def sample_files():
    """What belongs to the samples, without what an opening where they lie has left there."""
    for sample in ("translation", "localization"):
        for path in (EXAMPLES / sample).rglob("*"):
            if path.is_file() and path.suffix != ".BAK" and path.name != "Protocol.txt":
                yield f"sample/{path.relative_to(EXAMPLES)}"


class ZipTest(WindowCase):
    @classmethod
    def setUpClass(cls):
        machine.start("cmd", "/c", "exit", folder="/").wait()
        # On the machine's own disk.
        cls.scratch = tempfile.TemporaryDirectory(dir=pathlib.Path(machine.PREFIX) / "drive_c")
        cls.addClassCleanup(cls.scratch.cleanup)
        cls.zip = pathlib.Path(cls.scratch.name) / f"{NAME}.zip"
        subprocess.run([ROOT / "packaging" / "windows-zip", os.environ["QB_BUILD"], cls.zip], check=True)
        with zipfile.ZipFile(cls.zip) as archive:
            cls.names = {name for name in archive.namelist() if not name.endswith("/")}
            archive.extractall(cls.scratch.name)
        cls.unpacked = pathlib.Path(cls.scratch.name) / NAME
        cls.programs = [str(cls.unpacked / name) for name in ("QuillbankTranslator.exe", "qbt.exe")]

    def on_disk(self, path):
        """Where the machine sees a file on its own disk."""
        return "C:" + str(path).removeprefix(f"{machine.PREFIX}/drive_c").replace("/", "\\")

    def test_itHoldsProgramsLanguagesHelpAndSample_AndNothingElse(self):
        programs = {"QuillbankTranslator.exe", "qbt.exe"}
        self.assertEqual(self.names, {f"{NAME}/{file}" for file in programs | LANGUAGES | HELP | set(sample_files())})
        for file in HELP:
            self.assertEqual((self.unpacked / file).read_bytes()[:4], b"ITSF", file)

    def test_theProgramsNeedLibrariesOfTheSystemOnly(self):
        for program in self.programs:
            self.assertEqual(set(), libraries_of(program) - SYSTEM, program)

    def test_onAMachineThatItIsNewTo_theProgramOpensTheSample(self):
        machine.import_registry(self.folder, {machine.SETTINGS: None})
        self.package = self.unpacked / "sample" / "translation" / "Trans.pxf"
        self.run_program(self.on_disk(self.package), program=self.on_disk(self.programs[0]), folder=self.unpacked)
        desktop.wait_until(lambda: "TOUCHED=TRUE" in self.package.read_text("cp1252"), "package in the window")
        desktop.picture("windows-zip")
        self.select("AQ_STIL")
        desktop.keys("F4")
        machine.activate(f"{desktop.PRODUCT}$")  # the document was never edited
        desktop.keys("y")
        self.wait_for_progress("AQ_STIL", "COMPLETE")
        self.quit()
        listed = subprocess.run([machine.HERE / "under_wine", machine.PREFIX, self.on_disk(self.programs[1]), "list",
                                 "--state", "completed"], cwd=self.package.parent, capture_output=True, text=True)
        self.assertEqual((listed.returncode, listed.stderr), (0, ""))
        self.assertIn("AQ_STIL", listed.stdout)


if __name__ == "__main__":
    unittest.main(verbosity=2)
