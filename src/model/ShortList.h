#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <type_traits>

namespace Units {

/// A vector of trivially copyable values that stores up to `inlineCapacity` of them inline and more
/// on the heap.
template <class T, std::size_t inlineCapacity>
class ShortList {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  using value_type = T;
  using iterator = T*;
  using const_iterator = const T*;

  ShortList() {}  // NOLINT(modernize-use-equals-default): leaves the inline values uninitialized
  ShortList(std::initializer_list<T> values) { append(values.begin(), values.end()); }
  ShortList(const T* first, const T* last) { append(first, last); }
  ShortList(const ShortList& other) { append(other.begin(), other.end()); }
  ShortList(ShortList&& other) noexcept { take(other); }
  ~ShortList() = default;

  ShortList& operator=(const ShortList& other) {
    if (this != &other) assign(other.begin(), other.end());
    return *this;
  }

  ShortList& operator=(ShortList&& other) noexcept {
    if (this != &other) take(other);
    return *this;
  }

  T* begin() { return heap_ ? heap_.get() : inline_; }
  T* end() { return begin() + size_; }
  const T* begin() const { return heap_ ? heap_.get() : inline_; }
  const T* end() const { return begin() + size_; }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  T& back() { return end()[-1]; }
  T& operator[](std::size_t index) { return begin()[index]; }
  const T& operator[](std::size_t index) const { return begin()[index]; }

  void push_back(const T& value) {
    const T copy = value;  // `value` may be an element of this list
    if (size_ == capacity_) reserve(size_ + 1);
    begin()[size_++] = copy;
  }

  void pop_back() { --size_; }
  void clear() { size_ = 0; }

  /// Sets the end of the list, which must be within the reserved memory.
  void setEnd(const T* end) { size_ = static_cast<std::size_t>(end - begin()); }

  /// Makes room for `size` values. If it must allocate, it at least doubles the capacity.
  void reserve(std::size_t size) {
    if (size <= capacity_) return;
    const std::size_t capacity = std::max(size, 2 * capacity_);
    std::unique_ptr<T[]> more(new T[capacity]);
    std::copy(begin(), end(), more.get());
    heap_ = std::move(more);
    capacity_ = capacity;
  }

  void assign(const T* first, const T* last) {
    clear();
    append(first, last);
  }

  /// @param first  must not point into this list.
  void append(const T* first, const T* last) {
    const std::size_t count = static_cast<std::size_t>(last - first);
    reserve(size_ + count);
    std::copy(first, last, end());
    size_ += count;
  }

  void insert(T* place, const T& value) {
    const std::ptrdiff_t index = place - begin();
    push_back(value);
    std::rotate(begin() + index, end() - 1, end());
  }

  void erase(T* place) {
    std::copy(place + 1, end(), place);
    --size_;
  }

 private:
  void take(ShortList& other) noexcept {
    heap_ = std::move(other.heap_);
    if (!heap_) std::copy(other.inline_, other.inline_ + other.size_, inline_);
    size_ = other.size_;
    capacity_ = other.capacity_;
    other.size_ = 0;
    other.capacity_ = inlineCapacity;
  }

  std::unique_ptr<T[]> heap_;
  std::size_t size_ = 0;
  std::size_t capacity_ = inlineCapacity;
  T inline_[inlineCapacity];
};

}  // namespace Units
