#!/usr/bin/env -S python3 -B
"""Writes the layout of the site for doxygen: the pages in the groups of the first page, then the
reference."""
import html
import re

from site_filter import ROOT, label_of

GROUP = re.compile(r"^(\w[^\n]*):\n\n((?:- .*\n)+)", re.M)
PAGE = re.compile(r"^- \[(.*?)\]\((.*?)\)", re.M)
REFERENCE = {"namespaces": ("namespacelist", "namespacemembers"),
             "classes": ("classlist", "classindex", "hierarchy", "classmembers"),
             "files": ("filelist", "globals")}


def tab(kind, title="", within="", url=""):
    return (f'<tab type="{kind}" visible="yes" title="{html.escape(title)}" url="{url}">'
            f'{within}</tab>\n')


def main():
    folder = ROOT / "docs"
    pages = (folder / "README.md").read_text(encoding="utf-8")
    tabs = tab("mainpage", pages.partition("\n")[0].lstrip("# "))
    for name, listed in GROUP.findall(pages.partition("## All pages")[2]):
        within = "".join(
            tab("user", title, url=f"@ref {label_of((folder / link).resolve().relative_to(ROOT))}")
            for title, link in PAGE.findall(listed))
        tabs += tab("usergroup", name, within, "[none]")
    tabs += "".join(tab(kind, within="".join(map(tab, below)))
                    for kind, below in REFERENCE.items())
    print(f'<doxygenlayout version="1.0"><navindex>\n{tabs}</navindex></doxygenlayout>')


if __name__ == "__main__":
    main()
