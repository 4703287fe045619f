"""The Debian package must install into a folder of its own, run from there with its languages and help, and go again.

Usage, in a desktop session: check_debian_package.py <build folder> <cpack> [unittest arguments]"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD, CPACK = pathlib.Path(sys.argv.pop(1)).resolve(), sys.argv.pop(1)
SCRATCH = tempfile.TemporaryDirectory(prefix="quillbank-package-")
SYSTEM = pathlib.Path(SCRATCH.name) / "system"
PROGRAM = SYSTEM / "usr" / "bin" / "quillbank-translator"
PROGRAM_FOLDER = SYSTEM / "usr" / "lib" / "quillbank-translator"
HAS_OFFICE = (BUILD / "bin" / "quillbank-office").exists()
OFFICE_HELPER = PROGRAM_FOLDER / "quillbank-office"
OFFICE = b"/usr/lib/libreoffice/program"
WORD_DOCUMENT = "AQ40_INBETRIEBNAHME"
HELP_TYPE = "application/vnd.ms-htmlhelp"

os.environ["QB_TRANSLATOR"] = str(PROGRAM)
sys.path.insert(0, str(ROOT / "tests" / "wx" / "window"))

import desktop  # noqa: E402
import office  # noqa: E402
import road  # noqa: E402


def run(*command):
    result = subprocess.run(command, capture_output=True, text=True)
    assert result.returncode == 0, f"{command}: {result.stdout}{result.stderr}"
    return result.stdout


def dpkg(*arguments):
    """The package manager with a system of its own; what the package depends on is not in it."""
    return run("fakeroot", "dpkg", f"--root={SYSTEM}", "--force-not-root,depends,bad-path", "--no-triggers", *arguments)


def files_of_system():
    """All but the package manager's own."""
    return sorted(str(path.relative_to(SYSTEM)) for path in SYSTEM.rglob("*")
                  if not path.relative_to(SYSTEM).is_relative_to("var") and (path.is_symlink() or not path.is_dir()))


def make_package():
    folder = pathlib.Path(SCRATCH.name) / "made"
    run(CPACK, "--config", str(BUILD / "CPackConfig.cmake"), "-B", str(folder))
    packages = list(folder.glob("*.deb"))
    assert len(packages) == 1, packages
    return packages[0]


def make_system():
    shutil.rmtree(SYSTEM, ignore_errors=True)
    database = SYSTEM / "var" / "lib" / "dpkg"
    for folder in ("info", "updates", "triggers"):
        (database / folder).mkdir(parents=True)
    for file in ("status", "available"):
        (database / file).touch()


def change_setting(name, value):
    file = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "quillbank-translator" / "registry.ini"
    text = file.read_bytes().decode("utf-8")
    changed, count = re.subn(f"(?m)^{name}=.*?(\r?)$", lambda match: f"{name}={value}{match[1]}", text)
    assert count == 1, f"{name} in {text}"
    file.write_bytes(changed.encode("utf-8"))


def install_viewer(shown):
    """Makes a program that writes the path it is given to the file `shown` the viewer of help files."""
    applications = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications"
    applications.mkdir(exist_ok=True)
    viewer = shown.with_name("viewer")
    viewer.write_text(f"#!/bin/sh\nprintf %s \"$1\" > '{shown}'\n")
    viewer.chmod(0o755)
    (applications / "viewer.desktop").write_text(
        f"[Desktop Entry]\nType=Application\nName=Viewer\nExec={viewer} %f\nMimeType={HELP_TYPE};\n")
    (applications / "mimeapps.list").write_text(f"[Default Applications]\n{HELP_TYPE}=viewer.desktop\n")
    run("update-desktop-database", str(applications))


def take_libraries_away(helper):
    """Installs the helper so that it looks for the libraries of LibreOffice where there are none."""
    content = helper.read_bytes()
    assert OFFICE in content
    OFFICE_HELPER.write_bytes(content.replace(OFFICE, OFFICE[:-1] + b"x"))
    OFFICE_HELPER.chmod(0o755)


