/** Answers the calls of tests/cases by the module of the page, for Node and for a browser. */
import {functions, kinds, layouts, TrelvonError} from "../../../bindings/web/library.mjs";

/** The bits of a double as the cases have them. */
function bits(value) {
  if (Number.isNaN(value)) return "nan";
  const view = new DataView(new ArrayBuffer(8));
  view.setFloat64(0, value);
  return view.getBigUint64(0).toString(16).padStart(16, "0");
}

/** Numbers, and kinds of records: -1 if there is no such kind. */
const number = text => ({inf: Infinity, "-inf": -Infinity, nan: NaN})[text] ??
    (Number.isNaN(Number(text)) ? kinds.indexOf(text) : Number(text));

const pairs = words =>
    words.flatMap((typeId, index) => index % 2 === 0 ? [[typeId, Number(words[index + 1])]] : []);

/** The texts that a record consists of. */
const flat = (record, of) => Object.entries(layouts[of]).flatMap(([member, type]) => {
  const value = of === "text" ? record : record[member];
  return type === "double" ? bits(value) : [value].flat(3).map(String);
});

/** Variables are NAME=TEXT, or NAME=!STATUS MESSAGE for a resolver that fails. */
function variables(words) {
  if (words.length === 0) return null;
  return name => {
    const word = words.find(text => text.startsWith(name + "="));
    if (word === undefined) throw new TrelvonError("CALLBACK", "no such variable");
    const text = word.slice(name.length + 1);
    const [, status, message] = /^!(\w+) (.*)$/s.exec(text) ?? [];
    if (status) throw new TrelvonError(status, message);
    return text;
  };
}

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
    return [];
  }

  /**
   * Calls a function with words, as its row in `functions` takes them, and gives words.
   * @param made  the handle that it takes, if neither the engine nor the names.
   */
  plain(name, words, made) {
    const [takes, gives] = functions[name], rest = [...words];
    const handles = made          ? [made] :
        name.startsWith("names_") ? [this.names] :
                                    [this.engine, this.names];
    const next = {
      h: () => handles.shift(),
      n: () => number(rest.shift()),
      a: () => [rest.shift()],
      p: () => pairs(rest.splice(0)),
      r: () => variables(rest.splice(0))
    };
    const values = [...takes]
                       .filter(letter => letter !== "c")
                       .map(letter => (next[letter] ?? (() => rest.shift()))());
    const result = this.library.call(name, ...values);
    if (gives === "handle") return result;
    if (gives === "double") return [bits(result)];
    const of = gives.replace("list of ", "").replace("kind", words[0]);
    return Array.isArray(result) ? result.flatMap(item => flat(item, of)) :
                                   [result].filter(text => text !== undefined).map(String);
  }

  explained(how, words, by = "explain") {
    return [this.library.call(how, this.plain(by, words))];
  }

  /** Loads with a report; names of variables are words behind the options. */
  loaded(what, texts, options, ...names) {
    const [name, ...variables] = names.length > 0 ? [what + "_for", names] : [what];
    return this.library.call(name, this.engine, ...variables, ...texts, Number(options));
  }

  loadedText([name, text, ...rest]) {
    return this.loaded("load_texts", [[name], [text]], ...rest);
  }

  reported(report, by = "load_report_text") {
    const counts = ["errors", "warnings"].map(what => String(this.library.count(what, report)));
    return [...counts, this.library.call(by, report)];
  }

  converted(from, to, ...numbers) {
    const made = this.plain("conversion_create", [from, to]);
    return this.library.apply(made, numbers.map(number)).map(bits);
  }

  /** A table that is filled by "set|NAME|FORMULA|UNIT", "rename|NAME|NAME" or "remove|NAME". */
  table(steps) {
    const made = this.plain("parameters_create", []);
    for (const [step, ...texts] of steps.map(text => text.split("|"))) {
      if (step === "set") texts[2] ??= null;
      this.library.call("parameters_" + step, made, ...texts);
    }
    return made;
  }

  run([call, ...words]) {
    const others = {
      prepared: () => this.converted(...words),
      prepared_array: () => this.converted(...words),
      explain: () => this.explained("explain_text", words),
      explain_tree: () => this.explained(call, words),
      explain_json: () => this.explained(call, words),
      explain_unitless: () => this.explained("explain_text", words, call),
      explain_hidden: () => this.explained("explain_text", words, call),
      explain_unitless_hidden: () => this.explained("explain_text", words, call),
      load_text: () => this.reported(this.loadedText(words)),
      load_report_json: () => this.reported(this.loadedText(words), call).slice(2),
      load_report_sarif: () => this.reported(this.loadedText(words), call).slice(2),
      load_bundle: () => this.reported(this.loaded(call, words.slice(0, 2), ...words.slice(2))),
      check_text: () => this.reported(this.plain(call, words)),
      learn_names: () => this.learn(words)
    };
    if (call in others) return others[call]();
    if (call.startsWith("display_") && words.length > 0)
      return this.plain(call, words.slice(1), this.plain("display_create", words));
    if (call.startsWith("parameters_")) return this.plain(call, words, this.table(words.slice(2)));
    return this.plain(call in functions ? call : "names_" + call, words);
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
