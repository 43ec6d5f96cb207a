/**
 * Tests the page in a browser, and writes what differs into it: the calls of tests/cases by the
 * module that is built in, and rows that act as a user does.
 */
import {contents, dropped} from "../../../bindings/web/files.mjs";
import {started} from "../../../bindings/web/main.mjs";

import {caseFiles} from "./case_files.mjs";
import {Cases} from "./cases.mjs";

const find = selector => document.querySelector(selector);
const text = selector => [...document.querySelectorAll(selector)]
                             .map(found => found.textContent)
                             .join(" | ");
const settle = (milliseconds = 400) => new Promise(resolve => setTimeout(resolve, milliseconds));

/** Goes to a link, as the address bar does. */
const go = hash => async () => {
  location.hash = hash;
  await settle();
};

const type = (selector, typed) => async () => {
  find(selector).focus();
  find(selector).value = typed;
  find(selector).dispatchEvent(new InputEvent("input", {bubbles: true}));
  await settle();
};

const press = (...keys) => () => {
  for (const key of keys)
    document.activeElement.dispatchEvent(
        new KeyboardEvent("keydown", {key, bubbles: true, cancelable: true}));
};

const click = selector => async () => {
  find(selector).click();
  await settle();
};

const select = (selector, value) => async () => {
  find(selector).value = value;
  find(selector).dispatchEvent(new Event("change", {bubbles: true}));
  await settle();
};

/** Chooses files by name and content. */
const choose = files => async () => {
  const chosen = new DataTransfer();
  for (const [name, content] of Object.entries(files)) chosen.items.add(new File([content], name));
  find("#files").files = chosen.files;
  find("#files").dispatchEvent(new Event("change"));
  await settle();
};

const hostile = "<img src=x onerror=\"document.title='taken'\">";
const unit = (name, parent = "trelvon.unit:foot-1.0.0") => JSON.stringify({
  typeid: `example.unit:${name}-1.0.0`,
  inherits: ["vellamor.unit:unit.derived-1.0.0"],
  constants: [
    {id: "name", value: name}, {id: "unitSystem", value: "Imperial"}, {id: "factor", value: 1.5},
    {id: "parentUnits", value: {[parent]: 1}}
  ]
});

/** A folder as browsers give it when it is dropped: its entries come in parts. */
const folder = (fullPath, ...entries) => {
  const parts = [entries, []];
  return {createReader: () => ({readEntries: done => done(parts.shift())}), fullPath};
};
const file = fullPath =>
    ({isFile: true, fullPath, name: fullPath, file: done => done(new File([], fullPath))});
const drop = async () => {
  const top =
      folder("/d", file("/d/b.json"), folder("/d/e", file("/d/e/a.json"), file("/d/e/x.txt")));
  const found = await contents(
      await dropped([{webkitGetAsEntry: () => top}, {webkitGetAsEntry: () => null}]));
  return found.map(([path]) => path).join(" ");
};