def take_office_away():
    """The libraries are installed, and the office itself is not."""
    helper = OFFICE_HELPER.rename(OFFICE_HELPER.with_name("helper"))
    OFFICE_HELPER.write_text(
        f"#!/bin/sh\nLD_LIBRARY_PATH={OFFICE.decode()} exec '{helper}' --office /no/soffice \"$@\"\n")
    OFFICE_HELPER.chmod(0o755)


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.addClassCleanup(SCRATCH.cleanup)
        cls.package = make_package()

    def setUp(self):
        make_system()
        dpkg("--install", str(self.package))
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        shutil.rmtree(pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "quillbank-translator", ignore_errors=True)

    def start(self, *arguments):
        program = desktop.Translator(*arguments, folder=self.folder.name)
        self.addCleanup(program.stop)
        return program

    def quit(self, program):
        program.focus_window()
        desktop.keys("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0)

    def sample(self):
        """A copy of the installed sample package, since opening one writes to it."""
        package = pathlib.Path(self.folder.name) / "package"
        shutil.copytree(SYSTEM / "usr/share/doc/quillbank-translator/examples/translation", package)
        return str(package / "Trans.pxf")

    def test_tellsWhatItIsAndNeeds(self):
        fields = dict(re.findall(r"(?m)^(\S+): (.*)$", run("dpkg-deb", "--field", str(self.package))))
        self.assertEqual(fields["Package"], "quillbank-translator")
        self.assertEqual(fields["Architecture"], run("dpkg", "--print-architecture").strip())
        self.assertTrue(fields["Maintainer"] and fields["Description"])
        for library in ("libc6", "libwxgtk3.2", "libgtk-3-0", "libfmt9"):
            self.assertIn(library, fields["Depends"])

    def test_everyFileBelongsToRoot_AndOnlyItsOwnerWrites(self):
        for line in run("dpkg-deb", "--contents", str(self.package)).splitlines():
            rights, owner = line.split()[:2]
            self.assertEqual(owner, "root/root", line)
            self.assertTrue(rights.startswith("l") or (rights[5] == "-" and rights[8] == "-"), line)

    def test_installedProgramStartsWithItsSamplePackage(self):
        program = self.start(self.sample())
        desktop.wait_until(lambda: program.cell("AQ_STIL"), "document of the sample package")
        self.quit(program)
        self.assertEqual(desktop.read_setting("InstallationPath"), str(PROGRAM_FOLDER).replace("/", "\\"))

    def translate(self, program, document):
        program.focus_window()
        program.select(document)
        desktop.keys("ctrl+t")

    @unittest.skipUnless(HAS_OFFICE, "built without the office")
    def test_installedProgramOpensADocumentInTheOffice(self):
        self.addCleanup(office.end_all)
        program = self.start(self.sample())
        self.translate(program, WORD_DOCUMENT)
        pair = office.Pair("inbetriebnahme.doc")
        pair.close(pair.translation)
        pair.wait_until_gone()
        self.quit(program)

    @unittest.skipUnless(HAS_OFFICE, "built without the office")
    def test_programWorksWithoutTheOffice(self):
        road.associate("text/css")
        helper = OFFICE_HELPER.rename(OFFICE_HELPER.with_name("away"))
        package = self.sample()
        program = self.start(package)
        self.translate(program, "AQ_STIL")
        editor = road.Editor()
        editor.close()
        before = road.package_value(pathlib.Path(package), "PROGRESS", WORD_DOCUMENT)
        # Without the helper, with it but without its libraries, and with these but without the office.
        for step in (lambda: None, lambda: take_libraries_away(helper), take_office_away):
            step()
            self.translate(program, WORD_DOCUMENT)
            program.wait_for_box("Source document or translation document does not exist")
            program.answer("OK")
            road.wait_for_progress(pathlib.Path(package), WORD_DOCUMENT, before)
        protocol = pathlib.Path(package).with_name("Protocol.txt").read_text("cp1252")
        for reason in ("LibreOffice could not be started.  ", "LibreOffice is not installed: "):
            self.assertEqual(protocol.count(reason), 1, protocol)
        self.quit(program)

    def test_installedCommandListsTheSamplePackage(self):
        version = run("dpkg-deb", "--field", str(self.package), "Version").strip()
        command = str(PROGRAM.with_name("qbt"))
        self.assertEqual(run(command, "--version"), f"qbt {version}\n")
        self.assertIn("AQ_STIL", run(command, "list", "--package", self.sample()))

    def test_installedProgramFindsItsLanguages(self):
        self.quit(self.start())
        change_setting("InterfaceLanguage", "de")
        program = self.start()
        program.menu("Datei")
        self.quit(program)
        self.addCleanup(setattr, desktop, "MAIN_WINDOW", desktop.MAIN_WINDOW)
        desktop.MAIN_WINDOW = "ORB Quillbank Translator: エクスプローラー"
        change_setting("InterfaceLanguage", "ja")
        program = self.start()
        program.choose("終了(X)")
        self.assertEqual(program.wait_for_end(), 0)

    def test_helpStandsWhereTheProgramLooks(self):
        for language in ("en", "de", "ja"):
            self.assertTrue((PROGRAM_FOLDER / language / "00005554.chm").is_file(), language)

    def test_helpKeyShowsTheHelpInTheViewerOfTheDesktop(self):
        shown = pathlib.Path(self.folder.name) / "shown"
        install_viewer(shown)
        program = self.start()
        program.focus_window()
        desktop.keys("F1")
        desktop.wait_until(lambda: shown.exists() and shown.read_text(), "help file in the viewer")
        self.assertEqual(shown.read_text(), str(PROGRAM_FOLDER / "en" / "00005554.chm"))
        self.quit(program)

    def test_desktopFindsProgramTypeAndIcons(self):
        share = SYSTEM / "usr" / "share"
        for file in ("applications/quillbank-translator.desktop", "mime/packages/quillbank-translator.xml",
                     "icons/hicolor/scalable/apps/quillbank-translator.svg",
                     "icons/hicolor/scalable/mimetypes/application-x-quillbank-package.svg",
                     "metainfo/ag.orb.quillbank_translator.metainfo.xml",
                     "doc/quillbank-translator/copyright"):
            self.assertTrue((share / file).is_file(), file)

    def test_everyCommandHasAManualPage(self):
        manuals = {path.name.removesuffix(".1.gz") for path in (SYSTEM / "usr/share/man/man1").iterdir()}
        self.assertEqual({path.name for path in PROGRAM.parent.iterdir()} - manuals, set())

    def test_removalLeavesNothing(self):
        self.assertIn("usr/bin/quillbank-translator", files_of_system())
        dpkg("--purge", "quillbank-translator")
        self.assertEqual(files_of_system(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
