// File and Puzzle menu commands, the arrow buttons and the typed puzzle number.
#pragma once

#include <string>

#include "model/file_names.h"
#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

inline constexpr const char* kPuzzleFileTypes = "*.vlm;*.txt;*.dat";
inline constexpr const char* kPuzzleFileTypesName = "velmora Files";

// The three `arrows` buttons: previous, next and random puzzle.
inline constexpr int kArrowPrevious = 0;
inline constexpr int kArrowNext = 1;
inline constexpr int kArrowRandom = 2;
inline constexpr const char* kArrowToolTips[3] = {"Previous puzzle, right-click for first puzzle",
                                                  "Next puzzle, right-click for last puzzle",
                                                  "Random puzzle"};

// 1, unless `name` exists with a length other than 0 and the person answers
// No to the overwrite question; then 0.
int ConfirmOverwrite(UserInterface& ui, const std::string& name);

// The puzzle-file dialog of Load ("OPEN"), Copy and Save ("SAVE"), starting
// in the program's folder; "" when cancelled. The current directory is the
// same afterwards.
std::string AskPuzzleFileName(const std::string& appFolder, UserInterface& ui, const std::string& mode);

// Shows `file` at its first puzzle and makes it current, as File > Load does
// with the chosen name (and the program with a file named when started).
void OpenPuzzleFile(GameState& s, UserInterface& ui, const std::string& file);

void mnuloadpuz(GameState& s, UserInterface& ui);    // File > "Load"
void mnusaveas(GameState& s, UserInterface& ui);     // File > "Copy"
void mnupuzreset(GameState& s, UserInterface& ui);   // Puzzle > "Reset"
void mnusaveassli(GameState& s, UserInterface& ui);  // Puzzle > "Save"
void mnuappend(GameState& s, UserInterface& ui);     // Puzzle > "Append"
void mnudelete(GameState& s, UserInterface& ui);     // Puzzle > "Delete"

// A mouse button (kLeftButton, kRightButton) released on arrow `index`.
void arrowsMouseUp(GameState& s, UserInterface& ui, int index, int button);

// The Enter key in PuzNumNow: jumps to the number typed there (view.PuzNumNow).
void PuzNumNowEnter(GameState& s, UserInterface& ui);

// The lines of `file` without its n-th "#" record, in CR LF form, the way the
// delete command copies them. False when the file cannot be read.
bool FileWithoutRecord(const std::string& file, int n, std::string& contents);

}  // namespace velmora