/** What is done, where to look after it, and what must be there. */
const rows = [
  [
    [go("#convert?value=6&from=ft&to=m")], () => text("#result"),
    "6 ft = 1.8288 mall digits: 1.8288000000000002"
  ],
  [[], () => document.title, "Convert – Units"],
  [[type("#value", "5' 6\"")], () => text("#result strong"), "1.6764 m"],
  [[], () => location.hash, "#convert?value=5%27+6%22&from=ft&to=m"],
  [
    [type("#value", "5 fot")], () => text("#value-says"),
    "fot is not a unit. Did you mean foot or ft?"
  ],
  [[], () => find("#value").getAttribute("aria-invalid"), "true"],
  [[type("#value", "1e3"), click("#swap")], () => text("#result strong"), "3280.83989501 ft"],
  [
    [type("#to", "kg")], () => text("#to-says"),
    "m measures length, kg measures mass: they do not convert."
  ],
  [[type("#to", "xyzzy")], () => text("#to-says").includes("xyzzy"), true],
  [[go("#convert?value=0&from=degC&to=degF")], () => text("#result strong"), "32 °F"],
  [[], () => document.activeElement.id, "convert-title"],
  [[type("#to", "K")], () => text("#result strong"), "273.15 K"],
  [[click("#swap")], () => text("#from-says").startsWith("K names several units: kelvin ("), true],

  // How values are written, and read.
  [
    [go("#convert?value=1234.5&from=ft&to=mm&locale=de&places=2&groups=true")],
    () => text("#result"), "1.234,5 ft = 376.275,60 mm"
  ],
  [[], () => text("tbody tr:first-child td.number"), "1,87 | 3.703,50"],
  [[type("#value", "1.234"), click("#reads")], () => text("#result strong"), ""],
  [
    [], () => text("#value-says"),
    "1.234 has two readings: write 1,234 or 1234.Write instead: 1,234Write instead: 1234"
  ],
  [[], () => text("#convert .editor .fault"), "1.234"],
  [
    [click("#value-says button")], () => text("#result"), "1,234 ft = 376,12 mmall digits: 376.1232"
  ],
  [
    [], () => document.activeElement.id + location.hash,
    "value#convert?value=1%2C234&from=ft&to=mm&locale=de&places=2&groups=true&reads=true"
  ],
  [[type("#value", "6 m")], () => text("#value-says"), "m is not expected. The unit must be ft."],
  [
    [
      select("#locale", "en"), select("#digits", "denominator=16"), click("#reads"),
      type("#value", "5.53125"), type("#to", "in")
    ],
    () => text("#result strong"), "66 3/8 in"
  ],
  [[select("#symbol", "feetAndInches")], () => text("#result .quiet"), "5' 6.375\" = "],
  [
    [click("#reads"), type("#value", "5' 12\"")], () => text("#value-says"),
    "12 must be less than 12."
  ],
  [
    [go("#formula?text=1,5&in=mm&locale=fr&reads=true&significant=3")], () => text("#outcome"),
    "= 1,50 mm"
  ],
  [[type("#text", "2 ft + 1 mm")], () => text("#outcome"), "= 611 mmall digits: 610.6"],
  [[type("#text", "1.234")], () => text("#formula .editor .fault"), "1.234"],
  [
    [
      type("#in", "deg"), type("#text", "12.5"), select("#symbol", "degreesMinutesSeconds"),
      select("#digits", "denominator=2")
    ],
    () => text("#writing-says") + text("#outcome"),
    "only inches can have fractions, not the last part of trelvon.symbol:degreesMinutesSeconds-1.0.0.= 12.5°"
  ],
  [
    [go("#convert?value=6&from=m&to=ft&symbol=feetAndInches&places=2")],
    () => text("#writing-says") + text("#result strong"), "19' 8.22\""
  ],
  [
    [go("#convert?value=6&from=ft&to=m&locale=xx&places=99")], () => text("#writing-says"),
    "xx cannot be chosen here. places=99 cannot be chosen here. "
  ],
  [[go("#convert?locale=en")], () => text("#result strong"), "1.8288 m"],

  // The keyboard alone.
  [
    [go("#convert?value=1&from=mi&to=km"), type("#to", "furl")],
    () => text("#to-list [role=option] .symbol"), "fur"
  ],
  [[], () => find("#to").getAttribute("aria-expanded"), "true"],
  [
    [press("ArrowDown")],
    () => find("#" + find("#to").getAttribute("aria-activedescendant"))?.ariaSelected, "true"
  ],
  [[press("Enter")], () => text("#result strong") + find("#to").value, "8 furfurlong"],
  [[], () => find("#to-list").hidden, true],
  [
    [type("#to", "met"), press("ArrowUp", "ArrowUp", "ArrowDown", "Escape")],
    () => find("#to").value + find("#to-list").hidden, "mettrue"
  ],
  [[press("ArrowDown")], () => find("#to-list").hidden, false],
  [[press("ArrowDown", "Tab")], () => text("#result strong"), "1609.344 m"],
  [
    [],
    () => [...document.querySelectorAll("input, textarea")]
              .filter(field => !field.labels?.length)
              .length,
    0
  ],
  [
    [], () => [...document.querySelectorAll("[tabindex]")].filter(item => item.tabIndex > 0).length,
    0
  ],

  // Formulas.
  [
    [go("#formula?text=2+m+%2B+3+kg&in=m")], () => text("#outcome"),
    "+ needs the same units on both sides: left is a length, right is a mass."
  ],
  [[], () => text("#formula .fault"), "+"],
  [[], () => text("#formula .editor .token.number"), "2 m | 3 kg"],
  [[type("#text", "2 µm + 5 fot")], () => text("#formula .fault"), "5 fot"],
  [[click("#outcome button")], () => text("#outcome strong"), "= 1.524002 m"],
  [
    [type("#text", "10 m - 35 cm")], () => text("#warnings li > span:first-child"),
    "10 m - 35 cm is one value: - only separates its parts, and subtracts nothing."
  ],
  [
    [type("#text", "2 * (w + 1 in)"), type("#variables", "w = 3 in\nv = 2 ft")],
    () => text("#readings"), "Variablesw is read as (3 in)"
  ],
  [[], () => text("#tree li > code"), "* | 2 | ( ) | + | 3 in | 1 in"],
  [[type("#variables", "w = 3 in + 1 kg")], () => text("#readings .fault"), "+"],
  [[], () => text("#formula .editor .fault"), "w"],
  [
    [type("#text", "2 * (3"), type("#in", "")], () => text("#outcome span.error"),
    "( is never closed."
  ],
  [[type("#text", "2 ft * 3 m")], () => text("#outcome strong"), "= 1.8288 m²"],
  [
    [type(
        "#text",
        "-(".repeat(3000) + "1" +
            ")".repeat(3000))],
    () => text("#outcome strong") + text("#tree p"), "= 16001 parts are too many to show as a tree."
  ],
  [[type("#text", "\ufeff1 + \ud800\0")], () => find("#text").getAttribute("aria-invalid"), "true"],

  // A unit.
  [[go("#unit?of=psi")], () => text("#facts h2"), "pound-force per square inch psi"],
  [[], () => text("#facts dd").includes(" | 8896443230521/1290320000 | "), true],
  [
    [], () => text("#facts .tree a"),
    "pound-force per square inch | inch⁻² | meter | pound-force | newton | kilogram | meter | second⁻²"
  ],
  [[click("#facts .tree ul a")], () => find("#of").value, "inch"],
  [[go("#unit?of=oz")], () => text("#of-says") + text("#facts h2"), "ounce oz"],

  // Definitions.
  [
    [go("#definitions"), click("#example")], () => text("#findings .place"),
    "pasted.json:6:35 | pasted.json:8:37"
  ],
  [[], () => text("#summary"), "1 error, 1 warning. "],
  [[], () => text("#definitions .editor .fault"), "\"trelvon.unit:foor-1.0.0\""],
  [
    [click("#findings li + li button")],
    () => find("#definition")
              .value.slice(find("#definition").selectionStart, find("#definition").selectionEnd),
    "\"trelvon.unit:foor-1.0.0\""
  ],
  [
    [type("#definition", unit("cubit")), click("#load")], () => text("#summary"),
    "0 errors, 2 warnings. 1 of 1 definition loaded."
  ],
  [[go("#convert?value=2&from=cubit&to=ft")], () => text("#result strong"), "3 ft"],
  [
    [
      go("#definitions"), choose({
        "a.json": unit("pace"),
        "b.json": unit("span", "example.unit:none-1.0.0"),
        "c.txt": "no"
      })
    ],
    () => text("#summary"), "1 error, 2 warnings. 1 of 2 definitions loaded."
  ],
  [[], drop, "d/b.json d/e/a.json"],
  [
    [click("#reset"), go("#convert?value=2&from=cubit&to=ft")], () => text("#from-says") !== "",
    true
  ],
  [
    [go("#definitions"), click("#packs button")], () => text("#summary"),
    "The pack legacy is loaded."
  ],

  // What is typed, pasted or linked is no HTML, and the page reaches nobody.
  [
    [
      go("#formula?text=" + encodeURIComponent(hostile)), type("#variables", `${hostile} = 1`),
      type("#in", hostile)
    ],
    () => text("#in-says").includes(hostile), true
  ],
  [
    [go("#convert?value=" + encodeURIComponent(hostile) +
        "&from=ft&to=" + encodeURIComponent(hostile))],
    () => text("#to-says").includes(hostile), true
  ],
  [[go("#unit?of=" + encodeURIComponent(hostile))], () => text("#of-says").includes(hostile), true],
  [
    [go("#definitions"), type("#definition", unit(hostile)), click("#load")],
    () => text("#packs a"), hostile
  ],
  [[click("#packs a")], () => text("#facts h2").startsWith(hostile), true],
  [
    [go("#definitions"), choose({[hostile + ".json"]: hostile})],
    () => text("#findings .place").startsWith(hostile), true
  ],
  [[go("#" + hostile)], () => document.title, "Convert – Units"],
  [[go("#__proto__?constructor=1&__proto__=2")], () => document.title, "Convert – Units"],
  [
    [],
    () => document
              .querySelectorAll("body :is(img, iframe, object, embed, b), body script:not([type])")
              .length,
    0
  ],
  [
    [],
    () => {
      try {
        return document.body.innerHTML = hostile;
      } catch (error) {
        return error.name;
      }
    },
    "TypeError"
  ],
  [[], () => fetch("data:,").then(() => "reached", error => error.name), "TypeError"]
];

