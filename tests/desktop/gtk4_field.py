"""A form of GTK 4: gtk4_field.py --user-name [--password | --password-row] FILE"""

import argparse

import gi

gi.require_version("Adw", "1")
gi.require_version("Gtk", "4.0")
from gi.repository import Adw, Gtk  # noqa: E402


def parse_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--user-name", action="store_true", required=True)
    parser.add_argument("--password", action="store_true")
    parser.add_argument("--password-row", action="store_true", help="the field of a list")
    parser.add_argument("file")
    return parser.parse_args()


def show(application, options):
    form = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
    form.append(Gtk.Entry())
    if options.password:
        form.append(Gtk.PasswordEntry())
    if options.password_row:
        rows = Gtk.ListBox(selection_mode=Gtk.SelectionMode.NONE)
        rows.append(Adw.PasswordEntryRow(title="Password"))
        form.append(rows)
    Gtk.ApplicationWindow(application=application, title="Form of GTK 4", child=form).present()


arguments = parse_arguments()
program = Adw.Application()
program.connect("activate", show, arguments)
program.run()
