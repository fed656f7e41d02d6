"""A desktop's settings portal on the private bus, that answers what a test sets.

As a program it answers until it is ended: settings_portal.py COLOR_SCHEME CONTRAST [silent|old].
Each line on its standard input, KEY VALUE, changes a setting.
"""

import sys
import threading

from gi.repository import Gio, GLib

PATH = "/org/freedesktop/portal/desktop"
NAME = "org.freedesktop.portal.Settings"
SPACE = "org.freedesktop.appearance"
METHODS = """<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
  <method name="ReadOne"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


def main():
    settings = {"color-scheme": int(sys.argv[1]), "contrast": int(sys.argv[2])}
    manner = sys.argv[3] if len(sys.argv) > 3 else "new"
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def answer(_bus, _sender, _path, _interface, method, parameters, invocation):
        print("asked", flush=True)
        if manner == "silent":
            return
        if manner == "old" and method == "ReadOne":
            invocation.return_dbus_error("org.freedesktop.DBus.Error.UnknownMethod", "too new")
            return
        value = GLib.Variant("u", settings[parameters[1]])
        if method == "Read":
            value = GLib.Variant("v", value)
        invocation.return_value(GLib.Variant.new_tuple(GLib.Variant("v", value)))

    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(METHODS).interfaces[0], answer, None,
                        None)

    def change(line):
        key, _, value = line.strip().partition(" ")
        settings[key] = int(value)
        bus.emit_signal(None, PATH, NAME, "SettingChanged", GLib.Variant(
            "(ssv)", (SPACE, key, GLib.Variant("u", int(value)))))

    def read_changes():
        for line in sys.stdin:
            GLib.idle_add(change, line)

    threading.Thread(target=read_changes, daemon=True).start()
    Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                                   lambda *_: print("ready", flush=True), None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
