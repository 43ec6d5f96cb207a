import {UnitField} from "./combobox.mjs";
import {byId, element, fill, sentence} from "./elements.mjs";
import {linkTo} from "./link.mjs";
import {exactly, tidy} from "./numbers.mjs";

const mostRows = 12;

/** A number from one unit to another. */
export class ConvertView {
  constructor(catalog, changed) {
    Object.assign(
        this, {catalog, changed, title: "Convert", usual: {value: "6", from: "ft", to: "m"}});
    const change = () => this.update();
    this.value = byId("value");
    this.from = new UnitField("from", catalog, {change});
    this.to = new UnitField("to", catalog, {change, fits: unit => this.fits(unit)});
    this.value.addEventListener("input", change);
    byId("swap").addEventListener("click", () => this.swap());
  }

  get values() {
    return {value: this.value.value, from: this.from.text, to: this.to.text};
  }

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

  fits(unit) {
    return !this.source || this.catalog.ask("can_convert", this.source, unit) === 1;
  }

  /** The number of a text, which may be a formula such as `5' 6"`; null, if it is none. */
  number(text) {
    this.saysOfValue("");
    if (/^\s*[-+]?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?\s*$/i.test(text)) return Number(text);
    try {
      return this.catalog.ask("evaluate", this.source, text, null);
    } catch (error) {
      this.saysOfValue(this.catalog.explain(this.source, text, null).sentence ?? error.message);
      return null;
    }
  }

  saysOfValue(message) {
    fill(byId("value-says"), sentence(message));
    this.value.setAttribute("aria-invalid", message !== "");
  }

  update() {
    this.source = this.from.unit();
    const target = this.to.unit();
    const number =
        this.source && this.value.value.trim() !== "" ? this.number(this.value.value) : null;
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
      fill(
          byId("result"),
          element("span", {class: "quiet"}, catalog.written(tidy(number), source) + " = "),
          element("strong", {}, catalog.written(tidy(converted), target)),
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
    const {catalog} = this, link = linkTo("convert", {...this.values, to: catalog.textFor(typeId)});
    return element(
        "tr", {}, element("td", {class: "number"}, tidy(value)),
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
