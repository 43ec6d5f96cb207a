/// Threads as small as those of hosts that start many: what recurses over its input dies on them.
#pragma once

#include "tests/support/Build.h"

#include <pthread.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <stdexcept>

inline constexpr std::size_t smallStackBytes = (isSlowBuild ? 512 : 128) * 1024;

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
  pthread_t thread;
  const bool hasRun = pthread_attr_init(&attributes) == 0 &&
                      pthread_attr_setstacksize(&attributes, smallStackBytes) == 0 &&
                      pthread_create(&thread, &attributes, body, &run) == 0 &&
                      pthread_join(thread, nullptr) == 0;
  pthread_attr_destroy(&attributes);
  if (!hasRun) throw std::runtime_error("no thread with a small stack");
  if (run.thrown) std::rethrow_exception(run.thrown);
}
