import {UnitField} from "./combobox.mjs";
import {Editor, marked, offsets} from "./editor.mjs";
import {byId, element, fill, sentence} from "./elements.mjs";
import {TrelvonError} from "./library.mjs";
import {exactly, power, tidy} from "./numbers.mjs";

const mostNodes = 400, mostLevels = 40, mostMarks = 20000;

/** The texts of variables: a line `name = text` each. */
function readVariables(lines) {
  const pairs =
      lines.split("\n").map(line => /^\s*([^=]*?)\s*=(.*)$/.exec(line)).filter(pair => pair);
  const texts = new Map(pairs.map(([, name, text]) => [name, text.trim()]));
  return name => {
    if (texts.has(name)) return texts.get(name);
    throw new TrelvonError("PARSE", `Unrecognized identifier: ${name}.`);
  };
}

/** How a formula is read, what it gives, and what is wrong or surprising. */
export class FormulaView {
  constructor(catalog, changed) {
    Object.assign(this, {
      catalog,
      changed,
      title: "Formula",
      usual: {text: "5' 6 1/2\" + 2 * w - 30 cm", in : "m", variables: "w = 3 in"}
    });
    const change = () => this.update();
    this.editor = new Editor(byId("text"));
    this.editor.field.addEventListener("input", change);
    this.editor.field.addEventListener("keydown", event => {
      if (event.key === "Enter") event.preventDefault();
    });
    this.unit = new UnitField("in", catalog, {change});
    this.variables = byId("variables");
    this.variables.addEventListener("input", change);
  }

  get values() {
    return {text: this.editor.text, in : this.unit.text, variables: this.variables.value};
  }

  show({text = "", in : unit = "", variables = ""}) {
    this.editor.text = text;
    this.unit.text = unit;
    this.variables.value = variables;
    this.update();
  }

  update() {
    this.changed();
    const unit = this.unit.unit();
    for (const id of ["outcome", "warnings", "readings", "tree"]) fill(byId(id));
    this.editor.paint([]);
    this.editor.field.removeAttribute("aria-invalid");
    if (this.editor.text.trim() === "" || (unit === null && this.unit.text !== "")) return;
    const explained =
        this.catalog.explain(unit, this.editor.text, readVariables(this.variables.value));
    const marks = this.marksOf(explained);
    this.editor.paint(marks[0] ?? []);
    this.editor.field.setAttribute("aria-invalid", explained.reason !== "done");
    fill(byId("outcome"), this.outcome(explained, unit));
    this.warnings(explained);
    this.replacements(explained, marks);
    this.tree(explained);
  }

  /** By text: the tokens' colors, and lines under faults and surprises. */
  marksOf({texts, tokens, warnings, span}) {
    const marks = texts.map(() => []), at = texts.map(({text}) => offsets(text));
    const add = (place, name) => {
      const begin = at[place.text](place.begin);
      const end =
          place.endText === place.text ? at[place.text](place.end) : texts[place.text].text.length;
      marks[place.text].push({begin, end, class: name});
    };
    for (const token of tokens.slice(0, mostMarks)) add(token.span, "token " + token.kind);
    for (const warning of warnings) add(warning.span, "surprise");
    for (let place = span; place; place = place.text > 0 && texts[place.text].identifier)
      add(place, "fault");
    return marks;
  }

  outcome(explained, unit) {
    if (explained.reason !== "done")
      return [
        element("span", {class: "error"}, sentence(explained.sentence)),
        this.spellings(explained.spellings)
      ];
    const value = Number(explained.value), digits = exactly(value);
    return [
      element(
          "strong", {},
          "= " +
              (unit ? this.catalog.written(tidy(value), unit) :
                      this.inPrimitives(value, explained.powers))),
      digits && element("span", {class: "digits"}, `all digits: ${digits}`)
    ];
  }

  inPrimitives(value, powers = []) {
    const units = powers.map(({unit, exponent}) => power(this.catalog.label(unit), exponent));
    return [tidy(Number(value)), ...units].join(" ");
  }

  /** Formulas that work, to be taken over. */
  spellings(texts) {
    const take = text => () => {
      this.editor.text = text;
      this.editor.field.focus();
      this.update();
    };
    return element(
        "span", {class: "spellings"},
        texts.filter(text => text !== "")
            .map(
                text => element(
                    "button", {type: "button", click: take(text), title: "Write this instead"},
                    element("span", {class: "unseen"}, "Write instead: "),
                    element("code", {}, text))));
  }

  warnings({warnings}) {
    const items = warnings.map(
        ({sentence: said, spelling}) =>
            element("li", {}, element("span", {}, sentence(said)), this.spellings([spelling])));
    fill(
        byId("warnings"),
        items.length > 0 ? element("ul", {class: "card surprises"}, items) : null);
  }

  replacements({texts}, marks) {
    const rows = texts.slice(1, mostNodes).map(({text, identifier}, index) => {
      const name = texts[identifier.text].text, at = offsets(name);
      return element(
          "li", {}, element("code", {}, name.slice(at(identifier.begin), at(identifier.end))),
          " is read as ", element("code", {class: "colored"}, marked(text, marks[index + 1])));
    });
    fill(
        byId("readings"),
        rows.length > 0 ? [element("h2", {}, "Variables"), element("ul", {class: "plain"}, rows)] :
                          null);
  }

  /** The nodes come with operands first, so that each finds the branches below it made. */
  tree({nodes, tokens}) {
    const levels = [];
    nodes.forEach(
        ({operands}, index) => levels[index] =
            1 + Math.max(0, ...operands.map(operand => levels[operand])));
    if (nodes.length === 0) return;
    const heading = element("h2", {}, "How it is read");
    if (nodes.length > mostNodes || Math.max(...levels) > mostLevels) {
      fill(
          byId("tree"), heading,
          element("p", {class: "quiet"}, `${nodes.length} parts are too many to show as a tree.`));
      return;
    }
    const made = [];
    for (const node of nodes)
      made.push(element(
          "li", {}, this.node(node, tokens[node.token]),
          node.operands.length > 0 ?
              element("ul", {}, node.operands.map(operand => made[operand])) :
              null));
    fill(byId("tree"), heading, element("ul", {class: "tree card"}, made.at(-1)));
  }

  node({kind, reached, value, powers}, token) {
    const text = kind === "parentheses" ? "( )" : token.text;
    return [
      element("code", {class: "token " + token.kind}, text),
      element(
          "span", {class: "quiet"},
          reached ? " = " + this.inPrimitives(value, powers) : " is not reached")
    ];
  }
}
