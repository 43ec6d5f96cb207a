/**
 * Compares `trelvon_convert` as WebAssembly with the native library, in rounds that alternate, by
 * the time of the processor: web_speed.mjs FOLDER NATIVE, where FOLDER has what scripts/web.sh
 * makes and NATIVE is ConvertLoop.c, compiled. Prints the least time of each and their ratio.
 */
import {execFileSync} from "node:child_process";
import {readFileSync} from "node:fs";

import {Library} from "../bindings/web/library.mjs";

const [folder, native] = process.argv.slice(2);
const calls = 300000, rounds = 9, bytesOfText = 8;
const from = "trelvon.unit:poundForcePerSquareInch-1.0.0", to = "trelvon.unit:kilopascal-1.0.0";
const bundle = JSON.parse(readFileSync(`${folder}/definitions.json`, "utf-8")).packs.core;
const library = await Library.load(readFileSync(`${folder}/trelvon.wasm`));
const {exports} = library;
const engine = library.call("engine_create");
library.call("add_bundle", engine, bundle);

/** A text that stays in the memory of the module. */
function stored(text) {
  const bytes = new TextEncoder().encode(text), at = exports.malloc(bytesOfText + bytes.length);
  library.bytes.set(bytes, at + bytesOfText);
  library.view.setUint32(at, at + bytesOfText, true);
  library.view.setUint32(at + 4, bytes.length, true);
  return at;
}

const texts = [stored(from), stored(to)], result = exports.malloc(8);

const measured = {
  "native": () => Number(execFileSync(native, {input: bundle})),
  "WebAssembly": () =>
      timed(number => exports.trelvon_convert(engine, number, ...texts, result, 0)),
  "WebAssembly, by library.call": () =>
      timed(number => library.call("convert", engine, number, from, to))
};

function timed(convert) {
  const start = process.cpuUsage().user;
  for (let number = 0; number < calls; ++number) convert(number);
  return (process.cpuUsage().user - start) * 1e3 / calls;
}

const least = {};
for (let round = 0; round < rounds; ++round)
  for (const [name, measure] of Object.entries(measured))
    least[name] = Math.min(least[name] ?? Infinity, measure());
for (const [name, time] of Object.entries(least))
  console.log(`${name}: ${time.toFixed(0)} ns, ${(time / least.native).toFixed(2)} times native`);
