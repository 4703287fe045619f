"""check finds everything that is wrong with a package, and nothing in a whole one."""

import os
import re
import unittest

from qbt_process import ON_WINDOWS, QbtTest, document, package_text, native, with_length

# As the program names it.
PACKAGE = r"Z:\\.*\\Trans\.pxf" if ON_WINDOWS else r"/.*/Trans\.pxf"
DONE = {"progress": "COMPLETE", "state": "MODIFIED"}


class Check(QbtTest):
    def setUp(self):
        super().setUp()
        self.text = package_text(document(1, "ONE", **DONE),
                                 document(2, "TWO", **DONE, files=("page.htm", "page.gif")))
        self.write_package(self.text)

    def findings(self):
        result = self.qbt("check", "--json")
        found = result.json()
        self.assertEqual(0 if found["errors"] == 0 else 1, result.code)
        self.assertEqual(found["errors"] + found["warnings"], len(found["findings"]))
        return found["findings"]

    def expect(self, code, text, line_of=None, severity="error", document="TWO"):
        """The one finding of `code` in a package of this text, in the line that holds `line_of`. Its other findings
        do not matter."""
        self.file.write_bytes(with_length(text).encode("cp1252"))
        found = [each for each in self.findings() if each["code"] == code]
        self.assertEqual(1, len(found), (code, self.findings()))
        self.assertEqual(severity, found[0]["severity"])
        if line_of is not None:
            lines = with_length(text).split("\r\n")
            places = [number for number, line in enumerate(lines, 1) if line_of == line]
            self.assertIn(found[0]["line"], places)
        self.assertEqual(document, found[0].get("document"))
        return found[0]["message"]

    def changed(self, old, new, last=True):
        """The package with one of its lines changed, the last of its kind unless told."""
        at = self.text.rindex(old) if last else self.text.index(old)
        return self.text[:at] + new + self.text[at + len(old):]

    def test_aWholePackageHasNoFindings(self):
        self.assertEqual([], self.findings())
        result = self.qbt("check")
        self.assertEqual(0, result.code)
        self.assertTrue(result.out.endswith("2 documents, 0 errors, 0 warnings\n"))

    def test_findingsAreLinesAsCompilersWriteThem(self):
        self.file.write_bytes(with_length(self.changed("ROLE=DST_CURR", "ROLE=NONE")).encode())
        result = self.qbt("check")
        self.assertEqual(1, result.code)
        self.assertRegex(result.out, rf"(?m)^{PACKAGE}:\d+: error: TWO: unknown ROLE NONE.*\[role-unknown\]$")

    def test_warningsFailOnlyWhenAskedTo(self):
        self.write("dst/one/more.gif")
        self.assertEqual(0, self.qbt("check").code)
        self.assertEqual(1, self.qbt("check", "--strict").code)

    # The file itself.

    def test_linesThatSayNothing(self):
        self.expect("ill-formed-line", self.changed("1FORMAT2=", "1FORMAT2"), "1FORMAT2", document=None)

    def test_keysInFrontOfTheFirstSection(self):
        self.expect("no-section", "STRAY=1\r\n" + self.text, "STRAY=1", document=None)

    def test_doubledSections(self):
        self.expect("section-doubled", self.text + "[1]\r\nLOIO=OTHER\r\n", "[1]", document=None)

    def test_doubledKeys(self):
        self.expect("key-doubled", self.text + "2path=elsewhere\r\n", "2path=elsewhere")

    def test_bytesThatTheCodePageDoesNotHave(self):
        data = with_length(self.text).encode().replace(b"TITLE=Test", b"TITLE=T\x81st")
        self.file.write_bytes(data)
        found = self.findings()
        self.assertEqual(["code-page"], [each["code"] for each in found])
        self.assertEqual(2, found[0]["line"])
        self.assertIn("1252", found[0]["message"])
        self.assertIn("81", found[0]["message"])

    def test_textThatIsRatherUtf8(self):
        self.file.write_bytes(with_length(self.text).encode().replace(b"TITLE=Test", "TITLE=Tä".encode() + b"st"))
        self.assertIn("code-page-doubt", [each["code"] for each in self.findings()])

    def test_utf16AndNulBytes(self):
        self.file.write_bytes(b"\xff\xfe" + self.text.encode("utf-16-le"))
        codes = [each["code"] for each in self.findings()]
        self.assertIn("utf-16", codes)
        self.file.write_bytes(with_length(self.text).encode().replace(b"TITLE=Test", b"TITLE=T\0st"))
        self.assertEqual(["nul-byte"], [each["code"] for each in self.findings()])

    def test_aLengthThatIsNotTrue(self):
        self.file.write_bytes(self.text.encode() + b"\r\n")
        found = self.findings()
        self.assertEqual(["filesize-wrong"], [each["code"] for each in found])
        self.file.write_bytes("\r\n".join(line for line in self.text.split("\r\n")
                                          if not line.startswith("FILESIZE")).encode())
        self.assertEqual(["filesize-missing"], [each["code"] for each in self.findings()])

    # Global sections.

    def test_aPackageOfAnotherKind(self):
        self.expect("package-kind", self.changed("TRANSTYPE=GEN", "TRANSTYPE=TWB2"), "TRANSTYPE=TWB2", document=None)
        self.expect("package-kind", self.changed("TRANSTYPE=GEN", "X=1"), "[TRANS]", document=None)

    def test_missingLanguage(self):
        self.expect("global-missing", self.changed("DSTLANGUAGE=EN", "DSTLANGUAGE="), "DSTLANGUAGE=", "warning", None)

    def test_countOfDocuments(self):
        self.expect("document-uncounted", self.changed("INFOBJS=2", "INFOBJS=1"), "[2]", document=None)
        self.expect("document-missing", self.changed("INFOBJS=2", "INFOBJS=3"), "INFOBJS=3", document=None)
        self.expect("count-wrong", self.changed("INFOBJS=2", "INFOBJS=many"), "INFOBJS=many", document=None)
        self.expect("count-missing", self.changed("INFOBJS=2", "X=2"), "[GLOBAL]", document=None)
        self.expect("document-missing", self.changed("[2]", "[3]").replace("INFOBJS=2", "INFOBJS=3"), "INFOBJS=3",
                    document=None)

    # Documents and versions.

    def test_requiredKeysOfADocument(self):
        for key in ("LOIO", "CLASS", "RVD_TECH_NAME"):
            front, own = self.text.split("[2]\r\n")
            text = f"{front}[2]\r\n" + re.sub(rf"(?m)^{key}=.*?\r$", f"{key}=\r", own)
            message = self.expect("key-missing", text, key + "=",
                                  document="GUID2" if key == "RVD_TECH_NAME" else "TWO")
            self.assertIn(key, message)

    def test_requiredKeysOfAVersion(self):
        for key in ("PHIO", "CLASS", "ROLE", "PATH", "STATE"):
            line = next(line for line in reversed(self.text.split("\r\n")) if line.startswith(f"2{key}="))
            self.assertIn(key, self.expect("key-missing", self.changed(line, f"2{key}="), f"2{key}="))

    def test_doubledGuids(self):
        self.expect("guid-doubled", self.changed("LOIO=GUID2", "LOIO=guid1"), "LOIO=guid1")
        self.expect("guid-doubled", self.changed("1PHIO=G21", "1PHIO=G12"), "1PHIO=G12")

    def test_aGuidThatWouldBeCut(self):
        self.expect("guid-underscore", self.changed("LOIO=GUID2", "LOIO=GU_ID"), "LOIO=GU_ID")

    def test_unknownStates(self):
        self.expect("state-unknown", self.changed("PROGRESS=COMPLETE", "PROGRESS=complete"), "PROGRESS=complete")
        self.expect("state-unknown", self.changed("2STATE=READONLY", "2STATE=SOMETHING"), "2STATE=SOMETHING")

    def test_aVersionStateThatDoesNotGoWithItsDocument(self):
        self.expect("state-differs", self.changed("1STATE=MODIFIED", "1STATE=UNCHANGED"), "1STATE=UNCHANGED",
                    "warning")

    def test_openDocuments_AndThoseNotCompleted(self):
        for state in ("OPENMODIFIED_C_UNCHANGED_T", "UNCHANGED_C_OPENMODIFIED_T"):
            self.expect("document-open", self.changed("PROGRESS=COMPLETE", "PROGRESS=" + state), "PROGRESS=" + state)
        self.expect("not-completed", self.changed("PROGRESS=COMPLETE", "PROGRESS=MODIFIED"), "PROGRESS=MODIFIED",
                    "warning")
        self.expect("not-completed", self.changed("PROGRESS=COMPLETE", "X="), "[2]", "warning")

    def test_unknownRoles(self):
        self.expect("role-unknown", self.changed("2ROLE=SRC_CURR", "2ROLE=src_curr"), "2ROLE=src_curr")

    def test_aRoleThatTwoVersionsHave(self):
        self.expect("role-doubled", self.changed("2ROLE=SRC_CURR", "2ROLE=DST_CURR"), "2ROLE=DST_CURR", "warning")

    def test_aDocumentWithNothingToShow(self):
        text = self.changed("1ROLE=DST_CURR", "1ROLE=DST_PREV")
        at = text.rindex("2ROLE=SRC_CURR")
        self.expect("no-version", text[:at] + "2ROLE=SRC_PREV" + text[at + 14:], "[2]")

    def test_countOfVersions(self):
        self.expect("version-missing", self.changed("PHIO_COUNT=2", "PHIO_COUNT=3"), "PHIO_COUNT=3")
        self.expect("version-uncounted", self.changed("PHIO_COUNT=2", "PHIO_COUNT=1"), "2PHIO=G22")
        self.expect("count-missing", self.changed("PHIO_COUNT=2", "PHIO_COUNT="), "PHIO_COUNT=")

    def test_aPlaceThatIsToldInPart(self):
        self.expect("location-partial", self.changed("PHIO_COUNT=2", "MASTER=1\r\nPHIO_COUNT=2"), "[2]", "warning")

    # Files.

    def test_countOfFiles(self):
        self.expect("file-uncounted", self.changed("1FILE_COUNT=2", "1FILE_COUNT=1"), "1FILE_NAME2=page.gif")
        self.expect("file-unnamed", self.changed("1FILE_COUNT=2", "1FILE_COUNT=3"), "1FILE_COUNT=3")
        self.expect("count-missing", self.changed("1FILE_COUNT=2", "1FILE_COUNT=x"))
        self.expect("no-files", self.changed("1FILE_COUNT=2", "1FILE_COUNT=0"), "1FILE_COUNT=0")

    def test_primaryFiles(self):
        self.expect("primary-count", self.changed("1FORMAT2=", "1FORMAT2=PRIM"), "1FILE_COUNT=2", "warning")
        text = self.changed("1FORMAT1=PRIM", "1FORMAT1=prim")
        self.expect("primary-case", text, "1FORMAT1=prim", "warning")

    def test_missingFiles(self):
        (self.folder / "dst/two/page.gif").unlink()
        self.assertIn(native("dst/two/page.gif"), self.expect("file-missing", self.text, "1FILE_NAME2=page.gif"))

    def test_filesAreFoundInAnyCase(self):
        (self.folder / "dst/two/page.gif").rename(self.folder / "dst/two/PAGE.Gif")
        self.assertEqual([], self.findings())

    def test_emptyFiles(self):
        self.write("dst/two/page.gif", "")
        self.expect("file-empty", self.text, "1FILE_NAME2=page.gif", "warning")

    def test_filesThatNobodyLists(self):
        self.write("dst/two/spare.gif")
        self.assertIn(native("dst/two/spare.gif"), self.expect("file-extra", self.text, severity="warning", document=None))

    def test_whatTheProgramPutsBesideDocumentsIsNotExtra(self):
        for path in ("Trans.BAK", "Protocol.txt", "dst/two/BAK/page.gif", "dst/two/page.htm.ttx"):
            self.write(path)
        self.assertEqual([], self.findings())

    def test_aFileThatIsListedTwice(self):
        self.expect("file-doubled", self.changed("1FILE_NAME2=page.gif", "1FILE_NAME2=PAGE.htm"),
                    "1FILE_NAME2=PAGE.htm")

    def test_pathsThatLeaveThePackage(self):
        (self.root / "secret.txt").write_text("secret")
        for path in ("..", "dst\\..\\..", "C:\\dst"):
            self.expect("path-outside", self.changed("2PATH=src\\two", "2PATH=" + path)
                        .replace("2FILE_COUNT=2", "2FILE_COUNT=1"))

    def test_linksThatLeaveThePackage(self):
        (self.root / "outside").mkdir()
        for name in ("page.htm", "page.gif"):
            (self.root / "outside" / name).write_text("x")
        os.symlink(self.root / "outside", self.folder / "dst/link")
        codes = []
        self.file.write_bytes(with_length(self.changed("1PATH=dst\\two", "1PATH=dst\\link")).encode())
        codes = [each["code"] for each in self.findings() if each["severity"] == "error"]
        self.assertEqual(["path-outside", "path-outside"], codes)

    def test_aLinkOfAFileThatLeavesThePackage(self):
        (self.root / "secret.txt").write_text("secret")
        (self.folder / "dst/two/page.gif").unlink()
        os.symlink(self.root / "secret.txt", self.folder / "dst/two/page.gif")
        self.expect("path-outside", self.text, "1FILE_NAME2=page.gif")

    def test_aFileNameWithAFolder(self):
        self.write("dst/two/sub/page.gif")
        self.expect("file-name", self.changed("1FILE_NAME2=page.gif", "1FILE_NAME2=sub\\page.gif"),
                    "1FILE_NAME2=sub\\page.gif")

    # Add-sections.

    def with_list(self, lines, key="PROPSECTION"):
        return self.changed("1FILE_COUNT=2", f"1{key}=ADD1\r\n1FILE_COUNT=2") + "[ADD1]\r\n" + lines

    def test_goodPropertiesAreNoFinding(self):
        self.file.write_bytes(with_length(self.with_list("COUNT=1\r\n1NAME=DESCRIPTION\r\n1VALUE=x\r\n")).encode())
        self.assertEqual([], self.findings())

    def test_propertiesWithoutAName(self):
        self.expect("property-unnamed", self.with_list("COUNT=2\r\n1NAME=A\r\n2NAME=\r\n"), "2NAME=")

    def test_propertiesWithoutACount(self):
        self.expect("list-count", self.with_list("1NAME=A\r\n"), "[ADD1]", "warning")

    def test_listsThatAreMissing_SharedOrUnused(self):
        self.expect("list-missing", self.changed("1FILE_COUNT=2", "1PROPSECTION=ADD7\r\n1FILE_COUNT=2"),
                    "1PROPSECTION=ADD7")
        self.expect("list-unused", self.text + "[ADD4]\r\nCOUNT=0\r\n", "[ADD4]", "warning", None)
        shared = self.with_list("COUNT=0\r\n").replace("2FILE_COUNT=2", "2ADDSECTION=ADD1\r\n2FILE_COUNT=2")
        self.expect("list-shared", shared, "2ADDSECTION=ADD1")

    # Hostile counts.

    def test_hugeCountsEndAtOnce(self):
        for old, new in (("INFOBJS=2", "INFOBJS=2000000000"), ("PHIO_COUNT=2", "PHIO_COUNT=2000000000"),
                         ("1FILE_COUNT=2", "1FILE_COUNT=2000000000")):
            self.file.write_bytes(with_length(self.changed(old, new)).encode())
            self.assertEqual(1, self.qbt("check").code)
            self.assertEqual(0, self.qbt("status").code)

    def test_aListWithAHugeCount_OrThatIsHuge_EndsAtOnce(self):
        self.expect("property-unnamed", self.with_list("COUNT=2000000000\r\n1NAME=A\r\n"), "[ADD1]")
        entries = "".join(f"{i}NAME=A\r\n{i}VALUE=B\r\n" for i in range(1, 100001))
        self.file.write_bytes(with_length(self.with_list("COUNT=100000\r\n" + entries)).encode())
        self.assertEqual([], self.findings())

    def test_anEmptyFileHasFindings(self):
        self.file.write_bytes(b"")
        self.assertIn("count-missing", [each["code"] for each in self.findings()])


if __name__ == "__main__":
    unittest.main()
