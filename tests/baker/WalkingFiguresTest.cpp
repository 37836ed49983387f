// The walking figures of the maze as the game reads them: every frame of the four sets has
// one size, the feet stand on the bottom centre (the game puts that point on the middle of
// a floor diamond), and a step ends close to standing, so that the figure does not jump
// when it stops.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "BakedPicture.h"
#include "platform/BitmapFile.h"

namespace {

constexpr int kFramesPerSet = 7;

struct FigureSet {
  const char* what;
  std::array<const char*, kFramesPerSet> files;  // frame 0 standing first
};

const std::array<FigureSet, 4> kSets{{
    {"boy from behind", {"walk000.bmp", "walk001.bmp", "walk002.bmp", "walk003.bmp", "walk004.bmp",
                         "walk005.bmp", "walk006.bmp"}},
    {"boy from the front", {"boy000.bmp", "boy001.bmp", "boy002.bmp", "boy003.bmp", "boy004.bmp", "boy005.bmp",
                            "boy006.bmp"}},
    {"girl from behind", {"gwalk001.bmp", "gwalk002.bmp", "gwalk003.bmp", "gwalk004.bmp", "gwalk005.bmp",
                          "gwalk006.bmp", "gwalk007.bmp"}},
    {"girl from the front", {"girlf1.bmp", "girlf2.bmp", "girlf3.bmp", "girlf4.bmp", "girlf5.bmp", "girlf6.bmp",
                             "girlf7.bmp"}},
}};

// The key colour: what the game leaves out when it draws a keyed picture.
constexpr std::uint16_t kKey = 0;

platform::Image565 Load(const std::string& name) { return LoadBakedPicture(name); }

bool Shown(const platform::Image565& image, int x, int y) {
  return image.pixels[static_cast<std::size_t>(y) * image.width + x] != kKey;
}

// Pixels shown in one frame and left out in the other. The frames are compared by where the
// figure is, not by its colours: the shading inside moves with every half-pixel change of a
// limb, which the eye does not take for a jump.
int SilhouetteDifference(const platform::Image565& a, const platform::Image565& b) {
  int count = 0;
  for (std::size_t i = 0; i < a.pixels.size() && i < b.pixels.size(); ++i) {
    count += (a.pixels[i] != kKey) != (b.pixels[i] != kKey);
  }
  return count;
}

int ShownCount(const platform::Image565& image) {
  int count = 0;
  for (const auto p : image.pixels) count += p != kKey;
  return count;
}

TEST(WalkingFigures, OneSizeFeetOnTheBottomCentreAndAStepThatEndsCloseToStanding) {
  const auto first = Load(kSets[0].files[0]);
  ASSERT_GT(first.width, 0);
  EXPECT_GE(first.width, 28);
  EXPECT_LE(first.width, 40);
  EXPECT_GE(first.height, 56);
  EXPECT_LE(first.height, 72);
  constexpr int kFootRows = 4;
  for (const auto& set : kSets) {
    std::vector<platform::Image565> frames;
    for (const char* file : set.files) {
      SCOPED_TRACE(std::string(set.what) + " " + file);
      const auto& image = frames.emplace_back(Load(file));
      ASSERT_EQ(image.width, first.width);
      ASSERT_EQ(image.height, first.height);
      const int centre = image.width / 2;
      // Something of a foot on one of the two bottom rows, and the feet of the bottom rows
      // round the centre column: at it, and on average near it.
      bool onBottom = false;
      bool atCentre = false;
      int count = 0;
      long sumX = 0;
      for (int y = image.height - kFootRows; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
          if (!Shown(image, x, y)) continue;
          onBottom = onBottom || y >= image.height - 2;
          atCentre = atCentre || std::abs(x - centre) <= 4;
          ++count;
          sumX += x;
        }
      }
      EXPECT_TRUE(onBottom) << "the feet do not reach the bottom rows";
      EXPECT_TRUE(atCentre) << "no foot near the centre column";
      ASSERT_GT(count, 0);
      EXPECT_NEAR(static_cast<double>(sumX) / count, centre, 6.0) << "the feet stand off centre";
      // And nothing but the feet down there: the figure is not cut by the frame's sides.
      for (int y = 0; y < image.height; ++y) {
        EXPECT_FALSE(Shown(image, 0, y) || Shown(image, image.width - 1, y)) << "touches a side at row " << y;
      }
    }
    SCOPED_TRACE(set.what);
    const auto& standing = frames.front();
    const int shown = ShownCount(standing);
    const int toLast = SilhouetteDifference(standing, frames.back());
    // Every frame of the walk is further from standing than the last one, which leads back
    // into it; and the stride's widest frame is far from it.
    int widest = 0;
    for (int i = 1; i + 1 < kFramesPerSet; ++i) {
      const int toFrame = SilhouetteDifference(standing, frames[i]);
      EXPECT_LT(toLast, toFrame) << "frame " << i << " is closer to standing than the last frame";
      widest = std::max(widest, toFrame);
    }
    EXPECT_LE(toLast, shown / 10) << "the last frame is far from standing";
    EXPECT_GE(widest, shown / 5) << "the legs and arms hardly swing";
  }
}

}  // namespace
