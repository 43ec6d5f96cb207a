import {UnitField} from "./combobox.mjs";
import {byId, element, facts, fill} from "./elements.mjs";
import {linkTo} from "./link.mjs";
import {power, tidy} from "./numbers.mjs";

const unitKinds = ["primitive unit", "derived unit", "absolute unit"];
const systems = ["metric", "imperial"];
const mostBranches = 300;

/** All that is known about a unit. */
export class UnitView {
  constructor(catalog, changed) {
    Object.assign(this, {catalog, changed, title: "Unit", usual: {of: "psi"}});
    this.field = new UnitField("of", catalog, {change: () => this.update()});
  }

  get values() {
    return {of: this.field.text};
  }

  show({of = ""}) {
    this.field.text = of;
    this.update();
  }

  update() {
    this.changed();
    const unit = this.field.unit();
    fill(byId("facts"), unit ? this.page(this.catalog.units.get(unit)) : null);
  }

  page(unit) {
    const {catalog} = this, notes = catalog.notes(unit.typeId);
    const pi = notes.piPower ? " " + power("π", notes.piPower) : "";
    return [
      element(
          "h2", {}, unit.name, " ", element("span", {class: "symbol"}, catalog.label(unit.typeId))),
      element(
          "div", {class: "card"}, facts([
            ["Symbols", catalog.symbols(unit.typeId).join("   ")],
            ["Measures", catalog.quantities(unit.typeId).join(", ")],
            ["In base units", this.inPrimitives(unit.typeId)],
            [
              "Exact value",
              notes.exact &&
                  notes.exact + pi + (notes.exactness === "exact" ? "" : ` (${notes.exactness})`)
            ],
            ["Source", (notes.document ?? []).map(key => this.source(key)).join("; ")],
            ["Codes", this.codes(unit.typeId)],
            ["Kind", `${unitKinds[unit.kind]}, ${systems[unit.system]}`],
            ["Type id", element("code", {}, unit.typeId)]
          ])),
      element("h3", {}, "Made of"), element("ul", {class: "tree card"}, this.tree(unit)),
      this.links(unit.typeId),
      element(
          "details", {}, element("summary", {}, "Definition"),
          element("pre", {}, catalog.ask("definition", unit.typeId)))
    ];
  }

  inPrimitives(unit) {
    const [text] = this.catalog.symbols(unit);
    const {reason, value, powers} = this.catalog.explain(null, `1 ${text}`, null);
    if (!text || reason !== "done") return "";
    const parts = powers.map(({unit: base, exponent}) => power(this.catalog.label(base), exponent));
    return [`1 ${text} = ${tidy(Number(value))}`, ...parts].join(" ");
  }

  source(key) {
    const source = this.catalog.data.sources[key];
    return source ? [source.document, source.locator].filter(text => text).join(", ") : key;
  }

  codes(unit) {
    return this.catalog.name("systems")
        .flatMap(
            system => this.catalog.name("codes", unit, system).map(code => `${system}:${code}`))
        .join("   ");
  }

  links(unit) {
    const {catalog} = this;
    const link = other => element(
        "li", {},
        element(
            "a", {
              href: linkTo(
                  "convert",
                  {value: "1", from: catalog.textFor(unit), to: catalog.textFor(other.typeId)})
            },
            other.name));
    const units = catalog.ask("convertible_units", unit).filter(({typeId}) => typeId !== unit);
    return element(
        "details", {}, element("summary", {}, `Converts to ${units.length} units`),
        element("ul", {class: "links"}, units.map(link)));
  }

  /** What a unit is made of, down to primitive units; what was shown before is not shown again. */
  tree(unit) {
    const top = element("li"), waiting = [{unit, at: top, exponent: 1}], shown = new Set();
    while (waiting.length > 0 && shown.size < mostBranches) {
      const next = waiting.shift();
      const isNew = !shown.has(next.unit.typeId);
      shown.add(next.unit.typeId);
      const parents = isNew ? this.parents(next.unit) : [];
      next.at.append(...this.branch(next, isNew));
      if (parents.length === 0) continue;
      const below = element("ul");
      next.at.append(below);
      for (const [typeId, exponent] of parents) {
        const at = element("li");
        below.append(at);
        waiting.push({unit: this.catalog.units.get(typeId), at, exponent});
      }
    }
    for (const {at} of waiting) at.append("…");
    return top;
  }

  parents(unit) {
    return unit.parent ? [[unit.parent, 1]] : unit.parents;
  }

  branch({unit, exponent}, isNew) {
    const factors =
        unit.parentFactors.map(([typeId, of]) => power(this.catalog.localId(typeId), of));
    const isMade = unit.kind === 1 && (unit.factor !== 1 || factors.length > 0);
    const said = [
      unit.kind === 0 ?
          "primitive" + (unit.dimension ? ": " + this.catalog.localId(unit.dimension) : "") :
          "",
      isMade ? "= " + [tidy(unit.factor), ...factors].join(" · ") + " of" : "",
      unit.kind === 2 ? `counted from ${tidy(unit.offset)} of` : "", isNew ? "" : "as above"
    ].filter(text => text);
    return [
      element(
          "a", {href: linkTo("unit", {of: this.catalog.textFor(unit.typeId)})},
          power(unit.name, exponent)),
      element("span", {class: "quiet"}, " " + said.join(", "))
    ];
  }
}
