/// Calls of the C interface with any bytes and with null wherever the contract allows it. A call that
/// fails has an error of its status, and a span in its formula; one that does not has a result that
/// fits.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/Sample.h"

#include <TrelvonUnits/trelvon.h>

#include <deque>

namespace {

trelvon_engine* makeFilled() {
  trelvon_engine* engine = nullptr;
  trelvon_engine_create(&engine, nullptr);
  const std::string bundle = bundleOf(sampleSchemas());
  trelvon_add_bundle(engine, {bundle.data(), bundle.size()}, nullptr);
  return engine;
}

/// Arguments of calls, and what they must hold afterward.
class Calls {
 public:
  explicit Calls(Random& random) : random_(random), rest_(split(input(random), '\0')) {}

  trelvon_engine* engine(trelvon_engine* any) { return random_.oneIn(20) ? nullptr : any; }
  trelvon_error** error() { return random_.oneIn(4) ? nullptr : &error_; }
  template <class Result>
  Result* result(Result& any) {
    return random_.oneIn(20) ? nullptr : &any;
  }
  double number() { return random_.number(); }
  unsigned count() { return static_cast<unsigned>(random_.below(20)); }

  /// A type id, a piece of the input, null with or without a size, or a size that overflows.
  trelvon_text text() {
    switch (random_.below(16)) {
      case 0:
        return {nullptr, random_.below(2)};
      case 1:
        return {"", ~std::size_t{0}};
      case 2:
      case 3:
      case 4:
        return keep(random_.oneOf(rest_));
      default:
        return keep(random_.oneOf(sampleDefinitions()).first);
    }
  }
  trelvon_text formula() { return random_.oneIn(9) ? text() : keep(random_.oneOf(rest_)); }
  const trelvon_text* optional(const trelvon_text& any) {
    return random_.oneIn(2) ? &any : nullptr;
  }

  /// A call that writes into a buffer of any size, or none.
  template <class Writer>
  void writes(const Writer& writer) {
    std::vector<char> bytes(random_.below(64), '#');
    const std::size_t capacity = bytes.size();
    std::size_t size = capacity;
    char* const buffer = random_.oneIn(4) ? nullptr : bytes.data();
    const trelvon_status status = returns(writer(buffer, result(size), error()));
    if (status == TRELVON_OK && buffer != nullptr) check(size <= capacity, "too large a text");
    if (status != TRELVON_OK) checkEqual(bytes, std::vector<char>(capacity, '#'));
  }

  /// A call that makes a list, whose items are read, whatever they are.
  void lists(trelvon_status status, trelvon_list* list) {
    if (returns(status) == TRELVON_OK) {
      trelvon_unit unit;
      trelvon_name name;
      trelvon_text item;
      const std::size_t index = random_.below(20);
      const int read = !trelvon_list_unit(list, index, &unit, nullptr) +
                       !trelvon_list_name(list, index, &name, nullptr) +
                       !trelvon_list_text(list, index, &item, nullptr);
      check(read <= (index < trelvon_list_count(list)), "an item is several things");
    }
    trelvon_list_free(list);
  }

  trelvon_status returns(trelvon_status status, const trelvon_text* formula = nullptr) {
    check(error_ == nullptr || trelvon_error_status(error_) == status, "another status");
    check(status != TRELVON_OK || error_ == nullptr, "an error without a failure");
    std::size_t begin = 0, end = 0;
    if (trelvon_error_span(error_, &begin, &end))
      check(formula != nullptr && begin <= end && end <= formula->size, "a span outside");
    trelvon_error_free(error_);
    error_ = nullptr;
    return status;
  }

  static trelvon_status resolve(void* context, trelvon_text, trelvon_answer* answer) {
    Calls& calls = *static_cast<Calls*>(context);
    if (calls.random_.oneIn(6)) return static_cast<trelvon_status>(calls.random_.below(16));
    return trelvon_answer_text(answer, calls.text());
  }

 private:
  static std::string input(Random& random) {
    Random choices = random;
    return choices.rest();
  }
  static void checkEqual(const std::vector<char>& got, const std::vector<char>& expected) {
    check(got == expected, "a buffer was written after all");
  }
  trelvon_text keep(const std::string& text) {
    kept_.emplace_back(text);
    const std::string_view view = kept_.back();
    return {view.data(), view.size()};
  }

