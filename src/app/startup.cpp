// Start-up of the main window: tables, folder, configuration, colours, first puzzle.
#include "app/startup.h"

#include "appearance/color_scheme.h"
#include "board/geometry.h"
#include "files/config.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"

namespace velmora {

std::string FolderWithSlash(const std::string& folder) {
  if (folder.empty() || folder.back() == '/') return folder;
  return folder + "/";
}

void StartUp(GameState& s, UserInterface& ui, const std::string& appFolder,
             const std::function<void()>& setCol) {
  s.session.Solving = 0;
  BuildCardCodes(s.puzzle.CardCodes);
  s.look.Scheme = DefaultSchemeColors();
  s.session.AppFolder = FolderWithSlash(appFolder);
  if (s.session.ShippedFolder.empty()) s.session.ShippedFolder = s.session.AppFolder;
  s.puzzle.Rows = s.puzzle.Cols = kBoardSize;

  ReadcfgFile(s.session, s.look, ui);
  ReadColorScheme(s.session.AppFolder, s.look, ui, s.look.ColorSchemeName);
  if (setCol) setCol();

  // A file that is missing, empty or unreadable gives way to the default one.
  if (FileLength(s.session.CurrentPuzzleFile) <= 0)
    s.session.CurrentPuzzleFile = s.session.AppFolder + kPuzzleFileName;
  s.session.PuzzleCount = CountPuzzles(s.session.CurrentPuzzleFile);
  const bool loaded = LoadPuzzle(s, ui, s.session.CurrentPuzzleFile, s.session.CurrentPuzzleNumber);
  ui.SetBusy(false);
  if (loaded) return;

  s.puzzle.Rows = s.puzzle.Cols = kBoardSize;
  s.session.CurrentPuzzleFile.clear();
  s.session.CurrentPuzzleNumber = 0;
  s.view.PuzNumNow.clear();
  ui.ControlsChanged();
  ui.DrawBoard();
}

}  // namespace velmora
