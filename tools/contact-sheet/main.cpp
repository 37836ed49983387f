// contact-sheet DAT PICTURES RSVG-CONVERT WORK OUT.png
// One PNG of every baked picture under DAT (recursively), each on a grey checkerboard with
// its file name, size and mode, for review. Pictures are read through the game's own bitmap
// reader, so the sheet shows the 5-6-5 colours the game draws; in keyed pictures the key
// (5-6-5 value 0) is shown as transparent. Modes come from the manifests in PICTURES.
// The sheet is an SVG written to WORK with one PNG per picture, rendered with rsvg-convert.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "Manifest.h"
#include "PngFile.h"
#include "platform/BitmapFile.h"

namespace {

namespace fs = std::filesystem;

constexpr int kMargin = 16;
constexpr int kGap = 20;
constexpr int kLabelHeight = 34;  // two lines under each picture
constexpr int kHeadingHeight = 36;
constexpr int kMinSheetWidth = 1360;

struct Picture {
  std::string name;  // path under dat/
  std::string mode;  // from the manifests, or "unlisted"
  int width = 0;
  int height = 0;
  bool readable = false;
  std::string png;  // file name in the work folder
  int x = 0, y = 0, cellWidth = 0;
};

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

std::string Escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

// A generous estimate of the width of a label in 12 px DejaVu Sans.
int TextWidth(const std::string& text, double pixelsPerChar) {
  return static_cast<int>(text.size() * pixelsPerChar) + 4;
}

int GroupOrder(const std::string& mode) {
  if (mode == "opaque") return 0;
  if (mode == "keyed") return 1;
  if (mode == "additive") return 2;
  return 3;
}

bool RunProgram(const std::vector<std::string>& arguments) {
  std::vector<char*> argv;
  for (const auto& a : arguments) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) {
    execv(argv[0], argv.data());
    _exit(127);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child) return false;
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int Fail(const std::string& message) {
  std::fprintf(stderr, "contact-sheet: %s\n", message.c_str());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) return Fail("usage: contact-sheet DAT PICTURES RSVG-CONVERT WORK OUT.png");
  const fs::path dat = argv[1];
  const fs::path picturesFolder = argv[2];
  const std::string rsvg = argv[3];
  const fs::path work = argv[4];
  const fs::path out = argv[5];

  std::map<std::string, std::string> modes;
  const baker::Manifest manifest = baker::ReadManifests(picturesFolder);
  for (const auto& e : manifest.entries) modes[e.output] = std::string(baker::ModeName(e.mode));

  std::error_code ec;
  fs::remove_all(work, ec);
  fs::create_directories(work, ec);
  if (ec) return Fail(work.string() + ": " + ec.message());

  std::vector<Picture> pictures;
  for (auto it = fs::recursive_directory_iterator(dat, ec); !ec && it != fs::recursive_directory_iterator();
       it.increment(ec)) {
    if (!it->is_regular_file() || Lower(it->path().extension().string()) != ".bmp") continue;
    Picture p;
    p.name = it->path().lexically_relative(dat).generic_string();
    auto mode = modes.find(p.name);
    p.mode = mode != modes.end() ? mode->second : "unlisted";
    pictures.push_back(p);
  }
  if (ec) return Fail(dat.string() + ": " + ec.message());
  if (pictures.empty()) return Fail("no picture under " + dat.string());
  std::sort(pictures.begin(), pictures.end(), [](const Picture& a, const Picture& b) {
    if (GroupOrder(a.mode) != GroupOrder(b.mode)) return GroupOrder(a.mode) < GroupOrder(b.mode);
    return Lower(a.name) < Lower(b.name) || (Lower(a.name) == Lower(b.name) && a.name < b.name);
  });

