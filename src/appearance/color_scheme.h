// Named colour schemes in all.col: reading, listing, adding, replacing, deleting.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/file_names.h"
#include "model/game_state.h"
#include "model/user_interface.h"

namespace velmora {

// Roles of the scheme's elements; the others are kept but not painted.
inline constexpr int kSchemeBackground = 2;
inline constexpr int kSchemeTitleBox = 3;
inline constexpr int kSchemeButtonFace = 4;
inline constexpr int kSchemeTitleCopy = 5;

inline constexpr uint32_t Rgb(int r, int g, int b) {
  return static_cast<uint32_t>(r & 255) | static_cast<uint32_t>(g & 255) << 8 |
         static_cast<uint32_t>(b & 255) << 16;
}
inline constexpr int RedOf(uint32_t c) { return static_cast<int>(c & 255); }
inline constexpr int GreenOf(uint32_t c) { return static_cast<int>(c >> 8 & 255); }
inline constexpr int BlueOf(uint32_t c) { return static_cast<int>(c >> 16 & 255); }

// Colours in use before any scheme is read.
SchemeColors DefaultSchemeColors();

// The colours a window is painted with: "default.col" (any case) takes the
// system's button face as background and a light grey button face.
SchemeColors EffectiveColors(const SchemeColors& scheme, const std::string& name, uint32_t systemButtonFace);

// Loads scheme `name` from appFolder's all.col into look.Scheme. When the name
// is missing (or its 13 colour lines are damaged) it shows
// "Color Scheme: NAME not found", makes "default.col" the active name and
// returns false; colours read before the failure stay.
bool ReadColorScheme(const std::string& appFolder, Appearance& look, UserInterface& ui,
                     const std::string& name);

// Scheme names for the list: the text before the first ".col" of every line
// holding ".col". Empty for a missing file.
std::vector<std::string> SchemeNames(const std::string& schemeFile);

// One scheme as written to the file: the name line (lower case + ".col")
// and 13 lines " r; g; b".
std::vector<std::string> SchemeLines(const std::string& name, const SchemeColors& colors);

// Appends scheme `name` (a last line without its line end gets one first)
// by writing the whole file anew; false on a file error.
bool AppendScheme(const std::string& schemeFile, const std::string& name, const SchemeColors& colors);

// Whether a name can be written as a scheme of its own: a name holding
// ".col" would be listed cut short at it, and could never be found again.
bool IsSchemeName(const std::string& name);

// Rewrites the file through the work file with the 13 colour lines after
// `nameLine` replaced (ReplaceScheme) or the scheme left out (DeleteScheme).
// A short scheme loses only its own lines, never the next scheme's name.
// A file without `nameLine` is left as it is.
enum class SchemeEdit { kDone, kNotFound, kFileError };
SchemeEdit ReplaceScheme(const std::string& schemeFile, const std::string& workFile,
                         const std::string& nameLine, const SchemeColors& colors);
SchemeEdit DeleteScheme(const std::string& schemeFile, const std::string& workFile,
                        const std::string& nameLine);

}  // namespace velmora
