import {UnitField} from "./combobox.mjs";
import {Editor} from "./editor.mjs";
import {byId, element, fill, sentence} from "./elements.mjs";
import {linkTo} from "./link.mjs";

const mostRows = 12;

/** A number from one unit to another. */
export class ConvertView {
  constructor(catalog, writing, changed) {
    Object.assign(
        this,
        {catalog, writing, changed, title: "Convert", usual: {value: "6", from: "ft", to: "m"}});
    const change = () => this.update();
    this.below = byId("others");
    this.value = new Editor(byId("value"));
    this.from = new UnitField("from", catalog, {change});
    this.to = new UnitField("to", catalog, {change, fits: unit => this.fits(unit)});
    this.value.field.addEventListener("input", change);
    byId("swap").addEventListener("click", () => this.swap());
  }

  get values() {
    return {value: this.value.text, from: this.from.text, to: this.to.text};
  }

  show({value = "1", from = "", to = ""}) {
    this.value.text = value;
    this.from.text = from;
    this.to.text = to;
    this.update();
  }

  swap() {
    const {from, to} = this.values;
    this.from.text = to;
    this.to.text = from;
    this.update();
  }

  fits(unit) {
    return !this.source || this.catalog.ask("can_convert", this.source, unit) === 1;
  }

  /** The number of a text, which may be a formula such as `5' 6"`; null, if it is none. */
  number(text) {
    if (this.writing.reads) {
      const read = this.writing.read(text, this.source);
      this.saysOfValue(read.sentence ?? "", read.marks, read.spellings);
      return read.value ?? null;
    }
    this.saysOfValue("");
    if (/^\s*[-+]?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?\s*$/i.test(text)) return Number(text);
    try {
      return this.catalog.ask("evaluate", this.source, text, null);
    } catch (error) {
      this.saysOfValue(this.catalog.explain(this.source, text, null).sentence ?? error.message);
      return null;
    }
  }

  saysOfValue(message, marks = [], spellings = []) {
    this.value.paint(marks);
    fill(
        byId("value-says"), sentence(message),
        spellings.length > 0 ? this.value.spellings(spellings, () => this.update()) : null);
    this.value.field.setAttribute("aria-invalid", message !== "");
  }

  update() {
    this.source = this.from.unit();
    const target = this.to.unit();
    this.writing.offer(...new Set([this.source, target].filter(unit => unit)));
    this.saysOfValue("");
    const {text} = this.value;
    const number = this.source && text.trim() !== "" ? this.number(text) : null;
    fill(byId("result"));
    if (number !== null && target) this.result(number, target);
    fill(byId("others"), number === null ? [] : this.table(number));
    this.changed();
  }

  result(number, target) {
    const {catalog, source, writing} = this;
    try {
      const [text, digits] =
          writing.written(catalog.ask("convert", number, source, target), target);
      fill(
          byId("result"), element("span", {class: "quiet"}, writing.whole(number, source) + " = "),
          element("strong", {}, text),
          digits && element("span", {class: "digits"}, `all digits: ${digits}`));
    } catch (error) {
      this.to.say(
          `${catalog.label(source)} measures ${this.measure(source)}, ${catalog.label(target)} ` +
          `measures ${this.measure(target)}: they do not convert.`);
    }
  }

  measure(unit) {
    return this.catalog.quantities(unit)[0] ?? "something else";
  }

  /**
   * The same value in other units. Those of the same quantity come first, and among them those in
   * which the value is neither large nor small.
   */
  table(number) {
    const {catalog, source} = this;
    const alike = new Set(catalog.ask("quantities_of", source)[0]?.units);
    const remoteness = ({typeId, value}) =>
        (alike.has(typeId) ? 0 : 1000) + (value === 0 ? 0 : Math.abs(Math.log10(Math.abs(value))));
    const rows =
        catalog.ask("convertible_units", source)
            .filter(unit => unit.typeId !== source)
            .map(({typeId}) => ({typeId, value: catalog.ask("convert", number, source, typeId)}))
            .sort((one, other) => remoteness(one) - remoteness(other) || 0)
            .map(row => this.row(row));
    return [
      element("h2", {}, "In other units"), tableOf(rows.slice(0, mostRows)),
      rows.length > mostRows ?
          element(
              "details", {}, element("summary", {}, `${rows.length - mostRows} more`),
              tableOf(rows.slice(mostRows))) :
          null
    ];
  }

  row({typeId, value}) {
    const {catalog, writing} = this;
    const link =
        linkTo("convert", {...this.values, to: catalog.textFor(typeId), ...writing.values});
    return element(
        "tr", {}, element("td", {class: "number"}, writing.number(value, typeId)),
        element("th", {scope: "row"}, catalog.label(typeId)),
        element("td", {}, element("a", {href: link}, catalog.nameOf(typeId))));
  }
}

const tableOf = rows => element(
    "table", {},
    element(
        "thead", {class: "unseen"},
        element(
            "tr", {},
            ["Value", "Symbol", "Unit"].map(text => element("th", {scope: "col"}, text)))),
    element("tbody", {}, rows));
