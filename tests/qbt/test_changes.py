"""title, assign and component run the workbench's commands with what the command line gives them."""

import unittest

from qbt_process import QbtTest, document, package_text

PROPERTY = "[ADD1]\r\nCOUNT=1\r\n1NAME=DESCRIPTION\r\n1VALUE=Titel\r\n1INFO=\r\n"


class Changes(QbtTest):
    def setUp(self):
        super().setUp()
        page = document(1, "PAGE", files=("page.htm", "page.gif")).replace(
            "1DESCRIPTION=Title of PAGE", "1DESCRIPTION=\r\n1PROPSECTION=ADD1", 1)
        self.write_package(package_text(page, document(2, "FIXED", "READONLY", "READONLY"), PROPERTY)
                           .replace("INFOBJS=3", "INFOBJS=2"))
        self.new = self.root / "incoming"
        self.new.mkdir()

    def incoming(self, name, content="translated"):
        file = self.new / name
        file.write_text(content)
        return file

    def files_of(self, document="PAGE"):
        shown = self.qbt("show", document, "--json").json()["documents"][0]
        return [(file["name"], file["primary"]) for file in shown["versions"][0]["files"]]


class Titles(Changes):
    def test_theTitleIsInThePackage(self):
        result = self.qbt("title", "PAGE", "The page")
        self.assertEqual((0, "PAGE: in-progress\n"), (result.code, result.out), result.err)
        self.assertEqual("The page", self.value("ADD1", "1VALUE"))
        self.assertEqual("UNCHANGED_C_MODIFIED_T", self.value(1, "PROGRESS"))

    def test_anyTextIsATitle_ACommandsNameToo_AndBehindADoubleDashAnOption(self):
        for arguments, title in ((["list"], "list"), (["--", "-5 °C"], "-5 °C"), (["component"], "component")):
            result = self.qbt("title", "PAGE", *arguments)
            self.assertEqual(0, result.code, result.err)
            self.assertEqual(title, self.value("ADD1", "1VALUE"))

    def test_theSameTitleChangesNothing(self):
        result = self.qbt("title", "PAGE", " Titel ")
        self.assertEqual((0, "PAGE: to-be-translated\n"), (result.code, result.out), result.err)

    def test_aTitleThatTheCodePageCannotHoldIsRefused_AndNothingIsLost(self):
        result = self.qbt("title", "PAGE", "Страница")
        self.assertEqual((1, ""), (result.code, result.out))
        self.assertIn("1252", result.err)
        self.assertEqual("Titel", self.value("ADD1", "1VALUE"))
        self.assertEqual("UNCHANGED", self.value(1, "PROGRESS"))

    def test_aReadOnlyDocumentIsRefused(self):
        result = self.qbt("title", "FIXED", "New")
        self.assertEqual(1, result.code)
        self.assertIn("qbt: FIXED: ", result.err)


class Assigning(Changes):
    def test_theFileBecomesTheTranslation(self):
        result = self.qbt("assign", "PAGE", self.incoming("done.htm"))
        self.assertEqual((0, "PAGE: in-progress\n", ""), (result.code, result.out, result.err))
        self.assertEqual("translated", (self.folder / "dst/page/page.htm").read_text())
        self.assertEqual([("page.htm", True), ("page.gif", False)], self.files_of())

    def test_furtherFilesAreAddedBehindIt(self):
        result = self.qbt("assign", "PAGE", self.incoming("done.htm"), self.incoming("one.gif", "1"),
                          self.incoming("two.gif", "2"))
        self.assertEqual((0, ""), (result.code, result.err))
        self.assertEqual("2", (self.folder / "dst/page/two.gif").read_text())
        self.assertEqual(["page.htm", "page.gif", "one.gif", "two.gif"], [name for name, _ in self.files_of()])

    def test_aFileOfAnotherFormatIsRefused_AndTheTranslationStays(self):
        result = self.qbt("assign", "PAGE", self.incoming("done.doc"))
        self.assertEqual((1, ""), (result.code, result.out))
        self.assertIn("Wrong format", result.err)
        self.assertEqual("content of page.htm", (self.folder / "dst/page/page.htm").read_text())
        self.assertEqual("UNCHANGED", self.value(1, "PROGRESS"))

    def test_aFileThatIsNotThereIsSaid_BeforeThePackageIsTouched(self):
        before = self.tree()
        result = self.qbt("assign", "PAGE", self.new / "none.htm")
        self.assertEqual(3, result.code)
        self.assertIn("none.htm", result.err)
        self.assertEqual(before, self.tree())

    def test_pathsFromTheCurrentFolderAreTaken_WithBlanksToo(self):
        self.incoming("is done.htm")
        self.assertEqual(0, self.qbt("-p", self.file, "assign", "PAGE", "is done.htm", cwd=self.new).code)
        self.assertEqual("translated", (self.folder / "dst/page/page.htm").read_text())


