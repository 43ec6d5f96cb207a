#include <TrelvonUnits/SchemaBundle.h>

#include <TrelvonUnits/Exceptions.h>

#include "loading/OpenFile.h"

#include <cstddef>
#include <cstdio>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::string_view header = "TrelvonUnits-schema-bundle-1\n";
constexpr std::size_t chunkBytes = 65536;

std::string readFile(const std::string& path) {
  const Schemas::OpenedFile file = Schemas::openFile(path);
  if (!file) throw std::logic_error("failed to open schema bundle");
  std::string content;
  std::vector<char> chunk(chunkBytes);
  std::size_t length = 0;
  do {
    length = std::fread(chunk.data(), 1, chunk.size(), file.get());
    content.append(chunk.data(), length);
  } while (length == chunk.size());
  if (std::ferror(file.get())) throw std::logic_error("failed to read schema bundle");
  return content;
}

void add(const std::string& text, Units::UnitsEngine& engine) {
  try {
    engine.addDefinition(text);
  } catch (const Units::ValidationException&) {
    // No schema, or one whose type id is taken: the text is passed over.
  }
}

}  // namespace

namespace Schemas {

void SchemaBundle::addDefinitionsFromBuffer(std::string_view bundle, Units::UnitsEngine& engine) {
  const bool begins = bundle.substr(0, header.size()) == header;
  bundle.remove_prefix(begins ? header.size() : 0);
  if (!begins || (!bundle.empty() && bundle.back() != '\0'))
    throw std::logic_error("not a schema bundle");
  while (!bundle.empty()) {
    const std::size_t length = bundle.find('\0');
    add(std::string(bundle.substr(0, length)), engine);
    bundle.remove_prefix(length + 1);
  }
  engine.buildSchemas();
}

void SchemaBundle::addDefinitionsFromFile(const std::string& file, Units::UnitsEngine& engine) {
  addDefinitionsFromBuffer(readFile(file), engine);
}

}  // namespace Schemas
