/** What is shown, as the part of a link behind its `#`: `#convert?value=6&from=ft&to=m`. */

export function linkTo(view, values) {
  const kept = Object.entries(values).filter(([, value]) => value !== "");
  const query = new URLSearchParams(kept).toString();
  return `#${view}${query && "?" + query}`;
}

export function readLink(hash) {
  const [, view, query] = /^#?([^?]*)\??(.*)$/s.exec(hash);
  return {view, values: Object.fromEntries(new URLSearchParams(query))};
}
