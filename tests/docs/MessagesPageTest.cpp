#include <algorithm>
#include <filesystem>
#include <regex>

#include "tests/docs/Page.h"

namespace {

/// A message as the sources spell it: fixed pieces, with something that varies between them.
struct Message {
  std::vector<std::string> pieces;
  bool isOpen = false;  // something varies at the end, too

  std::string text() const {
    std::string text;
    for (const std::string& piece : pieces) text += (text.empty() ? "" : "<>") + piece;
    return text + (isOpen ? "<>" : "");
  }

  /// Messages have words with blanks beside them; all other texts in the sources have none.
  bool isSentence() const { return std::regex_search(text(), std::regex("[a-z]{2} | [a-z]{2}")); }
};

/// What varies is a placeholder on the page, or one word where the page is more exact.
bool canVary(const std::string& text) {
  return !text.empty() && ((text.front() == '<' && text.find('>') == text.size() - 1) ||
                           text.find(' ') == std::string::npos);
}

bool isSpelled(const Message& message, const std::string& onPage) {
  if (onPage.rfind(message.pieces.front(), 0) != 0) return false;
  std::size_t end = message.pieces.front().size();
  for (std::size_t i = 1; i < message.pieces.size(); ++i) {
    const std::size_t found = onPage.find(message.pieces[i], end);
    if (found == std::string::npos || !canVary(onPage.substr(end, found - end))) return false;
    end = found + message.pieces[i].size();
  }
  return message.isOpen ? canVary(onPage.substr(end)) : end == onPage.size();
}

std::string unescape(const std::string& literal) {
  return std::regex_replace(literal, std::regex(R"(\\(.))"), "$1");
}

/// The sentences that a source spells, joined over adjacent literals and over "+".
std::vector<Message> messagesIn(const std::string& source) {
  static const std::regex token(
      R"re((//|#)[^\n]*|'(?:\\.|[^'\\])+'|"((?:\\.|[^"\\])*)"|[;{},/]|[^\s'"#;{},/]+)re");
  std::vector<Message> messages;
  Message message;
  bool isAfterText = false;
  for (std::sregex_iterator at(source.begin(), source.end(), token); at != std::sregex_iterator();
       ++at) {
    const std::string text = at->str();
    if ((*at)[1].matched) continue;  // a comment or a directive
    if (text == "throw" || text.rfind("raiseError(", 0) == 0) message = Message();
    if ((*at)[2].matched) {
      const std::string piece = unescape((*at)[2].str());
      if (isAfterText)
        message.pieces.back() += piece;
      else
        message.pieces.push_back(piece);
      message.isOpen = false;
    } else if (text.size() == 1 && text.find_first_of(";{},") == 0) {
      if (message.isSentence()) messages.push_back(message);
      message = Message();
    } else if (isAfterText && text == "+") {
      message.isOpen = true;
    }
    isAfterText = (*at)[2].matched;
  }
  return messages;
}

std::vector<Message> messagesOfAllRooms() {
  std::vector<Message> messages;
  for (const char* const room :
       {"model", "registry", "json", "text", "formula", "schema", "engine", "loading"})
    for (const auto& file : std::filesystem::directory_iterator(
             std::filesystem::path(TRELVON_TESTS_SOURCE_DIR) / room)) {
      const std::string name = file.path().filename().string();
      if (name.rfind(".cpp") == std::string::npos && name.rfind(".h") == std::string::npos)
        continue;
      const std::vector<Message> found = messagesIn(readFile(std::string(room) + "/" + name));
      messages.insert(messages.end(), found.begin(), found.end());
    }
  return messages;
}

TEST(MessagesPage, SourcesAreReadRight) {
  const std::vector<Message> messages = messagesIn(R"source(
#error "of a directive"
// "a comment"
constexpr char word[] = "word", quote = '"';
if (name != "one") throw Exception("Could not " "find " + id + " in \"it\".");
raiseError(factory, "No sign at " + std::to_string(offset) + ": " + reason);
)source");
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].text(), "Could not find <> in \"it\".");
  EXPECT_TRUE(isSpelled(messages[0], "Could not find <id> in \"it\"."));
  EXPECT_FALSE(isSpelled(messages[0], "Could not find  in \"it\"."));
  EXPECT_FALSE(isSpelled(messages[0], "Could not find one more in \"it\"."));
  EXPECT_FALSE(isSpelled(messages[0], "Could not find <id> in \"it\". Sorry."));
  EXPECT_EQ(messages[1].text(), "No sign at <>: <>");
  EXPECT_TRUE(isSpelled(messages[1], "No sign at <offset>: <reason>"));
  EXPECT_FALSE(isSpelled(messages[1], "No sign at <offset>: "));
}

TEST(MessagesPage, HasEveryMessageAndNoOther) {
  const std::vector<Message> thrown = messagesOfAllRooms();
  const std::vector<std::vector<std::string>> rows = rowsOf("errors.md", {"message"});
  EXPECT_GT(thrown.size(), 70U);

  for (const Message& message : thrown)
    EXPECT_TRUE(std::any_of(rows.begin(), rows.end(),
                            [&](const auto& row) { return isSpelled(message, row[0]); }))
        << "errors.md lacks: " << message.text();
  for (const auto& row : rows)
    EXPECT_TRUE(std::any_of(thrown.begin(), thrown.end(),
                            [&](const Message& message) { return isSpelled(message, row[0]); }))
        << "Nothing throws: " << row[0];
}

}  // namespace
