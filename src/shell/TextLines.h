#pragma once
// Text files read the classic way, one line at a time with a bounded read: a line longer
// than the bound goes on as a line of its own, and a NUL byte ends what is seen of a line.
#include <cstddef>
#include <string>
#include <string_view>

inline constexpr std::size_t kLineReadLength = 2046;  // the most read of a line at once

// White space as the C library's isspace knows it in the "C" locale.
inline bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

inline char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// The content with every CR LF made a single LF, as a text-mode read sees it.
std::string WithPlainLineEnds(std::string_view content);

// The next piece of the content as one read of a line gives it: up to and including the
// next newline, at most kLineReadLength characters. `at` moves past the piece.
std::string_view NextLinePiece(std::string_view content, std::size_t& at);

// The piece without the white space it begins with.
std::string_view SkipSpace(std::string_view text);
// The first word of the text (it must not begin with white space).
std::string_view FirstWord(std::string_view text);
// True when the word begins with the keyword, letter case aside.
bool BeginsWithKeyword(std::string_view word, std::string_view keyword);
