"""Reads a list of what is excepted from a check, and why.

    [why the entries below may stand]
    model/Letters.h: text of the line

An entry names its line by text, so that line numbers may move.
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
                    raise SystemExit(f"{path}: without a reason, or twice: {line}")
                reasons[line] = reason
    return reasons
