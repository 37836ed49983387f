#pragma once
// Writing a file so that it is either whole or not there: the text goes to a temporary file
// in the target's folder, is flushed to the disk and then renamed over the target. A crash
// or a full disk leaves the earlier file as it was.
#include <string>

namespace platform {

// True when written; otherwise false with the reason in *error.
bool WriteFileAtomically(const std::string& path, const std::string& text, std::string* error);
// Reads a whole file; false with the reason when it cannot be read.
bool ReadWholeFile(const std::string& path, std::string* text, std::string* error);
// Fault injection for tests: the next writes fail with the given error number.
void FailNextFileWrites(int count, int errorNumber);

}  // namespace platform
