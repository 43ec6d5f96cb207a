/** The definitions that the page knows: the catalog, and what its user has loaded. */
import {kinds} from "./library.mjs";

const usualPacks = ["core", "symbols", "aliases"];
const mostCompletions = 1500;

export class Catalog {
  /** @param data  what is built into the page: bundles and codes by pack, and sources by key. */
  constructor(library, data) {
    Object.assign(this, {library, data, engine: 0, names: 0});
    this.reset();
  }

  /** Forgets what was loaded. */
  reset() {
    this.library.free("engine", this.engine);
    this.engine = this.library.call("engine_create");
    this.packs = [];
    for (const pack of usualPacks) this.addPack(pack);
    this.learn();
  }

  addPack(pack) {
    this.library.call("add_bundle", this.engine, this.data.packs[pack]);
    this.packs.push(pack);
  }

  /** The packs that are built in, but not loaded. */
  get otherPacks() {
    return Object.keys(this.data.packs).filter(pack => !this.packs.includes(pack));
  }

  /** Learns the names of all units. */
  learn() {
    this.library.free("names", this.names);
    const codes = this.packs.map(pack => this.data.codes[pack]).filter(text => text);
    this.names = this.library.call("names_create", this.engine, codes);
    this.units =
        new Map(this.ask("records", kinds.indexOf("unit")).map(unit => [unit.typeId, unit]));
    this.labels = new Map();
  }

  /** Calls a function that takes the engine first. */
  ask(name, ...values) {
    return this.library.call(name, this.engine, ...values);
  }

  /** Calls a function that takes the names first. */
  name(name, ...values) {
    return this.library.call("names_" + name, this.names, ...values);
  }

  /** What an explanation or a report gives by one of its functions; it is freed. */
  read(made, what, use) {
    try {
      return use(made);
    } finally {
      this.library.free(what, made);
    }
  }

  explain(unit, formula, variables) {
    return this.read(
        this.ask("explain", unit, formula, variables), "explanation",
        made => JSON.parse(this.library.call("explain_json", made)));
  }

  /** Uses a display of options, which are those of docs/display.md. */
  display(options, use) {
    return this.read(this.ask("display_create", JSON.stringify(options)), "display", use);
  }

  report(made) {
    return this.read(
        made, "load_report", report => JSON.parse(this.library.call("load_report_json", report)));
  }

  localId(typeId) {
    return this.library.call("local_id", typeId);
  }

  /**
   * The texts of a unit's symbols, best first; that of its own symbol stands before its aliases.
   */
  symbols(unit) {
    const texts =
        this.ask("symbols_of", unit)
            .filter(symbol => !symbol.isComposite && symbol.text)
            .sort((one, other) => one.typeId.includes("Alias:") - other.typeId.includes("Alias:"))
            .map(symbol => symbol.text);
    return [...new Set(texts)];
  }

  /** The text to write behind numbers. */
  label(unit) {
    if (!this.labels.has(unit)) this.labels.set(unit, this.symbols(unit)[0] ?? this.nameOf(unit));
    return this.labels.get(unit);
  }

  /** A space stands between a number and a label, unless the label is a mark such as `°`. */
  written(number, unit) {
    const label = this.label(unit);
    return number + (/^[°'"′″%]+$/.test(label) ? "" : " ") + label;
  }

  nameOf(unit) {
    return this.units.get(unit)?.name || this.localId(unit);
  }

  quantities(unit) {
    return this.ask("quantities_of", unit).map(quantity => quantity.name);
  }

  /**
   * The one unit that a text names, or that fits, of several; throws with what to say if there is
   * none.
   */
  find(text, fits) {
    const named = [...new Set(this.name("find_best", text).map(name => name.unit))];
    const units = named.length > 1 && named.some(fits) ? named.filter(fits) : named;
    if (units.length === 1) return units[0];
    if (units.length > 1) {
      const candidates = units.map(unit => `${this.nameOf(unit)} (${this.textFor(unit)})`);
      throw new Error("`" + text + "` names several units: " + candidates.join(", ") + ".");
    }
    throw new Error(this.name("why_not", text));
  }

  /** What to write for a unit: a text that names no other. */
  textFor(unit) {
    return this.name("unambiguous", unit);
  }

  /** Units that fit and whose names begin with a text, or else are near to it, each once. */
  complete(text, count, fits) {
    const completed = this.name("completions", text, mostCompletions);
    const found = completed.length > 0 ? completed : this.name("suggest", text, count);
    const exact = this.name("find_best", text);
    const units = new Map();
    for (const name of [...exact, ...found]) {
      if (units.size === count) break;
      if (!units.has(name.unit) && fits(name.unit)) units.set(name.unit, name);
    }
    return [...units.values()];
  }

  /** What the file of a unit says for people: its exact value and source. */
  notes(unit) {
    const start = `{\n  "typeid": ${JSON.stringify(unit)}`;
    for (const bundle of Object.values(this.data.packs)) {
      const at = bundle.indexOf(start);
      if (at >= 0) return JSON.parse(bundle.slice(at, bundle.indexOf("\0", at))).source ?? {};
    }
    return {};
  }
}
