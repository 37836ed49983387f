// Pictures on the display: clipping, opaque, keyed and additive drawing, mirroring,
// surface loss and reloading, and text in its rectangle.
#include "graphics/Blit.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "platform/DrawText.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"

namespace {

class DrawingTest : public IdleGameTest {
 protected:
  // A picture whose every pixel tells where it came from: 1 + x + 100 y.
  void Numbered(Picture& picture, int w, int h) {
    picture.CreateBlank(w, h);
    for (int y = 0; y < h; ++y)
      for (int x = 0; x < w; ++x) picture.surface->Pixels()[y * picture.surface->Pitch() + x] = Numbering(x, y);
  }
  static std::uint16_t Numbering(int x, int y) { return static_cast<std::uint16_t>(1 + x + 100 * y); }
  // A picture of one row of these pixels.
  static void OneRow(Picture& picture, const std::vector<std::uint16_t>& pixels) {
    picture.CreateBlank(static_cast<int>(pixels.size()), 1);
    std::copy(pixels.begin(), pixels.end(), picture.surface->Pixels());
  }
  // The frame's pixels from (x, y) on to the right.
  std::vector<std::uint16_t> FrameRow(int x, int y, int count) const {
    std::vector<std::uint16_t> row;
    for (int i = 0; i < count; ++i) row.push_back(target->At(x + i, y));
    return row;
  }
  int Changed() const {
    int n = 0;
    for (int y = 0; y < 480; ++y)
      for (int x = 0; x < 640; ++x) n += target->At(x, y) != 0;
    return n;
  }