  // Each picture as an RGBA PNG of the colours the game sees.
  int widest = 0;
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    Picture& p = pictures[i];
    const auto image = platform::LoadBitmapFile((dat / p.name).string());
    if (!image) {
      p.width = 64;
      p.height = 64;
    } else {
      p.readable = true;
      p.width = image->width;
      p.height = image->height;
      baker::RgbaImage rgba{image->width, image->height, {}};
      rgba.pixels.reserve(image->pixels.size());
      for (std::uint16_t v : image->pixels) {
        const int r = v >> 11, g = (v >> 5) & 63, b = v & 31;
        const bool key = p.mode == "keyed" && v == 0;
        rgba.pixels.push_back({static_cast<std::uint8_t>((r << 3) | (r >> 2)),
                               static_cast<std::uint8_t>((g << 2) | (g >> 4)),
                               static_cast<std::uint8_t>((b << 3) | (b >> 2)),
                               static_cast<std::uint8_t>(key ? 0 : 255)});
      }
      p.png = std::to_string(i) + ".png";
      std::string error;
      if (!baker::WritePng((work / p.png).string(), rgba, error)) return Fail(error);
    }
    p.cellWidth = std::max({p.width, TextWidth(p.name, 7.5), TextWidth("640 x 480 additive", 6.2)});
    widest = std::max(widest, p.cellWidth);
  }

  // Shelves, left to right, a new shelf per mode.
  const int sheetWidth = std::max(kMinSheetWidth, widest + 2 * kMargin);
  std::ostringstream body;
  int x = kMargin;
  int y = kMargin;
  int shelfHeight = 0;
  std::string group;
  for (Picture& p : pictures) {
    if (p.mode != group) {
      if (!group.empty()) y += shelfHeight + kGap;
      group = p.mode;
      body << "<text x='" << kMargin << "' y='" << y + 24 << "' class='heading'>" << Escape(group) << "</text>\n";
      y += kHeadingHeight;
      x = kMargin;
      shelfHeight = 0;
    }
    if (x + p.cellWidth > sheetWidth - kMargin && x > kMargin) {
      y += shelfHeight + kGap;
      x = kMargin;
      shelfHeight = 0;
    }
    p.x = x;
    p.y = y;
    x += p.cellWidth + kGap;
    shelfHeight = std::max(shelfHeight, p.height + kLabelHeight);

    body << "<rect x='" << p.x << "' y='" << p.y << "' width='" << p.width << "' height='" << p.height
         << "' fill='url(#checks)'/>\n";
    if (p.readable) {
      body << "<image x='" << p.x << "' y='" << p.y << "' width='" << p.width << "' height='" << p.height
           << "' href='" << p.png << "' preserveAspectRatio='none' image-rendering='optimizeSpeed'/>\n";
    } else {
      body << "<rect x='" << p.x << "' y='" << p.y << "' width='" << p.width << "' height='" << p.height
           << "' fill='none' stroke='#ff3030' stroke-width='3'/>\n";
    }
    body << "<text x='" << p.x << "' y='" << p.y + p.height + 14 << "' class='name'>" << Escape(p.name)
         << "</text>\n";
    const std::string size =
        p.readable ? std::to_string(p.width) + " x " + std::to_string(p.height) + " " + p.mode : "UNREADABLE";
    body << "<text x='" << p.x << "' y='" << p.y + p.height + 29 << "' class='"
         << (p.readable ? "info" : "bad") << "'>" << Escape(size) << "</text>\n";
  }
  const int sheetHeight = y + shelfHeight + kMargin;

  const fs::path svg = work / "sheet.svg";
  {
    std::ofstream file(svg, std::ios::binary);
    file << "<svg xmlns='http://www.w3.org/2000/svg' width='" << sheetWidth << "' height='" << sheetHeight
         << "'>\n<defs><pattern id='checks' width='16' height='16' patternUnits='userSpaceOnUse'>"
            "<rect width='16' height='16' fill='#9c9c9c'/>"
            "<rect width='8' height='8' fill='#cfcfcf'/><rect x='8' y='8' width='8' height='8' fill='#cfcfcf'/>"
            "</pattern>\n<style>text{font-family:'DejaVu Sans',sans-serif}"
            ".name{font-size:12px;fill:#ffffff}.info{font-size:11px;fill:#b8b8b8}"
            ".bad{font-size:11px;fill:#ff5050;font-weight:bold}"
            ".heading{font-size:20px;fill:#ffe08a;font-weight:bold}</style></defs>\n"
         << "<rect width='100%' height='100%' fill='#3a3a3a'/>\n"
         << body.str() << "</svg>\n";
    if (!file.flush()) return Fail(svg.string() + ": cannot write");
  }
  if (!RunProgram({rsvg, svg.string(), "-o", out.string()})) return Fail("rsvg-convert failed on " + svg.string());
  std::printf("contact-sheet: %zu pictures in %s\n", pictures.size(), out.string().c_str());
  return 0;
}
