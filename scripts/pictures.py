#!/usr/bin/env -S python3 -B
"""Draws the pictures of the pages from what the program trelvon and cmake/Rooms.cmake say.

    scripts/pictures.py PROGRAM            writes docs/pictures/*.svg
    scripts/pictures.py PROGRAM --check    fails if they differ, or one has more than 20 KB
    scripts/pictures.py --performance      writes the plot of docs/performance.md alone
"""
import html
import itertools
import json
import math
import pathlib
import re
import subprocess
import sys
import tempfile

import railroad

ROOT = pathlib.Path(__file__).resolve().parents[1]
FOLDER = ROOT / "docs" / "pictures"
WIDTH = 720
# By class: the color on light and on dark pages.
FILLS = {"page": ("#ffffff", "#0d1117"), "box": ("#f3f5f8", "#23272e"),
         "number": ("#cfe3ff", "#1d3f66"), "operator": ("#ffe0c2", "#63401b"),
         "function": ("#e4d7ff", "#443066"), "unit": ("#d3f0d6", "#22502a"),
         "good": ("#d3f0d6", "#22502a"), "bad": ("#ffd9d6", "#66282a")}
KINDS = {"number": "number", "operator": "operator", "function": "function", "unit-symbol": "unit",
         "open-parenthesis": "box", "close-parenthesis": "box"}
INKS = ("#1f2328", "#e6edf3")
LINES = ("#59636e", "#8b949e")


def style():
    def rules(which):
        yield f"text{{fill:{INKS[which]}}}.line{{stroke:{LINES[which]};fill:none}}"
        yield f".tip{{fill:{LINES[which]}}}.faint{{fill:{LINES[which]}}}"
        for name, colors in FILLS.items():
            yield f".{name}{{fill:{colors[which]};stroke:{LINES[which]}}}"
    # The scheme is that of the page: a browser puts a white sheet under a picture of another one.
    base = (":root{color-scheme:light dark}text{font:12px sans-serif;text-anchor:middle}"
            ".code{font-family:monospace}.left{text-anchor:start}"
            ".small{font-size:11px}.large{font-size:15px}")
    return f"{base}{''.join(rules(0))}@media(prefers-color-scheme:dark){{{''.join(rules(1))}}}"


class Drawing:
    """A picture that grows line by line."""

    def __init__(self, height, title):
        self.lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" '
                      f'width="{WIDTH}" height="{height}" role="img">',
                      f"<title>{html.escape(title)}</title><style>{style()}</style>"]
        self.box(0.5, 0.5, WIDTH - 1, height - 1, "page")

    def text(self, x, y, text, kind=""):
        """A text. Callers leave room for wide fonts: 7 for each character."""
        more = f' class="{kind}"' if kind else ""
        self.lines.append(f'<text x="{x:g}" y="{y:g}"{more}>{html.escape(text)}</text>')

    def box(self, x, y, width, height, kind="box"):
        self.lines.append(f'<rect class="{kind}" x="{x:g}" y="{y:g}" width="{width:g}" '
                          f'height="{height:g}" rx="5"/>')

    def path(self, points, has_tip=True):
        """A line through points, with an arrowhead at the last."""
        way = "L".join(f"{x:g} {y:g}" for x, y in points)
        self.lines.append(f'<path class="line" d="M{way}"/>')
        if has_tip:
            (x0, y0), (x1, y1) = points[-2:]
            length = ((x1 - x0) ** 2 + (y1 - y0) ** 2) ** 0.5
            dx, dy = 8 * (x1 - x0) / length, 8 * (y1 - y0) / length
            corners = [(x1, y1), (x1 - dx + dy / 2, y1 - dy - dx / 2),
                       (x1 - dx - dy / 2, y1 - dy + dx / 2)]
            way = "L".join(f"{x:.1f} {y:.1f}" for x, y in corners)
            self.lines.append(f'<path class="tip" d="M{way}Z"/>')

    def svg(self):
        return "\n".join(self.lines + ["</svg>\n"])


