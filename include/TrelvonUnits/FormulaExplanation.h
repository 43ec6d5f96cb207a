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

struct ExplanationContents;  // defined inside the library

/// A range of bytes in a formula or in a text that replaced an identifier. Its members are part of
/// the binary interface and never change.
struct FormulaSpan {
  std::size_t text = 0;     ///< Index in `FormulaExplanation::texts`; 0 is the formula.
  std::size_t begin = 0;    ///< Offset of the first byte.
  std::size_t endText = 0;  ///< Differs from `text` only if a literal or symbol continues past the
                            ///< end of a replacement, as a symbol whose text contains a `)` can.
  std::size_t end = 0;      ///< Offset after the last byte, in `endText`.
};

/// How a formula was read, and its outcome: a value or a refusal.
///
///   const auto explained = explainFormula(*engine, meter, "10 m - 35 cm", {});
///   explained.value();                    // 10.35
///   explained.warnings()[0].sentence();   // says that "-" was read as a separator
///   std::cout << explained.toText();
///
/// - It is plain data: it has no reference to the engine and makes no callbacks. No member
///   recurses.
/// - Copies share their contents, which never change. Any number of threads may use them.
/// - The objects that it returns (`Text`, `Token`, `Node`, `Warning`) share the contents, too, and
///   outlive it.
/// - Later versions may add values at the end of enumerations.
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

  /// What may be surprising in a formula.
  enum class WarningKind : std::int32_t {
    HyphenIsSeparator = 1,      ///< `10 m - 35 cm` is 10.35 m.
    NumbersJoined = 2,          ///< `7 ft2` is 7 feet and 2 inches.
    PowerOfLiteral = 3,         ///< `5 s^2` is (5 s)^2.
    NoCompositeSymbol = 4,      ///< `5' 6"` is the plain number 5.5 where no symbol is defined.
    ScalesAdded = 5,            ///< `20 °C + 5 °C` adds distances from absolute zero.
    ScaleMultiplied = 6,        ///< `2 * 10 °C` doubles the distance from absolute zero.
    VariableHidden = 7,         ///< The text of a unit is read instead of a host's variable.
    PlainNumber = 8,            ///< A result without units is taken to be in the requested unit.
    ReciprocalConverted = 9,    ///< `5 Hz` in seconds is 0.2.
    QuotientIsReciprocal = 10,  ///< `1/2 mm` is 1 / (2 mm): 2 in millimeters.
    LogarithmToBaseTen = 11,    ///< `log` is to base 10; `ln` is the natural logarithm.
    RoundsInBaseUnits = 12,     ///< `round(1.4 ft)` rounds meters.
    MarkMeansFeet = 13,         ///< `30'` is 30 feet, but a unit other than feet was requested.
  };

  /// The class of the exception that the engine would throw for the formula.
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

    /// The text as it was read. A replacement includes the parentheses that are put around it.
    const std::string& text() const;
    /// What it replaced: a span of the text that named it. Empty for the formula.
    FormulaSpan identifier() const;

   private:
    friend class FormulaExplanation;
    Text(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  /// A token, in reading order. Tokens, separators (spaces, tabs, line feeds) and replaced
  /// identifiers cover each text without gaps or overlaps, up to where reading stopped.
  class TRELVONUNITS_API Token {
   public:
    Token(const Token& other) noexcept;
    ~Token();
    Token& operator=(const Token&) = delete;

    TokenKind kind() const;            ///< Determines which of the members below have a value.
    FormulaSpan span() const;          ///< Where it is, without separators around it.
    std::string text() const;          ///< The text that the span covers.
    double value() const;              ///< Of a number: as read, in its own unit, without a sign.
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

    NodeKind kind() const;                      ///< Determines how many operands it has.
    std::size_t token() const;                  ///< Index in `tokens`.
    std::vector<std::size_t> operands() const;  ///< Indexes in `nodes`, the left one first.
    bool wasReached() const;  ///< Whether it has a value. Evaluation stops at the first refusal.
    double value() const;     ///< In primitive units. NaN if it was not reached.
    /// Type ids of primitive units and their exponents. Below the root, more than 16 are left out:
    /// the map is then empty.
    std::map<std::string, double> powers() const;
    bool arePowersLeftOut() const;  ///< Whether they were left out.

   private:
    friend class FormulaExplanation;
    Node(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  /// A reading that may be surprising.
  class TRELVONUNITS_API Warning {
   public:
    Warning(const Warning& other) noexcept;
    ~Warning();
    Warning& operator=(const Warning&) = delete;

    WarningKind kind() const;             ///< docs/explain.md has an example of each.
    FormulaSpan span() const;             ///< The surprising part.
    const std::string& sentence() const;  ///< The warning, in English.
    /// A formula for the other meaning. Empty if there is no simple one.
    const std::string& spelling() const;

   private:
    friend class FormulaExplanation;
    Warning(const Shared<ExplanationContents>& contents, std::size_t index) noexcept;

    const Shared<ExplanationContents> contents_;
    const std::size_t index_;
  };

  explicit FormulaExplanation(
      const ExplanationContents* contents) noexcept;  ///< For use by the library only.
  FormulaExplanation(const FormulaExplanation& other) noexcept;
  FormulaExplanation(FormulaExplanation&& other) noexcept;  ///< Copies.
  ~FormulaExplanation();
  FormulaExplanation& operator=(const FormulaExplanation&) = delete;

  const std::string& formula() const;     ///< As given.
  const std::string& unitTypeId() const;  ///< The requested unit; empty if there is none.

  std::vector<Text> texts() const;        ///< The formula, then the replacements in reading order.
  std::vector<Token> tokens() const;      ///< In reading order.
  std::vector<Node> nodes() const;        ///< Empty if the text is not a formula.
  std::vector<Warning> warnings() const;  ///< In order of their spans.

  /// The same bits as the engine's result: in the requested unit; a plain number if one was
  /// requested; otherwise in primitive units. NaN if the formula was refused.
  double value() const;
  /// The units of the value before it was converted to the requested unit, or refused because of
  /// them.
  std::map<std::string, double> powers() const;

  FormulaReason reason() const;           ///< Done if there is a value.
  ExceptionClass exceptionClass() const;  ///< What the engine would throw.
  const std::string& message() const;     ///< Exactly that of the engine's exception.
  FormulaSpan span() const;               ///< What was refused; otherwise the whole formula.
  const std::string& sentence() const;    ///< Explains what is wrong. Empty if nothing is.
  /// Formulas that the user may have meant. Each was evaluated, up to the first variable for which
  /// the resolver was not already called.
  const std::vector<std::string>& spellings() const;

  /// For the refusal and for each warning: the formula or replacement, a line of marks under it,
  /// and the sentence. Then the value, if there is one. Columns count code points. Always valid
  /// UTF-8 without control characters other than line feeds: other bytes are shown as `\xNN`.
  std::string toText() const;

  /// The tree: an indented line for each node, operands below their operator, with values in
  /// primitive units, shown by their local ids. Empty if the text is not a formula. Valid UTF-8,
  /// like `toText`.
  ///
  ///     +  = 0.6858 meter
  ///       2 ft  = 0.6096 meter
  ///       3 in  = 0.0762 meter
  std::string toTree() const;

  /// Everything, as one JSON object; docs/explain.md describes it. Valid UTF-8, like `toText`.
  std::string toJson() const;

 private:
  template <class View>
  std::vector<View> viewsOf(std::size_t count) const;

  const Shared<ExplanationContents> contents_;
};

/// Whether to ask the resolver about names that the text of a unit hides, for `VariableHidden`.
enum class HiddenVariables : std::int32_t { Ignore, Ask };

/// Reads and evaluates a formula as `UnitsEngine::evaluateExpressionInUnit` does, and explains how.
/// If the engine would refuse the formula, nothing is thrown: the refusal is explained.
///
/// The resolver is called as the engine calls it: for the same names, in the same order. If it
/// throws a ParseException, that is explained. Any other exception reaches the caller, even one of
/// a class derived from ParseException. An empty resolver rejects every identifier.
///
/// Explaining takes a few times as long as evaluating. Up to 16 suggestions are evaluated, too, if
/// the formula has at most 1000 bytes. A refusal takes time in proportion to the number of the
/// engine's definitions, which are searched for similar names.
///
/// For an engine that the host implements, all definitions are first copied through its public
/// operations, and the library's own engine explains. Exceptions of these operations reach the
/// caller.
///
/// @param engine      any engine; only its const operations are called, and only during this call.
/// @param unitTypeId  type id of a stored unit.
/// @param formula     any bytes.
/// @param resolver    as for `evaluateExpressionInUnit`.
/// @param hidden      Ask: after the formula was read, the resolver is also called once for each
///                    name that a unit hides, if it has at most 100 bytes, for up to 100 names. Its
///                    exceptions are then ignored, except std::bad_alloc.
/// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
/// @throws std::bad_alloc
TRELVONUNITS_API FormulaExplanation
explainFormula(const UnitsEngine& engine, const std::string& unitTypeId, const std::string& formula,
               VariableResolver resolver, HiddenVariables hidden = HiddenVariables::Ignore);

/// The same without a unit: gives the value in primitive units, and its powers. No result is
/// refused because of its units.
TRELVONUNITS_API FormulaExplanation
explainFormula(const UnitsEngine& engine, const std::string& formula, VariableResolver resolver,
               HiddenVariables hidden = HiddenVariables::Ignore);

/// The same for a plain number, as `UnitsEngine::evaluateUnitlessExpression`.
TRELVONUNITS_API FormulaExplanation
explainUnitlessFormula(const UnitsEngine& engine, const std::string& formula,
                       VariableResolver resolver, HiddenVariables hidden = HiddenVariables::Ignore);

}  // namespace Units
