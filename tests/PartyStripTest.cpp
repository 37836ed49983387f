// The party strip drawn on the headless backend and read back as pixels: the hit-point
// bars, the pictures, and the texts compared with the same texts drawn by the game's own
// text output.
#include "creatures/PartyStrip.h"
#include "graphics/Text.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"

namespace {

constexpr int kBluberd = 0;  // "dat\BLUEBIRD.bmp", left missing
constexpr int kFleenu = 4;   // "dat\PUFFBALL.bmp", a grey square in these tests
constexpr int kBoxTop = 375, kBoxBottom = 480;

class PartyStripTest : public IdleGameTest {
 protected:
  void SetUp() override {
    std::filesystem::copy_file(TestData("kindrel.bmp"), folder / "dat" / "PUFFBALL.bmp");
    IdleGameTest::SetUp();
  }
  void TearDown() override {
    record.ReleaseParty();
    IdleGameTest::TearDown();
  }
  void Clear() { target->Fill(target->Bounds(), 0); }
  std::uint16_t Pixel(std::uint32_t colour) { return theDisplay->MatchColour(target, colour); }
  // The top row of the bar's colour in a box's bar columns, counted up from the row above
  // the box's bottom, or -1 when that row does not have it.
  int BarTop(int slot, std::uint32_t colour) {
    const Rect box = PartyBoxRect(slot);
    const std::uint16_t value = Pixel(colour);
    int top = -1;
    for (int y = box.bottom - 2; y >= box.top; --y) {
      bool full = true;
      for (int x = box.right - 5; x < box.right; ++x) full = full && target->At(x, y) == value;
      if (!full) break;
      top = y;
    }
    return top;
  }
  bool AnyInBox(int slot, std::uint16_t value) {
    const Rect box = PartyBoxRect(slot);
    for (int y = box.top; y < box.bottom; ++y)
      for (int x = box.left; x <= box.right; ++x)
        if (target->At(x, y) == value) return true;
    return false;
  }
  Kindrel& Put(int slot, int species, int level, int hitPoints, const char* name) {
    record.party[slot] = Kindrel::Create(species, level);
    record.party[slot]->hitPoints = hitPoints;
    record.party[slot]->SetName(name);
    return *record.party[slot];
  }

