"""The window is closed, the program is told to end, and the disk is full."""

import os
import signal
import subprocess
import time
import unittest

from keyboard import LEFT_ALT
from program import wait_for
from study import Study, set_accessibility
from study_case import StudyTest

QUESTION = "Your typing has not been saved yet."
F4 = 70


class Closing(StudyTest):
    def setUp(self):
        super().setUp()
        self.study.go_to_session1()

    def close_window(self):
        self.study.close_window()
        self.study.await_element(QUESTION)
        self.study.await_focus("Stay")

    def await_end(self):
        wait_for(lambda: not self.study.is_running, "the end of the program")
        return self.study.exit_code

    def test_with_nothing_typed_it_closes_at_once(self):
        self.study.close_window()
        self.assertEqual(self.await_end(), 0)

    def test_typing_is_kept_until_closing_is_chosen(self):
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        self.close_window()
        self.study.await_enabled("Stay")
        self.keyboard.type("\r")
        self.study.await_absence("Stay")
        self.study.await_focus("Type the sentence here")
        self.keyboard.type("wrld ")
        self.assertTrue(self.study.text().startswith("hello "))
        self.close_window()
        self.study.click("Close Without Saving")
        self.assertEqual(self.await_end(), 0)

    def test_closing_the_question_stays(self):
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        self.close_window()
        self.study.close_window()  # the question is the newest window
        self.study.await_absence("Stay")
        self.close_window()
        self.keyboard.down(LEFT_ALT)
        self.keyboard.strike(F4)
        self.keyboard.up(LEFT_ALT)
        self.study.await_absence("Stay")
        self.assertTrue(self.study.is_running)
        self.assertEqual(self.study.text(), "hello ")

    def test_signals_end_it_properly_also_while_it_asks_and_the_typing_is_kept(self):
        text = ""
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(number.name):
                self.keyboard.type("she ")
                text += "she "
                self.study.await_text(text)
                if number == signal.SIGINT:
                    self.close_window()
                os.kill(self.study.pid, number)
                self.assertEqual(self.await_end(), 128 + number)
            self.go_on()
            self.study.await_text(text)

    def go_on(self):
        # What runs in a shell's background ignores SIGINT, and so does what it starts.
        self.study = Study(inside=["env", "--default-signal=INT"])
        self.addCleanup(self.study.close)
        self.study.click("Continue where you stopped")
        self.study.await_focus("Type the sentence here")


class Withdrawn(StudyTest):
    def test_what_has_been_typed_can_be_saved_and_a_space_presses_nothing(self):
        self.study.go_to_session1()
        self.keyboard.type("helo ")
        self.study.await_text("hello ")
        set_accessibility(False)
        self.study.await_element("Accessibility required")
        self.study.await_enabled("Allow")
        self.keyboard.type("  ")
        time.sleep(0.5)
        self.assertIsNone(self.study.find("Don't Allow"))
        path = os.path.join(self.folder, "result.txt")
        self.study.save_as(path)
        wait_for(lambda: os.path.exists(path), "the report")
        with open(path, encoding="utf-8") as file:
            self.assertIn("Raw Typed: helo \n", file.read())


class FullDisk(unittest.TestCase):
    """The study finds a file system of its own, of a few pages, that is full."""

    FULL_DISK = """mount -t tmpfs -o size=16k full "$1" && head -c 100000 /dev/zero >"$1/filler"
                   exec unshare --user --map-user="$2" --map-group="$3" "$4" """

    def setUp(self):
        if subprocess.run(["unshare", "-Urm", "true"], capture_output=True).returncode != 0:
            self.skipTest("this system makes no namespaces")
        set_accessibility(True)
        self.folder = os.path.join(os.environ["HOME"], "full")
        os.makedirs(self.folder, exist_ok=True)
        self.study = Study(inside=["unshare", "-Urm", "sh", "-c", self.FULL_DISK, "full-disk",
                                   self.folder, str(os.getuid()), str(os.getgid())])
        self.addCleanup(self.study.close)

    def test_a_failed_save_is_told_and_leaves_nothing(self):
        self.study.go_to_results()
        self.study.save_as(os.path.join(self.folder, "result.txt"))
        self.study.await_element("No space left on device")
        self.assertIsNone(self.study.find("Saved ✓"))
        self.assertEqual(os.listdir(f"/proc/{self.study.pid}/root{self.folder}"), ["filler"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
