#include "Manifest.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <fstream>
#include <map>
#include <sstream>

namespace baker {
namespace {

std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> out;
  std::size_t i = 0;
  while (i < line.size()) {
    while (i < line.size() && std::isspace(static_cast<unsigned char>(line[i]))) ++i;
    std::size_t start = i;
    while (i < line.size() && !std::isspace(static_cast<unsigned char>(line[i]))) ++i;
    if (i > start) out.push_back(line.substr(start, i - start));
  }
  return out;
}

bool ParseSize(std::string_view text, int& value) {
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size() && value > 0 && value <= 4096;
}

// A relative path that stays inside its folder.
bool IsSafeRelative(std::string_view path) {
  if (path.empty() || path.front() == '/' || path.find('\\') != std::string_view::npos) return false;
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t end = path.find('/', start);
    if (end == std::string_view::npos) end = path.size();
    std::string_view part = path.substr(start, end - start);
    if (part.empty() || part == "." || part == "..") return false;
    start = end + 1;
  }
  return true;
}

bool EndsWithLower(std::string_view text, std::string_view suffix) {
  if (text.size() < suffix.size()) return false;
  std::string tail(text.substr(text.size() - suffix.size()));
  std::transform(tail.begin(), tail.end(), tail.begin(), [](unsigned char c) { return std::tolower(c); });
  return tail == suffix;
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

}  // namespace

void ParseManifest(std::string_view text, const std::string& origin, Manifest& into) {
  int lineNumber = 0;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(pos, end - pos);
    pos = end + 1;
    ++lineNumber;
    if (std::size_t hash = line.find('#'); hash != std::string_view::npos) line = line.substr(0, hash);
    const auto fields = Fields(line);
    if (fields.empty()) continue;
    const std::string where = origin + ":" + std::to_string(lineNumber);
    if (fields.size() != 5) {
      into.errors.push_back(where + ": expected OUTPUT MODE WIDTH HEIGHT SOURCE");
      continue;
    }
    ManifestEntry e;
    e.where = where;
    e.output = std::string(fields[0]);
    e.source = std::string(fields[4]);
    const auto mode = ParseMode(fields[1]);
    if (!mode) {
      into.errors.push_back(where + ": bad mode '" + std::string(fields[1]) + "' (opaque, keyed or additive)");
      continue;
    }
    e.mode = *mode;
    if (!ParseSize(fields[2], e.width) || !ParseSize(fields[3], e.height)) {
      into.errors.push_back(where + ": bad size '" + std::string(fields[2]) + " " + std::string(fields[3]) + "'");
      continue;
    }
    if (!IsSafeRelative(e.output) || !EndsWithLower(e.output, ".bmp")) {
      into.errors.push_back(where + ": bad output '" + e.output + "' (a .bmp path under dat/)");
      continue;
    }
    if (!IsSafeRelative(e.source) || !EndsWithLower(e.source, ".svg")) {
      into.errors.push_back(where + ": bad source '" + e.source + "' (an .svg path under assets/pictures/)");
      continue;
    }
    into.entries.push_back(std::move(e));
  }
}

Manifest ReadManifests(const std::filesystem::path& picturesFolder) {
  namespace fs = std::filesystem;
  Manifest manifest;
  std::vector<fs::path> files;
  std::error_code ec;
  for (const auto& item : fs::directory_iterator(picturesFolder, ec)) {
    if (item.is_regular_file() && item.path().extension() == ".manifest") files.push_back(item.path());
  }
  if (ec) {
    manifest.errors.push_back(picturesFolder.string() + ": " + ec.message());
    return manifest;
  }
  std::sort(files.begin(), files.end());
  for (const auto& file : files) {
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    ParseManifest(text.str(), file.filename().string(), manifest);
  }
  std::map<std::string, std::string> seen;  // lower-case output -> where
  for (const auto& e : manifest.entries) {
    auto [it, fresh] = seen.emplace(Lower(e.output), e.where);
    if (!fresh) manifest.errors.push_back(e.where + ": output '" + e.output + "' already made at " + it->second);
    if (!fs::is_regular_file(picturesFolder / e.source)) {
      manifest.errors.push_back(e.where + ": source '" + e.source + "' is missing");
    }
  }
  return manifest;
}

}  // namespace baker
