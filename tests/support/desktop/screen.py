# SPDX-License-Identifier: MIT
"""What is on an X server's screen, seen from outside the program that drew it."""

import ctypes
import ctypes.util
import os
import subprocess

_x11 = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
_ALL_PLANES = ctypes.c_ulong(-1)
_Z_PIXMAP = 2
_VIEWABLE = 2


class _Attributes(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("x", "y", "width", "height", "border_width", "depth")] + [
        ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong), ("window_class", ctypes.c_int),
        ("bit_gravity", ctypes.c_int), ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int),
        ("backing_planes", ctypes.c_ulong), ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int),
        ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int),
        ("all_event_masks", ctypes.c_long), ("your_event_mask", ctypes.c_long),
        ("do_not_propagate_mask", ctypes.c_long), ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class _Image(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int)]


_x11.XOpenDisplay.restype = ctypes.c_void_p
_x11.XDefaultRootWindow.restype = ctypes.c_ulong
_x11.XGetImage.restype = ctypes.POINTER(_Image)
# A window may go between two requests; that is an answer, not a reason to end.
_ignore_errors = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda display, error: 0)
_x11.XSetErrorHandler(_ignore_errors)


class Screen:
    """The first screen of the X server at `display`, for example ":99"."""

    def __init__(self, display):
        self.display = display
        self._connection = ctypes.c_void_p(_x11.XOpenDisplay(display.encode()))
        if not self._connection:
            raise OSError(f"no X server at {display}")
        self._root = ctypes.c_ulong(_x11.XDefaultRootWindow(self._connection))

    def close(self):
        _x11.XCloseDisplay(self._connection)

    def windows(self):
        """The ids of the visible windows of at least 100 by 100 points, the topmost last."""
        root, parent = ctypes.c_ulong(), ctypes.c_ulong()
        found, count = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
        _x11.XQueryTree(self._connection, self._root, ctypes.byref(root), ctypes.byref(parent), ctypes.byref(found),
                        ctypes.byref(count))
        windows = found[:count.value]
        if found:
            _x11.XFree(found)
        return [window for window in windows if self._is_large_and_visible(window)]

    def painted_window(self):
        """A visible window that shows more than one colour, None while there is none."""
        return next((window for window in self.windows() if self._is_painted(window)), None)

    def save_picture(self, path, window=None):
        """Saves the window, or the whole screen, as a picture of the kind that the path's extension names."""
        subprocess.run(["import", "-silent", "-window", str(window or "root"), str(path)], check=True,
                       stdin=subprocess.DEVNULL, env=os.environ | {"DISPLAY": self.display})

    def _attributes(self, window):
        attributes = _Attributes()
        ok = _x11.XGetWindowAttributes(self._connection, ctypes.c_ulong(window), ctypes.byref(attributes))
        return attributes if ok else None

    def _is_large_and_visible(self, window):
        attributes = self._attributes(window)
        return bool(attributes and attributes.map_state == _VIEWABLE
                    and attributes.width >= 100 and attributes.height >= 100)

    def _is_painted(self, window):
        attributes = self._attributes(window)
        if not attributes:
            return False
        image = _x11.XGetImage(self._connection, ctypes.c_ulong(window), 0, 0, attributes.width, attributes.height,
                               _ALL_PLANES, _Z_PIXMAP)
        if not image:
            return False
        size = image.contents.bytes_per_line * image.contents.height
        pixels = ctypes.string_at(image.contents.data, size)
        _x11.XDestroyImage(image)
        return pixels != pixels[:4] * (size // 4)
