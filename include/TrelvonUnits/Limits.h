#pragma once

/// @file
/// Bounds on the replacement of identifiers in formulas, so that every evaluation ends, even if
/// variables refer to each other in a cycle. The length and depth of a formula have no other bound.
///
/// The values may grow in a later minor version.
namespace Units {

/// The maximum nesting depth of identifiers in one formula. The text that a resolver returns for an
/// identifier is one level below the identifier. If the depth is exceeded, the evaluation throws
/// ParseException "Variables are nested too deeply.".
inline constexpr int maximumSubstitutionDepth = 1000;

/// The maximum number of identifiers that are replaced in one formula, each occurrence counted. If
/// it is exceeded, the evaluation throws ParseException "Too many variables.". The depth alone
/// would not bound the time: each of 1000 levels could name the next one twice.
inline constexpr int maximumSubstitutions = 10000000;

}  // namespace Units
