#pragma once

/// Marks what a host may link against. Everything else in the library is hidden.
#if defined(_WIN32)
#if defined(TRELVONUNITS_BUILDING)
#define TRELVONUNITS_API __declspec(dllexport)
#else
#define TRELVONUNITS_API __declspec(dllimport)
#endif
#else
#define TRELVONUNITS_API __attribute__((visibility("default")))
#endif
