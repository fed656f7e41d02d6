"""The running study, seen the way assistive technology sees it."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from keyboard import Keyboard  # noqa: E402

BUILD = os.environ["MIRVANE_PROGRAMS"]
PATIENCE = 10  # seconds until something awaited counts as missing


class NotShown(AssertionError):
    pass


def wait_for(condition, what, patience=PATIENCE):
    """The first true answer of `condition`."""
    deadline = time.monotonic() + patience
    while True:
        try:
            answer = condition()
        except GLib.Error:  # an element that is just going away
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise NotShown(what)
        time.sleep(0.02)


def set_accessibility(is_enabled):
    """The desktop's accessibility switch, as its settings would turn it."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    value = GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled",
                                   GLib.Variant("b", is_enabled)))
    bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                  value, None, Gio.DBusCallFlags.NONE, -1, None)


class Study:
    """One run of the program. Elements are found by their accessible names."""

    def __init__(self):
        self.keyboard = Keyboard()
        self._clicked = 0.0  # when, on the monotonic clock
        self._program = subprocess.Popen([os.path.join(BUILD, "mirvanetest")])
        self._application = wait_for(self._find_application, "the application")
        Atspi.set_timeout(2000, 2000)

    def close(self):
        self._program.terminate()
        self._program.wait()

    @property
    def pid(self):
        return self._program.pid

    def _find_application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child and child.get_process_id() == self._program.pid:
                return child
        return None

    def _walk(self, element):
        element.clear_cache()
        for index in range(element.get_child_count()):
            child = element.get_child_at_index(index)
            if child is None:
                continue
            yield child
            yield from self._walk(child)

    def _is_shown(self, element):
        return element.get_state_set().contains(Atspi.StateType.SHOWING)

    def find(self, name):
        """The shown element of this name; none when there is none."""
        for element in self._walk(self._application):
            if element.get_name() == name and self._is_shown(element):
                return element
        return None

    def await_element(self, name, patience=PATIENCE):
        return wait_for(lambda: self.find(name), f"'{name}' is not shown", patience)

    def await_absence(self, name, patience=PATIENCE):
        wait_for(lambda: self.find(name) is None, f"'{name}' is still shown", patience)

    def is_enabled(self, name):
        return self.await_element(name).get_state_set().contains(Atspi.StateType.SENSITIVE)

    def await_enabled(self, name):
        wait_for(lambda: self.is_enabled(name), f"'{name}' is not enabled")

    def click(self, name):
        element = self.await_element(name)
        # Sooner it would be the second half of a double click, which presses nothing.
        time.sleep(max(0.0, self._clicked + 0.6 - time.monotonic()))
        self._clicked = time.monotonic()
        box = element.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        self.keyboard.click(box.x + box.width // 2, box.y + box.height // 2)

    def press_by_keyboard(self, name):
        """Goes to a button with the Tab key and presses it with Return."""
        def is_focused():
            return self.await_element(name).get_state_set().contains(Atspi.StateType.FOCUSED)

        for _ in range(10):
            if is_focused():
                self.keyboard.type("\r")
                return
            self.keyboard.type("\t")
            time.sleep(0.1)
        raise NotShown(f"the Tab key does not reach '{name}'")

    def chips(self):
        """The suggestions on screen, in order."""
        return [element.get_name().removeprefix("Apply ")
                for element in self._walk(self._application)
                if element.get_name().startswith("Apply ") and self._is_shown(element)]

    def pick_chip(self, index):
        self.click("Apply " + wait_for(lambda: self.chips()[index:], "chips")[0])

    def field(self, name="Type the sentence here"):
        return self.await_element(name).get_text_iface()

    def text(self, name="Type the sentence here"):
        field = self.field(name)
        return field.get_text(0, field.get_character_count())

    def caret(self):
        return self.field().get_caret_offset()

    def await_text(self, wanted, name="Type the sentence here"):
        try:
            wait_for(lambda: self.text(name) == wanted, "text", patience=3)
        except NotShown:
            raise AssertionError(f"the field reads {self.text(name)!r}, not {wanted!r}") from None

    def await_focus(self, name):
        def is_focused():
            return any(element.get_name() == name and element.get_state_set().contains(
                Atspi.StateType.FOCUSED) for element in self._walk(self._application))

        wait_for(is_focused, f"'{name}' has no focus")

    # The way through the study.

    def go_to_practice(self):
        self.await_focus("Start")
        self.keyboard.type("\r")
        self.await_focus("Type a single word")

    def go_to_session1(self):
        self.go_to_practice()
        self.keyboard.type("helo ")
        self.await_text("hello ", "Type a single word")
        self.keyboard.strike(108)
        self.await_enabled("Start Session 1")
        self.click("Start Session 1")
        self.await_focus("Type the sentence here")

    def go_to_session2(self):
        self.go_to_session1()
        self.click("Done — Continue to Session 2")
        self.await_element("Done — See Results")
        self.await_focus("Type the sentence here")

    def go_to_results(self):
        self.go_to_session2()
        self.click("Done — See Results")
        self.await_element("Save Results…")

    def focused_field(self):
        """The text of the text field with the focus; none when something else has it."""
        for element in self._walk(self._application):
            if (element.get_role() == Atspi.Role.TEXT
                    and element.get_state_set().contains(Atspi.StateType.FOCUSED)):
                field = element.get_text_iface()
                return field.get_text(0, field.get_character_count())
        return None

    def save_as(self, path):
        """Through the save panel, whose suggested file name has the focus."""
        wait_for(lambda: self.find("Save Results…") or self.find("Saved ✓"), "the save button")
        self.click("Save Results…" if self.find("Save Results…") else "Saved ✓")
        self.await_element("Save result and send to study@mirvane.example")
        wait_for(lambda: (self.focused_field() or "").startswith("MirvaneTest_"), "the file name")
        self.keyboard.chord(37, "a")
        self.keyboard.type(path)
        wait_for(lambda: self.focused_field() == path, f"'{path}' in the save panel")
        self.keyboard.type("\r")
