"""Programs that a participant may type into beside the study."""

import contextlib
import os
import re
import subprocess
import tempfile
import time

from gi.repository import Atspi, GLib

from keyboard import CONTROL
from program import BUILD, Program, await_text, text_of, wait_for

FOLDER = os.path.dirname(os.path.abspath(__file__))


class Editor(Program):
    """An editor with one document open, and a home of its own."""

    complaints = subprocess.DEVNULL
    command = ()
    unit = "utf-32-le"  # of its offsets: characters or UTF-16 units
    environment = {}  # beside that of the desktop
    starts_slowly = False  # and may lose the first keys, or show them late
    # Else it shows a key too late there for the word to be corrected.
    keeps_up_with_a_megabyte = True
    asks_whether_to_save = True
    # Keys that it has got and not dealt with yet.
    drops_keys_with_the_focus = False

    def __init__(self, text=""):
        self.element = None
        self.home = tempfile.mkdtemp(prefix="editor", dir=os.environ["HOME"])
        self.path = os.path.join(self.home, "document.txt")
        self.write_file(self.path, text)
        super().__init__([*self.command, self.address_of_document()], {
            "HOME": self.home, "XDG_CONFIG_HOME": os.path.join(self.home, ".config"),
            **self.environment})

    @classmethod
    def with_options(cls, *options):
        """The same program, started with these options too."""
        return type(cls.__name__, (cls,), {"command": (*cls.command, *options)})

    def address_of_document(self):
        return self.path

    def write_file(self, path, text):
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def await_ready(self):
        """Until it is in front and its document has the focus."""
        self.await_tree()
        self.activate()
        self.element = wait_for(self.focused_text_element, "the document")
        if self.starts_slowly:
            self.await_idle()
        return self

    def close(self):
        """Without the question whether to save."""
        self.kill()

    def text(self):
        return text_of(self.element)

    def end(self, length):
        """The last part of the text."""
        field = self.element.get_text_iface()
        count = field.get_character_count()
        return field.get_text(max(0, count - length), count)

    def await_text(self, wanted):
        await_text(self.text, wanted, type(self).__name__)

    def caret(self):
        return self.element.get_text_iface().get_caret_offset()

    def place_caret(self, before):
        """Behind this part of the text."""
        self.element.get_text_iface().set_caret_offset(self._length(before))

    def insert_in_front(self, text):
        """Of the whole document, as something else than keys would."""
        self.element.get_editable_text_iface().insert_text(0, text, len(text))

    def select(self, before, selected):
        """This part of the text, which stands behind `before`."""
        self.place_caret(before)  # Kate leaves it where it is
        start, end = self._length(before), self._length(before + selected)
        field = self.element.get_text_iface()
        with contextlib.suppress(GLib.Error):  # GTK 4 does it and does not answer
            field.add_selection(start, end)
        wait_for(lambda: field.get_n_selections() == 1, "the selection")

    def box(self):
        """Where its document stands on the screen."""
        def box():
            return self.element.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        wait_for(lambda: box().width > 0, "the place of the document")
        return box()

    def caret_is_at_the_end(self):
        return self.caret() == self.element.get_text_iface().get_character_count()

    def settled_text(self, quiet=0.5):
        """The text once nothing has changed in it for so many seconds."""
        text, since = self.text(), time.monotonic()
        while time.monotonic() < since + quiet:
            time.sleep(0.02)
            if self.text() != text:
                text, since = self.text(), time.monotonic()
        return text

    def _length(self, text):
        """As this editor counts."""
        return len(text.encode(self.unit)) // len(" ".encode(self.unit))


class Mousepad(Editor):
    command = ("mousepad", "--disable-server")


class UnseenMousepad(Mousepad):
    """Without accessibility: nobody can read or write its text from outside."""

    environment = {"NO_AT_BRIDGE": "1"}

    def await_ready(self):
        self.activate()
        return self

    def text_saved_by(self, keyboard):
        before = os.stat(self.path).st_mtime_ns
        keyboard.chord(CONTROL, "s")
        wait_for(lambda: os.stat(self.path).st_mtime_ns != before, "the saved document")
        with open(self.path, encoding="utf-8") as file:
            return file.read()


class Featherpad(Editor):
    command = ("featherpad", "--standalone")
    unit = "utf-16-le"


class GnomeTextEditor(Editor):
    command = ("gnome-text-editor", "--standalone")
    starts_slowly = True


