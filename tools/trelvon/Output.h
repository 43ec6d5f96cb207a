#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

enum class Stream { Out = 1, Error = 2 };

/// The meaning of a part of a line, for colors.
enum class Tint { Error, Warning, Advice, Mark };

/// Writes all bytes to a file descriptor.
/// @throws Failure  that is not possible. If nobody reads a pipe, the program ends instead, with
///                  the status that a shell expects.
void writeAll(int file, std::string_view bytes);

/// A stream of the program, with colors if a terminal shows it.
class Output {
 public:
  /// @param choice  always, never, or auto: on a terminal, unless NO_COLOR is set.
  Output(Stream stream, const std::string& choice);

  void write(std::string_view text);
  void flush();  ///< Must be called at the end: only this ensures that everything was written.

  std::string tinted(std::string_view text, Tint tint) const;

 private:
  int file_;
  bool isColored_;
  std::string waiting_;
};

/// If standard streams are closed, opens something in their place that cannot be written to, so
/// that no other file takes their descriptors.
void occupyStandardStreams();

}  // namespace tool
