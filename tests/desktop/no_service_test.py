"""The accessibility service is missing, or goes away."""

import os
import signal
import time
import unittest

from gi.repository import Gio, GLib

from editor import UnseenMousepad
from elsewhere_case import ElsewhereTest
from physical_keyboard import PhysicalKeyboard
from program import BUILD, Program, wait_for


def find_accessibility_bus():
    """The process number of its daemon."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address, = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                 None, None, Gio.DBusCallFlags.NONE, -1, None)
    bus = Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    bus.set_exit_on_close(False)
    name = "org.freedesktop.DBus"
    pid, = bus.call_sync(name, "/", name, "GetConnectionUnixProcessID",
                         GLib.Variant("(s)", (name,)), None, Gio.DBusCallFlags.NONE, -1, None)
    return pid


class NoBus(unittest.TestCase):
    def test_other_windows_come_to_the_front_and_are_typed_into(self):
        study = Program([os.path.join(BUILD, "mirvanetest")],
                        {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"})
        self.addCleanup(study.close)
        study.activate()
        editor = UnseenMousepad()
        self.addCleanup(editor.close)
        for program in (editor, study, editor):
            program.activate()
            time.sleep(0.5)
        keyboard = PhysicalKeyboard()
        keyboard.type("helo wrld ")
        self.assertEqual(editor.text_saved_by(keyboard), "helo wrld ")
        self.assertTrue(study.is_running)


class BusGoes(ElsewhereTest):
    def test_while_another_program_is_typed_into(self):
        editor = self.open(kind=UnseenMousepad)
        self.type("helo he")
        daemon = find_accessibility_bus()
        os.kill(daemon, signal.SIGKILL)
        wait_for(lambda: not os.path.exists(f"/proc/{daemon}"), "the end of the bus")
        self.type("lo and teh ")
        self.study.request_activation()
        self.type("abc ")
        editor.request_activation()  # the gate may want to be in front
        self.type("teh ")
        editor.activate()
        self.type("and wrld ")
        # Which keys came while the study was in front is a matter of ms.
        self.assertRegex(editor.text_saved_by(self.keyboard),
                         "^hell?o hell?o and t(eh|he) a?b?c? ?t?e?h? ?and (wrld|world) $")
        self.assertTrue(self.study.is_running)


if __name__ == "__main__":
    unittest.main(verbosity=2)
