#include "text/ShortNumber.h"

#include <locale>
#include <sstream>

std::string Units::shortNumber(double value) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(15);
  out << value;
  return out.str();
}
