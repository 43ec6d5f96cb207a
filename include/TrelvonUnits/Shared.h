#pragma once

namespace Units {

/// What a record holds: one pointer to contents that all copies of the record share.
///
/// Contents are set by a record's constructor and never change, so that to copy a record is to
/// count one more owner; the last owner to go deletes them. The count is atomic: copies of one
/// record may be made and dropped on any number of threads. Only the library makes contents.
template <class Contents>
class Shared {
 public:
  /// @param contents  new, counted as one owner.
  explicit Shared(const Contents* contents) noexcept : contents_(contents) {}
  Shared(const Shared& other) noexcept;
  Shared(Shared&& other) noexcept;  ///< Leaves `other` without contents.
  ~Shared();
  Shared& operator=(const Shared&) = delete;

  /// The contents, valid as long as an owner lives.
  const Contents* get() const noexcept { return contents_; }
  /// The same.
  const Contents* operator->() const noexcept { return contents_; }

 private:
  const Contents* contents_;
};

}  // namespace Units
