#include "naming/FoldedText.h"

#include "model/Characters.h"

namespace Units {

FoldedText::FoldedText(std::string_view text) {
  char* folded = short_.data();
  if (text.size() > short_.size()) {  // tuning
    long_.resize(text.size());
    folded = long_.data();
  }
  std::size_t size = 0;
  for (const char c : text)
    if (c != ' ' && c != '-' && c != '_') folded[size++] = toLowerCase(c);
  view_ = size == 0 ? text : std::string_view(folded, size);
}

}  // namespace Units
