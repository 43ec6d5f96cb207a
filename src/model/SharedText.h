#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <utility>

namespace Units {

/// A text that never changes and that all of its copies share, on any number of threads. A type id
/// occurs in many records: in its own, and in each that refers to it.
class SharedText {
 public:
  explicit SharedText(std::string text) : contents_(new Contents{{1}, std::move(text)}) {}

  SharedText(const SharedText& other) noexcept : contents_(other.contents_) {
    contents_->owners.fetch_add(1, std::memory_order_relaxed);
  }

  /// A moved-from text may only be assigned to or destroyed.
  SharedText(SharedText&& other) noexcept : contents_(std::exchange(other.contents_, nullptr)) {}

  SharedText& operator=(SharedText other) noexcept {
    std::swap(contents_, other.contents_);
    return *this;
  }

  /// Acquire and release: other owners' accesses must precede the deletion by the last owner.
  ~SharedText() {
    if (contents_ && contents_->owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
      delete contents_;
  }

  const std::string& str() const { return contents_->text; }
  operator const std::string&() const { return str(); }

 private:
  struct Contents {
    std::atomic<std::size_t> owners;
    const std::string text;
  };

  Contents* contents_;
};

}  // namespace Units
