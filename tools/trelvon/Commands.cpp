#include "tools/trelvon/Commands.h"

#include "tools/trelvon/Run.h"

#include <algorithm>

namespace tool {

namespace {

Option flag(const std::string& name, const std::string& text) { return {name, "", text}; }

Option repeatable(Option option) {
  option.isRepeatable = true;
  return option;
}

Option without(Option option, const std::vector<std::string>& others) {
  option.excludes = others;
  return option;
}

Option oneOf(Option option, const std::vector<std::string>& choices) {
  option.choices = choices;
  return option;
}

Option within(Option option, Range range) {
  option.range = range;
  return option;
}

const Option placesOption = within({"places", "NUMBER", "decimal places"}, {0, 12});
const Option fractionOption = without(
    within({"fraction", "NUMBER", "show fractions in steps of 1/2^NUMBER"}, {0, 9}), {"places"});
const Option asOption = {
    "as", "SYMBOL",
    "show this symbol, named by its text, local id or type id; without --places or "
    "--fraction, show as many decimal places as matter"};
const Option tidyOption =
    without(flag("tidy", "show 15 digits, to hide rounding errors in the last ones"),
            {"places", "fraction", "as"});
const Option localeOption = {"locale", "NAME",
                             "use the marks and digits of a locale, such as de or en-IN"};
const Option setOption = repeatable({"set", "NAME=TEXT", "set a variable, such as width=\"2 ft\""});

Command convertCommand() {
  Command command = {"convert", "NUMBER FROM TO", 0, 3};
  command.summary = "Converts a number, or columns of a CSV or TSV stream";
  command.details =
      "NUMBER may be any formula; a plain number is in the unit FROM. You can name units by type "
      "id, "
      "local id, name or symbol. With --column, standard input is a table: each cell of the column "
      "is read as a number or a value with a unit, and all other bytes stay as they are.";
  command.options = {
      placesOption,
      fractionOption,
      asOption,
      tidyOption,
      localeOption,
      without(repeatable({"column", "COLUMN",
                          "convert a column, given by its number or its name in the header"}),
              {"locale"}),
      repeatable({"from", "UNIT", "the unit of the cells: one for all columns, or one per column"}),
      repeatable({"to", "UNIT", "the unit to convert to: one for all columns, or one per column"}),
      without(
          flag("from-header", "read the unit from the header, such as width [ft], and update it"),
          {"from"}),
      without(flag("no-header", "the first row is data, not a header"), {"from-header"}),
      {"separator", "TEXT", "what separates cells: a text, or tab; a comma by default"},
      oneOf({"on-error", "ACTION",
             "what to do with a bad cell: stop before its row (the default), keep it or empty it"},
            {"stop", "keep", "empty"})};
  command.examples = {{"trelvon convert 5 ft in", "60"},
                      {R"(printf 'name,width\ndoor,3\nwall,1 ft\n' | )"
                       "trelvon convert --column width --from m --to cm",
                       "name,width\ndoor,300\nwall,30.48"}};
  command.run = runConvert;
  return command;
}

Command evalCommand() {
  Command command = {"eval", "FORMULA", 1, 1};
  command.summary = "Evaluates a formula whose numbers carry units";
  command.details =
      "Without --to, the value is shown in the default unit of a quantity that fits, preferably "
      "one "
      "that lists a unit of the formula, and the other quantities are named. Warnings go to "
      "standard error; trelvon explain gives details.";
  command.options = {{"to", "UNIT", "the unit of the value"},
                     asOption,
                     placesOption,
                     fractionOption,
                     tidyOption,
                     localeOption,
                     setOption};
  command.examples = {
      {R"(trelvon eval "5' 6 1/2\" + 3 cm" --to ft --as feetAndInches --fraction 4)",
       R"(5' 7 11/16")"},
      {R"(trelvon eval "2 * width" --set width="2 N*m")",
       "4 newton meter  (torque (moment of force))\n"
       "also: energy, apparent energy, reactive energy"}};
  command.run = runEval;
  return command;
}

Command explainCommand() {
  Command command = {"explain", "FORMULA", 1, 1};
  command.summary = "Explains how a formula is read, what may surprise you, and why it is refused";
  command.details =
      "Prints marks beneath the formula, sentences, the value, and the tree with the value of each "
      "node in base units.";
  command.options = {{"to", "UNIT", "the unit of the value"}, setOption};
  command.examples = {
      {R"(trelvon explain "10 m - 35 cm" --to m)",
       "10 m - 35 cm\n^~~~~~~~~~~~\n"
       "warning: `10 m - 35 cm` is one value: `-` only separates its parts, and subtracts "
       "nothing.\n"
       "  write: 10 m - (35 cm)\n= 10.35 trelvon.unit:meter-1.0.0\n"
       "  10 m - 35 cm  = 10.35 meter"},
      {R"(trelvon explain "2 ft + 3 kg")",
       "2 ft + 3 kg\n     ^\n"
       "error: `+` needs the same units on both sides: left is a length, right is a mass.\n"
       "  +  was not reached\n    2 ft  = 0.6096 meter\n    3 kg  = 3 kilogram\n[1]"}};
  command.run = runExplain;
  return command;
}

Command formatCommand() {
  Command command = {"format", "NUMBER", 1, 1};
  command.summary = "Writes a number as display text";
  command.details =
      "The number is not converted: it is already in the unit of the symbol. With --locale or "
      "--display, it is rounded before it is split into feet and inches.";
  command.options = {asOption,
                     placesOption,
                     fractionOption,
                     tidyOption,
                     localeOption,
                     without({"display", "FILE", "use the display that a JSON file describes"},
                             {"as", "places", "fraction", "tidy", "locale"}),
                     flag("read", "read NUMBER, a text in this form, and print its value")};
  command.examples = {{"trelvon format 5.53125 --as feetAndInches --fraction 4", R"(5' 6 3/8")"},
                      {"trelvon format 1234567.5 --as kilogram --locale de", "1.234.567,5 kg"}};
  command.run = runFormat;
  return command;
}

Command listCommand() {
  Command command = {"list", "units|quantities|symbols|factors|dimensions", 1, 1};
  command.summary = "Lists definitions";
  command.details = "The first column is the local id, which other commands accept as a name.";
  command.options = {
      {"of", "UNIT",
       "only units that it converts to, quantities that list it, symbols that show it, "
       "or factors and dimensions that it is made of"}};
  command.examples = {
      {"trelvon list units --of lux",
       "footcandle  footcandle  fc\nlux         lux         lx, lm/m2, lm/m^2, lm/m\xC2\xB2\n"
       "phot        phot        ph"},
      {"trelvon list symbols --of mile",
       "mile        mi     mile\nmile.mile   mile   mile\nmile.miles  miles  mile"}};
  command.run = runList;
  return command;
}

Command showCommand() {
  Command command = {"show", "NAME", 1, 1};
  command.summary = "Shows a definition";
  command.details =
      "NAME is the type id, local id or name of a unit or, if no unit matches, of a quantity, "
      "symbol, factor or dimension. The exact value is in kg, m, s, A, K, mol, cd, rad and bit.";
  command.options = {flag("tree", "also show its parents, down to primitive units"),
                     flag("dot", "print the same tree for Graphviz")};
  command.examples = {
      {"trelvon show mile",
       "type id     trelvon.unit:mile-1.0.0\nname        mile\nkind        derived unit\n"
       "factor      1609.344\nparents     meter\nsymbols     mi, mile, miles\n"
       "quantities  length\ncodes       qudt:MI, rec20:SMI, ucum:[mi_i], udunits:mile, "
       "udunits:international_mile, udunits:mi\n"
       "exact       201168/125\nsource      IYP59"},
      {"trelvon show kilo --tree",
       "type id  trelvon.factor:kilo-1.0.0\nname     kilo\nkind     factor\nfactor   1000\n"
       "exact    1000\nsource   SI T7; SI prefix\n\nkilo  factor, factor 1000"}};
  command.run = runShow;
  return command;
}

Command lintCommand() {
  Command command = {"lint", "FOLDER...", 1, anyNumber};
  command.summary = "Reports what is wrong in definitions, where it is, and how to fix it";
  command.details =
      "The folders are loaded after the catalog, or alone with --only. The status is 1 if there is "
      "any finding.";
  command.options = {
      oneOf({"format", "FORMAT", "text (the default), json or sarif"}, {"text", "json", "sarif"}),
      flag("errors-only", "report only what keeps definitions from loading, and no lints"),
      repeatable({"variable", "NAME",
                  "a variable name to check for symbols that hide it; "
                  "by default, a list of common names"}),
      flag("watch", "report again on each save, until you stop the program")};
  command.examples = {
      {"trelvon lint my-units --errors-only", "0 errors, 0 warnings; 2 files, 2 loaded"},
      {"trelvon lint my-units",
       "my-units/units/smoot.json:3:13: warning: No quantity lists the unit. [unlisted-unit]\n"
       "  Add it to the quantity that it measures.\n"
       "0 errors, 1 warning; 2 files, 2 loaded\n[1]"}};
  command.run = runLint;
  return command;
}

Command newCommand() {
  Command command = {"new", "unit|quantity|symbol|factor|dimension NAME", 2, 2};
  command.summary = "Writes a definition";
  command.details =
      "The file is FOLDER/units/NAME.json or similar. An existing file is never replaced. Before "
      "anything is written, the definition is checked against the catalog and the folder.";
  command.options = {
      {"in", "FOLDER", "the folder to write to; its definitions are loaded first"},
      {"namespace", "NAME", "the first part of the type id; my by default"},
      {"label", "TEXT", "the display name of a unit or quantity; NAME by default"},
      {"from", "VALUE", "a unit: what one of it is, such as \"67 in\""},
      repeatable({"times", "UNIT[^POWER]", "a unit: another unit to multiply by"}),
      {"offset", "NUMBER", "a unit: the zero of the scale, in the unit of --from"},
      {"dimension", "NAME", "a unit without parents: its dimension"},
      flag("imperial", "a unit: belongs to the imperial system"),
      repeatable({"of", "NAME",
                  "a symbol: its unit; a quantity: one of its units; a factor: another factor to "
                  "multiply by, with ^POWER"}),
      {"text", "TEXT", "a symbol: its text; NAME by default"},
      flag("prefix", "a symbol: the text comes before the number"),
      flag("no-space", "a symbol: no space between text and number"),
      {"value", "NUMBER", "a factor: its number"}};
  command.examples = {
      {R"(trelvon new unit smoot --in my-units --from "67 in")", "my-units/units/smoot.json"},
      {"trelvon new symbol smoot --in my-units --of smoot", "my-units/symbols/smoot.json"}};
  command.run = runNew;
  return command;
}

Command namesCommand() {
  Command command = {"names", "NAME...", 1, anyNumber};
  command.summary =
      "Tells which variable names cannot be used in formulas, and which symbol hides them";
  command.details =
      "A formula reads a hidden name as something else and never looks it up as a variable.";
  command.examples = {{"trelvon names width t h1",
                       "width: free\n"
                       "t: read as \"tonne (metric ton)\" by trelvon.symbol:tonne-1.0.0\n"
                       "h1: read as \"hour\" by trelvon.symbol:hour-1.0.0\n[1]"},
                      {"trelvon names --only t", "t: free"}};
  command.run = runNames;
  return command;
}

Command bundleCommand() {
  Command command = {"bundle", "FOLDER...", 1, anyNumber};
  command.summary = "Writes the definitions of folders into one file, which loads faster";
  command.details =
      "The bundle holds the files that the folder loader reads, in byte order of their paths "
      "within "
      "each folder.";
  command.options = {{"out", "FILE", "the file to write; an existing file is replaced"},
                     {"codes", "FILE", "also write the codes of the folders to this file"},
                     {"index", "FILE", "also write to this file where each unit is in the bundle"}};
  command.examples = {{"trelvon bundle my-units --out my.bundle", "2 definitions"},
                      {"trelvon bundle my-units --out my.bundle && trelvon diff my-units my.bundle",
                       "2 definitions"}};
  command.run = runBundle;
  return command;
}

Command diffCommand() {
  Command command = {"diff", "OLD NEW", 2, 2};
  command.summary = "Compares the definitions of two folders or bundles";
  command.details =
      "It compares the files and does not build definitions. The status is 1 if they differ.";
  command.examples = {{"trelvon diff my-units my.bundle", ""},
                      {R"(sed -i 's/"value":67/"value":68/' my-units/units/smoot.json; )"
                       "trelvon diff my.bundle my-units",
                       "changed  my.unit:smoot-1.0.0\n  factor: 67 -> 68\n[1]"}};
  command.run = runDiff;
  return command;
}

Command completionCommand() {
  Command command = {"completion", "bash|zsh|fish", 1, 1};
  command.summary = "Writes a script that lets a shell complete trelvon command lines";
  command.examples = {
      {"source <(trelvon completion bash) && complete -p trelvon", "complete -F _trelvon trelvon"},
      {"trelvon completion fish | head -1",
       "# Completion of trelvon for fish, written by `trelvon completion fish`."}};
  command.run = runCompletion;
  command.isHidden = true;
  return command;
}

Command manualCommand() {
  Command command = {"manual", "[COMMAND]", 0, 1};
  command.summary = "Writes the manual page of trelvon or of a command, for man";
  command.options = {
      {"out", "FOLDER", "write all pages and completion scripts to a folder instead"}};
  command.examples = {
      {"trelvon manual show | sed -n 2,3p", R"(.SH NAME
trelvon\-show \- Shows a definition)"},
      {"trelvon manual --out pages && ls pages/man/man1/*list*", "pages/man/man1/trelvon-list.1"}};
  command.run = runManual;
  command.isHidden = true;
  return command;
}

}  // namespace

const std::vector<Command>& commands() {
  static const std::vector<Command> all = {
      convertCommand(), evalCommand(),       explainCommand(), formatCommand(), listCommand(),
      showCommand(),    newCommand(),        lintCommand(),    namesCommand(),  bundleCommand(),
      diffCommand(),    completionCommand(), manualCommand()};
  return all;
}

const Command* findCommand(const std::string& name) {
  const auto found = std::find_if(commands().begin(), commands().end(),
                                  [&](const Command& command) { return command.name == name; });
  return found == commands().end() ? nullptr : &*found;
}

const std::vector<Option>& commonOptions() {
  static const std::vector<Option> all = {
      repeatable({"load", "FOLDER", "also load a folder of definitions, after the catalog"}),
      flag("only", "do not load the catalog"),
      flag("strict", "stop at the first error in a folder"),
      flag("json", "print one JSON object"),
      oneOf({"color", "WHEN", "auto, always or never; auto respects NO_COLOR"},
            {"auto", "always", "never"}),
      flag("help", "print this help"),
      flag("version", "print the version")};
  return all;
}

}  // namespace tool
