"""Fields of one line, of GTK and of Qt, and such as do not take every text."""

import unittest

from editor import GtkField, QtField
from elsewhere_case import ElsewhereTest


class CaretInTheMiddle(ElsewhereTest):
    """Of the text of a field."""

    def check_next_word(self, kind):
        """That it stands behind the corrected one, typed once that is there."""
        field = self.open_at("", "said the letter.", kind)
        self.type("teh ")
        field.await_text("the said the letter.")
        self.type("lazy ")
        field.await_text("the lazy said the letter.")

    def check_typing_on(self, kind):
        field = self.open_at("Today ", "said the letter.", kind)
        self.type("teh lazy dgo and helo ")
        self.assert_as_replayed(field, "Today ", "said the letter.")

    def test_next_word_in_a_field_of_gtk(self):
        self.check_next_word(GtkField)

    def test_next_word_in_a_field_of_qt(self):
        self.check_next_word(QtField)

    def test_typing_on_in_a_field_of_gtk(self):
        self.check_typing_on(GtkField)

    def test_typing_on_in_a_field_of_qt(self):
        self.check_typing_on(QtField)


class Limits(ElsewhereTest):
    """A field that does not take the correction as it is holds it whole or not at all."""

    # What is typed, and its correction: as long, longer, shorter.
    words = (("becuase ", "because "), ("helo ", "hello "), ("untill ", "until "))

    def check_room(self, kind, room):
        """With room for so many more characters than are typed."""
        for typed, corrected in self.words:
            for behind in ("", "of it all"):
                length = len(typed + behind) + room
                field = self.open_at("", behind, kind.with_options(f"--max-length={length}"))
                self.type(typed)
                with self.subTest(behind=behind):
                    self.assertIn((field.settled_text(), field.caret()),
                                  ((typed + behind, len(typed)),
                                   (corrected + behind, len(corrected))))
                field.close()

    def test_full_field_of_gtk(self):
        self.check_room(GtkField, room=0)

    def test_full_field_of_qt(self):
        self.check_room(QtField, room=0)

    def test_field_of_gtk_with_little_room(self):
        self.check_room(GtkField, room=2)

    def test_field_of_qt_with_little_room(self):
        self.check_room(QtField, room=2)

    def test_field_of_gtk_with_room_for_both_words(self):
        """Which shows that words are corrected in fields with a limit."""
        field = self.open_at("", "of it all", GtkField.with_options("--max-length=30"))
        self.type("becuase ")
        field.await_text("because of it all")

    def test_field_of_qt_with_room_for_both_words(self):
        field = self.open_at("", "of it all", QtField.with_options("--max-length=30"))
        self.type("becuase ")
        field.await_text("because of it all")

    def test_field_of_gtk_in_upper_case(self):
        for typed in ("becuase ", "Becuase ", "BECUASE "):
            field = self.open_at("", "OF IT ALL", GtkField.with_options("--upper-case"))
            self.type(typed)
            with self.subTest(typed=typed):
                self.assertIn(field.settled_text(), ("BECUASE OF IT ALL", "BECAUSE OF IT ALL"))
            field.close()


if __name__ == "__main__":
    unittest.main(verbosity=2)