def layers_of(edges, nodes):
    """Each node in the highest layer that is below all that point to it, from the top."""
    layer = {}
    while len(layer) < len(nodes):
        for node in nodes:
            users = [one for one, other in edges if other == node]
            if node not in layer and all(user in layer for user in users):
                layer[node] = max((layer[user] + 1 for user in users), default=0)
    return layer


def crossings(upper, lower, steps):
    """How often the lines from one row to the next cross, and how far they go aside."""
    pairs = [(upper.index(up), lower.index(one)) for one in lower for up in steps[one]]
    aside = sum(abs((up + 0.5) / len(upper) - (low + 0.5) / len(lower)) for up, low in pairs)
    return sum((a - c) * (b - d) < 0 for a, b in pairs for c, d in pairs), round(aside, 6)


def arranged(rows, steps):
    """The order of each row, so that the fewest lines cross: the best way to each order of one."""
    def longer(way, order):
        cost, orders = way
        more = crossings(orders[-1], order, steps)
        return (cost[0] + more[0], cost[1] + more[1]), [*orders, list(order)]

    def cheapest(way):
        return way[0], str(way[1])

    ways = [((0, 0), [list(order)]) for order in itertools.permutations(rows[0])]
    for row in rows[1:]:
        ways = [min((longer(way, order) for way in ways), key=cheapest)
                for order in itertools.permutations(row)]
    return min(ways, key=cheapest)[1]


def draw_graph(drawing, nodes, edges, top, step):
    """Draws boxes in layers. `nodes`: name to lines of text; `edges`: (above, below) to a label."""
    layer = layers_of(edges, nodes)
    rows = [[node for node in nodes if layer[node] == row]
            for row in range(max(layer.values()) + 1)]
    routes = {}
    for above, below in edges:  # a line that passes a row takes a place in it
        passed = [(above, below, row) for row in range(layer[above] + 1, layer[below])]
        for stop in passed:
            rows[stop[2]].append(stop)
        routes[above, below] = [above, *passed, below]
    steps = {stop: [] for row in rows for stop in row}
    for stops in routes.values():
        for one, other in zip(stops, stops[1:]):
            steps[other].append(one)
    place = {stop: (WIDTH * (index + 0.5) / len(row), top + step * number)
             for number, row in enumerate(arranged(rows, steps)) for index, stop in enumerate(row)}
    for edge, stops in routes.items():
        # A line passes a row upright, so that it crosses none of its boxes.
        sides = [[(x, y - 20), (x, y + 20)] for x, y in (place[stop] for stop in stops)]
        points = [point for both in sides for point in both][1:-1]
        drawing.path(points)
        (x0, y0), (x1, y1) = points[:2]
        if edges[edge]:
            side = len(edges[edge]) * 3.5 + 8
            drawing.text((x0 + x1) / 2 + (side if x1 > x0 else -side), (y0 + y1) / 2, edges[edge])
    for node, lines in nodes.items():
        x, y = place[node]
        width = max(len(line) for line in lines) * 7 + 20
        drawing.box(x - width / 2, y - 20, width, 40)
        for index, line in enumerate(lines):
            drawing.text(x, y + 5 + 16 * (index - (len(lines) - 1) / 2), line,
                         "faint" if index else "")


def rooms(_):
    """Who may include whom, without the arrows that follow from others."""
    source = (ROOT / "cmake" / "Rooms.cmake").read_text(encoding="utf-8")
    seen = dict(re.findall(r"^set\((\w+)_sees ([\w ]+)\)$", source, re.M))
    names = re.search(r"^set\(rooms ([\w ]+)\)$", source, re.M)[1].split()
    sees = {name: [other for other in seen.get(name, "").split() if other in names]
            for name in names}
    alike = {}  # rooms that include the same, and that none includes, share a box
    for name in names:
        is_included = any(name in others for others in sees.values())
        alike.setdefault(name if is_included else tuple(sees[name]), []).append(name)
    names = {group[0]: [", ".join(group)] for group in alike.values()}
    edges = {(name, other): "" for name in names for other in sees[name]
             if not any(other in sees[between] for between in sees[name])}
    below = 80 * (max(layers_of(edges, names).values()) + 1)
    drawing = Drawing(below + 50, "The modules of the library, and which may include which")
    draw_graph(drawing, names, edges, 35, 80)
    drawing.box(10, below, WIDTH - 20, 36, "good")
    drawing.text(WIDTH / 2, below + 23,
                 "include/TrelvonUnits: the public headers, which every module may include")
    return drawing.svg()


