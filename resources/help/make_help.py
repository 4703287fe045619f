#!/usr/bin/python3
"""Makes the help file of one language.

Usage: make_help.py <chmcmd> <language> <build folder> <help file>

Pages are fragments of HTML in UTF-8, each with its title and its keywords for the index. contents.txt has their order; a
TAB in front puts a page below the one above. The help file holds everything in the ANSI code page of its language, which
is what viewers expect of contents and index."""

import html
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
TITLE = "ORB Quillbank Translator"
# Code page by its name in Python and in HTML, and what the viewer calls the language.
LANGUAGES = {
    "en": ("cp1252", "windows-1252", "0x0409 English (United States)"),
    "de": ("cp1252", "windows-1252", "0x0407 German (Germany)"),
    "ja": ("cp932", "shift_jis", "0x0411 Japanese"),
}
PAGE = """<!DOCTYPE html>
<html lang="{language}">
<head>
<meta http-equiv="Content-Type" content="text/html; charset={charset}">
<link rel="stylesheet" type="text/css" href="help.css">
{head}
</head>
<body>
{body}</body>
</html>
"""
SITEMAP = """<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">
<html>
<body>
{body}</body>
</html>
"""
PROJECT = """[OPTIONS]
Compatibility=1.1 or later
Compiled file={name}.chm
Contents file={name}.hhc
Index file={name}.hhk
Default topic={first}.html
Default window=main
Title={title}
Language={locale}
Full-text search=Yes
Binary TOC=No
Binary Index=No

[WINDOWS]
main="{title}","{name}.hhc","{name}.hhk","{first}.html","{first}.html",,,,,0x63520,240,0x10384e,[60,40,1020,760],,,,,,,0

[FILES]
{files}
"""


class Page:
    def __init__(self, path, level):
        self.name, self.level = path.stem, level
        text = path.read_text("utf-8")
        self.head, self.body = re.fullmatch(r"(.*?)\n(<h1>.*)", text, re.S).groups()
        self.title = html.unescape(re.search("<title>(.*?)</title>", self.head)[1])
        keywords = re.search('<meta name="keywords" content="(.*?)">', self.head)[1]
        self.keywords = [html.unescape(word) for word in keywords.split("; ")]


def read_pages(language):
    lines = (HERE / "contents.txt").read_text("utf-8").splitlines()
    return [Page(HERE / language / f"{line.strip()}.html", line.count("\t")) for line in lines]


def entry(name, page):
    return (f'<li><object type="text/sitemap"><param name="Name" value="{html.escape(name)}">'
            f'<param name="Local" value="{page.name}.html"></object>\n')


def contents(pages):
    lines, level = ["<ul>\n"], 0
    for page in pages:
        lines += ["<ul>\n"] * (page.level - level) + ["</ul>\n"] * (level - page.level)
        level = page.level
        lines.append(entry(page.title, page))
    return "".join(lines) + "</ul>\n" * (level + 1)


def index(pages):
    words = sorted(((word, page) for page in pages for word in page.keywords), key=lambda pair: pair[0].casefold())
    return "<ul>\n" + "".join(entry(word, page) for word, page in words) + "</ul>\n"


def make(chmcmd, language, folder, target):
    code_page, charset, locale = LANGUAGES[language]
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(HERE / "pictures", folder / "pictures")
    shutil.copy(HERE / "help.css", folder)
    pages = read_pages(language)
    name = target.stem

    def write(file, text):
        (folder / file).write_bytes(text.encode(code_page))

    for page in pages:
        write(f"{page.name}.html", PAGE.format(language=language, charset=charset, head=page.head, body=page.body))
    write(f"{name}.hhc", SITEMAP.format(body=contents(pages)))
    write(f"{name}.hhk", SITEMAP.format(body=index(pages)))
    files = [f"{page.name}.html" for page in pages] + ["help.css"]
    files += sorted(f"pictures/{path.name}" for path in (folder / "pictures").iterdir())
    write(f"{name}.hhp", PROJECT.format(name=name, first=pages[0].name, title=TITLE, locale=locale,
                                        files="\n".join(files)))
    result = subprocess.run([chmcmd, f"{name}.hhp"], cwd=folder, capture_output=True, text=True, errors="replace")
    made = folder / f"{name}.chm"
    if result.returncode != 0 or not made.is_file():
        sys.exit(f"{chmcmd} made no help file for {language}:\n{result.stdout}{result.stderr}")
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.move(made, target)


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    make(sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3]), pathlib.Path(sys.argv[4]).resolve())
