#pragma once

#include "bindings/sqlite/Cache.h"
#include "bindings/sqlite/Catalog.h"
#include "bindings/sqlite/Owned.h"
#include "bindings/sqlite/SymbolNames.h"

#include <memory>
#include <string>
#include <string_view>

namespace Sql {

/// A conversion that is worked out once for many rows.
struct Prepared {
  std::string from;
  Owned<trelvon_conversion> conversion;
};

/// The engine of a connection, with the names of what it holds.
class Engine {
 public:
  /// @throws Fault  the catalog cannot be read.
  explicit Engine(const Catalog& catalog);

  const trelvon_engine* get() const { return engine_.get(); }

  /// The names of units, with the codes of other systems. They are made when they are first needed.
  const trelvon_names* names();

  /// The type id of the unit with this name.
  /// @throws Fault  there is none, or there are several; the message names the candidates.
  std::string unitCalled(std::string_view text);

  /// The conversion between the units with these names.
  std::shared_ptr<const Prepared> conversion(std::string_view from, std::string_view to);

  /// The same as `unitCalled` for a symbol.
  std::string symbolCalled(std::string_view text);

  /// Loads a folder of definitions, all or none, and returns the report as JSON.
  /// @throws Fault  the folder cannot be read, or definitions are faulty.
  std::string load(std::string_view folder);

 private:
  std::string findUnit(std::string_view text);
  [[noreturn]] void refuseUnit(std::string_view text);

  Owned<trelvon_engine> engine_;
  std::string codes_;
  Owned<trelvon_names> names_;
  std::unique_ptr<SymbolNames> symbols_;
  Cache<std::string> units_;  // by what they are called
  Cache<std::shared_ptr<const Prepared>> conversions_;
};

}  // namespace Sql
