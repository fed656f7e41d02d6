"""The pieces of the page. Every text that comes in is escaped."""

from html import escape

STYLE = """
body { font: 1rem/1.5 "DejaVu Sans", sans-serif; color: #111; background: #fff;
       max-width: 75rem; margin: 1.5rem auto; padding: 0 1rem; }
p, li, figcaption { max-width: 48rem; }
figure { margin: 1.5rem 0; }
img { max-width: 100%; height: auto; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; margin: 1rem 0; font-size: .9rem; }
caption { text-align: left; font-weight: bold; padding: .4rem 0; }
th, td { border: 1px solid #767676; padding: .3rem .5rem; text-align: left; vertical-align: top; }
thead th { background: #eee; }
@media print { section { break-inside: auto; } figure, tr { break-inside: avoid; } }
""".strip()


def page(title, sections):
    return ("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            f"<title>{escape(title)}</title>\n<style>\n{STYLE}\n</style>\n</head>\n<body>\n<main>\n"
            f"<h1>{escape(title)}</h1>\n" + "".join(sections) + "</main>\n</body>\n</html>\n")


def section(title, *parts):
    return f"<section>\n<h2>{escape(title)}</h2>\n" + "".join(parts) + "</section>\n"


def paragraph(text):
    return f"<p>{escape(text)}</p>\n"


def items(texts):
    return "<ul>\n" + "".join(f"<li>{escape(text)}</li>\n" for text in texts) + "</ul>\n"


def figure(source, alt, caption):
    return (f"<figure>\n<img src=\"{escape(source)}\" alt=\"{escape(alt)}\">\n"
            f"<figcaption>{escape(caption)}</figcaption>\n</figure>\n")


def table(caption, heads, rows):
    head = "".join(f"<th scope=\"col\">{escape(text)}</th>" for text in heads)
    body = "".join(_row(row) for row in rows)
    # With a name and in the Tab order, so that it can be scrolled by keyboard on a small screen.
    return ("<div class=\"scroll\" role=\"region\" tabindex=\"0\" "
            f"aria-label=\"{escape(caption)}\">\n<table>\n"
            f"<caption>{escape(caption)}</caption>\n<thead><tr>{head}</tr></thead>\n"
            f"<tbody>\n{body}</tbody>\n</table>\n</div>\n")


def _row(cells):
    first = f"<th scope=\"row\">{escape(cells[0])}</th>"
    return "<tr>" + first + "".join(f"<td>{escape(cell)}</td>" for cell in cells[1:]) + "</tr>\n"