class Components(Changes):
    def test_addPutsFilesBehindTheOthers(self):
        result = self.qbt("component", "add", "PAGE", self.incoming("a.gif"), self.incoming("b.gif"))
        self.assertEqual((0, ""), (result.code, result.err))
        self.assertEqual(["page.htm", "page.gif", "a.gif", "b.gif"], [name for name, _ in self.files_of()])
        self.assertTrue((self.folder / "dst/page/b.gif").exists())

    def test_primaryPutsTheFileInFront(self):
        self.assertEqual(0, self.qbt("component", "primary", "PAGE", "page.gif").code)
        self.assertEqual([("page.gif", True), ("page.htm", False)], self.files_of())

    def test_replacePutsAnotherFileInItsPlace(self):
        result = self.qbt("component", "replace", "PAGE", "page.gif", self.incoming("new.png", "picture"))
        self.assertEqual((0, ""), (result.code, result.err))
        self.assertEqual([("page.htm", True), ("new.png", False)], self.files_of())
        self.assertFalse((self.folder / "dst/page/page.gif").exists())
        self.assertEqual("content of page.gif", (self.folder / "dst/page/BAK/page.gif").read_text())

    def test_replaceOfAPrimaryFileByAnotherFormatIsRefused(self):
        result = self.qbt("component", "replace", "PAGE", "page.htm", self.incoming("new.doc"))
        self.assertEqual(1, result.code)
        self.assertIn("File extensions must not differ", result.err)

    def test_deleteAsks_AndThenDeletes(self):
        self.assertEqual(4, self.qbt("component", "delete", "PAGE", "page.gif").code)
        self.assertTrue((self.folder / "dst/page/page.gif").exists())
        self.assertEqual(0, self.qbt("-y", "component", "delete", "PAGE", "page.gif").code)
        self.assertFalse((self.folder / "dst/page/page.gif").exists())
        self.assertEqual([("page.htm", True)], self.files_of())

    def test_theLastWordOfThePrimaryFileIsNo(self):
        result = self.qbt("-y", "component", "delete", "PAGE", "page.htm")
        self.assertEqual(1, result.code)
        self.assertIn("you may not delete the primary component file", result.err)

    def test_replaceAllTakesAllFilesOfAFolder(self):
        result = self.qbt("component", "replace-all", "PAGE", self.incoming("a.htm"), self.incoming("b.gif"))
        self.assertEqual((0, ""), (result.code, result.err))
        self.assertEqual([("a.htm", True), ("b.gif", False)], self.files_of())

    def test_replaceByAFileOfTheOldName_IsRefused_AndTheOldFileStays(self):
        old = (self.folder / "dst/page/page.gif").read_bytes()
        for taken in ("page.gif", "PAGE.GIF", "page.htm"):
            result = self.qbt("component", "replace", "PAGE", "page.gif", self.incoming(taken, "new"))
            self.assertEqual(1, result.code)
            self.assertIn("stands in the document's folder already", result.err)
            self.assertEqual(old, (self.folder / "dst/page/page.gif").read_bytes())
        self.assertEqual(0, self.qbt("show", "PAGE").code)

    def test_replaceByAnotherFileOfTheTranslationItself_IsRefused_AndBothStay(self):
        before = self.files_of()
        result = self.qbt("component", "replace", "PAGE", "page.gif", self.folder / "dst/page/page.htm")
        self.assertEqual((1, ""), (result.code, result.out))
        self.assertIn("stands in the document's folder already", result.err)
        self.assertEqual(before, self.files_of())
        self.assertEqual("content of page.gif", (self.folder / "dst/page/page.gif").read_text())

    def test_replaceByAFileThatStandsInTheFolderUnlisted_TakesItAsItIs(self):
        result = self.qbt("component", "replace", "PAGE", "page.gif", self.write("dst/page/x.gif", "x"))
        self.assertEqual((0, ""), (result.code, result.err))
        self.assertEqual([("page.htm", True), ("x.gif", False)], self.files_of())
        self.assertEqual("x", (self.folder / "dst/page/x.gif").read_text())

    def test_replaceAllByAFileThatCannotBeRead_OrIsNamedTwice_IsRefused_AndTheListStays(self):
        unreadable = self.new / "a.htm"
        unreadable.symlink_to("/proc/self/mem")  # a regular file that not even root reads from its start
        good = self.incoming("b.gif")
        before = self.qbt("show", "PAGE", "--json").out
        for files, why in (([unreadable, good], "cannot be read"), ([good, unreadable], "cannot be read"),
                           ([good, good], "is named twice"), ([good, self.incoming("B.GIF")], "is named twice")):
            result = self.qbt("component", "replace-all", "PAGE", *files)
            self.assertEqual((1, ""), (result.code, result.out))
            self.assertIn(why, result.err)
            self.assertEqual(before, self.qbt("show", "PAGE", "--json").out)
        self.assertFalse((self.folder / "dst/page/b.gif").exists())
        self.assertEqual(0, self.qbt("-y", "mark", "PAGE", "in-progress").code)

    def test_replaceAllByFilesOfTheDocumentsOwnFolder_IsRefused_AndTheListStays(self):
        before = self.qbt("show", "PAGE", "--json").out
        own = [self.folder / "dst/page" / name for name in ("page.htm", "page.gif")]
        result = self.qbt("component", "replace-all", "PAGE", *own)
        self.assertEqual(1, result.code)
        self.assertIn("own folder", result.err)
        self.assertEqual(before, self.qbt("show", "PAGE", "--json").out)

    def test_replaceAllThatTakesNoFile_KeepsTheList(self):
        before = self.qbt("show", "PAGE", "--json").out
        (self.folder / "dst/page/a.htm").mkdir()
        result = self.qbt("component", "replace-all", "PAGE", self.incoming("a.htm"), self.incoming("b.gif"))
        self.assertEqual(1, result.code)
        self.assertIn("keeps the files", result.err)
        self.assertEqual(before, self.qbt("show", "PAGE", "--json").out)
        self.assertEqual(0, self.qbt("-y", "mark", "PAGE", "in-progress").code)

    def test_replaceAllRefusesWhatItCouldNotTake_BeforeThePackageIsTouched(self):
        (self.new / "other").mkdir()
        other = self.new / "other" / "b.gif"
        other.write_text("x")
        before = self.tree()
        for files in ([self.incoming("a.htm")], [self.incoming("a.htm"), self.incoming("b c.gif")],
                      [self.incoming("a.htm"), other]):
            self.assertEqual(2, self.qbt("component", "replace-all", "PAGE", *files).code)
        self.assertEqual(before, self.tree())

    def test_aFileThatTheDocumentDoesNotHaveIsSaid_BeforeThePackageIsTouched(self):
        before = self.tree()
        for command in (["primary", "PAGE", "none.gif"], ["delete", "PAGE", "none.gif"],
                        ["replace", "PAGE", "none.gif", self.incoming("a.gif")]):
            result = self.qbt("-y", "component", *command)
            self.assertEqual(2, result.code)
            self.assertIn("has no file none.gif", result.err)
        self.assertEqual(before, self.tree())

    def test_everySubcommandHasHelp(self):
        for command in ("add", "replace", "replace-all", "primary", "delete"):
            self.assertEqual(0, self.qbt("component", command, "--help").code)


if __name__ == "__main__":
    unittest.main()
