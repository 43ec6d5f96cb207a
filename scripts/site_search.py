#!/usr/bin/env -S python3 -B
"""Adds the words of the pages to the search of the site: site_search.py FOLDER PAGE...

Doxygen's search knows the names of the reference and the titles of pages. It compares beginnings,
so each word of a page is an entry of its own, which leads to the sections that have it.
"""
import collections
import html
import pathlib
import re
import sys

import site_filter

HEADING = re.compile(r'<h(\d)><a class="anchor" id="([^"]+)"></a>\n(.*?)</h\1>', re.S)
TITLE = re.compile(r'<div class="title">(.*?)</div>', re.S)
TEXT = re.compile(r'<div class="textblock">(.*)</div><!-- (?:PageDoc|contents) ', re.S)
WORD = re.compile(r"[a-z][a-z0-9]{2,}")
LETTERS = re.compile(r'(?<=^  0: ")[^"]*', re.M)
MOST = 12  # sections that a word leads to: headings first, then those that it fills most


def plain(text):
    return " ".join(html.unescape(re.sub(r"<[^>]*>", " ", text)).split())


def sections(folder, page):
    """Each section of a page: its address, its name, the words of its heading, and the others counted."""
    label = site_filter.label_of(pathlib.Path(page).resolve().relative_to(site_filter.ROOT))
    page = site_filter.file_of(label)
    text = (folder / page).read_text(encoding="utf-8")
    title = plain(TITLE.search(text)[1])
    body = TEXT.search(text)[1]
    places = [(0, 0, "", title), *((found.start(), found.end(), "#" + found[2], plain(found[3]))
                                   for found in HEADING.finditer(body))]
    for (_, end, anchor, name), (following, *_) in zip(places, [*places[1:], (len(body),)]):
        shown = name if name == title else f"{title}: {name}"
        yield (f"../{page}{anchor}", shown, set(WORD.findall(name.lower())),
               collections.Counter(WORD.findall(plain(body[end:following]).lower())))


def entries(folder, pages):
    """The lines of the search for all words, by word."""
    found = collections.defaultdict(list)
    for order, page in enumerate(pages):
        for number, (address, name, heading, words) in enumerate(sections(folder, page)):
            for word in heading | words.keys():
                rank = (word not in heading, -words[word] / max(sum(words.values()), 1), order, number)
                found[word].append((rank, address, name))
    for word, places in found.items():
        listed = ",".join(f"['{address}',1,'{html.escape(name, quote=True)}']"
                          for _, address, name in sorted(places)[:MOST])
        yield f"{word}_0", f"  ['{word}_0',['{word}',{listed}]]"


def main(folder, *pages):
    folder = pathlib.Path(folder)
    search = folder / "search"
    lines = collections.defaultdict(list)
    for key, line in entries(folder, pages):
        lines[key[0]].append((key, line))
    index = (search / "searchdata.js").read_text(encoding="utf-8")
    letters = LETTERS.search(index)[0]
    frame = (search / "all_0.html").read_text(encoding="utf-8")
    for place, letter in enumerate(letters):
        for line in (search / f"all_{place:x}.js").read_text(encoding="utf-8").splitlines()[2:-1]:
            lines[letter].append((re.match(r"  \['([^']*)'", line)[1], line.removesuffix(",")))
    letters += "".join(sorted(set(lines) - set(letters)))
    for place, letter in enumerate(letters):
        text = ",\n".join(line for _, line in sorted(lines[letter]))
        (search / f"all_{place:x}.js").write_text(f"var searchData=\n[\n{text}\n];\n",
                                                  encoding="utf-8")
        (search / f"all_{place:x}.html").write_text(frame.replace("all_0.js", f"all_{place:x}.js"),
                                                    encoding="utf-8")
    (search / "searchdata.js").write_text(LETTERS.sub(letters, index, count=1), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
