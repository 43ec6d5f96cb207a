#include "loading/AddOrSkip.h"
#include "loading/BundledTexts.h"
#include "loading/FileReader.h"

#include <TrelvonUnits/SchemaBundle.h>

#include <memory>
#include <stdexcept>

namespace {

using Schemas::bundleHeader;
using Schemas::rejectBundle;

std::string_view readNext(Schemas::FileReader& file, std::size_t length) {
  const std::string_view bytes = file.read(length);
  if (file.hasFailed()) throw std::logic_error("failed to read schema bundle");
  return bytes;
}

/// The bytes of a file. If its first line is not that of a bundle, nothing more is read.
std::string readBundle(const std::string& path) {
  std::unique_ptr<char[]> chunk;
  Schemas::FileReader file(path, chunk);
  if (!file.isOpen()) throw std::logic_error("failed to open schema bundle");
  std::string content(readNext(file, bundleHeader.size()));
  if (content != bundleHeader) rejectBundle();
  Schemas::reserveRest(content, file.size());
  std::string_view bytes;
  do {
    bytes = readNext(file, file.chunkBytes);
    content.append(bytes);
  } while (bytes.size() == file.chunkBytes);
  return content;
}

}  // namespace

namespace Schemas {

void SchemaBundle::addDefinitionsFromBuffer(std::string_view bundle, Units::UnitsEngine& engine) {
  std::string text;  // for one after the other
  forEachBundledText(bundle, [&](std::string_view next) { addOrSkip(text = next, engine); });
  engine.buildSchemas();
}

void SchemaBundle::addDefinitionsFromFile(const std::string& file, Units::UnitsEngine& engine) {
  addDefinitionsFromBuffer(readBundle(file), engine);
}

}  // namespace Schemas
