"""Railroad diagrams of the grammar on docs/grammar.md, for scripts/pictures.py, and its sentences.

A rule is NAME = EXPRESSION: names, "texts", alternatives by |, ( ), [ what may be missing ] and
{ what may be repeated or missing }. A name that no rule has is described by the page.
"""
import re

TOKEN = re.compile(r'"[^"]*"|\'[^\']*\'|[\w-]+|[=|(){}\[\]]')
BLOCK = re.compile(r"^```ebnf\n(.*?)^```", re.M | re.S)
CLOSING = {"(": ")", "[": "]", "{": "}"}
STEP, ROW, BACK = 10, 32, 20  # space beside a box, from row to row, and down to the way back


def blocks_of(page):
    """The blocks of a page, each a map from the names of its rules to their expressions."""
    return [rules_of(block) for block in BLOCK.findall(page)]


def rules_of(text):
    tokens = TOKEN.findall(text)
    starts = [place - 1 for place, token in enumerate(tokens) if token == "="] + [len(tokens)]
    return {tokens[start]: parsed(tokens[start + 2:end])
            for start, end in zip(starts, starts[1:])}


def parsed(tokens):
    """An expression as nested tuples of its kind and its parts; takes the tokens up to a closing."""
    choices, sequence = [], []
    while tokens and tokens[0] not in ")]}":
        token = tokens.pop(0)
        if token == "|":
            choices.append(("sequence", *sequence))
            sequence = []
        elif token in CLOSING:
            sequence.append(({"(": "group", "[": "option", "{": "repeat"}[token], parsed(tokens)))
            if not tokens or tokens.pop(0) != CLOSING[token]:
                raise ValueError(f"{token} is not closed")
        else:
            sequence.append(("text", token[1:-1]) if token[0] in "\"'" else ("name", token))
    choices.append(("sequence", *sequence))
    return choices[0] if len(choices) == 1 else ("choice", *choices)


def sentence(rules, expression, random, depth=0):
    """A random text of an expression. Deep in it, what may be missing is, and first choices count."""
    kind, *parts = expression
    if kind == "text":
        return parts[0]
    if kind == "name":
        rule = rules[parts[0]]
        return rule(random) if callable(rule) else sentence(rules, rule, random, depth + 1)
    if kind == "choice":
        parts = [parts[0] if depth > 12 else random.choice(parts)]
    if kind in ("option", "repeat") and (depth > 12 or random.random() < 0.5):
        return ""
    return " ".join(filter(None, (sentence(rules, part, random, depth) for part in parts)))


def words_of(expression):
    """The texts of a choice that has nothing but texts, and many."""
    kind, *parts = expression
    words = [part[1][1] for part in parts if len(part) == 2 and part[1][0] == "text"]
    return words if kind == "choice" and len(words) == len(parts) > 6 else []


def size(expression):
    """The width of an expression, and its height below its line."""
    kind, *parts = expression
    words = words_of(expression) or parts[:1]
    if kind in ("text", "name") or len(words) > 1:
        return 8 * len(" ".join(words)) + 16 + 2 * STEP, 0
    sizes = [size(part) for part in parts]
    if kind == "sequence":
        return sum(width for width, _ in sizes), max((height for _, height in sizes), default=0)
    if kind == "group":
        return sizes[0]
    width = max(width for width, _ in sizes) + 4 * STEP
    if kind == "choice":
        return width, sum(height + ROW for _, height in sizes) - ROW
    return width, sizes[0][1] + ROW + (BACK if kind == "repeat" else 0)


def draw(drawing, expression, x, y):
    """Draws an expression whose line begins at a point; returns where the line ends."""
    kind, *parts = expression
    if kind in ("sequence", "group"):
        for part in parts:
            x = draw(drawing, part, x, y)
        return x
    end = x + size(expression)[0]
    drawing.path([(x, y), (x + STEP, y)], False)
    drawing.path([(end - STEP, y), (end, y)], False)
    words = words_of(expression) or parts[:1]
    if kind in ("text", "name") or len(words) > 1:
        drawing.box(x + STEP, y - 12, end - x - 2 * STEP, 24,
                    "number" if kind == "name" else "unit")
        drawing.text((x + end) / 2, y + 4, " ".join(words), "" if kind == "name" else "code")
        return end
    row = y
    for part in parts if kind == "choice" else [("sequence",), parts[0]]:
        draw_row(drawing, part, (x, end), (y, row))
        row += ROW + (size(part)[1] if len(part) > 1 else 0)
    if kind == "repeat":
        low = row - ROW + BACK
        left, right = x + 2 * STEP, end - 2 * STEP
        drawing.path([(right, y + ROW), (right, low), (left, low), (left, y + ROW)])
    return end


def draw_row(drawing, part, ends, rows):
    """One of the ways between two ends, from the first row to its own one and back."""
    (x, end), (y, row) = ends, rows
    drawing.path([(x + STEP, y), (x + STEP, row), (x + 2 * STEP, row)], False)
    last = draw(drawing, part, x + 2 * STEP, row)
    drawing.path([(last, row), (end - STEP, row), (end - STEP, y)], False)


def height_of(rules):
    return sum(size(rule)[1] + 64 for rule in rules.values()) + 10


def draw_rules(drawing, rules):
    y = 22
    for name, rule in rules.items():
        drawing.text(20, y, name, "left")
        drawing.path([(20, y + 12), (20, y + 32)], False)
        end = draw(drawing, rule, 20, y + 22)
        drawing.path([(end, y + 12), (end, y + 32)], False)
        y += size(rule)[1] + 64
