"""What is saved in the real office comes into the package: title, links and state, whatever they are."""

import unittest

import desktop
import odf
import office
from office_case import CHANGED, SLIDES, SLIDES_FILE, WORD, WORD_FILE, OfficeCase

HELP_PAGE = "AQ_STOERUNGEN"
HELP_PAGE_FILE = "stoerungen.htm"
TITLED = "AQ40_WARTUNG"
TITLED_FILE = "wartung.doc"
DRAWING = "AQ_ZEICHNUNG"
DRAWING_FILE = "zeichnung.odg"
DRAWING_SOURCE = "original.odg"
DRAWING_SECTION = r"""
[12]
LOIO=0A1B2C3D4E5F60718293A4B5C6D7E8F9
CLASS=DRAWING
RVD_TECH_NAME=AQ_ZEICHNUNG
PROCESS=VSD_HTML
PHIO_COUNT=2
1PHIO=1A1B2C3D4E5F60718293A4B5C6D7E8F9
1CLASS=DRAWING
1ROLE=DST_CURR
1PATH=dst\zeichnung
1STATE=UNCHANGED
1DOCUMENT_FORMAT=VSD
1DESCRIPTION=Zeichnung
1FILE_COUNT=1
1FILE_NAME1=zeichnung.odg
1FORMAT1=PRIM
1SHORT_NAME1=zeichnung.odg
2PHIO=2A1B2C3D4E5F60718293A4B5C6D7E8F9
2CLASS=DRAWING
2ROLE=SRC_CURR
2PATH=src\zeichnung
2STATE=READONLY
2DOCUMENT_FORMAT=VSD
2DESCRIPTION=Zeichnung
2FILE_COUNT=1
2FILE_NAME1=original.odg
2FORMAT1=PRIM
2SHORT_NAME1=original.odg
"""

