"""new makes a package that the workbench opens, from any folder of documents."""

import os
import unittest

from qbt_process import EXAMPLES, QbtTest


class New(QbtTest):
    def setUp(self):
        super().setUp()
        self.sources = self.root / "manual"

    def source(self, path, content="content"):
        file = self.sources / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content)
        return file

    def new(self, *arguments):
        return self.qbt("new", "manual", "--from", "de", "--to", "en", *arguments, cwd=self.root)

    def listed(self, folder="manual-en"):
        return self.qbt("list", "--json", "-p", self.root / folder).json()

    def test_everyDocumentIsThere_AsSourceAndAsTranslation(self):
        self.source("start/index.html", "<p>Start")
        self.source("theme.css", "p {}")
        result = self.new()
        self.assertEqual(0, result.code, result.err)
        for folder in ("src", "dst"):
            self.assertEqual("<p>Start", (self.root / "manual-en" / folder / "start/index.html").read_text())
            self.assertEqual("p {}", (self.root / "manual-en" / folder / "theme.css").read_text())
        package = self.listed()
        self.assertEqual(("manual", "DE", "EN"), (package["title"], package["from"], package["to"]))
        self.assertEqual([("THEME", "CSS"), ("INDEX", "HTML")],
                         [(each["name"], each["format"]) for each in package["documents"]])

    def test_thePackageIsWhole_AndNothingIsCompletedYet(self):
        for path in ("a.doc", "b/c.htm", "b/c.gif", "b/d.xml", "pictures/x.png"):
            self.source(path)
        self.new()
        result = self.qbt("check", "--json", "-p", self.root / "manual-en").json()
        self.assertEqual({"not-completed"}, {each["code"] for each in result["findings"]})

    def test_theWorkbenchOpensIt(self):
        self.source("a.css")
        self.new()
        result = self.qbt("-y", "mark", "A", "completed", "-p", self.root / "manual-en")
        self.assertEqual((0, "A: completed\n"), (result.code, result.out), result.err)

    def test_furtherFilesBelongToTheDocumentBesideThem(self):
        for path in ("p/menu.htm", "p/menu2.htm", "p/menu2-1.gif", "p/other.gif", "p/style.css", "pictures/x.png",
                     "pictures/y.png"):
            self.source(path)
        self.new()
        result = self.qbt("show", "MENU", "MENU2", "STYLE", "X", "Y", "--json", "-p", self.root / "manual-en").json()
        files = [[file["name"] for file in each["versions"][0]["files"]] for each in result["documents"]]
        self.assertEqual([["menu.htm", "other.gif"], ["menu2.htm", "menu2-1.gif"], ["style.css"], ["x.png"], ["y.png"]],
                         files)

    def test_documentsOfOneNameAreToldApart(self):
        for path in ("one/index.htm", "two/index.htm", "page.htm", "page.css"):
            self.source(path)
        self.new()
        self.assertEqual({"ONE_INDEX", "TWO_INDEX", "PAGE_HTM", "PAGE_CSS"},
                         {each["name"] for each in self.listed()["documents"]})

    def test_aPackageForLocalization_WithATitle_InAFolderOfChoice(self):
        self.source("a.css")
        self.assertEqual(0, self.new("target", "--localization", "--title", "Words").code)
        self.file = self.root / "target/Trans.pxf"
        self.assertEqual(("LOCAL", "Words"), (self.value("TRANS", "QBT_WF"), self.value("GLOBAL", "TITLE")))

    def test_nothingThatExistsIsWrittenOver(self):
        self.source("a.css")
        self.new()
        before = (self.root / "manual-en/Trans.pxf").read_bytes()
        result = self.new()
        self.assertEqual(1, result.code)
        self.assertIn("not empty", result.err)
        self.assertEqual(before, (self.root / "manual-en/Trans.pxf").read_bytes())

    def test_whatIsPassedOverIsNamed(self):
        self.source("a.css")
        self.source(".git/config")
        os.symlink("/etc/hostname", self.sources / "link.css")
        result = self.new()
        self.assertIn("link.css is passed over", result.err)
        self.assertIn(".git is passed over", result.err)
        self.assertEqual(1, len(self.listed()["documents"]))
        self.assertFalse((self.root / "manual-en/src/.git").exists())

    def test_writeProtectedSourcesGiveATranslationThatCanBeWritten(self):
        self.source("a.css").chmod(0o444)
        self.new()
        self.assertTrue((self.root / "manual-en/dst/a.css").stat().st_mode & 0o200)

    def test_namesAreWrittenInTheCodePageOfTheTargetLanguage(self):
        self.source("größe.css")
        self.new()
        self.assertIn("größe.css".encode("cp1252"), (self.root / "manual-en/Trans.pxf").read_bytes())
        result = self.qbt("new", "manual", "--from", "de", "--to", "ru", cwd=self.root)
        self.assertEqual(3, result.code)
        self.assertIn('1251 of the target language cannot hold', result.err)
        self.assertFalse((self.root / "manual-ru").exists())

    def test_namesThatAPackageCannotHoldAreRefused_BeforeAnythingIsMade(self):
        for names in (["a.css", "A.css"], ["'quoted'"], ["line\nbreak.css"], [" blank "]):
            self.sources.mkdir(exist_ok=True)
            for name in names:
                self.source(name)
            result = self.new()
            self.assertIn(result.code, (2, 3), names)
            self.assertFalse((self.root / "manual-en").exists(), names)
            for name in names:
                (self.sources / name).unlink()

    def test_aFolderWithoutDocuments_OrNoFolder_IsSaid(self):
        self.sources.mkdir()
        self.assertIn("no documents", self.new().err)
        self.assertEqual(3, self.qbt("new", "nowhere", "--from", "de", "--to", "en", cwd=self.root).code)

    def test_aTargetWithinTheSourcesIsRefused(self):
        self.source("a.css")
        self.assertEqual(2, self.new("manual/inside").code)
        self.assertFalse((self.sources / "inside").exists())

    def test_theStatedLengthIsTrue(self):
        self.source("a.css")
        self.new()
        self.file = self.root / "manual-en/Trans.pxf"
        self.assertEqual(self.file.stat().st_size, int(self.value("GLOBAL", "FILESIZE")))

    def test_theSourcesOfASampleMakeAPackage(self):
        self.qbt("new", EXAMPLES / "translation/src", self.root / "made", "--from", "de", "--to", "en")
        self.assertEqual(12, len(self.listed("made")["documents"]))


if __name__ == "__main__":
    unittest.main()
