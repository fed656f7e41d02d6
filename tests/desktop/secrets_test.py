"""What is typed into password fields and terminals stays unknown to the study."""

import os
import re
import unittest

from editor import GtkPassword, Mousepad, QtPassword, Terminal
from elsewhere_case import ElsewhereTest, raw_typed

PASSWORD = "vqzjx7kwyq2"
CONTROL = "xkcdwzqj"  # typed into an editor, so that a search that finds nothing would show
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


class Secrets(ElsewhereTest):
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
        self.assertEqual(raw_typed(self.report()), f"{CONTROL} {CONTROL} ")
        self.assertFalse(holds(files_below(os.environ["HOME"]), PASSWORD))
        self.assertTrue(holds(files_below(self.folder), CONTROL))

    def assert_unknown(self, secret):
        self.assertTrue(holds(memory_of(self.study.pid), CONTROL))
        self.assertFalse(holds(memory_of(self.study.pid), secret))

    def test_password_in_a_field_of_gtk(self):
        self.check_password(GtkPassword)

    def test_password_in_a_field_of_qt(self):
        self.check_password(QtPassword)

    def test_terminal_gets_what_is_typed_and_nobody_else_does(self):
        terminal = self.open(kind=Terminal)
        self.type("helo wrld \r")
        terminal.await_text("helo wrld \n")
        editor = self.open(kind=Mousepad)
        self.type("helo ")
        editor.await_text("hello ")
        self.assertEqual(raw_typed(self.report()), "helo ")


if __name__ == "__main__":
    unittest.main(verbosity=2)
