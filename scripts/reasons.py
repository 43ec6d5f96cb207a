"""Reads a list of exceptions from a check, with reasons.

    [why the entries below are allowed]
    model/Letters.h: text of the line

An entry identifies its line by its text, so that line numbers may change.
"""


def read(path):
    """The entries in order, each with its reason."""
    reasons = {}
    reason = None
    with open(path, encoding="utf-8") as lines:
        for line in map(str.strip, lines):
            if line.startswith("["):
                reason = line.strip("[]")
            elif line and not line.startswith("#"):
                if not reason or line in reasons:
                    raise SystemExit(f"{path}: no reason, or duplicate: {line}")
                reasons[line] = reason
    return reasons
