#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/VariableResolver.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

struct ExplanationContents;  // known to the library alone

/// A range of bytes in a formula or in a text that replaced an identifier. Its members are part of
/// the binary interface and stay as they are.
struct FormulaSpan {
  std::size_t text = 0;     ///< Index in `FormulaExplanation::texts`; 0 is the formula.
  std::size_t begin = 0;    ///< Offset of the first byte.
  std::size_t endText = 0;  ///< Other than `text` only for a literal that runs on past the end of a
                            ///< replacement. The text of a symbol that holds a `)` can cause that.
  std::size_t end = 0;      ///< Offset behind the last byte, in `endText`.
};

/// How a formula was read and what came of it, value or refusal.
///
///   const auto explained = explainFormula(*engine, meter, "10 m - 35 cm", {});
///   explained.value();                    // 10.35
///   explained.warnings()[0].sentence();   // says that "-" was read as a separator
///   std::cout << explained.toText();
///
/// - It is data: it holds no reference to the engine and calls nothing back. No member recurses.
/// - Copies share their contents, which never change; they may be used on any number of threads.
/// - What it returns (`Text`, `Token`, `Node`, `Warning`) shares the contents, too, and stays valid
///   without it.
/// - Enumerations may grow at their end in later versions.
class TRELVONUNITS_API FormulaExplanation {
 public:
  /// What a token is.
  enum class TokenKind : std::int32_t {
    Operator = 1,
    Function = 2,
    Number = 3,      ///< A literal: a number with or without a unit, or a composite value.
    UnitSymbol = 4,  ///< The text of a unit without a number.
    OpenParenthesis = 5,
    CloseParenthesis = 6,
    Variable = 7,  ///< A parameter of a `ParameterTable`, whose value is known.
  };

  /// What a node of the tree does.
  enum class NodeKind : std::int32_t {
    Number = 1,       ///< A literal, including a minus sign before it.
    Operator = 2,     ///< With two operands, or a minus sign with one.
    Function = 3,     ///< With one operand, or none.
    Symbol = 4,       ///< The text of a unit before or after parentheses.
    Parentheses = 5,  ///< Adjacent parentheses are one node.
    Variable = 6,     ///< A parameter of a `ParameterTable`, without operands.
  };

  /// What may surprise in a formula.
  enum class WarningKind : std::int32_t {
    HyphenIsSeparator = 1,      ///< `10 m - 35 cm` is 10.35 m.
    NumbersJoined = 2,          ///< `7 ft2` is 7 feet and 2 inches.
    PowerOfLiteral = 3,         ///< `5 s^2` is (5 s)^2.
    NoCompositeSymbol = 4,      ///< `5' 6"` is the plain number 5.5 where no symbol is defined.
    ScalesAdded = 5,            ///< `20 °C + 5 °C` adds distances from absolute zero.
    ScaleMultiplied = 6,        ///< `2 * 10 °C` doubles the distance from absolute zero.
    VariableHidden = 7,         ///< The text of a unit comes before a variable of the host.
    PlainNumber = 8,            ///< A result without units is taken to be in the requested unit.
    ReciprocalConverted = 9,    ///< `5 Hz` in seconds is 0.2.
    QuotientIsReciprocal = 10,  ///< `1/2 mm` is 1 / (2 mm), in millimeters 2.
    LogarithmToBaseTen = 11,    ///< `log` is to base 10; `ln` is the natural logarithm.
    RoundsInBaseUnits = 12,     ///< `round(1.4 ft)` rounds meters.
    MarkMeansFeet = 13,         ///< `30'` is 30 feet, where another unit than feet was asked for.
  };

  /// The class of the exception that the engine throws for the formula.
  enum class ExceptionClass : std::int32_t {
    None = 0,
    ParseException = 1,
    IncompatibleUnitsException = 2,
    LogicError = 3,  ///< std::logic_error itself.
  };

  /// The formula, or a text that replaced an identifier.
  class TRELVONUNITS_API Text {
   public:
    Text(const Text& other) noexcept;
    ~Text();
    Text& operator=(const Text&) = delete;

    /// As read. A replacement has its parentheses, in which it is read.
    const std::string& text() const;
    /// What it replaced, in the text above. Empty for the formula.
    FormulaSpan identifier() const;

