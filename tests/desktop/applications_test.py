"""Typing into programs that nobody here wrote, and what the study makes of it there."""

import os
import re
import unittest

from elsewhere_case import EDITOR, ElsewhereTest, add_cycle_step, final_text, raw_typed
from keyboard import RIGHT_ALT, Keyboard
from program import wait_for

WORDS = int(os.environ.get("WORDS", "100"))  # of five keys
SEED = int(os.environ.get("SEED", "1"))


class Typing(ElsewhereTest):
    def passage(self, keys, seed):
        """So many keys of mistyped prose."""
        path = os.path.join(os.path.dirname(__file__), "passage.txt")
        with open(path, encoding="utf-8") as file:
            prose = file.read().replace("\n", "\r")
        text = ""
        while len(text) < keys:
            text += self.mistyped(prose, seed + len(text))
        return text[:keys]

    def check_pace(self, words_per_minute):
        editor = self.open()
        text = self.passage(5 * WORDS, SEED * 1000 + words_per_minute)
        self.type(text, words_per_minute / 12)
        self.assert_as_replayed(editor)

    def test_60_words_a_minute(self):
        self.check_pace(60)

    def test_120_words_a_minute(self):
        self.check_pace(120)


class Bursts(ElsewhereTest):
    def test_bursts_lose_swap_and_garble_nothing(self):
        text = self.mistyped("we walked down to the harbour and watched the heavy boats come back "
                             "before the weather changed over the hills ", SEED)
        editor = self.open()
        for at_the_edges in (0.02, 0.03, 0.04):
            self.play(self.keyboard.timed(text, gaps_of_bursts(text, at_the_edges)))
        self.assert_corrected_or_as_typed(editor.settled_text(), text * 3)

    def assert_corrected_or_as_typed(self, shown, typed):
        log = re.findall(r'"(.*)" → "(.*)"  wordIndex=(\d+)', self.report())
        self.assertTrue(log, "nothing was corrected")
        self.assertNotEqual(shown, typed, "nothing was replaced in the editor")
        corrections = {int(index): (word, correction) for word, correction, index in log}
        shown, typed = shown.split(" "), typed.split(" ")
        self.assertEqual(len(shown), len(typed), shown)
        for index, word in enumerate(typed):
            allowed = corrections.get(index, (word,))
            self.assertEqual(allowed[0], word, f"the word that word {index} was taken for")
            self.assertIn(shown[index], allowed, f"word {index} of {shown}")


def gaps_of_bursts(text, at_the_edges):
    """Seconds to the next key: quick from a word's last letter to the next word's second."""
    for index in range(len(text)):
        yield at_the_edges if " " in text[max(0, index - 1):index + 2] else 0.11


class Texts(ElsewhereTest):
    """What stands around the word, and the layouts it is typed with."""

    def check(self, before="", behind="", typed="teh lazy dgo and helo "):
        editor = self.open_at(before, behind)
        self.type(typed)
        self.assert_as_replayed(editor, before, behind)

    def test_emoji_and_combining_accents_before_the_word(self):
        self.check("😀 cafe\u0301 👩\u200d👩\u200d👧 𝒳 ")

    def test_caret_in_the_middle(self):
        self.check("Dear all,\n\n", " said the letter.\nGoodbye 😀")

    def test_document_of_a_megabyte(self):
        lines = "One line of many, and none is like the other.\n" * 11_000
        if EDITOR.keeps_up_with_a_megabyte:
            self.check(lines, "\n" + lines[:-1])
        else:
            editor = self.open_at(lines, "\n" + lines[:-1])
            self.type("teh lazy dgo and helo ")
            typed = lines + "teh lazy dgo and helo \n" + lines[:-1]
            wait_for(lambda: editor.text() == typed, "the text as typed", patience=60)

    def test_selection_is_typed_over(self):
        editor = self.open("Some old words here.")
        editor.select("Some old ", "words")
        self.type("teh lazy dgo and helo ")
        self.assert_as_replayed(editor, "Some old ", " here.")

    def test_other_word_that_the_caret_was_moved_to_is_left_alone(self):
        above = "Mr Wqxd"
        editor = self.open_at(above + "\nI ", "")
        self.type("did write helo")
        editor.place_caret(above)
        wait_for(lambda: editor.caret() == len(above), "the caret in the other line")
        self.type(", ")
        self.assertEqual(editor.settled_text(), above + ", \nI did write helo")

    def test_line_end_behind_a_word_indents_once(self):
        editor = self.open_at("x\n    I", "")
        self.type(" see teh\rxkcdwzqj")
        self.assertRegex(editor.settled_text(), r"^x\n    I see t(he|eh)\n(    )?xkcdwzqj$")

    def check_layout(self, name, typed):
        self.keyboard.use_layout(name)
        self.addCleanup(self.keyboard.use_layout, "us")
        editor = self.open()
        self.type(typed)
        self.keyboard.use_layout("us")
        self.assert_as_replayed(editor)

    def test_german_layout(self):
        self.check_layout("de", "teh lazy zebra ist süß, \u0302etre @ {helo} yelow Ölberg helo ")

    def test_french_layout(self):
        self.check_layout("fr", "teh lazy garçon à la for\u0302et 1789 (helo) qaund wrld ")


