#pragma once
// A font by Windows face name, weight and cell height, resolved through fontconfig and
// rendered anti-aliased. A face name carries its style in its last word ("Arial Bold" is
// Arial in bold); "System" is a bold sans-serif and "fixedsys" a monospace.
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

// Coverage of one rendered line of text, 0..255 per pixel.
struct GlyphMask {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;
};

class Font {
 public:
  // Null when no font file can be found or opened.
  static std::unique_ptr<Font> Open(const std::string& faceName, int cellHeight, int weight);
  ~Font();
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  int CellHeight() const { return cellHeight; }
  const std::string& FilePath() const { return filePath; }
  int PointSize() const { return pointSize; }
  // Text is Windows-1252.
  int Measure(std::string_view text);
  const GlyphMask& Render(std::string_view text);

 private:
  Font() = default;
  void* handle = nullptr;  // the SDL_ttf font
  int cellHeight = 0;
  int pointSize = 0;
  std::string filePath;
  std::unordered_map<std::string, int> widths;
  std::unordered_map<std::string, GlyphMask> lines;
};

// Resolves a Windows face name to a font file; empty when nothing matches.
std::string ResolveFontFile(const std::string& faceName, int weight);

}  // namespace platform
