/**
 * The C interface, as it is compiled to WebAssembly, for scripts. It needs no script of the
 * compiler: all that the module imports is here.
 *
 *   const library = await Library.load(bytes);
 *   const engine = library.call("engine_create");
 *   library.call("add_bundle", engine, bundle);
 *   library.call("convert", engine, 6, "trelvon.unit:foot-1.0.0", "trelvon.unit:meter-1.0.0");
 *   library.free("engine", engine);
 *
 * A function of trelvon.h is called by its name without `trelvon_`. Handles are numbers, texts are
 * strings, or the bytes of one; lists are arrays of objects. A failure is thrown.
 */

const statuses = [
  "OK", "UNRECOGNIZED", "VALIDATION", "INCOMPATIBLE", "PRECISION", "PARSE", "MEMORY", "FILE",
  "CALLBACK", "ARGUMENT", "OTHER"
];

/** Why a call failed: `status` is a word, `span` the bytes of what was read or null. */
export class TrelvonError extends Error {
  constructor(status, message, span = null) {
    super(message);
    Object.assign(this, {status, span});
  }
}

/** The members of the structures, in order. */
export const layouts = {
  text: {text: "text"},
  dimension: {typeId: "text"},
  factor: {typeId: "text", factor: "double", parents: "powers"},
  unit: {
    typeId: "text",
    name: "text",
    system: "int",
    kind: "int",
    dimension: "text",
    parent: "text",
    offset: "double",
    factor: "double",
    parents: "powers",
    parentFactors: "powers"
  },
  symbol: {
    typeId: "text",
    unit: "text",
    isComposite: "int",
    isPrefix: "int",
    hasSpace: "int",
    text: "text"
  },
  quantity: {typeId: "text", name: "text", units: "texts"},
  name: {text: "text", unit: "text", kind: "int", isExact: "int"}
};

export const kinds = ["dimension", "factor", "unit", "symbol", "quantity"];

/**
 * What functions take, and what they give. A letter each:
 *
 *   h handle   n number   t text   o text or null   a array of texts or null   c its length
 *   p powers, as an array of [type id, exponent]    r variables: null, or a function from a name to
 *   a text, which refuses by throwing a TrelvonError
 */
export const functions = {
  engine_create: ["", "handle"],
  convert: ["hntt", "double"],
  convert_named: ["hhntt", "double"],
  can_convert: ["htt", "int"],
  format_fixed: ["hnnon", "text"],
  format_fractional: ["hnno", "text"],
  display_create: ["ht", "handle"],
  display_show: ["hn", "text"],
  display_read: ["ht", "double"],
  display_read_json: ["ht", "text"],
  display_json: ["h", "text"],
  display_unit: ["h", "text"],
  display_locales: ["", "list of text"],
  evaluate: ["httr", "double"],
  evaluate_unitless: ["htr", "double"],
  explain: ["hotr", "handle"],
  explain_unitless: ["htr", "handle"],
  explain_hidden: ["hotr", "handle"],
  explain_unitless_hidden: ["htr", "handle"],
  explain_json: ["h", "text"],
  explain_text: ["h", "text"],
  explain_tree: ["h", "text"],
  parameters_create: ["h", "handle"],
  parameters_set: ["htto", "nothing"],
  parameters_rename: ["htt", "nothing"],
  parameters_remove: ["ht", "nothing"],
  parameters_reevaluate: ["h", "nothing"],
  parameters_evaluate: ["h", "int"],
  parameters_value: ["hto", "double"],
  parameters_names: ["h", "list of text"],
  parameters_formula: ["ht", "text"],
  parameters_unit: ["ht", "text"],
  parameters_references: ["ht", "list of text"],
  parameters_dependents: ["ht", "list of text"],
  parameters_problems: ["h", "list of text"],
  parameters_explain_json: ["ht", "text"],
  parameters_explain_text: ["ht", "text"],
  add_definition: ["ht", "list of text"],
  build_schemas: ["h", "nothing"],
  definition: ["ht", "text"],
  dependencies: ["ht", "list of text"],
  is_registered: ["ht", "int"],
  add_bundle: ["ht", "nothing"],
  load_texts: ["haacn", "handle"],
  load_texts_for: ["hacaacn", "handle"],
  load_bundle: ["httn", "handle"],
  load_bundle_for: ["hacttn", "handle"],
  check_text: ["htt", "handle"],
  load_report_json: ["h", "text"],
  load_report_text: ["h", "text"],
  load_report_sarif: ["h", "text"],
  conversion_create: ["htt", "handle"],
  conversion_create_named: ["hhtt", "handle"],
  record: ["hnt", "list of kind"],
  records: ["hn", "list of kind"],
  primitive_units: ["h", "list of unit"],
  primitive_units_of: ["ho", "list of unit"],
  convertible_units: ["ht", "list of unit"],
  units_with_powers: ["hpc", "list of unit"],
  symbols_of: ["ht", "list of symbol"],
  quantities_of: ["ht", "list of quantity"],
  names_create: ["hac", "handle"],
  names_find: ["ht", "list of name"],
  names_find_best: ["ht", "list of name"],
  names_find_code: ["htt", "list of name"],
  names_suggest: ["htn", "list of name"],
  names_completions: ["htn", "list of name"],
  names_of: ["ht", "list of name"],
  names_why_not: ["ht", "text"],
  names_unambiguous: ["ht", "text"],
  local_id: ["t", "text"],
  names_systems: ["h", "list of text"],
  names_codes: ["htt", "list of text"]
};

