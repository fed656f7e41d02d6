"""A desktop portal of our own: portal.py ANSWER

Answers SaveFile with the URI or the word in ANSWER: "cancel", "refuse" (an error), "hang" (no panel
ever comes) or "die" (ends once it is asked). Prints what it was asked, one JSON object a line."""

import json
import os
import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = Gio.DBusNodeInfo.new_for_xml("""
<node><interface name="org.freedesktop.portal.FileChooser"><method name="SaveFile">
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/>
<arg type="o" direction="out"/></method></interface></node>""").interfaces[0]


def save_file(bus, sender, _path, _interface, _method, parameters, invocation):
    parent, title, options = parameters.unpack()
    print(json.dumps({"parent": parent, "title": title, **options}), flush=True)
    answer = sys.argv[1]
    if answer == "die":
        os._exit(0)
    if answer == "refuse":
        invocation.return_dbus_error("org.freedesktop.portal.Error.Failed", "no backend")
        return
    request = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
    invocation.return_value(GLib.Variant("(o)", (request,)))
    if answer == "hang":
        return
    uris = [] if answer == "cancel" else [answer]
    results = (1 if answer == "cancel" else 0, {"uris": GLib.Variant("as", uris)})
    bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                    GLib.Variant("(ua{sv})", results))


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object(PATH, INTERFACE, save_file, None, None)
Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE,
                               lambda *_: print("ready", flush=True), None)
GLib.MainLoop().run()
