"""A program whose text nobody can read: only what was typed tells what stands before the caret."""

import unittest

from editor import Mousepad, UnseenMousepad
from elsewhere_case import ElsewhereTest

LINES = "The quick brown fox jumps over the lazy dog. " * 4 + "\n"
DOCUMENT = LINES * 40


class UnreadTexts(ElsewhereTest):
    def check(self, disturb):
        """Types a word with `disturb` before its end, after which nothing else may be changed."""
        editor = self.open(DOCUMENT, UnseenMousepad)
        editor.await_idle()
        self.type("helo teh")
        disturb(editor)
        self.type(" a ")
        text = editor.text_saved_by(self.keyboard)
        self.assertTrue(text.startswith("hello teh"), text[:20])
        self.assertEqual(text.replace(" a ", "", 1), "hello teh" + DOCUMENT)

    def test_click_into_other_text(self):
        def click(editor):
            self.keyboard.click(*editor.windows.middle(editor.window()))
            editor.await_idle(0.2)  # the caret moves a moment later
        self.check(click)

    def test_another_window_in_between(self):
        def visit_another(editor):
            self.open(kind=Mousepad)
            editor.activate()
        self.check(visit_another)


if __name__ == "__main__":
    unittest.main(verbosity=2)
