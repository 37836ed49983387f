// Tour pages of the engine: the main menu, and a test card of the drawing functions
// (opaque, keyed, additive and clipped pictures, every font slot in every format).
#include <cstdio>

#include "Tour.h"
#include "graphics/Blit.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "screens/MainMenuScreen.h"
#include "shell/Globals.h"

namespace {

class TestCard : public GameMode {
 public:
  TestCard() : GameMode(1, "TEST CARD") {
    opaque.LoadPicture("dat\\pipeline\\check-opaque.bmp");
    keyed.LoadPicture("dat\\pipeline\\check-keyed.bmp");
    additive.LoadPicture("dat\\pipeline\\check-additive.bmp");
  }
  int Activate() override {
    Draw();
    return 1;
  }
  int Tick(std::uint32_t) override {
    Draw();
    return 1;
  }

 private:
  void Draw() {
    theDisplay->ResetClip();
    theDisplay->ClearScreen(40, 48, 72);
    Pictures();
    Fonts();
    theDisplay->Present();
  }
  void Caption(const char* text, int x, int y) {
    SetTextColour(255, 230, 120);
    DrawTextBox(7, text, {x, y, x + 200, y + 14}, nullptr, DT_LEFT);
  }
  void Pictures() {
    Caption("opaque / keyed / additive", 10, 4);
    opaque.DrawOpaque(10, 20, 1);
    keyed.DrawKeyed(84, 20, 1);
    additive.DrawAdditive(158, 20, 1);
    additive.DrawAdditive(170, 30, 1);  // overlapping glows add up
    EndAdditive();
    // Clipped at the screen's right edge and at a small clip rectangle.
    keyed.DrawKeyed(640, 40, 0);
    Caption("clipped", 240, 4);
    theDisplay->ClipRect = {240, 20, 280, 50};
    opaque.DrawOpaque(240, 20, 1);
    theDisplay->ResetClip();
  }
  void Fonts() {
    for (int slot = 0; slot < 9; ++slot) {
      const int top = 90 + slot * 38;
      char label[64];
      std::snprintf(label, sizeof label, "Font %d: Kindrels && &Spells", slot);
      for (int f = 0; f < 3; ++f) {
        const Rect cell{10 + f * 210, top, 10 + f * 210 + 200, top + 36};
        SetTextTransparent(f != 1);
        SetTextColour(f == 2 ? 100 : 230, 255, f == 2 ? 100 : 230);
        DrawTextBox(slot, label, cell, nullptr, static_cast<unsigned>(f));
      }
      SetTextTransparent(1);
    }
    // Word wrap inside a frame.
    const Rect wrap{430, 4, 630, 86};
    theDisplay->ClipRect = wrap;
    theDisplay->ClearScreen(20, 24, 40);
    theDisplay->ResetClip();
    SetTextColour(255, 255, 255);
    DrawTextBox(7, "Word wrap: the wizards of the island wait in their towers, one for every tier, and the text wraps at word ends and is cut at the frame's bottom edge.",
                wrap, nullptr, DT_LEFT | DT_WORDBREAK);
  }

  Picture opaque, keyed, additive;
};

TourPage title("main-menu", [] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); },
               [](TourGame& game) { game.RunFor(2000); });
TourPage card("engine-card", [] { return new TestCard(); }, [](TourGame& game) { game.RunFor(100); });

}  // namespace
