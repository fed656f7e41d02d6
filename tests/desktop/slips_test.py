"""What shaking hands do to the real program: keys held too long, a stray Tab, clicks too many."""

import time
import unittest

from gi.repository import Atspi

from keyboard import CONTROL
from program import has_state, wait_for
from study_case import StudyTest

FIELD = "Type the sentence here"
RETURN, SPACE, KEY_A = 36, 65, 38
HOLD = 1.2  # seconds: the server repeats a key after 0.66
# Seconds of patience while a key repeats: assistive technology is told of every repeat first.
LONG = 60


class Slips(StudyTest):
    def middle_of(self, name):
        self.study.await_enabled(name)
        box = self.study.find(name).get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def hold(self, code):
        self.keyboard.down(code)
        time.sleep(HOLD)
        self.keyboard.up(code)

    def is_focused(self, name):
        element = self.study.find(name)
        return element is not None and has_state(element, Atspi.StateType.FOCUSED)

    def tab_to(self, name):
        for _ in range(10):
            self.keyboard.type("\t")
            time.sleep(0.1)
            if self.is_focused(name):
                return
        self.fail(f"the Tab key does not reach '{name}'")

    def keystrokes(self):
        """Of both sessions, as the report counts them."""
        report = self.study.report(self.folder)
        return [int(line.split()[-1]) for line in report.splitlines()
                if line.startswith("Keystrokes:")]


class HeldKeys(Slips):
    def test_held_return_presses_once_and_when_it_is_let_go(self):
        self.study.await_focus("Start")
        self.keyboard.down(RETURN)
        time.sleep(HOLD)
        self.assertIsNotNone(self.study.find("Start"))
        self.keyboard.up(RETURN)
        self.study.await_focus("Type a single word")
        self.assertEqual(self.study.text("Type a single word"), "")

    def test_held_space_types_nothing_into_the_next_screen(self):
        self.study.go_to_session1()
        self.keyboard.type("some")
        self.study.await_text("some")
        self.tab_to("Done — Continue to Session 2")
        time.sleep(2)
        self.keyboard.down(SPACE)
        time.sleep(HOLD)
        self.assertIsNotNone(self.study.find("Done — Continue to Session 2"))
        self.keyboard.up(SPACE)
        self.study.await_element("Done — See Results")
        self.study.await_focus(FIELD)
        self.assertEqual(self.study.text(), "")

    def test_key_down_while_the_screen_changes_does_nothing_until_let_go(self):
        self.study.go_to_session1()
        self.keyboard.type("some ")
        self.study.await_text("some ")
        done = self.middle_of("Done — Continue to Session 2")
        self.keyboard.down(KEY_A)
        time.sleep(HOLD)
        self.keyboard.click(*done)
        self.study.await_element("Done — See Results", LONG)
        self.study.await_focus(FIELD)
        time.sleep(HOLD)
        self.assertEqual(self.study.text(), "")
        self.keyboard.up(KEY_A)
        self.keyboard.type("ab")
        self.study.await_text("ab")
        self.assertEqual(self.keystrokes()[1], 2)

    def test_key_down_while_a_dialog_comes_or_goes_does_nothing_there(self):
        self.study.go_to_session1()
        done = self.middle_of("Done — Continue to Session 2")
        self.keyboard.down(SPACE)
        time.sleep(HOLD)
        self.keyboard.click(*done)
        self.study.await_element("Keep typing", LONG)
        self.study.await_focus("Keep typing")
        self.study.await_enabled("Keep typing")
        self.keyboard.up(SPACE)
        time.sleep(0.3)
        self.assertIsNotNone(self.study.find("Keep typing"))
        blanks = self.study.text()
        keep_typing = self.middle_of("Keep typing")
        self.keyboard.down(KEY_A)
        time.sleep(HOLD)
        self.keyboard.click(*keep_typing)
        self.study.await_absence("Keep typing", LONG)
        self.study.await_focus(FIELD)
        time.sleep(HOLD)
        self.assertEqual(self.study.text(), blanks)
        self.keyboard.up(KEY_A)
        self.keyboard.type("ab")
        self.study.await_text(blanks + "ab")

    def test_held_key_repeats_in_the_field(self):
        self.study.go_to_session1()
        self.hold(KEY_A)
        wait_for(lambda: self.study.text(), "text")
        time.sleep(0.3)
        typed = self.study.text()
        self.assertRegex(typed, "^a{5,}$")
        self.study.end_session("Done — Continue to Session 2")
        self.study.await_element("Done — See Results")
        self.assertEqual(self.keystrokes()[0], len(typed))


