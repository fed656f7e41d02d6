"""The whole study as a screen reader receives it: its tree and its announcements."""

import time
import unittest

from gi.repository import Atspi

from keyboard import RIGHT_ALT
from program import has_state, wait_for
from screen_reader import ScreenReader
from study_case import StudyTest


class Heard(StudyTest):
    def setUp(self):
        self.reader = ScreenReader()
        self.addCleanup(self.reader.close)
        super().setUp()

    def shown(self):
        return [element for element in self.study.elements()
                if has_state(element, Atspi.StateType.SHOWING)]

    def names_of(self, role):
        return [element.get_name() for element in self.shown() if element.get_role() == role]

    def check_tree(self, heading, focused):
        """What holds on every screen."""
        def names_of_focused():
            return [element.get_name() for element in self.study.elements()
                    if has_state(element, Atspi.StateType.FOCUSED)]

        wait_for(lambda: names_of_focused() == [focused], f"the focus on '{focused}' alone")
        self.assertIn(heading, self.names_of(Atspi.Role.HEADING))
        self.assertEqual(self.names_of(Atspi.Role.FRAME), ["MirvaneTest"])
        self.assertIn("Steps of the study", self.names_of(Atspi.Role.LIST))
        self.assertEqual([element.get_name() for element in self.shown()
                          if element.get_role() in (Atspi.Role.FILLER, Atspi.Role.UNKNOWN)], [])

    def test_tree_and_announcements_of_the_whole_study(self):
        field, sentence = "Type a single word", "Type the sentence here"
        self.reader.await_words("Important rules: Do NOT use Backspace.")
        self.check_tree("Important rules", "Start")
        self.assertIn("Do NOT use Backspace.", self.names_of(Atspi.Role.LIST_ITEM))

        self.study.go_to_practice()
        self.check_tree("Practice: Cycle Key", field)
        self.keyboard.type("helo ")
        self.reader.await_words("Type one word, done")
        wait_for(lambda: not "helo ".startswith(self.study.text(field)), "a correction")
        self.keyboard.strike(RIGHT_ALT)
        self.reader.await_words("Use Right Option ⌥, done")
        self.study.await_enabled("Start Session 1")
        self.study.click("Start Session 1")
        self.study.await_focus(sentence)

        self.check_tree("Session 1", sentence)
        self.keyboard.type("helo")
        self.reader.await_words("Suggestions: hello")
        self.keyboard.type(" ")
        self.reader.await_words("helo, corrected to hello")
        self.study.click("Done — Continue to Session 2")
        self.study.await_element("Done — See Results")
        self.study.await_focus(sentence)

        self.check_tree("Session 2", sentence)
        self.keyboard.type("helo ")
        self.reader.await_words("helo, corrected to hello")
        self.keyboard.strike(RIGHT_ALT)
        self.reader.await_words("changed to ")
        self.study.click("Done — See Results")
        self.reader.await_words("Test Complete. Save the result file using the button below, then "
                                "email the file to ")
        self.check_tree("Test Complete", "Save Results…")

    def test_typing_on_is_not_interrupted_by_suggestions(self):
        self.study.go_to_session1()
        self.reader.listen()
        self.reader.heard.clear()
        for character in "hel":
            self.keyboard.type(character)
            time.sleep(0.2)
        self.reader.listen()
        self.assertEqual(self.reader.heard, [])
        self.reader.await_words("Suggestions: ")


if __name__ == "__main__":
    unittest.main(verbosity=2)
