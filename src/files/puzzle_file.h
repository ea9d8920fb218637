// Reading and writing puzzle records.
#pragma once

#include <optional>
#include <string>

#include "files/text_file.h"
#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Lines beginning with "#"; 0 for a missing or unreadable file, and for a
// damaged one (a line over 1 MiB stops the reading): its records are not shown
// as if the records before the damage were all. `error` tells which.
int CountPuzzles(const std::string& file, int* error = nullptr);

// Whether a load paints the board it loaded.
enum class Draw { kNo, kBoard };

// Loads record n (1-based ordinal) into the grids and shows it: the window's
// texts (its title in PuzTitle), the suit panels, and with Draw::kBoard the
// board. False when there is no such record or reading failed (a damaged
// file, as CountPuzzles tells, loads no record at all); what a failed load
// already wrote into the state stays.
bool LoadPuzzle(GameState& s, UserInterface& ui, const std::string& file, int n, Draw draw = Draw::kBoard);

// Record n of `file` read into `p` with its options, and the suit panels'
// `lists`, showing nothing: the title when it was read, nothing on failure.
std::optional<std::string> ReadPuzzle(Puzzle& p, RemainLists& lists, const std::string& file, int n);

// A title as the program writes it: one line that is not a header. Line
// breaks become blanks and a leading "#" gets a blank before it.
std::string TitleLine(const std::string& title);
bool IsTitleLine(const std::string& title);
// Where the user gives a title that is not a title line, it is refused with this.
inline constexpr const char* kTitleRefusedText = "A title cannot begin with \"#\" or hold a line break";

// The record text WritePuzzleRecord writes (its title through TitleLine); empty when a value has no letter.
std::string PuzzleRecordText(const Puzzle& p, int number, const std::string& title);

// number != 0 appends a record headed "#number"; 0 replaces the whole file
// with one record headed "#1". False on a file error.
bool WritePuzzleRecord(const Puzzle& p, const std::string& file, int number, const std::string& title);

// Appends the current puzzle numbered one past the file's count, counted
// under the file's lock. Returns that number, or 0 on a file error.
int AppendPuzzleRecord(const Puzzle& p, const std::string& file, const std::string& title);

// Cells of the board whose Grid value is 0.
int CountBlanks(const Puzzle& p);

}  // namespace velmora