def ask(program, *arguments):
    return json.loads(subprocess.run([program, *arguments, "--json"], stdout=subprocess.PIPE,
                                     stderr=subprocess.DEVNULL, check=True).stdout)


def local(type_id):
    return type_id.rsplit(":")[-1].split("-")[0]


def powers_of(explained):
    raised = str.maketrans("-0123456789", "⁻⁰¹²³⁴⁵⁶⁷⁸⁹")
    return " · ".join(local(power["unit"]) + ("" if power["exponent"] == 1 else
                                              f"{power['exponent']:g}".translate(raised))
                      for power in explained["powers"])


def reduction(program):
    """A unit down to its primitive units: each box a factor, each number at a line a power."""
    shown = ask(program, "show", "poundForcePerSquareInch", "--tree")
    nodes, edges = {}, {}
    for one in [shown] + shown["ancestors"]:
        if one["kind"] == "dimension":
            continue
        factor = one.get("factor", 1)
        nodes[one["typeId"]] = [local(one["typeId"]),
                                f"{factor:.15g}" if factor != 1 else one["kind"]]
        for parent, power in one["parents"].items():
            if ".dimension:" not in parent:
                edges[one["typeId"], parent] = "" if power == 1 else f"power {power}"
    explained = ask(program, "explain", "1 psi")
    drawing = Drawing(400, "How pound-force per square inch is reduced to primitive units")
    draw_graph(drawing, nodes, edges, 30, 95)
    drawing.box(60, 352, WIDTH - 120, 36, "good")
    drawing.text(WIDTH / 2, 375, f"1 psi = {explained['value']!r} {powers_of(explained)}")
    return drawing.svg()


def formula(program):
    """Formulas as their tokens."""
    drawing = Drawing(340, "Formulas, split into tokens")
    formulas = ("10 m - 35 cm", "10 m - (35 cm)", "sqrt(9 m^2) - (1 + 2) ft")
    for top, text in zip((15, 125, 235), formulas):
        explained = ask(program, "explain", text, "--to", "m")
        x = 30
        for token in explained["tokens"]:
            kind = KINDS[token["kind"]]
            width = len(token["text"]) * 11 + 16
            drawing.box(x, top, width, 36, kind)
            drawing.text(x + width / 2, top + 23, token["text"], "code large")
            if "unit" in token and "value" in token:
                says = f"{token['value']:g} {local(token['unit'])}"
            else:
                says = "" if kind in ("number", "box") else kind
            drawing.text(x + width / 2, top + 54, says, "faint small")
            x += width + 18
        drawing.text(30, top + 78, f"= {explained['value']:g} m", "left")
        for warning in explained["warnings"]:
            drawing.text(150, top + 78, warning["sentence"].replace("`", ""), "left small")
    return drawing.svg()


LIFE = """{"typeid": "my.unit:NAME-1.0.0", "inherits": ["vellamor.unit:unit.derived-1.0.0"],
 "constants": [{"id": "name", "value": "NAME"}, {"id": "SYSTEM", "value": "Imperial"},
               {"id": "parentUnits", "value": {"trelvon.unit:PARENT-1.0.0": 1}}]}"""


