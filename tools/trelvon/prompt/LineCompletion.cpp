#include "tools/trelvon/prompt/LineCompletion.h"

#include "tools/trelvon/Commands.h"
#include "tools/trelvon/Lookup.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/prompt/ShellWords.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>

namespace tool {

namespace {

constexpr std::string_view blanks = " \t", operators = "+-*/^(),";

bool beginsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

/// Those of the texts that begin with what is typed.
void addMatching(Completions& found, std::string_view typed,
                 const std::vector<std::string>& texts) {
  for (const std::string& text : texts)
    if (beginsWith(text, typed)) found.texts.push_back(text);
}

std::vector<std::string> partsOf(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t begin = 0, end = 0; end != std::string_view::npos; begin = end + 1) {
    end = text.find(separator, begin);
    parts.emplace_back(text.substr(begin, end - begin));
  }
  return parts;
}

enum class Wanted { Symbols, SingleWords, Names };

/// Whether a command line has the text as one word without quotes.
bool isSingleWord(const std::string& text) {
  return text.find_first_of(" \t'\"\\") == std::string::npos;
}

/// Texts that name units. Those in another letter case are used only if there are no others.
void addUnits(Completions& found, std::string_view typed, Wanted wanted, Definitions& definitions) {
  if (typed.empty()) return;
  const auto names =
      definitions.names().completions(typed, std::numeric_limits<std::size_t>::max());
  for (const Units::UnitName& name : names) {
    if (!name.isExact() && !found.texts.empty()) break;
    const std::string text = name.getText();
    const bool fits = wanted == Wanted::Symbols ? name.getKind() == Units::NameKind::SymbolText
                                                : wanted == Wanted::Names || isSingleWord(text);
    if (fits && shown(text) == text) found.texts.push_back(text);
  }
}

/// If the name of a unit is typed, which formulas do not read, offers the texts that they do read.
void addSymbolsOfUnits(Completions& found, Definitions& definitions) {
  Completions names;
  std::swap(names.texts, found.texts);
  const Units::UnitsEngine& engine = definitions.engine();
  for (const std::string& name : names.texts)
    for (const Units::UnitName& named : definitions.names().find(name))
      for (const auto& [typeId, symbol] : engine.getSymbolsOfUnit(named.getUnit().getTypeId()))
        if (const std::string text = textOf(symbol); !text.empty() && shown(text) == text) {
          found.texts.push_back(text);
          break;
        }
}

/// The last part of a formula, which may begin in several places: `m/` of `5 m/` begins texts of
/// symbols, and `kilom` of `2*kilom` does after an operator. The longest one that can be completed
/// is used.
Completions completeFormula(std::string_view line, const std::vector<std::string>& variables,
                            Definitions& definitions) {
  std::size_t begin = line.find_last_of(" \t(") + 1;
  begin = std::min(line.find_first_not_of("0123456789.", begin), line.size());
  while (begin < line.size()) {
    const std::string_view typed = line.substr(begin);
    Completions found = {typed.size()};
    addMatching(found, typed, variables);
    addUnits(found, typed, Wanted::Symbols, definitions);
    if (found.texts.empty()) {
      addUnits(found, typed, Wanted::SingleWords, definitions);
      addSymbolsOfUnits(found, definitions);
    }
    if (!found.texts.empty()) return found;
    begin = line.find_first_of(operators, begin);
    begin = begin == std::string_view::npos
                ? line.size()
                : std::min(line.find_first_not_of("0123456789.", begin + 1), line.size());
  }
  return {};
}

const Option* optionOf(const Command& command, const std::string& word) {
  for (const auto* const options : {&command.options, &commonOptions()})
    for (const Option& option : *options)
      if ("--" + option.name == word) return &option;
  return nullptr;
}

Completions completeOption(std::string_view typed, const Command& command) {
  Completions found = {typed.size()};
  for (const auto* const options : {&command.options, &commonOptions()})
    for (const Option& option : *options) addMatching(found, typed, {"--" + option.name});
  return found;
}

/// What the last word of a command line stands for: an option's value, or an operand.
std::string meaningOf(const std::vector<std::string>& words, std::size_t last,
                      const Command& command, const Option*& option) {
  const auto operands = partsOf(command.operands, ' ');
  std::size_t place = 0;
  option = nullptr;
  for (std::size_t index = 1; index < last; ++index) {
    const bool isValue = option != nullptr;
    option = isValue ? nullptr : optionOf(command, words[index]);
    if (option != nullptr && option->value.empty()) option = nullptr;
    if (!isValue && !beginsWith(words[index], "--")) ++place;
  }
  return option != nullptr ? option->value : operands[std::min(place, operands.size() - 1)];
}

/// Files and folders. Those that begin with a point are offered only if a point is typed.
void addPaths(Completions& found, std::string_view typed, bool onlyFolders) {
  namespace fs = std::filesystem;
  const std::string folder(typed.substr(0, typed.rfind('/') + 1));
  const bool wantsHidden = beginsWith(typed.substr(folder.size()), ".");
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unknown;
    const bool isFolder = entry->is_directory(unknown);
    const std::string path = folder + entry->path().filename().string() + (isFolder ? "/" : "");
    const bool isHidden = path[folder.size()] == '.';
    if ((isFolder || !onlyFolders) && isHidden == wantsHidden && isSingleWord(path) &&
        shown(path) == path)
      addMatching(found, typed, {path});
  }
}

