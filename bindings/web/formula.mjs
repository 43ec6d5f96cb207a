import {UnitField} from "./combobox.mjs";
import {Editor, marked, offsets} from "./editor.mjs";
import {byId, element, fill, sentence} from "./elements.mjs";
import {TrelvonError} from "./library.mjs";
import {power, tidy} from "./numbers.mjs";

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
  constructor(catalog, writing, changed) {
    Object.assign(this, {
      catalog,
      writing,
      changed,
      title: "Formula",
      usual: {text: "5' 6 1/2\" + 2 * w - 30 cm", in : "m", variables: "w = 3 in"}
    });
    const change = () => this.update();
    this.below = byId("readings");
    this.editor = new Editor(byId("text"));
    this.editor.field.addEventListener("input", change);
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
    const unit = this.unit.unit();
    this.writing.offer(...(unit ? [unit] : []));
    this.changed();
    for (const id of ["outcome", "warnings", "readings", "tree"]) fill(byId(id));
    this.editor.paint([]);
    this.editor.field.removeAttribute("aria-invalid");
    if (this.editor.text.trim() === "" || (unit === null && this.unit.text !== "")) return;
    if (this.writing.reads && this.readValue(unit)) return;
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

  /** Shows a text that is a value as it is written here, or may be one of two; else says false. */
  readValue(unit) {
    const {value, sentence: said, marks, spellings} = this.writing.read(this.editor.text, unit);
    if (value === undefined && spellings.length === 0) return false;
    this.editor.paint(marks ?? []);
    this.editor.field.setAttribute("aria-invalid", value === undefined);
    fill(
        byId("outcome"),
        value === undefined ? this.refusal(said, spellings) : this.result(value, unit));
    return true;
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
    return explained.reason === "done" ?
        this.result(Number(explained.value), unit, explained.powers) :
        this.refusal(explained.sentence, explained.spellings);
  }

  refusal(said, spellings) {
    return [
      element("span", {class: "error"}, sentence(said)),
      this.editor.spellings(spellings, () => this.update())
    ];
  }

  result(value, unit, powers) {
    const [text, digits] = this.writing.written(value, unit);
    return [
      element("strong", {}, "= " + (unit ? text : this.inPrimitives(text, powers))),
      digits && element("span", {class: "digits"}, `all digits: ${digits}`)
    ];
  }

  inPrimitives(number, powers = []) {
    const units = powers.map(({unit, exponent}) => power(this.catalog.label(unit), exponent));
    return [number, ...units].join(" ");
  }

  warnings({warnings}) {
    const items = warnings.map(
        ({sentence: said, spelling}) => element(
            "li", {}, element("span", {}, sentence(said)),
            this.editor.spellings([spelling], () => this.update())));
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
          reached ? " = " + this.inPrimitives(tidy(Number(value)), powers) : " is not reached")
    ];
  }
}
