import {byId, element, fill, sentence} from "./elements.mjs";

/**
 * A text field that completes names of units, after the pattern "combobox" of ARIA: the arrows walk
 * through the list, Enter takes what is marked, Escape closes the list, and the focus stays in the
 * field.
 */
export class UnitField {
  /**
   * @param id      of an input with a label, beside which there is a paragraph with "-says" behind
   *                its id.
   * @param fits    whether a unit is offered.
   * @param change  called when the text has changed.
   */
  constructor(id, catalog, {fits = () => true, change}) {
    Object.assign(this, {catalog, fits, change, marked: -1, offers: []});
    this.input = byId(id);
    this.says = byId(id + "-says");
    this.list = element("ul", {
      id: id + "-list",
      role: "listbox",
      hidden: "",
      "aria-label": this.input.labels[0].textContent
    });
    const attributes = {
      type: "text",
      role: "combobox",
      "aria-expanded": "false",
      "aria-controls": id + "-list",
      "aria-autocomplete": "list",
      "aria-describedby": id + "-says",
      autocomplete: "off",
      autocapitalize: "none",
      spellcheck: "false"
    };
    for (const [name, value] of Object.entries(attributes)) this.input.setAttribute(name, value);
    const frame = element("div", {class: "combobox"});
    this.input.replaceWith(frame);
    frame.append(this.input, this.list);
    this.input.addEventListener("input", () => this.typed());
    this.input.addEventListener("keydown", event => this.press(event));
    this.input.addEventListener("click", () => this.open());
    this.input.addEventListener("blur", () => this.close());
  }

  get text() {
    return this.input.value.trim();
  }

  set text(text) {
    this.input.value = text;
    this.close();
  }

  /** The unit that the text names, or null; says why. */
  unit() {
    this.say("");
    if (this.text === "") return null;
    try {
      return this.catalog.find(this.text, this.fits);
    } catch (error) {
      this.say(error.message);
      return null;
    }
  }

  say(message) {
    fill(this.says, sentence(message));
    this.input.setAttribute("aria-invalid", message !== "");
  }

  typed() {
    this.open();
    this.change();
  }

  open() {
    const names = this.catalog.complete(this.text, 12, this.fits);
    this.offers = names.map(name => name.unit);
    fill(this.list, names.map((name, index) => this.option(name, index)));
    this.list.hidden = names.length === 0;
    this.input.setAttribute("aria-expanded", !this.list.hidden);
    this.mark(-1);
  }

  option(name, index) {
    const {catalog} = this;
    return element(
        "li", {
          role: "option",
          id: `${this.list.id}-${index}`,
          "aria-selected": "false",
          mousedown: event => event.preventDefault(),
          click: () => this.take(index)
        },
        element("span", {class: "symbol"}, catalog.label(name.unit)),
        element("span", {}, catalog.nameOf(name.unit)),
        element("span", {class: "quiet"}, catalog.quantities(name.unit)[0]));
  }

  close() {
    this.list.hidden = true;
    this.offers = [];
    this.input.setAttribute("aria-expanded", "false");
    this.mark(-1);
  }

  mark(index) {
    this.marked = index;
    [...this.list.children].forEach(
        (option, at) => option.setAttribute("aria-selected", at === index));
    const option = this.list.children[index];
    if (option) {
      this.input.setAttribute("aria-activedescendant", option.id);
      option.scrollIntoView({block: "nearest"});
    } else {
      this.input.removeAttribute("aria-activedescendant");
    }
  }

  take(index) {
    this.text = this.catalog.textFor(this.offers[index]);
    this.change();
  }

  press(event) {
    const isOpen = !this.list.hidden, count = this.offers.length;
    const actions = {
      ArrowDown: () => isOpen ? this.mark((this.marked + 1) % count) : this.open(),
      ArrowUp: () => isOpen ? this.mark((this.marked > 0 ? this.marked : count) - 1) : this.open(),
      Enter: () => isOpen && this.marked >= 0 ? this.take(this.marked) : this.close(),
      Escape: () => this.close()
    };
    if (actions[event.key] && !event.altKey && !event.ctrlKey && !event.isComposing) {
      if (event.key !== "Escape" || isOpen) event.preventDefault();
      if (isOpen || event.key !== "Escape") actions[event.key]();
    } else if (event.key === "Tab" && this.marked >= 0) {
      this.take(this.marked);
    }
  }
}
