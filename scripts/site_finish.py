#!/usr/bin/env -S python3 -B
"""Adds what doxygen leaves out of its pages for people who hear them or use keys alone:
site_finish.py FOLDER

The language, a way past the navigation, the title as the heading above all others, what pictures show,
and the name of the field of the search, whose results it opens and makes large enough to read.
"""
import html
import pathlib
import re
import sys

PICTURE = re.compile(r'(<div class="image">\n<(?:img|object)[^>]*?)(?: alt="")?(/?>(?:</object>)?'
                     r'\n<div class="caption">\n(.*?)</div>)', re.S)
INLINE = re.compile(r'(<img src="[^"]*") alt="" (class="inline" title=("[^"]*"))')
TITLE = re.compile(r'<div class="title">([^<]*)')
CODE = re.compile(r"<code>((?:[^<&]|&\w+;){1,24})</code>")
HEADING = re.compile(r"<(/?)h([1-5])>")
RESULTS = """
.SRPage .SREntry, .SRPage .SRStatus { font-size: 15px; padding: 3px 5px; }
.SRSymbol, a.SRScope, span.SRScope { font-family: sans-serif; }
a.SRScope { padding: 3px 0; }
a.SRSymbol:focus, a.SRScope:focus { outline: 2px solid #425E97; }
"""


UNTITLED = re.compile(r"<title>[^:]*: ([^<]*)</title>(?!.*<div class=\"title\">)(.*)"
                      r"(<div class=\"contents\">)", re.S)


def titled(text):
    """A list of members, which has no title of its own, with that of its window."""
    found = UNTITLED.search(text)
    if not found:
        return text
    header = f'<div class="header"><div class="headertitle"><div class="title">{found[1]}</div></div></div>'
    text = text[:found.start(3)] + header + "\n" + text[found.start(3):]
    return text.replace("<h3>", "<h2>").replace("</h3>", "</h2>")


def unbroken(code):
    """Short code, which does not break at its spaces and hyphens: what it is depends on its length."""
    kind = "word" if len(html.unescape(code[1])) <= 10 else "phrase"
    return f'<code class="{kind}">{code[1]}</code>'


def finished(text):
    text = titled(text)
    text = text.replace("<html ", '<html lang="en" ', 1)
    text = TITLE.sub(lambda title: '<div class="title" role="heading" aria-level="1">'
                     + title[1].replace("::", "::<wbr/>"), text)
    text = text.replace("<body>", '<body><a class="skip" href="#doc-content">Skip to the text</a>', 1)
    text = text.replace('<div id="doc-content">', '<div id="doc-content" tabindex="-1">', 1)
    text = PICTURE.sub(r'\1 tabindex="-1" role="img" aria-label="\3"\2', text)
    text = CODE.sub(unbroken, text)
    text = INLINE.sub(r"\1 alt=\3 \2", text)
    if "<h1>" in text:  # a page: its sections are below its title
        text = HEADING.sub(lambda tag: f"<{tag[1]}h{int(tag[2]) + 1}>", text)
    return text


def main(folder):
    folder = pathlib.Path(folder)
    # The single-file page in a folder of its own is complete.
    for path in (*folder.glob("*.html"), *folder.glob("search/*.html")):
        path.write_text(finished(path.read_text(encoding="utf-8")), encoding="utf-8")
    for name, old, new in (
            ("menu.js", 'id="MSearchField"', 'id="MSearchField" aria-label="Search"'),
            ("search/search.js", "setClassAttr(srChildren,'SRChildren');",
             "setClassAttr(srChildren,'SRChildren'); srChildren.style.display = 'block';"),
            ("search/search.css", "", RESULTS)):
        text = (folder / name).read_text(encoding="utf-8")
        (folder / name).write_text(text.replace(old, new) if old else text + new, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
