#pragma once

/// Marks what a host may link against. Everything else in the library is hidden.
///
/// On Windows, TRELVONUNITS_BUILDING is defined while the library itself is compiled. A host never
/// defines it.
#if defined(_WIN32)
#if defined(TRELVONUNITS_BUILDING)
#define TRELVONUNITS_API __declspec(dllexport)
#else
#define TRELVONUNITS_API __declspec(dllimport)
#endif
#else
#define TRELVONUNITS_API __attribute__((visibility("default")))
#endif
