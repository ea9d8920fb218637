// The difficulty levels: one row each, read by the generator, the create
// commands and dialog, and velmora-cli.
#pragma once

#include <string_view>

namespace velmora {

inline constexpr int kLevelEasy = 0;
inline constexpr int kLevelHard = 1;
inline constexpr int kLevelVHard = 2;
inline constexpr int kLevelRandom = 3;  // one of the three, drawn per puzzle

// Givens a level removes beyond the base pattern while the solver still
// finishes the board.
inline constexpr int kAsManyAsHold = -1;

struct DifficultyLevel {
  int level;
  const char* name;     // in automatic titles and "Done - "; "" for Random
  const char* word;     // velmora-cli --level
  const char* button;   // the create dialog's option button
  const char* caption;  // and its caption
  int extraBlanks;
};

inline constexpr DifficultyLevel kLevels[] = {
    {kLevelEasy, "Easy", "easy", "Option1", "Easy", 0},
    {kLevelHard, "Hard", "hard", "Option2", "Hard", 4},
    {kLevelVHard, "VHard", "vhard", "Option3", "Very Hard", kAsManyAsHold},
    {kLevelRandom, "", "random", "Option4", "Random", 0},
};

// The row of `level`; nullptr for a value that is no level.
constexpr const DifficultyLevel* FindLevel(int level) {
  return level >= kLevelEasy && level <= kLevelRandom ? &kLevels[level] : nullptr;
}

// The name of a made level ("Easy", "Hard", "VHard"); "" for any other value,
// which a cancelled random puzzle may still carry.
constexpr const char* LevelName(int level) {
  const DifficultyLevel* row = FindLevel(level);
  return row ? row->name : "";
}

// Blanks of the base pattern on a 7x7 board, which every level starts from.
inline constexpr int kBasePatternBlanks = 14;

// The level a puzzle counts under in the player's figures: the first word of
// its title when that names a level (the program titles what it makes so),
// else the first level whose blanks hold `blanks`, the puzzle's blank count.
constexpr const char* LevelOfPuzzle(std::string_view title, int blanks) {
  const std::string_view word = title.substr(0, title.find(' '));
  for (const DifficultyLevel& row : kLevels) {
    if (*row.name != 0 && word == row.name) return row.name;
  }
  for (const DifficultyLevel& row : kLevels) {
    if (row.extraBlanks == kAsManyAsHold || blanks <= kBasePatternBlanks + row.extraBlanks) return row.name;
  }
  return kLevels[kLevelVHard].name;
}

}  // namespace velmora