def life(program):
    """What becomes of four schema files, three of which are not loaded."""
    files = {"fathom.json": ("fathom", "unitSystem", "foot"),
             "units/cubit.json": ("cubit", "system", "foot"),
             "units/span.json": ("span", "unitSystem", "fot"),
             "units/pace.json": ("pace", "unitSystem", "foot")}
    with tempfile.TemporaryDirectory() as folder:
        for name, (unit, system, parent) in files.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(exist_ok=True)
            path.write_text(LIFE.replace("NAME", unit).replace("SYSTEM", system)
                            .replace("PARENT", parent), encoding="utf-8")
        lint = [pathlib.Path(program).resolve(), "lint", ".", "--format", "json"]
        report = json.loads(subprocess.run(lint, stdout=subprocess.PIPE, cwd=folder,
                                           check=False).stdout)
    drawing = Drawing(310, "The life of a schema file")
    rows = {"passed over": "found in a folder", "refused": "read: addDefinition",
            "left out": "built: buildSchemas", "sound": "stored in the engine"}
    for index, (fate, step) in enumerate(rows.items()):
        y = 15 + 75 * index
        file = next(file for file in report["files"] if file["fate"] == fate)
        drawing.box(10, y, 170, 50, "good" if fate == "sound" else "box")
        drawing.text(95, y + 30, step)
        if fate == "sound":
            drawing.text(225, y + 20, "convert, evaluate, format, look up", "left")
            drawing.text(225, y + 38, file["path"][2:], "left faint")
            continue
        drawing.path([(95, y + 50), (95, y + 75)])
        drawing.path([(180, y + 25), (215, y + 25)])
        drawing.box(215, y, WIDTH - 225, 50, "bad")
        finding = next(one for one in report["findings"] if one["file"] == file["path"])
        drawing.text(225, y + 20, f"{fate}: {finding['id']}", "left")
        says = re.sub(r" in schema \S+| or does.*", "", finding["sentence"])
        drawing.text(225, y + 38, says, "left")
    return drawing.svg()


def scale(program):
    """Readings on a scale as distances from absolute zero, and a difference."""
    drawing = Drawing(230, "A scale and a difference")
    per_kelvin = 1.08

    def kelvins(text):
        return ask(program, "eval", text, "--to", "kelvinAbsolute")["readings"][0]["value"]

    for top, parts in ((40, ("20 °C", "5 °C")), (135, ("20 °C", "5 K"))):
        text = " + ".join(parts)
        x = 30
        for part, kind in zip(parts, ("number", "operator" if parts[1] == "5 °C" else "unit")):
            explained = ask(program, "explain", part)
            width = max(explained["value"] * per_kelvin, 6)
            drawing.box(x, top, width, 34, kind)
            drawing.text(x + max(width / 2, 40) if width > 60 else x + 60, top + 22,
                         part if part.endswith("K") else f"{part} = {explained['value']:g} K")
            x += width
        total = ask(program, "eval", text, "--to", "degC")["readings"][0]["text"]
        drawing.text(30, top - 8, f"{text} = {kelvins(text):g} K from absolute zero, and that is "
                     f"{total} °C", "left")
    drawing.path([(30, 195), (WIDTH - 30, 195)])
    for mark in range(0, 601, 100):
        drawing.path([(30 + mark * per_kelvin, 190), (30 + mark * per_kelvin, 200)], False)
        drawing.text(30 + mark * per_kelvin, 218, f"{mark} K", "faint")
    return drawing.svg()


def performance(_program):
    """The table of the page: our time divided by that of the baseline, on a logarithmic axis."""
    rows = []
    for line in (ROOT / "docs" / "performance.md").read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        reach = re.match(r"([\d.e+-]+) to ([\d.e+-]+)$", cells[5]) if len(cells) == 8 else None
        if reach:
            numbers = [float(cells[column].split()[0].rstrip(",")) for column in (4, 2, 3)]
            numbers += map(float, reach.groups())
            rows.append((cells, [1 / one if "faster" in cells[2] else one for one in numbers]))
    left, right, step = 410, WIDTH - 20, 33
    drawing = Drawing(step * len(rows) + 70, "Our time divided by that of the baseline")

    def place(ratio):
        return left + (right - left) * (math.log10(min(max(ratio, 0.01), 40)) + 2) / 3.6

    for ratio in (0.01, 0.1, 1, 10):
        drawing.path([(place(ratio), 30), (place(ratio), 40 + step * len(rows))], False)
        drawing.text(place(ratio), 24, f"{ratio:g}", "faint")
    drawing.text(WIDTH / 2, step * len(rows) + 60,
                 "bar: all rounds; disk: median; green line: goal; red line: target", "faint")
    for number, (cells, (median, target, goal, *ends)) in enumerate(rows):
        y = 48 + step * number
        for place_of_line, cell in zip((y - 2, y + 12), cells):
            drawing.text(10, place_of_line, cell.replace("`", ""), "left small")
        low, high = sorted(place(end) for end in ends)
        for kind, x in (("good", place(goal)), ("bad", place(target))):
            drawing.box(x - 1.5, y - 8, 3, 16, kind)
        drawing.box(low, y - 3, max(high - low, 1), 6, "number")
        drawing.lines.append(f'<circle class="tip" cx="{place(median):.1f}" cy="{y}" r="3.5"/>')
    return drawing.svg()


