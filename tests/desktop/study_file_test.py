"""Studies that a team has set up in a file of its own, and the command line."""

import json
import os
import subprocess
import tempfile
import time
import unittest

from editor import Mousepad
from elsewhere_case import ElsewhereTest, raw_typed
from program import BUILD, wait_for
from study import Study
from study_case import StudyTest

PROGRAM = os.path.join(BUILD, "mirvanetest")


def study_file(**fields):
    """The path of a study file with these fields."""
    descriptor, path = tempfile.mkstemp(suffix=".json", dir=os.environ["HOME"])
    with open(descriptor, "w", encoding="utf-8") as file:
        json.dump(fields, file)
    return path


class CommandLine(unittest.TestCase):
    def call(self, *arguments):
        nowhere = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        return subprocess.run([PROGRAM, *arguments], env=nowhere, capture_output=True, text=True,
                              check=False)

    def test_help_and_version_need_no_display(self):
        self.assertIn("--participant", self.call("--help").stdout)
        self.assertRegex(self.call("--version").stdout, r"^mirvanetest \d+\.\d+\.\d+\n$")
        self.assertEqual(self.call("--version").returncode, 0)

    def test_unknown_arguments_are_refused_before_a_display_is_looked_for(self):
        answer = self.call("--studdy", "x.json")
        self.assertEqual(answer.returncode, 2)
        self.assertIn("--studdy", answer.stderr)
        self.assertEqual(answer.stdout, "")


class ControlCondition(StudyTest):
    def setUp(self):
        self.arguments = ("--study", study_file(
            automaticCorrection=False, prompts=["One line to type.", "Another line."],
            contactAddress="team@study.example"))
        super().setUp()

    def test_practice_is_passed_and_sessions_correct_nothing(self):
        self.study.go_to_session1()
        self.study.await_element("One line to type.")
        self.keyboard.type("helo ")
        self.study.await_text("helo ")
        time.sleep(0.3)
        self.assertEqual(self.study.text(), "helo ")
        self.assertEqual(self.study.chips(), [])

    def test_the_switch_is_not_stored(self):
        self.study.go_to_session1()
        self.study.close()
        again = Study()
        self.addCleanup(again.close)
        again.go_to_session1()
        self.keyboard.type("helo ")
        again.await_text("hello ")


class DamagedStudyFile(unittest.TestCase):
    def test_is_named_in_the_window_and_no_study_begins(self):
        path = study_file(prompts="One line.")
        study = Study(arguments=("--study", path))
        self.addCleanup(study.close)
        study.await_element("This study cannot begin")
        shown = [element.get_name() for element in study.elements()]
        self.assertTrue(any(path in name and "prompts" in name for name in shown), shown)
        self.assertIsNone(study.find("Start"))
        study.await_focus("Close")
        study.keyboard.type("\r")
        wait_for(lambda: not study.is_running, "its end")
        self.assertEqual(study.exit_code, 2)


class OwnWindowsOnly(ElsewhereTest):
    def setUp(self):
        self.arguments = ("--study", study_file(watchOtherPrograms=False,
                                                contactAddress="study@mirvane.example"))
        super().setUp()

    def test_other_programs_are_neither_corrected_nor_recorded(self):
        editor = self.open(kind=Mousepad)
        self.type("teh wrld ")
        self.assertEqual(editor.settled_text(), "teh wrld ")
        self.assertNotIn("teh", raw_typed(self.report()))


if __name__ == "__main__":
    unittest.main(verbosity=2)
