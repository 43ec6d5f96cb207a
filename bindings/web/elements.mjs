/** Makes the elements of the page. Texts become text nodes: nothing is ever read as HTML. */

/** @param properties  attributes; a function is a listener for the event of its name. */
export function element(tag, properties = {}, ...children) {
  const made = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if (typeof value === "function")
      made.addEventListener(name, value);
    else if (value !== undefined && value !== false)
      made.setAttribute(name, value);
  }
  fill(made, ...children);
  return made;
}

export const byId = id => document.getElementById(id);

/** Replaces what is in an element. */
export function fill(parent, ...children) {
  parent.replaceChildren(
      ...children.flat(Infinity).filter(child => child !== null && child !== undefined));
}

/** A sentence of the library, whose parts between backquotes are code. */
export const sentence = text =>
    text.split("`").map((part, index) => index % 2 === 1 ? element("code", {}, part) : part);

/** A list of terms and what is said about each; those with nothing are left out. */
export function facts(rows) {
  return element(
      "dl", {class: "facts"},
      rows.filter(([, value]) => value && value.length !== 0)
          .map(([term, value]) => [element("dt", {}, term), element("dd", {}, value)]));
}

/** Waits until nothing has happened for a while. */
export function calmly(action, milliseconds = 120) {
  let timer = 0;
  return () => {
    clearTimeout(timer);
    timer = setTimeout(action, milliseconds);
  };
}
