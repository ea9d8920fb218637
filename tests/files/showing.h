// A puzzle file on show, as the file commands meet it.
#pragma once

#include <filesystem>

#include "model/text.h"
#include "test_support.h"

namespace velmora::test {

// Record n of `file` on show as after start-up, the program folder beside it.
inline GameState Showing(const std::string& file, int n) {
  GameState s = Loaded(file, n);
  s.AppFolder = std::filesystem::path(file).parent_path().string() + "/";
  s.CurrentPuzzleFile = file;
  return s;
}

// What the puzzle fields show: "2 of 3 T2".
inline std::string Shown(const GameState& s) {
  return NumText(s.CurrentPuzzleNumber) + s.view.MaxPuzCount + " " + s.view.PuzTitle;
}

}  // namespace velmora::test