class Kate(Editor):
    command = ("kate", "--startanon", "--new")
    starts_slowly = True
    drops_keys_with_the_focus = True  # behind the question whether to save
    unit = "utf-16-le"


class GtkField(Editor):
    """One line; its window closes without a question."""

    command = ("/usr/bin/python3", os.path.join(FOLDER, "gtk_field.py"))


class Gtk4Form(Editor):
    command = ("/usr/bin/python3", os.path.join(FOLDER, "gtk4_field.py"))
    starts_slowly = True


class QtField(Editor):
    command = (os.path.join(BUILD, "qt-field"),)
    unit = "utf-16-le"


class Terminal(Editor):
    """Whose text goes to a file. It is not on the accessibility bus."""

    command = ("xterm", "-e", "sh", "-c", 'cat > "$0"')

    def await_ready(self):
        self.activate()
        return self

    def text(self):
        with open(self.path, encoding="utf-8") as file:
            return file.read()


class WebPage(Editor):
    """A text area with the focus, in a browser."""

    starts_slowly = True
    asks_whether_to_save = False

    body = "<textarea autofocus rows=20 cols=80>{}</textarea>"

    def address_of_document(self):
        with open(self.path, encoding="utf-8") as file:
            text = file.read()
        page = os.path.join(self.home, "page.html")
        self.write_file(page, "<!DOCTYPE html><meta charset=utf-8><title>Page</title>"
                              + self.body.replace("{}", text))
        return "file://" + page


class Firefox(WebPage):
    command = ("firefox-esr", "--no-remote", "--new-instance")
    unit = "utf-16-le"

    def text(self):
        return super().text().replace("\ufeff", "")  # stands behind signs of two UTF-16 units


class Chromium(WebPage):
    command = ("chromium", "--no-sandbox", "--no-first-run", "--force-renderer-accessibility")
    keeps_up_with_a_megabyte = False
    drops_keys_with_the_focus = True


class PasswordPage(WebPage):
    """A password field, which shows its text once F2 or the eye at its end is pressed, and another
    line, two Tabs away."""

    shows = "field.type = 'text';"
    shows_another = """
        const shown = field.cloneNode();
        shown.type = 'text';
        field.replaceWith(shown);
        shown.focus();
        shown.setSelectionRange(99, 99);"""
    body = f"""
        <style>
          form {{ position: relative; width: 300px }}
          #field {{ box-sizing: border-box; width: 100%; height: 30px }}
          button {{ position: absolute; top: 0; right: 0; width: 30px; height: 30px }}
        </style>
        <form>
          <input id=field type=password autofocus value='{{}}'>
          <button type=button onclick='reveal()'>&#x1F441;</button>
        </form>
        <p><input size=40></p>
        <script>
          function reveal() {{ {shows} }}
          addEventListener('keydown', event => event.key == 'F2' && reveal());
        </script>"""

    @classmethod
    def that_replaces_its_field(cls):
        """The same page with another element for the shown password."""
        return type(cls.__name__, (cls,), {"body": cls.body.replace(cls.shows, cls.shows_another)})

    def text(self):
        """That of the element which is the field now."""
        return text_of(self.focused_text_element())


class PasswordFirefox(PasswordPage, Firefox):
    pass


class PasswordChromium(PasswordPage, Chromium):
    command = (*Chromium.command, "--incognito")  # else it saves what a field shows


class RichPage(WebPage):
    """A rich text, as web mail has it: its document is the HTML of the paragraphs."""

    body = "<div contenteditable autofocus>{}</div>"

    def text(self):
        """The paragraphs, one a line."""
        return "\n".join(map(_whole_text, self._paragraphs())).replace("\xa0", " ")

    def place_caret(self, before):
        *above, beginning = before.split("\n")
        paragraph = self._paragraphs()[len(above)]
        paragraph.get_text_iface().set_caret_offset(self._length(beginning))
        wait_for(lambda: paragraph.get_text_iface().get_caret_offset() >= 0, "the caret")

    def _paragraphs(self):
        return list(_embedded_in(self.element))


def _embedded_in(element):
    """What each U+FFFC in the text stands for."""
    element.clear_cache()
    links = element.get_hypertext_iface()
    return (links.get_link(index).get_object(0) for index in range(links.get_n_links()))


def _whole_text(element):
    embedded = map(_whole_text, _embedded_in(element))
    return re.sub("\ufffc", lambda _: next(embedded), text_of(element))


class RichFirefox(RichPage, Firefox):
    pass


class RichChromium(RichPage, Chromium):
    pass
