"""The real program under real keys, on a desktop of its own (see private-desktop)."""

import json
import os
import time
import unittest

from keyboard import LEFT_ALT, RIGHT_ALT, CONTROL, read_recording, write_recording
from program import wait_for
from study import accessibility, set_accessibility
from study_case import StudyTest, record, replay, without_times

# Recordings of the typist whose decisions stay the same when every key comes up to 25 ms late.
SESSION1_SEED = os.environ.get("SESSION1_SEED", "3")
SESSION2_SEED = os.environ.get("SESSION2_SEED", "4")


# What the screen says once the focus has rested on a button.
SPACE_HINT = "Return or Space presses this button. Letters go on into your text."


class WholeStudy(StudyTest):
    def test_saved_report_equals_the_replay_of_the_same_keys(self):
        first = record(self.folder, 1, SESSION1_SEED, "--profile", "steady")
        second = record(self.folder, 2, SESSION2_SEED, "--profile", "steady")
        self.study.go_to_session1()
        self.keyboard.play(read_recording(first), self.study.pick_chip)
        self.study.click("Done — Continue to Session 2")
        self.study.await_element("Done — See Results")
        self.study.await_focus("Type the sentence here")
        self.keyboard.play(read_recording(second), self.study.pick_chip)
        report = self.study.report(self.folder)
        self.assertEqual(without_times(report), without_times(replay(first, second)))
        self.assertIn("[auto-", report)
        self.assertIn("[cycle]", report)


class Practice(StudyTest):
    def test_start_is_enabled_by_typing_space_and_the_cycle_key(self):
        self.study.go_to_practice()
        field = "Type a single word"
        self.assertFalse(self.study.is_enabled("Start Session 1"))
        self.keyboard.strike(RIGHT_ALT)
        self.keyboard.type("helo")
        self.study.await_element("Type one word, done")
        self.study.await_element("Press Space, open")
        self.keyboard.type(" ")
        self.study.await_element("Press Space, done")
        self.study.await_text("hello ", field)
        self.study.await_element("Use Right Option ⌥, open")
        self.assertFalse(self.study.is_enabled("Start Session 1"))
        self.keyboard.strike(RIGHT_ALT)
        self.study.await_element("Use Right Option ⌥, done")
        self.study.await_enabled("Start Session 1")
        self.assertNotEqual(self.study.text(field), "hello ")

    def test_chip_pressed_by_keyboard_alone(self):
        self.study.go_to_practice()
        self.keyboard.type("helo")
        self.study.await_element("Apply hello")
        self.keyboard.type("\t")
        self.study.await_focus("Apply hello")
        self.study.await_element(SPACE_HINT)
        self.keyboard.type(" ")
        self.study.await_text("hello", "Type a single word")
        self.study.await_focus("Type a single word")
        self.study.await_element("Press Space, open")


class Session1(StudyTest):
    def setUp(self):
        super().setUp()
        self.study.go_to_session1()

    def test_correction_shows_after_space_and_one_undo_takes_it_back(self):
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        self.assertEqual(self.study.caret(), 6)
        self.keyboard.chord(CONTROL, "z")
        self.study.await_text("helo ")

    def test_fast_typing_loses_and_swaps_no_character(self):
        path = os.path.join(self.folder, "fast.jsonl")
        text = "helo wrld and helo agian with helo and more helo to come "
        write_recording(path, {"session": 1, "prompt": text}, self.keyboard.evenly(text, 15))
        wanted = json.loads(replay("--json", path))["sessions"][0]["finalText"]
        self.assertIn("hello", wanted)
        for _ in range(3):
            self.keyboard.play(read_recording(path), self.study.pick_chip)
            self.study.await_text(wanted)
            self.study.click("Reset")
            self.study.await_text("")

    def test_chip_click_and_reset(self):
        self.keyboard.type("helo")
        self.study.click("Apply hello")
        self.study.await_text("hello")
        self.study.await_focus("Type the sentence here")
        self.study.click("Reset")
        self.study.await_text("")
        self.study.await_focus("Type the sentence here")
        self.assertEqual(self.study.chips(), [])

    def test_cycle_key_does_nothing(self):
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        self.keyboard.strike(RIGHT_ALT)
        time.sleep(0.3)
        self.assertEqual(self.study.text(), "hello ")

    def test_withdrawn_permission_shows_the_gate_and_keeps_the_text(self):
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        set_accessibility(False)
        self.study.await_element("Accessibility required")
        self.assertIsNone(self.study.find("Reset"))
        set_accessibility(True)
        self.study.await_absence("Accessibility required")
        self.assertEqual(self.study.text(), "hello ")
        self.keyboard.type("helo ")
        self.study.await_text("hello hello ")


