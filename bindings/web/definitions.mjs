import {Editor, marked, offsets} from "./editor.mjs";
import {byId, calmly, element, fill} from "./elements.mjs";
import {chosen, contents, dropped} from "./files.mjs";
import {decoder} from "./library.mjs";
import {linkTo} from "./link.mjs";

const leaveOut = 2;  // TRELVON_LEAVE_OUT
const shownName = "pasted.json";
const mostFindings = 200, mostAround = 60, mostKept = 4000;

const example = `{
  "typeid": "example.unit:cubit-1.0.0",
  "inherits": ["vellamor.unit:unit.derived-1.0.0"],
  "constants": [
    {"id": "name", "value": "cubit"},
    {"id": "unitSystem", "value": "imperial"},
    {"id": "factor", "value": 1.5},
    {"id": "parentUnits", "value": {"trelvon.unit:foor-1.0.0": 1}}
  ]
}
`;

const counted = (number, word) => `${number} ${word}${number === 1 ? "" : "s"}`;

/** Definitions that are pasted, chosen or dropped, and the report on them. */
export class DefinitionsView {
  constructor(catalog, changed) {
    Object.assign(this, {catalog, changed, title: "Definitions", usual: {}});
    this.editor = new Editor(byId("definition"));
    this.editor.field.addEventListener("input", calmly(() => this.update()));
    byId("load").addEventListener("click", () => this.loadPasted());
    byId("example").addEventListener("click", () => this.show({text: example}));
    byId("reset").addEventListener("click", () => this.reset());
    for (const id of ["files", "folder"])
      byId(id).addEventListener("change", event => this.loadFiles(chosen(event.target.files)));
    this.acceptDrops(document.querySelector("#definitions .drop"));
    this.offerPacks();
  }

  /** A text that is too long for a link is left out of it. */
  get values() {
    return {text: this.editor.text.length > mostKept ? "" : this.editor.text};
  }

  show({text = ""}) {
    this.editor.text = text;
    this.update();
  }

  /** Checks what is pasted, without loading it. */
  update() {
    this.changed();
    this.editor.paint([]);
    fill(byId("summary"));
    fill(byId("findings"));
    const {text} = this.editor;
    if (text.trim() === "") return;
    const report = this.catalog.report(this.catalog.ask("check_text", text, shownName));
    this.tell(report, new Map([[shownName, text]]), "It can be loaded.");
    const at = offsets(text);
    this.editor.paint(report.findings.filter(finding => finding.begin)
                          .map(({begin, end, severity}) => ({
                                 begin: at(begin.offset),
                                 end: at(end.offset),
                                 class: severity === "error" ? "fault" : "surprise"
                               })));
  }

  loadPasted() {
    this.load([[shownName, this.editor.text]]);
  }

  async loadFiles(files) {
    if (files.length === 0) {
      byId("summary").textContent = "No file there is named *.json.";
      return;
    }
    this.load(await contents(files));
  }

  load(files) {
    const made = this.catalog.ask(
        "load_texts", files.map(([name]) => name), files.map(([, text]) => text), leaveOut);
    const report = this.catalog.report(made);
    this.catalog.learn();
    const loaded = report.files.filter(({fate}) => fate === "loaded").length;
    this.tell(
        report, new Map(files), `${loaded} of ${counted(files.length, "definition")} loaded.`);
    fill(byId("packs"), this.loadedUnits(report.files));
  }

  loadedUnits(files) {
    const units =
        files.filter(({fate, typeid}) => fate === "loaded" && this.catalog.units.has(typeid));
    return units.length === 0 ? [] : [
      element("h2", {}, "Units that can be used now"),
      element(
          "ul", {class: "links"},
          units.slice(0, mostFindings)
              .map(
                  ({typeid}) => element(
                      "li", {},
                      element(
                          "a", {href: linkTo("unit", {of: this.catalog.textFor(typeid)})},
                          this.catalog.nameOf(typeid)))))
    ];
  }

  tell({findings, errors, warnings, files}, texts, sound) {
    const said = errors + warnings === 0 ?
        [] :
        [`${counted(errors, "error")}, ${counted(warnings, "warning")}.`];
    byId("summary").textContent =
        [...said, errors === 0 || files.length > 1 ? sound : ""].join(" ");
    fill(
        byId("findings"),
        findings.length > 0 ?
            element(
                "ol", {class: "plain"},
                findings.slice(0, mostFindings)
                    .map(finding => this.finding(finding, texts.get(finding.file)))) :
            null,
        findings.length > mostFindings ?
            element("p", {}, `and ${findings.length - mostFindings} more`) :
            null);
  }

  finding({severity, id, file, begin, end, sentence, advice}, text) {
    const place = begin ? `${file}:${begin.line}:${begin.columnPoint}` : file;
    const go = () => this.editor.select(offsets(text)(begin.offset), offsets(text)(end.offset));
    return element(
        "li", {class: "card finding"},
        begin && file === shownName ?
            element("button", {type: "button", class: "place", click: go}, place) :
            element("span", {class: "place"}, place),
        element("strong", {class: severity}, severity), element("span", {}, ` ${sentence} `),
        element("span", {class: "quiet"}, `[${id}]`),
        begin && text !== undefined ? this.excerpt(text, begin.offset, end.offset, severity) : null,
        advice ? element("p", {}, advice) : null);
  }

  /** The line of a place, cut where it is long. */
  excerpt(text, begin, end, severity) {
    const whole = typeof text === "string" ? text : decoder.decode(text);
    const at = typeof text === "string" ? offsets(text) : offsets(whole, text);
    const from = at(begin), line = whole.lastIndexOf("\n", from - 1) + 1,
          next = whole.indexOf("\n", from);
    const first = Math.max(line, from - mostAround);
    const last = Math.min(next < 0 ? whole.length : next, first + 2 * mostAround);
    const mark = {
      begin: from - first,
      end: Math.min(at(end), last) - first,
      class: severity === "error" ? "fault" : "surprise"
    };
    return element("pre", {}, first > line ? "…" : "", marked(whole.slice(first, last), [mark]));
  }

  /** Files that are dropped elsewhere must not take the place of the page; texts may be dropped. */
  acceptDrops(zone) {
    const onFiles = (target, name, act) => target.addEventListener(name, event => {
      if (!event.dataTransfer?.types.includes("Files")) return;
      event.preventDefault();
      act(event);
    });
    const hint = isOver => zone.classList.toggle("over", isOver);
    onFiles(window, "dragover", event => hint(zone.contains(event.target)));
    onFiles(window, "drop", () => hint(false));
    onFiles(zone, "drop", async event => this.loadFiles(await dropped(event.dataTransfer.items)));
  }

  reset() {
    this.catalog.reset();
    fill(byId("packs"));
    this.update();
    byId("summary").textContent = "The page has the catalog alone again.";
    this.offerPacks();
  }

  /** Parts of the catalog that are not loaded at first, because few need them. */
  offerPacks() {
    const add = pack => () => {
      this.catalog.addPack(pack);
      this.catalog.learn();
      byId("summary").textContent = `The pack ${pack} is loaded.`;
      this.offerPacks();
    };
    const packs = this.catalog.otherPacks;
    fill(byId("packs"), packs.length === 0 ? null : [
      element("h2", {}, "More of the catalog"),
      element(
          "p", {class: "buttons"},
          packs.map(pack => element("button", {type: "button", click: add(pack)}, `Load ${pack}`)))
    ]);
  }
}