class SavesTest(OfficeCase):
    def setUp(self):
        super().setUp()
        self.package = self.sample()

    def begin(self):
        self.start(self.package)

    def change_package(self, *changes):
        """Changes the package file before it is opened: pairs of a text and what takes its place."""
        text = self.package.read_text("cp1252")
        for old, new in changes:
            self.assertIn(old, text)
            text = text.replace(old, new, 1)
        self.package.write_text(text, "cp1252", newline="\r\n")

    def add_drawing(self):
        self.change_package(("INFOBJS=11", "INFOBJS=12"))
        text = self.package.read_text("cp1252") + DRAWING_SECTION
        self.package.write_text(text, "cp1252", newline="\r\n")
        for name in ("src/zeichnung/" + DRAWING_SOURCE, "dst/zeichnung/" + DRAWING_FILE):
            self.file(name).parent.mkdir()
            odf.write_drawing(self.file(name))

    def leave(self, pair):
        """Closes it by its window, without a question."""
        pair.close(pair.translation)
        pair.wait_until_gone()

    def test_title_and_links_of_texts_and_slides_come_into_the_package(self):
        self.start(self.package)
        words, slides = self.translate(WORD, WORD_FILE), self.translate(SLIDES, SLIDES_FILE)
        desktop.wait_until(slides.are_side_by_side, "slides side by side")
        user = self.user()
        text, show = self.file("dst/inbetriebnahme/" + WORD_FILE), self.file("dst/schulung/" + SLIDES_FILE)
        for address in ["https://pump.example/new", "https://pump.example/other", "https://pump.example/new"]:
            user.insert_link(text, address)
        user.set_title(text, "Putting the pump into service")
        words.write("Translated words ")
        words.save()
        self.progress(CHANGED)
        self.assertEqual(self.title(), "Putting the pump into service")
        self.assertEqual(self.links(), ["http://www.brunnwerk.example/aq40", "https://pump.example/new",
                                        "https://pump.example/other", "https://pump.example/new"])
        self.assertEqual(self.package_value("1STATE", WORD), "MODIFIED")
        user.insert_slide_link(show, 1, "https://pump.example/second-slide")
        user.insert_slide_link(show, 0, "https://pump.example/first-slide")
        user.set_title(show, "Training: keeping the pump")
        slides.activate()
        slides.save()
        self.progress(CHANGED, SLIDES)
        self.assertEqual(self.title(SLIDES), "Training: keeping the pump")
        self.assertEqual(self.links(SLIDES), ["https://pump.example/first-slide", "https://pump.example/second-slide"])
        self.assertEqual(self.package_value("1STATE", SLIDES), "MODIFIED")
        self.leave(slides)
        self.leave(words)
        self.progress(CHANGED, SLIDES)

    def test_page_and_drawing_are_saved_into_the_package(self):
        self.change_package(("1DESCRIPTION=St\u00f6rungen beheben", "1DESCRIPTION=\n1PROPSECTION=ADD3"))
        self.add_drawing()
        self.start(self.package)
        page = self.translate(HELP_PAGE, HELP_PAGE_FILE)
        desktop.wait_until(page.are_on_the_screen, "page and its source on the screen")
        user = self.user()
        user.insert_link(self.file("dst/stoerungen/" + HELP_PAGE_FILE), "https://pump.example/new")
        page.write("Translated words ")
        page.save()
        self.progress(CHANGED, HELP_PAGE)
        self.assertEqual(self.links(HELP_PAGE), ["https://pump.example/new"])
        self.assertEqual(self.title(HELP_PAGE), "Troubleshooting")
        self.assertEqual(self.package_value("1STATE", HELP_PAGE), "MODIFIED")
        self.leave(page)
        drawing = self.translate(DRAWING, DRAWING_FILE, DRAWING_SOURCE)
        desktop.wait_until(drawing.are_on_the_screen, "drawing and its source on the screen")
        user.write(self.file("dst/zeichnung/" + DRAWING_FILE), "translated")
        drawing.activate()
        drawing.save()
        self.progress(CHANGED, DRAWING)
        self.assertEqual(self.package_value("1STATE", DRAWING), "MODIFIED")
        self.assertIsNone(self.package_value("1ADDSECTION", DRAWING))
        self.leave(drawing)
        self.progress(CHANGED, DRAWING)

    def test_visio_drawing_is_refused_before_anything_opens(self):
        self.add_drawing()
        self.change_package(("1FILE_NAME1=" + DRAWING_FILE, "1FILE_NAME1=zeichnung.vsd"))
        self.file("dst/zeichnung/" + DRAWING_FILE).rename(self.file("dst/zeichnung/zeichnung.vsd"))
        self.start(self.package)
        before = self.package_value("PROGRESS", DRAWING)
        self.select(DRAWING)
        desktop.keys("ctrl+t")
        self.program.wait_for_box("LibreOffice can read Visio drawings, but it cannot save them. Please translate")
        self.assertIn("zeichnung.vsd", self.program.box_texts()[0])
        desktop.picture("office-visio-refused")
        self.program.press("OK")
        self.program.wait_for_box("Source document or translation document does not exist")
        self.program.answer("OK")
        self.assertEqual(office.windows_of("(zeichnung|original)"), [])
        self.progress(before, DRAWING)
        pair = self.translate(WORD, WORD_FILE)
        desktop.wait_until(pair.are_side_by_side, "windows side by side")
        self.leave(pair)

    def test_no_link_and_no_title_harms_the_package(self):
        odd = ["https://pump.example/?a=b&c=d", "https://pump.example/[1]=x]", "https://pump.example/\nbroken\r\nlink",
               "https://pump.example/" + "x" * 9979]
        many = [f"https://pump.example/{number}" for number in range(10000)]
        self.start(self.package)
        pair = self.translate(WORD, WORD_FILE)
        user = self.user()
        text = self.file("dst/inbetriebnahme/" + WORD_FILE)
        for link in odd:
            user.insert_link(text, link)
        user.insert_many_links(text, many)
        user.set_title(text, "First line\nsecond\r\nthird [x]=y")
        user.save(text)
        self.progress(CHANGED)
        expected = [link.replace("\n", "").replace("\r", "") for link in odd] + many
        self.assertEqual(self.links()[1:], expected)
        self.assertEqual(self.title(), "First line second  third [x]=y")
        self.leave(pair)
        self.assertTrue(self.quit_and_start_again())
        self.assertEqual(self.links()[1:], expected)
        self.assertTrue(self.program.cell("First line second  third [x]=y"))

    def quit_and_start_again(self):
        """Whether the package, and nothing else, came up again."""
        self.program.focus_window()
        desktop.keys("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0)
        self.start(self.package)
        desktop.wait_until(lambda: self.program.cell(WORD), "package in the window")
        return self.program.box() is None


if __name__ == "__main__":
    unittest.main(verbosity=2)
