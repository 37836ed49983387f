// The game's random generator, the cross-fade and its table, particles and the mouse
// pointer, on the headless display.
#include <cmath>
#include <numbers>

#include "graphics/Blit.h"
#include "graphics/CrossFade.h"
#include "graphics/Particles.h"
#include "shell/Random.h"
#include "support/HeadlessGame.h"
#include "ui/MousePointer.h"

namespace {

TEST(RandomTest, TheWellKnownSequenceOfItsArithmetic) {
  // The generator of the classic C runtime, seeded with 1, is known to start like this.
  SeedRandom(1);
  EXPECT_EQ((std::vector<int>{Rand(), Rand(), Rand(), Rand()}), (std::vector<int>{41, 18467, 6334, 26500}));
  SeedRandom(1);
  EXPECT_EQ(Roll(10), 1);
  // The state wraps at 32 bits and every value stays in 0..32767.
  SeedRandom(0xFFFFFFFFu);
  for (int i = 0, r = Rand(); i < 1000; ++i, r = Rand()) ASSERT_TRUE(r >= 0 && r <= 32767) << r;
}

class EffectsTest : public IdleGameTest {
 protected:
  void SetUp() override {
    IdleGameTest::SetUp();
    front = theDisplay->front.get();
  }
  Surface*& back = target;
  Surface* front = nullptr;
};

TEST_F(EffectsTest, FadeTableScalesEachChannelAndNeverCarries) {
  // Built at start-up.
  for (std::uint32_t c = 0; c < 65536; c += 97) {
    ASSERT_EQ(FadeTable[31][c], c);
    ASSERT_EQ(FadeTable[0][c], 0);
  }
  EXPECT_EQ(FadeTable[16][0xFFFF], (15 << 11) | (32 << 5) | 15);
  // Two mixes of one colour at complementary levels never spill into the next channel.
  for (std::uint32_t c : {0xFFFFu, 0xF800u, 0x07E0u, 0x001Fu, 0x8410u}) {
    for (int k = 0; k < 8; ++k) {
      const int sum = FadeTable[4 * k][c] + FadeTable[31 - 4 * k][c];
      EXPECT_LE(sum & 0x1F, c & 0x1F);
      EXPECT_LE(sum & 0x7E0, c & 0x7E0);
      EXPECT_LE(sum, 0xFFFF);
    }
  }
}

TEST_F(EffectsTest, CrossFadeShowsEightStepsFromTheOldPicture) {
  const int before = game->backend.FramesShown();
  front->Fill(front->Bounds(), platform::Rgb565(255, 255, 255));
  back->Fill(back->Bounds(), platform::Rgb565(0, 0, 248));
  CrossFade(front, back);
  EXPECT_EQ(game->backend.FramesShown() - before, 8);
  // The last step is 0.91 of the new picture and 0.09 of the old.
  const std::uint16_t last = game->backend.LastFrame()[0];
  EXPECT_EQ(last >> 11, static_cast<int>(31 * 0.09f));
  EXPECT_EQ(last & 0x1F, static_cast<int>(31 * 0.91f) + static_cast<int>(31 * 0.09f));

  // Identical pictures stay the same picture, but for the truncation of each mix.
  front->Fill(front->Bounds(), platform::Rgb565(255, 255, 255));
  back->Fill(back->Bounds(), platform::Rgb565(255, 255, 255));
  CrossFade(front, back);
  const std::uint16_t same = game->backend.LastFrame()[320 * 640 + 17];
  EXPECT_GE(same >> 11, 30);
  EXPECT_GE((same >> 5) & 63, 62);
  EXPECT_GE(same & 31, 30);

  // Without work surfaces there is no effect.
  const int shown = game->backend.FramesShown();
  Surface::FailNextCreations(1);
  CrossFade(front, back);
  EXPECT_EQ(game->backend.FramesShown(), shown);
}

void Keep(Particle*) {}
// One frame of a pool's particles, drawn.
void Frame(ParticlePool& pool) {
  pool.UpdateAndDraw();
  EndAdditive();
}
void TurnRed(Particle* p) { p->red = 255, p->green = 0, p->blue = 0; }

TEST_F(EffectsTest, ParticlesLiveTheirCountMoveAndPlot) {
  ParticlePool pool(4);
  // Life 32: plotted on 31 frames and freed on the 32nd.
  pool.AddParticle(255, 255, 255, 100.0f, 100.0f, 0.0f, 0.0f, 32, Keep);
  for (int frame = 1; frame <= 31; ++frame) {
    back->Fill({100, 100, 101, 101}, 0);
    Frame(pool);
    ASSERT_EQ(back->At(100, 100), 0xFFFF) << "frame " << frame;
  }
  back->Fill({100, 100, 101, 101}, 0);
  Frame(pool);
  EXPECT_EQ(back->At(100, 100), 0);
  EXPECT_EQ(pool.particles[0].update, nullptr);

  // Heading pi/2 moves right; the update function may recolour.
  pool.AddParticle(0, 255, 0, 10.0f, 50.0f, std::numbers::pi_v<float> / 2, 3.0f, 10, TurnRed);
  Frame(pool);
  EXPECT_EQ(back->At(13, 50), platform::Rgb565(255, 0, 0));

  // A full pool drops what comes after it.
  ParticlePool small(2);
  for (int i = 1; i <= 3; ++i) small.AddParticle(i, i, i, 0, 0, 0, 0, 5, Keep);
  EXPECT_EQ(small.particles[0].red, 1);
  EXPECT_EQ(small.cursor, 1);

  // Off the clip rectangle it moves and ages unseen, and shows again when it comes back.
  theDisplay->ClearScreen(0, 0, 0);
  ParticlePool one(1);
  one.AddParticle(255, 255, 255, 638.0f, 10.0f, std::numbers::pi_v<float> / 2, 4.0f, 10, [](Particle* p) {
    if (p->x > 650) p->heading = -std::numbers::pi_v<float> / 2;
  });
  for (int i = 0; i < 8; ++i) Frame(one);
  EXPECT_EQ(one.particles[0].life, 2);
  EXPECT_EQ(back->At(638, 10), 0xFFFF) << "back inside after going out";
}

TEST_F(EffectsTest, EmittersPickWithinTheirBoundsAndAdditiveSaturates) {
  ParticlePool pool(50);
  ParticleEmitter fixed{.colourMax = {200, 100, 50}, .colourMin = {200, 100, 50}, .xMin = 10, .yMin = 20,
                        .xMax = 30, .yMax = 25, .headingMax = 1.0f, .speedMax = 0.5f, .headingMin = 0.0f,
                        .speedMin = 0.5f, .lifeMax = 8, .lifeMin = 4, .update = Keep, .pool = &pool};
  SeedRandom(7);
  for (int i = 0; i < 50; ++i) fixed.Emit();
  for (int i = 0; i < 50; ++i) {
    const Particle& p = pool.particles[i];
    EXPECT_EQ(p.red, 200);
    EXPECT_EQ(p.blue, 50);
    EXPECT_TRUE(p.x >= 10 && p.x < 30 && p.y >= 20 && p.y < 25);
    EXPECT_TRUE(p.heading >= 0.0f && p.heading < 1.0f);
    EXPECT_FLOAT_EQ(p.speed, 0.5f);
    EXPECT_TRUE(p.life >= 4 && p.life < 8);
  }
  // Each property takes its own draw, in order: colours, position, heading, speed, life
  // (equal bounds draw nothing).
  SeedRandom(7);
  fixed.pool = nullptr;
  fixed.Emit();
  SeedRandom(7);
  const int x = 10 + Rand() % 20, y = 20 + Rand() % 5;
  EXPECT_EQ(pool.particles[0].x, static_cast<float>(x));
  EXPECT_EQ(pool.particles[0].y, static_cast<float>(y));

  theDisplay->ClearScreen(0, 0, 0);
  back->Fill({40, 40, 41, 41}, platform::Rgb565(248, 0, 0));
  ParticlePool glow(1);
  glow.AddParticle(255, 255, 0, 40.0f, 40.0f, 0.0f, 0.0f, 3, Keep);
  glow.UpdateAndDrawAdditive();
  EndAdditive();
  EXPECT_EQ(back->At(40, 40), platform::Rgb565(255, 255, 0));
}

TEST_F(EffectsTest, PointerPutsBackWhatItCovered) {
  ASSERT_NE(theMousePointer, nullptr);
  MousePointer& pointer = *theMousePointer;
  // An arrow of our own: 10 x 10 white with a key hole.
  for (Picture& p : pointer.pictures) p.CreateBlank(10, 10);
  pointer.pictures[0].surface->Fill({0, 0, 10, 10}, 0xFFFF);
  pointer.pictures[0].surface->Fill({5, 5, 6, 6}, 0);
  // A frame with a pattern.
  for (int y = 0; y < 480; ++y)
    for (int x = 0; x < 640; ++x) back->Pixels()[y * back->Pitch() + x] = static_cast<std::uint16_t>(x * 7 + y);
  std::vector<std::uint16_t> frame(back->Pixels(), back->Pixels() + back->Pitch() * 480);

  pointer.Show(1);
  EXPECT_EQ(back->At(pointer.x, pointer.y), 0xFFFF);
  pointer.MoveTo(630, 470);  // clipped at the edge
  EXPECT_EQ(back->At(630, 470), 0xFFFF);
  EXPECT_EQ(back->At(635, 475), frame[475 * back->Pitch() + 635]) << "the key shows the frame";
  EXPECT_EQ(back->At(0, 0), frame[0]) << "the old place is restored";
  pointer.MoveTo(-1, -1);
  EXPECT_EQ(pointer.x, 630);
  EXPECT_EQ(back->At(639, 479), 0xFFFF);
  pointer.Show(0);
  EXPECT_TRUE(std::equal(frame.begin(), frame.end(), back->Pixels())) << "hiding restores exactly the frame";
  EXPECT_EQ(pointer.visible, 0);
  pointer.MoveTo(100, 100);
  EXPECT_EQ(back->At(100, 100), frame[100 * back->Pitch() + 100]) << "a hidden pointer is not drawn";
  EXPECT_EQ(pointer.x, 630) << "nor moved";
  EXPECT_FALSE(game->backend.SystemCursorVisible());
}

}  // namespace
