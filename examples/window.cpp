/// A window with a field: type a length, press Enter, and it is shown in feet and inches. Needs FLTK.
///
///   window SCHEMAS            shows the window
///   window SCHEMAS TEXT...    enters each text, and prints what the field shows
#include <TrelvonUnits/TrelvonUnits.h>

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Window.H>
#include <iostream>
#include <memory>
#include <string>

namespace {

struct LengthField {
  explicit LengthField(const Units::UnitsEngine& known) : engine(known) {
    input.callback([](Fl_Widget*, void* self) { static_cast<LengthField*>(self)->enter(); }, this);
    input.when(FL_WHEN_ENTER_KEY_ALWAYS);
    message.align(FL_ALIGN_WRAP | FL_ALIGN_INSIDE);
    window.end();
  }

  /// Shows the length, or what is wrong with the text.
  void enter() {
    const auto read = Units::explainFormula(engine, "trelvon.unit:foot-1.0.0", input.value(), {});
    const std::string symbol = "trelvon.symbol:feetAndInches-1.0.0";
    const bool isDone = read.reason() == Units::FormulaReason::Done;
    if (isDone) input.value(engine.formatFractional(read.value(), 4, &symbol).c_str());
    message.copy_label(isDone ? "" : read.sentence().c_str());
  }

  const Units::UnitsEngine& engine;
  Fl_Window window{420, 110, "Length"};
  Fl_Input input{80, 20, 320, 30, "Length"};
  Fl_Box message{20, 60, 380, 40};
};

}  // namespace

int main(int count, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);

  LengthField field(*engine);
  for (int index = 2; index < count; ++index) {
    field.input.value(arguments[index]);
    field.enter();
    const std::string wrong = field.message.label();
    std::cout << field.input.value() << (wrong.empty() ? "" : ": ") << wrong << '\n';
  }
  if (count > 2) return 0;
  field.window.show();
  return Fl::run();
}
