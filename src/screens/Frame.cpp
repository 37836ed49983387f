#include "screens/Frame.h"

#include "graphics/Display.h"
#include "shell/Globals.h"
#include "ui/MousePointer.h"

void BeginFrame() {
  if (theMousePointer) theMousePointer->Show(0);
}

void EndFrame() {
  if (theMousePointer) theMousePointer->Show(1);
  if (theDisplay) theDisplay->Present();
}
