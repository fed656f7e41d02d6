"""What is typed into password fields and terminals stays unknown to the study."""

import os
import re
import threading
import time
import unittest

from gi.repository import Atspi

from editor import Gtk4Form, GtkField, Mousepad, QtField, Terminal
from elsewhere_case import EDITOR, ElsewhereTest, raw_typed
from program import has_state

PASSWORD = "vqzjx7kwyq2"
CONTROL = "xkcdwzqj"  # typed into an editor, so that a search that finds nothing would show
TYPED_HIDDEN = "vqzj"  # of the password; the rest is typed once the field shows it
SHOW_KEY = 68  # F2
LEAST = 5  # characters of a password that no accident puts side by side


def parts_of(secret):
    """Every part of the secret in every encoding."""
    parts = {secret[start:start + LEAST] for start in range(len(secret) - LEAST + 1)}
    return [part.encode(encoding) for part in parts for encoding in ("ascii", "utf-16-le")]


def memory_of(pid):
    """The contents of each mapping that the process may write to."""
    folder = f"/proc/{pid}"
    with open(f"{folder}/maps", encoding="utf-8") as maps, open(f"{folder}/mem", "rb") as memory:
        for line in maps:
            start, end, rights = re.match(r"(\w+)-(\w+) (\S+)", line).groups()
            if "w" not in rights or "[vvar" in line:
                continue
            memory.seek(int(start, 16))
            yield memory.read(int(end, 16) - int(start, 16))


def files_below(folder):
    for path, _, names in os.walk(folder):
        for name in names:
            if os.path.isfile(os.path.join(path, name)):  # neither sockets nor pipes
                with open(os.path.join(path, name), "rb") as file:
                    yield file.read()


def holds(contents, secret):
    parts = parts_of(secret)
    return any(part in content for content in contents for part in parts)


class SecretsTest(ElsewhereTest):
    def check_password(self, field):
        editor = self.open(kind=Mousepad)
        self.type(CONTROL + " ")
        self.open(kind=field)
        self.type(PASSWORD + " ")
        self.study.answer()
        self.assert_unknown(PASSWORD)
        editor.activate()
        editor.await_idle()  # keys are not heard before its focus is known
        self.type(CONTROL + " ")
        self.assert_unknown(PASSWORD)
        self.assert_unsaved(PASSWORD, f"{CONTROL} {CONTROL} ")

    def assert_unknown(self, secret):
        self.assertTrue(holds(memory_of(self.study.pid), CONTROL))
        self.assertFalse(holds(memory_of(self.study.pid), secret))

    def assert_unsaved(self, secret, *typed):
        """And that the report, which is saved here, holds one of these texts, typed elsewhere."""
        self.assertIn(raw_typed(self.report()), typed)
        self.assertFalse(holds(files_below(os.environ["HOME"]), secret))
        self.assertTrue(holds(files_below(self.folder), CONTROL))


class Secrets(SecretsTest):
    def test_password_in_a_field_of_gtk(self):
        self.check_password(GtkField.with_options("--password"))

    def test_password_in_a_field_of_qt(self):
        self.check_password(QtField.with_options("--password"))

    def test_terminal_gets_what_is_typed_and_nobody_else_does(self):
        terminal = self.open(kind=Terminal)
        self.type("helo wrld \r")
        terminal.await_text("helo wrld \n")
        editor = self.open(kind=Mousepad)
        self.type("helo ")
        editor.await_text("hello ")
        self.assertEqual(raw_typed(self.report()), "helo ")


class Forms(SecretsTest):
    """A field for the user name and one for the password in the same window."""

    def check(self, kind, stopped=0, option="--password"):
        """With the program stopped for so many seconds from the Tab on."""
        form = self.open(kind=kind.with_options("--user-name", option))
        name = f"teh {CONTROL} helo"
        self.type(name)
        if stopped:
            form.stop()
            threading.Timer(stopped, form.resume).start()
        self.type("\t" + PASSWORD + " ", keys_per_second=12)
        self.assert_unknown(PASSWORD)
        self.assertIn(form.settled_text(), (f"{first} {CONTROL} {last}" for first in ("teh", "the")
                                            for last in ("helo", "hello")))
        *_, hidden = (element.get_text_iface() for element in form.elements()
                      if has_state(element, Atspi.StateType.EDITABLE))
        self.assertEqual(hidden.get_character_count(), len(PASSWORD + " "))
        self.assert_unsaved(PASSWORD, name, name + "\t")

    def test_form_of_gtk(self):
        self.check(GtkField)

    def test_form_of_gtk_4(self):
        self.check(Gtk4Form)

    def test_form_of_gtk_4_with_a_field_that_is_not_said_to_have_the_focus(self):
        self.check(Gtk4Form, option="--password-row")

    def test_form_of_qt(self):
        self.check(QtField)

    def test_form_of_gtk_that_hangs_at_the_tab_key(self):
        self.check(GtkField, stopped=0.3)

    def test_form_of_qt_that_hangs_at_the_tab_key(self):
        self.check(QtField, stopped=0.3)


