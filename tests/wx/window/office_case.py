"""What the tests of the road through the real office share."""

import pyatspi

import desktop
import office
import road
from case import WindowCase

WORD = "AQ40_INBETRIEBNAHME"
WORD_FILE = "inbetriebnahme.doc"
SLIDES = "AQ_SCHULUNG"
SLIDES_FILE = "schulung.ppt"
PAGE = "AQ_UEBERSICHT"
PAGE_FILE = "uebersicht.html"
CHANGED = "MODIFIED_C_UNCHANGED_T"


class OfficeCase(WindowCase):
    def setUp(self):
        super().setUp()
        self.addCleanup(office.end_all)

    def translate(self, document, name, source=None):
        # Windows of the office that are only just coming put themselves in front.
        desktop.wait_until(lambda: self.select(document), f"selection of {document}")
        before = self.translated()
        desktop.keys("ctrl+t")
        pair = office.Pair(name, source)
        # Until then the windows are put in their places, and to the front.
        desktop.wait_until(lambda: self.translated() > before, f"end of the opening of {document}")
        return pair

    def translated(self):
        """How many openings the protocol tells of that came to their end."""
        protocol = self.package.with_name("Protocol.txt")
        return protocol.read_bytes().count(b"Translating: ") if protocol.exists() else 0

    def select(self, document):
        self.program.focus_window()
        self.program.click(document)
        return desktop.has(self.program.cell(document), pyatspi.STATE_SELECTED)

    def wait_for_word(self, word):
        """Until the status line tells that the office is waited for."""
        desktop.wait_until(lambda: self.program.status() == word, word)

    def progress(self, state, document=WORD):
        road.wait_for_progress(self.package, document, state)

    def links(self, document=WORD):
        """The addresses that the package holds for the document's translation."""
        return road.list_of(self.package, document, "1ADDSECTION")

    def title(self, document=WORD):
        """The title that the package holds for the document's translation."""
        return road.list_of(self.package, document, "1PROPSECTION")[0]

    def file(self, path):
        """A file of the package, as "dst/schulung/schulung.ppt"."""
        return self.package.parent / path

    def user(self):
        """The office's user, over a line of the office's own. Needs a running office."""
        user = office.User()
        self.addCleanup(user.end)
        return user
