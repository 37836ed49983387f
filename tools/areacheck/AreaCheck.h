#pragma once
// The check of the game's area files, made for their authors: a file must read without a
// repair, have a start, let the player reach every exit and every marked event from the
// start (through a locked passage only when its item is given earlier in the same area
// or in an area of a lower tier), give its encounter areas the rectangles their cells
// show, meet only real species at real levels, and fit every text into the event panel.
// Across the areas, every item given must be needed somewhere and every need met.
#include <string>
#include <vector>

namespace platform {
class Font;
}

struct AreaCheckOptions {
  int smallestSide = 20;
  int largestSide = 48;
  std::string dataRoot;               // where the pictures the files name are looked for; empty: not looked for
  platform::Font* font = nullptr;     // the event panel's font; null: texts are not measured
};

struct AreaReport {
  std::string file;
  std::vector<std::string> problems;
  std::vector<int> species;        // every species its encounter areas can give
  std::vector<std::string> gives;  // every item its events give
  std::vector<std::string> needs;  // every item its events need
};

// The files in tier order; items given in one are held in the later ones.
std::vector<AreaReport> CheckAreas(const std::vector<std::string>& files, const AreaCheckOptions& options,
                                   std::vector<std::string>* overall);
