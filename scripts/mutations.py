"""Finds the possible mutations of a C++ source: one condition, constant or operator at a time.

It relies on clang-format: binary operators have spaces around them, but template brackets and the
marks of pointers and references do not.
"""
import re

# Skipped text, and words and operators as whole tokens.
TOKEN = re.compile(r"""
    (?P<skip>  //[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:\\\n|[^\n])*
             | (?:u8|[uUL])?"(?:\\.|[^"\\\n])*" | R"(?P<delimiter>[^(]*)\(.*?\)(?P=delimiter)" )
  | (?P<char>  '(?:\\.[^']*|[^'\\])' )
  | (?P<real>  (?:\d[\d']*\.\d*|\.\d+)(?:[eE][-+]?\d+)? | \d+[eE][-+]?\d+ )
  | (?P<whole> \b(?:0[xX][\da-fA-F]+|\d[\d']*)[uUlLzZ]*\b )
  | (?P<word>  [A-Za-z_]\w* )
  | (?P<mark>  <<=|>>=|->|::|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[-+*/%&|^<>!~?] )
""", re.VERBOSE | re.DOTALL | re.MULTILINE)

BINARY = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
          "==": ["!="], "!=": ["=="], "&&": ["||"], "||": ["&&"],
          "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
          "<<": [">>"], ">>": ["<<"], "&": ["|"], "|": ["&"],
          "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="]}
PREFIX = {"!": [""], "-": [""], "++": ["--"], "--": ["++"]}
WORDS = {"true": ["false"], "false": ["true"]}


def condition_end(text, begin):
    """The end of the condition in parentheses at `begin`; 0 if it declares or spans lines."""
    depth = 0
    for place in range(begin, text.index("\n", begin)):
        depth += {"(": 1, ")": -1}.get(text[place], 0)
        if depth == 0:
            return 0 if re.search(r";| = ", text[begin:place]) else place
    return 0


# Capacities, growth and short cuts, which change no result: `// tuning: why` at the end of a line
# exempts it, `// tuning {` and `// tuning }` what stands between them. Reserving needs no mark.
TUNING = re.compile(r"//\ tuning\ \{.*?//\ tuning\ \} | ^[^\n]*(?://\ tuning\b|\breserve\()[^\n]*",
                    re.VERBOSE | re.DOTALL | re.MULTILINE)


def changes(text):
    """All mutations of a source except those of tuning: begin, end, replacement."""
    tuning = [match.span() for match in TUNING.finditer(text)]
    for change in all_changes(text):
        if not any(begin <= change[0] < end for begin, end in tuning):
            yield change


def context(text, begin, end, new, reach=4):
    """A mutation with the words around it in its line, so that edits elsewhere leave it as it is."""
    def words(part):
        return re.findall(r'"(?:\\.|[^"\\])*"|\w+|[^\w\s]+', re.sub(r"//.*", "", part))
    before = words(text[text.rfind("\n", 0, begin) + 1:begin])[-reach:]
    after = words(text[end:text.find("\n", end)])[:reach]
    old = text[begin:end]
    change = f"not {old})" if new.startswith("(!(") else f"{old} => {new}"
    return " ".join([*before, f"[{change}]", *after])


def all_changes(text):
    for token in TOKEN.finditer(text):
        begin, end = token.span()
        kind, old = token.lastgroup, token.group()
        if kind == "char":
            yield begin, end, f"static_cast<char>({old} + 1)"
        elif kind == "real":
            yield begin, end, "1.0" if float(old.replace("'", "")) == 0 else f"({old} * 2)"
        elif kind == "whole":
            yield begin, end, f"({old} + 1)"
        elif kind == "word":
            for new in WORDS.get(old, ()):
                yield begin, end, new
            if old in ("if", "while") and text[end:end + 2] == " (":
                last = condition_end(text, end + 1)
                if last:
                    yield end + 1, last, "(!" + text[end + 1:last] + ")"
        elif kind == "mark":
            spaced = text[begin - 1].isspace() and text[end].isspace()
            if old == "+" and '"' in (text[begin - 2], text[end + 1]):
                continue  # strings are concatenated; there is no subtraction
            for new in (BINARY if spaced else {} if text[end].isspace() else PREFIX).get(old, ()):
                yield begin, end, new