class Session2(StudyTest):
    def setUp(self):
        super().setUp()
        self.study.go_to_session2()
        self.keyboard.type("helo ")
        self.study.await_text("hello ")

    def next_text(self, text):
        return wait_for(lambda: self.study.text() != text and self.study.text(), "a cycle step")

    def test_right_alt_makes_one_step_and_left_alt_none(self):
        self.keyboard.strike(LEFT_ALT)
        time.sleep(0.3)
        self.assertEqual(self.study.text(), "hello ")
        self.keyboard.strike(RIGHT_ALT)
        stepped = self.next_text("hello ")
        time.sleep(0.3)
        self.assertEqual(self.study.text(), stepped)

    def test_with_left_alt_held_press_and_release_make_a_step_each(self):
        self.keyboard.down(LEFT_ALT)
        self.keyboard.down(RIGHT_ALT)
        first = self.next_text("hello ")
        self.keyboard.up(RIGHT_ALT)
        second = self.next_text(first)
        self.keyboard.up(LEFT_ALT)
        time.sleep(0.3)
        self.assertEqual(self.study.text(), second)


class Saving(StudyTest):
    def setUp(self):
        super().setUp()
        self.study.go_to_results()

    def test_second_save_writes_a_second_file(self):
        for name in ("one.txt", "two.txt"):
            self.study.save_as(os.path.join(self.folder, name))
            wait_for(lambda: os.listdir(self.folder).count(name), name)
            self.study.await_element("Saved ✓")
        self.assertEqual(sorted(os.listdir(self.folder)), ["one.txt", "two.txt"])

    def test_failed_save_shows_the_alert_and_leaves_nothing(self):
        # Nobody may make files there, not even the administrator.
        folder = "/sys"
        before = sorted(os.listdir(folder))
        self.study.save_as(folder + "/result.txt")
        self.study.await_element("Could not save result file")
        self.study.click("OK")
        self.study.await_absence("Could not save result file")
        self.study.await_element("Save Results…")
        self.assertEqual(sorted(os.listdir(folder)), before)


class Gate(StudyTest):
    def withdraw_permission(self):
        set_accessibility(False)
        self.study.await_element("Accessibility required", patience=40)

    def test_allow_asks_and_switches_accessibility_on(self):
        self.withdraw_permission()
        self.study.click("Allow")
        self.study.await_element("Allow this application to use accessibility?")
        self.study.await_focus("Don't Allow")
        self.study.await_enabled("Don't Allow")
        self.keyboard.type("\t\r")
        self.study.await_absence("Accessibility required")
        self.study.await_element("Start")

    def test_question_goes_away_with_the_gate(self):
        self.withdraw_permission()
        self.study.click("Allow")
        self.study.await_element("Don't Allow")
        set_accessibility(True)
        self.study.await_absence("Don't Allow", patience=40)
        self.study.await_focus("Start")

    def test_slipping_from_settings_to_allow_consents_to_nothing(self):
        self.withdraw_permission()
        self.study.await_enabled("Settings")
        settings, ask = self.study.middle("Settings"), self.study.middle("Allow")
        self.keyboard.click(*ask)
        self.study.await_element("Don't Allow")
        consent = self.study.middle("Allow", last=True)
        self.assertNotEqual(consent, ask)
        self.keyboard.type("\x1b")
        self.study.await_absence("Don't Allow")
        time.sleep(1)  # the end of what could be a double click
        for place in (settings, ask, consent, consent, ask):
            self.keyboard.click(*place)
            time.sleep(0.1)
        self.study.await_enabled("Don't Allow")  # asked, and answered by nobody
        self.assertFalse(accessibility())
        self.keyboard.type("\x1b")
        self.study.await_absence("Don't Allow")
        self.assertFalse(accessibility())


if __name__ == "__main__":
    unittest.main(verbosity=2)