const bytesOfPower = 12, bytesOfText = 8;

/** Size and alignment in a structure, and how the member at an address is read. */
const members = {
  int: [4, 4, (library, at) => library.view.getInt32(at, true)],
  double: [8, 8, (library, at) => library.view.getFloat64(at, true)],
  text: [8, 4, (library, at) => library.textAt(at)],
  texts: [8, 4, (library, at) => library.arrayAt(at, bytesOfText, each => library.textAt(each))],
  powers: [
    8, 4,
    (library, at) => library.arrayAt(
        at, bytesOfPower,
        each => [library.textAt(each), library.view.getInt32(each + bytesOfText, true)])
  ]
};

export const decoder = new TextDecoder("utf-8", {ignoreBOM: true});
export const encoder = new TextEncoder();

const bytesOfStack = 1 << 16;

/** The memory of one call, and what its arguments are in it. Calls within calls end first. */
class Frame {
  constructor(library) {
    this.library = library;
    this.top = library.top;
    this.blocks = [];
    this.variables = null;
    this.length = 0;
  }

  /** Takes memory from a stack, or what does not fit there, from the heap. */
  take(size) {
    const {library} = this, at = library.top, end = at + Math.ceil(size / 8) * 8;
    if (end <= library.stack + bytesOfStack) {
      library.top = end;
      return at;
    }
    const block = library.exports.malloc(size);
    if (block === 0) throw new TrelvonError("MEMORY", "out of memory");
    this.blocks.push(block);
    return block;
  }

  /** Writes a text's pointer and size; null is no text, which the library refuses. */
  write(text, at) {
    const bytes = typeof text === "string" ? encoder.encode(text) : text;
    const copy = bytes === null ? 0 : this.take(bytes.length);
    if (bytes !== null) this.library.bytes.set(bytes, copy);
    this.library.view.setUint32(at, copy, true);
    this.library.view.setUint32(at + 4, bytes === null ? 1 : bytes.length, true);
    return at;
  }

  array(items, size, write) {
    this.length = items?.length ?? 0;
    if (items === null) return 0;
    const block = this.take(items.length * size);
    items.forEach((item, index) => write(item, block + index * size));
    return block;
  }

  power([typeId, exponent], at) {
    this.write(typeId, at);
    this.library.view.setInt32(at + bytesOfText, exponent, true);
  }

  argument(letter, next) {
    switch (letter) {
      case "c":
        return [this.length];
      case "t":
        return [this.write(next(), this.take(bytesOfText))];
      case "a":
        return [this.array(next(), bytesOfText, (text, at) => this.write(text, at))];
      case "p":
        return [this.array(next(), bytesOfPower, (power, at) => this.power(power, at))];
      case "o": {
        const text = next();
        return [text === null ? 0 : this.write(text, this.take(bytesOfText))];
      }
      case "r":
        this.variables = next();
        return [this.variables ? this.library.exports.page_resolver() : 0, 0];
      default:
        return [next()];
    }
  }

  release() {
    this.library.top = this.top;
    for (const block of this.blocks) this.library.exports.free(block);
  }
}

export class Library {
  /** @param bytes  the module, as an ArrayBuffer. */
  static async load(bytes) {
    const library = new Library();
    const module = await WebAssembly.compile(bytes);
    const imports = {};
    // There are no files, clocks or streams: the C library is told so by the number of ENOSYS,
    // which is negative where Linux would be asked.
    for (const {module: from, name} of WebAssembly.Module.imports(module))
      (imports[from] ??= {})[name] = () => from === "env" ? -52 : 52;
    imports.env.page_resolve = (name, size, answer) => library.resolve(name, size, answer);
    library.exports = (await WebAssembly.instantiate(module, imports)).exports;
    library.exports._initialize();
    library.stack = library.top = library.exports.malloc(bytesOfStack);
    return library;
  }

