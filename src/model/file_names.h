// The names of the files the programs ship, keep and leave behind.
#pragma once

namespace velmora {

// Shipped beside the programs; a per-user folder starts with the first two.
inline constexpr const char* kPuzzleFileName = "puzzles.vlm";
inline constexpr const char* kSchemeFileName = "all.col";
inline constexpr const char* kHelpPage = "velmora.htm";
// Kept in the program's folder: velmora.cfg's four lines, the desktop
// program's further settings.
inline constexpr const char* kConfigFileName = "velmora.cfg";
inline constexpr const char* kSettingsFileName = "velmora.ini";
// What the player did with each puzzle: kept boards, finishes (SQLite).
inline constexpr const char* kStoreFileName = "velmora.db";

// A scheme's name in all.col ends in this; the scheme a new folder starts with.
inline constexpr const char* kSchemeExtension = ".col";
inline constexpr const char* kDefaultSchemeName = "default.col";

// Work files. The delete command's is a bare name, so it lands in the current
// directory and stays there afterwards.
inline constexpr const char* kDeleteWorkFile = "velmora.tmp";
inline constexpr const char* kSchemeWorkFileName = "newall.cox";
// Where One Puzzle and "Display only" put each new puzzle, in the program's folder.
inline constexpr const char* kTemporaryPuzzleFile = "TemporaryPuzzleFile.vlm";

}  // namespace velmora
