#!/usr/bin/python3
"""A real small editor, for the tests: shows one file in a window; Ctrl+S saves it, Ctrl+W closes the window and
with it the program. Files are in code page 1252. Usage: small_editor.py <file>"""

import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

CODE_PAGE = "cp1252"


class Editor(Gtk.Window):
    def __init__(self, path):
        super().__init__(title=f"Small editor: {path}", default_width=560, default_height=320)
        self.path = path
        self.text = Gtk.TextView(monospace=True)
        with open(path, encoding=CODE_PAGE, newline="") as file:
            self.text.get_buffer().set_text(file.read())
        scrolled = Gtk.ScrolledWindow()
        scrolled.add(self.text)
        self.add(scrolled)
        self.connect("key-press-event", self.on_key)
        self.connect("destroy", Gtk.main_quit)

    def on_key(self, _, event):
        if not event.state & Gdk.ModifierType.CONTROL_MASK:
            return False
        if event.keyval == Gdk.KEY_s:
            self.save()
            return True
        if event.keyval == Gdk.KEY_w:
            self.destroy()
            return True
        return False

    def save(self):
        buffer = self.text.get_buffer()
        with open(self.path, "w", encoding=CODE_PAGE, newline="") as file:
            file.write(buffer.get_text(*buffer.get_bounds(), True))
        self.set_title(f"Saved: {self.path}")


Editor(sys.argv[1]).show_all()
Gtk.main()
