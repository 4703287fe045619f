"""What the pointer on the screen looks like."""

import ctypes


class Image(ctypes.Structure):
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
                ("xhot", ctypes.c_ushort), ("yhot", ctypes.c_ushort), ("serial", ctypes.c_ulong),
                ("pixels", ctypes.POINTER(ctypes.c_ulong))]


def shape():
    """The pointer's picture, to be compared with others."""
    xlib, fixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
    xlib.XOpenDisplay.restype = ctypes.c_void_p
    xlib.XCloseDisplay.argtypes = xlib.XFree.argtypes = fixes.XFixesGetCursorImage.argtypes = [ctypes.c_void_p]
    fixes.XFixesGetCursorImage.restype = ctypes.POINTER(Image)
    display = xlib.XOpenDisplay(None)
    image = fixes.XFixesGetCursorImage(display)
    width, height = image.contents.width, image.contents.height
    found = width, height, image.contents.pixels[:width * height]
    xlib.XFree(image)
    xlib.XCloseDisplay(display)
    return found
