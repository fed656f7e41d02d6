"""A screen reader, as far as it hears announcements: notifications that begin to be shown."""

from gi.repository import Atspi, GLib

from program import wait_for


class ScreenReader:
    def __init__(self):
        self.heard = []
        self._unread = []  # elements that a busy program has not yet said the name of
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register("object:state-changed:showing")

    def close(self):
        self._listener.deregister("object:state-changed:showing")

    def _hear(self, event):
        if event.detail1:
            self._unread.append(event.source)
            self._read()

    def _read(self):
        while self._unread:
            element = self._unread[0]
            try:
                element.clear_cache()
                name = element.get_name() if element.get_role() == Atspi.Role.NOTIFICATION else ""
            except GLib.Error as error:
                if "timed out" in str(error).lower() or "did not receive" in str(error).lower():
                    return
                name = ""
            self._unread.pop(0)
            if name:
                self.heard.append(name)

    def listen(self):
        """Takes in what has been announced up to now."""
        while GLib.MainContext.default().iteration(False):
            pass
        self._read()

    def await_words(self, words):
        """Until an announcement has held these words; forgets all up to it."""
        def is_heard():
            self.listen()
            return any(words in announcement for announcement in self.heard)

        wait_for(is_heard, f"'{words}' among the announcements {self.heard}")
        while words not in self.heard.pop(0):
            pass
