#pragma once

/// Bounds that the library sets itself, so that no input runs without end.
namespace Units {

/// How deep the replacement of identifiers may nest in one formula: the text that a resolver gives
/// for an identifier stands one level below it. Beyond, an evaluation ends with a ParseException
/// "Variables are nested too deeply.".
inline constexpr int maximumSubstitutionDepth = 1000;

/// How many identifiers may be replaced in one formula. Beyond, an evaluation ends with a
/// ParseException "Too many variables.".
inline constexpr int maximumSubstitutions = 10000000;

}  // namespace Units
