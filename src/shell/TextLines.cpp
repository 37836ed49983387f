#include "shell/TextLines.h"

#include <algorithm>

std::string WithPlainLineEnds(std::string_view content) {
  std::string text;
  text.reserve(content.size());
  for (std::size_t i = 0; i < content.size(); ++i)
    if (content[i] != '\r' || i + 1 == content.size() || content[i + 1] != '\n') text.push_back(content[i]);
  return text;
}

std::string_view NextLinePiece(std::string_view content, std::size_t& at) {
  const std::size_t start = at;
  const std::size_t most = std::min<std::size_t>(content.size() - start, kLineReadLength);
  const std::size_t newline = content.substr(start, most).find('\n');
  const std::size_t length = newline == std::string_view::npos ? most : newline + 1;
  at += length;
  std::string_view piece = content.substr(start, length);
  const std::size_t nul = piece.find('\0');
  return nul == std::string_view::npos ? piece : piece.substr(0, nul);
}

std::string_view SkipSpace(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  return text.substr(i);
}

std::string_view FirstWord(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && !IsSpace(text[i])) ++i;
  return text.substr(0, i);
}

bool BeginsWithKeyword(std::string_view word, std::string_view keyword) {
  if (word.size() < keyword.size()) return false;
  for (std::size_t k = 0; k < keyword.size(); ++k)
    if (Upper(word[k]) != Upper(keyword[k])) return false;
  return true;
}
