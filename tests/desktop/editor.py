"""Programs that a participant may type into beside the study."""

import os
import tempfile



from program import Program, await_text, text_of, wait_for


class Editor(Program):
    """An editor with one document open, and a home of its own."""

    command = ()
    unit = "utf-32-le"  # of its offsets: characters or UTF-16 units

    def __init__(self, text="", environment=None):
        self.home = tempfile.mkdtemp(prefix="editor", dir=os.environ["HOME"])
        self.path = os.path.join(self.home, "document.txt")
        self.write_file(self.path, text)
        super().__init__([*self.command, self.address_of_document()], {
            "HOME": self.home, "XDG_CONFIG_HOME": os.path.join(self.home, ".config"),
            **(environment or {})})

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
        return self

    def close(self):
        """Without the question whether to save."""
        self.kill()

    def text(self):
        return text_of(self.element)

    def await_text(self, wanted):
        await_text(self.text, wanted, type(self).__name__)

    def caret(self):
        return self.element.get_text_iface().get_caret_offset()

    def length(self, text):
        """As this editor counts."""
        return len(text.encode(self.unit)) // len(" ".encode(self.unit))


class Mousepad(Editor):
    command = ("mousepad", "--disable-server")


class Featherpad(Editor):
    command = ("featherpad", "--standalone")
    unit = "utf-16-le"


class GnomeTextEditor(Editor):
    command = ("gnome-text-editor", "--standalone")


class Kate(Editor):
    command = ("kate", "--startanon", "--new")
    unit = "utf-16-le"


class WebPage(Editor):
    def address_of_document(self):
        with open(self.path, encoding="utf-8") as file:
            text = file.read()
        page = os.path.join(self.home, "page.html")
        self.write_file(page, "<!DOCTYPE html><meta charset=utf-8><title>Page</title>"
                              f"<textarea autofocus rows=20 cols=80>{text}</textarea>")
        return "file://" + page


class Firefox(WebPage):
    command = ("firefox-esr", "--no-remote", "--new-instance")


class Chromium(WebPage):
    command = ("chromium", "--no-sandbox", "--no-first-run", "--force-renderer-accessibility")
