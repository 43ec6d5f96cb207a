/// The only file that includes libedit.
#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Output.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/prompt/History.h"
#include "tools/trelvon/prompt/LineReader.h"

#include <sys/ioctl.h>
#include <sys/select.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <histedit.h>
#include <langinfo.h>

namespace tool {

namespace {

constexpr int historySize = 1000;
constexpr std::size_t mostListed = 200;
constexpr int handledSignals[] = {SIGINT, SIGWINCH, SIGCONT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t isInterrupted = 0, isResized = 0, isContinued = 0, endingSignal = 0;

void note(int signal) {
  if (signal == SIGINT)
    isInterrupted = 1;
  else if (signal == SIGWINCH)
    isResized = 1;
  else if (signal == SIGCONT)
    isContinued = 1;
  else
    endingSignal = signal;
}

/// While a line is edited, signals are only noted. They are handled while the program waits for a
/// key.
class SignalsOfALine {
 public:
  SignalsOfALine() {
    sigset_t held;
    sigemptyset(&held);
    struct sigaction noting = {};
    noting.sa_handler = note;
    for (std::size_t index = 0; index < std::size(handledSignals); ++index) {
      sigaddset(&held, handledSignals[index]);
      sigaction(handledSignals[index], &noting, &before_[index]);
    }
    sigprocmask(SIG_BLOCK, &held, &open_);
  }
  ~SignalsOfALine() {
    sigprocmask(SIG_SETMASK, &open_, nullptr);
    for (std::size_t index = 0; index < std::size(handledSignals); ++index)
      sigaction(handledSignals[index], &before_[index], nullptr);
  }
  SignalsOfALine(const SignalsOfALine&) = delete;
  SignalsOfALine& operator=(const SignalsOfALine&) = delete;

  /// Waits until there is a key to read. Returns false if a signal came.
  bool waitForKey() const {
    fd_set input;
    FD_ZERO(&input);
    FD_SET(STDIN_FILENO, &input);
    return pselect(STDIN_FILENO + 1, &input, nullptr, nullptr, nullptr, &open_) > 0;
  }

 private:
  struct sigaction before_[std::size(handledSignals)] = {};
  sigset_t open_{};
};

/// libedit drops the bytes that are not valid in the locale of this category.
bool knowsUtf8() {
  const auto isUtf8 = [] { return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0; };
  if (std::setlocale(LC_CTYPE, "") != nullptr && isUtf8()) return true;
  return std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr && isUtf8();
}

std::size_t windowWidth() {
  constexpr std::size_t usual = 80;
  winsize size = {};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

/// The longest common beginning of the texts, in bytes.
std::string commonBeginning(const std::vector<std::string>& texts) {
  std::string common = texts.front();
  for (const std::string& text : texts) {
    const std::size_t length = std::min(common.size(), text.size());
    common.resize(static_cast<std::size_t>(
        std::mismatch(common.begin(), common.begin() + static_cast<std::ptrdiff_t>(length),
                      text.begin())
            .first -
        common.begin()));
  }
  while (!common.empty() && validUtf8(common) != common) common.pop_back();  // part of a character
  return common;
}

/// The texts in columns, as wide as the window.
std::string listing(const std::vector<std::string>& texts) {
  std::size_t width = 0;
  for (const std::string& text : texts) width = std::max(width, widthOf(text) + 2);
  const std::size_t columns = std::max<std::size_t>(windowWidth() / width, 1);
  const std::size_t count = std::min(texts.size(), mostListed);
  const std::size_t rows = (count + columns - 1) / columns;
  std::string out;
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t index = row; index < count; index += rows) {
      out += texts[index];
      if (index + rows < count) out.append(width - widthOf(texts[index]), ' ');
    }
    out += '\n';
  }
  if (count < texts.size()) out += "and " + std::to_string(texts.size() - count) + " more\n";
  return out;
}

class LineEditor : public LineReader {
 public:
  LineEditor(const char* prompt, std::function<Completions(std::string_view)> complete,
             std::function<void(const std::string&)> warn)
      : prompt_(prompt), complete_(std::move(complete)), warn_(std::move(warn)) {
    editor_ = el_init("trelvon", stdin, stdout, stderr);
    history_ = history_init();
    if (editor_ == nullptr || history_ == nullptr) throw std::bad_alloc();
    HistEvent event;
    history(history_, &event, H_SETSIZE, historySize);
    history(history_, &event, H_SETUNIQUE, 1);
    for (const std::string& line : file_.load()) history(history_, &event, H_ENTER, line.c_str());
    el_set(editor_, EL_CLIENTDATA, this);
    el_set(editor_, EL_PROMPT, promptOf);
    el_set(editor_, EL_EDITOR, "emacs");
    el_set(editor_, EL_SIGNAL, 0);
    el_set(editor_, EL_GETCFN, readKey);
    el_set(editor_, EL_HIST, history, history_);
    // The other function leaks copies of these texts.
    el_wset(editor_, EL_ADDFN, L"trelvon-complete", L"Complete what is typed", completeTyped);
    el_source(editor_, nullptr);  // the user's .editrc
    el_set(editor_, EL_BIND, "^I", "trelvon-complete", nullptr);
  }
  ~LineEditor() override {
    el_end(editor_);
    history_end(history_);
  }
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  std::optional<std::string> next() override {
    while (true) {
      std::optional<std::string> line = edit();
      if (endingSignal != 0) std::raise(endingSignal);
      if (line || isInterrupted == 0) {
        writeAll(STDOUT_FILENO, line ? "" : "\n");
        if (line && !line->empty()) remember(*line);
        return line;
      }
      writeAll(STDOUT_FILENO, "^C\n");
    }
  }

