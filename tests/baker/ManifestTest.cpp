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
  ASSERT_EQ(m.errors.size(), 7u);
  EXPECT_EQ(m.errors[0], "m:1: expected OUTPUT MODE WIDTH HEIGHT SOURCE");
  EXPECT_NE(m.errors[1].find("m:2: bad mode 'shiny'"), std::string::npos);
  EXPECT_NE(m.errors[2].find("m:3: bad size"), std::string::npos);
  EXPECT_NE(m.errors[3].find("m:4: bad size"), std::string::npos);
  EXPECT_NE(m.errors[4].find("m:5: bad output"), std::string::npos);
  EXPECT_NE(m.errors[5].find("m:6: bad output"), std::string::npos);
  EXPECT_NE(m.errors[6].find("m:7: bad source"), std::string::npos);
  ASSERT_EQ(m.entries.size(), 1u);
  EXPECT_EQ(m.entries[0].output, "H.bmp");
}

TEST(Manifest, ReadsEveryManifestOfAFolder) {
  const Manifest m = ReadManifests(std::string(BAKER_TEST_MANIFESTS) + "/good");
  ASSERT_TRUE(m.errors.empty()) << m.errors.front();
  ASSERT_EQ(m.entries.size(), 3u);
  EXPECT_EQ(m.entries[0].output, "PUFF.bmp");
  EXPECT_EQ(m.entries[1].output, "spell/Glow.bmp");
  EXPECT_EQ(m.entries[1].where, "b.manifest:1");
  EXPECT_EQ(m.entries[2].output, "back.bmp");
}

TEST(Manifest, RefusesDuplicatesAndMissingSources) {
  const Manifest dup = ReadManifests(std::string(BAKER_TEST_MANIFESTS) + "/duplicate");
  ASSERT_EQ(dup.errors.size(), 1u);
  EXPECT_NE(dup.errors[0].find("b.manifest:1: output 'PUFF.bmp' already made at a.manifest:2"), std::string::npos)
      << dup.errors[0];
  const Manifest dupCase = ReadManifests(std::string(BAKER_TEST_MANIFESTS) + "/duplicate-case");
  ASSERT_EQ(dupCase.errors.size(), 1u);
  const Manifest missing = ReadManifests(std::string(BAKER_TEST_MANIFESTS) + "/missing-source");
  ASSERT_EQ(missing.errors.size(), 1u);
  EXPECT_NE(missing.errors[0].find("'creatures/nowhere.svg' is missing"), std::string::npos) << missing.errors[0];
}

}  // namespace
}  // namespace baker
