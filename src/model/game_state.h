// The program's main state: the parts below, each with its own owner.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/file_names.h"
#include "model/puzzle.h"
#include "model/session.h"

namespace velmora {

// A colour scheme: 13 RGB colours, red in the low byte.
using SchemeColors = std::array<uint32_t, 13>;

// Texts of the main window's controls that commands write.
struct WindowTexts {
  std::string PuzNumNow;
  std::string MaxPuzCount;
  std::string PuzTitle;
  std::string Caption;
  std::string pb;      // status label
  std::string NewLab;  // progress panel label
  std::string Label3;  // row of the last click
  std::string Label4;  // column of the last click
  bool Frame1Visible = false;
  RemainLists Remain;
};

// The colour scheme the windows are painted with.
struct Appearance {
  std::string ColorSchemeName = kDefaultSchemeName;
  SchemeColors Scheme{};  // the current colour scheme
};

// The whole: commands that act on all of it take this, the rest take the
// parts they use. The board's twips layout follows from the puzzle's size
// (board/geometry.h); the generator's scratch lives with the generator.
struct GameState {
  Puzzle puzzle;
  Session session;
  WindowTexts view;
  Appearance look;
};

}  // namespace velmora
