#!/usr/bin/env python3
"""Writes the schema files in some folders into one bundle, as described in SchemaBundle.h.

    scripts/make_bundle.py BUNDLE FOLDER...

It includes the files that the folder loader reads: those named *.json at any depth below the top
level of each FOLDER. They are sorted by path within each FOLDER.
"""
import os
import sys

HEADER = b"TrelvonUnits-schema-bundle-1\n"


def schema_files(folder):
    for directory, subfolders, names in os.walk(folder):
        subfolders.sort()
        for name in sorted(names):
            path = os.path.join(directory, name)
            if directory != folder and os.path.splitext(name)[1] == ".json" and os.path.isfile(path):
                yield path


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    bundle, *folders = sys.argv[1:]
    count = 0
    with open(bundle, "wb") as out:
        out.write(HEADER)
        for folder in folders:
            for path in schema_files(folder):
                with open(path, "rb") as file:
                    out.write(file.read().split(b"\0")[0] + b"\0")
                count += 1
    print(f"{count} definitions, {os.path.getsize(bundle)} bytes")


if __name__ == "__main__":
    main()
