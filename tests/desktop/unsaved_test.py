"""A study that is killed before it is saved, and taken up by the next start."""

import json
import os
import random
import time

from program import wait_for
from study import Study
from study_case import StudyTest

CONTINUE = "Continue where you stopped"
AFRESH = "Start afresh and delete what was typed"
BEHIND = 1.0  # seconds that the journal may be behind
FOLDER = os.path.join(os.environ["HOME"], ".local", "state", "mirvanetest")
JOURNAL = os.path.join(FOLDER, "unsaved-study.jsonl")


class Unsaved(StudyTest):
    def setUp(self):
        super().setUp()
        os.environ.pop("XDG_STATE_HOME", None)
        self.addCleanup(lambda: os.path.exists(JOURNAL) and os.remove(JOURNAL))

    def kill_and_start_again(self):
        self.study.kill()
        self.study = Study(self.environment)
        self.addCleanup(self.study.close)
        self.keyboard = self.study.keyboard
        self.study.await_element(CONTINUE)
        time.sleep(1.2)  # until a press counts

    def take_up(self):
        self.study.click(CONTINUE)
        self.study.await_focus("Type the sentence here")

    def states(self):
        with open(JOURNAL, encoding="utf-8") as file:
            lines = [json.loads(line) for line in file if line.endswith("\n")]
        return [line["state"] for line in lines if "state" in line]

    def test_a_killed_session_goes_on_where_it_was(self):
        seed = int(os.environ.get("SEED", "1"))
        chance = random.Random(seed)
        self.study.go_to_session1()
        typed = ""
        for _ in range(3):
            texts = []
            for word in ["she ", "sells ", "shells "]:
                self.keyboard.type(word)
                typed += word
                texts.append((time.monotonic(), typed))
                time.sleep(chance.uniform(0, 0.7))
            self.study.await_text(typed)
            killed = time.monotonic()
            self.kill_and_start_again()
            self.take_up()
            text = self.study.text()
            self.assertTrue(typed.startswith(text), text)
            old_enough = [text for when, text in texts if killed - when > BEHIND]
            self.assertGreaterEqual(len(text), len(old_enough[-1]) if old_enough else 0)
            self.assertEqual(self.study.caret(), len(text))
            typed = text
        report = self.finish()
        # Keys and text agree: each counted once, none lost in between.
        self.assertIn(f"Raw Typed: {typed}\n", report)
        self.assertIn(f"Corrected: {typed}\n", report)
        self.assertIn(f"Keystrokes:       {len(typed)}\n", report)
        wait_for(lambda: not os.path.exists(JOURNAL), "the end of the journal")

    def finish(self):
        self.study.click("Done — Continue to Session 2")
        self.study.await_element("Done — See Results")
        self.study.await_focus("Type the sentence here")
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        return self.study.report(self.folder)

    def test_correction_log_and_suggestions_are_there_again(self):
        self.study.go_to_session1()
        self.keyboard.type("helo helo")
        self.study.await_text("hello helo")
        self.await_kept("hello helo")
        self.kill_and_start_again()
        self.take_up()
        self.study.await_element("Apply hello")
        # The word begun before is ended and corrected.
        self.keyboard.type(" ")
        self.study.await_text("hello hello ")
        report = self.finish()
        self.assertIn("Auto-corrections: 2\n", report)
        self.assertIn("Raw Typed: helo helo \n", report)

    def await_kept(self, raw_text):
        """Until nothing is left to be written: two looks at the file are the same."""
        def is_quiet():
            before = os.path.getsize(JOURNAL)
            time.sleep(BEHIND)
            return os.path.getsize(JOURNAL) == before
        wait_for(is_quiet, f"the journal of {raw_text!r}")

    def test_starting_afresh_forgets(self):
        self.study.go_to_session1()
        self.keyboard.type("she ")
        self.study.await_text("she ")
        self.await_kept("she ")
        self.assertEqual(os.stat(JOURNAL).st_mode & 0o777, 0o600)
        self.assertEqual(os.stat(FOLDER).st_mode & 0o777, 0o700)
        self.kill_and_start_again()
        self.study.click(AFRESH)
        self.study.await_absence(AFRESH)
        self.study.await_focus("Start")
        self.assertFalse(os.path.exists(JOURNAL))
