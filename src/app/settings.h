// The desktop program's settings beyond velmora.cfg (whose four lines never
// change): velmora.ini in the program's folder, in the INI form earlier
// versions wrote through Qt, so that their files keep their settings.
#pragma once

#include <functional>
#include <string>

namespace velmora {

// The text sizes of the options dialog, smallest first; Medium is the
// platform's own size.
enum TextSize { kSmall, kMedium, kLarge, kHuge };
// Their names, shown in the dialog and kept in the file.
inline constexpr const char* kTextSizeNames[] = {"Small", "Medium", "Large", "Huge"};

// Every setting, with its default; each one's section and key in velmora.ini
// are in the key table of settings.cpp.
struct Settings {
  TextSize textSize = kMedium;  // [Options] Size
  bool shadeFits = false;       // [Assist] ShadeFits
  bool markGivens = false;      // [Assist] MarkGivens
  bool optionsInCells = false;  // [Assist] OptionsInCells
  bool keepBoards = true;       // [Assist] KeepBoards
  bool operator==(const Settings&) const = default;
};

// The settings kept in `appFolder` (ending in "/"). A file that is missing,
// not a regular file, unreadable, over 64 KiB or garbled gives the defaults,
// and so does a value this version does not know; nothing is said.
Settings LoadSettings(const std::string& appFolder);

// Reads the file again under its lock, lets `change` set what it sets and
// writes back only the settings that changed, keeping every other line (a
// newer version's keys). A damaged regular file is written anew; one that is
// not a regular file, or cannot be written, is left as it is and the result
// is false.
bool ChangeSettings(const std::string& appFolder, const std::function<void(Settings&)>& change);

}  // namespace velmora
