/// Random formulas and literals.
#pragma once

#include "tests/bits/Definitions.h"
#include "tests/support/RandomFormulas.h"

/// For formulas of lengths that leave nothing to the C library.
Vocabulary vocabularyOf(const Definitions& definitions);

/// A number with a symbol, or a value in two or three parts, or what looks like one.
std::string literal(Random& random, const Definitions& definitions);
