"""Corrections while the desktop filters keys: Slow Keys, Bounce Keys and Sticky Keys."""

import ctypes
import unittest

from editor import UnseenMousepad
from elsewhere_case import ElsewhereTest
from physical_keyboard import KeyWitness, find_xtest_keyboard
from program import wait_for

SLOW_KEYS, BOUNCE_KEYS, STICKY_KEYS = 1 << 1, 1 << 2, 1 << 3  # of the X Keyboard Extension
_CORE_KEYBOARD = 0x100


def switch_filters(filters):
    """Leaves exactly these on, with the server's own delays."""
    library = ctypes.CDLL("libX11.so.6")
    library.XOpenDisplay.restype = ctypes.c_void_p
    connection = ctypes.c_void_p(library.XOpenDisplay(None))
    library.XkbChangeEnabledControls(connection, _CORE_KEYBOARD,
                                     SLOW_KEYS | BOUNCE_KEYS | STICKY_KEYS, filters)
    library.XCloseDisplay(connection)


class KeyFilters(ElsewhereTest):
    def setUp(self):
        super().setUp()
        self.addCleanup(switch_filters, 0)

    def check(self, filters, keys_per_second=1, typed="helo teh ", shown="hello the "):
        """At one key a second a key is held, and released, longer than each filter asks for."""
        editor = self.open()
        switch_filters(filters)
        self.type(typed, keys_per_second)
        editor.await_text(shown)

    def check_unseen(self, filters, keys_per_second=1):
        """The same where only keys can replace a word."""
        editor = self.open(kind=UnseenMousepad)
        posted = KeyWitness(find_xtest_keyboard)
        switch_filters(filters)
        self.type("helo ", keys_per_second)
        wait_for(posted.take, "keys of the correction")
        wait_for(lambda: posted.is_quiet(1), "the last key of the correction")
        switch_filters(0)
        self.assertEqual(editor.text_saved_by(self.keyboard), "hello ")

    def test_slow_keys(self):
        self.check(SLOW_KEYS)

    def test_slow_keys_without_accessibility(self):
        """Nothing is typed: it would take seconds, with the participant's keys in between."""
        editor = self.open(kind=UnseenMousepad)
        posted = KeyWitness(find_xtest_keyboard)
        switch_filters(SLOW_KEYS)
        self.type("helo ", 1)
        self.assertTrue(posted.is_quiet(2))
        switch_filters(0)
        self.assertEqual(editor.text_saved_by(self.keyboard), "helo ")

    def test_bounce_keys(self):
        self.check(BOUNCE_KEYS)

    def test_bounce_keys_without_accessibility(self):
        self.check_unseen(BOUNCE_KEYS)

    def test_sticky_keys(self):
        self.check(STICKY_KEYS, 8, "Helo Teh ", "Hello The ")

    def test_sticky_keys_without_accessibility(self):
        self.check_unseen(STICKY_KEYS, 8)

    def test_no_filter_without_accessibility(self):
        self.check_unseen(0, 8)


if __name__ == "__main__":
    unittest.main(verbosity=2)
