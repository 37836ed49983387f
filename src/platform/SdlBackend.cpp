#include "platform/SdlBackend.h"

#include <SDL.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <link.h>
#include <string>
#include <time.h>

#include "platform/BitmapFile.h"
#include "platform/Cp1252.h"
#include "platform/DataPath.h"
#include "platform/FrameUploader.h"
#include "platform/GameClock.h"
#include "platform/Screenshot.h"
#include "platform/SdlAudio.h"
#include "platform/SdlDirectFrame.h"
#include "platform/SdlGamepads.h"
#include "platform/Settings.h"
#include "platform/Surface.h"
#include "platform/Window.h"

namespace platform {
namespace {

std::uint32_t VirtualKeyFor(SDL_Keycode key) {
  if (key >= SDLK_a && key <= SDLK_z) return 0x41 + (key - SDLK_a);
  if (key >= SDLK_0 && key <= SDLK_9) return 0x30 + (key - SDLK_0);
  if (key >= SDLK_F1 && key <= SDLK_F12) return VK_F1 + (key - SDLK_F1);
  // Keypad keys give their keypad codes whatever the Num Lock state.
  if (key >= SDLK_KP_1 && key <= SDLK_KP_9) return VK_NUMPAD0 + 1 + (key - SDLK_KP_1);
  switch (key) {
    case SDLK_KP_0: return VK_NUMPAD0;
    case SDLK_KP_PERIOD: return VK_DECIMAL;
    case SDLK_KP_MULTIPLY: return VK_MULTIPLY;
    case SDLK_KP_PLUS: return VK_ADD;
    case SDLK_KP_MINUS: return VK_SUBTRACT;
    case SDLK_KP_DIVIDE: return VK_DIVIDE;
    case SDLK_KP_ENTER: return VK_RETURN;
    case SDLK_RETURN: return VK_RETURN;
    case SDLK_BACKSPACE: return VK_BACK;
    case SDLK_TAB: return VK_TAB;
    case SDLK_ESCAPE: return VK_ESCAPE;
    case SDLK_SPACE: return VK_SPACE;
    case SDLK_LEFT: return VK_LEFT;
    case SDLK_UP: return VK_UP;
    case SDLK_RIGHT: return VK_RIGHT;
    case SDLK_DOWN: return VK_DOWN;
    case SDLK_PAGEUP: return VK_PRIOR;
    case SDLK_PAGEDOWN: return VK_NEXT;
    case SDLK_HOME: return VK_HOME;
    case SDLK_END: return VK_END;
    case SDLK_INSERT: return VK_INSERT;
    case SDLK_DELETE: return VK_DELETE;
    case SDLK_LSHIFT: case SDLK_RSHIFT: return VK_SHIFT;
    case SDLK_LCTRL: case SDLK_RCTRL: return VK_CONTROL;
    case SDLK_LALT: case SDLK_RALT: return VK_MENU;
    case SDLK_SEMICOLON: return 0xBA;
    case SDLK_EQUALS: return 0xBB;
    case SDLK_COMMA: return 0xBC;
    case SDLK_MINUS: return 0xBD;
    case SDLK_PERIOD: return 0xBE;
    case SDLK_SLASH: return 0xBF;
    case SDLK_BACKQUOTE: return 0xC0;
    case SDLK_LEFTBRACKET: return 0xDB;
    case SDLK_BACKSLASH: return 0xDC;
    case SDLK_RIGHTBRACKET: return 0xDD;
    case SDLK_QUOTE: return 0xDE;
    default: return 0;
  }
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kLeakChecked = true;
#elif defined(__has_feature)
constexpr bool kLeakChecked = __has_feature(address_sanitizer);
#else
constexpr bool kLeakChecked = false;
#endif

// Under the leak checker every library loaded so far stays loaded to the end: the GL
// driver is unloaded when the window closes, and the memory it leaves would then be
// reported without the name of the library it came from, which its suppression needs.
void KeepLibrariesLoadedForTheLeakCheck() {
  if (!kLeakChecked) return;
  dl_iterate_phdr(
      [](dl_phdr_info* info, std::size_t, void*) {
        if (info->dlpi_name && *info->dlpi_name) dlopen(info->dlpi_name, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
        return 0;
      },
      nullptr);
}

WParam MouseButtons() {
  const std::uint32_t state = SDL_GetMouseState(nullptr, nullptr);
  WParam buttons = 0;
  if (state & SDL_BUTTON(SDL_BUTTON_LEFT)) buttons |= MK_LBUTTON;
  if (state & SDL_BUTTON(SDL_BUTTON_RIGHT)) buttons |= MK_RBUTTON;
  return buttons;
}

// Milliseconds since the system started, like the clock the game was written for.
std::uint32_t WallMilliseconds() {
  timespec ts{};
  clock_gettime(CLOCK_MONOTONIC, &ts);
  return static_cast<std::uint32_t>(static_cast<std::uint64_t>(ts.tv_sec) * 1000u + ts.tv_nsec / 1000000);
}

}  // namespace

struct SdlBackend::Impl {
  SdlAudio audio;
  GameClock clock;
  std::string notice;              // said in the window's title for a while
  std::uint32_t noticeUntil = 0;   // on the wall clock
  Settings* settings = nullptr;  // the player's, when the game has them
  std::unique_ptr<SdlGamepads> gamepads;
  SDL_Window* window = nullptr;
  SDL_Renderer* renderer = nullptr;
  SDL_Texture* texture = nullptr;
  bool videoStarted = false;
  bool fullScreen = false;
  int width = 640;
  int height = 480;
  // The window's place and size when it last went to full screen; none before that.
  bool windowKnown = false;
  SDL_Rect windowRect{};
  // Frames go through the renderer when it draws on graphics hardware, else straight into
  // the window's pixels.
  SdlDirectFrame direct{640, 480};
  bool closed = false;  // hidden, waiting to be destroyed with the backend

  void DestroyWindow() {
    if (texture) SDL_DestroyTexture(texture);
    if (renderer) SDL_DestroyRenderer(renderer);
    if (window) SDL_DestroyWindow(window);
    direct.Stop();
    texture = nullptr;
    renderer = nullptr;
    window = nullptr;
    gamepads.reset();
  }

  void Redraw() {
    if (closed) return;
    if (direct.Started()) {
      direct.Redraw();
      return;
    }
    if (!renderer || !texture) return;
    SDL_SetRenderDrawColor(renderer, 0, 0, 0, 255);
    SDL_RenderClear(renderer);
    SDL_RenderCopy(renderer, texture, nullptr, nullptr);
    SDL_RenderPresent(renderer);
  }

  // A windowed game opens at the largest whole-number scale that fits the desktop.
  int WindowScale() const {
    SDL_Rect usable;
    if (SDL_GetDisplayUsableBounds(0, &usable) != 0) return 1;
    const int byWidth = usable.w / width;
    const int byHeight = (usable.h - 40) / height;  // room for the title bar
    const int scale = byWidth < byHeight ? byWidth : byHeight;
    return scale < 1 ? 1 : scale;
  }

  // The window's size: as the player last left it, else the largest whole-number scale.
  SDL_Point WindowSize() const {
    const int w = settings ? settings->Number(Settings::kWindowWidth) : 0;
    const int h = settings ? settings->Number(Settings::kWindowHeight) : 0;
    if (w > 0 && h > 0) return {w, h};
    const int scale = WindowScale();
    return {width * scale, height * scale};
  }

  // Back from full screen the window takes the place and size it had; a game that started
  // in full screen gets the window it would have opened with.
  void ToggleFullScreen() {
    if (!window) return;
    fullScreen = !fullScreen;
    if (fullScreen) {
      SDL_GetWindowPosition(window, &windowRect.x, &windowRect.y);
      SDL_GetWindowSize(window, &windowRect.w, &windowRect.h);
      windowKnown = true;
    }
    SDL_SetWindowFullscreen(window, fullScreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
    if (!fullScreen && windowKnown) {
      // The window system usually restores the window by itself.
      int w = 0, h = 0;
      SDL_GetWindowSize(window, &w, &h);
      if (w != windowRect.w || h != windowRect.h) {
        SDL_SetWindowSize(window, windowRect.w, windowRect.h);
        SDL_SetWindowPosition(window, windowRect.x, windowRect.y);
      }
    } else if (!fullScreen) {
      const SDL_Point size = WindowSize();
      SDL_SetWindowSize(window, size.x, size.y);
      SDL_SetWindowPosition(window, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    }
    if (settings) settings->SetFlag(Settings::kFullscreen, fullScreen);
    Redraw();
  }

  // The window's size as the player leaves it, for the next start.
  void RememberWindowSize(int w, int h) {
    if (!settings || fullScreen || !window) return;
    if (SDL_GetWindowFlags(window) & (SDL_WINDOW_FULLSCREEN | SDL_WINDOW_MAXIMIZED | SDL_WINDOW_MINIMIZED)) return;
    settings->SetNumber(Settings::kWindowWidth, w);
    settings->SetNumber(Settings::kWindowHeight, h);
  }

  // A mouse event's position in the frame (the renderer maps its events by itself).
  void MapToFrame(SDL_Event& e) const {
    if (!direct.Started()) return;
    if (e.type == SDL_MOUSEMOTION) {
      const SDL_Point at = direct.ToFrame(e.motion.x, e.motion.y);
      e.motion.x = at.x;
      e.motion.y = at.y;
    } else if (e.type == SDL_MOUSEBUTTONDOWN || e.type == SDL_MOUSEBUTTONUP) {
      const SDL_Point at = direct.ToFrame(e.button.x, e.button.y);
      e.button.x = at.x;
      e.button.y = at.y;
    }
  }

  // The renderer, unless it would rasterise in software and the window's own pixels can
  // be written instead.
  bool StartDrawing() {
    renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED);
    if (renderer && RendersInSoftware(renderer)) {
      SDL_DestroyRenderer(renderer);
      renderer = nullptr;
    }
    if (!renderer && direct.Start(window)) return true;
    if (!renderer) renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED);
    if (!renderer) renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    if (!renderer) return false;
    SDL_RenderSetLogicalSize(renderer, width, height);
    texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_RGB565, SDL_TEXTUREACCESS_STREAMING, width, height);
    return texture != nullptr;
  }

  // The keys of the platform's own comforts, which no screen receives: Tab held runs the
  // game's clock fast, F9 and PrintScreen take a screenshot.
  bool TakesKey(SDL_Keycode key, bool down, bool repeat) {
    if (key == SDLK_TAB) {
      if (!repeat) SetFastForward(down);
      return true;
    }
    if (key == SDLK_F9 || key == SDLK_PRINTSCREEN) {
      if (down && !repeat) TakeScreenshot();
      return true;
    }
    return false;
  }

  void SetFastForward(bool fast) {
    if (fast == clock.Fast()) return;
    clock.SetFast(fast, WallMilliseconds());
    ShowTitle();
  }

  void TakeScreenshot() {
    const Surface* frame = WindowSurface();
    if (!frame) return;
    std::string error;
    const auto path = SaveScreenshot(*frame, &error);
    notice = path ? "screenshot saved to " + *path : "no screenshot: " + error;
    if (!path) std::fprintf(stderr, "Quarnwick: %s\n", notice.c_str());
    noticeUntil = WallMilliseconds() + 2000;
    ShowTitle();
  }

  // "Quarnwick", with " x3" while fast-forward is held and a notice for two seconds.
  void ShowTitle() {
    if (!window) return;
    std::string title = "Quarnwick";
    if (clock.Fast()) title += " x3";
    if (!notice.empty()) title += " - " + notice;
    SDL_SetWindowTitle(window, title.c_str());
  }

  void EndNotice() {
    if (notice.empty() || static_cast<std::int32_t>(WallMilliseconds() - noticeUntil) < 0) return;
    notice.clear();
    ShowTitle();
  }

  void Translate(SDL_Event e, std::uint32_t now) {
    MapToFrame(e);
    // The right trigger holds fast-forward like Tab.
    if (e.type == SDL_CONTROLLERAXISMOTION && e.caxis.axis == SDL_CONTROLLER_AXIS_TRIGGERRIGHT) {
      if (e.caxis.value > 16000 || e.caxis.value < 8000) SetFastForward(e.caxis.value > 16000);
      return;
    }
    if (gamepads && gamepads->Handle(e, now)) return;
    switch (e.type) {
      case SDL_QUIT:
        PostInput(WM_CLOSE, 0, 0);
        break;
      case SDL_WINDOWEVENT:
        if (e.window.event == SDL_WINDOWEVENT_FOCUS_GAINED) PostInput(WM_ACTIVATE, 1, 0);
        if (e.window.event == SDL_WINDOWEVENT_FOCUS_LOST) PostInput(WM_ACTIVATE, 0, 0);
        if (e.window.event == SDL_WINDOWEVENT_EXPOSED || e.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) Redraw();
        if (e.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) RememberWindowSize(e.window.data1, e.window.data2);
        break;
      case SDL_KEYDOWN: {
        const SDL_Keycode key = e.key.keysym.sym;
        if ((key == SDLK_RETURN || key == SDLK_KP_ENTER) && (e.key.keysym.mod & KMOD_ALT)) {
          if (!e.key.repeat) ToggleFullScreen();
          break;
        }
        if (TakesKey(key, true, e.key.repeat != 0)) break;
        const std::uint32_t vk = VirtualKeyFor(key);
        if (vk == 0) break;
        PostInput(WM_KEYDOWN, vk, e.key.repeat ? static_cast<LParam>(0x40000001) : 1);
        if (vk == VK_BACK || vk == VK_RETURN) PostInput(WM_CHAR, vk, 1);
        break;
      }
      case SDL_KEYUP: {
        if (TakesKey(e.key.keysym.sym, false, false)) break;
        const std::uint32_t vk = VirtualKeyFor(e.key.keysym.sym);
        if (vk != 0) PostInput(WM_KEYUP, vk, static_cast<LParam>(0xC0000001u));
        break;
      }
      case SDL_TEXTINPUT:
        for (char c : Utf8ToCp1252(e.text.text)) PostInput(WM_CHAR, static_cast<unsigned char>(c), 1);
        break;
      case SDL_MOUSEMOTION:
        PostInput(WM_MOUSEMOVE, MouseButtons(), PackPoint(e.motion.x, e.motion.y));
        break;
      case SDL_MOUSEBUTTONDOWN:
      case SDL_MOUSEBUTTONUP: {
        const bool down = e.type == SDL_MOUSEBUTTONDOWN;
        std::uint32_t message = 0;
        if (e.button.button == SDL_BUTTON_LEFT) message = down ? WM_LBUTTONDOWN : WM_LBUTTONUP;
        if (e.button.button == SDL_BUTTON_RIGHT) message = down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
        if (message != 0) PostInput(message, MouseButtons(), PackPoint(e.button.x, e.button.y));
        break;
      }
      default:
        break;
    }
  }
};

SdlBackend::SdlBackend() : impl(std::make_unique<Impl>()) {}

SdlBackend::~SdlBackend() {
  impl->DestroyWindow();
  if (impl->videoStarted) SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

std::uint32_t SdlBackend::TickCount() { return impl->clock.Now(WallMilliseconds()); }

namespace {

// Without a display SDL falls back on a video driver that draws into memory, and the game
// would run on unseen. That driver is used only when asked for by name (the tests do).
bool HasRealDisplay() {
  const char* driver = SDL_GetCurrentVideoDriver();
  const std::string name = driver ? driver : "";
  if (name != "offscreen" && name != "dummy") return true;
  const char* asked = std::getenv("SDL_VIDEODRIVER");
  if (asked && name == asked) return true;
  std::fprintf(stderr, "Quarnwick: no display could be opened: neither DISPLAY nor WAYLAND_DISPLAY names one "
                       "that can be reached.\n");
  return false;
}


// The game's icon, the starting Kindrel, on the window for task switchers and docks; its
// black is transparent, as when the game draws it.
void SetWindowIcon(SDL_Window* window) {
  const auto icon = LoadBitmapFile(DataPath("dat\\PUFFBALL.bmp"));
  if (!icon) return;
  SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, icon->width, icon->height, 32, SDL_PIXELFORMAT_ARGB8888);
  if (!surface) return;
  auto* pixels = static_cast<std::uint32_t*>(surface->pixels);
  for (int y = 0; y < icon->height; ++y) {
    for (int x = 0; x < icon->width; ++x) {
      const std::uint16_t p = icon->pixels[static_cast<std::size_t>(y) * icon->width + x];
      const std::uint32_t alpha = p == 0 ? 0u : 0xFF000000u;
      pixels[static_cast<std::size_t>(y) * (surface->pitch / 4) + x] = alpha |
          static_cast<std::uint32_t>(Red8(p)) << 16 | static_cast<std::uint32_t>(Green8(p)) << 8 |
          static_cast<std::uint32_t>(Blue8(p));
    }
  }
  SDL_SetWindowIcon(window, surface);
  SDL_FreeSurface(surface);
}

}  // namespace

std::string SdlBackend::WindowTitle() const {
  const char* title = impl->window ? SDL_GetWindowTitle(impl->window) : nullptr;
  return title ? title : "";
}

void SdlBackend::UseSettings(Settings* settings) {
  impl->settings = settings;
  if (settings)
    impl->audio.SetLevels(settings->Number(Settings::kEffectsVolume), settings->Number(Settings::kMusicVolume));
}

OpenResult SdlBackend::OpenWindow(const std::string& title, int width, int height, bool windowed) {
  Impl& s = *impl;
  s.DestroyWindow();
  s.closed = false;
  s.width = width;
  s.height = height;
  s.direct = SdlDirectFrame(width, height);
  if (!s.videoStarted) {
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return OpenResult::NoVideo;
    if (!HasRealDisplay()) {
      SDL_QuitSubSystem(SDL_INIT_VIDEO);
      return OpenResult::NoVideo;
    }
    s.videoStarted = true;
  }
  SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "0");
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
  // Full screen unless -F asked for a window or the player last left the game in one.
  s.fullScreen = !windowed && (!s.settings || s.settings->Flag(Settings::kFullscreen));
  const SDL_Point size = s.fullScreen ? SDL_Point{width, height} : s.WindowSize();
  const std::uint32_t flags = SDL_WINDOW_RESIZABLE | (s.fullScreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
  s.window = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, size.x, size.y, flags);
  if (!s.window) return s.fullScreen ? OpenResult::NoDisplayMode : OpenResult::NoWindow;
  SetWindowIcon(s.window);
  if (!s.StartDrawing()) return s.renderer ? OpenResult::NoSurface : OpenResult::NoCooperation;
  SDL_StartTextInput();
  if (!s.gamepads) s.gamepads = std::make_unique<SdlGamepads>();
  s.Redraw();
  KeepLibrariesLoadedForTheLeakCheck();
  return OpenResult::Ok;
}

void SdlBackend::CloseWindow() {
  Impl& s = *impl;
  // The window goes from the screen now and is destroyed with the backend. An event that
  // arrives while SDL waits makes it send a wake-up message to the window over a second
  // X connection; a window destroyed at once, before the server has read that message,
  // turns it into an X error, and Xlib ends the program with exit code 1.
  if (s.window) SDL_HideWindow(s.window);
  s.direct.Stop();
  s.closed = true;
}

void SdlBackend::ShowFrame(const Surface& frame, const std::vector<Rect>& changed) {
  Impl& s = *impl;
  if (s.closed) return;
  if (s.direct.Started()) {
    s.direct.Show(frame, changed);
    return;
  }
  if (!s.texture || frame.Width() != s.width || frame.Height() != s.height) return;
  SDL_UpdateTexture(s.texture, nullptr, frame.Pixels(), frame.Pitch() * 2);
  s.Redraw();
}

void SdlBackend::PollInput() {
  if (!impl->videoStarted) return;
  SDL_Event e;
  const std::uint32_t now = TickCount();
  while (SDL_PollEvent(&e)) impl->Translate(e, now);
  if (impl->gamepads) impl->gamepads->Update(now);
  impl->EndNotice();
}

void SdlBackend::WaitInput(std::uint32_t timeoutMs) {
  if (!impl->videoStarted) {
    SDL_Delay(timeoutMs);
    return;
  }
  // A tilted stick or a held D-pad moves on without device events.
  const std::uint32_t longest = impl->gamepads && impl->gamepads->Busy() ? 15 : 1000;
  // The wait is on the game's clock, which runs fast while fast-forward is held; a title's
  // notice ends on time.
  std::uint32_t wall = impl->clock.WallWait(timeoutMs);
  if (!impl->notice.empty()) wall = std::min<std::uint32_t>(wall, 100);
  const int limit = static_cast<int>(wall > longest ? longest : wall);
  SDL_WaitEventTimeout(nullptr, limit);
}

void SdlBackend::ShowMessageBox(const std::string& text, const std::string& caption, bool errorIcon) {
  if (impl->window) SDL_SetWindowFullscreen(impl->window, 0);  // a box must not hide behind the game
  // No flag is a plain box with its OK button.
  SDL_ShowSimpleMessageBox(errorIcon ? SDL_MESSAGEBOX_ERROR : 0, Cp1252ToUtf8(caption).c_str(),
                           Cp1252ToUtf8(text).c_str(), impl->window);
  if (impl->window && impl->fullScreen) SDL_SetWindowFullscreen(impl->window, SDL_WINDOW_FULLSCREEN_DESKTOP);
}

void SdlBackend::ShowSystemCursor(bool visible) { SDL_ShowCursor(visible ? SDL_ENABLE : SDL_DISABLE); }

std::string SdlBackend::LastError() { return SDL_GetError(); }

AudioDevice* SdlBackend::Audio() { return &impl->audio; }

}  // namespace platform
