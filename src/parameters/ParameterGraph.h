#pragma once

#include "parameters/Contents.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Units {

/// New definitions, and names that they refer to. Until they are committed, the table is unchanged.
class ParameterChange final : public ParameterFinder {
 public:
  explicit ParameterChange(ParameterTableContents& table) : table_(table) {}

  Parameter& of(std::string_view name) override;

  void define(Parameter& parameter, std::unique_ptr<Definition> definition) {
    definitions_.emplace_back(&parameter, std::move(definition));
  }

  /// Replaces the old definitions by the new ones. Does not change what is due.
  void commit() noexcept;

 private:
  ParameterTableContents& table_;
  ParameterMap made_;
  std::vector<std::pair<Parameter*, std::unique_ptr<Definition>>> definitions_;
};

/// The parameter that is defined by a name.
/// @throws UnrecognizedIdentifierException  there is none.
Parameter& lookUpParameter(ParameterTableContents& table, const std::string& name);

/// Makes a parameter due, and everything that depends on it.
void makeDue(Parameter& parameter) noexcept;

/// Unlinks the references of a definition that is no longer in use, and removes the names that
/// nothing refers to any more.
///
/// @param stays  not removed; may be null.
void leave(ParameterTableContents& table, Definition& definition,
           const Parameter* stays = nullptr) noexcept;

/// Removes a name that is not defined if nothing refers to it.
void removeIfUnused(ParameterTableContents& table, Parameter& parameter) noexcept;

}  // namespace Units