  TempFolder folder{"strip", TempFolder::DataRoot};
  PlayerRecord record;
};

TEST_F(PartyStripTest, BoxesAndHitPointBars) {
  // Full (8 of 8), half (4 of 8), a quarter (2 of 8), fainted (0 of 8); slot 4 empty;
  // a 1 of 10 in slot 5.
  Put(0, kBluberd, 4, 8, "Full");
  Put(1, kBluberd, 4, 4, "Half");
  Put(2, kBluberd, 4, 2, "Low");
  Put(3, kBluberd, 4, 0, "Gone");
  Put(5, kBluberd, 5, 1, "Tenth");
  drawPartyStrip(record, -1);

  const std::uint32_t green = PackColour(0, 255, 0), yellow = PackColour(255, 255, 0), red = PackColour(255, 0, 0);
  // The bar runs from its top down to the row above the box's bottom, five pixels wide
  // against the box's right edge.
  EXPECT_EQ(BarTop(0, green), kBoxTop + 1) << "a full bar starts one row below the box's top";
  // Below the full bar's top row the bar shrinks with the hit points: 102 x hit points /
  // maximum rows above the row 478, rounded down.
  EXPECT_EQ(BarTop(1, yellow), 428) << "half: 51 rows";
  EXPECT_EQ(BarTop(2, red), 454) << "a quarter: 25 rows";
  EXPECT_EQ(BarTop(5, red), 469) << "a tenth: 10 rows";
  for (int slot : {0, 1, 2, 5}) {
    const Rect box = PartyBoxRect(slot);
    EXPECT_NE(target->At(box.right - 3, box.bottom - 2), 0) << "slot " << slot;
    EXPECT_EQ(target->At(box.right - 3, box.bottom - 1), 0) << "the box's last row stays empty, slot " << slot;
    EXPECT_EQ(target->At(box.right - 6, box.bottom - 2), 0) << "five columns wide, slot " << slot;
    EXPECT_EQ(target->At(box.right, box.bottom - 2), 0) << "up to the right edge, slot " << slot;
  }
  // A fainted creature's bar is empty: none of the bar colours anywhere in its box.
  for (std::uint32_t colour : {green, yellow, red}) EXPECT_FALSE(AnyInBox(3, Pixel(colour)));
  // An empty slot draws nothing at all.
  for (int y = kBoxTop; y < kBoxBottom; ++y)
    for (int x = PartyBoxRect(4).left; x < PartyBoxRect(4).right; ++x) ASSERT_EQ(target->At(x, y), 0) << x << "," << y;

  // The half bar is yellow, the quarter red: no green in those boxes.
  EXPECT_FALSE(AnyInBox(1, Pixel(green)));
  EXPECT_FALSE(AnyInBox(2, Pixel(green)));
  EXPECT_FALSE(AnyInBox(2, Pixel(yellow)));

  // The excluded slot is left out; every screen passes -1 to the one record's strip.
  Clear();
  drawPartyStrip(record, 0);
  EXPECT_EQ(BarTop(0, green), -1);
  EXPECT_EQ(BarTop(1, yellow), 428);
  Clear();
  drawPartyStrip(-1);
  EXPECT_EQ(BarTop(1, yellow), -1) << "the game's record has an empty party here";
}

TEST_F(PartyStripTest, PicturesAndTextsWithTheirShadows) {
  Kindrel& fainted = Put(0, kFleenu, 1, 0, "Mookie");
  Kindrel& standing = Put(2, kFleenu, 3, 9, "Puff");
  ASSERT_EQ(fainted.picture->Width(), 104);
  drawPartyStrip(record, -1);

  // The picture lands at the box's top-left corner, drawn keyed.
  const std::uint16_t grey = Pixel(PackColour(0x96, 0x96, 0x96));
  EXPECT_EQ(target->At(PartyBoxRect(0).left, kBoxTop), 0) << "black is transparent";
  EXPECT_EQ(target->At(PartyBoxRect(0).left + 1, kBoxTop), grey);
  EXPECT_EQ(target->At(PartyBoxRect(2).left + 103, kBoxBottom - 1), grey);
  EXPECT_EQ(target->At(PartyBoxRect(0).left + 104, kBoxTop + 50), 0);

  // The expected box: the same picture, then each text in black one pixel right and down
  // and in white over it, drawn by the game's text output on a surface of our own.
  Surface expected(640, 480);
  auto shadowed = [&](int font, const char* text, Rect face, unsigned format) {
    SetTextColour(0, 0, 0);
    DrawTextBox(font, text, {face.left + 1, face.top + 1, face.right + 1, face.bottom + 1}, &expected, format);
    SetTextColour(255, 255, 255);
    DrawTextBox(font, text, face, &expected, format);
  };
  auto expectBox = [&](int slot, const Kindrel& creature) {
    const Rect box = PartyBoxRect(slot);
    expected.Fill(expected.Bounds(), 0);
    expected.Fill({box.left, box.top, box.left + 104, box.bottom}, grey);
    expected.Fill({box.left, box.top, box.left + 1, box.top + 1}, 0);
    const std::string level = "Level: " + std::to_string(creature.level);
    shadowed(0, level.c_str(), {box.left + 1, box.top + 1, box.right - 1, box.top + 12}, DT_LEFT);
    shadowed(0, creature.name, {box.left + 1, box.bottom - 14, box.right - 1, box.bottom - 1}, DT_LEFT);
    if (creature.hitPoints < 1)
      shadowed(3, "Fainted!", {box.left + 1, box.top + 40, box.right - 1, box.bottom - 1}, DT_CENTER);
    int differing = 0, texts = 0;
    for (int y = box.top; y < box.bottom; ++y)
      for (int x = box.left; x < box.right - 5; ++x) {  // the bar's columns aside
        differing += target->At(x, y) != expected.At(x, y);
        texts += expected.At(x, y) != grey && expected.At(x, y) != 0;
      }
    EXPECT_EQ(differing, 0) << "slot " << slot;
    return texts;
  };
  const int faintedText = expectBox(0, fainted);
  const int standingText = expectBox(2, standing);
  EXPECT_GT(standingText, 50) << "the level and the name show";
  EXPECT_GT(faintedText, standingText + 100) << "so does Fainted!";

  // The shadow shows as black on the picture just below and right of the white text.
  int shadowPixels = 0;
  const Rect box = PartyBoxRect(2);
  for (int y = box.top + 2; y < box.top + 14; ++y)
    for (int x = box.left + 2; x < box.right - 5; ++x) shadowPixels += target->At(x, y) == 0;
  EXPECT_GT(shadowPixels, 10);
}

}  // namespace
