/// Formulas and literals by chance.
#pragma once

#include "tests/bits/Definitions.h"

/// A formula of a length to the power of `power`, which is 0 to 2, most often; else one that is
/// refused. Nothing in it is left to the C library.
std::string formula(Random& random, const Definitions& definitions, int power, int depth);

/// A number with a symbol, or a value in two or three parts, or what looks like one.
std::string literal(Random& random, const Definitions& definitions);
