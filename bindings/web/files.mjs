/** The files that were chosen or dropped. */

const mostFiles = 20000;

const isDefinition = name => name.endsWith(".json");

/** Files of a list, by the path below the folder that was chosen. */
export const chosen = list => [...list]
                                  .map(file => [file.webkitRelativePath || file.name, file])
                                  .filter(([path]) => isDefinition(path));

const asked = call => new Promise((resolve, reject) => call(resolve, reject));

/** Files that were dropped, and those in the folders that were, at any depth. */
export async function dropped(items) {
  const waiting = [...items].map(item => item.webkitGetAsEntry()).filter(entry => entry);
  const found = [];
  while (waiting.length > 0 && found.length < mostFiles) {
    const entry = waiting.pop();
    if (entry.isFile) {
      if (isDefinition(entry.name))
        found.push([entry.fullPath.slice(1), await asked((done, fail) => entry.file(done, fail))]);
      continue;
    }
    const reader = entry.createReader();
    // A browser hands them out in parts, and an empty one at the end.
    for (let part; (part = await asked((done, fail) => reader.readEntries(done, fail))).length > 0;)
      waiting.push(...part);
  }
  return found;
}

/** Names and bytes, in the order of a loader. */
export async function contents(files) {
  const read = await Promise.all(
      files.map(async ([path, file]) => [path, new Uint8Array(await file.arrayBuffer())]));
  return read.sort(([one], [other]) => one < other ? -1 : 1);
}
