#pragma once
// The small files of tests/data (its README says what each holds), and writing bytes out.
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

inline std::string TestData(const std::string& name) { return std::string(QUARNWICK_TEST_DATA "/") + name; }

inline std::vector<std::uint8_t> ReadTestData(const std::string& name) {
  std::ifstream in(TestData(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<std::streamsize>(bytes.size()));
}
