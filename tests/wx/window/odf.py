"""Small OpenDocument files."""

import zipfile
from xml.sax.saxutils import quoteattr

TYPES = {"text": "application/vnd.oasis.opendocument.text", "drawing": "application/vnd.oasis.opendocument.graphics"}
CONTENT = """<?xml version="1.0" encoding="UTF-8"?>
<office:document-content xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" office:version="1.3">
<office:body><office:{kind}>{body}</office:{kind}></office:body></office:document-content>
"""
MANIFEST = """<?xml version="1.0" encoding="UTF-8"?>
<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" manifest:version="1.3">
<manifest:file-entry manifest:full-path="/" manifest:media-type="{type}"/>
<manifest:file-entry manifest:full-path="content.xml" manifest:media-type="text/xml"/></manifest:manifest>
"""
SHEET = """<draw:page draw:name="Sheet"><draw:rect svg:x="2cm" svg:y="2cm" svg:width="6cm" svg:height="2cm">
<text:p>Pumpe</text:p></draw:rect></draw:page>"""


def write(path, kind, body):
    with zipfile.ZipFile(path, "w") as file:
        file.writestr("mimetype", TYPES[kind])
        file.writestr("content.xml", CONTENT.format(kind=kind, body=body))
        file.writestr("META-INF/manifest.xml", MANIFEST.format(type=TYPES[kind]))


def write_drawing(path):
    write(path, "drawing", SHEET)


def write_links(path, addresses):
    """A text with a link in each paragraph."""
    links = "".join(f'<text:p><text:a xlink:type="simple" xlink:href={quoteattr(address)}>'
                    f"link {number}</text:a></text:p>" for number, address in enumerate(addresses, 1))
    write(path, "text", links)
