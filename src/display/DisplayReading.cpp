#include "display/DisplayContents.h"
#include "json/JsonText.h"
#include "model/ShownText.h"

#include <array>

namespace Units {

DisplayReading::DisplayReading(const DisplayReadingContents* contents) noexcept
    : contents_(contents) {}

// Contents are shared, so a move is a copy.
DisplayReading::DisplayReading(const DisplayReading& other) noexcept = default;
DisplayReading::DisplayReading(DisplayReading&& other) noexcept : contents_(other.contents_) {}
DisplayReading::~DisplayReading() = default;

bool DisplayReading::isRead() const { return contents_->isRead; }
double DisplayReading::value() const { return contents_->value; }
std::vector<DisplayPiece> DisplayReading::pieces() const { return contents_->pieces; }
FormulaSpan DisplayReading::span() const { return contents_->span; }
const std::string& DisplayReading::sentence() const { return contents_->sentence; }
std::vector<double> DisplayReading::readings() const { return contents_->readings; }

namespace {

void writeSpan(JsonText& json, const FormulaSpan& span) {
  json.key("begin").whole(span.begin);
  json.key("end").whole(span.end);
}

}  // namespace

std::string DisplayReading::toJson() const {
  static constexpr std::array<const char*, 5> kinds = {"", "sign", "number", "fraction", "unit"};
  JsonText json;
  json.beginObject();
  json.key("text").text(wholeText(contents_->text));
  if (contents_->isRead) {
    json.key("value").number(contents_->value);
  } else {
    writeSpan(json, contents_->span);
    json.key("sentence").text(contents_->sentence);
    json.key("readings").beginArray();
    for (const double reading : contents_->readings) json.number(reading);
    json.endArray();
  }
  json.key("pieces").beginArray();
  for (const DisplayPiece& piece : contents_->pieces) {
    json.beginObject();
    json.key("kind").text(kinds[static_cast<std::size_t>(piece.kind)]);
    writeSpan(json, piece.span);
    json.endObject();
  }
  json.endArray();
  json.endObject();
  return json.str();
}

}  // namespace Units
