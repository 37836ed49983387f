// Lists, widget lists and boxes: the cursor rules of the list, hit testing and cycling,
// what is drawn in which colour, and typing into a text field.
#include <cstring>

#include "support/HeadlessGame.h"
#include "ui/List.h"
#include "ui/ObjectList.h"

namespace {

// Counts its deletions, so that tests see who deletes what.
class Counted : public ScreenObject {
 public:
  Counted(std::uint32_t id, const char* name, int* deleted) : ScreenObject(id, name), deletions(deleted) {}
  ~Counted() override { ++*deletions; }
  int* deletions;
};

TEST(ListTest, CursorSearchRemoveAndOwnership) {
  int deleted = 0;
  Counted* a = new Counted(1, "A", &deleted);
  Counted* b = new Counted(2, "B", &deleted);
  Counted* c = new Counted(3, "C", &deleted);
  Counted outsider(9, "Z", &deleted);
  {
    List list;
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.NextWrap(), nullptr) << "an empty list wraps to nothing";
    EXPECT_EQ(list.Append(nullptr), nullptr);
    list.Append(a);
    list.Append(b);
    list.Append(c);

    // Next stops at the end; the wrapping steps go round.
    using Seen = std::vector<ScreenObject*>;
    EXPECT_EQ((Seen{list.First(), list.Next(), list.Next(), list.Next(), list.Last(), list.NextWrap(),
                    list.PrevWrap(), list.Prev()}),
              (Seen{a, b, c, nullptr, c, a, c, b}));
    Counted* d = new Counted(4, "D", &deleted);
    EXPECT_EQ(list.Append(d), d);
    EXPECT_EQ(list.Next(), c) << "appending leaves the cursor where it was";

    EXPECT_EQ(list.FindById(2), b);
    EXPECT_EQ(list.FindByName("C"), c);
    EXPECT_EQ(list.FindItem(a), a);
    EXPECT_EQ(list.FindByName("nobody"), nullptr);
    EXPECT_EQ(list.Next(), a) << "a failed search leaves the cursor before the first item";

    // Removing an item that is not in the list changes nothing.
    EXPECT_EQ(list.Remove(&outsider), nullptr);
    EXPECT_EQ(list.FindById(4), d);
    // Removing B hands back A, the item before it; B is not deleted.
    EXPECT_EQ(list.Remove(b), a);
    EXPECT_EQ(list.Next(), c);
    EXPECT_EQ(deleted, 0);
    // With null the cursor's item goes.
    list.Last();
    EXPECT_EQ(list.Remove(nullptr), c);
    EXPECT_EQ(list.FindById(4), nullptr);
    EXPECT_EQ(deleted, 0);
    delete d;
    delete b;
    EXPECT_EQ(deleted, 2);
  }
  // The list deleted what it still held: A and C.
  EXPECT_EQ(deleted, 4);
}

class WidgetTest : public IdleGameTest {
 protected:
  // Whether any pixel of the rectangle has the colour (as drawn by anti-aliased text,
  // the pure colour appears in the glyphs' cores).
  bool HasColour(const Rect& r, int red, int green, int blue) const {
    const std::uint16_t want = platform::Rgb565(red, green, blue);
    for (int y = r.top; y < r.bottom; ++y)
      for (int x = r.left; x < r.right; ++x)
        if (target->At(x, y) == want) return true;
    return false;
  }
};

TEST_F(WidgetTest, HitTestAndCycle) {
  ObjectList empty(PackColour(180, 180, 230), PackColour(100, 255, 100));
  EXPECT_EQ((std::vector{empty.HitTest(5, 5), empty.Cycle(kCycleNext), empty.Cycle(kCycleStay)}),
            (std::vector{kHitNothing, kHitNothing, kHitNothing}));
  empty.DrawAll();

  ObjectList list(PackColour(180, 180, 230), PackColour(100, 255, 100));
  Button* a = new Button(10, "A", 64, 0, 0, 99, 19, 1);
  Button* b = new Button(11, "B", 64, 0, 20, 99, 39, 1);
  Button* c = new Button(12, "C", 64, 50, 10, 149, 29, 1);  // overlaps A and B
  EXPECT_EQ(list.Add(a), 10);
  list.Add(b);
  list.Add(c);
  EXPECT_EQ(list.current, c) << "the last one added starts as current";
  EXPECT_EQ((std::vector{list.Cycle(kCycleNext), list.Cycle(kCyclePrevious), list.Cycle(kCycleStay), list.Cycle(7)}),
            (std::vector{10, 12, 12, kHitNothing}));

  EXPECT_EQ(list.HitTest(99, 19), 10) << "edges belong to the box; the earliest widget wins an overlap";
  EXPECT_EQ(list.current, a);
  EXPECT_EQ(list.HitTest(60, 15), kHitCurrent) << "clicking the current widget";
  EXPECT_EQ(list.HitTest(149, 29), 12);
  EXPECT_EQ(list.HitTest(150, 29), kHitNothing);
  EXPECT_EQ(list.current, c) << "a miss leaves the highlight";
  EXPECT_EQ(list.FindById(11), b);
  EXPECT_EQ(list.FindById(99), nullptr);

  // With no current widget, Next lands on the second one and Previous on the last.
  list.current = nullptr;
  EXPECT_EQ(list.Cycle(kCycleNext), 11);
  list.current = nullptr;
  EXPECT_EQ(list.Cycle(kCyclePrevious), 12);
}

