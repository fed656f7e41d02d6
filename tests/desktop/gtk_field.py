"""A window with a text field of GTK that shows a file: gtk_field.py [OPTION...] FILE"""

import argparse

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402


def parse_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--user-name", action="store_true", help="a field for it above")
    parser.add_argument("--password", action="store_true", help="F2 or its icon shows it")
    parser.add_argument("--upper-case", action="store_true", help="whatever is typed")
    parser.add_argument("--max-length", type=int, default=0, metavar="CHARACTERS")
    parser.add_argument("file", type=argparse.FileType(encoding="utf-8"))
    return parser.parse_args()


class UpperCaseEntry(Gtk.Entry, Gtk.Editable):
    def do_insert_text(self, text, _length, position):
        return position + self.get_buffer().insert_text(position, text.upper(), -1)


def make_field(options):
    kind = UpperCaseEntry if options.upper_case else Gtk.Entry
    field = kind(max_length=options.max_length, width_chars=60, text=options.file.read())
    if options.password:
        hide(field)
    return field


def hide(field):
    field.set_visibility(False)
    field.set_icon_from_icon_name(Gtk.EntryIconPosition.SECONDARY, "view-reveal-symbolic")
    field.connect("icon-press", lambda *_: field.set_visibility(True))
    field.connect("key-press-event", lambda _, event:
                  event.keyval == Gdk.KEY_F2 and field.set_visibility(True))


arguments = parse_arguments()
window = Gtk.Window(title="Field of GTK")
form = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
window.add(form)
if arguments.user_name:
    form.add(Gtk.Entry())
form.add(make_field(arguments))
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
