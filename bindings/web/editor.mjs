import {element, fill} from "./elements.mjs";
import {decoder, encoder} from "./library.mjs";

/**
 * A function from offsets in the UTF-8 of a text, which the library counts, to those of a string.
 * It is quick for offsets that grow.
 */
export function offsets(text, bytes = encoder.encode(text)) {
  let seen = 0, length = 0;
  return at => {
    if (bytes.length === text.length) return at;
    if (at < seen) seen = length = 0;
    length += decoder.decode(bytes.subarray(seen, at)).length;
    seen = at;
    return length;
  };
}

/**
 * A text in pieces, each with the classes of the marks that cover it.
 * @param marks  objects with `begin`, `end` and `class`. One of no length marks the character
 *     there,
 *               or a space behind the end.
 */
export function marked(text, marks) {
  const wide = marks.map(mark => ({...mark, end: Math.max(mark.end, mark.begin + 1)}));
  const shown = wide.some(mark => mark.end > text.length) ? text + " " : text;
  const cuts = [...new Set([0, shown.length, ...wide.flatMap(mark => [mark.begin, mark.end])])]
                   .filter(at => at <= shown.length)
                   .sort((one, other) => one - other);
  const begun = [...wide].sort((one, other) => one.begin - other.begin);
  let active = [];
  return cuts.slice(0, -1).map((at, index) => {
    while (begun.length > 0 && begun[0].begin <= at) active.push(begun.shift());
    active = active.filter(mark => mark.end > at);
    const classes = active.map(mark => mark.class).join(" ");
    const piece = shown.slice(at, cuts[index + 1]);
    return classes === "" ? piece : element("span", {class: classes}, piece);
  });
}

/**
 * A field with colors: the text lies below it once more, in pieces, where the field is
 * transparent.
 */
export class Editor {
  constructor(field) {
    this.field = field;
    this.below = element("pre", {"aria-hidden": "true"});
    for (const [name, value] of Object.entries(
             {autocomplete: "off", autocapitalize: "none", spellcheck: "false", wrap: "soft"}))
      field.setAttribute(name, value);
    const frame = element("div", {class: "editor"});
    field.replaceWith(frame);
    frame.append(this.below, field);
    field.addEventListener("keydown", event => {
      if (event.key === "Enter" && field.rows === 1) event.preventDefault();
    });
  }

  get text() {
    return this.field.value;
  }

  set text(text) {
    this.field.value = text;
  }

  paint(marks) {
    fill(this.below, marked(this.text, marks), "\n");
  }

  /** Buttons with texts to be taken over. */
  spellings(texts, changed) {
    const take = text => () => {
      this.text = text;
      this.field.focus();
      changed();
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

  select(begin, end) {
    this.field.focus();
    this.field.setSelectionRange(begin, end);
  }
}
