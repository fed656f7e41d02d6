"""What the user's settings change in other programs."""

import json
import os
import unittest

from editor import GtkField, Mousepad
from elsewhere_case import ElsewhereTest, raw_typed

PATH = os.path.join(os.environ["XDG_CONFIG_HOME"], "mirvanetest", "defaults.json")


class DisabledApplications(ElsewhereTest):
    disabled = ["org.xfce.mousepad"]  # what its windows call it

    def setUp(self):
        os.makedirs(os.path.dirname(PATH), exist_ok=True)
        with open(PATH, "w", encoding="utf-8") as file:
            json.dump({"disabledAppBundleIDs": self.disabled}, file)
        self.addCleanup(os.remove, PATH)
        super().setUp()

    def test_nothing_is_corrected_in_one_and_all_is_in_the_others(self):
        editor = self.open(kind=Mousepad)
        self.type("teh wrld ")
        self.assertEqual(editor.settled_text(), "teh wrld ")
        field = self.open(kind=GtkField)
        self.type("teh wrld ")
        field.await_text("the world ")
        editor.activate()
        self.type("becuase ")
        self.assertEqual(editor.settled_text(), "teh wrld becuase ")


class OtherDisabledApplications(DisabledApplications):
    disabled = ["Gtk_field.py"]  # the class of its window, which has no other name

    def test_nothing_is_corrected_in_one_and_all_is_in_the_others(self):
        """The other way round, which shows that it is the setting that disables corrections."""
        editor = self.open(kind=Mousepad)
        self.type("teh wrld ")
        editor.await_text("the world ")
        field = self.open(kind=GtkField)
        self.type("teh wrld ")
        self.assertEqual(field.settled_text(), "teh wrld ")


if __name__ == "__main__":
    unittest.main(verbosity=2)
