"""The help files must unpack, hold every page and picture that a link names, and call things what the program calls them.

Usage: check_help.py <folder of the programs> [unittest arguments]"""

import html.parser
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HELP = ROOT / "resources" / "help"
CODE_PAGES = {"en": "cp1252", "de": "cp1252", "ja": "cp932"}
PROGRAMS = pathlib.Path(sys.argv.pop(1)).resolve()
MOST_PICTURES, LARGEST_PICTURE = 8, 60_000

# Forms whose captions a user sees. Of the context menu and the main window that is every menu entry.
FORMS = ("FRMQBTRANSLA", "FRMCONTEXTME", "FRMOPTIONS", "FRMTRANSLATE", "FRMFILECHECK", "FRMATTRIBUTE", "FRMABOUT")
# Bold in the help, but no text of a language file: the program says it in English always.
NEVER_TRANSLATED = {"View Content"}
# Captions that need no help: titles, frames, labels of values, pages without a tab, and the words for localization
# where the help has those for translation.
NEEDS_NO_HELP = re.compile(
    r"FRMQBTRANSLA\..*\.C\.000(0[1-9]|1[01]|5[3-8]|6[12])|FRMCONTEXTME\..*\.C\.0000[12]"
    r"|FRMOPTIONS\..*\.C\.000(01|02|04|06|08|09|10|15|16)|FRMTRANSLATE\..*\.C\.00001|FRMFILECHECK\..*\.C\.0000[234]"
    r"|FRMABOUT\..*\.C\.0000[145678]")


def spoken(text):
    """A caption as one would quote it: without access key and dots."""
    return re.sub(r"\(&\w\)|&", "", text).removesuffix("...").strip()


def wording(language):
    """Key without its constant front to wording, as quoted."""
    lines = (ROOT / "resources" / "languages" / f"{language}.txt").read_text("utf-8").splitlines()
    return {key.removeprefix("QB.QBTRANSLAT."): spoken(text) for key, _, text in
            (line.split("\t", 2) for line in lines)}


class Page(html.parser.HTMLParser):
    """Links, bold texts and title of a page; every element that must be closed is."""

    VOID = {"meta", "link", "img", "br", "param"}
    UNCLOSED = {"li", "html"}

    def __init__(self, text):
        super().__init__()
        self.links, self.bold, self.open, self.title = [], [], [], ""
        self.feed(text)
        assert not [tag for tag in self.open if tag not in self.UNCLOSED], f"not closed: {self.open}"

    def handle_starttag(self, tag, attributes):
        self.links += [value for name, value in attributes if name in ("href", "src")]
        attributes = dict(attributes)
        if attributes.get("name") == "Local":
            self.links.append(attributes["value"])
        assert tag != "img" or attributes.get("alt"), "a picture without a text"
        if tag not in self.VOID:
            self.open.append(tag)
        if tag == "b":
            self.bold.append("")

    def handle_endtag(self, tag):
        while self.open[-1] != tag and self.open[-1] in self.UNCLOSED:
            self.open.pop()
        assert self.open.pop() == tag, f"</{tag}> closes nothing"

    def handle_data(self, data):
        if "b" in self.open:
            self.bold[-1] += data
        if "title" in self.open:
            self.title += data


class HelpOf:
    language = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        file = PROGRAMS / cls.language / "00005554.chm"
        subprocess.run(["extract_chmLib", file, cls.folder.name], check=True, capture_output=True)
        cls.unpacked = pathlib.Path(cls.folder.name)
        cls.pages = {path.name: Page(cls.text(path)) for path in cls.unpacked.glob("*.html")}
        cls.bold = {" ".join(text.split()) for page in cls.pages.values() for text in page.bold}
        cls.wording = wording(cls.language)

    @classmethod
    def text(cls, path):
        return path.read_bytes().decode(CODE_PAGES[cls.language])

    def source_pages(self):
        return {path.name for path in (HELP / self.language).iterdir()}

    def named_in(self, file):
        """The pages that contents or index name."""
        return Page(self.text(self.unpacked / file)).links

    def test_holdsEveryPage(self):
        self.assertEqual(set(self.pages), self.source_pages())

    def test_noLinkIsDead(self):
        dead = [(name, link) for name, page in self.pages.items() for link in page.links
                if not (self.unpacked / link).is_file()]
        self.assertEqual(dead, [])

    def test_contentsNameEveryPageOnce(self):
        self.assertEqual(sorted(self.named_in("00005554.hhc")), sorted(self.source_pages()))

    def test_indexLeadsToEveryPage(self):
        self.assertEqual(set(self.named_in("00005554.hhk")), self.source_pages())

    def test_everyPageHasATitle(self):
        self.assertEqual([name for name, page in self.pages.items() if not page.title.strip()], [])

    def test_whatIsBold_IsATextOfTheProgram(self):
        self.assertEqual(sorted(self.bold - set(self.wording.values()) - NEVER_TRANSLATED), [])

    def test_everyCommandAndFieldOfTheFormsIsExplained(self):
        wanted = {text for key, text in self.wording.items() if key.startswith(FORMS) and ".C." in key
                  and not NEEDS_NO_HELP.fullmatch(key)}
        self.assertEqual(sorted(wanted - self.bold), [])

    def test_picturesAreFewAndSmall(self):
        pictures = list((self.unpacked / "pictures").iterdir())
        self.assertLessEqual(len(pictures), MOST_PICTURES)
        self.assertEqual([path.name for path in pictures if path.stat().st_size > LARGEST_PICTURE], [])


class EnglishHelp(HelpOf, unittest.TestCase):
    language = "en"


class GermanHelp(HelpOf, unittest.TestCase):
    language = "de"


class JapaneseHelp(HelpOf, unittest.TestCase):
    language = "ja"


class Sources(unittest.TestCase):
    def test_everyPictureIsShownSomewhere(self):
        shown = {link for page in (HELP / "en").glob("*.html") for link in Page(page.read_text("utf-8")).links}
        self.assertEqual({f"pictures/{path.name}" for path in (HELP / "pictures").iterdir()} - shown, set())

    def test_languagesShowTheSamePicturesAndLinks(self):
        for page in (HELP / "en").glob("*.html"):
            links = sorted(Page(page.read_text("utf-8")).links)
            for language in ("de", "ja"):
                other = Page((HELP / language / page.name).read_text("utf-8"))
                self.assertEqual(sorted(other.links), links, f"{language}/{page.name}")


if __name__ == "__main__":
    unittest.main()
