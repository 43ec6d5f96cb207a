#include "tools/trelvon/Context.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <TrelvonUnits/SchemaReport.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <thread>

namespace tool {

namespace {

namespace fs = std::filesystem;

Schemas::SchemaReport reportOn(Context& context) {
  const Arguments& arguments = context.arguments;
  Schemas::ReportOptions options;
  options.lint = !arguments.has("errors-only");
  if (arguments.has("variable")) options.variableNames = arguments.texts("variable");
  for (const std::string& folder : arguments.operands) {
    std::error_code unknown;
    if (!fs::is_directory(folder, unknown))
      throw Failure(Status::Files, inQuotes(folder) + " is not a folder");
  }
  Definitions definitions(arguments, [&](const std::string& sentence) { context.warn(sentence); });
  return Schemas::loadFolders(arguments.operands, definitions.engine(), options);
}

void write(Context& context, const Schemas::SchemaReport& report) {
  const std::string format =
      context.arguments.text("format", context.wantsJson() ? "json" : "text");
  std::string text = format == "json"    ? report.toJson()
                     : format == "sarif" ? report.toSarif()
                                         : report.toText();
  if (text.empty() || text.back() != '\n') text += '\n';
  context.out.write(text);
}

/// Shows whether files were saved: their times and sizes.
using Saved = std::map<std::string, std::pair<fs::file_time_type, std::uintmax_t>>;

Saved savedFiles(const std::vector<std::string>& folders) {
  Saved saved;
  for (const std::string& folder : folders) {
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
      std::error_code unknown;
      saved[entry->path().string()] = {entry->last_write_time(unknown), entry->file_size(unknown)};
    }
  }
  return saved;
}

/// Reports again whenever a file is saved, until the program is stopped.
[[noreturn]] void watch(Context& context) {
  constexpr auto pause = std::chrono::milliseconds(200);
  Saved before;
  for (bool isFirst = true;; isFirst = false) {
    Saved now = savedFiles(context.arguments.operands);
    if (isFirst || now != before) {
      before = std::move(now);
      write(context, reportOn(context));
      context.out.flush();
      context.errors.flush();
    }
    std::this_thread::sleep_for(pause);
  }
}

}  // namespace

Status runLint(Context& context) {
  if (context.arguments.has("watch")) watch(context);
  const Schemas::SchemaReport report = reportOn(context);
  write(context, report);
  return report.getErrorCount() + report.getWarningCount() == 0 ? Status::Done : Status::Findings;
}

}  // namespace tool
