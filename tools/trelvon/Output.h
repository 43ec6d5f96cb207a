#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

enum class Stream { Out = 1, Error = 2 };

/// What part of a line says, for colors.
enum class Tint { Error, Warning, Advice, Mark };

/// Writes all bytes to a file descriptor.
/// @throws Failure  that is not possible. A pipe that nobody reads ends the program instead, with
///                  the status that a shell gives it.
void writeAll(int file, std::string_view bytes);

/// A stream of the program, with colors if a terminal shows it.
class Output {
 public:
  /// @param choice  always, never, or auto: on a terminal, unless NO_COLOR is set.
  Output(Stream stream, const std::string& choice);

  void write(std::string_view text);
  void flush();  ///< Must be called at the end: only here is it certain that all was written.

  std::string tinted(std::string_view text, Tint tint) const;

 private:
  int file_;
  bool isColored_;
  std::string waiting_;
};

/// Opens something that refuses to be written in place of standard streams that are closed, so that
/// no other file takes their place.
void occupyStandardStreams();

}  // namespace tool