TEST_F(WidgetTest, CurrentCaptionIsHighlightedAndPictureBoxesShowOnlyWhenCurrent) {
  ObjectList list(PackColour(180, 180, 230), PackColour(100, 255, 100));
  MonsterBox* frame = new MonsterBox(0, "MonsterBox", "dat\\nowhere.bmp", 300, 300, 404, 404);
  // A picture of our own instead of a file: a white square.
  frame->picture->CreateBlank(8, 8);
  frame->picture->surface->Fill({0, 0, 8, 8}, 0xFFFF);
  list.Add(frame);
  list.Add(new Button(1, "Start", 64, 100, 100, 300, 130, 2));
  list.Add(new Button(2, "Quit", 64, 100, 150, 300, 180, 2));
  list.DrawAll();
  EXPECT_TRUE(HasColour({100, 150, 300, 181}, 100, 255, 100)) << "current: highlight colour";
  EXPECT_FALSE(HasColour({100, 150, 300, 181}, 180, 180, 230));
  EXPECT_TRUE(HasColour({100, 100, 300, 131}, 180, 180, 230)) << "others: normal colour";
  EXPECT_EQ(target->At(300, 300), 0) << "a picture box that is not current is not drawn";

  // The caption is centred at the box's top.
  int first = 640, last = -1, top = 480;
  for (int y = 100; y < 131; ++y)
    for (int x = 100; x < 301; ++x)
      if (target->At(x, y)) first = std::min(first, x), last = std::max(last, x), top = std::min(top, y);
  EXPECT_NEAR((first - 100) - (300 - last), 0, 3);
  EXPECT_LT(top - 100, 10);

  theDisplay->ClearScreen(0, 0, 0);
  list.HitTest(350, 350);
  list.DrawAll();
  EXPECT_EQ(target->At(300, 300), 0xFFFF) << "the current picture box shows its picture at its corner";
  EXPECT_TRUE(HasColour({100, 150, 300, 181}, 180, 180, 230));
}

TEST_F(WidgetTest, TypingIntoATextField) {
  Box name(0, "X", "Mookie", 63, 10, 10, 300, 40, 2);
  name.TypeChar('s');
  EXPECT_STREQ(name.Caption(), "Mookie") << "plain boxes ignore typing";
  name.editable = 1;
  name.TypeChar('s');
  name.TypeChar(13);
  EXPECT_STREQ(name.Caption(), "Mookies");
  for (int i = 0; i < 7; ++i) name.TypeChar(8);
  EXPECT_STREQ(name.Caption(), "");
  name.TypeChar(8);
  EXPECT_STREQ(name.Caption(), "") << "backspace on an empty field";
  for (int i = 0; i < 64; ++i) name.TypeChar('a' + i % 26);
  EXPECT_EQ(std::strlen(name.Caption()), 63u) << "the 64th character is dropped";
  name.TypeChar(8);
  EXPECT_EQ(std::strlen(name.Caption()), 62u);

  // Through the widget list, into the current widget.
  ObjectList list(PackColour(180, 180, 230), PackColour(100, 255, 100));
  Box* field = new Box(0, "X", "", 63, 10, 10, 300, 40, 2);
  field->editable = 1;
  list.Add(field);
  list.TypeChar('Q');
  EXPECT_STREQ(field->Caption(), "Q");

  // The cursor blinks with the timer count: "_" behind the text while count / 10 is odd.
  auto drawnWidth = [&] {
    theDisplay->ClearScreen(0, 0, 0);
    field->Draw(255, 255, 255);
    int last = -1;
    for (int y = 10; y < 41; ++y)
      for (int x = 10; x < 301; ++x)
        if (target->At(x, y)) last = std::max(last, x);
    return last;
  };
  blinkCounter = 9;
  const int plain = drawnWidth();
  blinkCounter = 10;
  EXPECT_GT(drawnWidth(), plain + 4);
  blinkCounter = 20;
  EXPECT_EQ(drawnWidth(), plain);
  blinkCounter = 0;
}

}  // namespace
