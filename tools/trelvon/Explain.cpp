#include "tools/trelvon/Context.h"
#include "tools/trelvon/Run.h"

#include <algorithm>

namespace tool {

namespace {

/// The text of an explanation, with colors where a terminal shows it.
void writeText(Output& out, const std::string& text) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string line = text.substr(begin, end - begin);
    const auto startsWith = [&](std::string_view start) {
      return line.compare(0, start.size(), start) == 0;
    };
    const bool isMark = line.find_first_not_of(" ^~") == std::string::npos && !line.empty();
    out.write(isMark                    ? out.tinted(line, Tint::Mark)
              : startsWith("error: ")   ? out.tinted(line, Tint::Error)
              : startsWith("warning: ") ? out.tinted(line, Tint::Warning)
              : startsWith("  write: ") ? out.tinted(line, Tint::Advice)
                                        : line);
    out.write("\n");
    begin = end + 1;
  }
}

}  // namespace

Status runExplain(Context& context) {
  const Arguments& arguments = context.arguments;
  const std::string& formula = arguments.operands[0];
  const auto hidden = Units::HiddenVariables::Ask;
  const VariableResolver variables = context.variables();
  const Units::UnitsEngine& engine = context.definitions.engine();
  const Units::FormulaExplanation explanation =
      arguments.has("to") ? explainFormula(engine, context.unit(arguments.text("to")).getTypeId(),
                                           formula, variables, hidden)
                          : explainFormula(engine, formula, variables, hidden);
  if (context.wantsJson()) {
    context.out.write(explanation.toJson() + '\n');
  } else {
    writeText(context.out, explanation.toText());
    context.out.write(explanation.toTree());
  }
  return explanation.reason() == Units::FormulaReason::Done ? Status::Done : Status::Findings;
}

}  // namespace tool
