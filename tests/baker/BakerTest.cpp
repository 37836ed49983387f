// The baker's manifests and pixel rules: manifest lines read with their comments and blank
// lines, every bad line named, a folder of manifests read with duplicates and missing
// sources refused; and the pixel rules, one rendered pixel (straight alpha) at a time.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Manifest.h"
#include "PixelRules.h"

namespace baker {
namespace {

// Each entry as one line: output, mode, size, source and where it was read.
std::vector<std::string> Lines(const Manifest& m) {
  std::vector<std::string> lines;
  for (const ManifestEntry& e : m.entries) {
    lines.push_back(e.output + " " + std::string(ModeName(e.mode)) + " " + std::to_string(e.width) + "x" +
                    std::to_string(e.height) + " " + e.source + " " + e.where);
  }
  return lines;
}

TEST(Manifest, ReadsLinesSkippingCommentsAndBlankLines) {
  Manifest m;
  ParseManifest("# creatures\n\nPUFFBALL.bmp keyed 100 100 creatures/puffball.svg  # the start\r\n"
                "  spell/flr-lrg-white.bmp\tadditive 32 32 effects/orb.svg\n"
                "back1.bmp opaque 640 480 backgrounds/back1.svg",
                "a.manifest", m);
  ASSERT_TRUE(m.errors.empty()) << m.errors.front();
  EXPECT_EQ(Lines(m), (std::vector<std::string>{"PUFFBALL.bmp keyed 100x100 creatures/puffball.svg a.manifest:3",
                                                "spell/flr-lrg-white.bmp additive 32x32 effects/orb.svg a.manifest:4",
                                                "back1.bmp opaque 640x480 backgrounds/back1.svg a.manifest:5"}));
}

TEST(Manifest, NamesEveryBadLine) {
  Manifest m;
  ParseManifest("A.bmp keyed 10 10\n"
                "B.bmp shiny 10 10 b.svg\n"
                "C.bmp keyed 10 x c.svg\n"
                "D.bmp keyed 0 10 d.svg\n"
                "../E.bmp keyed 10 10 e.svg\n"
                "F.png keyed 10 10 f.svg\n"
                "G.bmp keyed 10 10 /etc/g.svg\n"
                "H.bmp keyed 10 10 h.svg\n",
                "m", m);
  const std::vector<std::string> expected = {"m:1: expected OUTPUT MODE WIDTH HEIGHT SOURCE", "m:2: bad mode 'shiny'",
                                             "m:3: bad size", "m:4: bad size", "m:5: bad output", "m:6: bad output",
                                             "m:7: bad source"};
  ASSERT_EQ(m.errors.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(m.errors[i].rfind(expected[i], 0), 0u) << m.errors[i];
  EXPECT_EQ(m.errors[0], expected[0]);
  EXPECT_EQ(Lines(m), std::vector<std::string>{"H.bmp keyed 10x10 h.svg m:8"});
}

TEST(Manifest, ReadsEveryManifestOfAFolderAndRefusesDuplicatesAndMissingSources) {
  const std::string folder = BAKER_TEST_MANIFESTS;
  const Manifest m = ReadManifests(folder + "/good");
  ASSERT_TRUE(m.errors.empty()) << m.errors.front();
  EXPECT_EQ(Lines(m), (std::vector<std::string>{"PUFF.bmp keyed 100x100 creatures/puff.svg a.manifest:2",
                                                "spell/Glow.bmp additive 32x16 glow.svg b.manifest:1",
                                                "back.bmp opaque 64x48 glow.svg b.manifest:2"}));

  const std::pair<const char*, const char*> refused[] = {
      {"duplicate", "b.manifest:1: output 'PUFF.bmp' already made at a.manifest:2"},
      {"duplicate-case", "output 'puff.BMP' already made at a.manifest:1"},
      {"missing-source", "'creatures/nowhere.svg' is missing"}};
  for (const auto& [name, error] : refused) {
    const Manifest bad = ReadManifests(folder + "/" + name);
    ASSERT_EQ(bad.errors.size(), 1u) << name;
    EXPECT_NE(bad.errors[0].find(error), std::string::npos) << bad.errors[0];
  }
}

TEST(PixelRules, KeyedDropsPixelsUnderHalfCoverageAndKeepsTheColourOfTheRest) {
  // An edge pixel keeps the colour the picture says; darkening it by its coverage would
  // ring the sprite with a dark halo.
  for (int a = 0; a < 256; ++a) {
    const Rgb out = BakePixel(Mode::Keyed, {200, 150, 100, static_cast<std::uint8_t>(a)});
    EXPECT_EQ(out, (a < 128 ? Rgb{0, 0, 0} : Rgb{200, 150, 100})) << "alpha " << a;
  }
  // Near black is lifted at any coverage that keeps it, to the darkest non-zero value.
  for (const Rgba nearBlack : {Rgba{0, 0, 0, 128}, Rgba{5, 1, 2, 200}})
    EXPECT_EQ(BakePixel(Mode::Keyed, nearBlack), kDarkestVisible);
  EXPECT_EQ(To565(kDarkestVisible), 1);
}

TEST(PixelRules, EveryCoveredColourStaysVisibleAndOnlyNearBlackChanges) {
  for (std::uint32_t c = 0; c < (1u << 24); ++c) {
    const Rgba in{static_cast<std::uint8_t>(c >> 16), static_cast<std::uint8_t>(c >> 8),
                  static_cast<std::uint8_t>(c), 255};
    const Rgb out = BakePixel(Mode::Keyed, in);
    const Rgb same{in.r, in.g, in.b};
    const Rgb expected = To565(same) != 0 ? same : kDarkestVisible;
    if (out != expected) FAIL() << "colour " << std::hex << c;
  }
}

TEST(PixelRules, AdditiveAndOpaqueFlattenOntoBlack) {
  const struct {
    Mode mode;
    Rgba in;
    Rgb out;
  } cases[] = {
      {Mode::Additive, {255, 255, 255, 255}, {255, 255, 255}},
      {Mode::Additive, {255, 255, 255, 128}, {128, 128, 128}},
      {Mode::Additive, {255, 255, 255, 0}, {0, 0, 0}},
      {Mode::Additive, {200, 100, 50, 51}, {40, 20, 10}},
      {Mode::Additive, {255, 0, 0, 64}, {64, 0, 0}},
      {Mode::Additive, {255, 255, 255, 3}, {3, 3, 3}},  // faint glow stays faint, neither keyed nor lifted
      {Mode::Additive, {0, 0, 0, 255}, {0, 0, 0}},
      {Mode::Opaque, {10, 20, 30, 255}, {10, 20, 30}},
      {Mode::Opaque, {10, 20, 30, 0}, {0, 0, 0}},
      {Mode::Opaque, {100, 200, 50, 128}, {50, 100, 25}},
      {Mode::Opaque, {0, 0, 0, 255}, {0, 0, 0}},  // a background has no key to avoid
      {Mode::Opaque, {5, 2, 6, 255}, {5, 2, 6}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(BakePixel(c.mode, c.in), c.out) << ModeName(c.mode) << " " << int(c.in.r) << "," << int(c.in.g) << ","
                                              << int(c.in.b) << "," << int(c.in.a);
  }
}

}  // namespace
}  // namespace baker
