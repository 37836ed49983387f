// The window's message queue: the order in which messages come, paint and timer messages
// made only when nothing else waits, destroy and quit, and device input arriving on time;
// and what of a frame is sent to the screen.
#include <gtest/gtest.h>

#include <vector>

#include "platform/FrameUploader.h"
#include "platform/HeadlessBackend.h"
#include "platform/Surface.h"
#include "platform/Window.h"

using namespace platform;

namespace {

std::vector<Message> received;
bool validatePaint = true;

LResult Recorder(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  received.push_back({window, message, wParam, lParam});
  if (message == WM_PAINT && !validatePaint) return 0;
  return DefWindowProc(window, message, wParam, lParam);
}

class MessageQueueTest : public ::testing::Test {
 protected:
  void SetUp() override {
    received.clear();
    validatePaint = true;
    InstallBackend(&backend);
    SetWindowProcedure(Recorder);
    ASSERT_NE(CreateMainWindow("Quarnwick", 640, 480, true), 0u);
  }
  void TearDown() override { InstallBackend(nullptr); }
  // Takes every waiting message through the window procedure; returns their codes.
  std::vector<std::uint32_t> Drain(int limit = 20) {
    std::vector<std::uint32_t> codes;
    Message m;
    while (limit-- > 0 && PeekMessage(&m)) {
      if (!GetMessage(&m)) {
        codes.push_back(WM_QUIT);
        break;
      }
      codes.push_back(m.message);
      DispatchMessage(m);
    }
    return codes;
  }
  HeadlessBackend backend;
};

TEST_F(MessageQueueTest, PostedFirstThenOnePaintThenTimers) {
  ASSERT_EQ(received.size(), 1u);
  EXPECT_EQ(received[0].message, WM_ACTIVATE) << "a new window is activated";

  SetTimer(kMainWindow, 1, 0);
  InvalidateRect(kMainWindow);
  PostMessage(kMainWindow, WM_KEYDOWN, 'A', 0);
  InvalidateRect(kMainWindow);
  PostMessage(kMainWindow, WM_CHAR, 'a', 0);
  EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_KEYDOWN, WM_CHAR, WM_PAINT}));

  // The shortest timer interval is 10 ms.
  backend.Advance(9);
  EXPECT_TRUE(Drain().empty());
  backend.Advance(1);
  EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_TIMER}));
  EXPECT_EQ(MillisecondsToNextTimer(), 10u);
  KillTimer(kMainWindow, 1);
  backend.Advance(50);
  EXPECT_TRUE(Drain().empty());

  // A paint that is not validated keeps coming, but never ahead of posted messages.
  validatePaint = false;
  InvalidateRect(kMainWindow);
  EXPECT_EQ(Drain(3), (std::vector<std::uint32_t>{WM_PAINT, WM_PAINT, WM_PAINT}));
  PostMessage(kMainWindow, WM_KEYDOWN, 'B', 0);
  EXPECT_EQ(Drain(2), (std::vector<std::uint32_t>{WM_KEYDOWN, WM_PAINT}));
  ValidateRect(kMainWindow);
  EXPECT_TRUE(Drain().empty());
}

TEST_F(MessageQueueTest, CloseDestroysAndQuitEndsTheQueue) {
  received.clear();
  PostMessage(kMainWindow, WM_CLOSE, 0, 0);
  Drain(1);
  ASSERT_EQ(received.size(), 2u);
  EXPECT_EQ(received[1].message, WM_DESTROY) << "closing destroys at once";
  EXPECT_FALSE(WindowExists());
  EXPECT_FALSE(backend.WindowOpen());
  EXPECT_FALSE(PostMessage(kMainWindow, WM_CHAR, 'x', 0)) << "nothing reaches a destroyed window";
  EXPECT_FALSE(DestroyWindow(kMainWindow));

  PostQuitMessage(3);
  Message m;
  ASSERT_TRUE(PeekMessage(&m));
  EXPECT_EQ(m.message, WM_QUIT);
  EXPECT_FALSE(GetMessage(&m));
  EXPECT_EQ(m.wParam, 3u);
  EXPECT_FALSE(PeekMessage(&m));
}

TEST_F(MessageQueueTest, DeviceInputArrivesOnTime) {
  // Input comes when it is due (what each press and click sends, every other test relies on).
  backend.KeyPress(VK_RETURN, 20);
  EXPECT_TRUE(Drain().empty()) << "nothing is due yet";
  backend.Advance(20);
  EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_KEYDOWN, WM_CHAR, WM_KEYUP}));

  // Points off the frame keep their sign.
  const LParam packed = PackPoint(-5, -300);
  EXPECT_EQ(PointX(packed), -5);
  EXPECT_EQ(PointY(packed), -300);

  // Waiting for input jumps the clock to the input, never past the timeout.
  const std::uint32_t start = GetTickCount();
  backend.KeyPress('Z', 30);
  WaitForInput(100);
  EXPECT_EQ(GetTickCount() - start, 30u);
  WaitForInput(100);
  EXPECT_EQ(GetTickCount() - start, 30u) << "input is waiting: no wait";
  Drain();
  WaitForInput(100);
  EXPECT_EQ(GetTickCount() - start, 130u);
}

TEST_F(MessageQueueTest, AFrameIsSentOnlyWhereItDiffersFromTheScreen) {
  Surface frame(640, 480);
  frame.Fill(frame.Bounds(), 0x0841);
  SetWindowSurface(&frame);
  RefreshWindow();
  EXPECT_EQ(backend.FramesShown(), 1);
  EXPECT_EQ(backend.LastChanges(), std::vector<Rect>{frame.Bounds()}) << "the first frame is sent whole";
  // Drawn again the same: not sent.
  frame.Fill(frame.Bounds(), 0x0841);
  RefreshWindow();
  EXPECT_EQ(backend.FramesShown(), 1);
  // Two small changes: their bands of rows, from the first to the last changed column.
  frame.Fill({100, 20, 110, 21}, 0xFFFF);
  frame.Fill({300, 30, 301, 31}, 0xFFFF);
  frame.Fill({5, 470, 6, 472}, 0x1234);
  RefreshWindow();
  EXPECT_EQ(backend.FramesShown(), 2);
  EXPECT_EQ(backend.LastChanges(), (std::vector<Rect>{{100, 16, 301, 32}, {5, 464, 6, 480}}));
  EXPECT_EQ(backend.LastFrame()[470 * 640 + 5], 0x1234);
  // Back to the first picture: the same parts again.
  frame.Fill(frame.Bounds(), 0x0841);
  RefreshWindow();
  EXPECT_EQ(backend.LastChanges(), (std::vector<Rect>{{100, 16, 301, 32}, {5, 464, 6, 480}}));
  // A frame shown at once goes out even unchanged, with nothing marked as changed.
  ShowSurfaceNow(frame);
  EXPECT_EQ(backend.FramesShown(), 4);
  EXPECT_TRUE(backend.LastChanges().empty());
  SetWindowSurface(nullptr);
}

}  // namespace