class StrayTab(Slips):
    def setUp(self):
        super().setUp()
        self.study.go_to_session1()

    def test_typing_goes_on_in_the_field(self):
        self.keyboard.type("one\t two three")
        self.study.await_text("one two three")
        self.study.await_focus(FIELD)
        self.tab_to("Done — Continue to Session 2")
        self.keyboard.type(" more")
        self.study.await_text("one two three more")
        self.study.end_session("Done — Continue to Session 2")
        self.study.await_element("Done — See Results")
        self.assertEqual(self.keystrokes()[0], len("one two three more"))

    def test_correction_follows_a_space_that_came_back_into_the_field(self):
        self.keyboard.type("helo")
        self.study.await_element("Apply hello")
        self.keyboard.type("\t x")
        self.study.await_text("hello x")

    def test_chosen_button_is_pressed_by_space_and_the_screen_says_how(self):
        self.keyboard.type("some")
        self.study.await_text("some")
        self.tab_to("Done — Continue to Session 2")
        self.study.await_element("Return presses this button. Letters go on into your text.")
        self.study.await_element("Return or Space presses this button. Letters go on into your text.")
        self.keyboard.type(" ")
        self.study.await_element("Done — See Results")


class Clicks(Slips):
    def click(self, place, times, pause):
        for _ in range(times):
            self.keyboard.click(*place)
            time.sleep(pause)

    def test_clicks_too_many_go_one_step(self):
        self.study.go_to_session1()
        self.keyboard.type("some")
        self.study.await_text("some")
        self.click(self.middle_of("Done — Continue to Session 2"), 2, 0.5)
        self.study.await_element("Done — See Results")
        self.keyboard.type("more")
        self.study.await_text("more")
        self.click(self.middle_of("Done — See Results"), 3, 0.1)
        self.study.await_element("Save Results…")
        time.sleep(0.5)
        self.assertIsNone(self.study.focused_field())

    def test_screen_that_has_come_up_is_ready_for_return_without_more(self):
        self.study.go_to_session2()
        self.study.end_session("Done — See Results")
        self.study.await_focus("Save Results…")
        self.assertFalse(self.study.is_enabled("Save Results…"))
        self.keyboard.type("\r")
        self.study.await_enabled("Save Results…")
        self.assertIsNone(self.study.focused_field())
        self.keyboard.type("\r")
        wait_for(lambda: (self.study.focused_field() or "").startswith("MirvaneTest_"),
                 "the save panel")

    def test_done_over_an_empty_field_asks(self):
        self.study.go_to_session1()
        self.keyboard.type("  ")
        self.study.press_by_keyboard("Done — Continue to Session 2")
        self.study.await_focus("Keep typing")
        self.study.await_enabled("Keep typing")
        self.keyboard.type("\r")
        self.study.await_absence("Keep typing")
        self.study.await_focus(FIELD)
        self.keyboard.type("some")
        self.study.await_text("  some")
        self.keyboard.chord(CONTROL, "a")
        self.keyboard.type("\b")
        self.study.click("Done — Continue to Session 2")
        self.study.click("Go on without typing")
        self.study.await_element("Done — See Results")


if __name__ == "__main__":
    unittest.main(verbosity=2)
