#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace platform {
namespace {

int failuresLeft = 0;
int failureNumber = 0;

std::string FolderOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool Fail(int number, std::string* error) {
  if (error) *error = std::strerror(number);
  return false;
}

bool WriteAll(int fd, const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

void FailNextFileWrites(int count, int errorNumber) {
  failuresLeft = count;
  failureNumber = errorNumber;
}

bool WriteFileAtomically(const std::string& path, const std::string& text, std::string* error) {
  if (failuresLeft > 0) {
    --failuresLeft;
    return Fail(failureNumber, error);
  }
  const std::string folder = FolderOf(path);
  std::string pattern = folder + "/.quarnwick-save-XXXXXX";
  std::vector<char> name(pattern.begin(), pattern.end());
  name.push_back('\0');
  const int fd = ::mkstemp(name.data());
  if (fd < 0) return Fail(errno, error);
  const std::string temporary = name.data();
  const bool written = WriteAll(fd, text) && ::fsync(fd) == 0;
  const int writeError = errno;
  if (::close(fd) != 0 || !written) {
    ::unlink(temporary.c_str());
    return Fail(written ? errno : writeError, error);
  }
  ::chmod(temporary.c_str(), 0644);
  if (::rename(temporary.c_str(), path.c_str()) != 0) {
    const int renameError = errno;
    ::unlink(temporary.c_str());
    return Fail(renameError, error);
  }
  // The rename itself reaches the disk with the folder.
  if (const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY); dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
  return true;
}

bool ReadWholeFile(const std::string& path, std::string* text, std::string* error) {
  std::error_code code;
  if (!std::filesystem::exists(path, code)) return Fail(ENOENT, error);
  if (std::filesystem::is_directory(path, code)) return Fail(EISDIR, error);
  std::ifstream in(path, std::ios::binary);
  if (!in) return Fail(errno ? errno : EACCES, error);
  std::ostringstream buffer;
  buffer << in.rdbuf();
  if (in.bad()) return Fail(EIO, error);
  *text = buffer.str();
  return true;
}

}  // namespace platform
