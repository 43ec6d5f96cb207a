#pragma once

#include "model/RecordContents.h"
#include "registry/Registries.h"
#include "schema/SchemaData.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Units {

/// The type ids of a schema that is being added, each in a text that all records share.
class SchemaIds {
 public:
  /// @param typeId  its text must outlive this.
  SchemaIds(const HashedText& typeId, Registries& registries);

  const SharedText& typeId() const { return typeId_; }

  /// A type id that the schema refers to.
  SharedText refer(std::string_view typeId);
  ParentList refer(const ParentViews& parents);

  /// Stores the schema as pending. Does not throw: this comes last.
  template <class Contents>
  void addPending(Contents contents) noexcept {
    registries_.pending.share(own_).contents.template emplace<Contents>(std::move(contents));
  }

  /// The type ids among them that are not registered. The schema itself counts as registered.
  std::set<std::string> takeUnregistered() { return std::move(unregistered_); }

 private:
  Registries& registries_;
  const HashedText own_;
  const SharedText typeId_;
  std::set<std::string> unregistered_;
};

}  // namespace Units
