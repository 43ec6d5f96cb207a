import {UnitField} from "./combobox.mjs";
import {byId, element, fill} from "./elements.mjs";
import {linkTo} from "./link.mjs";
import {exactly, tidy} from "./numbers.mjs";

const mostRows = 12;

/** A number from one unit to another. */
export class ConvertView {
  constructor(catalog, changed) {
    Object.assign(this, {catalog, changed, title: "Convert", usual: {value: "6", from: "ft", to: "m"}});
    const change = () => this.update();
    this.value = byId("value");
    this.from = new UnitField("from", catalog, {change});
    this.to = new UnitField("to", catalog, {change, fits: unit => this.fits(unit)});
    this.value.addEventListener("input", change);
    byId("swap").addEventListener("click", () => this.swap());
  }

  get values() { return {value: this.value.value, from: this.from.text, to: this.to.text}; }

  show({value = "1", from = "", to = ""}) {
    this.value.value = value;
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

  fits(unit) { return !this.source || this.catalog.ask("can_convert", this.source, unit) === 1; }

  /** The number of a text, which may be a formula such as `5' 6"`; null, if it is none. */
  number(text) {
    this.saysOfValue("");
    if (/^\s*[-+]?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?\s*$/i.test(text)) return Number(text);
    try {
      return this.catalog.ask("evaluate", this.source, text, null);
    } catch (error) {
      const {sentence} = this.catalog.explain(this.source, text, null);
      this.saysOfValue(sentence ?? error.message);
      return null;
    }
  }

  saysOfValue(message) {
    byId("value-says").textContent = message;
    this.value.setAttribute("aria-invalid", message !== "");
  }

  update() {
    this.source = this.from.unit();
    const target = this.to.unit();
    const number = this.source && this.value.value.trim() !== "" ? this.number(this.value.value) : null;
    fill(byId("result"));
    if (number !== null && target) this.result(number, target);
    fill(byId("others"), number === null ? [] : this.table(number));
    this.changed();
  }

  result(number, target) {
    const {catalog, source} = this;
    try {
      const converted = catalog.ask("convert", number, source, target);
      const digits = exactly(converted);
      fill(byId("result"), element("span", {class: "quiet"}, catalog.written(tidy(number), source) + " = "),
           element("strong", {}, catalog.written(tidy(converted), target)),
           digits && element("span", {class: "digits"}, `all digits: ${digits}`));
    } catch (error) {
      this.to.say(`${catalog.nameOf(source)} is ${this.measure(source)}, ${catalog.nameOf(target)} is ` +
                  `${this.measure(target)}: neither converts to the other.`);
    }
  }

  measure(unit) { return this.catalog.quantities(unit)[0] ?? "of no quantity"; }

  /** The same value in other units: those of a quantity in its order, then all others. */
  table(number) {
    const {catalog, source} = this;
    const convertible = catalog.ask("convertible_units", source).map(unit => unit.typeId);
    const listed = catalog.ask("quantities_of", source)[0]?.units.filter(unit => convertible.includes(unit)) ?? [];
    const units = [...new Set([...listed, ...convertible])].filter(unit => unit !== source);
    const rows = units.map(unit => this.row(number, unit));
    return [element("h2", {}, "In other units"), tableOf(rows.slice(0, mostRows)),
            rows.length > mostRows ? element("details", {}, element("summary", {}, `${rows.length - mostRows} more`),
                                             tableOf(rows.slice(mostRows))) : null];
  }

  row(number, unit) {
    const {catalog, source} = this;
    const to = catalog.textFor(unit);
    const link = linkTo("convert", {...this.values, to});
    return element("tr", {}, element("td", {class: "number"}, tidy(catalog.ask("convert", number, source, unit))),
                   element("th", {scope: "row"}, catalog.label(unit)),
                   element("td", {}, element("a", {href: link}, catalog.nameOf(unit))));
  }
}

const tableOf = rows => element("table", {}, element("thead", {class: "unseen"}, element("tr", {},
  ["Value", "Symbol", "Unit"].map(text => element("th", {scope: "col"}, text)))), element("tbody", {}, rows));
