#include "platform/Font.h"

#include <SDL_ttf.h>
#include <fontconfig/fontconfig.h>

#include "platform/Cp1252.h"

namespace platform {
namespace {

constexpr std::size_t kCacheLimit = 1024;

bool EnsureTtf() {
  static const bool ready = TTF_Init() == 0;
  return ready;
}

std::string PatternFor(const std::string& faceName, int weight) {
  std::string family = faceName;
  bool bold = weight >= 600;
  bool italic = false;
  for (;;) {
    const std::size_t space = family.rfind(' ');
    if (space == std::string::npos) break;
    const std::string last = family.substr(space + 1);
    if (last == "Bold") bold = true;
    else if (last == "Italic") italic = true;
    else break;
    family.resize(space);
  }
  if (family == "System") {
    family = "sans-serif";
    bold = true;
  } else if (family == "fixedsys" || family == "Fixedsys") {
    family = "monospace";
  }
  std::string pattern = family;
  if (bold) pattern += ":bold";
  if (italic) pattern += ":italic";
  return pattern;
}

}  // namespace

std::string ResolveFontFile(const std::string& faceName, int weight) {
  if (!FcInit()) return {};
  const std::string text = PatternFor(faceName, weight);
  FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>(text.c_str()));
  if (!pattern) return {};
  FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  FcPattern* match = FcFontMatch(nullptr, pattern, &result);
  std::string path;
  FcChar8* file = nullptr;
  if (match && FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch) {
    path = reinterpret_cast<const char*>(file);
  }
  if (match) FcPatternDestroy(match);
  FcPatternDestroy(pattern);
  return path;
}

std::unique_ptr<Font> Font::Open(const std::string& faceName, int cellHeight, int weight) {
  if (cellHeight <= 0 || !EnsureTtf()) return nullptr;
  const std::string path = ResolveFontFile(faceName, weight);
  if (path.empty()) return nullptr;
  // The cell height is ascent plus descent: take the largest size whose line is no
  // taller than the cell.
  TTF_Font* best = nullptr;
  int bestSize = 0;
  for (int size = 1; size <= cellHeight * 2; ++size) {
    TTF_Font* candidate = TTF_OpenFont(path.c_str(), size);
    if (!candidate) break;
    if (TTF_FontHeight(candidate) > cellHeight) {
      TTF_CloseFont(candidate);
      break;
    }
    if (best) TTF_CloseFont(best);
    best = candidate;
    bestSize = size;
  }
  if (!best) return nullptr;
  TTF_SetFontHinting(best, TTF_HINTING_NORMAL);
  TTF_SetFontKerning(best, 0);  // plain advances, as the original text output had
  std::unique_ptr<Font> font(new Font());
  font->handle = best;
  font->cellHeight = cellHeight;
  font->pointSize = bestSize;
  font->filePath = path;
  return font;
}

Font::~Font() {
  if (handle) TTF_CloseFont(static_cast<TTF_Font*>(handle));
}

int Font::Measure(std::string_view text) {
  if (text.empty()) return 0;
  std::string key(text);
  if (auto it = widths.find(key); it != widths.end()) return it->second;
  int w = 0;
  int h = 0;
  if (TTF_SizeUTF8(static_cast<TTF_Font*>(handle), Cp1252ToUtf8(key).c_str(), &w, &h) != 0) w = 0;
  if (widths.size() >= kCacheLimit) widths.clear();
  widths.emplace(std::move(key), w);
  return w;
}

const GlyphMask& Font::Render(std::string_view text) {
  std::string key(text);
  if (auto it = lines.find(key); it != lines.end()) return it->second;
  if (lines.size() >= kCacheLimit) lines.clear();
  GlyphMask mask;
  const std::string utf8 = Cp1252ToUtf8(key);
  if (!utf8.empty()) {
    SDL_Surface* rendered = TTF_RenderUTF8_Blended(static_cast<TTF_Font*>(handle), utf8.c_str(), SDL_Color{255, 255, 255, 255});
    if (rendered) {
      SDL_Surface* argb = SDL_ConvertSurfaceFormat(rendered, SDL_PIXELFORMAT_ARGB8888, 0);
      if (argb && SDL_LockSurface(argb) == 0) {
        mask.width = argb->w;
        mask.height = argb->h;
        mask.coverage.resize(static_cast<std::size_t>(mask.width) * mask.height);
        for (int y = 0; y < argb->h; ++y) {
          const auto* row = reinterpret_cast<const std::uint32_t*>(static_cast<const std::uint8_t*>(argb->pixels) + y * argb->pitch);
          for (int x = 0; x < argb->w; ++x) mask.coverage[static_cast<std::size_t>(y) * mask.width + x] = row[x] >> 24;
        }
        SDL_UnlockSurface(argb);
      }
      if (argb) SDL_FreeSurface(argb);
      SDL_FreeSurface(rendered);
    }
  }
  return lines.emplace(std::move(key), std::move(mask)).first->second;
}

}  // namespace platform