def conversion(program):
    """A conversion as its steps: the offset and factor of one unit, then those of the other."""
    drawing = Drawing(150, "The steps from 212 degrees Fahrenheit to 100 degrees Celsius")
    value, steps = 212.0, [("212 °F", "")]

    def step(after, says, unit):
        steps.append((f"{after:.6g} {unit}", says))
        return after

    def ends(name):
        shown = ask(program, "show", name)
        parent = next(iter(shown["parents"]))
        return shown["offset"], ask(program, "convert", "1", parent, "kelvin")["value"]

    offset, factor = ends("degF")
    value = step(value + offset, f"+ offset {offset:g}", "degrees")
    value = step(value * factor, f"× factor {factor:.6g}", "K")
    offset, factor = ends("degC")
    value = step(value / factor, f"÷ factor {factor:g}", "degrees")
    step(value - offset, f"- offset {offset:g}", "°C")
    width = (WIDTH - 40) / len(steps)
    for number, (text, says) in enumerate(steps):
        x = 20 + width * number
        drawing.box(x, 65, width - 22, 40, "unit" if number in (0, 4) else "number")
        drawing.text(x + (width - 22) / 2, 90, text)
        if says:
            drawing.text(x - 11, 45, says)
            drawing.path([(x - 21, 85), (x - 1, 85)])
    return drawing.svg()


def tree(program):
    """The tree of a formula, with the value of each node."""
    explained = ask(program, "explain", "sqrt(width^2 + (30 cm)^2)", "--to", "m", "--set",
                    "width=40 cm")
    every = explained["nodes"]

    def below(index):
        return below(every[index]["operands"][0]) if every[index]["kind"] == "parentheses" else index

    nodes, edges = {}, {}
    for index in reversed(range(len(every))):
        node = every[index]
        if below(index) == index:
            text = explained["tokens"][node["token"]]["text"]
            value = f"{node['value']:g} {powers_of(node)}".strip()
            nodes[index] = [text, value] if value != text else [text]
            edges.update({(index, below(operand)): "" for operand in node["operands"]})
    drawing = Drawing(330, "The tree of sqrt(width^2 + (30 cm)^2)")
    draw_graph(drawing, nodes, edges, 35, 85)
    return drawing.svg()


def grammar(number):
    """The railroad diagrams of a block of docs/grammar.md."""
    def drawn(_):
        page = (ROOT / "docs" / "grammar.md").read_text(encoding="utf-8")
        rules = railroad.blocks_of(page)[number]
        drawing = Drawing(railroad.height_of(rules), f"The grammar of {', '.join(rules)}")
        railroad.draw_rules(drawing, rules)
        return drawing.svg()
    return drawn


PICTURES = {"rooms": rooms, "reduction": reduction, "formula": formula, "schema-file": life,
            "scale": scale, "performance": performance, "conversion": conversion, "tree": tree,
            "grammar-formula": grammar(0), "grammar-literal": grammar(1)}


def main(program, *options):
    differ = []
    wanted = ["performance"] if program == "--performance" else PICTURES
    for name in wanted:
        draw = PICTURES[name]
        path, text = FOLDER / f"{name}.svg", draw(program)
        if len(text.encode()) > 20000:
            differ.append(f"{path} has more than 20 KB")
        if "--check" not in options:
            path.write_text(text, encoding="utf-8")
        elif not path.is_file() or path.read_text(encoding="utf-8") != text:
            differ.append(f"{path} is not what {' '.join(sys.argv[:2])} draws")
    print("\n".join(differ), end="\n" if differ else "")
    return bool(differ)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
