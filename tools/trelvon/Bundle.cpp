#include "tools/trelvon/BundleIndex.h"
#include "tools/trelvon/Codes.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Run.h"

#include <map>

namespace tool {

Status runBundle(Context& context) {
  std::string bundle = "TrelvonUnits-schema-bundle-1\n";
  std::size_t count = 0;
  for (const std::string& folder : context.arguments.operands) {
    for (const std::string& path : schemaFiles(folder)) {
      const std::string text = readFile(path);
      bundle.append(text, 0, text.find('\0'));  // schema texts end at the first NUL
      bundle += '\0';
      ++count;
    }
  }
  if (!context.arguments.has("out")) throw Failure(Status::Usage, "bundle needs --out FILE");
  const std::string path = context.arguments.text("out");
  std::map<std::string, std::string> others;  // by option; made before anything is written
  if (context.arguments.has("index")) others["index"] = indexOfBundle(path, bundle);
  if (context.arguments.has("codes"))
    others["codes"] = codesOfFolders(context.arguments.operands).toText() + '\n';
  writeFile(path, bundle, true);
  for (const auto& [option, text] : others) writeFile(context.arguments.text(option), text, true);
  if (!context.wantsJson()) {
    context.out.write(std::to_string(count) + (count == 1 ? " definition\n" : " definitions\n"));
    return Status::Done;
  }
  JsonWriter json;
  json.beginObject();
  json.member("file", context.arguments.text("out"));
  json.member("definitions", count);
  json.member("bytes", bundle.size());
  json.endObject();
  context.out.write(json.text() + '\n');
  return Status::Done;
}

}  // namespace tool