  /** The memory, which moves when it grows. */
  get bytes() {
    const {buffer} = this.exports.memory;
    if (this.seen?.buffer !== buffer) this.seen = new Uint8Array(buffer);
    return this.seen;
  }

  get view() {
    const {buffer} = this.exports.memory;
    if (this.viewed?.buffer !== buffer) this.viewed = new DataView(buffer);
    return this.viewed;
  }

  textOf(data, size) {
    return decoder.decode(this.bytes.subarray(data, data + size));
  }

  textAt(at) {
    return this.textOf(this.view.getUint32(at, true), this.view.getUint32(at + 4, true));
  }

  arrayAt(at, size, read) {
    const first = this.view.getUint32(at, true);
    return Array.from(
        {length: this.view.getUint32(at + 4, true)}, (_, index) => read(first + index * size));
  }

  /** Calls a function of the table above. */
  call(name, ...values) {
    const [takes, gives] = functions[name];
    const frame = new Frame(this), outer = this.variables;
    try {
      const rest = values.values();
      const words = [...takes].flatMap(letter => frame.argument(letter, () => rest.next().value));
      this.variables = frame.variables;
      const out = frame.take(8), error = frame.take(4);
      const run = (...results) =>
          this.check(this.exports["trelvon_" + name](...words, ...results, error), error);
      if (gives === "nothing") return void run();
      if (gives === "text") return this.text(frame, out, run);
      run(out);
      if (gives === "double") return this.view.getFloat64(out, true);
      const word = this.view.getUint32(out, true);
      if (!gives.startsWith("list of ")) return word;
      const of = gives.slice("list of ".length);
      return this.list(frame, word, of === "kind" ? kinds[values[1]] : of);
    } finally {
      this.variables = outer;
      frame.release();
    }
  }

  check(status, at) {
    if (status === 0) return;
    const error = this.view.getUint32(at, true), frame = new Frame(this);
    try {
      const message = frame.take(bytesOfText), span = frame.take(8);
      this.exports.trelvon_error_message(message, error);
      const isOfFormula = this.exports.trelvon_error_span(error, span, span + 4);
      throw new TrelvonError(
          statuses[status], this.textAt(message),
          isOfFormula ? [this.view.getUint32(span, true), this.view.getUint32(span + 4, true)] :
                        null);
    } finally {
      this.exports.trelvon_error_free(error);
      frame.release();
    }
  }

  text(frame, size, run) {
    run(0, size);
    const buffer = frame.take(this.view.getUint32(size, true));
    run(buffer, size);
    return this.textOf(buffer, this.view.getUint32(size, true));
  }

  /** Reads and frees a list. */
  list(frame, list, of) {
    const item = frame.take(96);  // more than any structure has
    const read = this.exports["trelvon_list_" + of];
    try {
      return Array.from({length: this.exports.trelvon_list_count(list)}, (_, index) => {
        read(list, index, item, 0);
        return this.structure(of, item);
      });
    } finally {
      this.exports.trelvon_list_free(list);
    }
  }

  structure(of, address) {
    const made = {};
    let at = address;
    for (const [member, type] of Object.entries(layouts[of])) {
      const [size, alignment, read] = members[type];
      at = Math.ceil(at / alignment) * alignment;
      made[member] = read(this, at);
      at += size;
    }
    return of === "text" ? made.text : made;
  }

  /** Answers the resolver: no exception may pass through the library. */
  resolve(name, size, answer) {
    const frame = new Frame(this);
    const say = text =>
        this.exports.trelvon_answer_text(answer, frame.write(text, frame.take(bytesOfText)));
    try {
      return say(this.variables(this.textOf(name, size)));
    } catch (error) {
      say(error.message);
      const status = statuses.indexOf(error.status);
      return status > 0 ? status : statuses.indexOf("CALLBACK");
    } finally {
      frame.release();
    }
  }

  /** Converts numbers by what `conversion_create` made. */
  apply(conversion, numbers) {
    const frame = new Frame(this);
    try {
      const at = frame.take(8 * numbers.length);
      numbers.forEach((number, index) => this.view.setFloat64(at + 8 * index, number, true));
      this.exports.trelvon_conversion_apply(conversion, at, 1, at, 1, numbers.length);
      return numbers.map((_, index) => this.view.getFloat64(at + 8 * index, true));
    } finally {
      frame.release();
    }
  }

  /**
   * Frees an "engine", "names", "conversion", "display", "parameters", "explanation" or
   * "load_report".
   */
  free(what, handle) {
    this.exports[`trelvon_${what}_free`](handle);
  }

  /** The number of "errors" or "warnings" of a report. */
  count(what, report) {
    return this.exports["trelvon_load_report_" + what](report);
  }
}
