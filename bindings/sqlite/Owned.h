#pragma once

#include <TrelvonUnits/trelvon.h>

#include <memory>

namespace Sql {

/// Frees what the C interface creates.
struct Freeing {
  void operator()(trelvon_engine* engine) const { trelvon_engine_free(engine); }
  void operator()(trelvon_error* error) const { trelvon_error_free(error); }
  void operator()(trelvon_conversion* conversion) const { trelvon_conversion_free(conversion); }
  void operator()(trelvon_display* display) const { trelvon_display_free(display); }
  void operator()(trelvon_names* names) const { trelvon_names_free(names); }
  void operator()(trelvon_explanation* explanation) const { trelvon_explanation_free(explanation); }
  void operator()(trelvon_load_report* report) const { trelvon_load_report_free(report); }
  void operator()(trelvon_list* list) const { trelvon_list_free(list); }
};

template <class Handle>
using Owned = std::unique_ptr<Handle, Freeing>;

}  // namespace Sql
