#pragma once

#include <atomic>
#include <memory>

namespace Units {

/// An immutable object that is made when it is first needed, on any thread. Threads that need it at
/// the same time may each make it; one of them wins.
template <class Made>
class MadeOnce {
 public:
  MadeOnce() = default;
  MadeOnce(const MadeOnce&) = delete;
  MadeOnce& operator=(const MadeOnce&) = delete;
  ~MadeOnce() { delete made_.load(std::memory_order_acquire); }

  /// @param make  returns a std::unique_ptr. What it throws passes through, and it is called again
  ///              the next time.
  template <class Make>
  const Made& get(Make make) const {
    const Made* there = made_.load(std::memory_order_acquire);
    if (there) return *there;
    std::unique_ptr<const Made> mine = make();
    const bool isFirst = made_.compare_exchange_strong(there, mine.get(), std::memory_order_acq_rel,
                                                       std::memory_order_acquire);
    return isFirst ? *mine.release() : *there;
  }

 private:
  mutable std::atomic<const Made*> made_{nullptr};
};

}  // namespace Units
