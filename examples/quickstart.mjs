/** Converts, evaluates and formats, with the catalog in a bundle. */
import {readFileSync} from "node:fs";

import {Library} from "../bindings/web/library.mjs";

const [module, bundle] = process.argv.slice(2);
const library = await Library.load(readFileSync(module));
const engine = library.call("engine_create");
library.call("add_bundle", engine, readFileSync(bundle));

const foot = "trelvon.unit:foot-1.0.0", meter = "trelvon.unit:meter-1.0.0";
const feetAndInches = "trelvon.symbol:feetAndInches-1.0.0";
console.log(+library.call("convert", engine, 6, foot, meter).toPrecision(6));
console.log(library.call("evaluate", engine, meter, "2 ft + 3 in"));
console.log(library.call("format_fractional", engine, 5.53125, 4, feetAndInches));
try {
  library.call("evaluate", engine, meter, "2 ft + 3 kg");
} catch (error) {
  console.log(error.message);
}
