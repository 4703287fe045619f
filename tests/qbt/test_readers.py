"""list, show and status tell what is in a package, and change nothing."""

import shutil
import unittest

from qbt_process import EXAMPLES, QbtTest, document, package_text, native


class Readers(QbtTest):
    def setUp(self):
        super().setUp()
        self.write_package(package_text(
            document(1, "FRESH"), document(2, "DONE", "COMPLETE", "MODIFIED"),
            document(3, "BEGUN", "MODIFIED_C_UNCHANGED_T", "MODIFIED", files=("page.htm", "page.gif")),
            document(4, "OUT", "OPENUNCHANGED_C_UNCHANGED_T", "INCOMPLETE"),
            document(5, "FIXED", "READONLY", "READONLY")))

    def test_listNamesEveryDocument_InAnAlignedTable(self):
        lines = self.qbt("list").out.splitlines()
        self.assertEqual(6, len(lines))
        self.assertEqual(["No", "Document", "Progress", "Format", "Files", "Title"], lines[0].split())
        self.assertEqual(["3", "BEGUN", "in-progress", "HTM", "2", "Title", "of", "BEGUN"], lines[3].split())
        self.assertEqual(1, len({line.index("HTM") for line in lines[1:]}))

    def test_listAsJson_HoldsTheSame(self):
        result = self.qbt("list", "--json").json()
        self.assertEqual("Test", result["title"])
        self.assertEqual(["to-be-translated", "completed", "in-progress", "open", "read-only"],
                         [each["progress"] for each in result["documents"]])
        self.assertEqual("GUID3", result["documents"][2]["guid"])
        self.assertEqual("MODIFIED_C_UNCHANGED_T", result["documents"][2]["state"])

    def test_listByState_LeavesTheOthersOut(self):
        self.assertEqual(["DONE"], [each["name"] for each in
                                    self.qbt("list", "--state", "completed", "--json").json()["documents"]])

    def test_statusCountsByStateAndFormat(self):
        result = self.qbt("status", "--json").json()
        self.assertEqual((5, 6), (result["documents"], result["files"]))
        self.assertEqual(25.0, result["percentCompleted"])
        self.assertEqual({"documents": 1, "files": 2}, result["progress"]["in-progress"])
        self.assertEqual(5, result["formats"]["HTM"]["documents"])
        self.assertEqual(1, result["states"]["READONLY"])
        self.assertIn("25.0 % completed", self.qbt("status").out)

    def test_aPackageOfReadOnlyDocuments_IsCompletedToTheFull(self):
        self.write_package(package_text(document(1, "FIXED", "READONLY", "READONLY")))
        self.assertEqual(100.0, self.qbt("status", "--json").json()["percentCompleted"])

    def test_showFindsADocument_ByName_Guid_Number_InAnyCase(self):
        for word in ("DONE", "done", "GUID2", "2", "#2"):
            result = self.qbt("show", word, "--json").json()
            self.assertEqual(["DONE"], [each["name"] for each in result["documents"]], word)

    def test_showTellsVersionsAndFiles(self):
        shown = self.qbt("show", "BEGUN", "--json").json()["documents"][0]
        self.assertEqual(["DST_CURR", "SRC_CURR"], [each["role"] for each in shown["versions"]])
        self.assertEqual([{"name": "page.htm", "path": native("dst/begun/page.htm"), "primary": True},
                          {"name": "page.gif", "path": native("dst/begun/page.gif"), "primary": False}],
                         shown["versions"][0]["files"])
        self.assertIn(native("dst/begun/page.gif"), self.qbt("show", "BEGUN").out)

    def test_severalDocumentsAreShownInTheirOrder_EachOnce(self):
        result = self.qbt("show", "OUT", "1", "GUID4", "--json").json()
        self.assertEqual(["OUT", "FRESH"], [each["name"] for each in result["documents"]])

    def test_anUnknownDocumentIsAUsageError(self):
        result = self.qbt("show", "NONE")
        self.assertEqual(2, result.code)
        self.assertIn("no document NONE", result.err)
        self.assertEqual("", result.out)

    def test_aNameOfTwoDocumentsIsNotGuessed(self):
        self.write_package(package_text(document(1, "TWIN"), document(2, "TWIN", folder="other")))
        result = self.qbt("show", "TWIN")
        self.assertEqual(2, result.code)
        self.assertIn("#1 and #2", result.err)

    def test_nothingIsWritten_AndNothingIsMade(self):
        before = self.tree()
        for arguments in (["list"], ["show", "1"], ["status"], ["check"], ["list", "--json"], ["check", "--json"]):
            self.qbt(*arguments)
        self.assertEqual(before, self.tree())
        self.assertFalse((self.config / "quillbank-translator").exists())

    def test_aWriteProtectedPackageIsRead(self):
        self.file.chmod(0o444)
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        self.assertEqual(0, self.qbt("status").code)

    def test_theOnlyPackageOfTheFolderIsTaken_OrTheOneNamed(self):
        self.assertEqual(0, self.qbt("list", cwd=self.folder).code)
        self.assertEqual(0, self.qbt("-p", self.folder, "list", cwd=self.root).code)
        self.assertEqual(0, self.qbt("list", "-p", self.file, cwd=self.root).code)
        self.assertEqual(0, self.qbt("list", "--package=package/Trans.pxf", cwd=self.root).code)
        none = self.qbt("list", cwd=self.root)
        self.assertEqual(2, none.code)
        self.assertIn("no package", none.err)
        shutil.copy(self.file, self.folder / "Other.PXF")
        two = self.qbt("list")
        self.assertEqual(2, two.code)
        self.assertIn("Other.PXF and Trans.pxf", two.err)

    def test_aPackageThatIsNotThere_OrCannotBeRead_IsNamed(self):
        missing = self.qbt("-p", "nowhere/Trans.pxf", "list")
        self.assertEqual(3, missing.code)
        self.assertIn("nowhere/Trans.pxf does not exist", missing.err)

    def test_controlCharactersDoNotReachTheTerminal(self):
        self.write_package(package_text(document(1, "FRESH").replace("Title of FRESH", "\x1b[31mred\x07")))
        self.assertNotIn("\x1b", self.qbt("list").out + self.qbt("show", "1").out)

    def test_textsAreReadInThePackagesCodePage(self):
        text = package_text(document(1, "FRESH").replace("Title of FRESH", "Größe"))
        self.write_package(text)
        self.assertEqual("Größe", self.qbt("list", "--json").json()["documents"][0]["title"])
        russian = text.replace("DSTLANGUAGE=EN", "DSTLANGUAGE=RU").replace("Größe", "@").encode("cp1251")
        self.file.write_bytes(russian.replace(b"@", "Размер".encode("cp1251")))
        self.assertEqual("Размер", self.qbt("list", "--json").json()["documents"][0]["title"])

    def test_aPackageInAFolderOfForeignLetters_IsRead_AndWritten(self):
        folder = self.root / "Größe 日本"
        shutil.copytree(self.folder, folder)
        for package in (folder, folder / "Trans.pxf"):
            self.assertEqual(5, self.qbt("status", "--json", "-p", package, cwd=self.root).json()["documents"])
        missing = self.qbt("-p", folder / "Other.pxf", "list", cwd=self.root)
        self.assertIn(f"{folder.name}/Other.pxf does not exist", missing.err)
        (folder / "neu für.htm").write_text("new")
        result = self.qbt("assign", "BEGUN", "neu für.htm", cwd=folder)
        self.assertEqual((0, ""), (result.code, result.err.split("qbt: OUT")[0]), result.err)
        self.assertEqual("new", (folder / "dst/begun/page.htm").read_text())
        self.assertIn("neu für.htm", self.qbt("check", cwd=folder).out)

    def test_theSamplesAreRead(self):
        result = self.qbt("-p", EXAMPLES / "translation", "list", "--json").json()
        self.assertEqual(11, len(result["documents"]))
        self.assertEqual("Störungen beheben", result["documents"][5]["title"])


class Usage(QbtTest):
    def test_helpIsThereForEveryCommand(self):
        commands = ["list", "show", "status", "check", "mark", "title", "assign", "translate", "component", "new"]
        for arguments in [[]] + [[command] for command in commands]:
            result = self.qbt(*arguments, "--help")
            self.assertEqual(0, result.code, arguments)
            self.assertIn("Usage: qbt", result.out)

    def test_versionIsThatOfTheProduct(self):
        result = self.qbt("--version")
        self.assertEqual(0, result.code)
        self.assertRegex(result.out, r"^qbt \d+\.\d+\.\d+\n$")

    def test_aWrongCommandLineIsToldOnTheErrorStream(self):
        for arguments in ([], ["nonsense"], ["list", "--nonsense"], ["show"], ["mark", "1"], ["mark", "1", "nonsense"],
                          ["list", "--state", "nonsense"], ["new", "x"]):
            result = self.qbt(*arguments)
            self.assertEqual(2, result.code, arguments)
            self.assertEqual("", result.out)
            self.assertTrue(result.err.startswith("qbt: "), result.err)


if __name__ == "__main__":
    unittest.main()
