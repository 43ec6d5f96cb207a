"""Runs every check on the shipped definitions. Usage: check_catalogue.py"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import catalogue as lib
import definition_checks
import text_checks


def main():
    shipped = lib.Catalogue()
    complaints = [
        complaint
        for check in definition_checks.ALL + text_checks.ALL
        for complaint in check(shipped)
    ]
    print("\n".join(complaints) or f"{len(shipped.files)} definitions are as they should be.")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
