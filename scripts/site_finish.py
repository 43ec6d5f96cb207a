#!/usr/bin/env -S python3 -B
"""Adds what doxygen leaves out of its pages for people who hear them: site_finish.py FOLDER

The language, the title as the heading above all others, what pictures show, and the name of the
field of the search.
"""
import pathlib
import re
import sys

PICTURE = re.compile(r'(<div class="image">\n<(?:img|object)[^>]*?)(?: alt="")?(/?>(?:</object>)?'
                     r'\n<div class="caption">\n(.*?)</div>)', re.S)
INLINE = re.compile(r'(<img src="[^"]*") alt="" (class="inline" title=("[^"]*"))')
HEADING = re.compile(r"<(/?)h([1-5])>")


def finished(text):
    text = text.replace("<html ", '<html lang="en" ', 1)
    text = text.replace('<div class="title">', '<div class="title" role="heading" aria-level="1">')
    text = PICTURE.sub(r'\1 role="img" aria-label="\3"\2', text)
    text = INLINE.sub(r"\1 alt=\3 \2", text)
    if "<h1>" in text:  # a page: its sections are below its title
        text = HEADING.sub(lambda tag: f"<{tag[1]}h{int(tag[2]) + 1}>", text)
    return text


def main(folder):
    folder = pathlib.Path(folder)
    for path in folder.rglob("*.html"):
        path.write_text(finished(path.read_text(encoding="utf-8")), encoding="utf-8")
    menu = folder / "menu.js"
    menu.write_text(menu.read_text(encoding="utf-8").replace(
        'id="MSearchField"', 'id="MSearchField" aria-label="Search"'), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