class ShownPasswordsTest(SecretsTest):
    """The field shows the password when a part of it is typed."""

    def check(self, kind, show, typed_hidden=TYPED_HIDDEN):
        editor = self.open(kind=Mousepad)
        self.type(CONTROL + " ")
        field = self.open(kind=kind)
        self.type(typed_hidden)
        show(field)
        time.sleep(1)  # a glance at it
        self.type(PASSWORD.removeprefix(typed_hidden) + " ")
        field.await_text(PASSWORD + " ")  # it is in plain sight
        self.assert_unknown(PASSWORD)
        editor.activate()
        editor.await_idle()
        self.type(CONTROL + " ")
        self.assert_unknown(PASSWORD)
        self.assert_unsaved(PASSWORD, f"{CONTROL} {CONTROL} ")

    def show_by_key(self, _):
        self.keyboard.strike(SHOW_KEY)

    def show_by_click(self, field):
        """On the eye, which stands in the field's end."""
        box = field.box()
        self.keyboard.click(box.x + box.width - box.height // 2, box.y + box.height // 2)

    def show_and_look_elsewhere(self, field):
        self.show_by_key(field)
        self.study.activate()
        field.activate()


class ShownPasswords(ShownPasswordsTest):
    gtk = GtkField.with_options("--password")
    qt = QtField.with_options("--password")

    def test_field_of_gtk_that_is_left_meanwhile(self):
        self.check(self.gtk, self.show_and_look_elsewhere)

    def test_field_of_qt_that_is_left_meanwhile(self):
        self.check(self.qt, self.show_and_look_elsewhere)

    def test_field_of_gtk_by_a_key(self):
        self.check(self.gtk, self.show_by_key)

    def test_field_of_gtk_by_a_click(self):
        self.check(self.gtk, self.show_by_click)

    def test_field_of_qt_by_a_key(self):
        self.check(self.qt, self.show_by_key)

    def test_field_of_qt_by_a_click(self):
        self.check(self.qt, self.show_by_click)


class PasswordsShownByPages(ShownPasswordsTest):
    """Whose browser, or they themselves, may put another element in the field's place."""

    def test_field_that_is_left_meanwhile(self):
        self.check(EDITOR, self.show_and_look_elsewhere)

    def test_field_by_a_key(self):
        self.check(EDITOR, self.show_by_key)

    def test_field_by_a_click(self):
        self.check(EDITOR, self.show_by_click_and_return)

    def test_field_that_is_empty_yet(self):
        self.check(EDITOR, self.show_by_click_and_return, typed_hidden="")

    def test_another_field_in_its_place(self):
        self.check(EDITOR.that_replaces_its_field(), self.show_by_key)

    def test_another_line_is_heard(self):
        page = self.open(kind=EDITOR)
        self.type(TYPED_HIDDEN)
        self.show_by_key(page)
        self.type(PASSWORD.removeprefix(TYPED_HIDDEN) + "\t\t")
        time.sleep(1)  # until the line has the focus
        self.type("helo ")
        self.assertIn(raw_typed(self.report()), ("helo ", "\thelo "))

    def show_by_click_and_return(self, page):
        box = page.box()
        self.show_by_click(page)
        time.sleep(0.5)
        self.keyboard.click(box.x + box.width // 2, box.y + box.height // 2)


class WaylandDisplay(SecretsTest):
    """Where the X server knows nothing of the windows that are not its own."""

    environment = {"WAYLAND_DISPLAY": "wayland-0"}

    def test_study_works_and_hears_nothing_of_other_programs(self):
        self.type("helo " + CONTROL + " ")
        self.study.await_text(f"hello {CONTROL} ")
        editor = self.open(kind=Mousepad)
        self.type(PASSWORD + " helo ")
        editor.await_text(PASSWORD + " helo ")
        self.assert_unknown(PASSWORD)
        self.assert_unsaved(PASSWORD, f"helo {CONTROL} ")


class WaylandSession(WaylandDisplay):
    environment = {"XDG_SESSION_TYPE": "wayland"}


if __name__ == "__main__":
    unittest.main(verbosity=2)
