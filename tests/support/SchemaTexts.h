/// Schema texts, written briefly. A ' stands for a ".
#pragma once

#include <algorithm>
#include <initializer_list>
#include <map>
#include <string>

using Ids = std::initializer_list<std::string>;
using Powers = std::map<std::string, int>;

inline std::string quoted(std::string text) {
  std::replace(text.begin(), text.end(), '\'', '"');
  return text;
}

/// The items between commas, each between `before` and `after`.
inline std::string list(Ids items, const std::string& before = "", const std::string& after = "") {
  std::string result;
  for (const std::string& item : items)
    result += (result.empty() ? "" : ",") + before + item + after;
  return quoted(result);
}

inline std::string value(const std::string& id, const std::string& json) {
  return quoted("{'id':'" + id + "','value':" + json + "}");
}
inline std::string typed(const std::string& id, const std::string& typeId) {
  return quoted("{'id':'" + id + "','typedValue':{'typeid':'" + typeId + "'}}");
}

inline std::string schema(const std::string& typeId, const std::string& kind, Ids constants) {
  return quoted("{'typeid':'" + typeId + "','inherits':['vellamor.unit:" + kind +
                "-1.0.0'],'constants':[" + list(constants) + "]}");
}
inline std::string dimension(const std::string& typeId) {
  return quoted("{'typeid':'" + typeId + "','inherits':['vellamor.unit:dimension-1.0.0']}");
}

/// A constant of parents with their exponents.
inline std::string powers(const std::string& id, const Powers& parents) {
  std::string members;
  for (const auto& [typeId, exponent] : parents)
    members += (members.empty() ? "'" : ",'") + typeId + "':" + std::to_string(exponent);
  return value(id, "{" + members + "}");
}
inline Powers toPowers(Ids typeIds) {
  Powers powers;
  for (const std::string& typeId : typeIds) powers.emplace(typeId, 1);
  return powers;
}

inline std::string factor(const std::string& typeId, const Powers& parents) {
  return schema(typeId, "factor.derived", {powers("parentFactors", parents)});
}
inline std::string factor(const std::string& typeId, Ids parents) {
  return factor(typeId, toPowers(parents));
}

/// What every unit has, before its further constants.
inline const std::string named = list({value("name", "'n'"), value("unitSystem", "'Metric'")});

inline std::string primitive(const std::string& typeId) {
  return schema(typeId, "unit.primitive", {named});
}
inline std::string derived(const std::string& typeId, Ids parentUnits, Ids parentFactors = {}) {
  return schema(typeId, "unit.derived",
                {named, value("parentUnits", "{" + list(parentUnits, "'", "':1") + "}"),
                 value("parentFactors", "{" + list(parentFactors, "'", "':1") + "}")});
}
inline std::string derived(const std::string& typeId, const Powers& parentUnits, Ids more = {}) {
  const std::string constants = powers("parentUnits", parentUnits) + (more.size() == 0 ? "" : ",");
  return schema(typeId, "unit.derived", {named, constants + list(more)});
}
inline std::string absolute(const std::string& typeId, const std::string& parent) {
  return schema(typeId, "unit.absolute", {named, typed("parentUnit", parent)});
}
inline std::string absolute(const std::string& typeId, const std::string& parent,
                            const std::string& offset) {
  return schema(typeId, "unit.absolute",
                {named, typed("parentUnit", parent), value("offset", offset)});
}
inline std::string dimensional(const std::string& typeId, const std::string& dimension) {
  return schema(typeId, "unit.primitive.dimensional", {named, typed("dimension", dimension)});
}
inline std::string composite(const std::string& typeId, const std::string& unit) {
  return schema(typeId, "symbol", {typed("unit", unit)});
}
inline std::string symbol(const std::string& typeId, const std::string& unit,
                          const std::string& text, const std::string& placement = "Suffix",
                          const std::string& space = "true") {
  return schema(typeId, "symbol.prefixOrSuffix",
                {typed("unit", unit), value("text", "'" + text + "'"),
                 value("placement", "'" + placement + "'"), value("space", space)});
}
inline std::string quantity(const std::string& typeId, Ids units) {
  return schema(typeId, "quantity",
                {value("name", "'n'"),
                 "{'id':'units','typedValue':[" + list(units, "{'typeid':'", "'}") + "]}"});
}