  Random& random_;
  std::vector<std::string> rest_;
  std::deque<ExactText> kept_;
  trelvon_error* error_ = nullptr;
};

const trelvon_engine* filled() {
  static const trelvon_engine* const engine = makeFilled();
  return engine;
}

void read(Calls& calls, std::size_t which) {
  const trelvon_engine* const engine = calls.engine(const_cast<trelvon_engine*>(filled()));
  double value = 0;
  int flag = 0;
  trelvon_list* list = nullptr;
  const trelvon_text text = calls.text(), formula = calls.formula();
  const auto resolver = calls.count() < 10 ? Calls::resolve : nullptr;
  switch (which) {
    case 0:
      calls.returns(trelvon_convert(engine, calls.number(), text, calls.text(), calls.result(value),
                                    calls.error()));
      break;
    case 1:
      calls.returns(trelvon_can_convert(engine, text, formula, calls.result(flag), calls.error()));
      break;
    case 2:
      calls.writes([&](auto bytes, auto size, auto error) {
        return trelvon_format_fixed(engine, calls.number(), calls.count(), calls.optional(text), 0,
                                    bytes, size, error);
      });
      break;
    case 3:
      calls.returns(trelvon_evaluate(engine, text, formula, resolver, &calls, calls.result(value),
                                     calls.error()),
                    &formula);
      break;
    case 4: {
      trelvon_explanation* made = nullptr;
      const auto explain = calls.count() < 10 ? trelvon_explain : trelvon_explain_hidden;
      calls.returns(explain(engine, calls.optional(text), formula, resolver, &calls,
                            calls.result(made), calls.error()));
      calls.writes([&](auto bytes, auto size, auto error) {
        return trelvon_explain_text(made, bytes, size, error);
      });
      trelvon_explanation_free(made);
      break;
    }
    case 5:
      calls.lists(trelvon_record(engine, static_cast<trelvon_kind>(calls.count() % 8), text,
                                 calls.result(list), calls.error()),
                  list);
      break;
    case 6:
      calls.lists(trelvon_convertible_units(engine, text, calls.result(list), calls.error()), list);
      break;
    case 7: {
      trelvon_display* display = nullptr;
      calls.returns(trelvon_display_create(engine, formula, calls.result(display), calls.error()));
      calls.returns(trelvon_display_read(display, text, calls.result(value), calls.error()), &text);
      calls.writes([&](auto bytes, auto size, auto error) {
        return trelvon_display_show(display, calls.number(), bytes, size, error);
      });
      trelvon_display_free(display);
      break;
    }
    default: {
      trelvon_names* names = nullptr;
      calls.returns(trelvon_names_create(engine, calls.optional(formula), 1, calls.result(names),
                                         calls.error()));
      calls.lists(
          trelvon_names_suggest(names, formula, calls.count(), calls.result(list), calls.error()),
          list);
      calls.returns(trelvon_convert_named(engine, names, calls.number(), text, formula,
                                          calls.result(value), calls.error()));
      trelvon_names_free(names);
    }
  }
}

void change(Calls& calls, std::size_t which) {
  trelvon_engine* const own = makeFilled();
  trelvon_engine* const engine = calls.engine(own);
  trelvon_list* list = nullptr;
  trelvon_load_report* report = nullptr;
  const trelvon_text text = calls.formula(), name = calls.text();
  if (which == 0) {
    calls.lists(trelvon_add_definition(engine, text, calls.result(list), calls.error()), list);
    calls.returns(trelvon_build_schemas(engine, calls.error()));
  } else if (which == 1) {
    calls.returns(trelvon_load_texts_for(engine, calls.optional(name), calls.count() % 2,
                                         calls.optional(name), calls.optional(text), 1,
                                         calls.count(), calls.result(report), calls.error()));
  } else {
    calls.returns(trelvon_add_bundle(engine, text, calls.error()));
    calls.returns(trelvon_check_text(engine, text, name, calls.result(report), calls.error()));
  }
  calls.writes([&](auto bytes, auto size, auto error) {
    return trelvon_load_report_json(report, bytes, size, error);
  });
  trelvon_load_report_free(report);
  trelvon_engine_free(own);
}

}  // namespace

void fuzz(Random& random) {
  Calls calls(random);
  if (random.takes('#')) return read(calls, random.below(8));
  random.takes('%');
  change(calls, random.below(3));
}
