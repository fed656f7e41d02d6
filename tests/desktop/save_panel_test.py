"""The panel for saving: the study's own, and the desktop's behind its portal."""

import json
import os
import subprocess
import sys
import unittest

from keyboard import CONTROL
from study_case import StudyTest

MESSAGE = "Save result and send to study@mirvane.example"


class SavePanel(StudyTest):
    def setUp(self):
        super().setUp()
        self.study.go_to_results()
        self.documents = os.path.join(os.environ["HOME"], "Documents")

    def saved(self, folder):
        return [name for name in os.listdir(folder) if name.startswith("MirvaneTest_")]

    def rename(self, path):
        self.study.await_focus("File name")
        self.keyboard.chord(CONTROL, "a")
        self.keyboard.type(path)
        self.study.await_text(path, "File name")


class OwnPanel(SavePanel):
    def open_panel(self):
        self.study.click("Save Results…" if self.study.find("Save Results…") else "Saved ✓")
        self.study.await_element(MESSAGE)
        self.study.await_enabled("Cancel")

    def test_by_keyboard_alone(self):
        os.makedirs(os.path.join(self.documents, "inner"), exist_ok=True)
        self.study.press_by_keyboard("Save Results…")
        self.study.await_focus("File name")
        self.study.await_enabled("Cancel")
        self.keyboard.type("\t\t\t")  # Save, Cancel, the folders
        self.keyboard.strike(116)  # the arrow down: from the way up to "inner"
        self.keyboard.type("\r")
        self.study.await_element(f"Folder: {self.documents}/inner")
        self.keyboard.type("\t")
        self.study.await_focus("File name")
        self.keyboard.type("\r")
        self.study.await_element("Saved ✓")
        self.assertEqual(len(self.saved(os.path.join(self.documents, "inner"))), 1)

    def test_by_mouse_and_what_is_shown_afterwards(self):
        before = set(self.saved(self.documents))
        self.open_panel()
        self.study.click("Save")
        self.study.await_element("Saved ✓")
        name, = set(self.saved(self.documents)) - before
        self.study.await_element(f"The result is saved as {self.documents}/{name}")
        self.study.await_element("Open Folder")

    def test_existing_file_is_kept_unless_it_may_be_replaced(self):
        path = os.path.join(self.documents, "mine.txt")
        with open(path, "w", encoding="utf-8") as file:
            file.write("old")
        self.open_panel()
        self.rename("mine")
        self.keyboard.type("\r")
        self.study.await_focus("Keep it and choose another name")
        self.keyboard.type("\x1b")
        self.study.await_focus("File name")
        with open(path, encoding="utf-8") as file:
            self.assertEqual(file.read(), "old")
        self.study.click("Save")
        self.study.click("Replace it")
        self.study.await_element("Saved ✓")
        with open(path, encoding="utf-8") as file:
            self.assertIn("Session Results", file.read())

    def test_cancel_saves_nothing(self):
        before = self.saved(self.documents)
        self.open_panel()
        self.study.click("Cancel")
        self.study.await_absence(MESSAGE)
        self.study.await_element("Save Results…")
        self.assertEqual(self.saved(self.documents), before)


class Portal(SavePanel):
    def serve(self, answer):
        portal = subprocess.Popen([sys.executable, "portal.py", answer], text=True,
                                  stdout=subprocess.PIPE)
        self.addCleanup(portal.stdout.close)
        self.addCleanup(portal.wait)
        self.addCleanup(portal.kill)
        self.assertEqual(portal.stdout.readline(), "ready\n")
        return portal

    def save_in_own_panel(self):
        before = self.saved(self.documents)
        self.study.await_element("Folder: " + self.documents)
        self.study.click("Save")
        self.study.await_element("Saved ✓")
        self.assertEqual(len(self.saved(self.documents)), len(before) + 1)

    def test_panel_of_the_desktop_is_asked_and_gets_the_suffix(self):
        portal = self.serve(f"file://{self.folder}/a%20b.csv")
        self.study.click("Save Results…")
        self.study.await_element("Saved ✓")
        self.assertEqual(os.listdir(self.folder), ["a b.csv.txt"])
        asked = json.loads(portal.stdout.readline())
        self.assertRegex(asked["parent"], "^x11:[0-9a-f]+$")
        self.assertEqual(asked["title"], MESSAGE)
        self.assertEqual(asked["accept_label"], "Save")
        self.assertRegex(asked["current_name"], r"^MirvaneTest_.*Z\.txt$")
        self.assertEqual(bytes(asked["current_folder"]), self.documents.encode() + b"\0")
        self.assertEqual(asked["filters"], [["Plain text", [[0, "*.txt"]]]])

    def test_cancelling_it_saves_nothing(self):
        portal = self.serve("cancel")
        self.study.click("Save Results…")
        self.assertTrue(portal.stdout.readline())
        self.study.await_absence("Choose a place for the file")
        self.study.await_element("Save Results…")
        self.assertIsNone(self.study.find("File name"))

    def test_own_panel_comes_when_it_refuses(self):
        self.serve("refuse")
        self.study.click("Save Results…")
        self.save_in_own_panel()

    def test_own_panel_comes_when_it_dies(self):
        self.serve("die")
        self.study.click("Save Results…")
        self.save_in_own_panel()

    def test_own_panel_can_be_had_when_it_never_answers(self):
        self.serve("hang")
        self.study.click("Save Results…")
        self.study.click("Choose here")
        self.save_in_own_panel()


if __name__ == "__main__":
    unittest.main(verbosity=2)
