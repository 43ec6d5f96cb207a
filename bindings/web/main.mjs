import {Catalog} from "./catalog.mjs";
import {ConvertView} from "./convert.mjs";
import {DefinitionsView} from "./definitions.mjs";
import {byId, calmly, fill} from "./elements.mjs";
import {FormulaView} from "./formula.mjs";
import {Library} from "./library.mjs";
import {linkTo, readLink} from "./link.mjs";
import {UnitView} from "./unit.mjs";
import {Writing} from "./writing.mjs";

/** What is built into the page: gzip in base64, since a page in a file may read no other files. */
async function unpacked(id) {
  const packed = Uint8Array.from(atob(byId(id).textContent), letter => letter.charCodeAt(0));
  return new Response(new Blob([packed]).stream().pipeThrough(new DecompressionStream("gzip")));
}

/** Shows one of the views, and keeps in the link what it shows. */
class Pages {
  constructor(catalog) {
    const changed = () => this.keep();
    this.writing = new Writing(catalog, () => this.views[this.name].update());
    this.views = {
      convert: new ConvertView(catalog, this.writing, changed),
      formula: new FormulaView(catalog, this.writing, changed),
      unit: new UnitView(catalog, changed),
      definitions: new DefinitionsView(catalog, changed)
    };
    this.write = calmly(() => history.replaceState(null, "", this.link()), 250);
    window.addEventListener("hashchange", () => this.follow(true));
    for (const form of document.forms)
      form.addEventListener("submit", event => event.preventDefault());
  }

  link(name = this.name) {
    const view = this.views[name];
    return linkTo(name, {...view.values, ...view.writing?.values});
  }

  /** The way of writing is in the links to all views that were shown. */
  keep() {
    for (const item of document.querySelectorAll("nav a")) {
      const {view, values} = readLink(item.getAttribute("href"));
      if (view === this.name || Object.keys(values).length > 0)
        item.setAttribute("href", this.link(view));
    }
    this.write();
  }

  /** Shows what the link says; a view without anything said, as it was, or with a usual example. */
  follow(isMove) {
    const {view, values} = readLink(location.hash);
    this.name = Object.hasOwn(this.views, view) ? view : "convert";
    const shown = this.views[this.name];
    for (const name of Object.keys(this.views)) byId(name).hidden = name !== this.name;
    for (const item of document.querySelectorAll("nav a"))
      if (readLink(item.getAttribute("href")).view === this.name)
        item.setAttribute("aria-current", "page");
      else
        item.removeAttribute("aria-current");
    this.writing.frame.hidden = !shown.writing;
    if (shown.writing) shown.below.before(this.writing.frame);
    this.writing.follow(values);
    document.title = `${shown.title} – Units`;
    const says = Object.keys(shown.values).some(name => Object.hasOwn(values, name));
    const said = says ? values : shown.values;
    const isBlank = Object.values(said).every(text => text === "");
    shown.show(isBlank ? shown.usual : said);
    if (isMove) byId(this.name + "-title").focus();
  }
}

function complain(message) {
  fill(byId("loading"), message);
  byId("loading").hidden = false;
}

async function start() {
  const library = await Library.load(await (await unpacked("module")).arrayBuffer());
  const catalog = new Catalog(library, await (await unpacked("data")).json());
  new Pages(catalog).follow(false);
  byId("loading").hidden = true;
  return catalog;
}

export const started = start();

started.catch(error => complain(`This browser cannot run the page: ${error.message}`));
window.addEventListener(
    "error", ({message}) => complain(`The page is at fault, please load it again: ${message}`));
