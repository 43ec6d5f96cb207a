#!/usr/bin/env -S python3 -B
"""What doxygen reads in place of a page or header: FILE as it stands, in doxygen's Markdown.

Pages are written for code hosts, and headers for people who read them in an editor.
"""
import html
import os
import pathlib
import re
import sys

from make_reference import anchor

ROOT = pathlib.Path(__file__).resolve().parents[1]
FENCED = re.compile(r"(^```.*?^```$)", re.M | re.S)
TABS = re.compile(r"^<!-- tabs.*?-->\n(.*?)^<!-- end of tabs -->\n", re.M | re.S)
TAB = re.compile(r"^### (.*)\n", re.M)
SPAN = re.compile(r"(?<!`)`([^`\n]+)`(?!`)")
BOLD = re.compile(r"`[^`]*`|\*\*((?:`[^`]*`|[^*`])+)\*\*")
LINK = re.compile(r"(?<!!)\[((?:`[^`]*`|[^]`])+)\]\(([^)#:]*)(?:#([^)]+))?\)")
HEADING = re.compile(r"^(##+ (.*))$", re.M)
# What doxygen takes as it stands (code, HTML, sections and the texts of references), and what it reads
# otherwise than code hosts: a word that is also a namespace, quotes, which would keep their contents
# from being read, and backslashes.
MARKS = re.compile(r"`[^`\n]*`|<code>.*?</code>|<a href.*?>|^<.*|^##.*|\[[^\]]*\]\(@ref [^)]*\)"
                   r"|\bUnits\b|\"|\\(?=\w)", re.M)
WORD = re.compile(r"(?<!namespace )\bUnits\b(?![:/`])")
PLAIN = {"Units": "%Units", '"': "&quot;", "\\": "\\\\"}
# Members that every record has and that its class describes: copying and destroying.
SILENT = re.compile(
    r"^ +(?:(\w+)\(const \1& other\)(?: noexcept)?|~\w+\(\)(?: override)?"
    r"|(\w+)& operator=\(const \2&\) = delete|(\w+)\(\s*\3&& other\) noexcept);.*\n", re.M)


def label_of(path):
    """The name of a page in doxygen, from its path below the root."""
    if path.as_posix() == "docs/README.md":
        return "mainpage"
    return "catalog" if path.as_posix() == "schemas/README.md" else path.stem.lower()


def file_of(label):
    return "index.html" if label == "mainpage" else f"{label}.html"


def place_of(label, heading):
    """The name of a section in doxygen, from its page and its heading or the fragment of a link."""
    return f"{label}_{anchor(heading)}"


def code(span):
    """Code in HTML if it has quotes or backslashes: doxygen pairs the quotes of two codes."""
    text = span[1]
    if not any(mark in text for mark in "'\"\\"):
        return span[0]
    text = html.escape(re.sub(r"([\\@#%*_\[\]])", r"\\\1", text)).replace("&#x27;", "&apos;")
    return f"<code>{re.sub('--|::', lambda found: chr(92) + found[0], text)}</code>"


def bold(found):
    """Bold in HTML if it has code: next to code, doxygen takes stars for text."""
    return f"<b>{found[1]}</b>" if "`" in (found[1] or "") else found[0]


def plain(text):
    return MARKS.sub(lambda found: PLAIN.get(found[0], found[0]), text)


def raw(text):
    return f"\n@htmlonly[block]\n{text}\n@endhtmlonly\n\n"


def tabs(found):
    """Sections as tabs: radio buttons, which the style sheet shows as such."""
    parts = TAB.split(found[1])[1:]
    shown = ""
    for number, (title, content) in enumerate(zip(parts[::2], parts[1::2])):
        name, checked = f"tab-{number}", "" if number else " checked"
        shown += raw(f'<input type="radio" name="tabs" id="{name}"{checked}/>'
                     f'<label for="{name}">{html.escape(title)}</label><div>')
        shown += content + raw("</div>")
    return raw('<div class="tabs-of-code">') + shown + raw("</div>")


def page(path, text):
    """A page with its label, and its links as references, with titles for names of files."""
    label = label_of(path)

    def reference(link):
        target = (ROOT / path.parent / link[2]).resolve().relative_to(ROOT) if link[2] else path
        name, shown = label_of(target), link[1]
        place = place_of(name, link[3]) if link[3] else ""
        if (target.name, link[3]) == ("web.md", "make-it") and "SITE_HAS_PAGE" in os.environ:
            return f'<a href="page/units.html">{shown}</a>'
        if target.suffix != ".md":
            return f"[{shown.replace('`', '')}](@ref {target.name})"
        if shown.endswith(".md"):
            shown = (ROOT / target).read_text(encoding="utf-8").partition("\n")[0].lstrip("# ")
        if "`" in shown:  # a reference has plain text
            return f'<a href="{file_of(name)}{place and "#" + place}">{shown}</a>'
        return f"[{shown}](@ref {place or name})"

    def named(heading):
        return f"{heading[1]} {{#{place_of(label, heading[2])}}}"

    def marked(part):
        return plain(LINK.sub(reference, SPAN.sub(code, BOLD.sub(bold, HEADING.sub(named, part)))))

    parts = FENCED.split(TABS.sub(tabs, text))
    parts[::2] = map(marked, parts[::2])
    return re.sub(r"^# (.*)", rf"# \1 {{#{label}}}", "".join(parts), count=1)


def header(text):
    """A header that has a page, and examples that are indented far enough to be code."""
    if "/// @file" not in text:
        text = text.replace("#pragma once", "/** @file */", 1)
    text = re.sub(r"^( *///) {3}(?=\S)", r"\1       ", SILENT.sub("", text), flags=re.M)
    return re.sub(r"^ *///.*|///<.*", lambda line: WORD.sub("%Units", SPAN.sub(code, line[0])), text,
                  flags=re.M)


def main(name):
    path = pathlib.Path(name).resolve().relative_to(ROOT)
    text = (ROOT / path).read_text(encoding="utf-8")
    sys.stdout.write(page(path, text) if path.suffix == ".md" else header(text))


if __name__ == "__main__":
    main(sys.argv[1])
