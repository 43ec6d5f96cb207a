/// Threads as small as those of hosts that start many: what recurses over its input dies on them.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <exception>
#include <functional>

#if defined(__SANITIZE_ADDRESS__)
#define TRELVON_TESTS_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TRELVON_TESTS_ASAN 1
#endif
#endif

#if defined(TRELVON_TESTS_ASAN) || !defined(__OPTIMIZE__)
inline constexpr std::size_t smallStackBytes = 512 * 1024;  // frames are several times larger here
#else
inline constexpr std::size_t smallStackBytes = 128 * 1024;
#endif

/// Runs `action` on a thread with a small stack. What it throws is thrown here.
inline void onSmallStack(const std::function<void()>& action) {
  struct Run {
    const std::function<void()>& action;
    std::exception_ptr thrown;
  } run{action, nullptr};
  const auto body = [](void* argument) -> void* {
    Run& running = *static_cast<Run*>(argument);
    try {
      running.action();
    } catch (...) {
      running.thrown = std::current_exception();
    }
    return nullptr;
  };

  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, smallStackBytes), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, body, &run), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
  if (run.thrown) std::rethrow_exception(run.thrown);
}