 private:
  std::optional<std::string> edit() {
    const SignalsOfALine signals;
    signals_ = &signals;
    isInterrupted = 0;
    int count = 0;
    el_set(editor_, EL_PREP_TERM, 1);  // before the prompt, so that the terminal echoes no key
    const char* const line = el_gets(editor_, &count);
    if (line == nullptr || count <= 0) {
      el_reset(editor_);
      return std::nullopt;
    }
    std::string text = line;
    if (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
  }

  void remember(const std::string& line) {
    HistEvent event;
    history(history_, &event, H_ENTER, line.c_str());
    try {
      if (!hasWarned_) file_.add(line);
    } catch (const Failure& failure) {
      hasWarned_ = true;
      warn_(failure.what());
    }
  }

  static LineEditor& of(EditLine* editor) {
    void* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    return *static_cast<LineEditor*>(self);
  }

  static char* promptOf(EditLine* editor) { return const_cast<char*>(of(editor).prompt_); }

  /// Redraws the line, from the place where its first row begins in a window of the new size.
  void redraw() {
    const LineInfo* const line = el_line(editor_);
    const std::string before(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
    const std::size_t rows = (widthOf(prompt_) + widthOf(before)) / windowWidth();
    writeAll(STDOUT_FILENO, (rows == 0 ? "" : "\x1b[" + std::to_string(rows) + 'A') + "\r\x1b[J");
    el_resize(editor_);
    el_set(editor_, EL_REFRESH);
  }

  /// Reads a character. Returns 1, or -1 to give the line up.
  static int readKey(EditLine* editor, wchar_t* key) {
    try {
      return of(editor).readKeyHere(key);
    } catch (...) {  // libedit's functions cannot handle exceptions
      return -1;
    }
  }

  int readKeyHere(wchar_t* key) {
    std::mbstate_t state = {};
    while (true) {
      if (isInterrupted != 0 || endingSignal != 0) return -1;
      if (isContinued != 0)  // what has stopped it may have changed the terminal
        for (const int mode : {0, 1}) el_set(editor_, EL_PREP_TERM, mode);
      if (isContinued != 0 || isResized != 0) redraw();
      isContinued = isResized = 0;
      if (!signals_->waitForKey()) continue;
      char byte = 0;
      const ssize_t count = read(STDIN_FILENO, &byte, 1);
      if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
      if (count <= 0) return static_cast<int>(count);
      const std::size_t length = std::mbrtowc(key, &byte, 1, &state);
      if (length == static_cast<std::size_t>(-2)) continue;  // more bytes belong to it
      if (length == static_cast<std::size_t>(-1)) *key = L'\xFFFD';
      return 1;
    }
  }

  static unsigned char completeTyped(EditLine* editor, int) {
    try {
      return of(editor).completeHere();
    } catch (...) {  // as above
      return CC_ERROR;
    }
  }

  unsigned char completeHere() {
    const LineInfo* const line = el_line(editor_);
    const std::string before(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
    const Completions found = complete_(before);
    if (found.texts.empty()) return CC_REFRESH_BEEP;
    const std::string typed = before.substr(before.size() - found.typed);
    const bool isOnly = found.texts.size() == 1;
    std::string text = commonBeginning(found.texts);
    if (isOnly && text.back() != '/') text += ' ';  // a folder may go on
    if (isOnly ? text != typed : text.size() > typed.size()) {
      el_deletestr(editor_, static_cast<int>(widthOf(typed)));
      return el_insertstr(editor_, text.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
    }
    writeAll(STDOUT_FILENO, '\n' + listing(found.texts));
    el_set(editor_, EL_REFRESH);
    return CC_NORM;
  }

  const char* const prompt_;
  const std::function<Completions(std::string_view)> complete_;
  const std::function<void(const std::string&)> warn_;
  const History file_;
  EditLine* editor_ = nullptr;
  ::History* history_ = nullptr;
  const SignalsOfALine* signals_ = nullptr;
  bool hasWarned_ = false;
};

}  // namespace

std::unique_ptr<LineReader> editLines(const char* prompt,
                                      std::function<Completions(std::string_view)> complete,
                                      std::function<void(const std::string&)> warn) {
  if (!knowsUtf8()) return nullptr;
  return std::make_unique<LineEditor>(prompt, std::move(complete), std::move(warn));
}

}  // namespace tool