class RichTexts(ElsewhereTest):
    """Paragraphs in a web page, which the focused element holds as elements of their own."""

    def test_words_of_two_paragraphs(self):
        editor = self.open("<p>Dear all,</p>")
        editor.place_caret("Dear all,")
        self.type(" teh lazy dgo \rhelo and wrld ")
        self.assert_as_replayed(editor, "Dear all,")

    def test_words_behind_a_bold_one(self):
        editor = self.open("<p>Dear <b>Sir</b>,</p><p>Goodbye</p>")
        editor.place_caret("Dear Sir,")
        self.type(" teh lazy dgo and helo ")
        self.assert_as_replayed(editor, "Dear Sir,", "\nGoodbye")

    def test_word_that_goes_on_in_a_link_is_left_alone(self):
        editor = self.open("<p>It is n<a href='#'>o</a></p>")
        editor.place_caret("It is n\ufffc")
        self.type("whelo ")
        self.assertEqual(editor.settled_text(), "It is nowhelo ")


class Keys(ElsewhereTest):
    """Other ways to press a key."""

    def test_on_screen_keyboard_counts_as_typing(self):
        editor = self.open()
        Keyboard().type("helo and teh ", 8)
        editor.await_text("hello and the ")

    def test_held_key_repeats(self):
        editor = self.open()
        self.type("he")
        key = self.keyboard.press("l")
        wait_for(lambda: editor.text().count("l") > 5, "the repeated letter")
        self.keyboard.up(key)
        self.type("o")
        typed = editor.settled_text()
        self.type(" ")
        editor.await_text("hello ")
        self.assertEqual(raw_typed(self.report()), typed + " ")


class Cycling(ElsewhereTest):
    def test_cycle_key_goes_round_in_the_editor_that_was_typed_into(self):
        editor = self.open(" is what he said.")
        self.type("helo ")
        recording = self.record_what_was_typed(behind=" is what he said.")
        editor.await_text(final_text(recording))
        self.study.activate()
        seen = [editor.text()]
        while seen.count(seen[0]) == 1:
            self.keyboard.strike(RIGHT_ALT)
            add_cycle_step(recording)
            editor.await_text(final_text(recording))
            self.assertTrue(editor.caret_is_at_the_end())
            seen.append(editor.text())
        self.assertGreater(len(seen), 3, seen)
        self.assertEqual(self.study.text(), "")

    def test_nothing_is_replaced_where_the_word_has_moved_away(self):
        editor = self.open()
        self.type("form ")
        editor.insert_in_front("Qx ")
        editor.place_caret("Qx")
        self.study.activate()
        for _ in range(3):
            self.keyboard.strike(RIGHT_ALT)
            self.assertEqual(editor.settled_text(), "Qx form ")
        self.assertEqual(editor.caret(), len("Qx"))
        self.assertIn("[cycle]", self.report())


if __name__ == "__main__":
    unittest.main(verbosity=2)
