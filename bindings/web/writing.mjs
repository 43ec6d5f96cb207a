import {marked, offsets} from "./editor.mjs";
import {byId, element, fill, sentence} from "./elements.mjs";
import {exactly, tidy} from "./numbers.mjs";

const usualLocale = "en";
const numbersTo = (first, last) => Array.from({length: last - first + 1}, (_, at) => first + at);

/** What can be chosen for digits, by the member of a display that says it. */
const digits = {
  places: ["Decimal places", numbersTo(0, 12), of => `${of} place${of === 1 ? "" : "s"}`],
  denominator: ["Fractions", numbersTo(1, 9).map(power => 2 ** power), of => `to 1/${of}`],
  significant: ["Significant digits", numbersTo(1, 17), of => `${of} significant`]
};

/** Messages about options name what they are in, which a page shows. */
const withoutPlace = message => message.replace(/^display: /, "");

const option = (value, text) => element("option", {value}, text);

/**
 * How values are written and read: what is chosen for it, and displays of that. While nothing is
 * chosen, numbers are tidy and have a point.
 */
export class Writing {
  constructor(catalog, changed) {
    Object.assign(this, {catalog, frame: byId("writing"), symbol: "", refused: ""});
    const names = new Intl.DisplayNames(["en"], {type: "language"});
    fill(
        byId("locale"),
        catalog.library.call("display_locales")
            .map(locale => option(locale, `${names.of(locale)} (${locale})`)));
    fill(
        byId("digits"), option("", "As many as there are"),
        Object.entries(digits).map(
            ([member, [label, counts, text]]) => element(
                "optgroup", {label},
                counts.map(count => option(`${member}=${count}`, text(count))))));
    this.show({});
    this.frame.addEventListener("change", ({target}) => {
      if (target.id === "symbol") this.symbol = target.value;
      this.refused = "";
      changed();
    });
  }

  /** What is chosen, for a link. */
  get values() {
    const [member, count] = byId("digits").value.split("=");
    return {
      locale: byId("locale").value === usualLocale ? "" : byId("locale").value,
      ...(member ? {[member]: count} : {}),
      groups: byId("groups").checked ? "true" : "",
      symbol: byId("symbol").value,
      reads: this.reads ? "true" : ""
    };
  }

  get reads() {
    return byId("reads").checked;
  }

  /** Takes what a link says; one that says nothing of this changes nothing. */
  follow(values) {
    const members = ["locale", "groups", "symbol", "reads", ...Object.keys(digits)];
    if (members.some(member => Object.hasOwn(values, member))) this.show(values);
  }

  show({locale = usualLocale, groups, symbol = "", reads, ...others}) {
    const member = Object.keys(digits).find(name => name in others);
    this.refused = "";
    this.choose("locale", locale.replace("_", "-"), usualLocale);
    this.choose("digits", member ? `${member}=${others[member]}` : "", "");
    byId("groups").checked = groups === "true";
    byId("reads").checked = reads === "true";
    this.symbol = symbol;
    this.frame.open ||= !this.isUsual || this.reads || symbol !== "";
  }

  choose(id, value, usual) {
    byId(id).value = value;
    if (byId(id).value === value) return;
    byId(id).value = usual;
    this.refused += `\`${value}\` cannot be chosen here. `;
  }

  say(message) {
    fill(byId("writing-says"), sentence(message));
  }

  get isUsual() {
    return Object.entries(this.values).every(([name, value]) => name === "reads" || value === "");
  }

  /** Offers the symbols of units, if there is a choice; aliases are for reading formulas. */
  offer(...units) {
    const symbols = units.flatMap(unit => this.symbolsOf(unit));
    fill(
        byId("symbol"), option("", "The usual one"),
        symbols.map(({typeId}) => option(this.catalog.localId(typeId), this.sample(typeId))));
    byId("symbol").value = this.symbol;
    if (byId("symbol").selectedIndex < 0) byId("symbol").value = "";
    byId("symbol").parentElement.hidden = symbols.length <= new Set(units).size;
    this.say(this.refused);
  }

  symbolsOf(unit) {
    return this.catalog.ask("symbols_of", unit)
        .filter(
            ({typeId, isComposite, text}) => !typeId.includes("Alias:") && (isComposite || text));
  }

  sample(symbol) {
    return this.catalog.display(
        {symbol}, made => this.catalog.library.call("display_show", made, 12.5));
  }

  /** The members of a display for a unit; without one, for plain numbers. */
  options(unit) {
    const {locale, groups, symbol, reads, ...count} = this.values;
    const [member] = Object.keys(count);
    const options = {locale: locale || usualLocale, groups: groups !== ""};
    if (member) options[member] = Number(count[member]);
    if (!unit) return options;
    const isChosen = ({typeId}) => this.catalog.localId(typeId) === symbol;
    return {...options, unit, symbol: this.symbolsOf(unit).find(isChosen)?.typeId};
  }

  /**
   * A value as text, with its unit if there is one, and all of its digits, if the text leaves some
   * out.
   * @param others  members of the display that are not as they were chosen.
   */
  written(value, unit, others = {}) {
    const {showsUnit = true} = others;
    const plain = unit && showsUnit ? this.catalog.written(tidy(value), unit) : tidy(value);
    if (this.isUsual) return [plain, exactly(value)];
    if (unit && this.symbolsOf(unit).length === 0) {
      const [number, all] = this.written(value, null, others);
      return [showsUnit ? this.catalog.written(number, unit) : number, all];
    }
    try {
      const {library} = this.catalog;
      return this.catalog.display({...this.options(unit), ...others}, made => {
        const text = library.call("display_show", made, value);
        const isWhole = JSON.parse(library.call("display_read_json", made, text)).value === value;
        return [text, isWhole || !Number.isFinite(value) ? "" : String(value)];
      });
    } catch (error) {
      this.say(withoutPlace(error.message));
      return [plain, exactly(value)];
    }
  }

  /** A value with the digits that it has. */
  whole(value, unit) {
    const [text] = this.written(
        value, unit, {places: undefined, denominator: undefined, significant: undefined});
    return text;
  }

  /** The number alone of a value: without a composite symbol, which needs its marks. */
  number(value, unit) {
    return this.written(value, unit, {showsUnit: false, symbol: undefined})[0];
  }

  /**
   * How a text is read: an object with its value, or a sentence and the place that it is about.
   */
  read(text, unit) {
    try {
      const read = this.catalog.display(
          this.options(unit),
          made => JSON.parse(this.catalog.library.call("display_read_json", made, text)));
      if ("value" in read) return read;
      const at = offsets(text), begin = at(read.begin), end = at(read.end);
      // The sentence tells both readings as they would be written.
      const spellings =
          read.readings.length === 0 ? [] : [3, 5].map(part => read.sentence.split("`")[part]);
      return {
        sentence: read.sentence,
        marks: [{begin, end, class: "fault"}],
        spellings: spellings.map(spelling => text.slice(0, begin) + spelling + text.slice(end))
      };
    } catch (error) {
      return {sentence: withoutPlace(error.message), marks: [], spellings: []};
    }
  }
}
