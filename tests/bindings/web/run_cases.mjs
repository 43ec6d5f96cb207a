#!/usr/bin/env node
/**
 * The runner of cases.py for Node: its arguments are folders of packs, its lines those of Lines.h.
 */
import {readFileSync} from "node:fs";
import {basename} from "node:path";
import {Library} from "../../../bindings/web/library.mjs";
import {Cases} from "./cases.mjs";

const built = new URL("../../../build/web/", import.meta.url);
const library = await Library.load(readFileSync(new URL("trelvon.wasm", built)));
const {packs} = JSON.parse(readFileSync(new URL("definitions.json", built), "utf-8"));
const cases = new Cases(library, process.argv.slice(2).map(folder => packs[basename(folder)]));

const letters = {
  t: "\t",
  n: "\n",
  0: "\0",
  "\\": "\\"
};
const unescaped = word =>
    word === "\\N" ? null : word.replace(/\\(.)/g, (_, letter) => letters[letter]);
const escaped = word => word.replace(
    /[\\\t\n\0]/g, byte => "\\" + Object.keys(letters).find(key => letters[key] === byte));

const lines = readFileSync(0, "utf-8").split("\n").slice(0, -1);
const answers =
    lines.map(line => cases.answer(line.split("\t").map(unescaped)).map(escaped).join("\t") + "\n");
process.stdout.write(answers.join(""));
