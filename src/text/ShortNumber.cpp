#include "text/ShortNumber.h"

#include <locale>
#include <sstream>

std::string Units::shortNumber(double value) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.exceptions(std::ios_base::badbit);  // lets std::bad_alloc pass
  out.precision(15);
  out << value;
  return out.str();
}
