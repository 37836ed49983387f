// close-window TITLE: asks the window with that title to close, as its close button does
// (a WM_DELETE_WINDOW message), for the real-window test under Xvfb, which runs no window
// manager that could be asked instead.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <cstring>

namespace {

Window Find(Display* display, Window window, const char* title) {
  char* name = nullptr;
  if (XFetchName(display, window, &name) && name) {
    const bool match = std::strcmp(name, title) == 0;
    XFree(name);
    if (match) return window;
  }
  Window root = 0, parent = 0, *children = nullptr;
  unsigned count = 0;
  if (!XQueryTree(display, window, &root, &parent, &children, &count)) return 0;
  Window found = 0;
  for (unsigned i = 0; i < count && !found; ++i) found = Find(display, children[i], title);
  if (children) XFree(children);
  return found;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: close-window TITLE\n");
    return 2;
  }
  Display* display = XOpenDisplay(nullptr);
  if (!display) {
    std::fprintf(stderr, "close-window: no display\n");
    return 1;
  }
  const Window window = Find(display, DefaultRootWindow(display), argv[1]);
  if (!window) {
    std::fprintf(stderr, "close-window: no window called %s\n", argv[1]);
    XCloseDisplay(display);
    return 1;
  }
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  event.xclient.data.l[1] = CurrentTime;
  XSendEvent(display, window, False, NoEventMask, &event);
  XCloseDisplay(display);
  return 0;
}
