#include <gtest/gtest.h>

#include "Manifest.h"

namespace baker {
namespace {

TEST(Manifest, ReadsLinesSkippingCommentsAndBlankLines) {
  Manifest m;
  ParseManifest("# creatures\n\nPUFFBALL.bmp keyed 100 100 creatures/puffball.svg  # the start\r\n"
                "  spell/flr-lrg-white.bmp\tadditive 32 32 effects/orb.svg\n"
                "back1.bmp opaque 640 480 backgrounds/back1.svg",
                "a.manifest", m);
  ASSERT_TRUE(m.errors.empty()) << m.errors.front();
  ASSERT_EQ(m.entries.size(), 3u);
  EXPECT_EQ(m.entries[0].output, "PUFFBALL.bmp");
  EXPECT_EQ(m.entries[0].mode, Mode::Keyed);
  EXPECT_EQ(m.entries[0].width, 100);
  EXPECT_EQ(m.entries[0].height, 100);
  EXPECT_EQ(m.entries[0].source, "creatures/puffball.svg");
  EXPECT_EQ(m.entries[0].where, "a.manifest:3");
  EXPECT_EQ(m.entries[1].output, "spell/flr-lrg-white.bmp");
  EXPECT_EQ(m.entries[1].mode, Mode::Additive);
  EXPECT_EQ(m.entries[2].mode, Mode::Opaque);
  EXPECT_EQ(m.entries[2].width, 640);
  EXPECT_EQ(m.entries[2].height, 480);
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
  ASSERT_EQ(m.entries.size(), 1u);
  EXPECT_EQ(m.entries[0].output, "H.bmp");
}

TEST(Manifest, ReadsEveryManifestOfAFolderAndRefusesDuplicatesAndMissingSources) {
  const std::string folder = BAKER_TEST_MANIFESTS;
  const Manifest m = ReadManifests(folder + "/good");
  ASSERT_TRUE(m.errors.empty()) << m.errors.front();
  ASSERT_EQ(m.entries.size(), 3u);
  EXPECT_EQ(m.entries[0].output, "PUFF.bmp");
  EXPECT_EQ(m.entries[1].output, "spell/Glow.bmp");
  EXPECT_EQ(m.entries[1].where, "b.manifest:1");
  EXPECT_EQ(m.entries[2].output, "back.bmp");

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

}  // namespace
}  // namespace baker
