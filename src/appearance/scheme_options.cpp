// The options dialog's scheme commands: the list, choosing, adding, replacing,
// deleting and applying a scheme, and the button contrast.
#include "appearance/scheme_options.h"

#include <algorithm>
#include <cmath>

#include "appearance/color_scheme.h"
#include "model/text.h"

namespace velmora {
namespace {

std::string SchemeFile(const std::string& appFolder) { return appFolder + kSchemeFileName; }
std::string WorkFile(const std::string& appFolder) { return appFolder + kSchemeWorkFileName; }

// The file's path on a line of its own says which file failed.
std::string FileError(const char* text, const std::string& appFolder) {
  return text + std::string(kNewLine) + SchemeFile(appFolder);
}

// Says why a replacement or deletion did not happen.
bool Edited(UserInterface& ui, const std::string& name, const std::string& appFolder, SchemeEdit edit) {
  if (edit == SchemeEdit::kNotFound) ui.ShowMessage("Color Scheme: " + name + " not found");
  if (edit == SchemeEdit::kFileError) ui.ShowMessage(FileError("Error in updating Color Scheme:", appFolder));
  return edit == SchemeEdit::kDone;
}

int Brightness(uint32_t c) { return (RedOf(c) * 299 + GreenOf(c) * 587 + BlueOf(c) * 114) / 1000; }

}  // namespace

void SchemeListBox::Select(const std::string& name) {
  const auto at = std::find(items.begin(), items.end(), name);
  listIndex = at == items.end() ? -1 : static_cast<int>(at - items.begin());
}

void FillSchemeList(const std::string& appFolder, SchemeListBox& list) {
  list.items = SchemeNames(SchemeFile(appFolder));
  list.listIndex = -1;
}

bool ChooseScheme(const std::string& appFolder, Appearance& look, UserInterface& ui,
                  const SchemeListBox& list) {
  return list.HasSelection() && ReadColorScheme(appFolder, look, ui, list.Selected() + kSchemeExtension);
}

bool AddSch(const std::string& appFolder, const Appearance& look, UserInterface& ui, SchemeListBox& list) {
  const std::string name = ui.AskText("Enter new Color Scheme name");
  if (name.empty()) return false;
  if (std::find(list.items.begin(), list.items.end(), name) != list.items.end()) {
    ui.ShowMessage("Color Scheme: " + name + " already exists");
    return false;
  }
  if (!IsSchemeName(name)) {
    ui.ShowMessage("Color Scheme: " + name + " not added: a name cannot hold \".col\"");
    return false;
  }
  if (!AppendScheme(SchemeFile(appFolder), name, look.Scheme)) {
    ui.ShowMessage(FileError("Error in adding Color Scheme:", appFolder));
    return false;
  }
  FillSchemeList(appFolder, list);
  ui.ShowMessage("Color Scheme: " + name + " added");
  return true;
}

bool RepSch(const std::string& appFolder, const Appearance& look, UserInterface& ui,
            const SchemeListBox& list) {
  if (!list.HasSelection()) {
    ui.ShowMessage("Select a color scheme to replace");
    return false;
  }
  const std::string& name = list.Selected();
  if (!ui.AskYesNo("Replace color scheme: " + name)) return false;
  if (!Edited(
          ui, name, appFolder,
          ReplaceScheme(SchemeFile(appFolder), WorkFile(appFolder), name + kSchemeExtension, look.Scheme)))
    return false;
  ui.ShowMessage("Color Scheme: " + name + " replaced");
  return true;
}

bool DelSch(const std::string& appFolder, const Appearance& look, UserInterface& ui, SchemeListBox& list) {
  if (!list.HasSelection()) {
    ui.ShowMessage("Select a color scheme to delete");
    return false;
  }
  const std::string name = list.Selected();
  if (!ui.AskYesNo("Delete color scheme: " + name)) return false;
  if (name + kSchemeExtension == look.ColorSchemeName) {
    ui.ShowMessage("Cannot delete currently active Color Scheme");
    return false;
  }
  if (!Edited(ui, name, appFolder,
              DeleteScheme(SchemeFile(appFolder), WorkFile(appFolder), name + kSchemeExtension)))
    return false;
  FillSchemeList(appFolder, list);
  ui.ShowMessage("Color Scheme: " + name + " deleted");
  return true;
}

void ApplyChosenScheme(Appearance& look, const SchemeListBox& list) {
  if (list.HasSelection()) look.ColorSchemeName = list.Selected() + kSchemeExtension;
}

int ButtonContrast(const SchemeColors& colors) {
  const int back = Brightness(colors[kSchemeBackground]), face = Brightness(colors[kSchemeButtonFace]);
  if (face >= back) return back == 255 ? 0 : (face - back) * kMaxContrast / (255 - back);
  return -(back - face) * kMaxContrast / back;
}

void SetButtonContrast(SchemeColors& colors, int contrast) {
  contrast = std::clamp(contrast, -kMaxContrast, kMaxContrast);
  const uint32_t back = colors[kSchemeBackground];
  // Each channel moves the same share of its way towards white or black.
  auto move = [contrast](int c) {
    const int target = contrast > 0 ? 255 : 0;
    return c + static_cast<int>(std::lround((target - c) * std::abs(contrast) / double(kMaxContrast)));
  };
  colors[kSchemeButtonFace] = Rgb(move(RedOf(back)), move(GreenOf(back)), move(BlueOf(back)));
}

}  // namespace velmora
