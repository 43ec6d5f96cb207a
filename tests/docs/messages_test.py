"""docs/errors.md has every message that the sources throw, and no other.

Messages are found as the sources spell them: literals, joined where they stand side by side, with
something that varies between all others and after a last "+". They have words with blanks beside them; no other text in
the sources has.
"""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
TOKEN = re.compile(r"""(//|\#)[^\n]*|'(?:\\.|[^'\\])+'|"((?:\\.|[^"\\])*)"|[;{},/]|[^\s'"\#;{},/]+""")
SAY_MORE = ("ExplainFormula", "FormulaSentences", "FormulaWarnings", "NearFormulas", "ValueKinds")
VARIES = r"(?:<[^>]*>|[^ ]+)"  # a placeholder, or one word where the page is more exact


def messages_in(source):
    """The messages of a source, as their pieces, the last one empty where something varies."""
    messages, pieces, is_open, after_text = [], [], False, False
    for token in TOKEN.finditer(source):
        if token[1]:
            continue
        text = token[0]
        if text == "throw" or text.startswith("raiseError("):
            pieces = []
        if token[2] is not None:
            piece = re.sub(r"\\(.)", r"\1", token[2])
            pieces = pieces[:-1] + [pieces[-1] + piece] if after_text else pieces + [piece]
            is_open = False
        elif text in (";", "{", "}", ","):
            if re.search("[a-z]{2} | [a-z]{2}", "<>".join(pieces)):
                messages.append(pieces + [""] * is_open)
            pieces, is_open = [], False
        elif after_text and text == "+":
            is_open = True
        after_text = token[2] is not None
    return messages


def pattern(pieces):
    return re.compile(VARIES.join(re.escape(piece) for piece in pieces))


def rows_of(page):
    """The first cells of the tables whose first column is headed "message"."""
    rows, asked, before = [], False, ""
    for line in page.splitlines():
        cells = [cell.strip() for cell in line.split("|")[1:]]
        if line.startswith("|") and not before.startswith("|"):
            asked = cells[0] == "message"
        elif line.startswith("|") and asked and not line.startswith("|--"):
            rows.append(cells[0].strip("`"))
        before = line
    return rows


class Messages(unittest.TestCase):
    def test_all_stand_on_the_page_and_no_other(self):
        sources = [path for path in sorted((ROOT / "src").glob("*/*.[ch]*"))
                   if path.stem not in SAY_MORE and path.parent.name not in ("display", "naming", "reporting")]
        thrown = [m for path in sources for m in messages_in(path.read_text(encoding="utf-8"))]
        rows = rows_of((ROOT / "docs" / "errors.md").read_text(encoding="utf-8"))
        self.assertGreater(len(thrown), 70)
        for message in thrown:
            with self.subTest(thrown=message):
                self.assertTrue(any(pattern(message).fullmatch(row) for row in rows))
        for row in rows:
            with self.subTest(row=row):
                self.assertTrue(any(pattern(message).fullmatch(row) for message in thrown))


if __name__ == "__main__":
    unittest.main()