async function runCases({library, data}) {
  const differences = [];
  let count = 0;
  for (const {folders, cases} of Object.values(caseFiles)) {
    const runner = new Cases(library, folders.map(pack => data.packs[pack]));
    for (const {call, with: words = [], gives = [], status, message, span = []} of cases) {
      count += 1;
      const expected = status ? [status, message, ...span.map(String)] : ["OK", ...[gives].flat()];
      const answer = runner.answer([call, ...words]);
      if (JSON.stringify(answer) !== JSON.stringify(expected))
        differences.push(`${call} ${JSON.stringify(words)}\n  gives ${JSON.stringify(answer)}`);
    }
  }
  return [`${count} cases`, differences];
}

async function runRows() {
  const differences = [];
  for (const [index, [actions, look, expected]] of rows.entries()) {
    for (const action of actions) await action();
    const found = await look();
    if (found !== expected)
      differences.push(`row ${index + 1}, ${look}\n  gives ${JSON.stringify(found)}, not ${
          JSON.stringify(expected)}`);
  }
  return [`${rows.length} rows`, differences];
}

async function test() {
  const said = [], differences = [];
  for (const run of [runCases, runRows]) {
    const [count, found] = await run(await started);
    said.push(`${count}, ${found.length} differ`);
    differences.push(...found);
  }
  return [...differences, ...said].join("\n");
}

const tested = test().catch(error => `broke off: ${error.stack}`);

tested.then(outcome => document.body.append(element("pre", {id: "tests"}, outcome)));
