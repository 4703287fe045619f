"""The monitors that the desktop believes to have."""

import ctypes


class Monitor(ctypes.Structure):
    _fields_ = [("name", ctypes.c_ulong), ("primary", ctypes.c_int), ("automatic", ctypes.c_int),
                ("noutput", ctypes.c_int), ("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int),
                ("height", ctypes.c_int), ("mwidth", ctypes.c_int), ("mheight", ctypes.c_int),
                ("outputs", ctypes.POINTER(ctypes.c_ulong))]


class Resources(ctypes.Structure):
    _fields_ = [("timestamp", ctypes.c_ulong), ("configTimestamp", ctypes.c_ulong), ("ncrtc", ctypes.c_int),
                ("crtcs", ctypes.POINTER(ctypes.c_ulong)), ("noutput", ctypes.c_int),
                ("outputs", ctypes.POINTER(ctypes.c_ulong))]


def move_monitor(x, y, width, height):
    """Lets the only output of the display show this part of the screen."""
    xlib, randr = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXrandr.so.2")
    display_type, number = ctypes.c_void_p, ctypes.c_ulong
    xlib.XOpenDisplay.restype = display_type
    xlib.XDefaultRootWindow.argtypes, xlib.XDefaultRootWindow.restype = [display_type], number
    xlib.XInternAtom.argtypes, xlib.XInternAtom.restype = [display_type, ctypes.c_char_p, ctypes.c_int], number
    xlib.XCloseDisplay.argtypes = [display_type]
    randr.XRRGetScreenResources.argtypes = [display_type, number]
    randr.XRRGetScreenResources.restype = ctypes.POINTER(Resources)
    randr.XRRSetMonitor.argtypes = [display_type, number, ctypes.POINTER(Monitor)]
    display = xlib.XOpenDisplay(None)
    root = xlib.XDefaultRootWindow(display)
    outputs = randr.XRRGetScreenResources(display, root).contents.outputs
    # One of another name gives its output away.
    name = xlib.XInternAtom(display, f"{width}x{height}+{x}+{y}".encode(), 0)
    randr.XRRSetMonitor(display, root, Monitor(name, 0, 0, 1, x, y, width, height, 200, 250, outputs))
    xlib.XCloseDisplay(display)
