#include "screens/HelpFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>

#include "platform/DataPath.h"

namespace {

constexpr const char* kHelpFileName = "help.dat";

// White space as the C library's isspace knows it in the "C" locale.
bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// The next piece of the content as one read of a line gives it: up to and including the
// next newline, at most kHelpLineLength characters. `at` moves past the piece.
std::string_view NextPiece(std::string_view content, std::size_t& at) {
  const std::size_t start = at;
  const std::size_t most = std::min<std::size_t>(content.size() - start, kHelpLineLength);
  const std::size_t newline = content.substr(start, most).find('\n');
  const std::size_t length = newline == std::string_view::npos ? most : newline + 1;
  at += length;
  std::string_view piece = content.substr(start, length);
  // The game handles a line as a C string: a NUL ends it.
  const std::size_t nul = piece.find('\0');
  return nul == std::string_view::npos ? piece : piece.substr(0, nul);
}

// The topic of a topic line: what follows the first word and its white space, line end
// included. Nothing for any other line.
std::optional<std::string_view> TopicOfLine(std::string_view line) {
  std::size_t i = 0;
  while (i < line.size() && IsSpace(line[i])) ++i;
  const std::string_view rest = line.substr(i);
  if (rest.size() < 4) return std::nullopt;  // too short to begin with the mark
  static constexpr char kMark[] = "INFO";
  for (int k = 0; k < 4; ++k)
    if (Upper(rest[k]) != kMark[k]) return std::nullopt;
  std::size_t j = 0;
  while (j < rest.size() && !IsSpace(rest[j])) ++j;
  while (j < rest.size() && IsSpace(rest[j])) ++j;
  return rest.substr(j);
}

std::optional<std::string> ReadWholeFile(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return std::nullopt;
  std::string content;
  char buffer[4096];
  std::size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0) content.append(buffer, got);
  std::fclose(file);
  return content;
}

}  // namespace

std::string HelpFilePath() {
  if (std::FILE* here = std::fopen(kHelpFileName, "rb")) {
    std::fclose(here);
    return kHelpFileName;
  }
  return platform::DataPath(kHelpFileName);
}

bool FindHelpTopic(std::string_view content, int number, HelpText& text) {
  text[0] = '\0';
  int counted = 0;
  for (std::size_t at = 0; at < content.size();) {
    const auto topic = TopicOfLine(NextPiece(content, at));
    if (!topic) continue;
    if (counted++ != number) continue;
    std::string_view words = *topic;
    while (!words.empty() && words.back() == '\n') words.remove_suffix(1);
    if (!words.empty() && words.back() == '\r') words.remove_suffix(1);
    // A piece is never longer than kHelpLineLength, so the words and the space fit.
    const std::size_t length = std::min<std::size_t>(words.size(), kHelpTextSize - 2);
    std::memcpy(text, words.data(), length);
    text[length] = ' ';
    text[length + 1] = '\0';
    return true;
  }
  return false;
}

void ReadHelpTopic(std::int32_t& topicIndex, HelpText& text) {
  text[0] = '\0';
  const auto content = ReadWholeFile(HelpFilePath());
  if (!content) return;
  if (FindHelpTopic(*content, topicIndex, text)) return;
  // Past the last topic: start again from the first.
  topicIndex = 0;
  FindHelpTopic(*content, 0, text);
}
