#pragma once
// The temple's help texts: help.dat, a plain text file with one topic a line.
//
// The file is read line by line, at most kHelpLineLength characters at a time (a longer
// line goes on as a line of its own). A topic line is one whose first word, after any
// white space, begins with the four letters INFO in any letter case ("INFO", "info",
// "Info:"); the topic is the rest of the line after that word and the white space that
// follows it. Every other line (blank lines, remarks) is ignored, and a NUL byte ends what
// is read of its line. Topics are numbered 0, 1, 2, ... in file order.
#include <cstdint>
#include <string>
#include <string_view>

#include "shell/TextLines.h"

inline constexpr int kHelpTextSize = 2048;    // a topic's text with its terminating zero
inline constexpr int kHelpLineLength = static_cast<int>(kLineReadLength);

using HelpText = char[kHelpTextSize];

// Where help.dat is read from: the current directory when the file is there, else the
// game's data root.
std::string HelpFilePath();

// Topic `number` of the file's content into text: the topic's words without the line end,
// followed by one space. True when the file holds that topic; otherwise the text is empty.
bool FindHelpTopic(std::string_view content, int number, HelpText& text);

// The temple's reading of topic `topicIndex` from help.dat (HelpFilePath) into text:
// - no file: the text is empty and the index stays;
// - fewer topics than that: the index goes back to 0 and the text is topic 0, or empty when
//   the file has no topics at all.
// Each reading opens the file afresh, so an edited file is seen at once.
void ReadHelpTopic(std::int32_t& topicIndex, HelpText& text);
