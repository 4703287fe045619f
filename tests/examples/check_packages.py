"""The sample packages must be whole: what Trans.pxf lists exists, and nothing else lies beside it."""

import pathlib
import re
import subprocess
import unittest

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
STATES = {
    "UNCHANGED_C_MODIFIED_T", "MODIFIED_C_UNCHANGED_T", "OPENMODIFIED_C_UNCHANGED_T",
    "MODIFIED", "COMPLETE", "READONLY",
}
WORDS = {"DUMMY", "UNCHANGED", "INCOMPLETE", "MODIFIED", "READONLY"}
ROLES = {"DST_CURR", "SRC_CURR", "SRC_PREV", "DST_PREV"}


def read_package(folder):
    """The sections of a package file as dictionaries; a section or key that stands twice is an error."""
    sections = {}
    text = (folder / "Trans.pxf").read_bytes().decode("cp1252")
    for line in text.split("\r\n"):
        if line.startswith("["):
            name = line[1:-1]
            assert name not in sections, f"section {name} twice"
            current = sections[name] = {}
        elif line:
            key, value = line.split("=", 1)
            assert key not in current, f"key {key} twice in {name}"
            current[key] = value
    return sections


def documents(sections):
    return [sections[str(n)] for n in range(1, int(sections["GLOBAL"]["INFOBJS"]) + 1)]


def versions(document):
    """The language versions of a document, each without the number in front of its keys."""
    for p in range(1, int(document["PHIO_COUNT"]) + 1):
        mark = re.compile(rf"{p}([A-Z].*)")
        yield {m[1]: value for key, value in document.items() if (m := mark.fullmatch(key))}


def listed_files(version):
    return [version[f"FILE_NAME{f}"] for f in range(1, int(version["FILE_COUNT"]) + 1)]


class Package:
    folder = None

    def setUp(self):
        self.sections = read_package(self.folder)
        self.documents = documents(self.sections)

    def test_everyListedFileExists_AndNoOtherDoes(self):
        listed = {"Trans.pxf"}
        for document in self.documents:
            for version in versions(document):
                listed.update(f"{version['PATH']}\\{name}".replace("\\", "/") for name in listed_files(version))
        # Only what the repository knows: a translator may have opened the sample where it lies.
        command = ["git", "-c", "safe.directory=*", "ls-files", "-z", "."]
        known = subprocess.run(command, cwd=self.folder, check=True, capture_output=True)
        committed = set(known.stdout.decode().split("\0")) - {""}
        self.assertEqual(listed, committed)
        for name in listed:
            self.assertGreater((self.folder / name).stat().st_size, 0, name)

    def test_countsAgreeWithKeys(self):
        numbered = {name for name in self.sections if name.isdigit()}
        self.assertEqual(numbered, {str(n + 1) for n in range(len(self.documents))})
        for document in self.documents:
            leading = {int(m[0]) for key in document if (m := re.match(r"\d+", key))}
            self.assertEqual(leading, set(range(1, int(document["PHIO_COUNT"]) + 1)))
            for version in versions(document):
                for word in ("FILE_NAME", "FORMAT", "SHORT_NAME"):
                    keys = {key for key in version if re.fullmatch(word + r"\d+", key)}
                    self.assertEqual(keys, {f"{word}{f + 1}" for f in range(int(version["FILE_COUNT"]))})

    def test_requiredValuesStand(self):
        for document in self.documents:
            for key in ("LOIO", "CLASS", "RVD_TECH_NAME"):
                self.assertTrue(document[key])
            self.assertNotIn("_", document["LOIO"])
            self.assertIn(document.get("PROGRESS", "COMPLETE"), STATES)
            place = [key in document for key in ("MASTER", "SEQNR1", "SEQNR2")]
            self.assertIn(sum(place), (0, 3))
            for version in versions(document):
                self.assertIn(version["ROLE"], ROLES)
                self.assertIn(version["STATE"], WORDS)
                self.assertTrue(version["PHIO"] and version["CLASS"] and version["PATH"])
                self.assertEqual(["PRIM"], [v for k, v in version.items() if k.startswith("FORMAT") and v])

    def test_identifiersAreUnique(self):
        ids = [document["LOIO"] for document in self.documents]
        ids += [version["PHIO"] for document in self.documents for version in versions(document)]
        self.assertEqual(len(ids), len(set(ids)))

    def test_propertySectionsAreWhole_AndEachIsUsedOnce(self):
        used = [v["PROPSECTION"] for d in self.documents for v in versions(d) if "PROPSECTION" in v]
        self.assertEqual(sorted(used), sorted(name for name in self.sections if name.startswith("ADD")))
        for name in used:
            entries = self.sections[name]
            for i in range(1, int(entries["COUNT"]) + 1):
                self.assertTrue(entries[f"{i}NAME"] and entries[f"{i}VALUE"])

    def test_theFileIsFresh_InItsCodePage_AndStatesItsLength(self):
        data = (self.folder / "Trans.pxf").read_bytes()
        self.assertNotIn("TOUCHED", self.sections["TRANS"])
        self.assertEqual("GEN", self.sections["TRANS"]["TRANSTYPE"])
        self.assertEqual(len(data), int(self.sections["GLOBAL"]["FILESIZE"]))
        self.assertTrue(any(byte > 127 for byte in data), "an umlaut shows that the code page is honoured")
        self.assertRaises(UnicodeDecodeError, data.decode, "utf-8")
        self.assertEqual(data.count(b"\n"), data.count(b"\r\n"))
        self.assertTrue(data.endswith(b"\r\n"))

    def test_textDocumentsAreInTheCodePage_WithCrLf(self):
        for suffix in ("html", "htm", "js", "css", "xml"):
            for path in self.folder.glob(f"*/**/*.{suffix}"):
                data = path.read_bytes()
                data.decode("cp1252")
                self.assertEqual(data.count(b"\n"), data.count(b"\r\n"), path)

    def test_officeDocumentsAreCompoundFiles(self):
        for path in [*self.folder.glob("*/**/*.doc"), *self.folder.glob("*/**/*.ppt")]:
            self.assertEqual(bytes.fromhex("d0cf11e0a1b11ae1"), path.read_bytes()[:8], path)

    def test_allKindsOfDocumentAndRoleOccur(self):
        formats = {v["DOCUMENT_FORMAT"] for d in self.documents for v in versions(d)}
        self.assertEqual({"DOC", "PPT", "HTML", "HTM", "THTM", "JS", "CSS", "XML"}, formats)
        self.assertEqual(ROLES, {v["ROLE"] for d in self.documents for v in versions(d)})
        self.assertIn("PAW_XML", {d["PROCESS"] for d in self.documents})


class Translation(Package, unittest.TestCase):
    folder = EXAMPLES / "translation"

    def test_itIsForTranslation(self):
        self.assertNotEqual("LOCAL", self.sections["TRANS"]["QBT_WF"])


class Localization(Package, unittest.TestCase):
    folder = EXAMPLES / "localization"

    def test_itIsForLocalization(self):
        self.assertEqual("LOCAL", self.sections["TRANS"]["QBT_WF"])


class Size(unittest.TestCase):
    def test_allExamplesTogetherStaySmall(self):
        total = sum(path.stat().st_size for path in EXAMPLES.rglob("*") if path.is_file())
        self.assertLess(total, 1_000_000)


if __name__ == "__main__":
    unittest.main()
