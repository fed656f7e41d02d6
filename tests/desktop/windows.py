"""The window manager, asked as panels and wmctrl ask it (Extended Window Manager Hints)."""

from Xlib import X, Xatom, display, error
from Xlib.protocol.event import ClientMessage

_FROM_A_PANEL = 2


class Windows:
    def __init__(self):
        self._display = display.Display()
        self._root = self._display.screen().root

    def active(self):
        """The number of the window that gets the keys; 0 for none."""
        return (self._read(self._root, "_NET_ACTIVE_WINDOW", Xatom.WINDOW) or [0])[0]

    def of_process(self, pid):
        """The numbers of the process's windows, the oldest first."""
        return [number for number in self._read(self._root, "_NET_CLIENT_LIST", Xatom.WINDOW)
                if self._read(self._window(number), "_NET_WM_PID", Xatom.CARDINAL) == [pid]]

    def activate(self, number):
        self._ask(number, "_NET_ACTIVE_WINDOW", [_FROM_A_PANEL, X.CurrentTime, 0, 0, 0])

    def close(self, number):
        self._ask(number, "_NET_CLOSE_WINDOW", [X.CurrentTime, _FROM_A_PANEL, 0, 0, 0])

    def middle(self, number):
        """A place on the screen."""
        size = self._window(number).get_geometry()
        place = self._window(number).translate_coords(self._root, 0, 0)
        return size.width // 2 - place.x, size.height // 2 - place.y

    def _window(self, number):
        return self._display.create_resource_object("window", number)

    def _read(self, window, name, kind):
        try:
            answer = window.get_full_property(self._display.get_atom(name), kind)
        except error.BadWindow:  # it has just gone
            return []
        return list(answer.value) if answer else []

    def _ask(self, number, request, values):
        message = ClientMessage(window=self._window(number), data=(32, values),
                                client_type=self._display.get_atom(request))
        self._root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.sync()
