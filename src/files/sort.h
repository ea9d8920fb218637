// Sort tool: the records of a puzzle file, ordered by a key, into another file.
#pragma once

#include <functional>
#include <string>

#include "model/random.h"
#include "model/user_interface.h"

namespace velmora {

// The sort criteria: Option3 "Header", Option4 "Puzzle Size", Option5
// "Puzzle Number", Option7 "No of Blanks".
enum class SortKey { kHeader, kSize, kNumber, kBlanks };
// The sort order: Option1 "Ascending", Option2 "Descending", Option6 "Random".
enum class SortOrder { kAscending, kDescending, kRandom };

// What the sort dialog holds.
struct SortSettings {
  std::string source;  // Text2
  std::string output;  // Text1
  SortKey key = SortKey::kHeader;
  SortOrder order = SortOrder::kAscending;
  bool resequence = false;  // Check1: a random order ticks it
  std::string start = "1";  // Text3: the first new number; below 1 it becomes "1"
};

enum SortStatus { kSorted = 0, kSortRefused = 1, kSortFailed = 2 };

// Counts shown while a sort runs: the records read so far, then the records
// still to write.
using SortProgress = std::function<void(long long count)>;

// Sorts settings.source into settings.output, which is written beside it and
// then renamed into place, whole or not at all; the source is never changed.
// Every outcome is told through `ui`, which also yields after each record.
// Random keys draw from `rng`, one draw per record in file order.
SortStatus SortPuzzleFile(SortSettings& settings, Random& rng, UserInterface& ui,
                          const SortProgress& progress = nullptr);

// The output name proposed for a source: "_sorted" before its last ".";
// "" when the name has no ".".
std::string SortedOutputName(const std::string& source);

}  // namespace velmora
