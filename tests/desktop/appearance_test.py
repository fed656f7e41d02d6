"""The study's colours follow the desktop's settings portal."""

import subprocess
import sys
import unittest

from Xlib import X, display

from program import wait_for
from study import Study, set_accessibility

NO_PREFERENCE, DARK, LIGHT = 0, 1, 2
WHITE, BLACK = (255, 255, 255), (0, 0, 0)


class Portal:
    """Runs settings_portal.py."""

    def __init__(self, color_scheme, contrast=0, manner="new"):
        self._process = subprocess.Popen(
            [sys.executable, "settings_portal.py", str(color_scheme), str(contrast), manner],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.await_line("ready")

    def await_line(self, wanted):
        while self._process.stdout.readline().strip() != wanted:
            pass

    def change(self, key, value):
        self._process.stdin.write(f"{key} {value}\n")
        self._process.stdin.flush()

    def end(self):
        self._process.kill()
        self._process.communicate()


class Appearance(unittest.TestCase):
    def setUp(self):
        set_accessibility(True)

    def start_portal(self, *arguments):
        portal = Portal(*arguments)
        self.addCleanup(portal.end)
        return portal

    def start_study(self):
        self.study = Study()
        self.addCleanup(self.study.close)
        self.study.await_element("Start")

    def window_color(self):
        """Of the window beside its texts, as it stands on the screen."""
        box = self.study.await_element("Introduction").get_component_iface().get_extents(0)
        root = display.Display().screen().root
        blue, green, red, _ = root.get_image(box.x - 30, box.y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
        return red, green, blue

    def await_look(self, fits, what):
        try:
            wait_for(lambda: fits(self.window_color()), what)
        except AssertionError:
            raise AssertionError(f"{what} is not shown: {self.window_color()}") from None

    def await_dark(self):
        self.await_look(lambda color: max(color) < 80 and color != BLACK, "a dark window")

    def await_light(self):
        self.await_look(lambda color: min(color) > 200 and color != WHITE, "a light window")

    def test_follows_the_portal_from_the_start_and_live(self):
        portal = self.start_portal(DARK)
        self.start_study()
        self.await_dark()
        portal.change("color-scheme", LIGHT)
        self.await_light()
        portal.change("contrast", 1)
        self.await_look(lambda color: color == WHITE, "white")
        portal.change("color-scheme", DARK)
        self.await_look(lambda color: color == BLACK, "black")
        portal.change("contrast", 0)
        self.await_dark()
        portal.change("color-scheme", NO_PREFERENCE)
        self.await_light()

    def test_understands_an_older_portal(self):
        self.start_portal(DARK, 0, "old")
        self.start_study()
        self.await_dark()

    def test_starts_while_the_portal_says_nothing_and_outlives_its_death(self):
        portal = self.start_portal(DARK, 0, "silent")
        self.start_study()
        portal.await_line("asked")
        self.await_light()
        portal.end()
        self.start_portal(NO_PREFERENCE).change("color-scheme", DARK)
        self.await_dark()

    def test_starts_without_a_portal(self):
        self.start_study()
        self.await_light()


if __name__ == "__main__":
    unittest.main(verbosity=2)
