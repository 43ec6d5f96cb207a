/// How this program was built: the slow builds do less, on a larger stack.
#pragma once

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TRELVON_TESTS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TRELVON_TESTS_SANITIZED 1
#endif
#endif

#if defined(TRELVON_TESTS_SANITIZED) || !defined(__OPTIMIZE__)
inline constexpr bool isSlowBuild = true;
#else
inline constexpr bool isSlowBuild = false;
#endif
