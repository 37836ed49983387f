#pragma once
// Files for tests: the small files of tests/data (its README says what each holds), a
// folder of a test's own, and writing bytes out.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/DataPath.h"

inline std::string TestData(const std::string& name) { return std::string(QUARNWICK_TEST_DATA "/") + name; }

inline std::vector<std::uint8_t> ReadTestData(const std::string& name) {
  std::ifstream in(TestData(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<std::streamsize>(bytes.size()));
}

// A fresh folder under the system's temporary folder, removed with the object. As the data
// root it has a dat/ for the game's files.
class TempFolder {
 public:
  enum Use { Plain, DataRoot };
  explicit TempFolder(const std::string& tag, Use use = Plain)
      : path(std::filesystem::temp_directory_path() / ("quarnwick-" + tag + "-" + std::to_string(::getpid()))),
        use(use) {
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(use == DataRoot ? path / "dat" : path);
    if (use == DataRoot) platform::SetDataRoot(path.string());
  }
  ~TempFolder() {
    if (use == DataRoot) platform::SetDataRoot("");
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  operator const std::filesystem::path&() const { return path; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path / name; }
  std::string string() const { return path.string(); }

  const std::filesystem::path path;

 private:
  Use use;
};

// The folder as the current directory while the object lives (made when missing).
class InFolder {
 public:
  explicit InFolder(const std::filesystem::path& folder) : previous(std::filesystem::current_path()) {
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
  }
  ~InFolder() { std::filesystem::current_path(previous); }

 private:
  std::filesystem::path previous;
};
