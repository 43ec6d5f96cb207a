"""Puts the page together: one HTML file, which needs no other.

    assemble.py FOLDER NAME              makes FOLDER/NAME.html of FOLDER/trelvon.wasm
    assemble.py FOLDER NAME SCRIPT...    the same with scripts behind its own, for tests

FOLDER/definitions.json is what the page has of the catalog. The scripts become one, without `import`
and `export`. The module and the definitions are packed, since a page in a file may read no other files. The policy allows this one script and style, by their
checksums, and nothing else: no other page, picture, server or frame, and no text that is read as HTML.
"""
import base64
import gzip
import hashlib
import json
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
SCHEMAS = HERE.parents[1] / "schemas"
PACKS = ("core", "symbols", "aliases", "legacy", "gauge", "cgs")
# Each after those that it imports.
SCRIPTS = ("elements", "numbers", "link", "library", "catalog", "combobox", "editor", "files", "writing", "convert",
           "formula", "unit", "definitions", "main")
BUNDLE_HEADER = "TrelvonUnits-schema-bundle-1\n"


def bundle(pack):
    """What `trelvon bundle` writes: the texts below the folders of a pack."""
    files = sorted((SCHEMAS / pack).glob("*/**/*.json"))
    return BUNDLE_HEADER + "".join(file.read_text(encoding="utf-8") + "\0" for file in files)


def definitions():
    codes = {pack: SCHEMAS / pack / "codes.json" for pack in PACKS}
    return {"packs": {pack: bundle(pack) for pack in PACKS},
            "codes": {pack: file.read_text(encoding="utf-8") for pack, file in codes.items() if file.exists()},
            "sources": json.loads((SCHEMAS / "sources.json").read_text(encoding="utf-8"))}


def packed(content):
    return base64.b64encode(gzip.compress(content, 9, mtime=0)).decode()


def joined(paths):
    text = "".join(path.read_text(encoding="utf-8") for path in paths)
    text = re.sub(r"^import [^;]*;\n", "", text, flags=re.M)
    return re.sub(r"^export ", "", text, flags=re.M)


def checksum(text):
    return "'sha256-" + base64.b64encode(hashlib.sha256(text.encode()).digest()).decode() + "'"


def main(folder, name, *scripts):
    folder = pathlib.Path(folder)
    data = json.dumps(definitions(), ensure_ascii=False)
    (folder / "definitions.json").write_text(data, encoding="utf-8")
    style = (HERE / "page.css").read_text(encoding="utf-8")
    script = joined([HERE / (name + ".mjs") for name in SCRIPTS] + [pathlib.Path(path) for path in scripts])
    policy = (f"default-src 'none'; script-src {checksum(script)} 'wasm-unsafe-eval'; "
              f"style-src {checksum(style)}; img-src data:; base-uri 'none'; form-action 'none'; "
              "require-trusted-types-for 'script'; trusted-types 'none'")
    parts = {"policy": policy, "style": style, "script": script,
             "module": packed((folder / "trelvon.wasm").read_bytes()), "data": packed(data.encode())}
    page = re.sub(r"\{\{(\w+)\}\}", lambda part: parts[part[1]],
                  (HERE / "page.html").read_text(encoding="utf-8"))
    (folder / (name + ".html")).write_text(page, encoding="utf-8")
    print(f"{name}.html: {len(page.encode())} bytes, {len(gzip.compress(page.encode(), 9))} compressed")


if __name__ == "__main__":
    main(*sys.argv[1:])
