// What a screen reader says of a board cell: its place and what it holds.
#pragma once

#include <string>

#include "model/puzzle.h"

namespace velmora {

// "row 2, column 5: queen of hearts, given", "row 3, column 1: empty,
// 4 options", "row 3, column 2: empty, marked hearts, notes 19T".
std::string SpokenCellName(const Puzzle& p, int row, int col);

}  // namespace velmora
