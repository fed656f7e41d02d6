"""A window with one text field of GTK: gtk_field.py text|password"""

import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk  # noqa: E402

window = Gtk.Window(title="Field of GTK")
window.add(Gtk.Entry(visibility=sys.argv[1] != "password", width_chars=60))
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
