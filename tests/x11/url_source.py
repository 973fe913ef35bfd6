#!/usr/bin/env python3
"""A window out of which a link can be dragged, as out of a browser: URL and name in the formats of
browsers, beside the plain URL. Another program for x11.py. A drag of Qt's would not do: it writes
the first of these formats itself, and leaves out the name.
usage: url_source.py URL NAME (text/x-moz-url-desc | _NETSCAPE_URL)"""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

XDND_VERSION = 5


class Source:
    def __init__(self, url, name, name_format):
        self.display = display.Display()
        screen = self.display.screen()
        self.root = screen.root
        self.window = self.root.create_window(
            0, 0, 160, 60, 0, screen.root_depth, background_pixel=screen.white_pixel,
            event_mask=X.ButtonPressMask | X.ButtonReleaseMask | X.PointerMotionMask)
        self.window.set_wm_name("URL source")
        self.window.map()
        names = {"text/x-moz-url-desc": name.encode("utf-16-le"),
                 "_NETSCAPE_URL": f"{url}\n{name}".encode()}
        self.contents = {self.atom("text/x-moz-url"): f"{url}\n{name}".encode("utf-16-le"),
                         self.atom(name_format): names[name_format],
                         self.atom("text/uri-list"): f"{url}\r\n".encode()}
        self.target = None
        self.dragging = False
        self.accepted = False
        self.waiting = False  # for the answer to the last position
        self.moved = None

    def atom(self, name):
        return self.display.intern_atom(name)

    def send(self, name, *data):
        words = [self.window.id, *data] + [0] * (4 - len(data))
        message = event.ClientMessage(window=self.target, client_type=self.atom(name),
                                      data=(32, words))
        self.target.send_event(message)

    def window_below_pointer(self):
        """The outermost window there that takes drops; none where there is none."""
        window = self.root.query_pointer().child
        while window:
            if window.get_full_property(self.atom("XdndAware"), Xatom.ATOM):
                return window
            window = window.query_pointer().child
        return None

    def enter(self, target):
        if target == self.target:
            return
        if self.target:
            self.send("XdndLeave")
        self.target, self.accepted, self.waiting = target, False, False
        if target:
            self.send("XdndEnter", XDND_VERSION << 24, *self.contents)

    def move(self, motion):
        self.enter(self.window_below_pointer())
        self.moved = motion
        if self.target and not self.waiting:
            self.waiting, self.moved = True, None
            self.send("XdndPosition", 0, motion.root_x << 16 | motion.root_y, motion.time,
                      self.atom("XdndActionCopy"))

    def press(self, press):
        self.dragging = True
        self.window.set_selection_owner(self.atom("XdndSelection"), press.time)
        self.window.grab_pointer(False, X.ButtonReleaseMask | X.PointerMotionMask, X.GrabModeAsync,
                                 X.GrabModeAsync, X.NONE, X.NONE, press.time)

    def release(self, release):
        self.display.ungrab_pointer(release.time)
        self.dragging = False
        if self.target and self.accepted:
            self.send("XdndDrop", 0, release.time)
        elif self.target:
            self.send("XdndLeave")
        self.target = None

    def answered(self, status):
        self.waiting = False
        self.accepted = bool(status.data[1][1] & 1)
        if self.moved and self.dragging:
            self.move(self.moved)

    def give(self, request):
        known = self.contents.get(request.target)
        if known is not None:
            request.requestor.change_property(request.property, request.target, 8, known)
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=request.property if known is not None else X.NONE))

    def run(self):
        while True:
            one = self.display.next_event()
            if one.type == X.ButtonPress:
                self.press(one)
            elif one.type == X.MotionNotify and self.dragging:
                self.move(one)
            elif one.type == X.ButtonRelease and self.dragging:
                self.release(one)
            elif one.type == X.SelectionRequest:
                self.give(one)
            elif one.type == X.ClientMessage and one.client_type == self.atom("XdndStatus"):
                self.answered(one)


if __name__ == "__main__":
    Source(*sys.argv[1:4]).run()
