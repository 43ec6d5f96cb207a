#include "tools/trelvon/Arguments.h"

#include "tools/trelvon/Commands.h"
#include "tools/trelvon/ShownText.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace tool {

namespace {

/// The words of a command line, sorted before CLI11 reads the options: it treats most texts that
/// begin with a hyphen as options, and joins texts in brackets.
struct Words {
  std::string command;
  std::vector<std::string> options;  ///< Each as `--name` or `--name=value`.
  std::vector<std::string> operands;
};

bool looksLikeOption(std::string_view word) {
  return word.size() > 2 && word.substr(0, 2) == "--" &&
         ((word[2] >= 'a' && word[2] <= 'z') || (word[2] >= 'A' && word[2] <= 'Z'));
}

const Option* findOption(const std::vector<Option>& options, std::string_view name) {
  const auto found = std::find_if(options.begin(), options.end(),
                                  [name](const Option& option) { return option.name == name; });
  return found == options.end() ? nullptr : &*found;
}

const Option* knownOption(const Command* command, std::string_view name) {
  const Option* const common = findOption(commonOptions(), name);
  return common != nullptr || command == nullptr ? common : findOption(command->options, name);
}

bool isGiven(const Words& words, const Option& option) {
  const std::string name = "--" + option.name;
  return std::any_of(words.options.begin(), words.options.end(), [&](const std::string& word) {
    return word.substr(0, word.find('=')) == name;
  });
}

/// Adds the option at an index. Returns the index of the last word that belongs to it.
std::size_t addOption(const std::vector<std::string>& all, std::size_t index,
                      const Command* command, Words& words) {
  const std::string& word = all[index];
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(0, equals);
  const bool hasValue = equals != std::string::npos;
  const Option* const option = knownOption(command, std::string_view(name).substr(2));
  if (option == nullptr)
    throw Failure(Status::Usage,
                  "there is no option " + inQuotes(name) +
                      (command == nullptr ? " before a command; see trelvon --help"
                                          : "; see trelvon " + command->name + " --help"));
  if (!option->isRepeatable && !option->value.empty() && isGiven(words, *option))
    throw Failure(Status::Usage, name + " is given twice");
  if (option->value.empty()) {
    if (hasValue) throw Failure(Status::Usage, name + " takes no value");
    words.options.push_back(word);
    return index;
  }
  const bool isNext = !hasValue && index + 1 < all.size();
  const std::string value = hasValue ? word.substr(equals + 1) : isNext ? all[index + 1] : "";
  if (value.empty()) throw Failure(Status::Usage, name + " needs a value: " + option->value);
  words.options.push_back(name + '=' + value);
  return isNext ? index + 1 : index;
}

Words tellApart(const std::vector<std::string>& all) {
  Words words;
  const Command* command = nullptr;
  bool onlyOperands = false;
  for (std::size_t index = 0; index < all.size(); ++index) {
    const std::string& word = all[index];
    const bool mayBeHelp = word == "-h" && all.size() == (command == nullptr ? 1U : 2U);
    if (!onlyOperands && word == "--") {
      onlyOperands = true;
    } else if (!onlyOperands && (mayBeHelp || looksLikeOption(word))) {
      if (mayBeHelp)
        words.options.emplace_back("--help");
      else
        index = addOption(all, index, command, words);
    } else if (command == nullptr) {
      command = findCommand(words.command = word);
      if (command == nullptr)
        throw Failure(Status::Usage,
                      "there is no command " + inQuotes(word) + "; see trelvon --help");
    } else {
      words.operands.push_back(word);
    }
  }
  return words;
}

/// Why a text is not a whole number in a range; empty if it is. CLI11 would also accept 0x3 and
/// 010.
std::string whyOutside(const std::string& text, Range range) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number >= range.lowest &&
      number <= range.highest)
    return {};
  return inQuotes(text) + " is not a whole number from " + std::to_string(range.lowest) + " to " +
         std::to_string(range.highest);
}

void describe(CLI::App& app, const Option& option) {
  const std::string name = "--" + option.name;
  CLI::Option* const described = option.value.empty() ? app.add_flag(name) : app.add_option(name);
  described->multi_option_policy(option.isRepeatable ? CLI::MultiOptionPolicy::TakeAll
                                                     : CLI::MultiOptionPolicy::Throw);
  if (!option.value.empty()) described->expected(1);
  if (option.isRepeatable) described->expected(1, CLI::detail::expected_max_vector_size);
  described->allow_extra_args(false);
  if (option.range.highest >= option.range.lowest)
    described->check(
        [range = option.range](const std::string& text) { return whyOutside(text, range); });
  if (!option.choices.empty()) described->check(CLI::IsMember(option.choices));
  for (const std::string& other : option.excludes)
    if (CLI::Option* const excluded = app.get_option_no_throw("--" + other))
      described->excludes(excluded);
}

/// Lets CLI11 read and check the options.
void readOptions(std::vector<std::string> words, const Command* command, Arguments& arguments) {
  CLI::App app;
  app.set_help_flag();
  std::vector<Option> options = commonOptions();
  if (command != nullptr)
    options.insert(options.end(), command->options.begin(), command->options.end());
  for (const Option& option : options) describe(app, option);
  std::reverse(words.begin(), words.end());  // CLI11 takes them from the end
  try {
    app.parse(words);
  } catch (const CLI::ParseError& error) {
    throw Failure(Status::Usage, shown(error.what()));
  }
  for (const Option& option : options) {
    const CLI::Option* const read = app.get_option("--" + option.name);
    if (read->count() != 0) arguments.options[option.name] = read->results();
  }
}

void checkOperands(const Arguments& arguments) {
  const Command& command = *arguments.command;
  const std::size_t count = arguments.operands.size();
  if (arguments.has("help") || (count >= command.least && count <= command.most)) return;
  const std::string usage = "; usage: trelvon " + command.name + ' ' + command.operands;
  if (count > command.most)
    throw Failure(Status::Usage,
                  inQuotes(arguments.operands[command.most]) + " is one argument too many" + usage);
  throw Failure(Status::Usage, "an argument is missing" + usage);
}

}  // namespace

std::string Arguments::text(const std::string& option, const std::string& otherwise) const {
  const auto found = options.find(option);
  return found == options.end() ? otherwise : found->second.back();
}

std::optional<int> Arguments::number(const std::string& option) const {
  if (!has(option)) return std::nullopt;
  return std::atoi(text(option).c_str());
}

std::vector<std::string> Arguments::texts(const std::string& option) const {
  const auto found = options.find(option);
  return found == options.end() ? std::vector<std::string>() : found->second;
}

Arguments readArguments(const std::vector<std::string>& words) {
  const Words told = tellApart(words);
  Arguments arguments;
  arguments.command = findCommand(told.command);
  arguments.operands = told.operands;
  readOptions(told.options, arguments.command, arguments);
  if (arguments.command != nullptr) checkOperands(arguments);
  return arguments;
}

}  // namespace tool
