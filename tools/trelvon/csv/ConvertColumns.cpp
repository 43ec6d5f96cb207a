#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/csv/ColumnPlan.h"
#include "tools/trelvon/csv/CsvReader.h"
#include "tools/trelvon/csv/Progress.h"

#include <TrelvonUnits/Exceptions.h>

#include <unistd.h>

namespace tool {

namespace {

enum class OnError { Stop, Keep, Empty };

std::string separatorOf(const Arguments& arguments) {
  const std::string separator = arguments.text("separator", ",");
  if (separator == "tab") return "\t";
  if (separator.find_first_of("\"\r\n") != std::string::npos)
    throw Failure(Status::Usage, "--separator must not contain a quote or a line break");
  return separator;
}

/// Rewrites the columns of a stream.
class Rewriter {
 public:
  explicit Rewriter(Context& context)
      : context_(context),
        engine_(context.definitions.engine()),
        separator_(separatorOf(context.arguments)),
        reader_(STDIN_FILENO, separator_) {
    const std::string action = context.arguments.text("on-error", "stop");
    onError_ = action == "keep"    ? OnError::Keep
               : action == "empty" ? OnError::Empty
                                   : OnError::Stop;
    for (const std::string& to : context.arguments.texts("to")) {
      std::optional<std::string> unit = context.unit(to).getTypeId();
      format_ = context.numberFormat(unit);
    }
    isRisky_ = separator_.find_first_not_of("0123456789.+-einfa") == std::string::npos;
    isPlain_ = !format_.places && !format_.fraction && !format_.symbol && !format_.isTidy;
  }

  /// @throws Failure  also for a bad cell, if that ends the run.
  void run() {
    start();
    Progress progress;
    std::size_t told = 0;
    while (reader_.next()) {
      if (reader_.bytesRead() != told) progress.tell(told = reader_.bytesRead());
      rewriteRow();
    }
  }

  std::size_t rows() const { return rows_; }
  std::size_t cells() const { return cells_; }
  std::size_t badCells() const { return badCells_; }

 private:
  /// Reads the header, if there is one, and makes the plans.
  void start() {
    const bool hasHeader = !context_.arguments.has("no-header") && reader_.next();
    plans_ = planColumns(context_, hasHeader ? &reader_ : nullptr);
    std::vector<std::size_t> columns;
    for (const ColumnPlan& plan : plans_) columns.push_back(plan.index);
    reader_.setColumns(columns);
    if (hasHeader) writeHeader();
  }

  void writeHeader() {
    const std::string_view row = reader_.row();
    std::size_t copied = 0;
    written_.clear();
    if (context_.arguments.has("from-header")) {
      const auto places = reader_.allPlaces();
      for (const ColumnPlan& plan : plans_) {
        const CellPlace& place = places[plan.index];
        written_ += row.substr(copied, place.begin - copied);
        appendCell(plan.header, place);
        copied = place.end;
      }
    }
    context_.out.write(written_ += row.substr(copied));
  }

  /// Appends a new text of a cell, in quotes if it was or must be.
  void appendCell(const std::string& text, const CellPlace& place) {
    if (!place.isQuoted && text.find_first_of("\"\r\n") == std::string::npos &&
        text.find(separator_) == std::string::npos) {
      written_ += text;
      return;
    }
    written_ += '"';
    for (const char c : text) written_.append(c == '"' ? 2 : 1, c);
    written_ += '"';
  }

  void rewriteRow() {
    if (reader_.isBlank()) {
      context_.out.write(reader_.row());
      return;
    }
    ++rows_;
    const std::string_view row = reader_.row();
    written_.clear();
    std::size_t copied = 0;
    for (std::size_t index = 0; index < plans_.size(); ++index) {
      const CellPlace& place = reader_.places()[index];
      const ColumnPlan& plan = plans_[index];
      const auto value = place.isMissing ? std::nullopt : readCell(plan, place);
      if (!value) refuse(plan, place);
      if (place.isMissing || (!value && onError_ == OnError::Keep)) continue;
      written_ += row.substr(copied, place.begin - copied);
      if (value) appendNumber(plan.conversion(*value), place);
      copied = place.end;
    }
    written_ += row.substr(copied);
    context_.out.write(written_);
  }

  std::optional<double> readCell(const ColumnPlan& plan, const CellPlace& place) {
    ++cells_;
    cell_.assign(reader_.row(), place.begin, place.end - place.begin);
    if (place.isQuoted) cell_ = reader_.textOf(place);
    return plan.reader.read(cell_);
  }

  void appendNumber(double value, const CellPlace& place) {
    if (isPlain_ && !place.isQuoted && !isRisky_) {
      appendShortest(written_, value);
      return;
    }
    appendCell(numberText(engine_, value, format_), place);
  }

  void refuse(const ColumnPlan& plan, const CellPlace& place) {
    ++badCells_;
    std::string sentence =
        "line " + std::to_string(reader_.line()) + ", column " + plan.shownName + ": ";
    if (place.isMissing) {
      sentence += "the row ends before it";
    } else {
      constexpr std::size_t mostShown = 80;
      const std::string text = reader_.textOf(place);
      sentence += inQuotes(text.substr(0, mostShown)) + (text.size() > mostShown ? "...: " : ": ") +
                  plan.reader.reasonAgainst(text);
    }
    if (onError_ == OnError::Stop) throw Failure(Status::Findings, sentence);
    context_.warn(sentence);
  }

  Context& context_;
  const Units::UnitsEngine& engine_;
  const std::string separator_;
  CsvReader reader_;
  NumberFormat format_;
  OnError onError_ = OnError::Stop;
  bool isPlain_ = true;
  bool isRisky_ = false;  ///< Whether the separator may occur in a number.
  std::vector<ColumnPlan> plans_;
  std::string written_, cell_;
  std::size_t rows_ = 0, cells_ = 0, badCells_ = 0;
};

}  // namespace

Status convertColumns(Context& context) {
  const Arguments& arguments = context.arguments;
  if (!arguments.operands.empty())
    throw Failure(Status::Usage, inQuotes(arguments.operands[0]) +
                                     " is one argument too many: --column reads standard input");
  if (!arguments.has("to") || !(arguments.has("from") || arguments.has("from-header")))
    throw Failure(Status::Usage, "--column needs --to UNIT, and --from UNIT or --from-header");
  Rewriter rewriter(context);
  rewriter.run();
  if (arguments.has("json")) {
    JsonWriter json;
    json.beginObject();
    json.member("rows", rewriter.rows());
    json.member("cells", rewriter.cells());
    json.member("bad", rewriter.badCells());
    json.endObject();
    context.errors.write(json.text() + '\n');
  } else if (rewriter.badCells() != 0) {
    context.warn(std::to_string(rewriter.badCells()) +
                 (rewriter.badCells() == 1 ? " cell was" : " cells were") + " not converted");
  }
  return rewriter.badCells() == 0 ? Status::Done : Status::Findings;
}

}  // namespace tool
