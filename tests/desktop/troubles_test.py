"""The editor hangs, dies, is closed or loses the focus, in a word or while one is replaced."""

import time
import unittest

from editor import GtkField, QtField
from elsewhere_case import ElsewhereTest

# Seconds from a boundary key to the trouble: before, within and behind a replacement.
MOMENTS = (0, 0.002, 0.004, 0.008, 0.016, 0.032, 0.064)
LONGEST_ANSWER = 0.25  # seconds that the study may take, whatever another program does


class TroublesTest(ElsewhereTest):
    def setUp(self):
        super().setUp()
        self.longest = 0
        self.addCleanup(self.check_study)

    def check_study(self):
        self.assertTrue(self.study.is_running)
        self.assertLess(self.longest, LONGEST_ANSWER)
        self.assertEqual(self.study.text(), "")

    def ask_study(self, seconds):
        """Keeps asking the study's window, and remembers the longest wait for an answer."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            asked = time.monotonic()
            self.study.answer()
            self.longest = max(self.longest, time.monotonic() - asked)
            time.sleep(0.002)

    def type_and_ask(self, text):
        for character in text:
            key = self.keyboard.press(character)
            self.ask_study(0.05)
            self.keyboard.up(key)
            self.ask_study(0.05)

    def begin_replacement(self, moment):
        """Types a misspelt word, and lets so many seconds pass behind its end."""
        self.type("becuase")
        key = self.keyboard.press(" ")
        time.sleep(moment)
        return key

    def allowed(self, editor, before, words):
        """The texts that may stand in an editor that loses the focus while a word is typed."""
        if editor.drops_keys_with_the_focus:
            words = [word[:end] for word in words for end in range(len(word) + 1)]
        return [before + word for word in words]

    def end_replacement(self, key):
        """Before the key repeats, which it would do in another window too."""
        self.ask_study(0.2)
        self.keyboard.up(key)
        self.ask_study(0.4)


class Stopped(TroublesTest):
    def test_in_a_word(self):
        editor = self.open()
        self.type("he")
        editor.stop()
        self.type_and_ask("lo wrld ")
        editor.resume()
        self.assertIn(editor.settled_text(), [f"{a} {b} " for a in ("helo", "hello")
                                              for b in ("wrld", "world")])
        self.assert_corrects_again(editor)

    def test_in_a_replacement(self):
        editor = self.open()
        for moment in MOMENTS:
            before = editor.text()
            key = self.begin_replacement(moment)
            editor.stop()
            self.end_replacement(key)
            self.type_and_ask("a ")
            editor.resume()
            # What was cut in half is finished at the next question, or the one after.
            self.assertIn(editor.settled_text(2), (before + "becuase a ", before + "because a "))
        self.assert_corrects_again(editor)

    def assert_corrects_again(self, editor):
        before = editor.text()
        self.type("teh ")
        editor.await_text(before + "the ")


class Killed(TroublesTest):
    def test_in_a_word(self):
        other = self.open()
        editor = self.open()
        self.type("he")
        editor.kill()
        self.ask_study(0.5)
        self.assert_untouched(other)

    def test_in_a_replacement(self):
        other = self.open()
        for moment in MOMENTS:
            editor = self.open()
            key = self.begin_replacement(moment)
            editor.kill()
            self.end_replacement(key)
            self.assertEqual(other.settled_text(), "")
        self.assert_untouched(other)

    def assert_untouched(self, other):
        """Nothing was typed there, and typing there is corrected."""
        other.activate()
        self.assertEqual(other.settled_text(), "")
        self.type("teh ")
        other.await_text("the ")


class Closed(TroublesTest):
    def test_in_a_word(self):
        other = self.open()
        for fields in (GtkField, QtField):
            before_in_other = other.text()
            program = self.open(kind=fields)
            self.type("he")
            program.close_window()
            self.ask_study(0.3)
            other.activate()
            self.type("wrld ")
            other.await_text(before_in_other + "world ")

    def test_editor_is_closed(self):
        for moment in MOMENTS:
            editor = self.open()
            key = self.begin_replacement(moment)
            editor.close_window()
            self.end_replacement(key)
            if editor.asks_whether_to_save:
                # Its question may come up before the space, which goes there then.
                wanted = self.allowed(editor, "", ["becuase", "becuase ", "because "])
                self.assertIn(editor.settled_text(), wanted)
            editor.close()

    def test_window_goes(self):
        other = self.open()
        for fields in (GtkField, QtField):
            for moment in MOMENTS:
                program = self.open(kind=fields)
                key = self.begin_replacement(moment)
                program.close_window()
                self.end_replacement(key)
                self.assertEqual(other.settled_text(), "")


class Left(TroublesTest):
    def test_in_a_word(self):
        other, editor = self.open(), self.open()
        self.type("he")
        other.activate()
        self.type("wrld ")
        other.await_text("world ")
        self.assertEqual(editor.settled_text(), "he")

    def test_in_a_replacement(self):
        other, editor = self.open(), self.open()
        for moment in MOMENTS:
            before = editor.text()
            key = self.begin_replacement(moment)
            other.request_activation()
            self.end_replacement(key)
            wanted = self.allowed(editor, before, ["becuase ", "because "])
            self.assertIn(editor.settled_text(), wanted)
            self.assertEqual(other.settled_text(), "")
            editor.activate()


class WindowComesUp(TroublesTest):
    """Behind letters that were typed on the heels of a word's end, whose keys may wait then."""

    letters = "xyz"
    # Seconds from the last letter until the other window is asked for.
    moments = (0, 0.002, 0.004, 0.008, 0.016, 0.032)

    def setUp(self):
        super().setUp()
        self.other = self.open()

    def type_on(self, moment):
        """Ends a word, types the letters behind it and lets so many seconds pass."""
        key = self.keyboard.press(" ")
        self.keyboard.type(self.letters, keys_per_second=300)
        time.sleep(moment)
        return key

    def test_in_front_of_an_editor_that_hangs(self):
        for moment in 2 * self.moments:
            editor = self.open()  # one that has hung is not waited for so long
            before_in_other = self.other.text()
            self.type("becuase")
            editor.stop()
            key = self.type_on(moment)
            self.other.request_activation()
            self.end_replacement(key)
            editor.resume()
            with self.subTest(moment=moment):
                self.assertEqual(self.other.settled_text(), before_in_other)
                # What still waited then is lost, and nothing else.
                self.assertIn(editor.settled_text(), [f"{word} {letters}"
                                                      for word in ("becuase", "because")
                                                      for letters in ("", self.letters)])
            editor.kill()

    def test_as_the_window_typed_into_goes(self):
        for moment in self.moments:
            for fields in (GtkField, QtField):
                program = self.open(kind=fields)
                before_in_other = self.other.text()
                self.type("becuase")
                key = self.type_on(moment)
                program.close_window()
                self.end_replacement(key)
                with self.subTest(moment=moment, fields=fields.__name__):
                    self.assertEqual(self.other.settled_text(), before_in_other)


if __name__ == "__main__":
    unittest.main(verbosity=2)
