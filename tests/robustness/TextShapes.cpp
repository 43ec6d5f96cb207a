#include "tests/robustness/Shapes.h"

namespace {

/// A schema text or what looks like one: a list of `size` items, with commas between, or what is
/// repeated in front and behind.
struct Row {
  const char* name;
  const char* head;
  const char* before;
  const char* middle;
  const char* after;
  const char* tail;
};

constexpr const char* dimensionHead =
    "{'typeid':'new','inherits':['vellamor.unit:dimension-1.0.0'],";

const Row rows[] = {
    {"arrays in a property", "'properties':[{'id':'p','value':", "[", "1", "]", "}]}"},
    {"objects in a property", "'properties':[{'id':'p','value':", "{'a':", "1", "}", "}]}"},
    {"arrays left open", "'properties':[{'id':'p','value':", "[", "1", "", ""},
    {"objects left open", "'properties':[{'id':'p','value':", "{'a':", "1", "", ""},
    {"a wide array", "'properties':[{'id':'p','value':[", "1,", "1", "", "]}]}"},
    {"a wide array of arrays", "'properties':[{'id':'p','value':[", "[],", "1", "", "]}]}"},
    {"a wide object", "'properties':[{'id':'p','value':{", "'a':1,", "'b':1", "", "}}]}"},
    {"members that nobody reads", "", "'more':[],", "'a':1", "", "}"},
    {"numbers with exponents", "'more':[", "1e-400,", "1", "", "]}"},
    {"long exponents", "'more':[", "1e-2147483649,", "1", "", "]}"},
    {"digits of a number", "'more':1", "1", ".5", "", "}"},
    {"zeros of an exponent", "'more':1e", "0", "1", "", "}"},
    {"escapes in a string", "'more':'", "\\u00e9\\n", "", "", "'}"},
    {"spaces in a text", "", " ", "'more':1", " ", "}"},
    {"a long id", "'more':{'", "i", "d", "", "':1}}"},
};

Work addition(const std::string& text, Units::UnitsEngine& engine) {
  Work work = batch({text}, engine);
  work.run = [build = work.run, &engine] {
    outcome([&] { return build(), engine.getDefinition("new"); });
  };
  return work;
}

/// Definitions whose constants are `size` items long, each with its number in it for the %.
struct Numbered {
  const char* name;
  const char* kind;
  const char* constants;  // before the items
  const char* item;
  const char* end;
};

constexpr Numbered numbered[] = {
    {"parents of a factor, unknown", "factor.derived", "{'id':'parentFactors','value':{", "'%':1,",
     "'twelve':1}}"},
    {"parents of a unit, unknown", "unit.derived",
     "{'id':'name','value':'n'},{'id':'unitSystem','value':'Metric'},"
     "{'id':'parentUnits','value':{",
     "'%':1,", "'foot':1}}"},
    {"units of a quantity, repeated", "quantity",
     "{'id':'name','value':'n'},{'id':'units','typedValue':[", "{'typeid':'foot'},",
     "{'typeid':'foot'}]}"},
    {"units of a quantity, unknown", "quantity",
     "{'id':'name','value':'n'},{'id':'units','typedValue':[", "{'typeid':'%'},",
     "{'typeid':'foot'}]}"},
    {"constants", "factor", "", "{'id':'c%','value':1},", "{'id':'factor','value':2}"},
    {"constants without end", "factor", "", "{'id':'c%','value':1},", "{"},
};

std::string itemsOf(const Numbered& row, int size) {
  std::string all;
  const std::string item = row.item;
  const std::size_t place = item.find('%');
  for (int number = 0; number < size; ++number)
    all += place == std::string::npos
               ? item
               : item.substr(0, place) + std::to_string(number) + item.substr(place + 1);
  return all;
}

}  // namespace

std::vector<Shape> textShapes() {
  std::vector<Shape> shapes;
  const auto add = [&](const char* name, auto textOf) {
    shapes.push_back({name, Shape::Text, [textOf](int size, Units::UnitsEngine& engine) {
                        return addition(textOf(size), engine);
                      }});
  };
  for (const Row& row : rows)
    add(row.name, [&row](int size) {
      return quoted(dimensionHead + std::string(row.head) + repeated(row.before, size) +
                    row.middle + repeated(row.after, size) + row.tail);
    });
  for (const Numbered& row : numbered)
    add(row.name, [&row](int size) {
      return schema("new", row.kind, {row.constants + itemsOf(row, size) + row.end});
    });
  add("a long type id", [](int size) { return factor(repeated("i", size), {}); });
  add("unclosed at the start", [](int size) { return repeated("[", size); });
  shapes.push_back(
      {"empty texts in a bundle", Shape::Text, [](int size, Units::UnitsEngine& engine) {
         return bundleLoad(bundleOf(std::vector<std::string>(static_cast<std::size_t>(size))),
                           engine);
       }});
  shapes.push_back(
      {"a long text in a bundle", Shape::Text, [](int size, Units::UnitsEngine& engine) {
         return bundleLoad(bundleOf({repeated(" ", size)}), engine);
       }});
  return shapes;
}