void addSymbols(Completions& found, std::string_view typed, Definitions& definitions) {
  for (const auto& [typeId, symbol] : definitions.engine().getSymbols())
    for (const std::string& text : {Units::UnitNames::localId(typeId), textOf(symbol)})
      if (isSingleWord(text) && shown(text) == text) addMatching(found, typed, {text});
}

Completions completeCommand(std::string_view line, const Command& command,
                            const std::vector<std::string>& variables, Definitions& definitions) {
  const ShellWords read = shellWords(line);
  const std::string_view typed = line.substr(read.begin);
  if (beginsWith(typed, "--")) return completeOption(typed, command);
  if (read.isOpen) return completeFormula(line.substr(read.begin + 1), variables, definitions);
  const Option* option = nullptr;
  const std::string meaning =
      meaningOf(read.words, read.words.size() - (typed.empty() ? 0 : 1), command, option);
  Completions found = {typed.size()};
  if (meaning == "FORMULA" || meaning == "NUMBER") {
    found = completeFormula(typed, variables, definitions);
    const auto isNoWord = [](const std::string& text) { return !isSingleWord(text); };
    found.texts.erase(std::remove_if(found.texts.begin(), found.texts.end(), isNoWord),
                      found.texts.end());
  } else if (option != nullptr && !option->choices.empty()) {
    addMatching(found, typed, option->choices);
  } else if (meaning.find('|') != std::string::npos) {
    addMatching(found, typed, partsOf(meaning, '|'));
  } else if (beginsWith(meaning, "FOLDER")) {
    addPaths(found, typed, true);
  } else if (meaning == "FILE" || meaning == "OLD" || meaning == "NEW") {
    addPaths(found, typed, false);
  } else if (meaning == "SYMBOL" && !typed.empty()) {
    addSymbols(found, typed, definitions);
  } else {
    addUnits(found, typed, Wanted::SingleWords, definitions);
  }
  return found;
}

/// A line of one word may be a command, too.
Completions completeFirst(std::string_view line, const std::vector<std::string>& variables,
                          Definitions& definitions) {
  Completions found = completeFormula(line, variables, definitions);
  if (line.find_first_of(blanks) != std::string_view::npos ||
      (!found.texts.empty() && found.typed < line.size()))
    return found;
  found.typed = line.size();
  for (const Command& command : commands())
    if (!command.isHidden) addMatching(found, line, {command.name});
  addMatching(found, line, {"help", "quit"});
  return found;
}

Completions completeUnit(std::string_view line, Definitions& definitions) {
  const std::string_view typed =
      line.substr(std::min(line.find_first_not_of(blanks, 1), line.size()));
  Completions found = {typed.size()};
  addUnits(found, typed, Wanted::Names, definitions);
  return found;
}

}  // namespace

Completions completeLine(std::string_view given, const std::vector<std::string>& variables,
                         Definitions& definitions) {
  const std::string_view line =
      given.substr(std::min(given.find_first_not_of(blanks), given.size()));
  const std::size_t end = line.find_first_of(blanks);
  const Command* const command =
      end == std::string_view::npos ? nullptr : findCommand(std::string(line.substr(0, end)));
  Completions found = command != nullptr && !command->isHidden
                          ? completeCommand(line, *command, variables, definitions)
                      : beginsWith(line, "=") ? completeUnit(line, definitions)
                                              : completeFirst(line, variables, definitions);
  std::sort(found.texts.begin(), found.texts.end());
  found.texts.erase(std::unique(found.texts.begin(), found.texts.end()), found.texts.end());
  return found;
}

}  // namespace tool
