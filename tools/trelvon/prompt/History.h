#pragma once

#include <string>
#include <vector>

namespace tool {

/// The lines of earlier prompts, a file of the user that nobody else may read:
/// $XDG_STATE_HOME/trelvon/history, or ~/.local/state in place of that variable. Each line is added
/// at once, so that several prompts can run at the same time.
class History {
 public:
  History();

  /// The latest lines, the oldest first. If the file has become long, only they are kept.
  std::vector<std::string> load() const;

  /// @throws Failure  the line cannot be written.
  void add(const std::string& line) const;

 private:
  std::string path_;  ///< Empty if the user has no home.
};

}  // namespace tool
