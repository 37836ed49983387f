#include "screens/HelpFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>

#include "platform/AtomicFile.h"
#include "platform/DataPath.h"
#include "shell/TextLines.h"

namespace {

constexpr const char* kHelpFileName = "help.dat";

// The topic of a topic line: what follows the first word and its white space, line end
// included. Nothing for any other line.
std::optional<std::string_view> TopicOfLine(std::string_view line) {
  const std::string_view rest = SkipSpace(line);
  if (rest.size() < 4) return std::nullopt;  // too short to begin with the mark
  if (!BeginsWithKeyword(rest, "INFO")) return std::nullopt;
  return SkipSpace(rest.substr(FirstWord(rest).size()));
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
    const auto topic = TopicOfLine(NextLinePiece(content, at));
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
  std::string content;
  if (!platform::ReadWholeFile(HelpFilePath(), &content, nullptr)) return;
  if (FindHelpTopic(content, topicIndex, text)) return;
  // Past the last topic: start again from the first.
  topicIndex = 0;
  FindHelpTopic(content, 0, text);
}