   private:
    friend class FormulaExplanation;
    Text(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  /// A token, in reading order. In each text, tokens, separators (spaces, tabs, line feeds) and
  /// replaced identifiers follow each other without gap or overlap, up to where reading stopped.
  class TRELVONUNITS_API Token {
   public:
    Token(const Token& other) noexcept;
    ~Token();
    Token& operator=(const Token&) = delete;

    TokenKind kind() const;    ///< Tells which of the members below have a value.
    FormulaSpan span() const;  ///< Where it stands, without separators around it.
    std::string text() const;  ///< What the span covers.
    double value() const;      ///< Of a number: as read, in its unit, without a sign before it.
    std::string symbolTypeId() const;  ///< Of a number or symbol; empty if there is none.
    std::string unitTypeId() const;    ///< Of the symbol's unit; empty if there is none.

   private:
    friend class FormulaExplanation;
    Token(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  /// A node of the tree, in evaluation order: operands before their operator, the root last.
  class TRELVONUNITS_API Node {
   public:
    Node(const Node& other) noexcept;
    ~Node();
    Node& operator=(const Node&) = delete;

    NodeKind kind() const;                      ///< Tells how many operands it has.
    std::size_t token() const;                  ///< Index in `tokens`.
    std::vector<std::size_t> operands() const;  ///< Indexes in `nodes`, the left one first.
    bool wasReached() const;  ///< Whether it has a value. Evaluation ends at the first refusal.
    double value() const;     ///< In primitive units. NaN if it was not reached.
    /// Type ids of primitive units and their exponents. Below the root, more than 16 are left out.
    std::map<std::string, double> powers() const;
    bool arePowersLeftOut() const;  ///< Whether there are more than `powers` returns.

   private:
    friend class FormulaExplanation;
    Node(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  /// A reading that may surprise.
  class TRELVONUNITS_API Warning {
   public:
    Warning(const Warning& other) noexcept;
    ~Warning();
    Warning& operator=(const Warning&) = delete;

    WarningKind kind() const;             ///< docs/explain.md has an example of each.
    FormulaSpan span() const;             ///< What may surprise.
    const std::string& sentence() const;  ///< For people, in English.
    /// A formula that says the other thing. Empty if there is no simple one.
    const std::string& spelling() const;

   private:
    friend class FormulaExplanation;
    Warning(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  explicit FormulaExplanation(
      const ExplanationContents* contents) noexcept;  ///< For the library alone.
  FormulaExplanation(const FormulaExplanation& other) noexcept;
  FormulaExplanation(FormulaExplanation&& other) noexcept;  ///< Copies.
  ~FormulaExplanation();
  FormulaExplanation& operator=(const FormulaExplanation&) = delete;

  const std::string& formula() const;     ///< As given.
  const std::string& unitTypeId() const;  ///< The requested unit; empty if none was.

  std::vector<Text> texts() const;        ///< The formula, then the replacements in reading order.
  std::vector<Token> tokens() const;      ///< In reading order.
  std::vector<Node> nodes() const;        ///< Empty if the text is not a formula.
  std::vector<Warning> warnings() const;  ///< In order of their spans.

  /// The bits that the engine returns: counted in the requested unit; a plain number if that was
  /// asked for; otherwise in primitive units. NaN if the formula was refused.
  double value() const;
  /// The units of the value before it was converted to the requested unit, or refused for them.
  std::map<std::string, double> powers() const;

  FormulaReason reason() const;           ///< Done if there is a value.
  ExceptionClass exceptionClass() const;  ///< What the engine throws.
  const std::string& message() const;     ///< Letter for letter as the engine's exception.
  FormulaSpan span() const;               ///< What was refused. The whole formula otherwise.
  const std::string& sentence() const;    ///< Says for people what is wrong. Empty if nothing is.
  /// Formulas that may be what was meant. Each was evaluated, up to where it asks for a variable
  /// that was not asked for before.
  const std::vector<std::string>& spellings() const;

  /// The formula or replacement, a line of marks beneath, and the sentence, for the refusal and for
  /// each warning; otherwise the value. Columns count code points. Valid UTF-8 without control
  /// characters other than line feeds: other bytes are shown as `\xNN`.
  std::string toText() const;

  /// The tree, an indented line for each node, operands below their operator, with values in
  /// primitive units, which are named by their local ids. Empty if the text is not a formula. Valid
  /// UTF-8, as `toText`.
  ///
  ///     +  = 0.6858 meter
  ///       2 ft  = 0.6096 meter
  ///       3 in  = 0.0762 meter
  std::string toTree() const;

  /// Everything, as one JSON object, which docs/explain.md describes. Valid UTF-8, as `toText`.
  std::string toJson() const;

 private:
  template <class View>
  std::vector<View> viewsOf(std::size_t count) const;

  const Shared<ExplanationContents> contents_;
};

/// Whether to ask the resolver for names that the text of a unit hides, for `VariableHidden`.
enum class HiddenVariables : std::int32_t { Ignore, Ask };

/// Reads and evaluates a formula as `UnitsEngine::evaluateExpressionInUnit` does, and tells how. A
/// formula that the engine refuses is explained, not thrown.
///
/// The resolver is called as the engine calls it: for the same names, in the same order. A
/// ParseException of the resolver is explained; any other exception of it, of a derived class, too,
/// reaches the caller. An empty resolver rejects every identifier.
///
/// Explaining takes a few times as long as evaluating. Suggestions are evaluated, too, at most 16 for
/// formulas of at most 1000 bytes. A refusal costs time in proportion to the engine's definitions:
/// they are searched for names that are near. For an engine that the library has not made, all
/// definitions are first copied through its public operations, whose exceptions reach the caller,
/// and the library's own engine explains.
///
/// @param engine      any engine; only its const operations are called, and only here.
/// @param unitTypeId  type id of a stored unit.
/// @param formula     any bytes.
/// @param resolver    as for `evaluateExpressionInUnit`.
/// @param hidden      Ask: the resolver is also asked for names of at most 100 bytes that a unit
///                    hides, once each and at most 100 of them, after the formula was read. What it
///                    then throws is ignored, except std::bad_alloc.
/// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
/// @throws std::bad_alloc
TRELVONUNITS_API FormulaExplanation
explainFormula(const UnitsEngine& engine, const std::string& unitTypeId, const std::string& formula,
               VariableResolver resolver, HiddenVariables hidden = HiddenVariables::Ignore);

/// The same without a unit: the value in primitive units and its powers. No result is refused for
/// its units.
TRELVONUNITS_API FormulaExplanation
explainFormula(const UnitsEngine& engine, const std::string& formula, VariableResolver resolver,
               HiddenVariables hidden = HiddenVariables::Ignore);

/// The same for a plain number, as `UnitsEngine::evaluateUnitlessExpression`.
TRELVONUNITS_API FormulaExplanation
explainUnitlessFormula(const UnitsEngine& engine, const std::string& formula,
                       VariableResolver resolver, HiddenVariables hidden = HiddenVariables::Ignore);

}  // namespace Units
