"""The running study, seen the way assistive technology sees it."""

import os
import time

from gi.repository import Atspi, Gio, GLib

from keyboard import Keyboard
from program import BUILD, NotShown, Program, await_text, has_state, text_of, wait_for



def _switch(method, *value):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    arguments = ("org.a11y.Status", "IsEnabled", *value)
    answer = bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties",
                           method, GLib.Variant("(ssv)" if value else "(ss)", arguments), None,
                           Gio.DBusCallFlags.NONE, -1, None)
    return answer.unpack()


def set_accessibility(is_enabled):
    """The desktop's accessibility switch, as its settings would turn it."""
    _switch("Set", GLib.Variant("b", is_enabled))


def accessibility():
    return _switch("Get")[0]


class Study(Program):
    """One run of the study. Elements are found by their accessible names."""

    def __init__(self, environment=None, arguments=(), inside=()):
        """`inside` is a command that puts itself in the place of the one that follows it."""
        self.keyboard = Keyboard()
        self._clicked = 0.0  # when, on the monotonic clock
        super().__init__([*inside, os.path.join(BUILD, "mirvanetest"), *arguments], environment)
        self.await_tree()

    def is_enabled(self, name):
        return has_state(self.await_element(name), Atspi.StateType.SENSITIVE)

    def await_enabled(self, name):
        wait_for(lambda: self.is_enabled(name), f"'{name}' is not enabled")

    def click(self, name):
        self.await_enabled(name)
        # Sooner it would be the second half of a double click, which presses nothing.
        time.sleep(max(0.0, self._clicked + 0.6 - time.monotonic()))
        self._clicked = time.monotonic()
        self.keyboard.click(*self.middle(name))

    def box(self, name, last=False):
        """Where it is on the screen; of several of that name the first, or the last."""
        self.await_element(name)
        shown = [element for element in self.elements() if element.get_name() == name
                 and has_state(element, Atspi.StateType.SHOWING)]
        return shown[-1 if last else 0].get_component_iface().get_extents(Atspi.CoordType.SCREEN)

    def middle(self, name, last=False):
        box = self.box(name, last)
        return box.x + box.width // 2, box.y + box.height // 2


    def press_by_keyboard(self, name):
        """Goes to a button with the Tab key and presses it with Return."""
        def is_focused():
            return has_state(self.await_element(name), Atspi.StateType.FOCUSED)

        for _ in range(10):
            if is_focused():
                self.await_enabled(name)
                self.keyboard.type("\r")
                return
            self.keyboard.type("\t")
            time.sleep(0.1)
        raise NotShown(f"the Tab key does not reach '{name}'")

    def chips(self):
        """The suggestions on screen, in order."""
        return [element.get_name().removeprefix("Apply ")
                for element in self.elements() if element.get_name().startswith("Apply ")
                and has_state(element, Atspi.StateType.SHOWING)]

    def pick_chip(self, index):
        self.click("Apply " + wait_for(lambda: self.chips()[index:], "chips")[0])

    def field(self, name="Type the sentence here"):
        return self.await_element(name).get_text_iface()

    def text(self, name="Type the sentence here"):
        return text_of(self.await_element(name))

    def caret(self):
        return self.field().get_caret_offset()

    def await_text(self, wanted, name="Type the sentence here"):
        await_text(lambda: self.text(name), wanted)

    def await_focus(self, name):
        def is_focused():
            return any(element.get_name() == name and has_state(element, Atspi.StateType.FOCUSED)
                       for element in self.elements())

        wait_for(is_focused, f"'{name}' has no focus")

    # The way through the study.

    def go_to_practice(self):
        self.await_focus("Start")
        self.keyboard.type("\r")
        self.await_focus("Type a single word")

    def go_to_session1(self):
        self.go_to_practice()
        self.keyboard.type("helo ")
        # How the keys were timed has a say in which word it becomes.
        wait_for(lambda: not "helo ".startswith(self.text("Type a single word")), "a correction")
        self.keyboard.strike(108)
        self.await_enabled("Start Session 1")
        self.click("Start Session 1")
        self.await_focus("Type the sentence here")

    def go_to_session2(self):
        self.go_to_session1()
        self.end_session("Done — Continue to Session 2")
        self.await_element("Done — See Results")
        self.await_focus("Type the sentence here")

    def go_to_results(self):
        self.go_to_session2()
        self.end_session("Done — See Results")
        self.await_element("Save Results…")

    def focused_field(self):
        """The text of the text field with the focus; none when something else has it."""
        element = self.focused_text_element()
        return text_of(element) if element else None

    def save_as(self, path):
        """Through the save panel, whose suggested file name has the focus."""
        wait_for(lambda: self.find("Save Results…") or self.find("Saved ✓"), "the save button")
        self.click("Save Results…" if self.find("Save Results…") else "Saved ✓")
        self.await_element("Save result and send to study@mirvane.example")
        wait_for(lambda: (self.focused_field() or "").startswith("MirvaneTest_"), "the file name")
        self.keyboard.chord(37, "a")
        self.keyboard.type(path)
        wait_for(lambda: self.focused_field() == path, f"'{path}' in the save panel")
        self.await_enabled("Cancel")
        self.keyboard.type("\r")

    def end_session(self, button):
        """With the Done button of this name; an empty field makes it ask."""
        is_empty = not self.text().strip()
        self.click(button)
        if is_empty:
            self.click("Go on without typing")

    def report(self, folder):
        """Ends the last session and saves what it gave."""
        self.end_session("Done — See Results")
        path = os.path.join(folder, "result.txt")
        self.save_as(path)
        self.await_element("Saved ✓")
        with open(path, encoding="utf-8") as file:
            return file.read()
