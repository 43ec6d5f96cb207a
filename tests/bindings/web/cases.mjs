/** Answers the calls of tests/cases by the module of the page, for Node and for a browser. */
import {kinds, layouts, TrelvonError} from "../../../bindings/web/library.mjs";

/** The bits of a double as the cases have them. */
function bits(value) {
  if (Number.isNaN(value)) return "nan";
  const view = new DataView(new ArrayBuffer(8));
  view.setFloat64(0, value);
  return view.getBigUint64(0).toString(16).padStart(16, "0");
}

const number = text => ({inf: Infinity, "-inf": -Infinity, nan: NaN})[text] ?? Number(text);

/** The texts that a record consists of. */
const flat = (record, of) => Object.entries(layouts[of]).flatMap(([member, type]) => {
  const value = of === "text" ? record : record[member];
  return type === "double" ? bits(value) : [value].flat(3).map(String);
});

/** Variables are NAME=TEXT, or NAME=!STATUS MESSAGE for a resolver that fails. */
function variables(pairs) {
  if (pairs.length === 0) return null;
  return name => {
    const pair = pairs.find(text => text.startsWith(name + "="));
    if (pair === undefined) throw new TrelvonError("CALLBACK", "no such variable");
    const text = pair.slice(name.length + 1),
          [, status, message] = /^!(\w+) (.*)$/s.exec(text) ?? [];
    if (status) throw new TrelvonError(status, message);
    return text;
  };
}

/**
 * Calls in the words of the table that are not functions by the same name, or take other
 * arguments.
 */
export class Cases {
  /** @param bundles  what the engine is filled with. */
  constructor(library, bundles) {
    this.library = library;
    this.engine = library.call("engine_create");
    for (const bundle of bundles) library.call("add_bundle", this.engine, bundle);
    this.learn([]);
  }

  learn(mappings) {
    this.names = this.library.call("names_create", this.engine, mappings);
  }

  ask(name, ...values) {
    return this.library.call(name, this.engine, ...values);
  }

  list(of, items) {
    return items.flatMap(item => flat(item, of));
  }

  explained(made, how = "explain_text") {
    return [this.library.call(how, made)];
  }

  reported(report) {
    return [
      ...["errors", "warnings"].map(what => String(this.library.count(what, report))),
      this.library.call("load_report_text", report)
    ];
  }

  names_(name, values, of = "name") {
    return this.list(of, this.library.call("names_" + name, this.names, ...values));
  }

  text(name, value) {
    return [this.library.call("names_" + name, this.names, value)];
  }

  run([call, ...values]) {
    const [first, second, third, fourth] = values, of = kinds.indexOf(first);
    const units = name => this.list("unit", this.ask(name, ...values));
    const calls = {
      convert: () => [bits(this.ask("convert", number(first), second, third))],
      prepared: () => [bits(
          this.library.apply(this.ask("conversion_create", first, second), [number(third)])[0])],
      can_convert: () => [String(this.ask("can_convert", first, second))],
      format_fixed:
          () => [this.ask("format_fixed", number(first), Number(second), third, Number(fourth))],
      format_fractional:
          () => [this.ask("format_fractional", number(first), Number(second), third)],
      evaluate: () => [bits(this.ask("evaluate", first, second, variables(values.slice(2))))],
      evaluate_unitless:
          () => [bits(this.ask("evaluate_unitless", first, variables(values.slice(1))))],
      explain: () => this.explained(this.ask("explain", first, second, variables(values.slice(2)))),
      explain_tree: () =>
          this.explained(this.ask("explain", first, second, variables(values.slice(2))), call),
      explain_json: () =>
          this.explained(this.ask("explain", first, second, variables(values.slice(2))), call),
      explain_unitless: () =>
          this.explained(this.ask("explain_unitless", first, variables(values.slice(1)))),
      add_definition: () => this.ask("add_definition", first),
      build_schemas: () => this.ask("build_schemas") ?? [],
      definition: () => [this.ask("definition", first)],
      dependencies: () => this.ask("dependencies", first),
      is_registered: () => [String(this.ask("is_registered", first))],
      add_bundle: () => this.ask("add_bundle", first) ?? [],
      load_text: () => this.reported(this.ask("load_texts", [first], [second], Number(third))),
      load_bundle: () => this.reported(this.ask("load_bundle", first, second, Number(third))),
      check_text: () => this.reported(this.ask("check_text", first, second)),
      record: () => this.list(first, this.ask("record", of, second)),
      records: () => this.list(first, this.ask("records", of)),
      primitive_units: () => units(call),
      primitive_units_of: () => units(call),
      convertible_units: () => units(call),
      units_with_powers: () => this.list(
          "unit",
          this.ask(
              call,
              values.flatMap(
                  (typeId, index) =>
                      index % 2 === 0 ? [[typeId, Number(values[index + 1])]] : []))),
      symbols_of: () => this.list("symbol", this.ask(call, first)),
      quantities_of: () => this.list("quantity", this.ask(call, first)),
      learn_names: () => this.learn([first]) ?? [],
      find: () => this.names_(call, values),
      find_best: () => this.names_(call, values),
      find_code: () => this.names_(call, values),
      suggest: () => this.names_(call, [first, Number(second)]),
      completions: () => this.names_(call, [first, Number(second)]),
      names_of: () => this.names_("of", values),
      why_not: () => this.text(call, first),
      unambiguous: () => this.text(call, first),
      local_id: () => [this.library.call(call, first)],
      systems: () => this.names_(call, [], "text"),
      codes: () => this.names_(call, values, "text")
    };
    return calls[call]();
  }

  /** The words of an answer: a status, and what came of the call. */
  answer(words) {
    try {
      return ["OK", ...this.run(words)];
    } catch (error) {
      if (!(error instanceof TrelvonError)) throw error;
      return [error.status, error.message, ...(error.span ?? []).map(String)];
    }
  }
}
