#include "tests/robustness/Shapes.h"

namespace {

/// A schema text of that kind or what looks like one, from behind what it inherits.
struct TextRow {
  const char* kind;
  Row row;
};

const TextRow rows[] = {
    {"dimension",
     {"arrays in a property", "[", "1", "]", "'properties':[{'id':'p','value':", "}]}"}},
    {"dimension",
     {"objects in a property", "{'a':", "1", "}", "'properties':[{'id':'p','value':", "}]}"}},
    {"dimension", {"arrays left open", "[", "1", "", "'more':"}},
    {"dimension", {"objects left open", "{'a':", "1", "", "'more':"}},
    {"dimension", {"a wide array", "1,", "1", "", "'more':[", "]}"}},
    {"dimension", {"a wide array of arrays", "[],", "1", "", "'more':[", "]}"}},
    {"dimension", {"a wide object", "'a':1,", "'b':1", "", "'more':{", "}}"}},
    {"dimension", {"members that nobody reads", "'more':[],", "'a':1", "", "", "}"}},
    {"dimension", {"numbers with exponents", "1e-400,", "1", "", "'more':[", "]}"}},
    {"dimension", {"long exponents", "1e-2147483649,", "1", "", "'more':[", "]}"}},
    {"dimension", {"digits of a number", "1", ".5", "", "'more':1", "}"}},
    {"dimension", {"zeros of an exponent", "0", "1", "", "'more':1e", "}"}},
    {"dimension", {"escapes in a string", "\\u00e9\\n", "", "", "'more':'", "'}"}},
    {"dimension", {"spaces in a text", " ", "'more':1", " ", "", "}"}},
    {"dimension", {"a long id", "i", "d", "", "'more':{'", "':1}}"}},
    {"factor.derived",
     {"parents of a factor, unknown", "'%':1,", "'twelve':1", "",
      "'constants':[{'id':'parentFactors','value':{", "}}]}"}},
    {"unit.derived",
     {"parents of a unit, unknown", "'%':1,", "'foot':1", "",
      "'constants':[{'id':'name','value':'n'},{'id':'unitSystem','value':'Metric'},{'id':'"
      "parentUnits','value':{",
      "}}]}"}},
    {"quantity",
     {"units of a quantity, unknown", "{'typeid':'%'},", "{'typeid':'foot'}", "",
      "'constants':[{'id':'name','value':'n'},{'id':'units','typedValue':[", "]}]}"}},
    {"factor",
     {"constants", "{'id':'c%','value':1},", "{'id':'factor','value':2}", "", "'constants':[",
      "]}"}},
    {"factor", {"constants without end", "{'id':'c%','value':1},", "{", "", "'constants':[", "]}"}},
};

Work addition(const std::string& text, Units::UnitsEngine& engine) {
  Work work = batch({text}, engine);
  work.run = [build = work.run, &engine] {
    outcome([&] { return build(), engine.getDefinition("new"); });
  };
  return work;
}

}  // namespace

std::vector<Shape> textShapes() {
  using Texts = std::vector<std::string>;
  std::vector<Shape> shapes = {
      {"unclosed at the start", true,
       [](int size, auto& e) { return addition(repeated("[", size), e); }},
      {"colons in what a schema inherits", true,
       [](int size, auto& e) {
         return addition(quoted("{'typeid':'new','inherits':['" + repeated(":", size) + "']}"), e);
       }},
      {"empty texts in a bundle", true,
       [](int size, auto& e) { return bundleLoad(Texts(static_cast<std::size_t>(size)), e); }},
      {"a long text in a bundle", true,
       [](int size, auto& e) { return bundleLoad({repeated(" ", size)}, e); }}};
  for (const auto& [kind, row] : rows) {
    const std::string start =
        "{'typeid':'new','inherits':['vellamor.unit:" + std::string(kind) + "-1.0.0'],";
    shapes.push_back({row.name, true, [start, row = row](int size, auto& engine) {
                        return addition(quoted(start + row.text(size)), engine);
                      }});
  }
  return shapes;
}
