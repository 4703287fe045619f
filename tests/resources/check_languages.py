"""Every text of the program must stand in every language file, word for word in English, and nothing else may."""

import collections
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LANGUAGES = ROOT / "resources" / "languages"
CODE_PAGES = {"en": "cp1252", "de": "cp1252", "ja": "cp932"}
KEY = re.compile(r"QB\.QBTRANSLAT\.([A-Z0-9]{1,12})\.000\.([A-Z0-9_]+)\.([CT])\.([0-9]{5})")

# How many numbers each module has drawn, and those among them that no text has.
DRAWN = {
    "TRANSLATEMOD": 120, "FRMQBTRANSLA": 62, "FRMOPTIONS": 17, "HELPMOD": 14, "CEDITOR": 14, "FRMABOUT": 11,
    "FRMCONTEXTME": 11, "FRMATTRIBUTE": 9, "CMESSAGEHAND": 6, "FRMTRANSLATE": 5, "ORBQBCOMMONF": 4,
    "FRMFILECHECK": 4, "CPXFFILE": 3, "FRMSPLASH": 2, "CTRADOSTWB": 1, "CEDITORSLOTS": 1,
}
WITHOUT_TEXT = {("TRANSLATEMOD", 74), ("TRANSLATEMOD", 75), ("TRANSLATEMOD", 77), ("TRANSLATEMOD", 92),
                ("CEDITOR", 6), ("ORBQBCOMMONF", 2), ("CTRADOSTWB", 1)}
# Texts that no code has to read: those of the menu entry "ORB Quillbank online", which has no command, and those of the
# office bridge and the TRADOS tools.
MAY_BE_UNREAD = ({("HELPMOD", n) for n in range(5, 9)} | {("CEDITOR", n) for n in (2, 3, 12, 13, 14)} |
                 {("TRANSLATEMOD", 84), ("TRANSLATEMOD", 85)})


def number_of(key):
    """Module and number of a text key."""
    match = KEY.fullmatch(key)
    return match[1], int(match[4])


def texts_in_code():
    """Key to English text of all literals in the code; a key that stands with two texts is an error."""
    texts = {}
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        code = path.read_text("utf-8")
        joined = re.sub(r'"\s*\n\s*"', "", code)
        for literal in re.findall(r'"((?:[^"\\\n]|\\.)*)"', joined):
            if "QB.QBTRANSLAT" not in literal:
                continue
            key, bar, english = literal.partition("|")
            assert KEY.fullmatch(key) and bar, f"{path}: no whole text key: {literal}"
            english = re.sub(r"\\(.)", r"\1", english)
            assert texts.setdefault(key, english) == english, f"{path}: {key} has another text elsewhere"
    return texts


def read_language(language):
    """(key, English, text) of each line."""
    with open(LANGUAGES / f"{language}.txt", encoding="utf-8", newline="") as file:
        return [tuple(line.split("\t", 2)) for line in file.read().removesuffix("\n").split("\n")]


def edges(text):
    """The blanks before and behind a text, and its TABs."""
    return text[:len(text) - len(text.lstrip())], text[len(text.rstrip()):], text.count("\t")


def places(text):
    """The places for values, as "%1", in the order of their numbers."""
    return sorted(re.findall(r"%\d", text))


def patterns(text):
    """The bars and the patterns of a file dialog's filter."""
    return re.findall(r"\||\*\.[a-z*]+", text)


def access_keys(text):
    """What stands behind each `&`."""
    return re.findall(r"&(.)", text)


class LanguageFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.code = texts_in_code()
        cls.languages = {language: read_language(language) for language in CODE_PAGES}

    def assertNone(self, wrong):
        """No line of any file may answer `wrong(language, key, english, text)`."""
        found = [(language, key, english, text) for language, lines in self.languages.items()
                 for key, english, text in lines if wrong(language, key, english, text)]
        self.assertEqual(found, [])

    def test_everyTextOfTheCodeIsThere(self):
        for language, lines in self.languages.items():
            self.assertEqual(sorted(set(self.code) - {key for key, _, _ in lines}), [], language)

    def test_everyNumberThatAModuleHasDrawn_IsThereOnce_AndNoOther(self):
        drawn = {(module, n) for module, count in DRAWN.items() for n in range(1, count + 1)}
        self.assertEqual(len(drawn), 284)
        for language, lines in self.languages.items():
            numbers = sorted(number_of(key) for key, _, _ in lines)
            self.assertEqual(numbers, sorted(drawn - WITHOUT_TEXT), language)

    def test_noTextIsLeftOver(self):
        read = {number_of(key) for key in self.code}
        for language, lines in self.languages.items():
            unread = {number_of(key) for key, _, _ in lines} - read
            self.assertEqual(unread - MAY_BE_UNREAD, set(), language)

    def test_secondFieldIsTheEnglishOfTheCode(self):
        self.assertNone(lambda _, key, english, __: english != self.code.get(key, english))

    def test_englishFileSaysWhatTheCodeSays(self):
        self.assertNone(lambda language, _, english, text: language == "en" and text != english)

    def test_noTextIsEmpty(self):
        self.assertNone(lambda _, __, ___, text: not text.strip())

    def test_placesForValuesAgree(self):
        self.assertNone(lambda _, __, english, text: places(text) != places(english))

    def test_blanksAtTheEndsAndTabsAgree(self):
        self.assertNone(lambda _, __, english, text: edges(text) != edges(english))

    def test_patternsOfFileDialogsAgree(self):
        self.assertNone(lambda _, __, english, text: patterns(text) != patterns(english))

    def test_accessKeysAgree(self):
        self.assertNone(lambda _, __, english, text: len(access_keys(text)) != len(access_keys(english)))

    def test_japaneseKeepsTheAccessKeysOfEnglish(self):
        self.assertNone(lambda language, _, english, text: language == "ja" and "&" in english and
                        re.findall(r"\(&(\w)\)", text) != [letter.upper() for letter in access_keys(english)])

    def test_dotsThatAnnounceADialogAgree(self):
        self.assertNone(lambda _, __, english, text: english.endswith("...") != text.endswith("..."))

    def test_everyTextSurvivesItsCodePage(self):
        def is_lost(language, _, __, text):
            return text.encode(CODE_PAGES[language], "replace").decode(CODE_PAGES[language]) != text
        self.assertNone(is_lost)


if __name__ == "__main__":
    unittest.main()