  TempFolder folder{"drawing", TempFolder::DataRoot};
};

TEST_F(DrawingTest, PicturesAreClippedToTheClipRectangle) {
  Picture picture;
  Numbered(picture, 100, 60);
  // Centred at (10, 10): the lower-right part from source (40, 20) lands at (0, 0).
  EXPECT_EQ(picture.DrawOpaque(10, 10, 0), 0);
  EXPECT_EQ(target->At(0, 0), Numbering(40, 20));
  EXPECT_EQ(target->At(59, 39), Numbering(99, 59));
  EXPECT_EQ(target->At(60, 0), 0);
  EXPECT_EQ(Changed(), 60 * 40);

  // At the right edge only the left 40 columns show.
  theDisplay->ClearScreen(0, 0, 0);
  EXPECT_EQ(picture.DrawOpaque(600, 0, 1), 0);
  EXPECT_EQ(target->At(600, 0), Numbering(0, 0));
  EXPECT_EQ(target->At(639, 59), Numbering(39, 59));
  EXPECT_EQ(Changed(), 40 * 60);

  // A smaller clip rectangle; wholly outside draws nothing.
  theDisplay->ClearScreen(0, 0, 0);
  theDisplay->ClipRect = {100, 100, 150, 120};
  EXPECT_EQ(picture.DrawOpaque(90, 95, 1), 0);
  EXPECT_EQ(target->At(100, 100), Numbering(10, 5));
  EXPECT_EQ(Changed(), 50 * 20);
  theDisplay->ClearScreen(0, 0, 0);
  EXPECT_EQ(picture.DrawOpaque(300, 300, 1), 0);
  EXPECT_EQ(picture.DrawOpaque(-100, 100, 1), 0);
  EXPECT_EQ(Changed(), 0);
}

TEST_F(DrawingTest, KeyedAndAdditiveDrawing) {
  // The key, the darkest blue (which is not the key), white.
  Picture sprite;
  OneRow(sprite, {0, 1, 0xFFFF});
  theDisplay->ClearScreen(0, 200, 0);
  const std::uint16_t green = target->At(0, 0);
  sprite.DrawKeyed(10, 10, 1);
  EXPECT_EQ(FrameRow(10, 10, 3), (std::vector<std::uint16_t>{green, 1, 0xFFFF}));
  sprite.DrawOpaque(10, 20, 1);
  EXPECT_EQ(target->At(10, 20), 0);

  // Additive: black adds nothing, white saturates, channels add without carrying.
  Picture glow;
  OneRow(glow, {0, 0xFFFF, platform::Rgb565(128, 40, 200)});
  theDisplay->ClearScreen(0, 0, 0);
  theDisplay->ClipRect = {0, 0, 640, 480};
  for (int x = 0; x < 3; ++x) target->Pixels()[30 * target->Pitch() + 30 + x] = platform::Rgb565(160, 100, 16);
  glow.DrawAdditive(30, 30, 1);
  EndAdditive();
  EXPECT_EQ(FrameRow(30, 30, 3),
            (std::vector<std::uint16_t>{platform::Rgb565(160, 100, 16), 0xFFFF, platform::Rgb565(255, 140, 216)}));
  EXPECT_FALSE(target->IsLocked());

  // A blank picture is all key.
  Picture blank;
  blank.CreateBlank(20, 20);
  blank.DrawKeyed(100, 100, 1);
  EXPECT_EQ(Changed(), 3);
}

TEST_F(DrawingTest, MirrorTwiceRestoresAPicture) {
  for (int width : {1, 3, 4, 7}) {
    Picture picture;
    Numbered(picture, width, 2);
    picture.Mirror();
    for (int x = 0; x < width; ++x) EXPECT_EQ(picture.surface->At(x, 1), Numbering(width - 1 - x, 1));
    picture.Mirror();
    for (int x = 0; x < width; ++x) EXPECT_EQ(picture.surface->At(x, 0), Numbering(x, 0));
  }
}

TEST_F(DrawingTest, LostSurfacesComeBackFromTheirFiles) {
  std::filesystem::copy_file(TestData("card-24.bmp"), folder / "dat" / "card.bmp");
  Picture card, missing;
  card.LoadPicture("dat\\card.bmp");
  missing.LoadPicture("dat\\nowhere.bmp");
  ASSERT_EQ(card.Width(), 5);
  EXPECT_EQ(missing.Width(), 0);
  EXPECT_EQ(missing.DrawKeyed(5, 5, 1), 0) << "a missing picture draws nothing and is no failure";

  Surface::LoseAll();
  // The first drawing call after the loss restores the display and draws nothing.
  EXPECT_EQ(card.DrawOpaque(0, 0, 1), 1);
  EXPECT_FALSE(target->IsLost());
  theDisplay->ClearScreen(0, 0, 0);
  EXPECT_EQ(card.DrawOpaque(0, 0, 1), 0);
  EXPECT_EQ(target->At(0, 0), platform::Rgb565(255, 0, 0));
  EXPECT_EQ(target->At(4, 2), platform::Rgb565(255, 255, 0));
}

TEST_F(DrawingTest, TextIsAlignedWrappedAndClipped) {
  SetTextColour(255, 255, 255);
  SetTextTransparent(1);
  // Draws on a cleared frame; gives the height drawn and the first and last columns lit,
  // every lit pixel inside the rectangle.
  auto draw = [&](const char* text, const Rect& r, unsigned format) {
    theDisplay->ClearScreen(0, 0, 0);
    const int height = DrawTextBox(1, text, r, nullptr, format);
    int first = 640, last = -1;
    for (int y = 0; y < 480; ++y)
      for (int x = 0; x < 640; ++x)
        if (target->At(x, y) != 0) {
          EXPECT_TRUE(x >= r.left && x < r.right && y >= r.top && y < r.bottom) << x << "," << y;
          first = std::min(first, x);
          last = std::max(last, x);
        }
    return std::tuple(height, first, last);
  };
  const Rect box{100, 50, 500, 90};
  const auto [h1, leftFirst, leftLast] = draw("Battle!", box, DT_LEFT);
  EXPECT_LE(leftFirst - box.left, 2);
  const auto [h2, rightFirst, rightLast] = draw("Battle!", box, DT_RIGHT);
  EXPECT_LE(box.right - 1 - rightLast, 2);
  EXPECT_EQ(rightLast - rightFirst, leftLast - leftFirst);
  const auto [h3, centreFirst, centreLast] = draw("Battle!", box, DT_CENTER);
  EXPECT_NEAR(centreFirst - box.left, box.right - 1 - centreLast, 2);

  // Wrapping makes more lines; without it the text is cut at the rectangle.
  const char* longText = "The wizards of the island wait in their towers, one for every tier.";
  const Rect narrow{20, 100, 140, 300};
  const int oneLine = std::get<0>(draw(longText, narrow, DT_LEFT));
  const int wrapped = std::get<0>(draw(longText, narrow, DT_LEFT | DT_WORDBREAK));
  EXPECT_GT(oneLine, 0);
  EXPECT_GE(wrapped, 4 * oneLine);
  EXPECT_EQ(wrapped % oneLine, 0);

  // Opaque text fills its cell with the back colour, dark blue after start-up.
  theDisplay->ClearScreen(0, 0, 0);
  SetTextTransparent(0);
  DrawTextBox(1, "Mookie", box, nullptr, DT_LEFT);
  EXPECT_EQ(target->At(box.left, box.top), platform::Rgb565(0, 0, 40));
  EXPECT_EQ(target->At(box.left, box.top + oneLine), 0) << "only the line's cell";
  EXPECT_EQ(target->At(box.right - 1, box.top), 0) << "only the text's width";
}

TEST_F(DrawingTest, TheLinesOfAText) {
  platform::Font* font = theDisplay->FontAt(2);
  ASSERT_NE(font, nullptr);
  struct Case {
    const char* text;
    unsigned format;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      // A word wider than the line stands alone, whole; the rectangle clips it.
      {"Go ABCDEFGHIJKLMNOP now", DT_WORDBREAK, {"Go", "ABCDEFGHIJKLMNOP", "now"}},
      {"ABCDEFGHIJKLMNOP", DT_CENTER | DT_WORDBREAK, {"ABCDEFGHIJKLMNOP"}},
      // Either order of carriage return and line feed is one break; two alike are two.
      {"one\n\rtwo", DT_LEFT, {"one", "two"}},
      {"one\r\ntwo", DT_LEFT, {"one", "two"}},
      {"one\n\ntwo\r\rthree", DT_LEFT, {"one", "", "two", "", "three"}},
      // A single '&' at the very end is drawn; "&&" is one '&'; '&' marks the next letter.
      {"Salt&", DT_LEFT, {"Salt&"}},
      {"Salt&&Pepper &Go", DT_LEFT, {"Salt&Pepper Go"}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> lines;
    for (const platform::TextLine& line : platform::LayoutText(*font, c.text, 60, c.format)) lines.push_back(line.text);
    EXPECT_EQ(lines, c.lines) << c.text;
  }
  EXPECT_EQ(platform::LayoutText(*font, "Salt&", 60, DT_LEFT)[0].underlined, std::vector<int>{});
  EXPECT_EQ(platform::LayoutText(*font, "&Go", 60, DT_LEFT)[0].underlined, std::vector<int>{0});
}

TEST_F(DrawingTest, EveryFontSlotDrawsText) {
  for (int slot = 0; slot < 9; ++slot) {
    theDisplay->ClearScreen(0, 0, 0);
    const int height = DrawTextBox(slot, "Kindrel 42", {0, 0, 640, 480}, nullptr, DT_LEFT);
    EXPECT_GT(height, 0) << "slot " << slot;
    EXPECT_GT(Changed(), 20) << "slot " << slot;
  }
  EXPECT_EQ(DrawTextBox(9, "nothing", {0, 0, 640, 480}, nullptr, DT_LEFT), 0) << "an empty slot draws nothing";
}

}  // namespace
